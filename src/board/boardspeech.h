// What a screen reader says about the board: the name of each cell, tile and marker, and the
// short announcement after a move that placed, refused, took off or selected a word. Built
// from the board's meaning (BoardState), not from its look. Numbers are the ones the
// player sees counted from 1: cells 1..10 (cell c of the puzzle record is "cell c+1"),
// markers ("start") 1..10, tiles 1..8. QtCore only.
#pragma once

#include "board/boardstate.h"
#include "board/playmove.h"

#include <QString>

namespace BoardSpeech {

// Where a cell is and what it holds, so that a player who cannot see the star can build it
// in mind: "cell 3, A, upper left crossing of the lines top to bottom left and left to right"
// for cell 0..9 (here cell 2; "empty" for no letter). Lines are named by the tips they join.
QString cellName(const BoardState& board, int cell);
// "word CAKE, available" / "selected" / "placed" / "struck out" (a revealed decoy) for tile
// 1..8; "word tile 3, empty" while the tile shows no word.
QString tileName(const BoardState& board, int tile);
// What a marker holds, where its word runs and which four cells it fills with the letters
// already there: "start 4, empty, right tip to left tip, fills cells 5, 4, 3, 2: blank, A,
// blank, blank" or "start 4, holds CAKE, ..." for marker 1..10.
QString markerName(const BoardState& board, int marker);

// What to announce after `move` turned `before` into `after`; "" when there is nothing to
// say (a move that changed nothing and refused nothing, a button move).
//   a word written:    "CAKE placed at start 4"
//   a word taken off:  "CAKE taken off start 4, selected"
//   a tile selected:   "CAKE selected"
//   a marker click with a word selected that changed nothing: "CAKE does not fit at start 4"
QString announcement(const Move& move, const BoardState& before, const BoardState& after);

} // namespace BoardSpeech
