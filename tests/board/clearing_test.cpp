// Clearing the player's entries on request and clearing the board after a dictionary load.
#include "playfixture.h"

using namespace ref;

namespace {

class Clearing : public PlayTest {
protected:
    Clearing() {
        newPuzzle();
        place(Pony, PonyOn);
        place(Goad, GoadOn);
        m_board.apply(Move::tile(Gold));
    }
};

} // namespace

TEST_F(Clearing, AsksTheQuestionInTheMessageWindow) {
    m_notifier.queueAnswer(AnswerNo);
    m_board.apply(Move::clearEntries());
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("Clear all User Entries?"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_FALSE(m_notifier.messages()[0].standard);
}

TEST_F(Clearing, AnyAnswerButYesChangesNothing) {
    showSolutionOnce(); // the check is on and must stay on
    for (const int answer : {AnswerNo, AnswerCancel, AnswerOk, AnswerNone}) {
        SCOPED_TRACE(answer);
        const PlayState before = m_board.state();
        const int changes = m_changes;
        m_notifier.queueAnswer(answer);
        EXPECT_FALSE(m_board.apply(Move::clearEntries()));
        EXPECT_EQ(m_board.state(), before);
        EXPECT_EQ(m_board.SelectedWord(), Gold);
        EXPECT_TRUE(m_board.completionCheckRunning());
        EXPECT_EQ(m_changes, changes);
    }
}

TEST_F(Clearing, YesEmptiesTheBoardAndDropsTheSelection) {
    ASSERT_EQ(tilesText(m_board), "apsaapaa");
    m_notifier.queueAnswer(AnswerYes);
    EXPECT_TRUE(m_board.apply(Move::clearEntries()));
    EXPECT_EQ(cellsText(m_board), "..........");
    EXPECT_EQ(markersText(m_board), "..........");
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
    EXPECT_EQ(m_board.SelectedWord(), -1);
    EXPECT_EQ(m_grid.SelectedWord, -1);
    // The puzzle itself stays.
    EXPECT_EQ(m_grid.solutionWord(PonyOn), QStringLiteral("pony"));
    EXPECT_EQ(m_board.tile(Pony).caption, QStringLiteral("pony"));
}

TEST_F(Clearing, ClearBoardBlanksCellsAndTilesButKeepsTheRecordAndSelection) {
    m_board.ClearBoard();
    EXPECT_EQ(cellsText(m_board), "..........");
    EXPECT_EQ(markersText(m_board), "..........");
    EXPECT_EQ(tilesText(m_board), "--------");
    EXPECT_FALSE(m_board.puzzleExists());
    EXPECT_EQ(m_grid.SelectedWord, Gold);
    EXPECT_EQ(m_grid.CandidateWords[Gold], QStringLiteral("gold"));
    EXPECT_EQ(m_grid.DecoyFlags[Gold], 1);
    EXPECT_TRUE(m_grid.hasSolution());
    EXPECT_EQ(linkMismatch(m_board), "");
}

TEST_F(Clearing, YesAfterADictionaryLoadBringsTheLastPuzzleBack) {
    m_board.ClearBoard();
    m_notifier.queueAnswer(AnswerYes);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
    EXPECT_EQ(m_board.tile(Gnaw).caption, QStringLiteral("gnaw"));
    EXPECT_TRUE(m_board.puzzleExists());
    // ... and it can be played and shown again.
    place(Wrap, WrapOn);
    EXPECT_EQ(cellsText(m_board), ".p...a.r.w");
    m_board.apply(Move::solutionPress());
    EXPECT_EQ(cellsText(m_board), "gponyaardw");
    EXPECT_EQ(tilesText(m_board), "aaAAAapa");
}

TEST_F(Clearing, YesAfterAFailedCreateEnablesTheTilesWithTheLastWords) {
    m_board.generationStarted();
    ASSERT_EQ(tilesText(m_board), "________");
    m_notifier.queueAnswer(AnswerYes);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
}

TEST(ClearingWithoutPuzzle, StillAsksAndLeavesEmptyTiles) {
    StarGrid grid;
    RecordingNotifier notifier;
    MessageGate gate(notifier);
    PlayBoard board(grid, gate);
    notifier.queueAnswer(AnswerYes);
    board.apply(Move::clearEntries());
    EXPECT_EQ(notifier.messages().size(), 1);
    EXPECT_EQ(tilesText(board), "--------");
    EXPECT_FALSE(board.puzzleExists());
}
