// Error records of the word list: the message shown and the exact log lines appended; a log
// that cannot take a whole record is left as it was and the failure ignored.
#include "core/appfolder.h"
#include "core/clssimplearray.h"
#include "core/errorlog.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"
#include "support/writefault.h"

#include <QDir>
#include <QSysInfo>

#include <gtest/gtest.h>

namespace {

const QDateTime kWhen(QDate(2010, 1, 31), QTime(17, 5, 9));
const QString kIndexError = QStringLiteral(
    "The selected index number exceeds the number of elements dimensioned in the array!");

class ErrorLogTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_previousUser = qgetenv("USER");
        qputenv("USER", "tester");
        m_list.setClock([] { return kWhen; });
    }
    void TearDown() override { qputenv("USER", m_previousUser); }

    QString log() const { return QString::fromUtf8(m_folder.read(QStringLiteral("ErrorLog.txt"))); }
    static QString line(const QString& function, const QString& user) {
        return QStringLiteral("#2010-01-31 17:05:09#,\"0\",\"") + kIndexError +
               QStringLiteral("\",\"clsSimpleArray\",\"") + function +
               QStringLiteral("\",\"Pentalink v1.0.0\",\"") + user + QStringLiteral("\",\"") +
               QSysInfo::machineHostName() + QStringLiteral("\"\r\n");
    }

    TestFolder m_folder;
    RecordingNotifier m_notifier;
    clsSimpleArray m_list{&m_notifier};
    QByteArray m_previousUser;
};

} // namespace

TEST_F(ErrorLogTest, IndexErrorShowsTheCriticalBoxAndAppendsTheRecord) {
    m_list.List(3);
    ASSERT_EQ(m_notifier.messages().size(), 1);
    const RecordedMessage& shown = m_notifier.messages()[0];
    EXPECT_TRUE(shown.standard);
    EXPECT_EQ(shown.title, QStringLiteral("Pentalink - ERROR"));
    EXPECT_EQ(shown.style, QStringLiteral("vbcritical+vbok"));
    EXPECT_EQ(shown.text, QStringLiteral("Error occured: 0\r\nDescription: ") + kIndexError +
                              QStringLiteral("\r\nModule: clsSimpleArray\r\nFunction: Get List"));
    m_list.ItemData(-1, 2);
    EXPECT_EQ(log(), line(QStringLiteral("Get List"), QStringLiteral("tester")) +
                         line(QStringLiteral("Let ItemData"), QStringLiteral("tester")));
}

TEST_F(ErrorLogTest, WithoutNotifierOrUSERTheRecordIsStillKept) {
    qunsetenv("USER");
    qputenv("USERNAME", "other");
    clsSimpleArray silent;
    silent.setClock([] { return kWhen; });
    silent.RemoveItem(0);
    qunsetenv("USERNAME");
    EXPECT_EQ(log(), line(QStringLiteral("RemoveItem"), QStringLiteral("other")));
}

TEST_F(ErrorLogTest, MessageOmitsEmptyParts) {
    EXPECT_EQ(errorMessageText({QString(), QStringLiteral("d"), QString(), QStringLiteral("f")}),
              QStringLiteral("Error occured: \r\nDescription: d\r\nFunction: f"));
}

TEST_F(ErrorLogTest, ARecordAfterATornLineStartsOnANewLine) {
    m_folder.write(QStringLiteral("ErrorLog.txt"), "#2026-");
    m_list.RemoveItem(0);
    EXPECT_EQ(log(), QStringLiteral("#2026-\r\n") +
                         line(QStringLiteral("RemoveItem"), QStringLiteral("tester")));
}

TEST_F(ErrorLogTest, UnwritableLogIsIgnored) {
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("ErrorLog.txt")));
    m_list.List(1);
    EXPECT_EQ(m_notifier.messages().size(), 1);
    EXPECT_FALSE(appendErrorLogLine(m_folder.file(QStringLiteral("ErrorLog.txt")), kWhen,
                                    {QStringLiteral("0"), {}, {}, {}}));
}

// A log that cannot take the whole record (a full disk, a size limit, no folder) keeps every
// byte it had, never half a record; the message is still shown and the list goes on.
class ErrorLogFault : public testing::TestWithParam<WriteFault> {};

TEST_P(ErrorLogFault, KeepsTheLogWholeAndTheListGoesOn) {
    // 4,090 bytes ending in a line break: its 4 KiB page has room for only six more bytes.
    QByteArray oldLog;
    while (oldLog.size() < 4090)
        oldLog += "#2026-01-01 00:00:00#,\"0\",\"earlier\"\r\n";
    oldLog = oldLog.left(4088) + "\r\n";
    const WriteFaultOutcome outcome = runWithWriteFault(
        GetParam(),
        {[&](const QString& folder) { writeFaultFile(folder + "ErrorLog.txt", oldLog); },
         [](const QString&, const QString& target, Notifier& notifier) {
             qputenv("PENTALINK_HOME", target.toLocal8Bit());
             resetAppFolderForTests();
             clsSimpleArray list(&notifier);
             list.AddItem(QStringLiteral("word"));
             list.RemoveItem(5);
             return list.List(0);
         },
         oldLog.size() + 8});
    if (outcome.skipped)
        GTEST_SKIP() << outcome.skipReason.toStdString();
    EXPECT_TRUE(outcome.finished) << outcome.result.toStdString();
    EXPECT_EQ(outcome.result, QStringLiteral("word"));
    ASSERT_EQ(outcome.messages.size(), 1);
    EXPECT_TRUE(outcome.messages.at(0).endsWith(QStringLiteral("Function: RemoveItem")));
    EXPECT_EQ(outcome.changed, QStringList());
    EXPECT_EQ(outcome.added, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Faults, ErrorLogFault, testing::ValuesIn(kWriteFaults),
                         [](const auto& info) { return writeFaultName(info.param); });
