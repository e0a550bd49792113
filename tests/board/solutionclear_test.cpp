// The solution and clear buttons: showing the solution while its button is held and putting
// the player's letters back; clearing the player's entries on request, and the board after a
// dictionary load.
#include "playfixture.h"

using namespace ref;

namespace {

using SolutionDisplay = PlayTest;

class Clearing : public PlayTest {
protected:
    Clearing() {
        place(Pony, PonyOn);
        place(Goad, GoadOn);
        m_board.apply(Move::tile(Gold));
    }
};

class NoPuzzle : public PlayTest {
protected:
    NoPuzzle()
        : PlayTest(StarGrid{}, false) {}
};

} // namespace

TEST_F(SolutionDisplay, PressShowsTheSolutionAndReleaseRestoresThePlayersBoard) {
    place(Pony, PonyOn);
    place(Goad, GoadOn);
    place(Wrap, WrapOn);
    m_board.apply(Move::tile(Yard));
    ASSERT_EQ(boardText(m_board), "gponya.rdw apaaapps 2.6......7");
    // The decoys are struck out; the links are not touched.
    EXPECT_TRUE(m_board.apply(Move::solutionPress()));
    EXPECT_TRUE(m_board.solutionShown());
    EXPECT_EQ(boardText(m_board), "gponyaardw apAAApps 2.6......7");
    // Yard is still the selection and still shows it: the next marker click places it.
    EXPECT_TRUE(m_board.apply(Move::solutionRelease()));
    EXPECT_FALSE(m_board.solutionShown());
    EXPECT_EQ(boardText(m_board), "gponya.rdw apaaapps 2.6......7");
    EXPECT_EQ(m_board.SelectedWord(), Yard);
}

TEST_F(SolutionDisplay, DoesNothingWithBlankTiles) {
    m_board.apply(Move::dictionaryLoaded()); // a dictionary load blanks the tiles
    const BoardState before = m_board.state();
    EXPECT_FALSE(m_board.apply(Move::solutionPress()));
    EXPECT_FALSE(m_board.apply(Move::solutionRelease()));
    EXPECT_EQ(m_board.state(), before);
    EXPECT_TRUE(m_checkSignals.empty());
}

TEST_F(SolutionDisplay, BoardClicksAreIgnoredWhileTheSolutionShows) {
    place(Pony, PonyOn);
    m_board.apply(Move::tile(Gold));
    m_board.apply(Move::solutionPress());
    const BoardState shown = m_board.state();
    for (const Move move : {Move::marker(GoadOn), Move::marker(PonyOn), Move::tile(Yard)})
        EXPECT_FALSE(m_board.apply(move));
    EXPECT_EQ(m_board.state(), shown);
    m_board.apply(Move::solutionRelease());
    EXPECT_EQ(boardText(m_board), ".pony..... aasaapaa ..6......."); // the selection shows again
}

// --- Faults found or feared --------------------------------------------------------------

TEST_F(SolutionDisplay, UnpairedPressOrReleaseKeepsThePlayersLetters) {
    place(Pony, PonyOn);
    EXPECT_FALSE(m_board.apply(Move::solutionRelease())); // release without press
    EXPECT_EQ(cellsText(m_board), ".pony.....");
    EXPECT_FALSE(m_board.completionCheckRunning());
    // A second press while shown (another mouse button) must not save the solution over
    // the player's letters.
    m_board.apply(Move::solutionPress());
    EXPECT_FALSE(m_board.apply(Move::solutionPress()));
    m_board.apply(Move::solutionRelease());
    EXPECT_EQ(cellsText(m_board), ".pony.....");
}

TEST_F(SolutionDisplay, ReleaseAfterTheBoardWasReplacedBringsBackNoOldLetters) {
    const struct {
        const char* name;
        std::function<void()> replace;
        const char* tiles;
    } rows[] = {
        {"new puzzle", [&] { m_board.apply(Move::newPuzzle()); }, "aaaaaaaa"},
        {"create request", [&] { m_board.apply(Move::searchStarted()); }, "________"},
        {"dictionary loaded", [&] { m_board.apply(Move::dictionaryLoaded()); }, "--------"},
        {"entries cleared", [&] { clearEntries(AnswerYes); }, "aaaaaaaa"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        newPuzzle();
        place(Pony, PonyOn);
        m_board.apply(Move::solutionPress());
        row.replace();
        m_board.apply(Move::solutionRelease());
        EXPECT_EQ(cellsText(m_board), "..........");
        EXPECT_EQ(tilesText(m_board), row.tiles); // no strike-through left over either
        EXPECT_FALSE(m_board.solutionShown());
        EXPECT_FALSE(m_board.completionCheckRunning());
    }
}

// --- Clearing ----------------------------------------------------------------------------

TEST_F(Clearing, AnyAnswerButYesToTheQuestionChangesNothing) {
    showSolutionOnce(); // the check is on and must stay on
    for (const int answer : {AnswerNo, AnswerCancel, AnswerOk, AnswerNone}) {
        SCOPED_TRACE(answer);
        m_notifier.clear();
        const BoardState before = m_board.state();
        const int changes = m_changes;
        EXPECT_FALSE(clearEntries(answer));
        ASSERT_EQ(m_notifier.messages().size(), 1);
        EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("Clear all User Entries?"));
        EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbQuestion + vbYesNo"));
        EXPECT_FALSE(m_notifier.messages()[0].standard);
        EXPECT_EQ(m_board.state(), before);
        EXPECT_EQ(m_board.SelectedWord(), Gold);
        EXPECT_TRUE(m_board.completionCheckRunning());
        EXPECT_EQ(m_changes, changes);
    }
}

TEST_F(Clearing, YesEmptiesTheBoardAndDropsTheSelectionButKeepsThePuzzle) {
    ASSERT_EQ(boardText(m_board), "gponya..d. apsaapaa 2.6.......");
    EXPECT_TRUE(clearEntries(AnswerYes));
    EXPECT_EQ(boardText(m_board), ".......... aaaaaaaa ..........");
    EXPECT_EQ(m_board.SelectedWord(), -1);
    EXPECT_EQ(m_board.tile(Pony).word, QStringLiteral("pony"));
}

TEST_F(Clearing, ClearBoardBlanksCellsAndTilesButKeepsTheRecordAndSelection) {
    m_board.apply(Move::dictionaryLoaded());
    EXPECT_EQ(boardText(m_board), ".......... -------- ..........");
    EXPECT_FALSE(m_board.puzzleExists());
    EXPECT_EQ(m_board.SelectedWord(), Gold);
    EXPECT_EQ(m_grid.CandidateWords[Gold], QStringLiteral("gold"));
    EXPECT_TRUE(m_grid.hasSolution());
    // Yes to the clear question brings the last puzzle back, to be played and shown again.
    clearEntries(AnswerYes);
    EXPECT_EQ(m_board.tile(Gnaw).word, QStringLiteral("gnaw"));
    EXPECT_TRUE(m_board.puzzleExists());
    place(Wrap, WrapOn);
    EXPECT_EQ(boardText(m_board), ".p...a.r.w aaaaaapa .........7");
    m_board.apply(Move::solutionPress());
    EXPECT_EQ(boardText(m_board), "gponyaardw aaAAAapa .........7");
}

TEST_F(NoPuzzle, ClicksDoNothingAndTheClearQuestionLeavesEmptyTiles) {
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        EXPECT_FALSE(m_board.apply(Move::tile(i)));
    for (int k = 1; k <= StarGrid::DirectionCount; ++k)
        EXPECT_FALSE(m_board.apply(Move::marker(k)));
    EXPECT_EQ(m_board.SelectedWord(), -1);
    clearEntries(AnswerYes);
    EXPECT_EQ(shownTexts(), QStringList{"Clear all User Entries?"});
    EXPECT_EQ(tilesText(m_board), "--------");
    EXPECT_FALSE(m_board.puzzleExists());
}
