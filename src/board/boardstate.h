// What the board means at one moment: the letters in the ten cells, the eight word tiles
// (available, selected, placed on a reading, a decoy revealed), the links between tiles and
// readings, the selected word and whether the solution is showing. Plain values with
// equality, so a change is found by comparing two snapshots. PlayBoard is its only writer;
// the board view and any picture of the board paint from it (paintBoard), and how each
// meaning looks is decided there, not here.
#pragma once

#include "core/stargrid.h"

#include <QString>

#include <array>

enum class TileStatus {
    Available, // can be selected (or shows no word)
    Selected,  // shown as the selection: the tile the player picked last
    Placed,    // its word is on the board, on reading TileState::reading
};

struct TileState {
    QString word; // the candidate word on the tile, "" when the tiles show no puzzle
    TileStatus status = TileStatus::Available;
    int reading = 0;            // the reading 1..10 holding the word while Placed, else 0
    bool decoyRevealed = false; // a decoy, marked while the solution shows
    bool enabled = true;        // takes clicks; off from a create request until a puzzle comes

    bool operator==(const TileState&) const = default;
};

struct BoardState {
    static constexpr int NoTile = 0; // an empty reading in placedTile
    static constexpr int NoSelection = -1;

    // Entries[c] (c = 0..9): the letter cell c shows, one character or "". While the solution
    // shows these are the solution letters.
    std::array<QString, StarGrid::CellCount> Entries;
    // tiles[i] (i = 1..8); index 0 unused.
    std::array<TileState, StarGrid::CandidateCount + 1> tiles;
    // placedTile[k] (k = 1..10): the tile whose word is on reading k, or NoTile; index 0
    // unused. placedTile[k] == i exactly when tiles[i] is Placed on reading k.
    std::array<int, StarGrid::DirectionCount + 1> placedTile{};
    // SavedEntries[p] (p = 1..10): the player's letter of cell p - 1 while the solution shows.
    std::array<QString, StarGrid::CellCount + 1> SavedEntries;
    // The selected word: tile 1..8, or NoSelection. Its tile shows the Selected look whenever
    // it is not placed (after a removal and after the solution too); a selection can outlive
    // its tile's word when the board was cleared or a create request emptied the tiles.
    int SelectedWord = NoSelection;
    // From a press of the solution button (with a puzzle) to its release.
    bool solutionShown = false;
    // While a new puzzle is searched for: the readings take no clicks.
    bool searching = false;

    bool operator==(const BoardState&) const = default;
};
