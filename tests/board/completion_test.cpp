// The completion check: when it runs, when it congratulates, and that it never opens a second
// message while one is open; the message gate that knows when one is.
#include "playfixture.h"

#include <utility>

using namespace ref;

namespace {

class Completion : public PlayTest {
protected:
    // Four agreeing words fill all ten cells, and the check runs unless `check` is false.
    void fillAndCheck(bool check = true) {
        place(Pony, PonyOn);
        place(Goad, GoadOn);
        place(Gnaw, GnawOn);
        place(Yard, YardOn);
        ASSERT_EQ(cellsText(m_board), "gponyaardw");
        if (check)
            showSolutionOnce();
    }

    int allDoneCount() const { return static_cast<int>(shownTexts().count("All Done!")); }
};

} // namespace

TEST_F(Completion, CheckIsOffUntilTheSolutionButtonIsReleased) {
    fillAndCheck(false);
    EXPECT_FALSE(m_board.completionTick()); // full, but never congratulated without the button
    m_board.apply(Move::solutionPress());
    EXPECT_FALSE(m_board.completionCheckRunning());
    m_board.apply(Move::solutionRelease());
    EXPECT_TRUE(m_board.completionCheckRunning());
    EXPECT_EQ(m_checkSignals, std::vector<bool>{true});
}

TEST_F(Completion, ActionsSwitchTheRunningCheckOffOrLeaveIt) {
    const struct {
        const char* name;
        std::function<void()> action;
        bool running;
    } rows[] = {
        {"solution pressed", [&] { m_board.apply(Move::solutionPress()); }, false},
        {"create request", [&] { m_board.apply(Move::searchStarted()); }, false},
        {"new puzzle", [&] { m_board.apply(Move::newPuzzle()); }, false},
        {"dictionary loaded", [&] { m_board.apply(Move::dictionaryLoaded()); }, false},
        {"entries cleared", [&] { clearEntries(AnswerYes); }, false},
        {"clear declined", [&] { clearEntries(AnswerNo); }, true},
        {"a word placed", [&] { place(Pony, PonyOn); }, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        newPuzzle();
        showSolutionOnce();
        ASSERT_TRUE(m_board.completionCheckRunning());
        row.action();
        EXPECT_EQ(m_board.completionCheckRunning(), row.running);
    }
}

TEST_F(Completion, TickCongratulatesWhenAllTenCellsHoldALetter) {
    const struct {
        const char* name;
        std::function<void()> play;
        bool done;
    } rows[] = {
        {"ten cells", [&] { fillAndCheck(); }, true},
        {"nine cells: cell 7 empty",
         [&] {
             fillAndCheck();
             m_board.apply(Move::marker(YardOn));
         },
         false},
        // The letters filled count, not whether they are the solution's.
        {"letters other than the solution's",
         [&] {
             m_grid.SolutionLetters.fill(QStringLiteral("x"));
             fillAndCheck();
         },
         true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        m_notifier.clear();
        newPuzzle();
        row.play();
        EXPECT_EQ(m_board.completionTick(), row.done);
        EXPECT_EQ(m_board.completionCheckRunning(), !row.done);
        EXPECT_EQ(allDoneCount(), row.done ? 1 : 0);
    }
}

TEST_F(Completion, FullBoardIsCongratulatedOnceAtTheFirstTickAfterEachRelease) {
    fillAndCheck();
    EXPECT_TRUE(m_board.completionTick());
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("All Done!"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbhappy+vbok"));
    EXPECT_FALSE(m_notifier.messages()[0].standard);
    EXPECT_EQ(m_checkSignals, (std::vector<bool>{true, false}));
    EXPECT_FALSE(m_board.completionTick());
    showSolutionOnce();
    EXPECT_TRUE(m_board.completionTick());
    EXPECT_EQ(allDoneCount(), 2);
}

// --- Re-entrancy: ticks that arrive while a message is open ------------------------------

TEST_F(Completion, TickDuringAllDoneOpensNoSecondMessageAndEventsRunAfterIt) {
    fillAndCheck();
    QStringList order;
    m_notifier.duringMessage = [&] {
        order << "message";
        m_board.completionTick();
    };
    m_pump.setAction([&] { order << "events"; });
    m_board.completionTick();
    EXPECT_EQ(order, QStringList({"message", "events"}));
}

TEST_F(Completion, TickWhileTheClearLetsEventsRunIsDropped) {
    fillAndCheck();
    m_pump.setAction([this] { EXPECT_FALSE(m_board.completionTick()); });
    clearEntries(AnswerYes);
    EXPECT_EQ(shownTexts(), QStringList{"Clear all User Entries?"});
}

TEST_F(Completion, TickWhileAnyMessageIsOpenWaits) {
    fillAndCheck();
    m_notifier.duringMessage = [this] { EXPECT_FALSE(m_board.completionTick()); };
    clearEntries(AnswerNo); // the board's own question
    m_gate.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo")); // another's
    EXPECT_EQ(shownTexts(), QStringList({"Clear all User Entries?", "Exit?"}));
    // Declined and closed: the board is still full and the check on.
    m_notifier.duringMessage = {};
    EXPECT_TRUE(m_board.completionTick());
}

// --- The message gate --------------------------------------------------------------------

TEST(MessageGate, IsOpenUntilTheOuterOfTwoNestedMessagesClosesOrOneThrows) {
    HookedNotifier inner;
    MessageGate gate(inner);
    std::vector<bool> seen;
    bool nested = false;
    inner.duringMessage = [&] {
        seen.push_back(gate.isOpen());
        if (std::exchange(nested, true))
            return;
        inner.queueAnswer(AnswerRetry);
        EXPECT_EQ(gate.standardBox("inner", "vbRetryCancel", "Options"), AnswerRetry);
        seen.push_back(gate.isOpen());
    };
    EXPECT_FALSE(gate.isOpen());
    gate.MsgboxA("outer", "vbOkOnly");
    EXPECT_EQ(seen, (std::vector<bool>{true, true, true})); // outer, inner, outer after inner
    EXPECT_FALSE(gate.isOpen());
    EXPECT_EQ(inner.messages().last().title, QStringLiteral("Options"));
    inner.fail = true;
    EXPECT_THROW(gate.MsgboxA("x", "vbOkOnly"), std::runtime_error);
    EXPECT_FALSE(gate.isOpen());
}
