// The printed page (via pdftoppm at 96 dpi) and clipboard picture by their pixels; the print path.
#include "windowfixture.h"

#include "board/mainmenu.h"
#include "board/pageprinter.h"
#include "board/sheetpainter.h"

#include <QAction>
#include <QClipboard>
#include <QFontMetricsF>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>

namespace {

// The top-left corners of the star picture's boxes, in its pixels.
constexpr QPoint BoxCorners[10] = {{135, 0},  {1, 101},   {99, 101},  {173, 101}, {265, 101},
                                   {78, 164}, {191, 164}, {133, 198}, {49, 252},  {214, 252}};

// The dark pixels in `r`, and the longest dark run along one of its rows.
std::pair<int, int> inkIn(const QImage& image, const QRect& r) {
    int n = 0, longest = 0;
    for (int y = r.top(); y <= r.bottom(); ++y) {
        for (int x = r.left(), run = 0; x <= r.right(); ++x) {
            const bool dark = image.rect().contains(x, y) && qGray(image.pixel(x, y)) < 128;
            n += dark;
            run = dark ? run + 1 : 0;
            longest = qMax(longest, run);
        }
    }
    return {n, longest};
}

// One block: star boxes at `origin` times `scale`, lettered or not; words in ink, `struck` struck.
void expectBlock(const QImage& image, const QPointF& origin, double scale, bool letters,
                 const SheetBlock& block, const QStringList& struck) {
    const auto ink = [&image](const QRectF& r) { return inkIn(image, r.toRect()).first; };
    for (int c = 0; c < 10; ++c) {
        const QPointF corner = origin + QPointF(BoxCorners[c]) * scale;
        const double slack = qCeil(2 * scale) + 1; // the box's corner within a few pixels
        EXPECT_GT(ink({corner - QPointF(slack, slack), QSizeF(2 * slack, 2 * slack)}), 0) << c;
        const int inside = ink({corner + QPointF(6, 6) * scale, QSizeF(21, 21) * scale});
        EXPECT_TRUE(letters ? inside > 15 : inside == 0) << "box " << c << ": " << inside;
    }
    QImage dpi96(1, 1, QImage::Format_RGB32);
    QStringList seenStruck;
    for (const SheetText& t : block.texts.mid(1)) {
        if (t.text.size() == 1)
            continue; // a letter, checked in its box
        QFont font(t.font.name, -1, t.font.bold ? QFont::Bold : QFont::Normal);
        font.setPointSizeF(t.font.pointSize);
        const QFontMetricsF metrics(font, &dpi96);
        const double width = metrics.horizontalAdvance(t.text);
        const auto [ink, run] =
            inkIn(image, QRectF(t.at / 15, QSizeF(width, metrics.height())).toAlignedRect());
        EXPECT_GT(ink, 30) << t.text.toStdString();
        if (run >= 0.85 * width)
            seenStruck << t.text;
    }
    EXPECT_EQ(seenStruck, struck);
}

class SheetTest : public WindowTest {
protected:
    void SetUp() override {
        start().pagePrinter().setPrinterLookup([] { return QPrinterInfo(); });
        m_form->menu().create->trigger();
    }
    SheetContent content() const { return sheetContent(grid(), board(), m_settings.BoardFontName); }

    void expectPage(const QString& pdf) {
        QTemporaryDir dir;
        QProcess::execute(QStringLiteral("pdftoppm"), {"-r", "96", "-png", pdf, dir.filePath("p")});
        const QImage image(dir.filePath(QStringLiteral("p-1.png")));
        ASSERT_FALSE(image.isNull());
        EXPECT_FALSE(QFileInfo::exists(dir.filePath(QStringLiteral("p-2.png")))); // one page
        const std::array<SheetBlock, 2> blocks = composePage(content());
        expectBlock(image, QPointF(PuzzleSheet::PuzzleBlockAt) / 15, 1.4, false, blocks[0], {});
        expectBlock(image, QPointF(PuzzleSheet::SolutionBlockAt) / 15, 1.4, true, blocks[1],
                    {"hawk", "keep", "smut"});
    }
};

} // namespace

TEST(StarPicture, HasTheTenEmptyBoxesAtTheirPlacesInBlackOnWhite) {
    const QImage star = starPicture();
    EXPECT_EQ(star.size(), QSize(299, 286));
    EXPECT_EQ(inkIn(star, star.rect()).first, 2857);
    for (int y = 0; y < star.height(); ++y)
        for (int x = 0; x < star.width(); ++x)
            ASSERT_EQ(qRed(star.pixel(x, y)), qBlue(star.pixel(x, y))) << x << "," << y;
}

TEST_F(SheetTest, CopyToClipboardPutsThePuzzleOrTheSolutionPictureThere) {
    for (const int entry : {0, 1}) {
        SCOPED_TRACE(entry);
        QGuiApplication::clipboard()->clear();
        m_form->menu().copyEntries[static_cast<size_t>(entry)]->trigger();
        const QImage picture = QGuiApplication::clipboard()->image();
        EXPECT_EQ(picture.size(), QSize(304, 367));
        SheetFont font;
        expectBlock(picture, {0, 0}, 1.0, entry == 1, composePuzzlePicture(entry, content(), font),
                    entry == 1 ? QStringList{"hawk", "keep", "smut"} : QStringList());
        EXPECT_GT(inkIn(picture, QRect(103, 293, 150, 10)).first, 20); // the footer
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(SheetTest, PrintAsksThenPrintsOrSavesAPdfWithoutAPrinterOrSaysWhyNot) {
    QTemporaryDir dir;
    const QString root = dir.path() + QStringLiteral("/");
    ASSERT_TRUE(touchFile(root + QStringLiteral("plain")));
    const QString docs = root + QStringLiteral("docs/sub");
    const struct {
        int answer;
        QString documents;
        QString folder;  // where the PDF is expected ("" for none)
        QString message; // the message after the question ("" for none), up to the file name
    } rows[] = {
        {AnswerNo, docs, "", ""},
        {AnswerYes, docs, docs, "Printed\nSaved as "},
        {AnswerYes, "", m_folder.path(), "Printed\nSaved as "},
        {AnswerYes, root + "plain/docs", "",
         "The page was not printed.\nThe folder " + root + "plain/docs cannot be created: " + root +
             "plain is a file, not a folder."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.documents.toStdString());
        m_form->pagePrinter().setDocumentsFolder(row.documents);
        m_notifier.clear();
        m_notifier.queueAnswer(row.answer);
        m_form->menu().print->trigger();
        QStringList files; // only the PDF, where expected: no partial file, no scratch file
        for (const QString& folder : {docs, m_folder.path()})
            for (const QFileInfo& f : QDir(folder).entryInfoList({"*.pdf", "*.pdf.*"}, QDir::Files))
                files << f.absoluteFilePath();
        QStringList expected{"Print Current Puzzle and its Solution on a page?"};
        if (!row.message.isEmpty())
            expected << row.message + files.value(0);
        EXPECT_EQ(m_notifier.texts(), expected);
        EXPECT_EQ(m_notifier.messages().last().style,
                  row.message.isEmpty()  ? QStringLiteral("vbinformation+vbyesno")
                  : row.folder.isEmpty() ? QStringLiteral("vbok+vbcritical")
                                         : QStringLiteral("vbok+vbinformation"));
        ASSERT_EQ(files.size(), row.folder.isEmpty() ? 0 : 1);
        if (!files.isEmpty()) {
            EXPECT_EQ(QFileInfo(files[0]).absolutePath(), QDir(row.folder).absolutePath());
            expectPage(files[0]);
            QFile::remove(files[0]);
        }
    }
    QPrinter printer(QPrinter::HighResolution); // a printer (in PDF mode) prints the same page
    printer.setOutputFileName(dir.filePath(QStringLiteral("page.pdf")));
    EXPECT_EQ(printPage(printer, composePage(content())).outcome, PrintResult::Outcome::Printed);
    expectPage(printer.outputFileName());
}
