// What the printed page and the clipboard picture show, as plain values: where the star
// picture goes and at what scale, then every text in drawing order with its position and the
// font it is drawn in. The composition follows the drawing target's font the way a printer or
// a picture box keeps it: a step changes some attributes and leaves the rest as the target
// had them, so the order of the steps decides, for instance, which font the footer takes.
// Painting these values is the widgets' business (sheetpainter.h). QtCore only.
#pragma once

#include "board/boardstate.h"
#include "core/stargrid.h"

#include <QList>
#include <QPointF>
#include <QSize>
#include <QString>

#include <array>

namespace PuzzleSheet {

// The web address in the footer is the project's home page.
inline const QString FooterText = QStringLiteral("Pentalink from https://pentalink.github.io");

// The star picture: the empty star area without markers, shifted so that this star-area point
// (twips) falls on its top-left corner, cut to this size in pixels.
constexpr QPoint StarPictureOrigin{345, 240};
constexpr QSize StarPictureSize{299, 286};
// Its ten boxes, border included, in pixels: a pixel more than the screen's cells on the right
// and at the bottom, each starting at its cell's corner.
constexpr int StarBoxPixels = 33;

// The clipboard picture `Picture1`, in twips (304 x 367 pixels).
constexpr QSize PictureTwips{4560, 5505};
// On the page the star is enlarged by this factor; the page carries the puzzle at the first
// block position and the solution at the second (twips from the page's top-left corner).
constexpr double PageStarScale = 1.4;
constexpr QPoint PuzzleBlockAt{2000, 600};
constexpr QPoint SolutionBlockAt{2000, 8600};

} // namespace PuzzleSheet

// A drawing target's current font. A printer or a picture keeps it between texts (and a
// picture between compositions); steps change single attributes of it.
struct SheetFont {
    QString name = QStringLiteral("Arial");
    double pointSize = 8.25;
    bool bold = false;
    bool strikeOut = false;

    bool operator==(const SheetFont&) const = default;
};

// One text: its top-left corner in twips of the target, black on a transparent ground.
struct SheetText {
    QPointF at;
    QString text;
    SheetFont font;

    bool operator==(const SheetText&) const = default;
};

// One composed block: the star picture, then the texts in order.
struct SheetBlock {
    QPointF starAt;         // the star picture's top-left corner, twips of the target
    double starScale = 1.0; // 1 on the picture, PageStarScale on the page
    QList<SheetText> texts; // in drawing order; texts with nothing to show are left out
};

// What a block shows of the puzzle: the tile captions (index 1..8, "" when the tiles show no
// puzzle), which of them are decoys, the solution letters (index 1..10, position p is cell
// p - 1) and the board font's name.
struct SheetContent {
    std::array<QString, StarGrid::CandidateCount + 1> captions;
    std::array<qint32, StarGrid::CandidateCount + 1> decoyFlags{};
    std::array<QString, StarGrid::CellCount + 1> solutionLetters;
    QString boardFontName = QStringLiteral("Arial");
};

// The content as the board shows it now: the tiles' captions, the puzzle record's decoy flags
// and solution letters.
SheetContent sheetContent(const StarGrid& grid, const BoardState& board,
                          const QString& boardFontName);

// One block of the page with its top-left corner at (X, Y) twips; ShowSolution 0 for the
// puzzle alone, anything else for the solution (letters in the boxes, decoys struck through).
// `printerFont` is the printer's font before the block and is left as the block leaves it.
SheetBlock PrintPuzzle(int X, int Y, int ShowSolution, const SheetContent& content,
                       SheetFont& printerFont);

// The page: the puzzle block, then the solution block, on a printer font that starts out as
// `SheetFont{}`.
std::array<SheetBlock, 2> composePage(const SheetContent& content);

// One puzzle of a booklet: the page's block with its corner at (0, 0), without the footer line,
// its number drawn in the star picture's empty top-left corner (board font, 20 points, bold).
// ShowSolution as for PrintPuzzle.
SheetBlock composeBookletBlock(int number, int ShowSolution, const SheetContent& content);

// `block` enlarged by `factor` (star, positions and point sizes alike), then moved by `at`.
SheetBlock placed(const SheetBlock& block, const QPointF& at, double factor);

// The clipboard picture's composition on `Picture1` (the star picture at its corner).
// `surfaceFont` is the picture's font, which outlives one composition: the footer takes the
// font name the previous composition left (initially "Arial").
SheetBlock composePuzzlePicture(int ShowSolution, const SheetContent& content,
                                SheetFont& surfaceFont);
