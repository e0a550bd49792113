// The common set-up of the play tests: the reference puzzle on a board whose messages go to a
// recording notifier, whose hook can run while a message "is open".
#pragma once

#include "board/messagegate.h"
#include "board/playboard.h"
#include "boardtext.h"
#include "core/eventpump.h"
#include "support/recordingnotifier.h"

#include <gtest/gtest.h>

#include <stdexcept>

class HookedNotifier : public RecordingNotifier {
public:
    int MsgboxA(const QString& s, const QString& typ) override {
        const int answer = RecordingNotifier::MsgboxA(s, typ);
        if (fail)
            throw std::runtime_error("message window failed");
        return answer;
    }

    bool fail = false; // MsgboxA throws after its hook
};

class PlayTest : public ::testing::Test {
protected:
    // `created`: the puzzle is on the tiles, as after a successful create.
    explicit PlayTest(StarGrid grid = referenceStar(), bool created = true)
        : m_grid(std::move(grid)) {
        QObject::connect(&m_board, &PlayBoard::changed, [this] { ++m_changes; });
        QObject::connect(&m_board, &PlayBoard::completionCheckChanged,
                         [this](bool on) { m_checkSignals.push_back(on); });
        if (created)
            newPuzzle();
    }

    // A new puzzle on the board, as after a successful create.
    void newPuzzle() { m_board.apply(Move::newPuzzle()); }

    // Selects tile `i` and clicks marker `k`.
    void place(int i, int k) {
        m_board.apply(Move::tile(i));
        m_board.apply(Move::marker(k));
    }

    // Press and release of the solution button.
    void showSolutionOnce() {
        m_board.apply(Move::solutionPress());
        m_board.apply(Move::solutionRelease());
    }

    // Clear User Entries, answering the question with `answer`.
    bool clearEntries(int answer) {
        m_notifier.queueAnswer(answer);
        return m_board.apply(Move::clearEntries());
    }

    // The message texts shown so far.
    QStringList shownTexts() const { return m_notifier.texts(); }

    StarGrid m_grid;
    HookedNotifier m_notifier;
    MessageGate m_gate{m_notifier};
    EventPump m_pump; // its action stands in for "let pending window events run"
    PlayBoard m_board{m_grid, m_gate, &m_pump};
    int m_changes = 0;
    std::vector<bool> m_checkSignals;
};
