// The fixed layout of the main window in twips (15 twips to the logical pixel). The tables
// place the star's parts relative to the star area and everything else relative to the
// window's client area; the board functions at the end give every part in board twips (the
// client area's coordinates), on the whole pixels the screen shows them at. The same numbers
// serve the screen, the printed page and the clipboard picture.
#pragma once

#include "core/stargrid.h"
#include "core/twips.h"

#include <QLine>
#include <QRect>

#include <array>

namespace BoardGeometry {

constexpr int TwipsPerPixel = Twips::PerPixel;
// Twips to the nearest logical pixel (halves round up), as the layout places controls.
using Twips::toPixels;

// The client area of the main window.
constexpr int ClientWidth = 5340;
constexpr int ClientHeight = 6135;

// The star area (`Picture2`) in client coordinates.
constexpr QRect StarAreaRect{30, 60, 5265, 4755};

// `Linex(0..4)`, star-area coordinates, in drawing order (the cells of each line as
// StarGrid::lineCells gives them). Drawn 2 pixels wide.
constexpr std::array<QLine, StarGrid::LineCount> Lines{{
    {2550, 720, 1350, 4050},
    {2670, 720, 3840, 4020},
    {810, 1980, 4320, 1980},
    {810, 2160, 3540, 4170},
    {4320, 2160, 1560, 4170},
}};
constexpr int LineWidthPixels = 2;

// `Lts(0..9)`: the letter cells, star-area coordinates.
constexpr int CellSize = 465;
constexpr std::array<QRect, StarGrid::CellCount> Cells{{
    {2370, 240, CellSize, CellSize},
    {360, 1770, CellSize, CellSize},
    {1800, 1770, CellSize, CellSize},
    {2940, 1770, CellSize, CellSize},
    {4320, 1770, CellSize, CellSize},
    {1500, 2730, CellSize, CellSize},
    {3180, 2700, CellSize, CellSize},
    {2340, 3240, CellSize, CellSize},
    {1080, 4020, CellSize, CellSize},
    {3540, 4020, CellSize, CellSize},
}};

// `wn(1..10)`: the word-number markers, star-area coordinates; index 0 is unused.
constexpr int MarkerWidth = 345;
constexpr int MarkerHeight = 375;
constexpr std::array<QRect, StarGrid::DirectionCount + 1> Markers{{
    {},
    {2280, 930, MarkerWidth, MarkerHeight},
    {2640, 930, MarkerWidth, MarkerHeight},
    {900, 1860, MarkerWidth, MarkerHeight},
    {3900, 1860, MarkerWidth, MarkerHeight},
    {900, 2220, MarkerWidth, MarkerHeight},
    {3900, 2220, MarkerWidth, MarkerHeight},
    {1290, 3660, MarkerWidth, MarkerHeight},
    {3600, 3660, MarkerWidth, MarkerHeight},
    {1590, 3900, MarkerWidth, MarkerHeight},
    {3180, 3900, MarkerWidth, MarkerHeight},
}};

// `pw(1..8)`: the word tiles, client coordinates; index 0 is unused.
constexpr int TileWidth = 1200;
constexpr int TileHeight = 375;
constexpr std::array<QRect, StarGrid::CandidateCount + 1> Tiles{{
    {},
    {30, 4890, TileWidth, TileHeight},
    {1385, 4890, TileWidth, TileHeight},
    {2740, 4890, TileWidth, TileHeight},
    {4095, 4890, TileWidth, TileHeight},
    {30, 5310, TileWidth, TileHeight},
    {1380, 5310, TileWidth, TileHeight},
    {2745, 5310, TileWidth, TileHeight},
    {4095, 5310, TileWidth, TileHeight},
}};

// The status line `Label2` and the four picture buttons, client coordinates.
constexpr QRect StatusLine{30, 5730, 3885, 345};
constexpr QRect DictButton{3960, 5730, 330, 330};
constexpr QRect ShowSolButton{4290, 5730, 330, 330};
constexpr QRect ResetButton{4620, 5730, 330, 330};
constexpr QRect CreateButton{4950, 5730, 330, 330};

// --- The board in board twips ---------------------------------------------------------------
// Board twips are client-area twips. Every part stands on whole pixels, rounded as the window
// places its controls (the star area first, then each part inside it), so that a board drawn
// at 1/15 is the window's own picture.

// The area the board view covers: the star area and the tiles, down to the status line.
constexpr QRect BoardRect{0, 0, ClientWidth, StatusLine.top()};

// `twips` moved to the nearest whole pixels and given back in twips.
constexpr QRect snapped(const QRect& twips) {
    const QRect p = toPixels(twips);
    return {p.x() * TwipsPerPixel, p.y() * TwipsPerPixel, p.width() * TwipsPerPixel,
            p.height() * TwipsPerPixel};
}
constexpr QRect starArea() {
    return snapped(StarAreaRect);
}
// Cell c (0..9), marker k (1..10), tile i (1..8). Indexes outside those ranges are not
// checked: callers pass valid ones.
constexpr QRect cellRect(int c) {
    return snapped(Cells[static_cast<size_t>(c)]).translated(starArea().topLeft());
}
constexpr QRect markerRect(int k) {
    return snapped(Markers[static_cast<size_t>(k)]).translated(starArea().topLeft());
}
constexpr QRect tileRect(int i) {
    return snapped(Tiles[static_cast<size_t>(i)]);
}
// The twip at the centre of pixel `pixel` of the board, for turning a mouse position into
// board twips.
constexpr QPoint pixelToTwips(const QPoint& pixel) {
    return {pixel.x() * TwipsPerPixel + TwipsPerPixel / 2,
            pixel.y() * TwipsPerPixel + TwipsPerPixel / 2};
}

} // namespace BoardGeometry
