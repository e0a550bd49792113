// The help window, the About window and the program icon, headless.
#include "core/twips.h"
#include "support/testfolder.h"
#include "ui/aboutform.h"
#include "ui/boxcontrol.h"
#include "ui/contrast.h"
#include "ui/form4.h"
#include "ui/helppage.h"
#include "ui/msgform.h"
#include "ui/programicon.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

const QColor Background(200, 210, 220);
const QColor Button(90, 120, 150);

// Every capture of `pattern` in the shipped file `name`.
QStringList shippedMatches(const QString& name, const QString& pattern) {
    QFile file(shippedDataDir() + name);
    QStringList found;
    if (file.open(QIODevice::ReadOnly))
        for (const auto& m :
             QRegularExpression(pattern).globalMatch(QString::fromUtf8(file.readAll())))
            found << m.captured(1);
    return found;
}

// Clicks the first link to `href` that is in view, as the player would.
bool clickLink(QTextBrowser& browser, const QString& href) {
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            QTextCursor cursor(browser.document());
            cursor.setPosition(it.fragment().position() + 1);
            const QPoint at = browser.cursorRect(cursor).center();
            if (it.fragment().charFormat().anchorHref() == href &&
                browser.viewport()->rect().contains(at)) {
                QTest::mouseClick(browser.viewport(), Qt::LeftButton, {}, at);
                return true;
            }
        }
    }
    return false;
}

TEST(HelpPage, EverySectionIsReachedByAnInPageLinkAndEveryLinkHasItsTarget) {
    const QString htm = QStringLiteral("pentalink.htm");
    const QStringList hrefs = shippedMatches(htm, "href=\"#([^\"]*)\"");
    const QStringList names = shippedMatches(htm, "name=\"([^\"]*)\"");
    EXPECT_GE(QSet<QString>(hrefs.begin(), hrefs.end()).size(), 12);
    for (const QString& href : hrefs)
        EXPECT_TRUE(names.contains(href)) << qPrintable(href);
    for (const QString& name : names)
        EXPECT_TRUE(hrefs.contains(name) || name == QStringLiteral("top")) << qPrintable(name);
    for (const QString& count : shippedMatches(htm, "(\\d+) common")) // the shipped word count
        EXPECT_EQ(count.toLongLong(),
                  shippedMatches(QStringLiteral("english1.txt"), "(\n)").size());
}

class UrlRecorder : public QObject {
    Q_OBJECT
public:
    QList<QUrl> opened;
public Q_SLOTS:
    void open(const QUrl& url) { opened << url; }
};

// Two far-apart sections and a web link, in a folder whose "#" is no anchor.
TEST(HelpWindow, WebLinksGoToTheDesktopStepsOnlyBetweenAnchorsAndActivationShowsTheTop) {
    TestFolder folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("games#1")));
    folder.write(QStringLiteral("games#1/pentalink.htm"),
                 "<p><a href=\"https://example.org/words\">words</a> <a href=\"#a\">a</a></p>"
                 "<p style=\"margin-top: 3000px\"><a name=\"a\"></a><a href=\"#b\">b</a></p>"
                 "<p style=\"margin-top: 3000px\"><a name=\"b\"></a>The end</p>");
    SchemeLook look{packedColour(Background), packedColour(Button)};
    Form4 help;
    help.setPagePath(folder.file(QStringLiteral("games#1/pentalink.htm")));
    help.setSchemeLook([&look] { return look; });
    QTextBrowser& browser = *help.WebBrowser1();
    const auto open = [&help] {
        help.show();
        help.activateWindow();
        return QTest::qWaitForWindowActive(&help);
    };
    const auto shown = [&browser] { return browser.source().toString(); };

    UrlRecorder desktop;
    QDesktopServices::setUrlHandler(QStringLiteral("https"), &desktop, "open");
    ASSERT_TRUE(open());
    EXPECT_EQ(browser.source().toLocalFile(), folder.file(QStringLiteral("games#1/pentalink.htm")));
    EXPECT_EQ(help.Command2()->palette().color(QPalette::Button), Button);
    const QString page = shown();
    ASSERT_TRUE(clickLink(browser, QStringLiteral("https://example.org/words")));
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    EXPECT_EQ(desktop.opened, QList<QUrl>{QUrl(QStringLiteral("https://example.org/words"))});

    ASSERT_TRUE(clickLink(browser, QStringLiteral("#a")));
    ASSERT_TRUE(clickLink(browser, QStringLiteral("#b")));
    QTest::keyClick(&browser, Qt::Key_Left, Qt::AltModifier);
    QTest::keyClick(&browser, Qt::Key_Alt); // Alt alone never steps
    EXPECT_TRUE(shown().endsWith(QStringLiteral("#a")));
    QTest::keyClick(&browser, Qt::Key_Right, Qt::AltModifier);
    QTest::mouseClick(help.Command1(), Qt::LeftButton);
    QTest::mouseClick(help.Command2(), Qt::LeftButton);
    EXPECT_TRUE(shown().endsWith(QStringLiteral("#b")));
    QTest::mouseClick(help.Command1(), Qt::LeftButton);
    QTest::mouseClick(help.Command1(), Qt::LeftButton);
    EXPECT_EQ(shown(), page);
    QTest::mouseClick(help.Command1(), Qt::LeftButton); // no step from the plain page
    QTest::mouseClick(help.Command2(), Qt::LeftButton);
    QTest::keyClick(&browser, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shown(), page);

    ASSERT_TRUE(clickLink(browser, QStringLiteral("#a")));
    EXPECT_GT(browser.verticalScrollBar()->value(), 0);
    QTest::mouseClick(help.Command3(), Qt::LeftButton);
    EXPECT_FALSE(help.isVisible());
    look = {packedColour(Button), packedColour(Background)};
    ASSERT_TRUE(open());
    EXPECT_FALSE(shown().contains(u'#'));
    EXPECT_EQ(browser.verticalScrollBar()->value(), 0);
    EXPECT_EQ(help.palette().color(QPalette::Window), Button);
    help.resize(Twips::toPixels(QSize(1500, 300))); // too low: the height stays
    EXPECT_EQ(browser.geometry().width(), 100);
}

// Pages the browser cannot lay out at once are refused with the reason; a page is read once
// per change of its file.
TEST(HelpWindow, EveryPageIsBoundedAndLaidOutOncePerChangeOfTheFile) {
    TestFolder folder;
    const QString page = folder.file(QStringLiteral("pentalink.htm"));
    Form4 help;
    help.setPagePath(page);
    const QTextBrowser& browser = *help.WebBrowser1();
    const QByteArray table("<table><tr><td>");
    const std::pair<QByteArray, const char*> rows[] = {
        // content (null: a FIFO), shown
        {table.repeated(3000) + "deep", "it has more than 2000 elements"},
        {table.repeated(5), "nested more than 4 deep"},
        {table.repeated(4) + "four", "four"},
        {"<td>a</tr><td>b</table>c<td>d</table>e<td>f</table>g<td>", "nested more than 4 deep"},
        {QByteArray(HelpPage::MaxBytes + 1, ' '), "it is larger than 1 MB"},
        {QByteArray(3000, 'w'), "that cannot be broken"},
        {"<ul>" + QByteArray("<li>i").repeated(2001), "more than 2000 elements"},
        {"<p class='a'><style>" + QByteArray("p{}").repeated(201), "more than 200 style"},
        {QByteArray(), "it is not a regular file"},
        {QByteArray(), "Pentalink Help"}, // the shipped page
    };
    for (const auto& [content, text] : rows) {
        SCOPED_TRACE(text);
        QFile::remove(page);
        if (text == std::string_view("Pentalink Help"))
            QFile::copy(shippedDataDir() + QStringLiteral("pentalink.htm"), page);
        else if (content.isNull())
            ASSERT_EQ(mkfifo(QFile::encodeName(page).constData(), 0600), 0);
        else
            folder.write(QStringLiteral("pentalink.htm"), content);
        help.activated();
        EXPECT_TRUE(browser.toPlainText().contains(QString::fromLatin1(text)));
        const int revision = browser.document()->revision();
        help.activated();
        EXPECT_EQ(browser.document()->revision(), revision);
    }
}

TEST(AboutForm, TakesTheSchemeAtEveryShowingWithTheFixedDarkGreyTextAndCloses) {
    SchemeLook look;
    AboutForm about;
    about.setSchemeLook([&look] { return look; });
    EXPECT_EQ(about.size(), QSize(410, 177)); // 6150 x 2655 twips
    // Each showing takes the scheme (the colours swap each time); each of these closes it.
    const std::function<void()> closers[] = {
        [&] { QTest::mouseClick(about.aboutok(), Qt::RightButton); },
        [&] { QTest::mousePress(about.AboutText()->viewport(), Qt::LeftButton); },
        [&] { QTest::keyClick(&about, Qt::Key_Escape); },
    };
    for (const auto& close : closers) {
        const bool first = &close == closers;
        const QColor background = first ? Background : OleTranslateColor(look.button);
        const QColor button = first ? Button : OleTranslateColor(look.background);
        look = {packedColour(background), packedColour(button)};
        about.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&about));
        EXPECT_EQ(about.AboutText()->palette().color(QPalette::Base), background);
        EXPECT_EQ(about.Label1()->palette().color(QPalette::WindowText), QColor(28, 28, 28));
        const QImage picture = about.grab().toImage();
        EXPECT_EQ(QColor(picture.pixel(about.Label1()->geometry().topLeft() + QPoint(3, 3))),
                  button);
        close();
        EXPECT_FALSE(about.isVisible());
    }
}

TEST(ProgramIcon, ABlackStarInEverySizeTheSameAsTheThemeIconAndNoneOnTheMessageBox) {
    for (const int size : {16, 128}) {
        const QImage image = programIconImage(size);
        ASSERT_EQ(image.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(image.pixel(0, size - 1)), 0) << size;                  // between feet
        EXPECT_EQ(image.pixel(size / 2, size / 2), qRgba(0, 0, 0, 255)) << size; // the star
        for (const QColor ground : {QColor(Qt::white), QColor(48, 48, 48)}) {    // it shows on both
            QImage panel(size, size, QImage::Format_RGB32);
            panel.fill(ground);
            QPainter(&panel).drawImage(0, 0, image);
            int seen = 0;
            for (int p = 0; p < size * size; ++p)
                seen += contrastRatio(panel.pixelColor(p % size, p / size), ground) >= 3.0;
            EXPECT_GE(seen, size * size / 20) << size;
        }
    }
    const QString svg = QStringLiteral("icons/pentalink.svg");
    const QStringList theme = shippedMatches(svg, "points=\"([^\"]*)\"").value(0).split(u' ');
    const QPolygonF drawn = programStar(128);
    ASSERT_EQ(theme.size(), 10);
    for (int k = 0; k < 10; ++k)
        EXPECT_LT(QLineF(drawn.value(k), {theme[k].section(u',', 0, 0).toDouble(),
                                          theme[k].section(u',', 1, 1).toDouble()})
                      .length(),
                  0.01);
    const auto argb = [](const QIcon& icon, int size) {
        return icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
    };
    for (const QIcon& icon : {Form4().windowIcon(), AboutForm().windowIcon()})
        EXPECT_EQ(argb(icon, 32), programIconImage(32).convertToFormat(QImage::Format_ARGB32));
    const QImage none = argb(MsgForm().windowIcon(), 16);
    EXPECT_TRUE(
        std::all_of(none.bits(), none.bits() + none.sizeInBytes(), [](uchar b) { return b == 0; }));
}

} // namespace

#include "helpabout_test.moc"
