// The completion check: when it runs and congratulates, never over another message; the gate.
#include "playfixture.h"

#include <map>
#include <stdexcept>
#include <utility>

using namespace ref;

namespace {

class Completion : public PlayTest {
protected:
    void fill() {
        for (const auto& [tile, reading] :
             {std::pair{Pony, PonyOn}, {Goad, GoadOn}, {Gnaw, GnawOn}, {Yard, YardOn}})
            place(tile, reading);
        ASSERT_EQ(boardText(m_board), "gponyaardw ppaaapap 216..8...."); // crossings agree
    }
};

} // namespace

TEST_F(Completion, ScriptsOfActionsSwitchTheCheckAndCongratulateAFullBoardOnce) {
    const std::map<char, std::function<void()>> actions = {
        {'F', [&] { fill(); }},
        {'P', [&] { m_board.apply(Move::solutionPress()); }},
        {'R', [&] { m_board.apply(Move::solutionRelease()); }},
        {'y', [&] { clearEntries(AnswerYes); }},
        {'n', [&] { clearEntries(AnswerNo); }},
        {'S', [&] { m_board.apply(Move::searchStarted()); }}, // a create request
        {'N', [&] { newPuzzle(); }},
        {'D', [&] { m_board.apply(Move::dictionaryLoaded()); }},
        {'p', [&] { place(Pony, PonyOn); }},
        {'r', [&] { m_board.apply(Move::marker(YardOn)); }}, // yard off: cell 7 empties
        {'Y', [&] { place(Yard, YardOn); }},
        {'x', [&] { m_grid.SolutionLetters.fill(QStringLiteral("x")); }},
    };
    // After each action ("T" a tick): "+" check on, "-" off, "A" "All Done!"; then the board.
    const struct {
        const char *name, *script, *trace;
        const char* board = nullptr;
    } rows[] = {
        {"full, but off until the release", "FTPTRT", "----+A"},
        {"once after each release", "FPRTTPRT", "--+A--+A"},
        {"nine cells wait for the tenth", "FPRrTYT", "--++++A"},
        {"the letters count, not the solution's", "xFPRT", "---+A"},
        {"solution pressed", "PRP", "-+-"},
        {"create request", "PRS", "-+-"},
        {"new puzzle", "PRN", "-+-"},
        {"dictionary loaded", "PRD", "-+-"},
        {"entries cleared", "PRy", "-+-"},
        {"clear declined", "PRn", "-++"},
        {"a word placed", "PRp", "-++"},
        {"release without press", "pR", "--", ".pony..... aaaaapaa ..6......."},
        {"a second press while shown", "pPPR", "---+", ".pony..... aaaaapaa ..6......."},
        {"new puzzle while shown", "pPNR", "----", ".......... aaaaaaaa .........."},
        {"create request while shown", "pPSR", "----", ".......... ________ .........."},
        {"dictionary loaded while shown", "pPDR", "----", ".......... -------- .........."},
        {"entries cleared while shown", "pPyR", "----", ".......... aaaaaaaa .........."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        m_grid = referenceStar();
        newPuzzle();
        m_notifier.clear();
        m_checkSignals.clear();
        std::string trace;
        std::vector<bool> changes;
        for (const char c : std::string(row.script)) {
            const bool done = c == 'T' ? m_board.completionTick() : (actions.at(c)(), false);
            const bool running = m_board.completionCheckRunning();
            trace += done ? 'A' : running ? '+' : '-';
            if (running != (!changes.empty() && changes.back()))
                changes.push_back(running);
        }
        EXPECT_EQ(trace, row.trace);
        if (row.board) {
            EXPECT_EQ(boardText(m_board), row.board);
            EXPECT_FALSE(m_board.solutionShown());
        }
        EXPECT_EQ(m_checkSignals, changes); // each change announced once
        EXPECT_EQ(m_notifier.texts().count("All Done!"),
                  std::count(trace.begin(), trace.end(), 'A'));
        for (const RecordedMessage& m : m_notifier.messages())
            EXPECT_TRUE(m.text != "All Done!" || (m.style == "vbhappy+vbok" && !m.standard));
    }
}

TEST_F(Completion, TicksWhileAMessageIsOpenOrTheClearLetsEventsRunOpenNoSecondMessage) {
    fill();
    m_board.apply(Move::solutionPress()), m_board.apply(Move::solutionRelease());
    m_notifier.duringMessage = [this] { EXPECT_FALSE(m_board.completionTick()); };
    clearEntries(AnswerNo); // the board's own question, declined: still full, the check on
    m_gate.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo")); // another's
    QStringList order; // a tick during "All Done!" is dropped; events run after it
    m_notifier.duringMessage = [&] {
        order << "message";
        m_board.completionTick();
    };
    m_pump.setAction([&] { order << "events"; });
    EXPECT_TRUE(m_board.completionTick());
    EXPECT_EQ(order, QStringList({"message", "events"}));
    m_board.apply(Move::solutionPress()), m_board.apply(Move::solutionRelease());
    m_notifier.duringMessage = {};
    m_pump.setAction([this] { EXPECT_FALSE(m_board.completionTick()); });
    clearEntries(AnswerYes);
    EXPECT_EQ(m_notifier.texts(), QStringList({"Clear all User Entries?", "Exit?", "All Done!",
                                               "Clear all User Entries?"}));
}

TEST(MessageGate, IsOpenUntilTheOuterOfTwoNestedMessagesClosesOrOneThrows) {
    RecordingNotifier inner;
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
    inner.duringMessage = [] { throw std::runtime_error("message window failed"); };
    EXPECT_THROW(gate.MsgboxA("x", "vbOkOnly"), std::runtime_error);
    EXPECT_FALSE(gate.isOpen());
}
