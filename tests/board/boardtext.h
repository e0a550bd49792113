// Compact text pictures of a play board for tests, so an expectation reads like the board:
//   cells   "gpony....." - cells 0..9, "." for an empty cell;
//   tiles   "aspa-___"   - tiles 1..8: a available, s selected (the look), p placed; upper
//                          case when a revealed decoy; "-" no word; "_" disabled without a
//                          word, "x" disabled with one;
//   markers "3.6......." - readings 1..10: the tile placed there, "." none;
//   board   "gponyaa.dw ppaaapaa 216......." - all three, links checked.
#pragma once

#include "board/playboard.h"
#include "core/stargrid.h"

#include <QString>
#include <QStringList>

#include <string>

std::string cellsText(const PlayBoard& board);
std::string tilesText(const PlayBoard& board);
std::string markersText(const PlayBoard& board);

// The three pictures in one line, "cells tiles markers", followed by " link: ..." when the
// tiles' links disagree with the markers' (tile i is on reading k exactly when marker k holds
// tile i).
std::string boardText(const PlayBoard& board);

// A puzzle record built by hand: `cells` the ten solution letters of cells 0..9, `words` the
// eight candidate words in tile order, `decoys` eight characters, "x" marking a decoy tile.
// All three must be complete.
StarGrid makeStar(const QString& cells, const QStringList& words, const char* decoys);

// The reference puzzle of the board tests:
//        g             cells  g p o n y a a r d w   (0..9)
//   p  o  n  y         readings: goad 1 (0258), gnaw 2 (0369), pony 3 (1234),
//     a    a                     yard 6 (4678), wrap 10 (9751, "parw" from the left tip)
//        r             decoys: gold (g..d), grew (g..w), play (p..y)
//    d       w
// Tiles: 1 gnaw, 2 goad, 3 gold*, 4 grew*, 5 play*, 6 pony, 7 wrap, 8 yard.
StarGrid referenceStar();
namespace ref {
enum Tile { Gnaw = 1, Goad, Gold, Grew, Play, Pony, Wrap, Yard };
// The reading each solution word belongs on.
enum Reading { GoadOn = 1, GnawOn = 2, PonyOn = 3, YardOn = 6, WrapOn = 10 };
} // namespace ref
