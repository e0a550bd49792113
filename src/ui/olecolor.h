// Packed colours as the program stores them (red + 256 * green + 65536 * blue), and system
// colours (top bit set: &H80000000 + n names system colour n), turned into QColor.
#pragma once

#include <QColor>
#include <QtGlobal>

class QPalette;

constexpr quint32 SystemColourFlag = 0x80000000u;
constexpr quint32 SystemButtonFace = SystemColourFlag + 15;
constexpr quint32 SystemButtonText = SystemColourFlag + 18;

// The colour `colour` stands for. A system colour is looked up in `palette` (the
// application's palette when omitted) by its meaning: 5 window background -> Base, 15 button
// face -> Button, 18 button text -> ButtonText, and so on; an unknown system colour gives
// black. Any other value is taken as RGB from its low three bytes.
QColor OleTranslateColor(quint32 colour);
QColor OleTranslateColor(quint32 colour, const QPalette& palette);

// The packed RGB value of `colour` (alpha dropped).
quint32 packedColour(const QColor& colour);
