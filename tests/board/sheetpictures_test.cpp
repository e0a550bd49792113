// The printed page and the clipboard picture by their pixels, through the window's menus: the
// star picture's ten boxes where the picture has them (1.4 times larger on the page), letters
// in the boxes of the solution block only, strike-through on exactly the decoys of the
// solution block, the picture's exact size; the print question, the PDF file a page goes to
// without a printer, and a failed save that leaves no file. PDF pages are turned into pixels
// with pdftoppm at 96 dpi.
#include "windowfixture.h"

#include "board/mainmenu.h"
#include "board/pageprinter.h"
#include "board/sheetpainter.h"
#include "support/writefault.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>

namespace {

// The top-left corners of the star picture's boxes, in its pixels.
constexpr QPoint BoxCorners[10] = {{135, 0},  {1, 101},   {99, 101},  {173, 101}, {265, 101},
                                   {78, 164}, {191, 164}, {133, 198}, {49, 252},  {214, 252}};
constexpr int BoxSize = 33;

bool dark(const QImage& image, int x, int y) {
    return image.rect().contains(x, y) && qGray(image.pixel(x, y)) < 128;
}

int darkRun(const QImage& image, int x, int y, int dx, int dy) {
    int n = 0;
    while (dark(image, x + n * dx, y + n * dy))
        ++n;
    return n;
}

// The dark pixels in `r`, and the longest dark run along one of its rows.
std::pair<int, int> inkIn(const QImage& image, const QRect& r) {
    int n = 0, longest = 0;
    for (int y = r.top(); y <= r.bottom(); ++y) {
        for (int x = r.left(); x <= r.right(); ++x) {
            n += dark(image, x, y);
            longest = qMax(longest, darkRun(image, x, y, 1, 0));
        }
    }
    return {n, longest};
}

// Checks one block in a 96-dpi image: the boxes of a star picture whose corner is at `origin`
// (pixels) enlarged by `scale`, empty or holding a letter, and the words of `block` (drawn at
// 15 twips to the pixel) in ink, struck through exactly when listed in `struck`.
void expectBlock(const QImage& image, const QPointF& origin, double scale, bool letters,
                 const SheetBlock& block, const QStringList& struck) {
    for (int c = 0; c < 10; ++c) {
        // The box's corner within a few pixels of its place; inside it a letter or nothing.
        const QPointF corner = origin + QPointF(BoxCorners[c]) * scale;
        const double slack = qCeil(2 * scale) + 1;
        const QRectF near(corner - QPointF(slack, slack), QSizeF(2 * slack, 2 * slack));
        EXPECT_GT(inkIn(image, near.toRect()).first, 0) << "box " << c;
        const QRectF inside(corner + QPointF(6, 6) * scale, QSizeF(21, 21) * scale);
        const int ink = inkIn(image, inside.toRect()).first;
        EXPECT_TRUE(letters ? ink > 15 : ink == 0) << "box " << c << ": " << ink;
    }
    QImage dpi96(1, 1, QImage::Format_RGB32);
    QStringList seenStruck;
    for (const SheetText& t : block.texts.mid(1)) {
        if (t.text.size() == 1)
            continue; // a letter, checked in its box
        QFont font(t.font.name);
        font.setPointSizeF(t.font.pointSize);
        font.setBold(t.font.bold);
        const QFontMetricsF metrics(font, &dpi96);
        const double width = metrics.horizontalAdvance(t.text);
        const auto [ink, longest] =
            inkIn(image, QRectF(t.at / 15, QSizeF(width, metrics.height())).toAlignedRect());
        EXPECT_GT(ink, 30) << t.text.toStdString();
        if (longest >= 0.85 * width)
            seenStruck << t.text;
    }
    EXPECT_EQ(seenStruck, struck);
}

class SheetTest : public WindowTest {
protected:
    Form1& startWithoutPrinter() {
        Form1& form = start();
        form.pagePrinter().setPrinterLookup([] { return QPrinterInfo(); });
        return form;
    }

    // The decoys of the eight-word dictionary's puzzle.
    const QStringList m_decoys = {"hawk", "keep", "smut"};

    // Checks the one page of a PDF file at 96 dpi: the puzzle block, then the solution block.
    void expectPage(const QString& pdf) {
        SCOPED_TRACE(pdf.toStdString());
        QTemporaryDir dir;
        const QString prefix = dir.filePath(QStringLiteral("page"));
        QProcess::execute(QStringLiteral("pdftoppm"), {"-r", "96", "-png", pdf, prefix});
        const QImage image(prefix + QStringLiteral("-1.png"));
        ASSERT_FALSE(image.isNull());
        EXPECT_FALSE(QFileInfo::exists(prefix + QStringLiteral("-2.png"))); // one page
        const std::array<SheetBlock, 2> blocks =
            composePage(sheetContent(grid(), board(), m_settings.BoardFontName));
        expectBlock(image, QPointF(PuzzleSheet::PuzzleBlockAt) / 15, 1.4, false, blocks[0], {});
        expectBlock(image, QPointF(PuzzleSheet::SolutionBlockAt) / 15, 1.4, true, blocks[1],
                    m_decoys);
    }
};

} // namespace

TEST_F(SheetTest, StarPictureHasTheTenEmptyBoxesAtTheirPlacesInBlackOnWhite) {
    const QImage star = starPicture();
    EXPECT_EQ(star.size(), QSize(299, 286));
    // Each box, within two pixels of its place, is 33 pixels square border included: a
    // one-pixel border round 31 x 31 of white.
    for (int c = 0; c < 10; ++c) {
        bool found = false;
        for (int n = 0; n < 25 && !found; ++n) {
            const QRect box(BoxCorners[c] + QPoint(n % 5 - 2, n / 5 - 2), QSize(33, 33));
            found = inkIn(star, box).first == 4 * 32 &&
                    inkIn(star, box.adjusted(1, 1, -1, -1)).first == 0;
        }
        EXPECT_TRUE(found) << c;
    }
    int other = 0;
    for (int y = 0; y < star.height(); ++y)
        for (int x = 0; x < star.width(); ++x)
            other += qRed(star.pixel(x, y)) != qBlue(star.pixel(x, y));
    EXPECT_EQ(other, 0);
}

TEST_F(SheetTest, CopyToClipboardPutsThePuzzleOrTheSolutionPictureThere) {
    Form1& form = start();
    QClipboard* clipboard = QGuiApplication::clipboard();
    const struct {
        const char* name;
        bool create; // create a puzzle first
        int entry;   // Copy to Clipboard > Puzzle (0) or Solution (1)
    } rows[] = {{"no puzzle, solution", false, 1}, {"puzzle", true, 0}, {"solution", false, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        if (row.create)
            form.menu().create->trigger();
        clipboard->clear();
        form.menu().copyEntries[static_cast<size_t>(row.entry)]->trigger();
        const QImage picture = clipboard->image();
        EXPECT_EQ(picture.size(), QSize(304, 367));
        SheetFont font;
        const SheetBlock block = composePuzzlePicture(
            row.entry, sheetContent(grid(), board(), m_settings.BoardFontName), font);
        const bool letters = row.entry == 1 && grid().hasSolution();
        expectBlock(picture, {0, 0}, 1.0, letters, block, letters ? m_decoys : QStringList());
        EXPECT_GT(inkIn(picture, QRect(103, 293, 150, 10)).first, 20); // the footer
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(SheetTest, PrintedPageOnAPrinterInPdfModeHasBothBlocks) {
    Form1& form = startWithoutPrinter();
    form.menu().create->trigger();
    QTemporaryDir dir;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(dir.filePath(QStringLiteral("page.pdf")));
    const PrintResult result =
        printPage(printer, composePage(sheetContent(grid(), board(), m_settings.BoardFontName)));
    EXPECT_EQ(result.outcome, PrintResult::Outcome::Printed);
    expectPage(printer.outputFileName());
}

TEST_F(SheetTest, PrintAsksThenSavesAPdfWithoutAPrinterOrSaysWhyNot) {
    QTemporaryDir dir;
    const QString root = dir.path() + QStringLiteral("/");
    ASSERT_TRUE(touchFile(root + QStringLiteral("plain")));
    const QString docs = root + QStringLiteral("docs/sub");
    Form1& form = startWithoutPrinter();
    form.menu().create->trigger();
    const struct {
        const char* name;
        int answer;
        QString documents;
        QString folder;  // where the PDF is expected ("" for none)
        QString message; // the message after the question ("" for none), up to the file name
    } rows[] = {
        {"declined", AnswerNo, docs, "", ""},
        {"to the documents folder", AnswerYes, docs, docs, "Printed\nSaved as "},
        {"no documents folder", AnswerYes, "", m_folder.path(), "Printed\nSaved as "},
        {"a path through a file", AnswerYes, root + "plain/docs", "",
         "The page was not printed.\nThe folder " + root + "plain/docs cannot be created: " + root +
             "plain is a file, not a folder."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        form.pagePrinter().setDocumentsFolder(row.documents);
        m_notifier.clear();
        m_notifier.queueAnswer(row.answer);
        form.menu().print->trigger();
        // Only the PDF, where expected: no partial file, no scratch file.
        QStringList files;
        for (const QString& folder : {docs, m_folder.path()}) {
            for (const QFileInfo& f : QDir(folder).entryInfoList({"*.pdf", "*.pdf.*"}, QDir::Files))
                files << f.absoluteFilePath();
        }
        const QString question = QStringLiteral("Print Current Puzzle and its Solution on a page?");
        QStringList expected{question};
        if (!row.message.isEmpty())
            expected << row.message + files.value(0);
        EXPECT_EQ(m_notifier.texts(), expected);
        EXPECT_EQ(m_notifier.messages().first().style, QStringLiteral("vbinformation+vbyesno"));
        if (!row.message.isEmpty()) {
            EXPECT_EQ(m_notifier.messages().last().style,
                      row.folder.isEmpty() ? QStringLiteral("vbok+vbcritical")
                                           : QStringLiteral("vbok+vbinformation"));
        }
        if (row.folder.isEmpty()) {
            EXPECT_EQ(files, QStringList());
            continue;
        }
        ASSERT_EQ(files.size(), 1);
        EXPECT_TRUE(
            QRegularExpression(
                QStringLiteral("/Pentalink \\d{4}-\\d\\d-\\d\\d \\d\\d-\\d\\d-\\d\\d\\.pdf$"))
                .match(files[0])
                .hasMatch());
        EXPECT_EQ(QFileInfo(files[0]).absolutePath(), QDir(row.folder).absolutePath());
        expectPage(files[0]);
        QFile::remove(files[0]);
    }
}

// Saving the page when the file cannot grow, its folder cannot be made or the file system is
// full: a failure naming the file, and nothing left behind.
class PdfSaveFault : public testing::TestWithParam<WriteFault> {};

TEST_P(PdfSaveFault, FailsNamingTheFileAndLeavesNothing) {
    const WriteFaultOutcome outcome =
        runWithWriteFault(GetParam(), {[](const QString&) {},
                                       [](const QString&, const QString& target, Notifier&) {
                                           const PrintResult result =
                                               savePagePdf(target + QStringLiteral("page.pdf"),
                                                           composePage(SheetContent{}));
                                           return result.outcome == PrintResult::Outcome::Failed
                                                      ? result.error
                                                      : QStringLiteral("saved");
                                       },
                                       4000});
    if (outcome.skipped)
        GTEST_SKIP() << outcome.skipReason.toStdString();
    EXPECT_TRUE(outcome.finished) << outcome.result.toStdString();
    EXPECT_TRUE(outcome.result.startsWith(QStringLiteral("Cannot write ") + outcome.target +
                                          QStringLiteral("page.pdf")))
        << outcome.result.toStdString();
    EXPECT_EQ(outcome.added, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Faults, PdfSaveFault, testing::ValuesIn(kWriteFaults),
                         [](const auto& info) { return writeFaultName(info.param); });
