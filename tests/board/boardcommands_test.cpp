// The create and dictionary commands of a real session on the board: a new puzzle, a
// dictionary load and a failed create.
#include "playfixture.h"

#include "board/boardcommands.h"
#include "core/puzzlesession.h"
#include "support/testfolder.h"

namespace {

class BoardCommands : public ::testing::Test {
protected:
    BoardCommands() {
        m_session.eventPump().setAction({});
        m_session.dictionary().setShuffled(false);
    }

    bool openDictionary(const QStringList& words) {
        m_folder.write(QStringLiteral("words.txt"), words.join(QStringLiteral("\r\n")).toUtf8());
        return ::openDictionary(m_session, m_board, m_folder.file(QStringLiteral("words.txt")));
    }

    PuzzleSession::CreateOutcome create() { return createPuzzle(m_session, m_board); }

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

TEST_F(BoardCommands, CreateAndDictionaryCommandsReachTheBoard) {
    // Eight words that cross: the dictionary gives one known puzzle.
    const QStringList words = {"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"};
    ASSERT_TRUE(openDictionary(words));
    ASSERT_EQ(create(), PuzzleSession::CreateOutcome::Created);
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        EXPECT_EQ(m_board.tile(i).word, m_session.grid().CandidateWords[i]);
    play();

    // A new puzzle stops the check and resets the board.
    ASSERT_EQ(create(), PuzzleSession::CreateOutcome::Created);
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
    ASSERT_EQ(create(), PuzzleSession::CreateOutcome::Failed);
    EXPECT_EQ(boardText(m_board), ".......... ________ ..........");
    EXPECT_FALSE(m_board.completionCheckRunning());
    EXPECT_FALSE(m_board.puzzleExists());
}
