// The one drawing of the board: the star's lines, the letter cells with their letters, the
// word-number markers and the word tiles in their looks (sunken border; the selected one a
// flat border SelectedBorderPixels wide, so it stands out with or without the keyboard's
// ring; faded when placed, struck through when a revealed decoy), all from a BoardState. The board
// view paints the screen with it; the printed page and the clipboard picture paint with it too,
// with the parts they do not show switched off in the style.
#pragma once

#include "board/boardstate.h"

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;

// The width of a selected tile's flat border, in screen pixels.
constexpr int SelectedBorderPixels = 3;

struct BoardStyle {
    QColor ground = Qt::white;       // star area, window ground, cells; a placed tile's text
    QColor tileFace = Qt::lightGray; // the tiles
    QColor text = Qt::black;         // the star's lines, the tiles' words, a selected tile's border
    QColor letters = Qt::black;      // the cells' letters
    QColor markers = Qt::black;      // the markers' "O"
    // The greyed markers and the sunken borders' edges are fixed, not the desktop's 3D colours,
    // so the board looks the same on a light and a dark desktop theme.
    QColor idleMarkers = QColor(0xbe, 0xbe, 0xbe); // the markers while the board takes no clicks
    QColor light = QColor(0xff, 0xff, 0xff);  // the lit edges of a sunken border (bottom, right)
    QColor shadow = QColor(0x9f, 0x9f, 0x9f); // the shaded edges (top, left)
    QFont letterFont;                         // cell letters (the board font, bold)
    QFont tileFont;                           // tile words
    QFont markerFont;                         // the markers

    bool showGround = true;  // fill the board's area with `ground` first
    bool showMarkers = true; // the ten markers
    bool showLetters = true; // the letters in the cells
    bool showTiles = true;   // the eight tiles
};

// Paints the board. The painter's coordinates must be board twips (see boardgeometry.h):
// scale it by 1/15 for the screen, or by whatever a page or a picture needs. Only scaling and
// translation are supported. Borders are whole pixels of the screen (15 twips) and scale with
// the rest; text is laid out in device space with its point size scaled to match, so on the
// screen it is exactly what a label at that place would show. The painter's state is kept.
void paintBoard(QPainter& painter, const BoardState& state, const BoardStyle& style);

// Draws `text` aligned by `flags` (Qt::Alignment) in the rectangle `twips`, under the same
// rules: the painter's coordinates are twips (scaling and translation only), the text is laid
// out in device space with the font scaled as the painter scales twips against the screen's 15
// to the pixel, so a font of n points stays n points on a printer and on a 96-dpi picture.
// Empty text draws nothing. The painter's state is kept.
void paintText(QPainter& painter, const QRectF& twips, int flags, const QString& text, QFont font,
               const QColor& colour);
