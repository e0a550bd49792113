// What a puzzle booklet shows, page by page, as plain values: the puzzles first (each numbered,
// its empty star and its eight words, a few to a page), then the answers at the back (the same
// blocks with the solution letters and the decoys struck through, smaller, twelve to a page),
// a title line at the top of every page ("(answers)" added on the answer pages), the page
// number at the foot and closing lines on the last page. Each puzzle is the printed page's
// block (puzzlesheet.h) scaled to its place, so a booklet's star is the game's printed star.
// QtCore only; sheetpainter.h paints the pages.
#pragma once

#include "board/puzzlesheet.h"

#include <QList>
#include <QSize>
#include <QString>

namespace Booklet {

enum class Paper { A4, Letter };

// The paper in twips, portrait.
QSize paperTwips(Paper paper);

// The paper a locale prints on ("en_US.UTF-8", "fr_CA", "de_DE@euro", "C"...): letter in the
// United States and Canada, A4 everywhere else and for names that name no country.
Paper paperForLocale(const QString& localeName);

inline const QString DefaultTitle = QStringLiteral("Pentalink puzzles");
constexpr int AnswersPerPage = 12;
constexpr int MaxPuzzles = 1000;

} // namespace Booklet

struct BookletSettings {
    Booklet::Paper paper = Booklet::Paper::A4;
    int perPage = 4; // puzzles on a puzzle page: 1, 2 or 4
    QString title = Booklet::DefaultTitle;
    QStringList closingLines; // printed above the footer of the last page
};

// One page: its blocks (each painted as the printed page's blocks are), then its own texts.
// Coordinates are twips from the paper's top-left corner.
struct BookletPage {
    QList<SheetBlock> blocks;
    QList<SheetText> texts;
};

// The booklet of `puzzles` (numbered from 1 in this order): ceil(n / perPage) puzzle pages,
// then ceil(n / AnswersPerPage) answer pages. No puzzles, no pages.
QList<BookletPage> composeBooklet(const QList<SheetContent>& puzzles,
                                  const BookletSettings& settings);
