// The game on a real X server, where the offscreen platform hides faults: window titles as the
// window system reads them, drop-down menus as painted on the screen, clicks made by the server
// (xdotool), and the clipboard picture as another X client (xclip) reads it.
#include "windowfixture.h"

#include "app/appsetup.h"
#include "board/mainmenu.h"
#include "ui/aboutform.h"
#include "ui/form4.h"
#include "ui/olecolor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QScreen>

#include <algorithm>

namespace {

// Runs an X client program to its end, serving this program's events meanwhile (the program
// may ask for a selection this one owns), and returns what it printed.
QByteArray runTool(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

// A press and release of button 1 made by the server at a point of `widget`.
void serverClick(const QWidget* widget, const QPoint& local) {
    const QPoint at = widget->mapToGlobal(local);
    runTool("xdotool",
            {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
}

class X11Test : public WindowTest {
protected:
    void SetUp() override {
        ASSERT_EQ(QGuiApplication::platformName().toStdString(), "xcb");
        setUpApplication(); // the identity main() gives the program, which Qt may add to titles
    }
};

TEST_F(X11Test, TitlesAsTheWindowSystemShowsThem) {
    Form1& form = start();
    form.helpCommand();
    AboutForm about(&form);
    about.show();
    m_msgForm.show();
    const std::pair<QWidget*, const char*> windows[] = {{&form, "Pentalink  "},
                                                        {form.helpWindow(), "Pentalink Help"},
                                                        {&about, "About Pentalink"},
                                                        {&m_msgForm, "Pentalink"}};
    for (const auto& [window, title] : windows) { // _NET_WM_NAME as another X client reads it
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        const QString out =
            runTool("xprop", {"-id", QString::number(window->winId()), "_NET_WM_NAME"});
        EXPECT_EQ(out.toStdString(),
                  "_NET_WM_NAME(UTF8_STRING) = \"" + std::string(title) + "\"\n");
    }
}

TEST_F(X11Test, DropDownMenuIsPaintedInColour3) {
    Form1& form = start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QMenu* menu = form.menu().puzzleMenu;
    for (const char* scheme : {"xp.col", "dusk.col", "ocean.col"}) {
        SCOPED_TRACE(scheme);
        m_settings.ActiveSchemeFile = QString::fromLatin1(scheme);
        form.Command2Click();
        const QColor colour3 = OleTranslateColor(m_scheme.SchemeColours[3]);
        serverClick(form.menuBar(), form.menuBar()->actionGeometry(menu->menuAction()).center());
        ASSERT_TRUE(QTest::qWaitFor([menu] { return menu->isVisible(); }));
        QTest::qWait(100); // lets the menu's paint events run and reach the server
        // The menu's ground, the colour most of its pixels have, is exactly colour 3.
        const QImage shown =
            QGuiApplication::primaryScreen()->grabWindow(0).toImage().copy(menu->geometry());
        QHash<QRgb, int> counts;
        for (int n = 0; n < shown.width() * shown.height(); ++n)
            ++counts[shown.pixel(n % shown.width(), n / shown.width()) & 0xFFFFFF];
        const auto ground = std::max_element(counts.begin(), counts.end());
        EXPECT_EQ(QColor(ground.key()), colour3);
        EXPECT_GT(ground.value() * 2, shown.width() * shown.height());
        EXPECT_NE(QColor(shown.pixel(0, shown.height() / 2)), colour3); // a frame round it
        menu->hide();
        ASSERT_TRUE(QTest::qWaitFor([menu] { return !menu->isVisible(); }));
    }
}

TEST_F(X11Test, ClicksByTheServerAndTheClipboardPictureAsAnotherProgramReadsIt) {
    Form1& form = start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    serverClick(form.cmdcreate(), form.cmdcreate()->rect().center());
    ASSERT_TRUE(QTest::qWaitFor([this] { return grid().hasSolution(); }));
    serverClick(&form.boardView(), BoardView::toWidget(centreOf(BoardPart::Tile, 2))); // heck
    ASSERT_TRUE(QTest::qWaitFor([&] { return board().SelectedWord == 2; }));
    serverClick(&form.boardView(), BoardView::toWidget(centreOf(BoardPart::Marker, 7)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return board().tiles[2].status == TileStatus::Placed; }));
    form.menu().copyEntries[1]->trigger(); // the solution
    const QImage own = QGuiApplication::clipboard()->image();
    const QImage read = QImage::fromData(
        runTool(QStringLiteral("xclip"), {"-selection", "clipboard", "-t", "image/png", "-o"}),
        "PNG");
    EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32),
              own.convertToFormat(QImage::Format_RGB32));
}

} // namespace
