// The main-window tests' set-up: shipped schemes, the eight-word dictionary, a fixed shuffle.
#pragma once

#include "board/form1.h"

#include "board/boardhit.h"
#include "board/boardview.h"
#include "support/schemefixture.h"
#include "support/testwords.h"
#include "ui/boxcontrol.h"
#include "ui/msgform.h"

#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

class WindowTest : public SchemeTest {
protected:
    WindowTest()
        : SchemeTest(true) {
        m_folder.writeLines(QStringLiteral("english1.txt"), testwords::kEight);
    }

    Form1& start() { // lets Timer1's tick load the dictionary written before
        open();
        tickTimer1();
        return *m_form;
    }

    Form1& open() { // before Timer1's tick: no dictionary yet
        m_form = std::make_unique<Form1>(m_settings, m_scheme, m_notifier, &m_msgForm);
        m_form->show();
        m_form->session().random().seed(1); // the shuffle that gives the small dictionary's puzzle
        return *m_form;
    }

    void tickTimer1() {
        m_form->timer1().stop();
        QMetaObject::invokeMethod(&m_form->timer1(), "timeout", Qt::DirectConnection);
    }

    void clickBoard(BoardPart part, int index, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&m_form->boardView(), button, {},
                          BoardView::toWidget(centreOf(part, index)));
    }
    const BoardState& board() const { return m_form->boardView().state(); }
    const StarGrid& grid() const { return m_form->session().grid(); }

    // The reading (1..10) of tile i's word in the solution, 0 for a decoy (a backward line too).
    int directionOf(int tile) const {
        for (int k = 1; k <= 10 && grid().DecoyFlags[tile] != 1; ++k) {
            if (grid().solutionWord(k) == board().tiles[tile].word)
                return k;
        }
        return 0;
    }

    MsgForm m_msgForm;
    std::unique_ptr<Form1> m_form;
};
