// The main window, headless: its fixed layout, the menu bar, SetCol, start-up with and
// without a configuration, the create and dictionary commands, Help and About, and Exit
// against the close box.
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
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QTextBrowser>
#include <QTimer>

#include <cstdio>

namespace {

class Form1Test : public WindowTest {
protected:
    static QColor background(const QWidget* w) { return w->palette().color(QPalette::Window); }

    // Makes the picker answer with a new dictionary other.dic and picks File, Load a Dictionary.
    void loadOtherDictionary() {
        m_folder.write(QStringLiteral("other.dic"), "abcd\nefgh\n");
        m_form->filePicker().setRunner(
            [&](const FileNameRequest&) { return m_folder.file("other.dic"); });
        m_form->menu().loadDictionary->trigger();
    }

    // Picks, through the dictionary command, a dictionary of 3,000 lines (one "#" and three
    // consonants each) that holds no puzzle: every line of a star would need its one "#" cell,
    // and five lines cannot share cells two by two. A full search tries all 6,000 roots.
    // Every poll of the search then lets events run, and the polls after `closedAt` is set are
    // counted in `pollsAfterClose`.
    void pickNoPuzzleDictionary(const bool& closed, int& pollsAfterClose) {
        const QString consonants = QStringLiteral("bcdfghjklmnpqrstvwxz");
        QStringList lines;
        for (int n = 0; lines.size() < 3000; ++n) {
            QString w;
            for (int k = 0; k < 3; ++k)
                w += consonants[(n / (k == 0 ? 1 : k == 1 ? 20 : 400)) % 20];
            lines << w.insert(n % 4, u'#');
        }
        m_folder.write(QStringLiteral("nopuzzle.txt"), lines.join(u'\n').toUtf8());
        m_form->filePicker().setRunner(
            [&](const FileNameRequest&) { return m_folder.file("nopuzzle.txt"); });
        m_form->menu().loadDictionary->trigger();
        ASSERT_EQ(m_form->session().WordList().ListCount(), 6000);
        EventPump& pump = m_form->session().eventPump();
        pump.setClock([t = qint64{0}]() mutable { return t += EventPump::kDefaultIntervalMs; });
        pump.setAction([&] {
            if (closed)
                ++pollsAfterClose;
            QCoreApplication::processEvents();
        });
    }
};

TEST_F(Form1Test, LayoutMatchesTheFixedTablesInPixels) {
    setUpApplication();
    Form1& form = start();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Pentalink  "));
    // X11 and Wayland append a display name to every title; the program sets none (the name
    // stands in for it then).
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationName());
    // Docks and task switchers match the windows with the desktop entry the install ships.
    EXPECT_TRUE(QFileInfo::exists(shippedDataDir() + QStringLiteral("../packaging/") +
                                  QGuiApplication::desktopFileName() + QStringLiteral(".desktop")))
        << QGuiApplication::desktopFileName().toStdString();
    EXPECT_EQ(form.centralWidget()->size(), QSize(356, 409));      // 5340 x 6135 twips
    EXPECT_EQ(form.boardView().geometry(), QRect(0, 0, 356, 382)); // down to the status line
    EXPECT_EQ(form.statusLine()->geometry(), QRect(2, 382, 259, 23));
    EXPECT_EQ(form.cmdcreate()->geometry(), QRect(330, 382, 22, 22));
    EXPECT_EQ(form.cmddict()->toolTip(), QStringLiteral("Open a Dictionary File"));
    EXPECT_EQ(form.cmdshowsol()->toolTip(), QStringLiteral("Show Solution"));
    EXPECT_EQ(form.cmdreset()->toolTip(), QStringLiteral("Clear User Entries"));
    EXPECT_EQ(form.cmdcreate()->toolTip(), QStringLiteral("Create a New Puzzle"));
    EXPECT_FALSE(form.windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_TRUE(form.windowFlags() & Qt::WindowMinimizeButtonHint);
}

TEST_F(Form1Test, MenuBarHasTheEntriesInOrderCancelDoesNothingAndCreateCreates) {
    Form1& form = start();
    const auto captions = [](const QMenu* menu) {
        QStringList list;
        for (const QAction* a : menu->actions())
            list << (a->isSeparator() ? QStringLiteral("-") : a->text());
        return list;
    };
    const QList<QAction*> bar = form.menuBar()->actions();
    ASSERT_EQ(bar.size(), 2);
    EXPECT_EQ(bar[0]->text(), QStringLiteral("File"));
    EXPECT_EQ(bar[1]->text(), QStringLiteral("Puzzle"));
    EXPECT_EQ(captions(form.menu().fileMenu),
              (QStringList{"Options", "Load a Dictionary", "-", "Help", "About", "-", "Exit", "-",
                           "Cancel"}));
    EXPECT_EQ(captions(form.menu().puzzleMenu),
              (QStringList{"Create", "Print", "-", "Copy to Clipboard", "-", "Cancel"}));
    // The historic names stay the object names.
    EXPECT_EQ(form.menuBar()->findChild<QMenu*>(QStringLiteral("mnudictx")),
              form.menu().puzzleMenu);
    EXPECT_EQ(form.findChild<QAction*>(QStringLiteral("mnu2clip1")), form.menu().copyEntries[1]);
    EXPECT_EQ(captions(form.menu().copyMenu), (QStringList{"Puzzle", "Solution", "-", "Cancel"}));
    m_notifier.clear();
    for (QAction* cancel :
         {form.menu().fileCancel, form.menu().puzzleCancel, form.menu().copyEntries[3]})
        cancel->trigger();
    EXPECT_TRUE(m_notifier.messages().isEmpty());
    form.menu().create->trigger();
    EXPECT_TRUE(form.session().grid().hasSolution());
}

TEST_F(Form1Test, SetColPaintsSchemeColoursAndFonts) {
    Form1& form = start();
    const QColor colour2 = OleTranslateColor(m_scheme.SchemeColours[2]);
    const QColor colour4 = OleTranslateColor(m_scheme.SchemeColours[4]);
    EXPECT_EQ(background(form.centralWidget()), colour2);
    const BoardStyle& style = form.boardView().boardStyle();
    EXPECT_EQ(style.ground, colour2);
    EXPECT_EQ(style.tileFace, colour4);
    EXPECT_EQ(style.text, QColor(28, 28, 28));
    EXPECT_EQ(form.cmdcreate()->BackColor(), m_scheme.SchemeColours[4]);
    EXPECT_TRUE(style.letterFont.bold());
    EXPECT_EQ(style.letterFont.pointSize(), 18);
    EXPECT_EQ(style.letterFont.family(), QStringLiteral("Arial"));
    EXPECT_EQ(style.tileFont.pointSize(), 12);
    EXPECT_FALSE(style.tileFont.bold());
    EXPECT_EQ(background(form.menuBar()), OleTranslateColor(m_scheme.SchemeColours[3]));
    EXPECT_EQ(OleTranslateColor(m_msgForm.ButtonColor()), colour4);

    // "My Default.col" leaves the menu bar as it is; any other scheme paints it.
    const QColor before = background(form.menuBar());
    m_scheme.SchemeColours[3] = 0x0000FF; // a red that would show
    m_settings.ActiveSchemeFile = QStringLiteral("My Default.col");
    form.SetCol();
    EXPECT_EQ(background(form.menuBar()), before);
    m_settings.ActiveSchemeFile = QStringLiteral("plain.col");
    form.SetCol();
    EXPECT_EQ(background(form.menuBar()), QColor(255, 0, 0));
}

TEST_F(Form1Test, DropDownMenusShowColour3Exactly) {
    Form1& form = start();
    for (const char* scheme : {"xp.col", "dusk.col", "ocean.col"}) {
        SCOPED_TRACE(scheme);
        m_settings.ActiveSchemeFile = QString::fromLatin1(scheme);
        form.Command2Click();
        const QColor colour3 = OleTranslateColor(m_scheme.SchemeColours[3]);
        for (QAction* entry :
             {form.menu().loadDictionary, form.menu().create, form.menu().copyEntries[1]}) {
            auto* menu = qobject_cast<QMenu*>(entry->parent());
            ASSERT_NE(menu, nullptr);
            menu->popup(QPoint(0, 0));
            const QImage image = menu->grab().toImage();
            const QRect item = menu->actionGeometry(entry);
            EXPECT_EQ(QColor(image.pixel(item.right() - 2, item.center().y())), colour3)
                << entry->text().toStdString();
            menu->hide();
        }
    }
}

TEST_F(Form1Test, FixedTextColoursIgnoreADarkDesktopPalette) {
    const QPalette desktop = QApplication::palette();
    QPalette dark = desktop;
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        dark.setColor(role, QColor(30, 30, 30));
    QApplication::setPalette(dark);
    Form1& form = start();
    const auto text = [](const QWidget* w) {
        w->ensurePolished();
        return w->palette().color(QPalette::WindowText);
    };
    const BoardStyle& style = form.boardView().boardStyle();
    EXPECT_EQ(style.letters, QColor(Qt::black));
    EXPECT_EQ(style.markers, QColor(Qt::black));
    EXPECT_EQ(style.text, QColor(28, 28, 28));
    EXPECT_EQ(text(form.statusLine()), QColor(Qt::black));
    EXPECT_EQ(text(form.menuBar()), QColor(Qt::black));
    EXPECT_EQ(text(form.menu().fileMenu), QColor(Qt::black));
    QApplication::setPalette(desktop);
}

TEST_F(Form1Test, StartUpLoadStillHappensAfterACreateRequestBeforeTheFirstTick) {
    Form1& form = open();
    // The tick falls while "No Dictioary Loaded" is open.
    m_notifier.duringMessage = [this] { tickTimer1(); };
    form.menu().create->trigger();
    m_notifier.duringMessage = {};
    EXPECT_EQ(m_notifier.texts(), QStringList{"No Dictioary Loaded"});
    ASSERT_TRUE(form.timer1().isActive());
    tickTimer1();
    EXPECT_EQ(form.session().WordList().ListCount(), 16);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Form1Test, NormalPointerShowsWhileAnyMessageIsOpen) {
    QFile::remove(m_folder.file(QStringLiteral("english1.txt")));
    QList<Qt::CursorShape> shapes;
    m_notifier.duringMessage = [&] {
        const QCursor* pointer = QApplication::overrideCursor();
        shapes << (pointer ? pointer->shape() : Qt::ArrowCursor);
    };
    Form1& form = start(); // the start-up load fails with a message
    form.menu().create->trigger();
    m_notifier.duringMessage = {};
    ASSERT_EQ(m_notifier.texts().size(), 2);
    EXPECT_TRUE(m_notifier.texts().at(0).startsWith(QStringLiteral("Unable to read")));
    EXPECT_EQ(shapes, QList<Qt::CursorShape>(2, Qt::ArrowCursor));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Form1Test, FirstStartWritesTheConfigurationAndLoadsTheDictionary) {
    Form1& form = start();
    EXPECT_TRUE(m_folder.read(QStringLiteral("pentalink.cfg")).contains("\r\nENGLISH1.TXT\r\n"));
    EXPECT_EQ(form.statusLine()->text(), QStringLiteral("Dictionary: english1.txt (8 words)"));
    EXPECT_EQ(form.statusLine()->toolTip(), m_folder.file(QStringLiteral("english1.txt")));
    EXPECT_EQ(form.session().WordList().ListCount(), 16);
}

TEST_F(Form1Test, MissingSchemeCollectionIsReportedAndStartUpGoesOn) {
    QFile::remove(m_folder.file(QStringLiteral("all.col")));
    Form1& form = start();
    ASSERT_FALSE(m_notifier.messages().isEmpty());
    EXPECT_EQ(m_notifier.messages().first().text,
              QStringLiteral("Colour Scheme: xp.col not found"));
    EXPECT_EQ(form.session().WordList().ListCount(), 16);
    // The window still paints in the built-in xp colours, not black.
    EXPECT_EQ(form.boardView().boardStyle().ground, OleTranslateColor(ColourScheme::BuiltInXp[2]));
    EXPECT_EQ(form.boardView().boardStyle().tileFace,
              OleTranslateColor(ColourScheme::BuiltInXp[4]));
}

// A FIFO at each of the program's file names: nothing opens one (the window thread would
// wait for a writer for ever); each counts as missing or damaged, as its own rules say.
TEST_F(Form1Test, FifosAtEveryFileNameAreNeverOpenedAndStartUpAndHelpGoOn) {
    const FifoWatch fifos({m_folder.file("all.col"), m_folder.file("pentalink.cfg"),
                           m_folder.file("pentalink.htm"), m_folder.file("english1.txt")});
    ASSERT_TRUE(fifos.made());
    Form1& form = start();
    form.menu().help->trigger();
    EXPECT_EQ(fifos.opened(), 0);
    EXPECT_EQ(m_notifier.messages().value(0).text,
              QStringLiteral("Colour Scheme: xp.col not found"));
    EXPECT_EQ(form.session().WordList().ListCount(), 0);
    EXPECT_TRUE(form.helpWindow()->WebBrowser1()->toPlainText().contains(
        QStringLiteral("is not shown: it is not a regular file")));
}

TEST_F(Form1Test, DictionaryCommandAsksThePickerAndLoadsTheChoice) {
    Form1& form = start();
    m_folder.write(QStringLiteral("other.dic"), "abcd\nefgh\n");
    FileNameRequest seen;
    form.filePicker().setRunner([&](const FileNameRequest& r) {
        seen = r;
        return m_folder.file(QStringLiteral("other.dic"));
    });
    const QString cwd = QDir::currentPath();
    QTest::mouseClick(form.cmddict(), Qt::LeftButton);
    EXPECT_EQ(seen.title, QStringLiteral("Select a Dictionary file"));
    EXPECT_EQ(seen.patterns, (QStringList{"*.txt", "*.dic"}));
    EXPECT_EQ(seen.startFolder, m_folder.path());
    EXPECT_FALSE(seen.save);
    EXPECT_EQ(QDir::currentPath(), cwd);
    EXPECT_EQ(form.statusLine()->text(), QStringLiteral("Dictionary: other.dic (2 words)"));
    EXPECT_EQ(form.session().WordList().ListCount(), 4);
}

TEST_F(Form1Test, ExitAsksThenSavesTheConfigurationAndClosesTheHelpWindowToo) {
    Form1& form = start();
    loadOtherDictionary();
    form.menu().help->trigger();
    m_notifier.queueAnswer(AnswerNo);
    form.menu().exit->trigger();
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.helpWindow()->isVisible());
    EXPECT_EQ(m_notifier.messages().last().text, QStringLiteral("Exit?"));
    EXPECT_EQ(m_notifier.messages().last().style, QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_FALSE(m_folder.read("pentalink.cfg").contains("other.dic"));

    m_notifier.queueAnswer(AnswerYes);
    form.menu().exit->trigger();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.helpWindow()->isVisible());
    EXPECT_TRUE(m_folder.read("pentalink.cfg").contains(m_folder.file("other.dic").toUtf8()));
}

TEST_F(Form1Test, HelpOpensBesideTheGameAndAboutWaitsShowingTheAppliedScheme) {
    Form1& form = start();
    EXPECT_EQ(form.helpWindow(), nullptr); // created on first use
    form.menu().help->trigger();
    Form4* help = form.helpWindow();
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->WebBrowser1()->source().toLocalFile(), m_folder.file("pentalink.htm"));
    // Modeless: the game goes on while help is open.
    form.menu().create->trigger();
    EXPECT_TRUE(form.session().grid().hasSolution());
    EXPECT_TRUE(help->isVisible());
    help->showMinimized();
    form.menu().help->trigger();
    EXPECT_FALSE(help->isMinimized());

    // Another scheme applied, then About: modal, in the new colours, closed by OK.
    const QColor before = OleTranslateColor(m_scheme.SchemeColours[2]);
    m_settings.ActiveSchemeFile = QStringLiteral("ocean.col");
    form.Command2Click();
    QColor shownBackground;
    bool modal = false;
    QTimer::singleShot(0, &form, [&] {
        AboutForm* about = form.aboutWindow();
        ASSERT_NE(about, nullptr);
        modal = QApplication::activeModalWidget() == about;
        shownBackground = about->palette().color(QPalette::Window);
        QTest::mouseClick(about->aboutok(), Qt::LeftButton);
    });
    form.menu().about->trigger(); // returns once About has closed
    EXPECT_TRUE(modal);
    EXPECT_EQ(shownBackground, OleTranslateColor(m_scheme.SchemeColours[2]));
    EXPECT_NE(shownBackground, before);
    EXPECT_FALSE(form.aboutWindow()->isVisible());
}

TEST_F(Form1Test, CloseBoxEndsWithoutSavingEvenWithHelpOpen) {
    Form1& form = start();
    const QByteArray before = m_folder.read("pentalink.cfg");
    loadOtherDictionary();
    form.menu().help->trigger();
    // The program's own event loop must end although the help window is still up.
    QTimer::singleShot(0, &form, &QWidget::close);
    QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(m_folder.read("pentalink.cfg"), before);
}

} // namespace

namespace {

TEST_F(Form1Test, CloseBoxDuringASearchAbandonsItAtOnceWithoutSaving) {
    Form1& form = start();
    bool closed = false;
    int pollsAfterClose = 0;
    pickNoPuzzleDictionary(closed, pollsAfterClose);
    const QByteArray config = m_folder.read("pentalink.cfg");
    m_notifier.clear();
    // The close box is clicked while the search lets events run.
    QTimer::singleShot(0, &form, [&] {
        form.close();
        closed = true;
    });
    QElapsedTimer clock;
    clock.start();
    form.menu().create->trigger();
    std::printf("[ info     ] the create command returned %lld ms after it started\n",
                static_cast<long long>(clock.elapsed()));
    EXPECT_TRUE(closed);
    EXPECT_TRUE(form.session().lastGeneration().abandoned);
    EXPECT_EQ(pollsAfterClose, 0) << "the search should stop at the poll that ran the close";
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(m_notifier.messages().isEmpty()) << "no failure message, no question";
    EXPECT_EQ(form.session().WordList().ListCount(), 6000) << "no reload, nothing removed";
    EXPECT_EQ(m_folder.read("pentalink.cfg"), config);
}

TEST_F(Form1Test, ExitDuringASearchAbandonsItThenAsksSavesAndEnds) {
    Form1& form = start();
    bool closed = false;
    int pollsAfterClose = 0;
    pickNoPuzzleDictionary(closed, pollsAfterClose);
    m_notifier.clear();
    m_notifier.queueAnswer(AnswerYes);
    QTimer::singleShot(0, &form, [&] {
        form.menu().exit->trigger();
        closed = true;
    });
    form.menu().create->trigger();
    EXPECT_TRUE(form.session().lastGeneration().abandoned);
    EXPECT_EQ(pollsAfterClose, 0);
    EXPECT_TRUE(m_notifier.messages().isEmpty()) << "the question comes after the search";
    QCoreApplication::processEvents(); // the event loop takes the Exit command up again
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages().first().text, QStringLiteral("Exit?"));
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(m_folder.read("pentalink.cfg").contains(m_folder.file("nopuzzle.txt").toUtf8()));
}

} // namespace
