// Everything that changes the board, as small values: the player's clicks and button presses
// (the window turns a mouse event into a Move through hitTest) and the commands that create a
// puzzle or load a dictionary. PlayBoard::apply() takes them all, so tests drive the rules
// with the same values and without widgets.
#pragma once

enum class MoveKind {
    TileClick,        // a word tile released (any mouse button); index 1..8
    MarkerClick,      // a word-number marker released (any mouse button); index 1..10
    SolutionPress,    // the "Show Solution" button pressed
    SolutionRelease,  // the "Show Solution" button released, wherever the pointer is
    ClearEntries,     // the "Clear User Entries" button released
    SearchStarted,    // a create request starts its search: the tiles go blank
    SearchEnded,      // the search is over, with or without a puzzle
    NewPuzzle,        // a puzzle was created: the tiles show its words
    DictionaryLoaded, // a dictionary chosen by the player was loaded: the board goes blank
};

struct Move {
    MoveKind kind = MoveKind::TileClick;
    int index = 0; // tile or marker index; unused by the other moves

    static constexpr Move tile(int i) { return {MoveKind::TileClick, i}; }
    static constexpr Move marker(int k) { return {MoveKind::MarkerClick, k}; }
    static constexpr Move solutionPress() { return {MoveKind::SolutionPress, 0}; }
    static constexpr Move solutionRelease() { return {MoveKind::SolutionRelease, 0}; }
    static constexpr Move clearEntries() { return {MoveKind::ClearEntries, 0}; }
    static constexpr Move searchStarted() { return {MoveKind::SearchStarted, 0}; }
    static constexpr Move searchEnded() { return {MoveKind::SearchEnded, 0}; }
    static constexpr Move newPuzzle() { return {MoveKind::NewPuzzle, 0}; }
    static constexpr Move dictionaryLoaded() { return {MoveKind::DictionaryLoaded, 0}; }

    bool operator==(const Move&) const = default;
};
