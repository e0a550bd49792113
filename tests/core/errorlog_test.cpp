// Error records of the word list: the message shown and the log line, parsed back field by
// field; an unwritable log is ignored.
#include "core/clssimplearray.h"
#include "core/errorlog.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QDir>
#include <QSysInfo>

#include <gtest/gtest.h>

namespace {

const QDateTime kWhen(QDate(2010, 1, 31), QTime(17, 5, 9));

// Splits one log line into its fields: the first between "#" marks, the others quoted.
QStringList parseLogLine(const QString& line) {
    QStringList fields;
    qsizetype i = 0;
    while (i < line.size()) {
        const QChar open = line[i];
        if (open != u'#' && open != u'"')
            return {QStringLiteral("<bad field start>")};
        const qsizetype close = line.indexOf(open, i + 1);
        if (close < 0)
            return {QStringLiteral("<unclosed field>")};
        fields << (open == u'#' ? u'#' + line.mid(i + 1, close - i - 1) + u'#'
                                : line.mid(i + 1, close - i - 1));
        i = close + 1;
        if (i < line.size() && line[i] != u',')
            return {QStringLiteral("<missing comma>")};
        ++i;
    }
    return fields;
}

class ErrorLogTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_previousUser = qgetenv("USER");
        qputenv("USER", "tester");
        m_list.setClock([] { return kWhen; });
    }
    void TearDown() override { qputenv("USER", m_previousUser); }

    QStringList logLines() const {
        const QString log = QString::fromUtf8(m_folder.read(QStringLiteral("ErrorLog.txt")));
        QStringList lines = log.split(QStringLiteral("\r\n"));
        EXPECT_EQ(lines.takeLast(), QString()) << "every record ends with CR LF";
        return lines;
    }

    TestFolder m_folder;
    RecordingNotifier m_notifier;
    clsSimpleArray m_list{&m_notifier};
    QByteArray m_previousUser;
};

} // namespace

TEST_F(ErrorLogTest, IndexErrorShowsTheCriticalBoxWithEveryPart) {
    m_list.List(3);
    ASSERT_EQ(m_notifier.messages().size(), 1);
    const RecordedMessage& shown = m_notifier.messages()[0];
    EXPECT_TRUE(shown.standard);
    EXPECT_EQ(shown.title, QStringLiteral("Pentalink - ERROR"));
    EXPECT_EQ(shown.style, QStringLiteral("vbcritical+vbok"));
    EXPECT_EQ(shown.text,
              QStringLiteral("Error occured: 0\r\n"
                             "Description: The selected index number exceeds the number of "
                             "elements dimensioned in the array!\r\n"
                             "Module: clsSimpleArray\r\n"
                             "Function: Get List"));
}

TEST_F(ErrorLogTest, RecordIsAppendedFieldByField) {
    m_list.RemoveItem(0);
    m_list.ItemData(-1, 2);
    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 2);
    const QStringList fields = parseLogLine(lines[0]);
    ASSERT_EQ(fields.size(), 8) << lines[0].toStdString();
    EXPECT_EQ(fields[0], QStringLiteral("#2010-01-31 17:05:09#"));
    EXPECT_EQ(fields[1], QStringLiteral("0"));
    EXPECT_EQ(fields[2], QStringLiteral("The selected index number exceeds the number of elements "
                                        "dimensioned in the array!"));
    EXPECT_EQ(fields[3], QStringLiteral("clsSimpleArray"));
    EXPECT_EQ(fields[4], QStringLiteral("RemoveItem"));
    EXPECT_EQ(fields[5], QStringLiteral("Pentalink v1.0.0"));
    EXPECT_EQ(fields[6], QStringLiteral("tester"));
    EXPECT_EQ(fields[7], QSysInfo::machineHostName());
    EXPECT_EQ(parseLogLine(lines[1])[4], QStringLiteral("Let ItemData"));
}

TEST_F(ErrorLogTest, UserNameFallsBackToUSERNAME) {
    qunsetenv("USER");
    qputenv("USERNAME", "other");
    m_list.List(0);
    qunsetenv("USERNAME");
    EXPECT_EQ(parseLogLine(logLines().value(0)).value(6), QStringLiteral("other"));
}

TEST_F(ErrorLogTest, MessageOmitsEmptyParts) {
    EXPECT_EQ(errorMessageText({QString(), QStringLiteral("d"), QString(), QStringLiteral("f")}),
              QStringLiteral("Error occured: \r\nDescription: d\r\nFunction: f"));
}

TEST_F(ErrorLogTest, UnwritableLogIsIgnored) {
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("ErrorLog.txt")));
    m_list.List(1);
    EXPECT_EQ(m_notifier.messages().size(), 1);
    EXPECT_FALSE(appendErrorLogLine(m_folder.file(QStringLiteral("ErrorLog.txt")), kWhen,
                                    {QStringLiteral("0"), {}, {}, {}}));
}

TEST_F(ErrorLogTest, WithoutNotifierNothingIsShownButTheRecordIsKept) {
    clsSimpleArray silent;
    silent.setClock([] { return kWhen; });
    silent.ItemData(0);
    EXPECT_EQ(parseLogLine(logLines().value(0)).value(4), QStringLiteral("Get ItemData"));
}
