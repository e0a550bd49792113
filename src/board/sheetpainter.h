// Paints the composed blocks of the printed page and the clipboard picture (puzzlesheet.h) on
// any QPainter whose coordinates are twips of its target: the page at its printer's
// resolution, the picture at 15 twips to the pixel. The star picture in them is the board's
// own drawing (paintBoard) without markers, letters and tiles, so it cannot drift from the
// star area on the screen.
#pragma once

#include "board/booklet.h"
#include "board/puzzlesheet.h"

#include <QImage>

#include <array>

class QPainter;

// The star picture with its top-left corner at `at` (twips), enlarged by `scale`: black lines
// and ten empty 33 x 33 black-bordered boxes on white, cut to PuzzleSheet::StarPictureSize.
void paintStarPicture(QPainter& painter, const QPointF& at, double scale);

// The block's star picture, then its texts in order (black, transparent ground, each text's
// top-left corner at its position).
void paintSheetBlock(QPainter& painter, const SheetBlock& block);

// Texts in order (black, transparent ground, each text's top-left corner at its position).
void paintSheetTexts(QPainter& painter, const QList<SheetText>& texts);

// One page of a booklet: its blocks, then its texts; coordinates as for paintPage.
void paintBookletPage(QPainter& painter, const BookletPage& page);

// Both blocks of the page, on a painter whose coordinates are twips from the paper's corner.
void paintPage(QPainter& painter, const std::array<SheetBlock, 2>& page);

// The star picture alone: 299 x 286 pixels.
QImage starPicture();

// `Picture1` with a composed block: 304 x 367 pixels on white, at a device pixel ratio of 1
// whatever the screens' scale factors, so the clipboard gets exactly these pixels.
QImage puzzlePicture(const SheetBlock& block);
