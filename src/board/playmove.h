// A player's action on the board as a small value: the window turns a mouse event into a Move
// and hands it to PlayBoard::apply(), so tests drive the rules with the same values and
// without widgets.
#pragma once

enum class MoveKind {
    TileClick,       // a word tile released (any mouse button); index 1..8
    MarkerClick,     // a word-number marker released (any mouse button); index 1..10
    SolutionPress,   // the "Show Solution" button pressed
    SolutionRelease, // the "Show Solution" button released, wherever the pointer is
    ClearEntries,    // the "Clear User Entries" button released
};

struct Move {
    MoveKind kind = MoveKind::TileClick;
    int index = 0; // tile or marker index; unused by the button moves

    static constexpr Move tile(int i) { return {MoveKind::TileClick, i}; }
    static constexpr Move marker(int k) { return {MoveKind::MarkerClick, k}; }
    static constexpr Move solutionPress() { return {MoveKind::SolutionPress, 0}; }
    static constexpr Move solutionRelease() { return {MoveKind::SolutionRelease, 0}; }
    static constexpr Move clearEntries() { return {MoveKind::ClearEntries, 0}; }

    bool operator==(const Move&) const = default;
};
