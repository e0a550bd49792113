// The play state the window renders: the ten cell letters, the eight word tiles with their
// looks, and the links between tiles and word-number markers. Plain values with equality, so
// a change can be detected by comparing two snapshots. The rules that change it live in
// PlayBoard; the selected word is StarGrid::SelectedWord.
//
// Colours are named by role, not value: tile backgrounds are always the button colour
// (colour 4 of the scheme) and cell backgrounds always the background colour (colour 2).
#pragma once

#include "core/stargrid.h"

#include <QString>

#include <array>

enum class TileBorder {
    Sunken, // three-dimensional border: available or placed
    Flat,   // flat border: the selected word
};

enum class TileText {
    Normal, // TextColour
    Faded,  // the background colour (colour 2): the word is on the board
};

struct TileLook {
    TileBorder border = TileBorder::Sunken;
    TileText text = TileText::Normal;
    bool struckOut = false; // a decoy while the solution is shown
    bool enabled = true;    // a disabled tile takes no clicks (during and after a failed create)

    bool operator==(const TileLook&) const = default;
};

struct Tile {
    QString caption;  // the word shown, "" when there is no puzzle
    int placedOn = 0; // the reading 1..10 that holds this word, 0 when not on the board
    TileLook look;

    bool operator==(const Tile&) const = default;
};

struct PlayState {
    static constexpr int kNone = 0; // an empty link (Tile::placedOn, markerTags)

    // Entries[c] (c = 0..9): the letter cell c shows, one character or "". While the
    // solution is shown these are the solution letters.
    std::array<QString, StarGrid::CellCount> Entries;
    // tiles[i] (i = 1..8); index 0 unused.
    std::array<Tile, StarGrid::CandidateCount + 1> tiles;
    // markerTags[k] (k = 1..10): the tile whose word is placed on reading k, or kNone.
    // Index 0 unused.
    std::array<int, StarGrid::DirectionCount + 1> markerTags{};
    // SavedEntries[p] (p = 1..10): the player's letter of cell p - 1 while the solution shows.
    std::array<QString, StarGrid::CellCount + 1> SavedEntries;
    // True from a solution press (with a puzzle) to its release.
    bool solutionShown = false;

    bool operator==(const PlayState&) const = default;
};
