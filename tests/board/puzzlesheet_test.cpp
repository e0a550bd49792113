// The printed page and clipboard picture composed without a display, and the PDF file name.
#include "board/printcommand.h"
#include "board/puzzlesheet.h"
#include "playfixture.h"
#include "support/testfolder.h"

#include <QTemporaryDir>

namespace {

// A block as a line: star corner and scale, texts ("+" struck), size ("b" bold) where it
// changes, and the corner where a run of one size starts or ends.
std::string describe(const SheetBlock& block) {
    QString out = QStringLiteral("star %1,%2 *%3").arg(block.starAt.x()).arg(block.starAt.y());
    out = out.arg(block.starScale);
    const QList<SheetText>& t = block.texts;
    for (qsizetype n = 0; n < t.size(); ++n) {
        const bool first = n == 0 || t[n].font.pointSize != t[n - 1].font.pointSize ||
                           t[n].font.bold != t[n - 1].font.bold;
        const bool last = n + 1 == t.size() || t[n + 1].font.pointSize != t[n].font.pointSize;
        if (first)
            out += QStringLiteral(" %1%2").arg(t[n].font.pointSize).arg(t[n].font.bold ? "b" : "");
        out += (t[n].font.strikeOut ? QStringLiteral(" +") : QStringLiteral(" ")) + t[n].text;
        if (first || last)
            out += QStringLiteral("@%1,%2").arg(t[n].at.x()).arg(t[n].at.y());
    }
    return out.toStdString();
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
    const SheetBlock picture = composePuzzlePicture(1, content(), surface);
    const std::string footer = " 7 Pentalink from https://pentalink.github.io";
    EXPECT_EQ(describe(page[0]), "star 2000,600 *1.4" + footer +
                                     "@4550,6600 16b gnaw@2850,6900 goad gold grew play pony wrap "
                                     "yard@6450,7200");
    EXPECT_EQ(describe(page[1]), "star 2000,8600 *1.4" + footer +
                                     "@4550,14600 16b gnaw@2850,14900 goad +gold +grew +play pony "
                                     "wrap yard@6450,15200 20b g@5068,8686 p o n y a a r d "
                                     "w@6706,13978");
    EXPECT_EQ(describe(picture), "star 0,0 *1" + footer +
                                     "@1550,4400 14b gnaw@200,4700 goad +gold +grew +play pony "
                                     "wrap yard@3800,5000 20b g@2170,-10 p o n y a a r d "
                                     "w@3340,3770");
}

TEST_F(PuzzleSheetTest, FooterFontFollowsTheOrderOfFontChanges) {
    // The picture's footer keeps the font it had: "Arial" until the board font is set.
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
    m_board.apply(Move::dictionaryLoaded());
    const SheetContent none = sheetContent(StarGrid(), BoardState(), QStringLiteral("Arial"));
    SheetFont surface;
    for (const auto& [shown, letters] :
         {std::pair{none, ""},
          std::pair{content(), " 20b g@2170,-10 p o n y a a r d w@3340,3770"}}) {
        SCOPED_TRACE(letters);
        const std::string footer = " 7 Pentalink from https://pentalink.github.io@1550,4400";
        EXPECT_EQ(composePage(shown)[0].texts.size(), 1);
        EXPECT_EQ(composePage(shown)[1].texts.size(), std::string(letters).empty() ? 1 : 11);
        EXPECT_EQ(describe(composePuzzlePicture(0, shown, surface)), "star 0,0 *1" + footer);
        EXPECT_EQ(describe(composePuzzlePicture(1, shown, surface)),
                  "star 0,0 *1" + footer + letters);
    }
}

TEST(PdfFile, NamedByDateAndTimeWithANumberWhenTheNameIsInUse) {
    QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("Pentalink 2026-11-23 15-08-53"));
    ASSERT_TRUE(touchFile(name + QStringLiteral(".pdf")));
    QString error;
    EXPECT_EQ(
        newPdfFile(dir.path(), QString(), QDateTime(QDate(2026, 11, 23), QTime(15, 8, 53)), error),
        name + QStringLiteral(" (2).pdf"));
}
