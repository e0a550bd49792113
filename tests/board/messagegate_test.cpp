// The message gate: passes messages and answers through and knows when one is open.
#include "board/messagegate.h"
#include "support/recordingnotifier.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace {

// Runs a hook while "showing" a message; throws when asked to.
class ProbeNotifier : public RecordingNotifier {
public:
    int MsgboxA(const QString& s, const QString& typ) override {
        const int answer = RecordingNotifier::MsgboxA(s, typ);
        if (during)
            during();
        if (fail)
            throw std::runtime_error("message window failed");
        return answer;
    }
    int standardBox(const QString& text, const QString& typ, const QString& title) override {
        const int answer = RecordingNotifier::standardBox(text, typ, title);
        if (during)
            during();
        return answer;
    }

    std::function<void()> during;
    bool fail = false;
};

} // namespace

TEST(MessageGate, PassesMessagesAndAnswersThrough) {
    ProbeNotifier inner;
    MessageGate gate(inner);
    inner.queueAnswer(AnswerNo);
    inner.queueAnswer(AnswerRetry);
    EXPECT_EQ(gate.MsgboxA("Exit?", "vbQuestion + vbYesNo"), AnswerNo);
    EXPECT_EQ(gate.standardBox("Oops", "vbRetryCancel", "Options"), AnswerRetry);
    ASSERT_EQ(inner.messages().size(), 2);
    EXPECT_EQ(inner.messages()[0].style, QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_EQ(inner.messages()[1].title, QStringLiteral("Options"));
    EXPECT_TRUE(inner.messages()[1].standard);
}

TEST(MessageGate, IsOpenExactlyWhileAMessageWaits) {
    ProbeNotifier inner;
    MessageGate gate(inner);
    std::vector<bool> seen;
    inner.during = [&] { seen.push_back(gate.isOpen()); };
    EXPECT_FALSE(gate.isOpen());
    gate.MsgboxA("a", "vbOkOnly");
    gate.standardBox("b", "vbOkOnly", "t");
    EXPECT_EQ(seen, (std::vector<bool>{true, true}));
    EXPECT_FALSE(gate.isOpen());
}

TEST(MessageGate, StaysOpenUntilTheOuterOfTwoNestedMessagesCloses) {
    ProbeNotifier inner;
    MessageGate gate(inner);
    bool openAfterInner = false;
    bool nested = false;
    inner.during = [&] {
        if (nested)
            return;
        nested = true;
        gate.MsgboxA("inner", "vbOkOnly");
        openAfterInner = gate.isOpen();
    };
    gate.MsgboxA("outer", "vbOkOnly");
    EXPECT_TRUE(openAfterInner);
    EXPECT_FALSE(gate.isOpen());
}

TEST(MessageGate, ClosesWhenTheMessageWindowThrows) {
    ProbeNotifier inner;
    MessageGate gate(inner);
    inner.fail = true;
    EXPECT_THROW(gate.MsgboxA("x", "vbOkOnly"), std::runtime_error);
    EXPECT_FALSE(gate.isOpen());
}
