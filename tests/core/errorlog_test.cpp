// Error records of the word list: the message shown and the exact log lines appended.
#include "core/clssimplearray.h"
#include "core/errorlog.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

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
    // Without a notifier or $USER the record is still kept, with $USERNAME.
    qunsetenv("USER");
    qputenv("USERNAME", "other");
    clsSimpleArray silent;
    silent.setClock([] { return kWhen; });
    silent.RemoveItem(0);
    qunsetenv("USERNAME");
    EXPECT_EQ(log(), line(QStringLiteral("Get List"), QStringLiteral("tester")) +
                         line(QStringLiteral("RemoveItem"), QStringLiteral("other")));
    EXPECT_EQ(errorMessageText({QString(), QStringLiteral("d"), QString(), QStringLiteral("f")}),
              QStringLiteral("Error occured: \r\nDescription: d\r\nFunction: f"));
}

TEST_F(ErrorLogTest, ARecordAfterATornLineStartsOnANewLine) {
    m_folder.write(QStringLiteral("ErrorLog.txt"), "#2026-");
    m_list.RemoveItem(0);
    EXPECT_EQ(log(), QStringLiteral("#2026-\r\n") +
                         line(QStringLiteral("RemoveItem"), QStringLiteral("tester")));
}
