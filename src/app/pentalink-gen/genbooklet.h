// pentalink-gen's booklets: the puzzles of successive create requests written as a printable
// PDF (booklet.h composes the pages, the game's sheet painter draws them).
#pragma once

#include "genoptions.h"

#include "board/puzzlesheet.h"

#include <QList>
#include <QString>
#include <QStringList>

class StarGrid;

// The paper of the user's locale: LC_ALL, else LC_PAPER, else LANG decides.
Booklet::Paper localePaper();

// Painting needs a Qt GUI platform but never a window: unless QT_QPA_PLATFORM names one, the
// offscreen platform is used, so a booklet is made the same way with or without a display.
// Call before the QGuiApplication is made.
void useOffscreenPlatform();

// What the booklet shows of a puzzle: the grid's words, decoys and letters in the game's order.
SheetContent bookletContent(const StarGrid& grid);

// The closing lines of the last page: the seed and the command that makes the booklet again,
// and, when the dictionary gave fewer puzzles than asked for, how many it gave.
QStringList closingLines(const GenOptions& options, quint64 seed, int made);

// Writes the booklet of `puzzles` to options.booklet. Returns "" or the one-line cause.
QString writeBooklet(const GenOptions& options, const QList<SheetContent>& puzzles,
                     const QStringList& closing);
