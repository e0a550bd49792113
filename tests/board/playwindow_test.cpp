// A whole game through real mouse events on the main window's widgets: create a puzzle, place
// the five solution words, show the solution, be congratulated, clear; plus a refused word and
// a removal that keeps the crossing letters. Grabs the board to PNGs along the way.
#include "board/form1.h"

#include "appearance/colourscheme.h"
#include "board/clicklabel.h"
#include "board/playboard.h"
#include "board/stararea.h"
#include "support/recordingnotifier.h"
#include "support/testfolder.h"
#include "ui/boxcontrol.h"
#include "ui/msgform.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

const QByteArray SmallDictionary = "sect\npeek\nheck\npoet\nhoes\nkeep\nhawk\nsmut\n";

class PlayWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_folder.copyShipped(QStringLiteral("all.col"));
        m_folder.write(QStringLiteral("english1.txt"), SmallDictionary);
        m_scheme.setNotifier(&m_notifier);
        m_form = std::make_unique<Form1>(m_settings, m_scheme, m_notifier, &m_msgForm);
        m_form->show();
        m_form->session().random().seed(1); // a shuffle that gives the puzzle
        m_form->timer1().stop();
        QMetaObject::invokeMethod(&m_form->timer1(), "timeout", Qt::DirectConnection);
        QTest::mouseClick(m_form->cmdcreate(), Qt::LeftButton);
        ASSERT_TRUE(grid().hasSolution());
    }

    const StarGrid& grid() const { return m_form->session().grid(); }

    // The tile showing `word`, or 0.
    int tileOf(const QString& word) const {
        for (int i = 1; i <= 8; ++i) {
            if (m_form->tile(i)->text() == word)
                return i;
        }
        return 0;
    }

    // The direction (1..10) along which the solution spells tile i's word, or 0 for a decoy.
    // (A decoy may spell a line backwards, as "keep" does for "peek".)
    int directionOf(int tile) const {
        if (grid().DecoyFlags[tile] == 1)
            return 0;
        for (int k = 1; k <= 10; ++k) {
            if (grid().solutionWord(k) == m_form->tile(tile)->text())
                return k;
        }
        return 0;
    }

    void click(QWidget* w, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(w, button);
    }

    QString cells() const {
        QString text;
        for (int c = 0; c < 10; ++c) {
            const QString letter = m_form->starArea().cell(c)->text();
            text += letter.isEmpty() ? QStringLiteral(".") : letter;
        }
        return text;
    }

    TestFolder m_folder;
    Settings m_settings;
    ColourScheme m_scheme{m_settings};
    RecordingNotifier m_notifier;
    MsgForm m_msgForm;
    std::unique_ptr<Form1> m_form;
};

TEST_F(PlayWindowTest, WholeGameWithTheMouse) {
    Form1& form = *m_form;
    QString solution;
    for (int p = 1; p <= 10; ++p)
        solution += grid().SolutionLetters[p];

    int placed = 0;
    for (int i = 1; i <= 8; ++i) {
        const int k = directionOf(i);
        if (k == 0)
            continue;
        click(form.tile(i), placed % 2 ? Qt::RightButton : Qt::LeftButton); // any button
        if (placed == 0) {
            EXPECT_EQ(form.tile(i)->frameShape(), QFrame::Box); // the selected, flat look
            form.grab().save(QStringLiteral("/tmp/pentalink-selected.png"));
        }
        click(form.starArea().marker(k));
        EXPECT_EQ(form.tile(i)->frameShape(), QFrame::Panel);
        EXPECT_NE(form.tile(i)->palette().color(QPalette::WindowText),
                  form.tile(i)->palette().color(QPalette::Window)); // faded, not invisible
        ++placed;
    }
    ASSERT_EQ(placed, 5);
    EXPECT_EQ(cells(), solution);
    form.grab().save(QStringLiteral("/tmp/pentalink-placed.png"));

    // Full board, but the check only runs once the solution button has been released.
    EXPECT_FALSE(form.timer2().isActive());
    QTest::mousePress(form.cmdshowsol(), Qt::LeftButton);
    int struck = 0;
    for (int i = 1; i <= 8; ++i)
        struck += form.tile(i)->font().strikeOut() ? 1 : 0;
    EXPECT_EQ(struck, 3);
    form.grab().save(QStringLiteral("/tmp/pentalink-solution.png"));
    QTest::mouseRelease(form.cmdshowsol(), Qt::LeftButton);
    for (int i = 1; i <= 8; ++i)
        EXPECT_FALSE(form.tile(i)->font().strikeOut());
    ASSERT_TRUE(form.timer2().isActive());
    EXPECT_EQ(form.timer2().interval(), 500);

    m_notifier.clear();
    QMetaObject::invokeMethod(&form.timer2(), "timeout", Qt::DirectConnection);
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("All Done!"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbhappy+vbok"));
    EXPECT_FALSE(form.timer2().isActive());

    m_notifier.queueAnswer(AnswerYes);
    click(form.cmdreset());
    EXPECT_EQ(m_notifier.messages().last().text, QStringLiteral("Clear all User Entries?"));
    EXPECT_EQ(cells(), QStringLiteral(".........."));
    for (int i = 1; i <= 8; ++i) {
        EXPECT_EQ(form.tile(i)->text(), grid().CandidateWords[i]);
        EXPECT_EQ(form.tile(i)->frameShape(), QFrame::Panel);
    }
}

TEST_F(PlayWindowTest, WordWhoseLettersDisagreeIsRefused) {
    Form1& form = *m_form;
    // Place one solution word, then try a decoy across it where a letter differs.
    int first = 0;
    for (int i = 1; i <= 8 && !first; ++i)
        first = directionOf(i) ? i : 0;
    click(form.tile(first));
    click(form.starArea().marker(directionOf(first)));
    const QString before = cells();

    for (int decoy = 1; decoy <= 8; ++decoy) {
        if (directionOf(decoy))
            continue;
        for (int k = 1; k <= 10; ++k) {
            const auto dirCells = grid().cellsOf(k);
            bool clash = false;
            for (int n = 0; n < 4; ++n) {
                const QString have = form.starArea().cell(dirCells[n])->text();
                clash |= !have.isEmpty() && have != form.tile(decoy)->text().mid(n, 1);
            }
            if (!clash)
                continue;
            click(form.tile(decoy));
            click(form.starArea().marker(k));
            EXPECT_EQ(cells(), before);
            EXPECT_EQ(form.tile(decoy)->frameShape(), QFrame::Box) << "the selection stays";
            EXPECT_EQ(grid().SelectedWord, decoy);
            return;
        }
    }
    FAIL() << "no clashing decoy placement in this puzzle";
}

TEST_F(PlayWindowTest, RemovingAWordKeepsTheCrossingLetters) {
    Form1& form = *m_form;
    // Place the words of the bar (cells 1-2-3-4) and of the line 0-2-5-8, which cross at 2.
    const auto placeLine = [&](int line) {
        for (int i = 1; i <= 8; ++i) {
            const int k = directionOf(i);
            if (k && (k == line || k == grid().reverseOf(line))) {
                click(form.tile(i));
                click(form.starArea().marker(k));
                return k;
            }
        }
        return 0;
    };
    const int bar = placeLine(3);
    ASSERT_NE(placeLine(1), 0);
    ASSERT_NE(bar, 0);
    const QString both = cells();
    const int barTile = form.board().markerTag(bar);

    click(form.starArea().marker(bar));
    QString expected = both;
    for (int c : {1, 3, 4})
        expected[c] = u'.';
    EXPECT_EQ(cells(), expected) << "only the crossing letter stays";
    EXPECT_EQ(grid().SelectedWord, barTile) << "the removed word becomes the selected word";
    EXPECT_EQ(form.tile(barTile)->frameShape(), QFrame::Panel);
    click(form.starArea().marker(bar));
    EXPECT_EQ(cells(), both);
}

TEST_F(PlayWindowTest, PointerIsACrosshairOverMarkersOnlyWithASelection) {
    Form1& form = *m_form;
    QTest::mouseMove(form.starArea().marker(1));
    QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), QPointF(3, 3), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(form.starArea().marker(1), &move);
    EXPECT_NE(form.cursor().shape(), Qt::CrossCursor);
    click(form.tile(1));
    ASSERT_EQ(grid().SelectedWord, 1);
    QApplication::sendEvent(form.starArea().marker(1), &move);
    EXPECT_EQ(form.cursor().shape(), Qt::CrossCursor);
    QApplication::sendEvent(form.tile(2), &move);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

} // namespace
