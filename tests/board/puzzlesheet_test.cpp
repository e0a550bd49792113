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

// The block's words and letters after the footer, "+" before a struck one.
std::string textsOf(const SheetBlock& block) {
    QStringList out;
    for (const SheetText& t : block.texts.mid(1))
        out << (t.font.strikeOut ? QStringLiteral("+") : QString()) + t.text;
    return out.join(u' ').toStdString();
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
    const std::string words = "gnaw goad gold grew play pony wrap yard";
    const std::string solution = "gnaw goad +gold +grew +play pony wrap yard g p o n y a a r d w";
    const struct {
        const char* name;
        const SheetBlock& block;
        QPointF star;
        double scale;
        QPointF footer;
        double wordSize;
        std::string texts;      // the words in tile order, then the letters of cells 0..9
        QList<QPointF> corners; // of tile 1's and tile 8's words, cell 0's and cell 9's letters
    } rows[] = {
        {"page, puzzle",
         page[0],
         {2000, 600},
         1.4,
         {4550, 6600},
         16,
         words,
         {{2850, 6900}, {6450, 7200}}},
        // Letters at the cell's corner x 1.4 + the block's corner - 250.
        {"page, solution",
         page[1],
         {2000, 8600},
         1.4,
         {4550, 14600},
         16,
         solution,
         {{2850, 14900}, {6450, 15200}, {5068, 8686}, {6706, 13978}}},
        {"picture, puzzle",
         picturePuzzle,
         {0, 0},
         1.0,
         {1550, 4400},
         14,
         words,
         {{200, 4700}, {3800, 5000}}},
        // Letters at the cell's corner - (200, 250).
        {"picture, solution",
         pictureSolution,
         {0, 0},
         1.0,
         {1550, 4400},
         14,
         solution,
         {{200, 4700}, {3800, 5000}, {2170, -10}, {3340, 3770}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.block.starAt, row.star);
        EXPECT_DOUBLE_EQ(row.block.starScale, row.scale);
        EXPECT_EQ(textsOf(row.block), row.texts);
        const SheetText& footer = row.block.texts.first();
        EXPECT_EQ(footer.text, QStringLiteral("Pentalink from https://pentalink.github.io"));
        EXPECT_EQ(footer.at, row.footer);
        EXPECT_EQ(footer.font.pointSize, 7);
        EXPECT_FALSE(footer.font.bold || footer.font.strikeOut);
        QList<QPointF> corners;
        for (const qsizetype n : {1, 8, 9, 18})
            if (n < row.block.texts.size())
                corners << row.block.texts[n].at;
        EXPECT_EQ(corners, row.corners);
        for (const SheetText& t : row.block.texts.mid(1)) {
            EXPECT_TRUE(t.font.bold);
            EXPECT_EQ(t.font.pointSize, t.text.size() == 1 ? 20 : row.wordSize);
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

TEST_F(PuzzleSheetTest, WithoutWordsOnTheTilesBlocksShowFootersAndTheKeptLetters) {
    // No puzzle yet: footers only. After a dictionary load the tiles are empty but the record
    // keeps its solution letters, which the solution blocks still show.
    m_board.apply(Move::dictionaryLoaded());
    const SheetContent none = sheetContent(StarGrid(), BoardState(), QStringLiteral("Arial"));
    SheetFont surface;
    for (const auto& [shown, letters] :
         {std::pair{none, ""}, std::pair{content(), "g p o n y a a r d w"}}) {
        SCOPED_TRACE(letters);
        const std::array<SheetBlock, 2> page = composePage(shown);
        EXPECT_EQ(textsOf(page[0]) + "|" + textsOf(page[1]), std::string("|") + letters);
        EXPECT_EQ(textsOf(composePuzzlePicture(0, shown, surface)), "");
        EXPECT_EQ(textsOf(composePuzzlePicture(1, shown, surface)), letters);
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
