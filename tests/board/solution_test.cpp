// Showing the solution while its button is held, and putting the player's letters back.
#include "playfixture.h"

using namespace ref;

namespace {

class SolutionDisplay : public PlayTest {
protected:
    SolutionDisplay() { newPuzzle(); }

    // Three words on the board and yard selected.
    void playSome() {
        place(Pony, PonyOn);
        place(Goad, GoadOn);
        place(Wrap, WrapOn);
        m_board.apply(Move::tile(Yard));
    }
};

} // namespace

TEST_F(SolutionDisplay, PressShowsTheSolutionAndStrikesTheDecoys) {
    playSome();
    ASSERT_EQ(cellsText(m_board), "gponya.rdw");
    ASSERT_EQ(tilesText(m_board), "apaaapps");

    EXPECT_TRUE(m_board.apply(Move::solutionPress()));
    EXPECT_TRUE(m_board.solutionShown());
    EXPECT_EQ(cellsText(m_board), "gponyaardw");
    EXPECT_EQ(tilesText(m_board), "apAAApps");
    EXPECT_EQ(markersText(m_board), "2.6......7"); // links are not touched
}

TEST_F(SolutionDisplay, ReleaseRestoresLettersAndLooksButKeepsTheSelection) {
    playSome();
    m_board.apply(Move::solutionPress());
    EXPECT_TRUE(m_board.apply(Move::solutionRelease()));
    EXPECT_FALSE(m_board.solutionShown());
    EXPECT_EQ(cellsText(m_board), "gponya.rdw");
    // No tile is struck through, and yard has lost its flat look although still selected.
    EXPECT_EQ(tilesText(m_board), "apaaappa");
    EXPECT_EQ(m_board.SelectedWord(), Yard);
    EXPECT_EQ(markersText(m_board), "2.6......7");
}

TEST_F(SolutionDisplay, DoesNothingWithoutAPuzzle) {
    m_board.ClearBoard(); // a dictionary load blanks the tiles
    const PlayState before = m_board.state();
    EXPECT_FALSE(m_board.apply(Move::solutionPress()));
    EXPECT_FALSE(m_board.apply(Move::solutionRelease()));
    EXPECT_EQ(m_board.state(), before);
    EXPECT_FALSE(m_board.completionCheckRunning());
    EXPECT_TRUE(m_checkSignals.empty());
}

TEST_F(SolutionDisplay, BoardClicksAreIgnoredWhileTheSolutionShows) {
    place(Pony, PonyOn);
    m_board.apply(Move::tile(Gold));
    m_board.apply(Move::solutionPress());
    const PlayState shown = m_board.state();
    EXPECT_FALSE(m_board.apply(Move::marker(GoadOn)));
    EXPECT_FALSE(m_board.apply(Move::marker(PonyOn)));
    EXPECT_FALSE(m_board.apply(Move::tile(Yard)));
    EXPECT_EQ(m_board.state(), shown);
    m_board.apply(Move::solutionRelease());
    EXPECT_EQ(cellsText(m_board), ".pony.....");
    EXPECT_EQ(markersText(m_board), "..6.......");
}

// --- Faults found or feared --------------------------------------------------------------

TEST_F(SolutionDisplay, SecondPressWhileShownDoesNotSaveTheSolutionOverThePlayersLetters) {
    place(Pony, PonyOn);
    m_board.apply(Move::solutionPress());
    EXPECT_FALSE(m_board.apply(Move::solutionPress())); // another mouse button
    m_board.apply(Move::solutionRelease());
    EXPECT_EQ(cellsText(m_board), ".pony.....");
}

TEST_F(SolutionDisplay, ReleaseWithoutPressKeepsThePlayersLetters) {
    place(Pony, PonyOn);
    EXPECT_FALSE(m_board.apply(Move::solutionRelease()));
    EXPECT_EQ(cellsText(m_board), ".pony.....");
    EXPECT_FALSE(m_board.completionCheckRunning());
}

TEST_F(SolutionDisplay, ReleaseAfterTheBoardWasReplacedBringsBackNoOldLetters) {
    struct Row {
        const char* name;
        std::function<void(PlayBoard&)> replace;
        const char* tiles;
    };
    const Row rows[] = {
        {"new puzzle", [](PlayBoard& b) { b.puzzleCreated(); }, "aaaaaaaa"},
        {"create request", [](PlayBoard& b) { b.generationStarted(); }, "________"},
        {"dictionary loaded", [](PlayBoard& b) { b.ClearBoard(); }, "--------"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        newPuzzle();
        place(Pony, PonyOn);
        m_board.apply(Move::solutionPress());
        row.replace(m_board);
        m_board.apply(Move::solutionRelease());
        EXPECT_EQ(cellsText(m_board), "..........");
        EXPECT_EQ(tilesText(m_board), row.tiles); // no strike-through left over either
        EXPECT_FALSE(m_board.solutionShown());
        EXPECT_FALSE(m_board.completionCheckRunning());
    }
}

TEST_F(SolutionDisplay, ConfirmedClearWhileShownEndsTheDisplay) {
    place(Pony, PonyOn);
    m_board.apply(Move::solutionPress());
    m_notifier.queueAnswer(AnswerYes);
    m_board.apply(Move::clearEntries());
    m_board.apply(Move::solutionRelease());
    EXPECT_EQ(cellsText(m_board), "..........");
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
}
