// Packed colour values (red + 256 * green + 65536 * blue; a set top bit names a system
// colour) turned into what the widgets paint with.
#pragma once

#include <QColor>
#include <QPalette>

// The button-face system colour, the default face of the panel's buttons.
inline constexpr quint32 kSystemButtonFace = 0x8000000F;

// `value` as a colour: plain RGB as it stands; system colour n through `palette` (5 window
// background -> Base, 8 window text -> WindowText, 13/14 highlight -> Highlight /
// HighlightedText, 15 button face -> Button, 16 button shadow -> Dark, 18 button text ->
// ButtonText, 20 button highlight -> Light, anything else -> Window).
QColor colourFromPacked(quint32 value, const QPalette& palette);
