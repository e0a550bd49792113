// The colour picker's fixed colours and drawing plan, and its two shading functions. The
// picker's surface is drawn in twips: a palette of the sixteen standard colours, a dark strip
// (black to the current colour) and a light strip (white to the current colour). QtCore only.
#pragma once

#include "core/settings.h"

#include <QRect>
#include <QtGlobal>

#include <array>

namespace PickerColours {

// The sixteen standard colours, by number 0..15: black, blue, green, cyan, red, magenta,
// yellow, white (light grey), grey, then the light forms of the first seven and bright white.
constexpr std::array<quint32, 16> Standard = {
    packRgb(0, 0, 0),       packRgb(0, 0, 128),   packRgb(0, 128, 0),   packRgb(0, 128, 128),
    packRgb(128, 0, 0),     packRgb(128, 0, 128), packRgb(128, 128, 0), packRgb(192, 192, 192),
    packRgb(128, 128, 128), packRgb(0, 0, 255),   packRgb(0, 255, 0),   packRgb(0, 255, 255),
    packRgb(255, 0, 0),     packRgb(255, 0, 255), packRgb(255, 255, 0), packRgb(255, 255, 255),
};
// The colour a freshly sized picker selects: standard colour 7, RGB(192, 192, 192).
constexpr quint32 StartColour = Standard[7];

// The palette square in row j and column k (both 1..4), in twips; it shows standard colour
// 4 * (j - 1) + (k - 1). Both corners are part of the square.
constexpr QRect paletteRect(int j, int k) {
    return QRect(QPoint(10 + 65 * (k - 1), 30 + 225 * (j - 1)),
                 QPoint(65 + 65 * (k - 1), 230 + 225 * (j - 1)));
}

// The strips: for i = 0..StripSteps a vertical line at x = StripLeft + i, from the strip's
// top to its bottom, in the shade for i.
constexpr int StripLeft = 10;
constexpr int StripSteps = 256;
constexpr int DarkStripTop = 950;
constexpr int DarkStripBottom = 1150;
constexpr int LightStripTop = 1175;
constexpr int LightStripBottom = 1375;
// A click this far down or lower (twips) is a click on a strip.
constexpr double StripClickTop = 900.0;

// `clr` darkened towards black: each component x becomes x * f with f = Percent / 256 held
// in single precision, rounded to the nearest whole number, ties to even. Percent 0 gives
// black, 256 the colour itself; a result outside 0..255 is held to that range.
// `clr` must be plain RGB (0..16777215); a system colour throws ColourOverflow.
quint32 clrBlackness(quint32 clr, int Percent);

// `clr` lightened towards white: each component x becomes (255 - x) * f + x with
// f = (256 - Percent) / 256 in single precision, rounded as above. Percent 0 gives white,
// 256 the colour itself. Same contract as clrBlackness.
quint32 clrWhiteness(quint32 clr, int Percent);

} // namespace PickerColours
