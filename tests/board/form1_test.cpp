// The main window, headless: its fixed layout, the menu bar, SetCol, start-up with and
// without a configuration, the create and dictionary commands, and Exit against the close box.
#include "windowfixture.h"

#include "board/mainmenu.h"
#include "ui/fndialog.h"
#include "ui/olecolor.h"

#include <QAction>
#include <QElapsedTimer>
#include <QMenu>
#include <QMenuBar>

#include <cstdio>

namespace {

class Form1Test : public WindowTest {
protected:
    static QColor background(const QWidget* w) { return w->palette().color(QPalette::Window); }

    // Makes the picker answer with a new dictionary other.dic and picks File, Load a Dictionary.
    void loadOtherDictionary() {
        m_folder.write(QStringLiteral("other.dic"), "abcd\nefgh\n");
        m_form->gf1().setRunner([&](const FileNameRequest&) { return m_folder.file("other.dic"); });
        m_form->menu().mnudict->trigger();
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
        m_form->gf1().setRunner(
            [&](const FileNameRequest&) { return m_folder.file("nopuzzle.txt"); });
        m_form->menu().mnudict->trigger();
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
    Form1& form = start();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Pentalink  "));
    EXPECT_EQ(form.centralWidget()->size(), QSize(356, 409)); // 5340 x 6135 twips
    EXPECT_EQ(form.starArea().geometry(), QRect(2, 4, 351, 317));
    EXPECT_EQ(form.starArea().cell(0)->geometry(), QRect(158, 16, 31, 31));
    EXPECT_EQ(form.starArea().cell(7)->geometry(), QRect(156, 216, 31, 31));
    EXPECT_EQ(form.starArea().marker(1)->geometry(), QRect(152, 62, 23, 25));
    EXPECT_EQ(form.starArea().marker(10)->geometry(), QRect(212, 260, 23, 25));
    EXPECT_EQ(form.tile(2)->geometry(), QRect(92, 326, 80, 25)); // 1385 twips rounds to 92
    EXPECT_EQ(form.tile(8)->geometry(), QRect(273, 354, 80, 25));
    EXPECT_EQ(form.statusLine()->geometry(), QRect(2, 382, 259, 23));
    EXPECT_EQ(form.cmdcreate()->geometry(), QRect(330, 382, 22, 22));
    EXPECT_EQ(form.cmddict()->toolTip(), QStringLiteral("Open a Dictionary File"));
    EXPECT_EQ(form.cmdshowsol()->toolTip(), QStringLiteral("Show Solution"));
    EXPECT_EQ(form.cmdreset()->toolTip(), QStringLiteral("Clear User Entries"));
    EXPECT_EQ(form.cmdcreate()->toolTip(), QStringLiteral("Create a New Puzzle"));
    for (int k = 1; k <= 10; ++k)
        EXPECT_EQ(form.starArea().marker(k)->text(), QStringLiteral("O"));
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
    EXPECT_EQ(captions(form.menu().mnumain),
              (QStringList{"Options", "Load a Dictionary", "-", "Help", "About", "-", "Exit", "-",
                           "Cancel"}));
    EXPECT_EQ(captions(form.menu().mnudictx),
              (QStringList{"Create", "Print", "-", "Copy to Clipboard", "-", "Cancel"}));
    EXPECT_EQ(captions(form.menu().mnucopy2clip),
              (QStringList{"Puzzle", "Solution", "-", "Cancel"}));
    m_notifier.clear();
    for (QAction* cancel : {form.menu().can1, form.menu().can6, form.menu().mnu2clip[3]})
        cancel->trigger();
    EXPECT_TRUE(m_notifier.messages().isEmpty());
    form.menu().mnucreate->trigger();
    EXPECT_TRUE(form.session().grid().hasSolution());
}

TEST_F(Form1Test, SetColPaintsSchemeColoursAndFonts) {
    Form1& form = start();
    const QColor colour2 = OleTranslateColor(m_scheme.SchemeColours[2]);
    const QColor colour4 = OleTranslateColor(m_scheme.SchemeColours[4]);
    EXPECT_EQ(background(form.centralWidget()), colour2);
    EXPECT_EQ(background(&form.starArea()), colour2);
    EXPECT_EQ(background(form.starArea().cell(3)), colour2);
    EXPECT_EQ(background(form.tile(5)), colour4);
    EXPECT_EQ(form.cmdcreate()->BackColor(), m_scheme.SchemeColours[4]);
    const QFont cellFont = form.starArea().cell(0)->font();
    EXPECT_TRUE(cellFont.bold());
    EXPECT_EQ(cellFont.pointSize(), 18);
    EXPECT_EQ(cellFont.family(), QStringLiteral("Arial"));
    EXPECT_EQ(form.tile(1)->font().pointSize(), 12);
    EXPECT_FALSE(form.tile(1)->font().bold());
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
}

TEST_F(Form1Test, DictionaryCommandAsksThePickerAndLoadsTheChoice) {
    Form1& form = start();
    m_folder.write(QStringLiteral("other.dic"), "abcd\nefgh\n");
    FileNameRequest seen;
    form.gf1().setRunner([&](const FileNameRequest& r) {
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

TEST_F(Form1Test, ExitAsksThenSavesTheConfigurationAndCloses) {
    Form1& form = start();
    loadOtherDictionary();
    m_notifier.queueAnswer(AnswerNo);
    form.menu().cmdexitx->trigger();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(m_notifier.messages().last().text, QStringLiteral("Exit?"));
    EXPECT_EQ(m_notifier.messages().last().style, QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_FALSE(m_folder.read("pentalink.cfg").contains("other.dic"));

    m_notifier.queueAnswer(AnswerYes);
    form.menu().cmdexitx->trigger();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(m_folder.read("pentalink.cfg").contains(m_folder.file("other.dic").toUtf8()));
}

TEST_F(Form1Test, CloseBoxEndsWithoutSaving) {
    Form1& form = start();
    const QByteArray before = m_folder.read("pentalink.cfg");
    loadOtherDictionary();
    form.close();
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
    form.menu().mnucreate->trigger();
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
        form.menu().cmdexitx->trigger();
        closed = true;
    });
    form.menu().mnucreate->trigger();
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
