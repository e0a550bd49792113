// The create and dictionary commands of a real session reaching the board through
// connectToSession: a new puzzle, a dictionary load and a failed create.
#include "playfixture.h"

#include "board/sessionwiring.h"
#include "core/puzzlesession.h"
#include "support/testfolder.h"

namespace {

class SessionWiring : public ::testing::Test {
protected:
    SessionWiring() {
        m_session.eventPump().setAction({});
        m_session.dictionary().setShuffled(false);
        connectToSession(m_session, m_board);
    }

    bool openDictionary(const QStringList& words) {
        m_folder.write(QStringLiteral("words.txt"), words.join(QStringLiteral("\r\n")).toUtf8());
        return m_session.openDictionary(m_folder.file(QStringLiteral("words.txt")));
    }

    // One word placed, another selected and the completion check running.
    void play() {
        m_board.apply(Move::tile(1));
        ASSERT_TRUE(m_board.apply(Move::marker(3)));
        m_board.apply(Move::tile(2));
        m_board.apply(Move::solutionPress());
        m_board.apply(Move::solutionRelease());
        ASSERT_TRUE(m_board.completionCheckRunning());
    }

    TestFolder m_folder;
    RecordingNotifier m_notifier;
    MessageGate m_gate{m_notifier};
    PuzzleSession m_session{&m_gate};
    PlayBoard m_board{m_session.grid(), m_gate};
};

} // namespace

TEST_F(SessionWiring, CreateAndDictionaryCommandsReachTheBoard) {
    // Eight words that cross: the dictionary gives one known puzzle.
    const QStringList words = {"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"};
    ASSERT_TRUE(openDictionary(words));
    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Created);
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        EXPECT_EQ(m_board.tile(i).caption, m_session.grid().CandidateWords[i]);
    play();

    // A new puzzle stops the check and resets the board.
    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Created);
    EXPECT_FALSE(m_board.completionCheckRunning());
    EXPECT_EQ(boardText(m_board), ".......... aaaaaaaa ..........");
    EXPECT_EQ(m_board.SelectedWord(), -1);
    play();

    // A dictionary load blanks the board and stops the check; the puzzle record is kept, so
    // Clear User Entries brings its words back.
    ASSERT_TRUE(openDictionary(words));
    EXPECT_FALSE(m_board.completionCheckRunning());
    EXPECT_EQ(boardText(m_board), ".......... -------- ..........");
    m_notifier.queueAnswer(AnswerYes);
    m_board.apply(Move::clearEntries());
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
    play();

    // A failed create leaves disabled blank tiles and an empty board.
    ASSERT_TRUE(openDictionary({"aaaa", "aaab", "abaa", "abab", "baba", "bbbb", "abba"}));
    ASSERT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Failed);
    EXPECT_EQ(boardText(m_board), ".......... ________ ..........");
    EXPECT_FALSE(m_board.completionCheckRunning());
    EXPECT_FALSE(m_board.puzzleExists());
}
