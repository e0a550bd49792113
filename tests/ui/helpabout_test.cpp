// The help window, the About window and the program icon, headless: the shipped help page's
// links; web links, Back/Forward and Alt+Left wired to the history rule, re-activation with
// the scheme colours and the resize rule; the ways About closes with its colours; and the
// star against its SVG twin.
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
const QColor DarkGrey(28, 28, 28);

// Every capture of `pattern` in the shipped file `name`.
QStringList shippedMatches(const QString& name, const QString& pattern) {
    QFile file(shippedDataDir() + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList found;
    for (const auto& m : QRegularExpression(pattern).globalMatch(QString::fromUtf8(file.readAll())))
        found << m.captured(1);
    return found;
}

// Clicks the first link to `href` that is in view, as the player would.
bool clickLink(QTextBrowser& browser, const QString& href) {
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().anchorHref() != href)
                continue;
            QTextCursor cursor(browser.document());
            cursor.setPosition(it.fragment().position() + 1);
            const QPoint at = browser.cursorRect(cursor).center();
            if (browser.viewport()->rect().contains(at)) {
                QTest::mouseClick(browser.viewport(), Qt::LeftButton, {}, at);
                return true;
            }
        }
    }
    return false;
}

TEST(HelpPage, EverySectionIsReachedByAnInPageLinkAndEveryLinkHasItsTarget) {
    const QStringList hrefs = shippedMatches(QStringLiteral("pentalink.htm"), "href=\"#([^\"]*)\"");
    const QStringList names = shippedMatches(QStringLiteral("pentalink.htm"), "name=\"([^\"]*)\"");
    EXPECT_GE(QSet<QString>(hrefs.begin(), hrefs.end()).size(), 12);
    for (const QString& href : hrefs)
        EXPECT_TRUE(names.contains(href)) << qPrintable(href);
    for (const QString& name : names)
        EXPECT_TRUE(hrefs.contains(name) || name == QStringLiteral("top")) << qPrintable(name);
    // Where the page counts the shipped words, it counts the file's lines.
    for (const QString& count : shippedMatches(QStringLiteral("pentalink.htm"), "(\\d+) common"))
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

// The help window on a page of two far-apart sections and a web link, in a folder whose name
// holds a "#" (which is no anchor): links, the steps back and forward, the scheme colours
// taken at every activation, which also returns to the top, and the resize rule.
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
    const auto click = [](QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); };
    const auto shown = [&browser] { return browser.source().toString(); };
    const auto scroll = [&browser] { return browser.verticalScrollBar()->value(); };

    UrlRecorder desktop;
    QDesktopServices::setUrlHandler(QStringLiteral("https"), &desktop, "open");
    ASSERT_TRUE(open());
    EXPECT_EQ(browser.source().toLocalFile(), folder.file(QStringLiteral("games#1/pentalink.htm")));
    EXPECT_EQ(help.palette().color(QPalette::Window), Background);
    for (QPushButton* button : {help.Command1(), help.Command2(), help.Command3()})
        EXPECT_EQ(button->palette().color(QPalette::Button), Button) << qPrintable(button->text());
    const QString page = shown();
    ASSERT_TRUE(clickLink(browser, QStringLiteral("https://example.org/words")));
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    EXPECT_EQ(desktop.opened, QList<QUrl>{QUrl(QStringLiteral("https://example.org/words"))});
    EXPECT_EQ(browser.backwardHistoryCount(), 0);

    ASSERT_TRUE(clickLink(browser, QStringLiteral("#a")));
    ASSERT_TRUE(clickLink(browser, QStringLiteral("#b")));
    QTest::keyClick(&browser, Qt::Key_Left, Qt::AltModifier);
    QTest::keyClick(&browser, Qt::Key_Alt); // Alt alone, like any other key, never steps
    EXPECT_TRUE(shown().endsWith(QStringLiteral("#a")));
    QTest::keyClick(&browser, Qt::Key_Right, Qt::AltModifier);
    click(help.Command1());
    click(help.Command2());
    EXPECT_TRUE(shown().endsWith(QStringLiteral("#b")));
    click(help.Command1());
    click(help.Command1());
    EXPECT_EQ(shown(), page);
    // At the plain page none of them moves, although history lies ahead.
    click(help.Command1());
    click(help.Command2());
    QTest::keyClick(&browser, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shown(), page);
    EXPECT_EQ(browser.forwardHistoryCount(), 2);

    ASSERT_TRUE(clickLink(browser, QStringLiteral("#a")));
    EXPECT_GT(scroll(), 0);
    click(help.Command3());
    EXPECT_FALSE(help.isVisible());
    look = {packedColour(Button), packedColour(Background)};
    ASSERT_TRUE(open());
    EXPECT_FALSE(shown().contains(u'#'));
    EXPECT_EQ(scroll(), 0);
    EXPECT_EQ(help.palette().color(QPalette::Window), Button);

    // Outer size = inner size + the frame (120 x 480 twips); the rule itself is in HelpRules.
    help.resize(Twips::toPixels(QSize(7880, 5520)));       // an 8000 x 6000 window
    EXPECT_EQ(browser.geometry(), QRect(2, 28, 525, 340)); // 7880 x 5100 twips
    help.resize(Twips::toPixels(QSize(1500, 300)));        // too low: the height stays
    EXPECT_EQ(browser.geometry(), QRect(2, 28, 100, 340));
}

// What the window shows for pages the browser cannot lay out at once (each refused before it
// reaches the browser, with the reason), and that a page is read once per change of its file.
TEST(HelpWindow, EveryPageIsBoundedAndLaidOutOncePerChangeOfTheFile) {
    TestFolder folder;
    const QString page = folder.file(QStringLiteral("pentalink.htm"));
    Form4 help;
    help.setPagePath(page);
    const QTextBrowser& browser = *help.WebBrowser1();
    const QByteArray nested = QByteArray("<table><tr><td>").repeated(3000) + "deep";
    const struct {
        const char* what;
        QByteArray content; // null: a FIFO
        const char* shown;
    } rows[] = {
        {"3,000 nested tables", nested, "it has more than 2000 elements"},
        {"5 nested tables", QByteArray("<table><tr><td>").repeated(5), "nested more than 4 deep"},
        {"4 nested tables", QByteArray("<table><tr><td>").repeated(4) + "four", "four"},
        // Found by fuzz_helppage: tables standing in a table outside its cells nest deeper.
        {"tables outside cells", "<td>a</tr><td>b</table>c<td>d</table>e<td>f</table>g<td>",
         "nested more than 4 deep"},
        {"over 1 MB", QByteArray(HelpPage::MaxBytes + 1, ' '), "it is larger than 1 MB"},
        {"a word of 3,000 letters", QByteArray(3000, 'w'), "that cannot be broken"},
        {"2,001 list items", "<ul>" + QByteArray("<li>i").repeated(2001),
         "more than 2000 elements"},
        {"201 style rules", "<style>" + QByteArray("p{}").repeated(201), "more than 200 style"},
        {"a FIFO", QByteArray(), "it is not a regular file"},
        {"the shipped page", QByteArray(), "Pentalink Help"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        QFile::remove(page);
        if (row.shown == std::string_view("Pentalink Help")) {
            QFile::copy(shippedDataDir() + QStringLiteral("pentalink.htm"), page);
        } else if (row.content.isNull()) {
            ASSERT_EQ(mkfifo(QFile::encodeName(page).constData(), 0600), 0);
        } else {
            folder.write(QStringLiteral("pentalink.htm"), row.content);
        }
        help.activated();
        EXPECT_TRUE(browser.toPlainText().contains(QString::fromLatin1(row.shown)))
            << browser.toPlainText().left(200).toStdString();
        // Shown again without a change of the file, the page is not laid out again.
        const int revision = browser.document()->revision();
        help.activated();
        EXPECT_EQ(browser.document()->revision(), revision);
    }
}

TEST(AboutForm, TakesTheSchemeAtEveryShowingWithTheFixedDarkGreyTextAndCloses) {
    SchemeLook look;
    AboutForm about;
    about.setSchemeLook([&look] { return look; });
    EXPECT_EQ(about.windowTitle(), QStringLiteral("About Pentalink"));
    EXPECT_EQ(about.size(), QSize(410, 177)); // 6150 x 2655 twips
    EXPECT_EQ(about.Label1()->text(), QStringLiteral("Version 1.0"));

    // Each showing takes the scheme (the two colours swap places each time); each of these
    // closes the window.
    const std::function<void()> closers[] = {
        [&] { QTest::mouseClick(about.aboutok(), Qt::RightButton); },
        [&] { QTest::mousePress(about.AboutText()->viewport(), Qt::LeftButton); },
        [&] { QTest::mousePress(about.AboutText()->viewport(), Qt::MiddleButton); },
        [&] { QTest::keyClick(&about, Qt::Key_Escape); },
    };
    for (const auto& close : closers) {
        const QColor background = &close == closers ? Background : OleTranslateColor(look.button);
        const QColor button = &close == closers ? Button : OleTranslateColor(look.background);
        look = {packedColour(background), packedColour(button)};
        about.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&about));
        if (&close == closers) {
            EXPECT_EQ(about.focusWidget(), about.aboutok());
        }
        EXPECT_EQ(about.AboutText()->palette().color(QPalette::Base), background);
        EXPECT_EQ(about.AboutText()->palette().color(QPalette::Text), DarkGrey);
        EXPECT_EQ(OleTranslateColor(about.aboutok()->ForeColor()), DarkGrey);
        EXPECT_EQ(about.Label1()->palette().color(QPalette::WindowText), DarkGrey);
        // What the player sees: the version line's ground between its words.
        const QImage picture = about.grab().toImage();
        EXPECT_EQ(QColor(picture.pixel(about.Label1()->geometry().topLeft() + QPoint(3, 3))),
                  button);
        EXPECT_EQ(QColor(picture.pixel(about.Image1()->geometry().center())), Qt::black);
        close();
        EXPECT_FALSE(about.isVisible());
    }
}

TEST(ProgramIcon, ABlackStarInEverySizeTheSameAsTheThemeIconAndNoneOnTheMessageBox) {
    for (const int size : {16, 128}) {
        const QImage image = programIconImage(size);
        ASSERT_EQ(image.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << size;                         // ground
        EXPECT_EQ(qAlpha(image.pixel(0, size - 1)), 0) << size;                  // between feet
        EXPECT_EQ(image.pixel(size / 2, size / 2), qRgba(0, 0, 0, 255)) << size; // the star
        EXPECT_EQ(qAlpha(image.pixel(size / 2, size - 2)), 0) << size;           // the bottom notch
        for (const QColor ground : {QColor(Qt::white), QColor(48, 48, 48)}) {    // it shows on both
            QImage panel(size, size, QImage::Format_RGB32);
            panel.fill(ground);
            QPainter(&panel).drawImage(0, 0, image);
            int seen = 0;
            for (int p = 0; p < size * size; ++p)
                seen += contrastRatio(panel.pixelColor(p % size, p / size), ground) >= 3.0;
            EXPECT_GE(seen, size * size / 20) << size << ground.name().toStdString();
        }
    }
    const QStringList theme =
        shippedMatches(QStringLiteral("icons/pentalink.svg"), "points=\"([^\"]*)\"")
            .value(0)
            .split(u' ');
    const QPolygonF drawn = programStar(128);
    ASSERT_EQ(theme.size(), 10);
    ASSERT_EQ(drawn.size(), 10);
    for (int k = 0; k < 10; ++k) {
        EXPECT_NEAR(theme[k].section(u',', 0, 0).toDouble(), drawn[k].x(), 0.01) << k;
        EXPECT_NEAR(theme[k].section(u',', 1, 1).toDouble(), drawn[k].y(), 0.01) << k;
    }

    const auto argb = [](const QIcon& icon, int size) {
        return icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
    };
    const QImage star = programIconImage(32).convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(argb(Form4().windowIcon(), 32), star);
    EXPECT_EQ(argb(AboutForm().windowIcon(), 32), star);
    const QImage none = argb(MsgForm().windowIcon(), 16);
    QImage clear = none;
    clear.fill(Qt::transparent);
    EXPECT_EQ(none, clear);
}

} // namespace

#include "helpabout_test.moc"
