// The main window, headless: layout, menus, SetCol, start-up, Help, About, Exit and close box.
#include "windowfixture.h"

#include "support/fifowatch.h"

#include "app/appsetup.h"
#include "board/mainmenu.h"
#include "ui/aboutform.h"
#include "ui/fndialog.h"
#include "ui/form4.h"
#include "ui/olecolor.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QTextBrowser>
#include <QTimer>

namespace {

using Form1Test = WindowTest;

QColor background(const QWidget* w) {
    return w->palette().color(QPalette::Window);
}

TEST_F(Form1Test, LayoutAndFirstStart) {
    setUpApplication();
    Form1& form = start();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Pentalink  "));
    EXPECT_TRUE(QFileInfo::exists(shippedDataDir() + QStringLiteral("../packaging/") +
                                  QGuiApplication::desktopFileName() + QStringLiteral(".desktop")));
    // 5340 x 6135 twips; the board down to the status line.
    EXPECT_EQ(
        (QList<QRect>{form.centralWidget()->rect(), form.boardView().geometry(),
                      form.statusLine()->geometry(), form.cmdcreate()->geometry()}),
        (QList<QRect>{{0, 0, 356, 409}, {0, 0, 356, 382}, {2, 382, 259, 23}, {330, 382, 22, 22}}));
    EXPECT_EQ(form.cmdcreate()->toolTip(), QStringLiteral("Create a New Puzzle"));
    EXPECT_EQ(form.windowFlags() & (Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint),
              Qt::WindowMinimizeButtonHint);
    EXPECT_TRUE(m_folder.read(QStringLiteral("pentalink.cfg")).contains("\r\nENGLISH1.TXT\r\n"));
    EXPECT_EQ(form.statusLine()->text(), QStringLiteral("Dictionary: english1.txt (8 words)"));
    EXPECT_EQ(form.statusLine()->toolTip(), m_folder.file(QStringLiteral("english1.txt")));
}

TEST_F(Form1Test, MenuBarHasTheEntriesInOrderAndCreateAndLoadReachTheBoard) {
    Form1& form = start();
    QStringList captions;
    for (const QMenu* menu : {form.menu().fileMenu, form.menu().puzzleMenu, form.menu().copyMenu}) {
        captions << menu->title() + ":";
        for (const QAction* a : menu->actions())
            captions << (a->isSeparator() ? QStringLiteral("-")
                                          : (a->text() + " " + a->shortcut().toString()).trimmed());
    }
    EXPECT_EQ(
        captions.join(u' '),
        "File: Options Load a Dictionary Ctrl+O - Help F1 About - Exit Ctrl+Q - Cancel Puzzle: "
        "Create Ctrl+N Print Ctrl+P - Copy to Clipboard - Cancel Copy to Clipboard: Puzzle Ctrl+C "
        "Solution - Cancel");
    EXPECT_EQ(form.menuBar()->actions().size(), 2);
    form.menu().create->trigger();
    EXPECT_EQ(board().tiles[8].word, grid().CandidateWords[8]);
    m_folder.writeLines(QStringLiteral("seven.dic"), testwords::kSeven);
    FileNameRequest seen;
    form.filePicker().setRunner([&](const FileNameRequest& r) {
        seen = r;
        return m_folder.file(QStringLiteral("seven.dic"));
    });
    QTest::mouseClick(form.cmddict(), Qt::LeftButton);
    EXPECT_EQ(std::tuple(seen.title, seen.patterns, seen.startFolder, seen.save),
              std::tuple(QStringLiteral("Select a Dictionary file"), QStringList{"*.txt", "*.dic"},
                         m_folder.path(), false));
    EXPECT_EQ(form.statusLine()->text(), QStringLiteral("Dictionary: seven.dic (7 words)"));
    EXPECT_EQ(board().tiles[8], TileState{});
    form.menu().create->trigger();
    EXPECT_FALSE(board().tiles[8].enabled);
}

TEST_F(Form1Test, SetColPaintsSchemeColoursAndFontsAndFixedTextColoursOnADarkDesktop) {
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(30, 30, 30)));
    Form1& form = start();
    const auto colour = [this](int n) { return OleTranslateColor(m_scheme.SchemeColours[n]); };
    const auto text = [](const QWidget* w) {
        w->ensurePolished();
        return w->palette().color(QPalette::WindowText);
    };
    const BoardStyle& style = form.boardView().boardStyle();
    // Scheme colours 2, 3 and 4 where they belong; text colours fixed, whatever the desktop's.
    EXPECT_EQ((QList<QColor>{background(form.centralWidget()), style.ground, style.tileFace,
                             OleTranslateColor(form.cmdcreate()->BackColor()),
                             OleTranslateColor(m_msgForm.ButtonColor()), background(form.menuBar()),
                             style.text, style.letters, style.markers, text(form.statusLine()),
                             text(form.menuBar()), text(form.menu().fileMenu), style.idleMarkers,
                             style.light, style.shadow}),
              (QList<QColor>{colour(2), colour(2), colour(4), colour(4), colour(4), colour(3),
                             QColor(28, 28, 28), Qt::black, Qt::black, Qt::black, Qt::black,
                             Qt::black, QColor(190, 190, 190), Qt::white, QColor(159, 159, 159)}));
    EXPECT_EQ(style.letterFont, QFont(QStringLiteral("Arial"), 18, QFont::Bold));
    EXPECT_EQ(std::pair(style.tileFont.pointSize(), style.tileFont.bold()), std::pair(12, false));
    QApplication::setPalette(desktop);
    // "My Default.col" leaves the menu bar as it is; any other scheme paints it; same size.
    QApplication::processEvents();
    const QSize size = form.size();
    const QColor before = background(form.menuBar());
    m_scheme.SchemeColours[3] = 0x0000FF; // a red that would show
    m_settings.ActiveSchemeFile = QStringLiteral("My Default.col");
    form.SetCol();
    EXPECT_EQ(background(form.menuBar()), before);
    m_settings.ActiveSchemeFile = QStringLiteral("plain.col");
    form.SetCol();
    EXPECT_EQ(background(form.menuBar()), QColor(255, 0, 0));
    QApplication::processEvents();
    EXPECT_EQ(form.size(), size);
}

TEST_F(Form1Test, StartUpLoadStillHappensAfterACreateRequestBeforeTheFirstTick) {
    Form1& form = open();
    m_notifier.duringMessage = [this] { tickTimer1(); }; // falls while the message is open
    form.menu().create->trigger();
    m_notifier.duringMessage = {};
    EXPECT_EQ(m_notifier.texts(), QStringList{"No Dictioary Loaded"});
    ASSERT_TRUE(form.timer1().isActive());
    tickTimer1();
    EXPECT_EQ(form.session().WordList().ListCount(), 16);
}

// Start-up with FIFOs at the files' names: nothing may open them; each counts as missing.
TEST_F(Form1Test, StartUpWithoutSchemesOrDictionaryGoesOnAndEveryMessageHasTheNormalPointer) {
    const FifoWatch watch({m_folder.file("all.col"), m_folder.file("pentalink.cfg"),
                           m_folder.file("pentalink.htm"), m_folder.file("english1.txt")});
    QList<Qt::CursorShape> shapes;
    m_notifier.duringMessage = [&] {
        const QCursor* pointer = QApplication::overrideCursor();
        shapes << (pointer ? pointer->shape() : Qt::ArrowCursor);
    };
    Form1& form = start();
    form.menu().create->trigger();
    form.menu().help->trigger();
    m_notifier.duringMessage = {};
    ASSERT_EQ(m_notifier.texts().size(), 3);
    EXPECT_EQ(m_notifier.texts()[0], QStringLiteral("Colour Scheme: xp.col not found"));
    EXPECT_TRUE(m_notifier.texts()[1].startsWith(QStringLiteral("Unable to read")));
    EXPECT_EQ(m_notifier.texts()[2], QStringLiteral("No Dictioary Loaded"));
    EXPECT_EQ(shapes, QList<Qt::CursorShape>(3, Qt::ArrowCursor));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(form.boardView().boardStyle().tileFace,
              OleTranslateColor(ColourScheme::BuiltInXp[4])); // not black
    EXPECT_EQ(watch.opened(), 0);
}

TEST_F(Form1Test, HelpComesBackAboutWaitsInTheAppliedSchemeAndExitClosesBoth) {
    Form1& form = start();
    form.menu().help->trigger();
    Form4* help = form.helpWindow();
    EXPECT_EQ(help->WebBrowser1()->source().toLocalFile(), m_folder.file("pentalink.htm"));
    help->showMinimized();
    form.menu().help->trigger();
    EXPECT_FALSE(help->isMinimized());
    // Another scheme applied, then About: modal, in the new colours, closed by OK.
    m_settings.ActiveSchemeFile = QStringLiteral("ocean.col");
    form.Command2Click();
    QColor shown;
    QTimer::singleShot(0, &form, [&] {
        EXPECT_EQ(QApplication::activeModalWidget(), form.aboutWindow());
        shown = form.aboutWindow()->palette().color(QPalette::Window);
        QTest::mouseClick(form.aboutWindow()->aboutok(), Qt::LeftButton);
    });
    form.menu().about->trigger(); // returns once About has closed
    EXPECT_EQ(shown, OleTranslateColor(m_scheme.SchemeColours[2]));
    EXPECT_FALSE(form.aboutWindow()->isVisible());
    form.menu().help->trigger();
    m_notifier.queueAnswer(AnswerYes); // Exit asks, and closes help too
    form.menu().exit->trigger();
    EXPECT_EQ(m_notifier.messages().last().style, QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_FALSE(form.helpWindow()->isVisible());
}

TEST_F(Form1Test, CloseBoxEndsWithoutSavingEvenWithHelpOpenAndALoadRunning) {
    Form1& form = start();
    const QByteArray before = m_folder.read("pentalink.cfg");
    const auto loadDictionary = [&](const QString& name, const QStringList& lines) {
        m_folder.writeLines(name, lines);
        form.filePicker().setRunner(
            [=, this](const FileNameRequest&) { return m_folder.file(name); });
        form.menu().loadDictionary->trigger();
    };
    loadDictionary(QStringLiteral("other.dic"), {"abcd", "efgh"});
    form.menu().help->trigger();
    // The event loop ends with help up; the close box comes while a big load lets events run.
    EventPump& pump = form.session().eventPump();
    pump.setClock([t = qint64{0}]() mutable { return t += EventPump::kDefaultIntervalMs; });
    pump.setAction([&form] {
        form.close();
        QCoreApplication::processEvents();
    });
    QTimer::singleShot(0, &form, [&] { loadDictionary("big.dic", QStringList(100000, "wxyz")); });
    QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(m_folder.read("pentalink.cfg"), before);
    EXPECT_EQ(form.session().WordList().ListCount(), 4) << "the load stopped before the list";
    EXPECT_EQ(form.statusLine()->text(), QStringLiteral("Dictionary: other.dic (2 words)"));
}

TEST_F(Form1Test, CloseBoxOrExitDuringASearchAbandonsItAtOnceAndOnlyExitAsksAndSaves) {
    // Words of one "#" and three consonants hold no puzzle: a search tries all 6,000 roots.
    const QString c = QStringLiteral("bcdfghjklmnpqrstvwxz");
    QStringList lines;
    for (int n = 0; n < 3000; ++n)
        lines << QString(QString(c[n % 20]) + c[n / 20 % 20] + c[n / 400]).insert(n % 4, u'#');
    m_folder.writeLines(QStringLiteral("english1.txt"), lines);
    for (const bool exit : {false, true}) {
        SCOPED_TRACE(exit ? "Exit" : "close box");
        Form1& form = start();
        bool ended = false;
        int pollsAfterEnd = 0;
        EventPump& pump = form.session().eventPump();
        pump.setClock([t = qint64{0}]() mutable { return t += EventPump::kDefaultIntervalMs; });
        pump.setAction([&] {
            pollsAfterEnd += ended ? 1 : 0;
            QCoreApplication::processEvents();
        });
        const QByteArray config = m_folder.read("pentalink.cfg");
        m_notifier.queueAnswer(AnswerYes);
        QTimer::singleShot(0, &form, [&] {
            exit ? form.menu().exit->trigger() : void(form.close());
            ended = true;
        });
        form.menu().create->trigger();
        EXPECT_EQ(std::tuple(form.session().lastGeneration().abandoned, pollsAfterEnd,
                             m_notifier.messages().size(), form.session().WordList().ListCount()),
                  std::tuple(true, 0, 0, 6000));
        QCoreApplication::processEvents(); // Exit goes on from the event loop
        EXPECT_EQ(m_notifier.texts(), exit ? QStringList{"Exit?"} : QStringList());
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(m_folder.read("pentalink.cfg") != config, exit);
    }
}

} // namespace
