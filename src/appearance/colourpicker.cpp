// The colour picker's rules; see colourpicker.h.
#include "appearance/colourpicker.h"

#include "appearance/pickercolours.h"
#include "core/settings.h"

#include <algorithm>

namespace {

// The face colour of a control (system colour 15), which labels show until set.
constexpr quint32 ControlFace = 0x80000000u + 15;

} // namespace

ColourPicker::ColourPicker(Translator translate, QObject* parent)
    : QObject(parent)
    , m_translate(std::move(translate))
    , m_selected(ControlFace) {
    m_swatches.fill(ControlFace);
}

void ColourPicker::setSchemeColor(quint32 colour) {
    m_redrawStrips = 1;
    SelectColour(colour);
}

void ColourPicker::SelectColour(quint32& colour) {
    colour = m_translate(colour);
    m_selected = colour;
    Q_EMIT changed();
    // Each bar that really changes runs its change handler before the next bar is set.
    setBarValue(Red, int(colour & 0xFF));
    setBarValue(Green, int((colour >> 8) & 0xFF));
    setBarValue(Blue, int((colour >> 16) & 0xFF));
    if (m_redrawStrips != 0)
        Q_EMIT stripsDrawn(colour);
}

void ColourPicker::setBarValue(Channel channel, int value) {
    value = std::clamp(value, 0, 255);
    if (m_bars[channel] == value)
        return;
    m_bars[channel] = value;
    barChanged(channel);
}

void ColourPicker::barChanged(Channel channel) {
    const auto v = [this](Channel c) { return quint32(m_bars[c]); };
    static constexpr quint32 Shift[] = {0, 8, 16};
    m_swatches[channel] = v(channel) << Shift[channel];
    quint32 c = packRgb(v(Red), v(Green), v(Blue));
    m_selected = c;
    Q_EMIT changed();
    // The bars already hold c's components, so this moves no bar; it redraws the strips.
    if (m_redrawStrips == 1)
        SelectColour(c);
    Q_EMIT SelColor(c);
}

void ColourPicker::surfaceClicked(quint32 colourAtPoint, double yTwips) {
    if (yTwips >= PickerColours::StripClickTop)
        m_redrawStrips = 0; // picking from a strip keeps the strips as they are
    SelectColour(colourAtPoint);
    m_redrawStrips = 1;
    Q_EMIT SelColor(colourAtPoint);
}

void ColourPicker::sized() {
    m_redrawStrips = 1;
    m_selected = PickerColours::StartColour;
    Q_EMIT changed();
    quint32 colour = PickerColours::StartColour;
    SelectColour(colour);
}
