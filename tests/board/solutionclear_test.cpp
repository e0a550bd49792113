// The solution shown while its button is held; clearing the entries, also after a reload.
#include "playfixture.h"

using namespace ref;

using SolutionDisplay = PlayTest;
using Clearing = PlayTest;

TEST_F(SolutionDisplay, PressShowsTheSolutionAndReleaseRestoresThePlayersBoard) {
    place(Pony, PonyOn);
    place(Goad, GoadOn);
    place(Wrap, WrapOn);
    m_board.apply(Move::tile(Yard));
    ASSERT_EQ(boardText(m_board), "gponya.rdw apaaapps 2.6......7");
    EXPECT_TRUE(m_board.apply(Move::solutionPress()));
    EXPECT_TRUE(m_board.solutionShown());
    EXPECT_EQ(boardText(m_board), "gponyaardw apAAApps 2.6......7");
    EXPECT_TRUE(m_board.apply(Move::solutionRelease()));
    EXPECT_FALSE(m_board.solutionShown());
    EXPECT_EQ(boardText(m_board), "gponya.rdw apaaapps 2.6......7");
}

TEST_F(Clearing, OnlyYesToTheQuestionEmptiesTheBoardAndKeepsThePuzzle) {
    place(Pony, PonyOn);
    m_board.apply(Move::tile(Gold));
    for (const int answer : {AnswerNo, AnswerCancel, AnswerOk, AnswerNone}) {
        SCOPED_TRACE(answer);
        EXPECT_FALSE(clearEntries(answer)); // the selection stays too
    }
    EXPECT_TRUE(clearEntries(AnswerYes));
    EXPECT_EQ(boardText(m_board), ".......... aaaaaaaa ..........");
    EXPECT_EQ(m_board.SelectedWord(), -1);
    const RecordedMessage m = m_notifier.messages().value(4);
    EXPECT_EQ(std::tuple(m.text, m.style, m.standard),
              std::tuple("Clear all User Entries?", "vbQuestion + vbYesNo", false));
}

TEST_F(Clearing, YesBringsTheLastPuzzleBackAfterADictionaryLoadOrAFailedCreate) {
    const struct {
        const char* name;
        std::vector<Move> moves;
        const char* tiles; // on an empty board
    } rows[] = {
        {"dictionary loaded", {Move::dictionaryLoaded()}, "--------"},
        {"failed create", {Move::searchStarted(), Move::searchEnded()}, "________"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        newPuzzle();
        place(Pony, PonyOn);
        m_board.apply(Move::tile(Gold));
        for (const Move& move : row.moves)
            m_board.apply(move);
        EXPECT_EQ(boardText(m_board), ".......... " + std::string(row.tiles) + " ..........");
        EXPECT_FALSE(m_board.puzzleExists());
        EXPECT_EQ(m_board.SelectedWord(), Gold);
        EXPECT_FALSE(m_board.apply(Move::marker(PonyOn)));
        clearEntries(AnswerYes);
        EXPECT_TRUE(m_board.puzzleExists());
        place(Wrap, WrapOn);
        EXPECT_EQ(boardText(m_board), ".p...a.r.w aaaaaapa .........7");
        m_board.apply(Move::solutionPress());
        EXPECT_EQ(boardText(m_board), "gponyaardw aaAAAapa .........7");
    }
}

TEST_F(Clearing, YesWithoutAPuzzleLeavesEmptyTiles) {
    const StarGrid none;
    PlayBoard empty{none, m_gate, &m_pump};
    m_notifier.queueAnswer(AnswerYes);
    empty.apply(Move::clearEntries());
    EXPECT_EQ(tilesText(empty), "--------");
    EXPECT_FALSE(empty.puzzleExists());
}
