// The completion check: when it runs, when it congratulates, and that it never opens a second
// message while one is open.
#include "playfixture.h"

using namespace ref;

namespace {

class Completion : public PlayTest {
protected:
    Completion() { newPuzzle(); }

    // Four agreeing words fill all ten cells.
    void fillBoard() {
        place(Pony, PonyOn);
        place(Goad, GoadOn);
        place(Gnaw, GnawOn);
        place(Yard, YardOn);
        ASSERT_EQ(cellsText(m_board), "gponyaardw");
    }

    int allDoneCount() const { return static_cast<int>(shownTexts().count("All Done!")); }
};

} // namespace

TEST_F(Completion, CheckIsOffUntilTheSolutionButtonIsReleased) {
    EXPECT_FALSE(m_board.completionCheckRunning());
    m_board.apply(Move::solutionPress());
    EXPECT_FALSE(m_board.completionCheckRunning());
    m_board.apply(Move::solutionRelease());
    EXPECT_TRUE(m_board.completionCheckRunning());
    EXPECT_EQ(m_checkSignals, std::vector<bool>{true});
}

TEST_F(Completion, ActionsSwitchTheRunningCheckOffOrLeaveIt) {
    struct Row {
        const char* name;
        std::function<void(PlayBoard&, RecordingNotifier&)> action;
        bool running;
    };
    const Row rows[] = {
        {"solution pressed",
         [](PlayBoard& b, RecordingNotifier&) { b.apply(Move::solutionPress()); }, false},
        {"create request", [](PlayBoard& b, RecordingNotifier&) { b.generationStarted(); }, false},
        {"new puzzle", [](PlayBoard& b, RecordingNotifier&) { b.puzzleCreated(); }, false},
        {"dictionary loaded", [](PlayBoard& b, RecordingNotifier&) { b.stopCompletionCheck(); },
         false},
        {"board cleared alone", [](PlayBoard& b, RecordingNotifier&) { b.ClearBoard(); }, true},
        {"entries cleared",
         [](PlayBoard& b, RecordingNotifier& n) {
             n.queueAnswer(AnswerYes);
             b.apply(Move::clearEntries());
         },
         false},
        {"clear declined",
         [](PlayBoard& b, RecordingNotifier& n) {
             n.queueAnswer(AnswerNo);
             b.apply(Move::clearEntries());
         },
         true},
        {"a word placed",
         [](PlayBoard& b, RecordingNotifier&) {
             b.apply(Move::tile(Pony));
             b.apply(Move::marker(PonyOn));
         },
         true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        newPuzzle();
        showSolutionOnce();
        ASSERT_TRUE(m_board.completionCheckRunning());
        row.action(m_board, m_notifier);
        EXPECT_EQ(m_board.completionCheckRunning(), row.running);
    }
}

TEST_F(Completion, FullBoardWithoutTheSolutionButtonIsNeverCongratulated) {
    fillBoard();
    for (int tick = 0; tick < 3; ++tick)
        EXPECT_FALSE(m_board.completionTick());
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(Completion, FullBoardIsCongratulatedAtTheFirstTickAfterARelease) {
    fillBoard();
    showSolutionOnce();
    EXPECT_TRUE(m_board.completionTick());
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("All Done!"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbhappy+vbok"));
    EXPECT_FALSE(m_notifier.messages()[0].standard);
    // The check is off from then on.
    EXPECT_FALSE(m_board.completionCheckRunning());
    EXPECT_EQ(m_checkSignals, (std::vector<bool>{true, false}));
    EXPECT_FALSE(m_board.completionTick());
    EXPECT_EQ(allDoneCount(), 1);
}

TEST_F(Completion, RunningCheckWaitsForTheTenthCell) {
    showSolutionOnce();
    place(Pony, PonyOn);
    place(Goad, GoadOn);
    place(Gnaw, GnawOn);
    EXPECT_FALSE(m_board.completionTick()); // cell 7 is still empty
    EXPECT_TRUE(m_board.completionCheckRunning());
    place(Yard, YardOn);
    EXPECT_TRUE(m_board.completionTick());
    EXPECT_EQ(allDoneCount(), 1);
}

TEST_F(Completion, AnotherPressAndReleaseBringsTheMessageAgain) {
    fillBoard();
    showSolutionOnce();
    m_board.completionTick();
    showSolutionOnce();
    EXPECT_TRUE(m_board.completionTick());
    EXPECT_EQ(allDoneCount(), 2);
}

TEST_F(Completion, FilledCellsCountNotTheSolutionLetters) {
    // Same words, but a record whose solution letters are all different from them.
    m_grid.SolutionLetters.fill(QStringLiteral("x"));
    fillBoard();
    showSolutionOnce();
    EXPECT_TRUE(m_board.completionTick());
}

TEST_F(Completion, NoCongratulationOnceTheTilesAreBlank) {
    fillBoard();
    showSolutionOnce();
    m_board.ClearBoard(); // the cells go too, and with the tiles the puzzle
    EXPECT_FALSE(m_board.completionTick());
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

// --- Re-entrancy: ticks that arrive while a message is open ------------------------------

TEST_F(Completion, TickDuringAllDoneOpensNoSecondMessage) {
    fillBoard();
    showSolutionOnce();
    m_notifier.duringMessage = [this] { m_board.completionTick(); };
    m_board.completionTick();
    EXPECT_EQ(allDoneCount(), 1);
}

TEST_F(Completion, TickDuringTheClearQuestionWaitsForTheAnswer) {
    fillBoard();
    showSolutionOnce();
    m_notifier.duringMessage = [this] { EXPECT_FALSE(m_board.completionTick()); };
    m_notifier.queueAnswer(AnswerNo);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(shownTexts(), QStringList{"Clear all User Entries?"});
    // Declined: the board is still full and the check still on, so the next tick congratulates.
    m_notifier.duringMessage = {};
    EXPECT_TRUE(m_board.completionTick());
    EXPECT_EQ(shownTexts(), QStringList({"Clear all User Entries?", "All Done!"}));
}

TEST_F(Completion, TickWhileTheClearLetsEventsRunIsDropped) {
    fillBoard();
    showSolutionOnce();
    m_pump.setAction([this] { EXPECT_FALSE(m_board.completionTick()); });
    m_notifier.queueAnswer(AnswerYes);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(shownTexts(), QStringList{"Clear all User Entries?"});
    EXPECT_FALSE(m_board.completionCheckRunning());
}

TEST_F(Completion, TickWhileAMessageOfAnotherCommandIsOpenWaits) {
    fillBoard();
    showSolutionOnce();
    m_notifier.duringMessage = [this] { EXPECT_FALSE(m_board.completionTick()); };
    m_gate.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_EQ(shownTexts(), QStringList{"Exit?"});
    m_notifier.duringMessage = {};
    EXPECT_TRUE(m_board.completionTick());
}

TEST_F(Completion, AllDoneLetsEventsRunAfterTheMessage) {
    fillBoard();
    showSolutionOnce();
    QStringList order;
    m_notifier.duringMessage = [&] { order << "message"; };
    m_pump.setAction([&] { order << "events"; });
    m_board.completionTick();
    EXPECT_EQ(order, QStringList({"message", "events"}));
}
