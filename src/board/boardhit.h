// The one translation from a point on the board to a move: which cell, marker or tile lies
// under a point in board twips (see boardgeometry.h). The board view calls it for the mouse;
// keyboard play and the tests use the same geometry. QtCore only.
#pragma once

#include "board/playmove.h"

#include <QPoint>

#include <optional>

enum class BoardPart {
    None,   // the star area's ground, the window's ground, or outside the board
    Cell,   // a letter cell 0..9 (cells lie above markers and lines)
    Marker, // a word-number marker 1..10
    Tile,   // a word tile 1..8
};

struct BoardHit {
    BoardPart part = BoardPart::None;
    int index = 0; // the cell, marker or tile index; 0 for None

    bool operator==(const BoardHit&) const = default;
};

// The part under `twips`. Where a cell and a marker overlap, the cell is hit.
BoardHit partAt(const QPoint& twips);

// The click a press at `twips` makes: a tile click, a marker click, or none (cells and the
// ground take no clicks).
std::optional<Move> hitTest(const QPoint& twips);

// The centre of a part in board twips, where a click on it lands (for keyboard play and
// tests). `part` must not be None and `index` must be valid for it.
QPoint centreOf(BoardPart part, int index);
