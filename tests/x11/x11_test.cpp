// The game on a real X server: window titles as the window system reads them, drop-down menus
// as painted on the screen, and clicks on a button, a tile and a marker made by the server
// (xdotool), not by QTest. The offscreen platform hides faults in all three: it adds nothing
// to titles and paints menus in no real window. The clipboard picture is read back by another
// X client (xclip).
#include "windowfixture.h"

#include "app/appsetup.h"
#include "board/mainmenu.h"
#include "ui/aboutform.h"
#include "ui/form4.h"
#include "ui/olecolor.h"

#include <QClipboard>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>

#include <algorithm>
#include <functional>

namespace {

// Lets events arrive from the server until `done` holds or three seconds have passed.
bool waitFor(const std::function<bool()>& done) {
    const QDeadlineTimer deadline(3000);
    while (!done() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return done();
}

// Runs an X client program to its end, serving this program's events meanwhile (the program
// may ask for a selection this one owns), and returns what it printed.
QByteArray runTool(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(waitFor([&process] { return process.state() == QProcess::NotRunning; }))
        << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0)
        << program.toStdString() << ": " << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

// A press and release of button 1 made by the server at a point of `widget`.
void serverClick(const QWidget* widget, const QPoint& local) {
    const QPoint at = widget->mapToGlobal(local);
    runTool(QStringLiteral("xdotool"),
            {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
}

// The window's _NET_WM_NAME as another X client reads it.
QString netWmName(const QWidget* window) {
    const QString out =
        runTool(QStringLiteral("xprop"), {"-id", QString::number(window->winId()), "_NET_WM_NAME"});
    const QRegularExpressionMatch m = QRegularExpression(R"re(= "(.*)"\s*$)re").match(out);
    return m.hasMatch() ? m.captured(1) : out;
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
    for (const auto& [window, title] : windows) {
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        EXPECT_EQ(netWmName(window).toStdString(), title);
    }
}

TEST_F(X11Test, DropDownMenuIsPaintedInColour3) {
    Form1& form = start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QMenuBar* bar = form.menuBar();
    QMenu* menu = form.menu().puzzleMenu;
    for (const char* scheme : {"xp.col", "dusk.col", "ocean.col"}) {
        SCOPED_TRACE(scheme);
        m_settings.ActiveSchemeFile = QString::fromLatin1(scheme);
        form.Command2Click();
        const QColor colour3 = OleTranslateColor(m_scheme.SchemeColours[3]);
        serverClick(bar, bar->actionGeometry(menu->menuAction()).center());
        ASSERT_TRUE(waitFor([menu] { return menu->isVisible(); }));
        QTest::qWait(100); // lets the menu's paint events run and reach the server
        // The menu's ground, the colour most of its pixels have, is exactly colour 3.
        const QRect area = menu->geometry();
        const QImage shown = QGuiApplication::primaryScreen()->grabWindow(0).toImage().copy(area);
        QHash<QRgb, int> counts;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x)
                ++counts[shown.pixel(x, y) & 0xFFFFFF];
        }
        const auto ground = std::max_element(counts.begin(), counts.end());
        EXPECT_EQ(QColor(ground.key()).name().toStdString(), colour3.name().toStdString());
        EXPECT_GT(ground.value() * 2, shown.width() * shown.height());
        EXPECT_NE(QColor(shown.pixel(0, shown.height() / 2)), colour3); // a frame round it
        menu->hide();
        ASSERT_TRUE(waitFor([menu] { return !menu->isVisible(); }));
    }
}

TEST_F(X11Test, ButtonTileAndMarkerClickedByTheServer) {
    Form1& form = start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    serverClick(form.cmdcreate(), form.cmdcreate()->rect().center());
    ASSERT_TRUE(waitFor([this] { return grid().hasSolution(); }));
    const int tile = 2; // heck, a word of the solution
    serverClick(&form.boardView(), BoardView::toWidget(centreOf(BoardPart::Tile, tile)));
    ASSERT_TRUE(waitFor([&] { return board().SelectedWord == tile; }));
    serverClick(&form.boardView(),
                BoardView::toWidget(centreOf(BoardPart::Marker, directionOf(tile))));
    EXPECT_TRUE(waitFor([&] { return board().tiles[tile].status == TileStatus::Placed; }));
}

TEST_F(X11Test, ClipboardPictureAsAnotherProgramReadsIt) {
    Form1& form = start();
    form.menu().create->trigger();
    ASSERT_TRUE(grid().hasSolution());
    for (const int entry : {0, 1}) {
        SCOPED_TRACE(entry);
        form.menu().copyEntries[static_cast<size_t>(entry)]->trigger();
        const QImage own = QGuiApplication::clipboard()->image();
        ASSERT_EQ(own.size(), QSize(304, 367));
        const QImage read = QImage::fromData(
            runTool(QStringLiteral("xclip"), {"-selection", "clipboard", "-t", "image/png", "-o"}),
            "PNG");
        EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32),
                  own.convertToFormat(QImage::Format_RGB32));
    }
}

} // namespace
