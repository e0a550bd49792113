// The message window's rules: any style text gives one to three buttons with known captions
// and values and only existing icon slots; any text size and button count give a layout whose
// window holds its label and whose buttons touch, centred, inside the window.
#include "fuzzsupport.h"

#include "ui/msgstyle.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>

namespace {

bool knownButton(const MsgButton& button) {
    static const MsgButton known[] = {
        {QStringLiteral("Ok"), 1},    {QStringLiteral("Ok"), 0},    {QStringLiteral("Cancel"), 2},
        {QStringLiteral("Abort"), 3}, {QStringLiteral("Retry"), 4}, {QStringLiteral("Ignore"), 5},
        {QStringLiteral("Yes"), 6},   {QStringLiteral("No"), 7},
    };
    return std::find(std::begin(known), std::end(known), button) != std::end(known);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider provider(data, size);
    const int textWidth = provider.ConsumeIntegral<int>();
    const int textHeight = provider.ConsumeIntegral<int>();
    const int lastButton = provider.ConsumeIntegralInRange(-2, 4);
    const QString typ = QString::fromStdString(provider.ConsumeRemainingBytesAsString());

    const MsgStyle style = parseMsgStyle(typ);
    check(!style.buttons.isEmpty() && style.buttons.size() <= MsgButtonSlots,
          "one to three buttons");
    for (const MsgButton& button : style.buttons)
        check(knownButton(button), "buttons are the known ones");
    for (const int icon : style.icons)
        check(icon >= 0 && icon <= 10 && icon != 9, "icons are existing slots");

    const MsgLayout layout = layoutMessage(textWidth, textHeight, lastButton);
    check(layout.windowWidth >= MsgButtonSlots * MsgButtonWidth, "three buttons always fit");
    check(layout.labelHeight >= 120 && layout.buttonTop > MsgLabelTop + layout.labelHeight,
          "the buttons sit below the label");
    check(layout.windowHeight == layout.buttonTop + MsgButtonHeight + 600, "the window ends below");
    const bool shown = lastButton >= 0 && lastButton < MsgButtonSlots;
    check(layout.buttonLefts.size() == (shown ? lastButton + 1 : 0), "the filled buttons show");
    for (qsizetype i = 0; i < layout.buttonLefts.size(); ++i) {
        const double left = layout.buttonLefts.at(i);
        check(left >= 0 && left + MsgButtonWidth <= layout.windowWidth, "buttons are inside");
        check(i == 0 || left == layout.buttonLefts.at(i - 1) + MsgButtonWidth, "buttons touch");
    }
    if (shown) {
        const double right = layout.windowWidth - (layout.buttonLefts.back() + MsgButtonWidth);
        check(std::abs(right - layout.buttonLefts.front()) < 1e-6, "the row is centred");
    }
    return 0;
}
