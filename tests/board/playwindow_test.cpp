// A whole game through real mouse events on the main window's widgets: create a puzzle, place
// the five solution words, show the solution, be congratulated, clear; and the pointer over
// the markers. Grabs the board to PNGs along the way.
#include "windowfixture.h"

#include "board/mainmenu.h"
#include "board/playboard.h"

#include <QAction>
#include <QApplication>
#include <QMouseEvent>

namespace {

class PlayWindowTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        start();
        QTest::mouseClick(m_form->cmdcreate(), Qt::LeftButton);
        ASSERT_TRUE(grid().hasSolution());
        ASSERT_TRUE(m_notifier.messages().isEmpty());
    }

    const StarGrid& grid() const { return m_form->session().grid(); }

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

    QString cells() const {
        QString text;
        for (int c = 0; c < 10; ++c) {
            const QString letter = m_form->starArea().cell(c)->text();
            text += letter.isEmpty() ? QStringLiteral(".") : letter;
        }
        return text;
    }
};

TEST_F(PlayWindowTest, WholeGameWithTheMouse) {
    Form1& form = *m_form;
    QString solution;
    for (int p = 1; p <= 10; ++p)
        solution += grid().SolutionLetters[p];

    int placed = 0;
    for (int i = 1; i <= 8; ++i) {
        EXPECT_EQ(form.tile(i)->text(), grid().CandidateWords[i]);
        const int k = directionOf(i);
        if (k == 0)
            continue;
        // Any mouse button selects.
        QTest::mouseClick(form.tile(i), placed % 2 ? Qt::RightButton : Qt::LeftButton);
        if (placed == 0) {
            EXPECT_EQ(form.tile(i)->frameShape(), QFrame::Box); // the selected, flat look
            form.grab().save(QStringLiteral("/tmp/pentalink-selected.png"));
        }
        QTest::mouseClick(form.starArea().marker(k), Qt::LeftButton);
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

    QMetaObject::invokeMethod(&form.timer2(), "timeout", Qt::DirectConnection);
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("All Done!"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbhappy+vbok"));
    EXPECT_FALSE(form.timer2().isActive());

    m_notifier.queueAnswer(AnswerYes);
    QTest::mouseClick(form.cmdreset(), Qt::LeftButton);
    EXPECT_EQ(m_notifier.messages().last().text, QStringLiteral("Clear all User Entries?"));
    EXPECT_EQ(cells(), QStringLiteral(".........."));
    for (int i = 1; i <= 8; ++i) {
        EXPECT_EQ(form.tile(i)->text(), grid().CandidateWords[i]);
        EXPECT_EQ(form.tile(i)->frameShape(), QFrame::Panel);
    }
}

TEST_F(PlayWindowTest, CompletionTickWaitsWhileExitOrASchemeMessageIsOpen) {
    Form1& form = *m_form;
    for (int i = 1; i <= 8; ++i) {
        if (const int k = directionOf(i)) {
            form.board().apply(Move::tile(i));
            form.board().apply(Move::marker(k));
        }
    }
    form.board().apply(Move::solutionPress());
    form.board().apply(Move::solutionRelease());
    ASSERT_TRUE(form.timer2().isActive());
    const auto tick = [&form] {
        QMetaObject::invokeMethod(&form.timer2(), "timeout", Qt::DirectConnection);
    };
    m_notifier.duringMessage = tick;
    m_notifier.queueAnswer(AnswerNo);
    form.menu().cmdexitx->trigger();
    m_settings.ActiveSchemeFile = QStringLiteral("gone.col");
    form.Command2Click();
    m_notifier.duringMessage = {};
    EXPECT_EQ(m_notifier.texts(), QStringList({"Exit?", "Colour Scheme: gone.col not found"}));
    tick();
    EXPECT_EQ(m_notifier.texts().last(), QStringLiteral("All Done!"));
}

TEST_F(PlayWindowTest, PointerIsACrosshairOverMarkersOnlyWithASelection) {
    Form1& form = *m_form;
    QTest::mouseMove(form.starArea().marker(1));
    QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), QPointF(3, 3), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(form.starArea().marker(1), &move);
    EXPECT_NE(form.cursor().shape(), Qt::CrossCursor);
    QTest::mouseClick(form.tile(1), Qt::LeftButton);
    ASSERT_EQ(grid().SelectedWord, 1);
    QApplication::sendEvent(form.starArea().marker(1), &move);
    EXPECT_EQ(form.cursor().shape(), Qt::CrossCursor);
    QApplication::sendEvent(form.tile(2), &move);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

} // namespace
