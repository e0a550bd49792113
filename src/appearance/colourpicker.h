// The rules of the colour picker ColPik: which colour is selected, where its three bars
// stand, what their value labels and channel swatches show, when the strips are redrawn and
// which SelColor events are raised, in which order. QtCore only; the ColPik widget renders
// this state, draws the surface and forwards bar moves and surface clicks.
//
// Every change of the selected colour raises SelColor, intermediate colours included: a
// selection sets the red, then the green, then the blue bar, and each bar that really
// changes reports the colour the three bars make at that moment.
#pragma once

#include <QObject>
#include <QString>

#include <array>
#include <functional>

class ColourPicker : public QObject {
    Q_OBJECT
public:
    enum Channel { Red = 0, Green = 1, Blue = 2 };

    // Turns a platform colour value into plain RGB: a system colour (top bit set) into the
    // RGB the desktop shows for it, plain RGB unchanged, anything it cannot translate into 0
    // (black).
    using Translator = std::function<quint32(quint32)>;

    // Starts as the control does before its first sizing: bars at 255, labels "255", the
    // swatches and the selected colour in the control face colour, no strips drawn.
    explicit ColourPicker(Translator translate, QObject* parent = nullptr);

    // The selected colour (always plain RGB once anything was selected).
    quint32 SchemeColor() const { return m_selected; }
    // Selects `colour` and redraws the strips for it (translating a system colour first).
    void setSchemeColor(quint32 colour);

    int barValue(Channel channel) const { return m_bars[channel]; }
    // The value label of a bar: its value as a plain decimal number.
    QString degreeCaption(Channel channel) const { return QString::number(m_bars[channel]); }
    // The channel swatch of a bar: that channel alone, as the bar last changed it.
    quint32 channelSwatch(Channel channel) const { return m_swatches[channel]; }
    // While not 0, a selection redraws both strips. 0 only during a click on a strip.
    int RedrawStrips() const { return m_redrawStrips; }

    // A bar moved to `value` (0..255; others are held to that range): when the value really
    // changes, the labels, that bar's swatch and the selected colour follow, the strips are
    // redrawn while RedrawStrips is 1, and SelColor reports the colour of the three bars.
    void setBarValue(Channel channel, int value);

    // A mouse button released on the surface at `yTwips` (twips from the top) over a point
    // drawn in `colourAtPoint`: selects that colour, without redrawing the strips when the
    // click is on a strip (yTwips >= StripClickTop), then reports it once more.
    void surfaceClicked(quint32 colourAtPoint, double yTwips);

    // The control was (re)sized and its palette drawn: selects the start colour,
    // RGB(192, 192, 192), and draws the strips for it.
    void sized();

Q_SIGNALS:
    // The selected colour changed (plain RGB).
    void SelColor(quint32 colour);
    // Draw the dark strip, then the light strip, for `colour`.
    void stripsDrawn(quint32 colour);
    // The bars, labels, swatches or selected colour changed: render them.
    void changed();

private:
    void SelectColour(quint32& colour);
    void barChanged(Channel channel);

    Translator m_translate;
    quint32 m_selected;
    std::array<int, 3> m_bars{255, 255, 255};
    std::array<quint32, 3> m_swatches;
    int m_redrawStrips = 0;
};
