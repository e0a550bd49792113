// Whole games on the model: the reference puzzle by hand, and a generated puzzle that reaches
// the board through the create and dictionary commands.
#include "playfixture.h"

#include "board/sessionwiring.h"
#include "core/puzzlesession.h"
#include "support/testfolder.h"

using namespace ref;

TEST_F(PlayTest, WholeGameOnTheReferencePuzzle) {
    newPuzzle();
    place(Pony, PonyOn);
    place(Wrap, WrapOn);
    EXPECT_EQ(cellsText(m_board), ".ponya.r.w");

    // gold fits g and o but not the a that wrap put on cell 5.
    m_board.apply(Move::tile(Gold));
    EXPECT_FALSE(m_board.apply(Move::marker(GoadOn)));
    EXPECT_EQ(cellsText(m_board), ".ponya.r.w");
    EXPECT_EQ(m_board.SelectedWord(), Gold);

    place(Goad, GoadOn);
    place(Gnaw, GnawOn);
    EXPECT_EQ(cellsText(m_board), "gponyaardw");
    EXPECT_FALSE(m_board.completionTick()); // full, but the check is off
    EXPECT_TRUE(m_notifier.messages().isEmpty());

    // Taking wrap off keeps the letters pony, goad and gnaw need.
    m_board.apply(Move::marker(WrapOn));
    EXPECT_EQ(cellsText(m_board), "gponyaa.dw");
    EXPECT_EQ(m_board.SelectedWord(), Wrap);
    place(Yard, YardOn);
    EXPECT_EQ(tilesText(m_board), "ppaaapap");

    m_board.apply(Move::solutionPress());
    EXPECT_EQ(cellsText(m_board), "gponyaardw");
    EXPECT_EQ(tilesText(m_board), "ppAAApap");
    m_board.apply(Move::solutionRelease());
    EXPECT_EQ(cellsText(m_board), "gponyaardw");
    EXPECT_EQ(tilesText(m_board), "ppaaapap");
    EXPECT_EQ(markersText(m_board), "216..8....");

    place(Wrap, WrapOn);
    EXPECT_EQ(markersText(m_board), "216..8...7");
    EXPECT_TRUE(m_board.completionTick());
    EXPECT_EQ(shownTexts(), QStringList{"All Done!"});
    EXPECT_FALSE(m_board.completionCheckRunning());

    m_notifier.queueAnswer(AnswerNo);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(cellsText(m_board), "gponyaardw");
    m_notifier.queueAnswer(AnswerYes);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(cellsText(m_board), "..........");
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
    EXPECT_EQ(shownTexts(),
              QStringList({"All Done!", "Clear all User Entries?", "Clear all User Entries?"}));
}

namespace {

// A generated puzzle, played through the session's commands.
class SessionGame : public ::testing::Test {
protected:
    SessionGame() {
        m_session.eventPump().setAction({});
        m_session.dictionary().setShuffled(false);
        connectToSession(m_session, m_board);
    }

    bool openDictionary(const QStringList& words) {
        m_folder.write(QStringLiteral("words.txt"), words.join(QStringLiteral("\r\n")).toUtf8());
        return m_session.openDictionary(m_folder.file(QStringLiteral("words.txt")));
    }

    // The tile holding the solution word that reading k spells, or 0.
    int tileForReading(int k) const {
        const StarGrid& grid = m_session.grid();
        for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
            if (grid.DecoyFlags[i] == 0 && grid.CandidateWords[i] == grid.solutionWord(k))
                return i;
        }
        return 0;
    }

    TestFolder m_folder;
    RecordingNotifier m_notifier;
    MessageGate m_gate{m_notifier};
    PuzzleSession m_session{&m_gate};
    PlayBoard m_board{m_session.grid(), m_gate};
};

const QStringList kKnownWords = {"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"};

} // namespace

TEST_F(SessionGame, GeneratedPuzzleIsPlayedToTheEnd) {
    ASSERT_TRUE(openDictionary(kKnownWords));
    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Created);
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        EXPECT_EQ(m_board.tile(i).caption, m_session.grid().CandidateWords[i]);

    // Each line is spelt by a solution word one way or the other.
    int placed = 0;
    for (const auto& [forward, backward] :
         std::vector<std::pair<int, int>>{{1, 7}, {2, 8}, {3, 4}, {5, 10}, {6, 9}}) {
        const int k = tileForReading(forward) != 0 ? forward : backward;
        const int tile = tileForReading(k);
        ASSERT_NE(tile, 0) << "reading " << k;
        m_board.apply(Move::tile(tile));
        EXPECT_TRUE(m_board.apply(Move::marker(k)));
        ++placed;
    }
    EXPECT_EQ(placed, 5);
    for (int c = 0; c < StarGrid::CellCount; ++c)
        EXPECT_EQ(m_board.cellLetter(c), m_session.grid().SolutionLetters[c + 1]);

    m_board.apply(Move::solutionPress());
    m_board.apply(Move::solutionRelease());
    EXPECT_TRUE(m_board.completionTick());
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("All Done!"));

    m_notifier.queueAnswer(AnswerYes);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
    EXPECT_EQ(cellsText(m_board), "..........");
}

TEST_F(SessionGame, CreateRequestStopsTheCheckAndANewPuzzleResetsTheBoard) {
    ASSERT_TRUE(openDictionary(kKnownWords));
    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Created);
    m_board.apply(Move::tile(1));
    m_board.apply(Move::marker(3));
    m_board.apply(Move::tile(2));
    m_board.apply(Move::solutionPress());
    m_board.apply(Move::solutionRelease());
    ASSERT_TRUE(m_board.completionCheckRunning());

    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Created);
    EXPECT_FALSE(m_board.completionCheckRunning());
    EXPECT_EQ(cellsText(m_board), "..........");
    EXPECT_EQ(markersText(m_board), "..........");
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
    EXPECT_EQ(m_board.SelectedWord(), -1);
}

TEST_F(SessionGame, FailedCreateLeavesDisabledBlankTilesAndAnEmptyBoard) {
    ASSERT_TRUE(openDictionary(kKnownWords));
    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Created);
    m_board.apply(Move::tile(1));
    m_board.apply(Move::marker(3));
    ASSERT_TRUE(openDictionary({"aaaa", "aaab", "abaa", "abab", "baba", "bbbb", "abba"}));
    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Failed);
    EXPECT_EQ(tilesText(m_board), "________");
    EXPECT_EQ(cellsText(m_board), "..........");
    EXPECT_EQ(markersText(m_board), "..........");
    EXPECT_FALSE(m_board.puzzleExists());
}

TEST_F(SessionGame, DictionaryLoadBlanksTheBoardAndStopsTheCheck) {
    ASSERT_TRUE(openDictionary(kKnownWords));
    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Created);
    m_board.apply(Move::tile(1));
    m_board.apply(Move::marker(3));
    m_board.apply(Move::solutionPress());
    m_board.apply(Move::solutionRelease());
    ASSERT_TRUE(m_board.completionCheckRunning());

    ASSERT_TRUE(openDictionary(kKnownWords));
    EXPECT_FALSE(m_board.completionCheckRunning());
    EXPECT_EQ(tilesText(m_board), "--------");
    EXPECT_EQ(cellsText(m_board), "..........");
    // The puzzle record is kept: Clear User Entries brings its words back.
    m_notifier.queueAnswer(AnswerYes);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
}
