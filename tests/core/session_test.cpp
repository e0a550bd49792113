// The create and dictionary commands: messages, window updates, reloads, overlapping requests.
#include "core/memoryinfo.h"
#include "core/puzzlesession.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"
#include "support/testwords.h"

#include <gtest/gtest.h>

namespace {

class SessionTest : public ::testing::Test {
protected:
    SessionTest() {
        m_session.eventPump().setAction({});
        m_session.dictionary().setShuffled(false);
        QObject::connect(&m_session, &PuzzleSession::waitPointerChanged,
                         [this](bool on) { m_events << (on ? "wait" : "arrow"); });
        QObject::connect(&m_session, &PuzzleSession::dictionaryStatusChanged,
                         [this](const QString& text, const QString&) { m_events << text; });
    }

    // The create command, recording where the search starts and ends.
    PuzzleSession::CreateOutcome create() {
        return m_session.createPuzzle(
            [this](bool searching) { m_events << (searching ? "search" : "search-end"); });
    }

    TestFolder m_folder;
    RecordingNotifier m_notifier;
    PuzzleSession m_session{&m_notifier};
    QStringList m_events;
};

} // namespace

TEST_F(SessionTest, CreateTellsTheWindowInOrderAndUsesUpRootsUntilAFailureReloadsThem) {
    EXPECT_EQ(create(), PuzzleSession::CreateOutcome::NoDictionary);
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("No Dictioary Loaded"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbcritical+vbok"));
    EXPECT_FALSE(m_notifier.messages()[0].standard);
    EXPECT_TRUE(m_events.isEmpty());
    m_notifier.clear();

    const QString path = m_folder.writeLines(QStringLiteral("known.txt"), testwords::kEight);
    ASSERT_TRUE(m_session.openDictionary(path));
    m_events.clear();
    EXPECT_EQ(create(), PuzzleSession::CreateOutcome::Created);
    EXPECT_EQ(m_events, QStringList({"wait", "search", "search-end", "arrow"}));
    EXPECT_TRUE(m_notifier.messages().isEmpty());
    QStringList roots = {m_session.lastGeneration().root};
    EXPECT_EQ(roots[0], QStringLiteral("sect"));
    PuzzleSession::CreateOutcome outcome;
    while (m_events.clear(), (outcome = create()) == PuzzleSession::CreateOutcome::Created) {
        EXPECT_FALSE(roots.contains(m_session.lastGeneration().root));
        roots << m_session.lastGeneration().root;
        ASSERT_EQ(m_session.WordList().ListCount(), 16 - roots.size());
    }
    EXPECT_EQ(outcome, PuzzleSession::CreateOutcome::Failed);
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text,
              QStringLiteral("Unable to create a puzzle\r\n"
                             "The Dictionary may not have enough words for this puzzle\r\n"
                             "Will reinstate the words used already ...\r\n"
                             "Please try again"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbcritical+vbok"));
    EXPECT_EQ(m_events, QStringList({"wait", "search", "search-end", "arrow", "wait", "arrow",
                                     "Dictionary: known.txt (8 words)"}));
    EXPECT_EQ(m_session.WordList().ListCount(), 16);
    EXPECT_FALSE(m_session.grid().hasSolution());

    // A reload that fails keeps the used-up list.
    const QString few = m_folder.writeLines(QStringLiteral("few.txt"), testwords::kSeven);
    ASSERT_TRUE(m_session.openDictionary(few));
    ASSERT_TRUE(QFile::remove(few));
    m_session.WordList().RemoveItem(0);
    m_notifier.clear();
    EXPECT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Failed);
    EXPECT_EQ(m_notifier.messages().size(), 2); // the four lines, then the unreadable file
    EXPECT_EQ(m_session.WordList().ListCount(), 13);
}

TEST_F(SessionTest, RequestsWhileCreatingAreIgnored) {
    const QString known = m_folder.writeLines(QStringLiteral("known.txt"), testwords::kEight);
    const QString other = m_folder.writeLines(QStringLiteral("other.txt"), testwords::kSeven);
    ASSERT_TRUE(m_session.openDictionary(known));
    qint64 now = 0;
    m_session.eventPump().setClock([&now] { return now += 100; }); // every poll runs
    QList<PuzzleSession::CreateOutcome> nested;
    bool openedDuringRun = false;
    m_session.eventPump().setAction([&] {
        nested << m_session.createPuzzle();
        openedDuringRun = openedDuringRun || m_session.openDictionary(other);
    });
    EXPECT_EQ(m_session.createPuzzle(), PuzzleSession::CreateOutcome::Created);
    ASSERT_FALSE(nested.isEmpty());
    for (PuzzleSession::CreateOutcome o : nested)
        EXPECT_EQ(o, PuzzleSession::CreateOutcome::Ignored);
    EXPECT_FALSE(openedDuringRun);
    EXPECT_EQ(m_session.DictionaryPath(), known);
    EXPECT_FALSE(m_session.isBusy());
}

TEST_F(SessionTest, DictionaryCommandKeepsEverythingOnCancelOrFailure) {
    const QString path = m_folder.writeLines(QStringLiteral("known.txt"), testwords::kEight);
    EXPECT_TRUE(m_session.openDictionary(path));
    EXPECT_EQ(m_session.DictionaryPath(), path);
    EXPECT_EQ(m_events, QStringList({"wait", "arrow", "Dictionary: known.txt (8 words)"}));
    m_events.clear();

    EXPECT_FALSE(m_session.openDictionary(QString())); // cancelled picker
    EXPECT_FALSE(m_session.openDictionary(m_folder.file(QStringLiteral("nope.txt"))));
    // Words that need more memory than there is; the window closing during a load (silently).
    const QString other = m_folder.writeLines(QStringLiteral("other.txt"), testwords::kSeven);
    m_session.dictionary().setAvailableMemory([] { return qint64{0}; });
    EXPECT_FALSE(m_session.openDictionary(other));
    m_session.dictionary().setAvailableMemory({});
    m_session.eventPump().setClock([now = qint64{0}]() mutable { return now += 100; });
    m_session.eventPump().setAction([this] { m_session.abandonWork(); });
    EXPECT_FALSE(m_session.openDictionary(other));
    EXPECT_FALSE(m_session.eventPump().stopRequested());

    EXPECT_EQ(m_session.DictionaryPath(), path);
    EXPECT_EQ(m_session.WordList().ListCount(), 16);
    EXPECT_EQ(m_session.dictionary().statusText(),
              QStringLiteral("Dictionary: known.txt (8 words)"));
    EXPECT_EQ(m_events, QStringList({"wait", "arrow", "wait", "arrow", "wait", "arrow"}));
    ASSERT_EQ(m_notifier.messages().size(), 2);
    EXPECT_TRUE(m_notifier.messages()[0].text.contains(QStringLiteral("nope.txt")));
    EXPECT_TRUE(m_notifier.messages()[1].text.contains(QStringLiteral("not enough memory")));
}

TEST_F(SessionTest, ASmallListLoadedAfterABigOneGivesTheMemoryBack) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer's allocator holds freed memory back on purpose";
#endif
    QByteArray big; // 600,000 words: the list and the generator's index take tens of MB
    for (int n = 0; n < 600000; ++n) {
        for (int k = 0, v = n; k < 4; ++k, v /= 26)
            big += char('a' + v % 26);
        big += "\r\n";
    }
    m_folder.write(QStringLiteral("big.txt"), big);
    big = {};
    const QString small = m_folder.writeLines(QStringLiteral("known.txt"), testwords::kEight);
    const qint64 before = residentBytes();
    m_session.dictionary().setShuffled(true); // in file order every attempt would fail
    ASSERT_TRUE(m_session.openDictionary(m_folder.file(QStringLiteral("big.txt"))));
    ASSERT_EQ(create(), PuzzleSession::CreateOutcome::Created);
    const qint64 grown = residentBytes() - before;
    ASSERT_TRUE(m_session.openDictionary(small));
    EXPECT_GT(grown, qint64{30} << 20);
    EXPECT_LT(residentBytes() - before, qint64{4} << 20) << "after growing by " << grown;
}
