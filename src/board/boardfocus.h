// Keyboard play on the main window: which of the 22 things a player can act on has the
// keyboard focus (the eight word tiles, the ten word-number markers, the four picture
// buttons), where Tab, Shift+Tab, the arrow keys and a typed letter move that focus, and
// which move Enter or Space on a focused tile or marker makes (the same move as a click).
// The focus is view state: it never changes the board. QtCore only.
#pragma once

#include "board/boardstate.h"
#include "board/playmove.h"

#include <QChar>
#include <QRect>

#include <array>
#include <optional>

// The picture buttons in the order the window shows them, left to right.
enum class BoardButton {
    Dictionary,   // "Open a Dictionary File"
    ShowSolution, // "Show Solution"
    Reset,        // "Clear User Entries"
    Create,       // "Create a New Puzzle"
};

enum class FocusKind { Tile, Marker, Button };

struct FocusItem {
    FocusKind kind = FocusKind::Tile;
    int index = 1; // tile 1..8, marker 1..10, or a BoardButton's value

    static constexpr FocusItem tile(int i) { return {FocusKind::Tile, i}; }
    static constexpr FocusItem marker(int k) { return {FocusKind::Marker, k}; }
    static constexpr FocusItem button(BoardButton b) {
        return {FocusKind::Button, static_cast<int>(b)};
    }
    bool operator==(const FocusItem&) const = default;
};

enum class FocusDirection { Left, Right, Up, Down };

namespace BoardFocus {

constexpr int ItemCount = 22;

// Tab order: tiles 1..8, markers 1..10, then the buttons left to right. Tab moves forwards
// and Shift+Tab backwards through it, wrapping round at both ends.
std::array<FocusItem, ItemCount> tabOrder();

// Whether the keyboard stops on `item`: not on a tile whose word is placed, where a click
// does nothing. Tab, the arrows and the letters pass such tiles by.
bool stopsOn(const FocusItem& item, const BoardState& board);

FocusItem tabFrom(const FocusItem& from, bool backwards, const BoardState& board);

// Where the item stands, in board twips (the window's client area, see boardgeometry.h).
QRect rectOf(const FocusItem& item);

// The item nearest to `from` in `direction`: among the items whose centre lies beyond
// `from`'s centre in that direction, the one with the smallest distance along it plus three
// times the distance across it (the star is no grid, so straight ahead wins over near but
// aside). Empty when nothing lies that way.
std::optional<FocusItem> nearest(const FocusItem& from, FocusDirection direction,
                                 const BoardState& board);

// The next tile after `from` (in tile order, wrapping round; from the first tile when `from`
// is no tile) whose word starts with `letter`, compared without case. A tile without a word
// or with its word placed never matches. Empty when no tile matches; `from` itself is found
// again only when it is the one tile that matches.
std::optional<FocusItem> letterJump(const FocusItem& from, QChar letter, const BoardState& board);

// The move Enter or Space makes on a tile or marker: the click on it. Empty for a button,
// which the window presses itself.
std::optional<Move> clickOf(const FocusItem& item);

} // namespace BoardFocus
