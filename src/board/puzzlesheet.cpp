// The composition of the printed blocks and the clipboard picture; see puzzlesheet.h.
#include "board/puzzlesheet.h"

#include "board/boardgeometry.h"

#include <functional>
#include <optional>

namespace {

constexpr int WordColumnStep = 1200; // twips between the tiles' words in a row
constexpr int WordRowStep = 300;     // twips between the two rows of words

// Where the texts of a block go. Cell c's letter goes to letterAt(c).
struct BlockLayout {
    std::optional<QPointF> footer; // none: the block has no footer line
    QPointF firstWord;             // tile 1; the others follow in rows of four
    double wordPointSize;
    std::function<QPointF(int)> letterAt;
};

void print(SheetBlock& block, const QPointF& at, const QString& text, const SheetFont& font) {
    if (!text.isEmpty())
        block.texts.append({at, text, font});
}

// The footer, the words and (for the solution) the letters, each step changing the target's
// font just as far as it says.
void composeTexts(SheetBlock& block, const BlockLayout& layout, int ShowSolution,
                  const SheetContent& content, SheetFont& font) {
    font.pointSize = 7;
    font.bold = false;
    if (layout.footer)
        print(block, *layout.footer, PuzzleSheet::FooterText, font);

    font.name = content.boardFontName;
    font.pointSize = layout.wordPointSize;
    font.bold = true;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const QPointF at =
            layout.firstWord + QPointF(((i - 1) % 4) * WordColumnStep, ((i - 1) / 4) * WordRowStep);
        font.strikeOut = content.decoyFlags[static_cast<size_t>(i)] == 1 && ShowSolution == 1;
        print(block, at, content.captions[static_cast<size_t>(i)], font);
    }

    if (ShowSolution != 0) {
        font.pointSize = 20;
        font.bold = true;
        font.strikeOut = false;
        for (int c = 0; c < StarGrid::CellCount; ++c)
            print(block, layout.letterAt(c), content.solutionLetters[static_cast<size_t>(c + 1)],
                  font);
    }
}

QPointF cellCorner(int c) {
    return BoardGeometry::Cells[static_cast<size_t>(c)].topLeft();
}

// The page's block with its corner at `corner`: the star enlarged, the words below it.
BlockLayout pageLayout(const QPointF& corner, std::optional<QPointF> footer) {
    return {footer, corner + QPointF(850, 6300), 16, [corner](int c) {
                return cellCorner(c) * PuzzleSheet::PageStarScale + corner - QPointF(250, 250);
            }};
}

} // namespace

SheetContent sheetContent(const StarGrid& grid, const BoardState& board,
                          const QString& boardFontName) {
    SheetContent content;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        content.captions[static_cast<size_t>(i)] = board.tiles[static_cast<size_t>(i)].word;
    content.decoyFlags = grid.DecoyFlags;
    content.solutionLetters = grid.SolutionLetters;
    content.boardFontName = boardFontName;
    return content;
}

SheetBlock PrintPuzzle(int X, int Y, int ShowSolution, const SheetContent& content,
                       SheetFont& printerFont) {
    printerFont.name = content.boardFontName;
    printerFont.strikeOut = false;

    SheetBlock block;
    block.starAt = QPointF(X, Y);
    block.starScale = PuzzleSheet::PageStarScale;
    const QPointF corner(X, Y);
    composeTexts(block, pageLayout(corner, corner + QPointF(2550, 6000)), ShowSolution, content,
                 printerFont);
    return block;
}

SheetBlock composeBookletBlock(int number, int ShowSolution, const SheetContent& content) {
    SheetBlock block;
    block.starScale = PuzzleSheet::PageStarScale;
    SheetFont font{content.boardFontName, 20, true, false};
    print(block, QPointF(0, 0), QString::number(number), font);
    composeTexts(block, pageLayout(QPointF(0, 0), std::nullopt), ShowSolution, content, font);
    return block;
}

SheetBlock placed(const SheetBlock& block, const QPointF& at, double factor) {
    SheetBlock out;
    out.starAt = block.starAt * factor + at;
    out.starScale = block.starScale * factor;
    for (SheetText text : block.texts) {
        text.at = text.at * factor + at;
        text.font.pointSize *= factor;
        out.texts.append(text);
    }
    return out;
}

std::array<SheetBlock, 2> composePage(const SheetContent& content) {
    SheetFont printerFont;
    const QPoint top = PuzzleSheet::PuzzleBlockAt;
    const QPoint bottom = PuzzleSheet::SolutionBlockAt;
    SheetBlock puzzle = PrintPuzzle(top.x(), top.y(), 0, content, printerFont);
    SheetBlock solution = PrintPuzzle(bottom.x(), bottom.y(), 1, content, printerFont);
    return {std::move(puzzle), std::move(solution)};
}

SheetBlock composePuzzlePicture(int ShowSolution, const SheetContent& content,
                                SheetFont& surfaceFont) {
    SheetBlock block; // the star picture is the background, at the corner, natural size
    const BlockLayout layout{QPointF(1550, 4400), QPointF(200, 4700), 14,
                             [](int c) { return cellCorner(c) - QPointF(200, 250); }};
    composeTexts(block, layout, ShowSolution, content, surfaceFont);
    return block;
}
