// The composition of the printed page and the clipboard picture without a display: where
// each text goes, in which font, which words are struck through, what a block shows with no
// puzzle, and the PDF file a page goes to when there is no printer.
#include "board/printcommand.h"
#include "board/puzzlesheet.h"
#include "playfixture.h"
#include "support/testfolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

// The block's texts that are not the footer, as "text@x,y" and "+" for a struck one.
QStringList wordsAndLetters(const SheetBlock& block) {
    QStringList out;
    for (const SheetText& t : block.texts.mid(1)) {
        out << QStringLiteral("%1%2@%3,%4")
                   .arg(t.font.strikeOut ? QStringLiteral("+") : QString(), t.text)
                   .arg(t.at.x())
                   .arg(t.at.y());
    }
    return out;
}

class PuzzleSheetTest : public PlayTest {
protected:
    SheetContent content(const QString& font = QStringLiteral("Arial")) const {
        return sheetContent(m_grid, m_board.state(), font);
    }
};

} // namespace

TEST_F(PuzzleSheetTest, BlocksPlaceFooterWordsAndLettersWithStrikeThroughOnlyOnSolutionDecoys) {
    SheetFont surface;
    const std::array<SheetBlock, 2> page = composePage(content());
    const SheetBlock picturePuzzle = composePuzzlePicture(0, content(), surface);
    const SheetBlock pictureSolution = composePuzzlePicture(1, content(), surface);
    const QString letters = QStringLiteral("gponyaardw");
    const struct {
        const char* name;
        const SheetBlock& block;
        QPointF star;
        double scale;
        QPointF footer;
        double wordSize;
        QStringList texts; // the words in tile order, then the letters of cells 0..9
    } rows[] = {
        {"page, puzzle",
         page[0],
         {2000, 600},
         1.4,
         {4550, 6600},
         16,
         {"gnaw@2850,6900", "goad@4050,6900", "gold@5250,6900", "grew@6450,6900", "play@2850,7200",
          "pony@4050,7200", "wrap@5250,7200", "yard@6450,7200"}},
        {"page, solution",
         page[1],
         {2000, 8600},
         1.4,
         {4550, 14600},
         16,
         {"gnaw@2850,14900", "goad@4050,14900", "+gold@5250,14900", "+grew@6450,14900",
          "+play@2850,15200", "pony@4050,15200", "wrap@5250,15200", "yard@6450,15200",
          // (left of cell x 1.4 + 2000 - 250, top x 1.4 + 8600 - 250)
          "g@5068,8686", "p@2254,10828", "o@4270,10828", "n@5866,10828", "y@7798,10828",
          "a@3850,12172", "a@6202,12130", "r@5026,12886", "d@3262,13978", "w@6706,13978"}},
        {"picture, puzzle",
         picturePuzzle,
         {0, 0},
         1.0,
         {1550, 4400},
         14,
         {"gnaw@200,4700", "goad@1400,4700", "gold@2600,4700", "grew@3800,4700", "play@200,5000",
          "pony@1400,5000", "wrap@2600,5000", "yard@3800,5000"}},
        {"picture, solution",
         pictureSolution,
         {0, 0},
         1.0,
         {1550, 4400},
         14,
         {"gnaw@200,4700", "goad@1400,4700", "+gold@2600,4700", "+grew@3800,4700", "+play@200,5000",
          "pony@1400,5000", "wrap@2600,5000", "yard@3800,5000",
          // (left of cell - 200, top - 250)
          "g@2170,-10", "p@160,1520", "o@1600,1520", "n@2740,1520", "y@4120,1520", "a@1300,2480",
          "a@2980,2450", "r@2140,2990", "d@880,3770", "w@3340,3770"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.block.starAt, row.star);
        EXPECT_DOUBLE_EQ(row.block.starScale, row.scale);
        ASSERT_FALSE(row.block.texts.isEmpty());
        const SheetText& footer = row.block.texts.first();
        EXPECT_EQ(footer.text, QStringLiteral("Pentalink from https://pentalink.github.io"));
        EXPECT_EQ(footer.at, row.footer);
        EXPECT_EQ(footer.font.pointSize, 7);
        EXPECT_FALSE(footer.font.bold || footer.font.strikeOut);
        EXPECT_EQ(wordsAndLetters(row.block), row.texts);
        for (const SheetText& t : row.block.texts.mid(1)) {
            const bool letter = t.text.size() == 1;
            EXPECT_TRUE(t.font.bold);
            EXPECT_EQ(t.font.pointSize, letter ? 20 : row.wordSize) << t.text.toStdString();
            EXPECT_TRUE(!letter || letters.contains(t.text));
        }
    }
}

TEST_F(PuzzleSheetTest, FooterFontFollowsTheOrderOfFontChanges) {
    // The page sets the board font before its footer; the picture's footer keeps the font the
    // picture had, "Arial" until a composition has set the board font, which then stays.
    const QString board = QStringLiteral("DejaVu Serif");
    SheetFont surface;
    QStringList footers;
    for (int show : {1, 0, 1})
        footers << composePuzzlePicture(show, content(board), surface).texts.first().font.name;
    for (const SheetBlock& block : composePage(content(board)))
        footers << block.texts.first().font.name;
    EXPECT_EQ(footers, (QStringList{"Arial", board, board, board, board}));
    // The solution's last step switches strike-through off, so no later footer is struck.
    EXPECT_FALSE(surface.strikeOut);
}

TEST_F(PuzzleSheetTest, WithoutWordsOnTheTilesBlocksShowStarsAndFootersAndKeptLetters) {
    // No puzzle yet: footers only. After a dictionary load the tiles are empty but the record
    // keeps its solution letters, which the solution block still shows.
    const struct {
        const char* name;
        bool created;
        int solutionTexts;
    } rows[] = {
        {"no puzzle", false, 1},
        {"after a dictionary load", true, 11},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StarGrid grid = row.created ? referenceStar() : StarGrid();
        PlayBoard board(grid, m_gate);
        if (row.created) {
            board.apply(Move::newPuzzle());
            board.apply(Move::dictionaryLoaded());
        }
        const SheetContent empty = sheetContent(grid, board.state(), QStringLiteral("Arial"));
        SheetFont surface;
        const std::array<SheetBlock, 2> page = composePage(empty);
        EXPECT_EQ(page[0].texts.size(), 1);
        EXPECT_EQ(page[1].texts.size(), row.solutionTexts);
        EXPECT_EQ(composePuzzlePicture(0, empty, surface).texts.size(), 1);
        EXPECT_EQ(composePuzzlePicture(1, empty, surface).texts.size(), row.solutionTexts);
    }
}

TEST(PdfFile, NamedByDateAndTimeInTheDocumentsFolderOrTheProgramFolder) {
    QTemporaryDir dir;
    const QString root = dir.path() + QStringLiteral("/");
    ASSERT_TRUE(touchFile(root + QStringLiteral("plain")));
    QDir(root).mkpath(QStringLiteral("taken"));
    ASSERT_TRUE(touchFile(root + QStringLiteral("taken/Pentalink 2026-11-23 15-08-53.pdf")));
    const QDateTime when(QDate(2026, 11, 23), QTime(15, 8, 53));
    const struct {
        const char* name;
        QString documents;
        QString expected; // "" when no file can go there
        QString error;
    } rows[] = {
        {"missing folders are created", root + "docs/deeper",
         root + "docs/deeper/Pentalink 2026-11-23 15-08-53.pdf", ""},
        {"no documents folder", "", root + "app/Pentalink 2026-11-23 15-08-53.pdf", ""},
        {"a name in use", root + "taken", root + "taken/Pentalink 2026-11-23 15-08-53 (2).pdf", ""},
        {"a path through a file", root + "plain/docs", "",
         "The folder " + root + "plain/docs cannot be created: " + root +
             "plain is a file, not a folder."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        QString error;
        const QString path = newPdfFile(row.documents, root + "app/", when, error);
        EXPECT_EQ(path, row.expected);
        EXPECT_EQ(error, row.error);
        if (!path.isEmpty()) {
            EXPECT_TRUE(QFileInfo(path).dir().exists());
        }
    }
}
