// The main window, headless: its fixed layout, the menu bar, SetCol, start-up with and
// without a configuration, the create and dictionary commands, Help and About, and Exit
// against the close box.
#include "windowfixture.h"

#include "board/mainmenu.h"
#include "ui/aboutform.h"
#include "ui/fndialog.h"
#include "ui/form4.h"
#include "ui/olecolor.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTextBrowser>
#include <QTimer>

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

TEST_F(Form1Test, ExitAsksThenSavesTheConfigurationAndClosesTheHelpWindowToo) {
    Form1& form = start();
    loadOtherDictionary();
    form.menu().mnuhelp->trigger();
    m_notifier.queueAnswer(AnswerNo);
    form.menu().cmdexitx->trigger();
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.helpWindow()->isVisible());
    EXPECT_EQ(m_notifier.messages().last().text, QStringLiteral("Exit?"));
    EXPECT_EQ(m_notifier.messages().last().style, QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_FALSE(m_folder.read("pentalink.cfg").contains("other.dic"));

    m_notifier.queueAnswer(AnswerYes);
    form.menu().cmdexitx->trigger();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.helpWindow()->isVisible());
    EXPECT_TRUE(m_folder.read("pentalink.cfg").contains(m_folder.file("other.dic").toUtf8()));
}

TEST_F(Form1Test, HelpOpensBesideTheGameAndAboutWaitsShowingTheAppliedScheme) {
    Form1& form = start();
    EXPECT_EQ(form.helpWindow(), nullptr); // created on first use
    form.menu().mnuhelp->trigger();
    Form4* help = form.helpWindow();
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->WebBrowser1()->source().toLocalFile(), m_folder.file("pentalink.htm"));
    // Modeless: the game goes on while help is open.
    form.menu().mnucreate->trigger();
    EXPECT_TRUE(form.session().grid().hasSolution());
    EXPECT_TRUE(help->isVisible());

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
    form.menu().mnuabout->trigger(); // returns once About has closed
    EXPECT_TRUE(modal);
    EXPECT_EQ(shownBackground, OleTranslateColor(m_scheme.SchemeColours[2]));
    EXPECT_NE(shownBackground, before);
    EXPECT_FALSE(form.aboutWindow()->isVisible());
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
