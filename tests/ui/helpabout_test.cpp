// The help window, the About window and the program icon, headless: links and Back/Forward
// on the shipped help page, re-activation, the resize rule, web links, the scheme colours,
// the ways About closes, and the star against its SVG twin.
#include "core/twips.h"
#include "support/testfolder.h"
#include "ui/aboutform.h"
#include "ui/boxcontrol.h"
#include "ui/form4.h"
#include "ui/helppage.h"
#include "ui/msgform.h"
#include "ui/programicon.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

const QColor Background(200, 210, 220);
const QColor Button(90, 120, 150);
const QColor DarkGrey(28, 28, 28);

quint32 packed(const QColor& c) {
    return packedColour(c);
}

// Every anchor name and every link target of the document, in document order.
struct PageLinks {
    QSet<QString> names;
    QStringList hrefs;
};
PageLinks pageLinks(const QTextDocument& document) {
    PageLinks links;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            for (const QString& name : format.anchorNames())
                links.names.insert(name);
            if (format.isAnchor() && !format.anchorHref().isEmpty())
                links.hrefs << format.anchorHref();
        }
    }
    return links;
}

// Clicks the first link to `href` that is in view, as the player would.
bool clickLink(QTextBrowser& browser, const QString& href) {
    const QTextDocument& document = *browser.document();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (fragment.charFormat().anchorHref() != href)
                continue;
            QTextCursor cursor(browser.document());
            cursor.setPosition(fragment.position() + 1);
            const QPoint at = browser.cursorRect(cursor).center();
            if (!browser.viewport()->rect().contains(at))
                continue;
            QTest::mouseClick(browser.viewport(), Qt::LeftButton, {}, at);
            return true;
        }
    }
    return false;
}

class HelpWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_help.setPagePath(shippedDataDir() + QStringLiteral("pentalink.htm"));
        m_help.setSchemeLook([this] { return m_look; });
    }

    void open() {
        m_help.show();
        m_help.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_help));
    }

    QTextBrowser& browser() { return *m_help.WebBrowser1(); }
    QString shown() { return browser().source().toString(); }
    int scroll() { return browser().verticalScrollBar()->value(); }

    SchemeLook m_look{packed(Background), packed(Button)};
    Form4 m_help;
};

TEST_F(HelpWindowTest, EveryInPageLinkOfTheHelpPageHasItsTarget) {
    open();
    const PageLinks links = pageLinks(*browser().document());
    QSet<QString> sections;
    for (const QString& href : links.hrefs) {
        if (!href.startsWith(u'#')) {
            EXPECT_TRUE(href.startsWith(QStringLiteral("http"))) << qPrintable(href);
            continue;
        }
        sections.insert(href.mid(1));
        EXPECT_TRUE(links.names.contains(href.mid(1))) << qPrintable(href);
    }
    // A table of contents: every section is reached by a link.
    EXPECT_GE(sections.size(), 12);
    for (const QString& name : links.names)
        EXPECT_TRUE(sections.contains(name) || name == QStringLiteral("top")) << qPrintable(name);
}

TEST_F(HelpWindowTest, BackAndForwardActOnlyInsideThePage) {
    open();
    const QString page = shown();
    ASSERT_FALSE(page.contains(u'#'));
    ASSERT_TRUE(clickLink(browser(), QStringLiteral("#dictionaries")));
    EXPECT_TRUE(shown().endsWith(QStringLiteral("#dictionaries")));
    EXPECT_GT(scroll(), 0);

    QTest::mouseClick(m_help.Command1(), Qt::LeftButton);
    EXPECT_EQ(shown(), page);
    EXPECT_EQ(scroll(), 0);
    // At the plain page Back does nothing, and so does Forward, although history lies ahead.
    for (QPushButton* button : {m_help.Command1(), m_help.Command2()}) {
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(shown(), page);
        EXPECT_EQ(browser().forwardHistoryCount(), 1);
    }

    // Between two anchors both work; the browser's own Alt+Left goes through the same rule.
    ASSERT_TRUE(clickLink(browser(), QStringLiteral("#game")));
    ASSERT_TRUE(clickLink(browser(), QStringLiteral("#contents")));
    QTest::keyClick(&browser(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(shown().endsWith(QStringLiteral("#game")));
    QTest::mouseClick(m_help.Command2(), Qt::LeftButton);
    EXPECT_TRUE(shown().endsWith(QStringLiteral("#contents")));
    QTest::mouseClick(m_help.Command1(), Qt::LeftButton);
    QTest::mouseClick(m_help.Command1(), Qt::LeftButton);
    EXPECT_EQ(shown(), page);
    QTest::keyClick(&browser(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shown(), page);
}

TEST_F(HelpWindowTest, EveryActivationShowsTheTopWithTheSchemeColours) {
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_help));
    EXPECT_EQ(m_help.palette().color(QPalette::Window), Background);
    for (QPushButton* button : {m_help.Command1(), m_help.Command2(), m_help.Command3()})
        EXPECT_EQ(button->palette().color(QPalette::Button), Button)
            << button->text().toStdString();

    ASSERT_TRUE(clickLink(browser(), QStringLiteral("#printing")));
    ASSERT_GT(scroll(), 0);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_GT(scroll(), 0); // leaving changes nothing
    m_look = {packed(Button), packed(Background)};
    m_help.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_help));
    EXPECT_FALSE(shown().contains(u'#'));
    EXPECT_EQ(scroll(), 0);
    EXPECT_EQ(m_help.palette().color(QPalette::Window), Button);
    EXPECT_EQ(m_help.Command3()->palette().color(QPalette::Button), Background);
    // The section visited before lies behind in the history, but from the plain page Back
    // never leaves it.
    ASSERT_GT(browser().backwardHistoryCount(), 0);
    QTest::mouseClick(m_help.Command1(), Qt::LeftButton);
    EXPECT_FALSE(shown().contains(u'#'));

    // Exit hides the window; showing it again starts at the top again.
    ASSERT_TRUE(clickLink(browser(), QStringLiteral("#keys")));
    QTest::mouseClick(m_help.Command3(), Qt::LeftButton);
    EXPECT_FALSE(m_help.isVisible());
    open();
    EXPECT_EQ(scroll(), 0);
}

TEST_F(HelpWindowTest, TheBrowserFollowsTheWindowSizeSkippingSizesThatCannotBeSet) {
    open();
    // Outer size = inner size + the frame (120 x 480 twips); the rule itself is in HelpRules.
    m_help.resize(Twips::toPixels(QSize(7880, 5520)));       // an 8000 x 6000 window
    EXPECT_EQ(browser().geometry(), QRect(2, 28, 525, 340)); // 7880 x 5100 twips
    m_help.resize(Twips::toPixels(QSize(1500, 300)));        // too low: the height stays
    EXPECT_EQ(browser().geometry(), QRect(2, 28, 100, 340));
}

class UrlRecorder : public QObject {
    Q_OBJECT
public:
    QList<QUrl> opened;
public Q_SLOTS:
    void open(const QUrl& url) { opened << url; }
};

TEST_F(HelpWindowTest, WebLinksGoToTheDesktopAndAHashInTheFolderNameIsNoAnchor) {
    TestFolder folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("games#1")));
    const QString page = folder.file(QStringLiteral("games#1/pentalink.htm"));
    QFile file(page);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<p><a href=\"https://example.org/words\">words</a> <a href=\"#end\">end</a></p>"
               "<p style=\"margin-top: 3000px\"><a name=\"end\"></a>The end</p>");
    file.close();
    m_help.setPagePath(page);
    UrlRecorder desktop;
    QDesktopServices::setUrlHandler(QStringLiteral("https"), &desktop, "open");
    open();
    EXPECT_EQ(browser().source().toLocalFile(), page);
    EXPECT_TRUE(browser().toPlainText().contains(QStringLiteral("The end")));

    ASSERT_TRUE(clickLink(browser(), QStringLiteral("https://example.org/words")));
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    EXPECT_EQ(desktop.opened, QList<QUrl>{QUrl(QStringLiteral("https://example.org/words"))});
    EXPECT_EQ(browser().source().toLocalFile(), page);
    EXPECT_EQ(browser().backwardHistoryCount(), 0);

    ASSERT_TRUE(clickLink(browser(), QStringLiteral("#end")));
    QTest::mouseClick(m_help.Command1(), Qt::LeftButton);
    EXPECT_EQ(browser().source().toLocalFile(), page);
    EXPECT_EQ(scroll(), 0);
}

// What the window shows for pages the browser cannot lay out at once (each refused before it
// reaches the browser, with the reason), and that a page is read once per change of its file.
TEST_F(HelpWindowTest, EveryPageIsBoundedAndLaidOutOncePerChangeOfTheFile) {
    TestFolder folder;
    const QString page = folder.file(QStringLiteral("pentalink.htm"));
    m_help.setPagePath(page);
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
        m_help.activated();
        EXPECT_TRUE(browser().toPlainText().contains(QString::fromLatin1(row.shown)))
            << browser().toPlainText().left(200).toStdString();
        // Shown again without a change of the file, the page is not laid out again.
        const int revision = browser().document()->revision();
        m_help.activated();
        EXPECT_EQ(browser().document()->revision(), revision);
    }
}

class AboutTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_about.setSchemeLook([this] { return m_look; });
    }
    void open() {
        m_about.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_about));
    }
    SchemeLook m_look{packed(Background), packed(Button)};
    AboutForm m_about;
};

TEST_F(AboutTest, TakesTheSchemeAtEveryShowingWithTheFixedDarkGreyText) {
    open();
    EXPECT_EQ(m_about.windowTitle(), QStringLiteral("About Pentalink"));
    EXPECT_EQ(m_about.size(), QSize(410, 177)); // 6150 x 2655 twips
    EXPECT_TRUE(m_about.AboutText()->toPlainText().contains(
        QStringLiteral("Place 5 4-letter words in a star grid")));
    EXPECT_EQ(m_about.Label1()->text(), QStringLiteral("Version 1.0"));
    EXPECT_EQ(m_about.aboutok()->Caption(), QStringLiteral("OK"));
    EXPECT_EQ(m_about.focusWidget(), m_about.aboutok());

    for (const auto& [background, button] :
         {std::pair{Background, Button}, std::pair{QColor(250, 240, 200), QColor(0, 90, 0)}}) {
        m_look = {packed(background), packed(button)};
        m_about.hide();
        open();
        EXPECT_EQ(m_about.palette().color(QPalette::Window), background);
        EXPECT_EQ(m_about.AboutText()->palette().color(QPalette::Base), background);
        EXPECT_EQ(m_about.AboutText()->palette().color(QPalette::Text), DarkGrey);
        EXPECT_EQ(m_about.aboutok()->BackColor(), packed(button));
        EXPECT_EQ(OleTranslateColor(m_about.aboutok()->ForeColor()), DarkGrey);
        EXPECT_EQ(m_about.Label1()->palette().color(QPalette::Window), button);
        EXPECT_EQ(m_about.Label1()->palette().color(QPalette::WindowText), DarkGrey);
        // What the player sees: the version line's ground between its words.
        const QImage picture = m_about.grab().toImage();
        EXPECT_EQ(QColor(picture.pixel(m_about.Label1()->geometry().topLeft() + QPoint(3, 3))),
                  button);
        EXPECT_EQ(QColor(picture.pixel(m_about.Image1()->geometry().center())), Qt::black);
    }
}

TEST_F(AboutTest, ClosesOnOkOnAPressOnTheTextAndOnEscape) {
    const std::function<void()> closers[] = {
        [this] { QTest::mouseClick(m_about.aboutok(), Qt::RightButton); },
        [this] { QTest::mousePress(m_about.AboutText()->viewport(), Qt::LeftButton); },
        [this] { QTest::mousePress(m_about.AboutText()->viewport(), Qt::MiddleButton); },
        [this] { QTest::keyClick(&m_about, Qt::Key_Escape); },
    };
    int i = 0;
    for (const auto& close : closers) {
        open();
        close();
        EXPECT_FALSE(m_about.isVisible()) << "closer " << i++;
    }
}

// The star's corners as the SVG of the icon theme lists them.
QPolygonF svgStar(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    QPolygonF star;
    while (xml.readNextStartElement() || !xml.atEnd()) {
        if (xml.isStartElement() && xml.name() == QStringLiteral("polygon")) {
            const QStringList pairs =
                xml.attributes().value(QStringLiteral("points")).toString().split(u' ');
            for (const QString& pair : pairs)
                star << QPointF(pair.section(u',', 0, 0).toDouble(),
                                pair.section(u',', 1, 1).toDouble());
        }
        xml.readNext();
    }
    return star;
}

TEST(ProgramIcon, ABlackStarInEverySizeTheSameAsTheThemeIconAndNoneOnTheMessageBox) {
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        SCOPED_TRACE(size);
        const QImage image = programIconImage(size);
        ASSERT_EQ(image.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);                         // corner: ground
        EXPECT_EQ(qAlpha(image.pixel(0, size - 1)), 0);                  // between the feet
        EXPECT_EQ(image.pixel(size / 2, size / 2), qRgba(0, 0, 0, 255)); // centre: star
        EXPECT_EQ(qAlpha(image.pixel(size / 2, size - 2)), 0);           // the notch at the bottom
    }
    const QPolygonF theme = svgStar(shippedDataDir() + QStringLiteral("icons/pentalink.svg"));
    const QPolygonF drawn = programStar(128);
    ASSERT_EQ(theme.size(), 10);
    ASSERT_EQ(drawn.size(), 10);
    for (int k = 0; k < 10; ++k) {
        EXPECT_NEAR(theme[k].x(), drawn[k].x(), 0.01) << k;
        EXPECT_NEAR(theme[k].y(), drawn[k].y(), 0.01) << k;
    }

    const Form4 help;
    const AboutForm about;
    const MsgForm message;
    const auto argb = [](const QImage& image) {
        return image.convertToFormat(QImage::Format_ARGB32);
    };
    const QImage star = argb(programIconImage(32));
    for (const QWidget* window :
         {static_cast<const QWidget*>(&help), static_cast<const QWidget*>(&about)}) {
        const QImage got = argb(window->windowIcon().pixmap(32).toImage());
        EXPECT_EQ(got, star) << window->windowTitle().toStdString();
    }
    const QImage none = message.windowIcon().pixmap(16).toImage();
    for (int y = 0; y < none.height(); ++y)
        for (int x = 0; x < none.width(); ++x)
            ASSERT_EQ(qAlpha(none.pixel(x, y)), 0) << x << "," << y;
}

} // namespace

#include "helpabout_test.moc"
