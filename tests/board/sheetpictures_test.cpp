// The printed page and the clipboard picture by their pixels, through the window's menus: the
// star picture's ten boxes where the picture has them (1.4 times larger on the page), letters
// in the boxes of the solution block only, strike-through on exactly the decoys of the
// solution block, the picture's exact size; the print question, the PDF file a page goes to
// without a printer, and a failed job that leaves no file. PDF pages are turned into pixels
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

#include <optional>

namespace {

// The top-left corners of the star picture's boxes, in its pixels.
constexpr QPoint BoxCorners[10] = {{135, 0},  {1, 101},   {99, 101},  {173, 101}, {265, 101},
                                   {78, 164}, {191, 164}, {133, 198}, {49, 252},  {214, 252}};
constexpr int BoxSize = 31; // the screen's cell; the picture's boxes are within 2 pixels of 33

bool dark(const QImage& image, int x, int y) {
    return image.rect().contains(x, y) && qGray(image.pixel(x, y)) < 128;
}

int darkRun(const QImage& image, int x, int y, int dx, int dy) {
    int n = 0;
    while (dark(image, x + n * dx, y + n * dy))
        ++n;
    return n;
}

// The corner of a box expected at `at`: a dark pixel from which dark edges run right and
// down for most of the box's size, within `slack` pixels of `at`.
std::optional<QPoint> boxCorner(const QImage& image, const QPointF& at, double scale) {
    const int slack = qCeil(2 * scale) + 1;
    const int edge = qFloor(BoxSize * scale * 0.9);
    for (int dy = -slack; dy <= slack; ++dy) {
        for (int dx = -slack; dx <= slack; ++dx) {
            const QPoint p = (at + QPointF(dx, dy)).toPoint();
            if (darkRun(image, p.x(), p.y(), 1, 0) >= edge &&
                darkRun(image, p.x(), p.y(), 0, 1) >= edge)
                return p;
        }
    }
    return std::nullopt;
}

int darkIn(const QImage& image, const QRect& r) {
    int n = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            n += dark(image, x, y);
    return n;
}

int longestRowRun(const QImage& image, const QRect& r) {
    int longest = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            longest = qMax(longest, darkRun(image, x, y, 1, 0));
    return longest;
}

// Checks one block in a 96-dpi image: the boxes of a star picture whose corner is at `origin`
// (pixels) enlarged by `scale`, empty or holding a letter, and the words of `block` (drawn at
// 15 twips to the pixel) in ink, struck through exactly when listed in `struck`.
void expectBlock(const QImage& image, const QPointF& origin, double scale, bool letters,
                 const SheetBlock& block, const QStringList& struck) {
    for (int c = 0; c < 10; ++c) {
        SCOPED_TRACE(testing::Message() << "box " << c);
        const std::optional<QPoint> corner =
            boxCorner(image, origin + QPointF(BoxCorners[c]) * scale, scale);
        ASSERT_TRUE(corner.has_value());
        const int inset = qCeil(3 * scale);
        const int side = qFloor(BoxSize * scale) - 2 * inset;
        const int ink = darkIn(image, QRect(*corner + QPoint(inset, inset), QSize(side, side)));
        if (letters)
            EXPECT_GT(ink, 15);
        else
            EXPECT_EQ(ink, 0);
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
        const QRect area =
            QRectF(t.at / 15, QSizeF(metrics.horizontalAdvance(t.text), metrics.height()))
                .toAlignedRect();
        EXPECT_GT(darkIn(image, area), 30) << t.text.toStdString();
        if (longestRowRun(image, area) >= 0.85 * metrics.horizontalAdvance(t.text))
            seenStruck << t.text;
    }
    EXPECT_EQ(seenStruck, struck);
}

// Page 1 of a PDF file at 96 dpi, and its number of pages.
QImage pdfPage(const QString& pdf, int& pages) {
    QProcess info;
    info.start(QStringLiteral("pdfinfo"), {pdf});
    info.waitForFinished();
    const QString text = QString::fromUtf8(info.readAllStandardOutput());
    const qsizetype at = text.indexOf(QStringLiteral("Pages:"));
    pages = at < 0 ? 0 : text.mid(at + 6).section(u'\n', 0, 0).trimmed().toInt();
    QTemporaryDir dir;
    const QString prefix = dir.filePath(QStringLiteral("page"));
    QProcess::execute(QStringLiteral("pdftoppm"),
                      {QStringLiteral("-r"), QStringLiteral("96"), QStringLiteral("-png"),
                       QStringLiteral("-singlefile"), pdf, prefix});
    return QImage(prefix + QStringLiteral(".png"));
}

class SheetTest : public WindowTest {
protected:
    Form1& startWithoutPrinter(const QString& documents) {
        Form1& form = start();
        form.pagePrinter().setPrinterLookup([] { return QPrinterInfo(); });
        form.pagePrinter().setDocumentsFolder(documents);
        return form;
    }

    // The decoy words of the puzzle on the tiles.
    QStringList decoys() const {
        QStringList words;
        for (int i = 1; i <= 8; ++i) {
            if (m_form->session().grid().DecoyFlags[static_cast<size_t>(i)] == 1)
                words << board().tiles[static_cast<size_t>(i)].word;
        }
        return words;
    }

    // The page as the window composes it now.
    std::array<SheetBlock, 2> page() const {
        return composePage(
            sheetContent(m_form->session().grid(), board(), m_settings.BoardFontName));
    }

    // Checks both blocks of a one-page PDF file.
    // `picture`: a name in the temporary folder to keep the page's pixels under for a look.
    void expectPage(const QString& pdf, bool puzzle, const QString& picture) {
        SCOPED_TRACE(pdf.toStdString());
        int pages = 0;
        const QImage image = pdfPage(pdf, pages);
        EXPECT_EQ(pages, 1);
        ASSERT_FALSE(image.isNull());
        image.save(QDir::tempPath() + u'/' + picture);
        const std::array<SheetBlock, 2> blocks = page();
        expectBlock(image, QPointF(PuzzleSheet::PuzzleBlockAt) / 15, 1.4, false, blocks[0], {});
        expectBlock(image, QPointF(PuzzleSheet::SolutionBlockAt) / 15, 1.4, puzzle, blocks[1],
                    puzzle ? decoys() : QStringList());
    }
};

} // namespace

TEST_F(SheetTest, StarPictureHasTheTenEmptyBoxesAtTheirPlaces) {
    const QImage star = starPicture();
    star.save(QDir::tempPath() + QStringLiteral("/pentalink-star.png"));
    EXPECT_EQ(star.size(), QSize(299, 286));
    expectBlock(star, {0, 0}, 1.0, false, SheetBlock{}, {});
    // White ground, black lines: no other colour in it.
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
    } rows[] = {{"no puzzle, solution", false, 1},
                {"puzzle", true, 0},
                {"solution", false, 1},
                {"puzzle again", false, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        if (row.create)
            form.menu().create->trigger();
        clipboard->clear();
        form.menu().copyEntries[static_cast<size_t>(row.entry)]->trigger();
        const QImage picture = clipboard->image();
        picture.save(
            QDir::tempPath() +
            QStringLiteral("/pentalink-clipboard-%1.png").arg(row.entry ? "solution" : "puzzle"));
        EXPECT_EQ(picture.size(), QSize(304, 367));
        SheetFont font;
        const SheetBlock block = composePuzzlePicture(
            row.entry, sheetContent(form.session().grid(), board(), m_settings.BoardFontName),
            font);
        const bool letters = row.entry == 1 && form.session().grid().hasSolution();
        expectBlock(picture, {0, 0}, 1.0, letters, block, letters ? decoys() : QStringList());
        EXPECT_GT(darkIn(picture, QRect(103, 293, 150, 10)), 20); // the footer
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(SheetTest, PrintedPageOnAPrinterInPdfModeHasBothBlocks) {
    Form1& form = startWithoutPrinter(QString());
    form.menu().create->trigger();
    QTemporaryDir dir;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(dir.filePath(QStringLiteral("page.pdf")));
    const PrintResult result = printPage(printer, page());
    EXPECT_EQ(result.outcome, PrintResult::Outcome::Printed);
    expectPage(printer.outputFileName(), true, QStringLiteral("pentalink-page.png"));
}

TEST_F(SheetTest, PrintAsksThenSavesAPdfWithoutAPrinterOrSaysWhyNot) {
    QTemporaryDir dir;
    const QString root = dir.path() + QStringLiteral("/");
    ASSERT_TRUE(touchFile(root + QStringLiteral("plain")));
    const QString docs = root + QStringLiteral("docs/sub");
    Form1& form = startWithoutPrinter(QString());
    const struct {
        const char* name;
        bool create;
        int answer;
        QString documents;
        QString folder;  // where the PDF is expected ("" for none)
        QString message; // the start of the message after the question ("" for none)
    } rows[] = {
        {"declined", false, AnswerNo, docs, "", ""},
        {"no puzzle", false, AnswerYes, docs, docs, "Printed\nSaved as " + docs + "/Pentalink "},
        {"a puzzle", true, AnswerYes, docs, docs, "Printed\nSaved as " + docs + "/Pentalink "},
        {"no documents folder", false, AnswerYes, "", m_folder.path(),
         "Printed\nSaved as " + m_folder.path() + "Pentalink "},
        {"a path through a file", false, AnswerYes, root + "plain/docs", "",
         "The page was not printed.\nThe folder " + root + "plain/docs cannot be created: " + root +
             "plain is a file, not a folder."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        if (row.create)
            form.menu().create->trigger();
        QDir(root + QStringLiteral("docs")).removeRecursively();
        for (const QString& pdf : QDir(m_folder.path()).entryList({"*.pdf"}))
            QFile::remove(m_folder.file(pdf));
        form.pagePrinter().setDocumentsFolder(row.documents);
        m_notifier.clear();
        m_notifier.queueAnswer(row.answer);
        form.menu().print->trigger();

        QStringList texts;
        for (const RecordedMessage& m : m_notifier.messages())
            texts << m.text;
        ASSERT_FALSE(texts.isEmpty());
        EXPECT_EQ(texts.takeFirst(),
                  QStringLiteral("Print Current Puzzle and its Solution on a page?"));
        EXPECT_EQ(m_notifier.messages().first().style, QStringLiteral("vbinformation+vbyesno"));
        ASSERT_EQ(texts.size(), row.message.isEmpty() ? 0 : 1);
        if (!row.message.isEmpty()) {
            EXPECT_TRUE(texts[0].startsWith(row.message)) << texts[0].toStdString();
            EXPECT_EQ(m_notifier.messages().last().style,
                      row.folder.isEmpty() ? QStringLiteral("vbok+vbcritical")
                                           : QStringLiteral("vbok+vbinformation"));
        }
        // Only the PDF, where expected: no partial file, no scratch file.
        QStringList files;
        for (const QString& folder : {docs, m_folder.path()}) {
            for (const QFileInfo& f : QDir(folder).entryInfoList({"*.pdf", "*.pdf.*"}, QDir::Files))
                files << f.absoluteFilePath();
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
        EXPECT_EQ(texts.value(0), QStringLiteral("Printed\nSaved as ") + files[0]);
        expectPage(files[0], form.session().grid().hasSolution(),
                   QStringLiteral("pentalink-page-saved.png"));
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
