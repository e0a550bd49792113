// The composition of a puzzle booklet; see booklet.h.
#include "board/booklet.h"

#include "board/boardgeometry.h"

#include <QLocale>

#include <algorithm>

namespace {

constexpr int Margin = 720;            // half an inch round the page
constexpr int ContentTop = 1320;       // below the title line
constexpr int ContentBottomGap = 1300; // for the closing lines and the footer
constexpr int ClosingFromBottom = 1150;
constexpr int FooterFromBottom = 560;
constexpr int LineStep = 220; // between the closing lines
constexpr int CellGap = 300;  // the least room between two blocks

// The page block's extent at its natural size: the star picture enlarged 1.4 times, the two
// rows of words below it.
constexpr double BlockWidth = PuzzleSheet::StarPictureSize.width() * BoardGeometry::TwipsPerPixel *
                              PuzzleSheet::PageStarScale;
constexpr double BlockHeight = 7000;

SheetFont pageFont(double pointSize, bool bold) {
    return SheetFont{QStringLiteral("Arial"), pointSize, bold, false};
}

// Puts `blocks` on pages of `columns` x `rows` cells, each block centred in its cell.
void placeBlocks(QList<BookletPage>& pages, const QList<SheetBlock>& blocks, int columns, int rows,
                 const QSize& paper) {
    const double cellWidth = double(paper.width() - 2 * Margin) / columns;
    const double cellHeight = double(paper.height() - ContentTop - ContentBottomGap) / rows;
    const double factor =
        std::min((cellWidth - CellGap) / BlockWidth, (cellHeight - CellGap) / BlockHeight);
    const int perPage = columns * rows;
    for (int n = 0; n < blocks.size(); ++n) {
        if (n % perPage == 0)
            pages.append(BookletPage{});
        const int slot = n % perPage;
        const QPointF cell(Margin + (slot % columns) * cellWidth,
                           ContentTop + (slot / columns) * cellHeight);
        const QPointF at = cell + QPointF((cellWidth - BlockWidth * factor) / 2, CellGap / 2.0);
        pages.last().blocks.append(placed(blocks[n], at, factor));
    }
}

// A text centred on the page's middle, its width estimated from the point size (the page
// composition measures no fonts): the painter aligns texts at their left edge.
SheetText centred(const QString& text, double y, const SheetFont& font, const QSize& paper) {
    const double width = text.size() * font.pointSize * 20 * 0.5;
    return {QPointF(std::max<double>(Margin, (paper.width() - width) / 2), y), text, font};
}

} // namespace

namespace Booklet {

QSize paperTwips(Paper paper) {
    // A4 is 210 x 297 mm; letter 8.5 x 11 inches.
    return paper == Paper::Letter ? QSize(12240, 15840) : QSize(11906, 16838);
}

Paper paperForLocale(const QString& localeName) {
    const QString name = localeName.section(u'.', 0, 0).section(u'@', 0, 0);
    if (!name.contains(u'_'))
        return Paper::A4; // "C", "POSIX", a bare language: no country to go by
    const QLocale::Territory territory = QLocale(name).territory();
    return territory == QLocale::UnitedStates || territory == QLocale::Canada ? Paper::Letter
                                                                              : Paper::A4;
}

} // namespace Booklet

QList<BookletPage> composeBooklet(const QList<SheetContent>& puzzles,
                                  const BookletSettings& settings) {
    const QSize paper = Booklet::paperTwips(settings.paper);
    QList<SheetBlock> questions;
    QList<SheetBlock> answers;
    for (int n = 0; n < puzzles.size(); ++n) {
        questions.append(composeBookletBlock(n + 1, 0, puzzles[n]));
        answers.append(composeBookletBlock(n + 1, 1, puzzles[n]));
    }
    QList<BookletPage> pages;
    placeBlocks(pages, questions, settings.perPage == 4 ? 2 : 1, settings.perPage == 1 ? 1 : 2,
                paper);
    const qsizetype firstAnswerPage = pages.size();
    placeBlocks(pages, answers, 3, Booklet::AnswersPerPage / 3, paper);

    for (qsizetype p = 0; p < pages.size(); ++p) {
        const QString title = p < firstAnswerPage ? settings.title
                              : settings.title.isEmpty()
                                  ? QStringLiteral("Answers")
                                  : settings.title + QStringLiteral(" (answers)");
        pages[p].texts.append({QPointF(Margin, Margin), title, pageFont(14, true)});
        pages[p].texts.append(centred(QString::number(p + 1), paper.height() - FooterFromBottom,
                                      pageFont(9, false), paper));
    }
    if (!pages.isEmpty()) {
        double y = paper.height() - ClosingFromBottom;
        for (const QString& line : settings.closingLines) {
            pages.last().texts.append({QPointF(Margin, y), line, pageFont(8, false)});
            y += LineStep;
        }
    }
    return pages;
}
