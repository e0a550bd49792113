// The configuration file: its five lines, how each is read, the fallback to the defaults.
#include "core/configfile.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

const QDateTime kNow(QDate(2010, 1, 31), QTime(17, 5, 9));
const QByteArray kDefaultFile =
    "01-31-2010 17:05:09\r\nxp.col\r\nENGLISH1.TXT\r\nArial\r\n 18 \r\n";

class ConfigFileTest : public testing::Test {
protected:
    ConfigFile config() {
        return ConfigFile(settings, notifier, [] { return kNow; });
    }
    QByteArray cfgBytes() const { return folder.read(QStringLiteral("pentalink.cfg")); }
    void writeCfg(const QByteArray& bytes) const {
        folder.write(QStringLiteral("pentalink.cfg"), bytes);
    }

    TestFolder folder;
    Settings settings = Settings::forFolder(folder.path());
    RecordingNotifier notifier;
};

} // namespace

TEST_F(ConfigFileTest, MissingOrDamagedFilesAreRewrittenWithTheDefaults) {
    const QByteArray head = "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n";
    const struct {
        const char* why;
        QByteArray bytes;
        bool written = true; // false: the folder is gone, so the defaults cannot be written
    } rows[] = {
        {"missing", {}},
        {"no folder", {}, false},
        {"four lines", head},
        {"size with letters", head + " 12pt\r\n"},
        {"size too large", head + " 4294967296 \r\n"},
        // Sizes the Options window cannot set: tiny letters, clipped ones.
        {"size 7", head + " 7 \r\n"},
        {"size 33", head + " 33 \r\n"},
        {"binary", QByteArray("\x00\x01\x02\xff\xfe", 5)},
        // One byte over the 64 KiB a configuration file may have.
        {"huge", (head + " 12 \r\n").leftJustified(64 * 1024 + 1, 'x')},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        settings = Settings::forFolder(folder.path());
        settings.BoardFontSize = 24; // the defaults leave the font size as it was
        if (row.bytes.isNull())
            QFile::remove(folder.file(QStringLiteral("pentalink.cfg")));
        else
            writeCfg(row.bytes);
        if (!row.written)
            settings.AppFolder += QStringLiteral("gone/");
        EXPECT_EQ(config().ReadcfgFile(), row.written ? ConfigFile::ReadResult::DefaultsWritten
                                                      : ConfigFile::ReadResult::DefaultsNotWritten);
        EXPECT_EQ(cfgBytes(), row.written ? kDefaultFile : QByteArray());
        EXPECT_EQ(settings.ActiveSchemeFile, QStringLiteral("xp.col"));
        EXPECT_EQ(settings.DictionaryPath, QStringLiteral("english1.txt"));
        EXPECT_EQ(settings.BoardFontName, QStringLiteral("Arial"));
        EXPECT_EQ(settings.BoardFontSize, 24);
    }
    EXPECT_TRUE(notifier.messages().isEmpty());
}

TEST_F(ConfigFileTest, FontLineIsOneDelimitedFieldAndSizeLineOneNumber) {
    const struct {
        QByteArray fontLine;
        const char* font;
        QByteArray sizeLine;
        qint32 size;
    } rows[] = {
        {"Times New Roman, Bold", "Times New Roman", " 18 ", 18},
        {"\"Times New Roman, Bold\"", "Times New Roman, Bold", "24", 24},
        {"\"Courier New\"", "Courier New", "8 ", 8},
        {"   Verdana  ,x", "Verdana", " 12,13", 12},
        {"\t\"Open Quote", "Open Quote", "\t14\t", 14},
        {"\"DejaVu Sans\" trailing", "DejaVu Sans", " 9 10", 9},
        {"\"a\"\"b\"\"\", c", "a\"b\"", "20", 20}, // a doubled quote stands for one
        {"", "", "+11", 11},
        {"Arial", "Arial", " 32 ", 32},
        {"\xe9t\xe9", "\xe9t\xe9", "17", 17}, // not UTF-8: read as Windows-1252
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fontLine.data());
        writeCfg("d\nxp.col\nx\n" + row.fontLine + "\n" + row.sizeLine + "\n"); // LF only
        EXPECT_EQ(config().ReadcfgFile(), ConfigFile::ReadResult::Read);
        EXPECT_EQ(settings.BoardFontName, QString::fromLatin1(row.font));
        EXPECT_EQ(settings.BoardFontSize, row.size);
    }
    // A file of exactly 64 KiB is still read.
    writeCfg(QByteArray("d\nxp.col\nx\nArial\n 13\n").leftJustified(64 * 1024, 'x'));
    EXPECT_EQ(config().ReadcfgFile(), ConfigFile::ReadResult::Read);
    EXPECT_EQ(settings.BoardFontSize, 13);
}

TEST_F(ConfigFileTest, SaveWritesTheFiveLines) {
    folder.write(QStringLiteral("mine.txt"), "abcd\r\n");
    settings.ActiveSchemeFile = QStringLiteral("Ocean.col");
    settings.DictionaryPath = folder.file(QStringLiteral("mine.txt"));
    settings.BoardFontName = QStringLiteral("Fran\u00e7ais Sans");
    settings.BoardFontSize = 9;
    ASSERT_TRUE(config().SavecfgFile());
    EXPECT_EQ(cfgBytes(), "01-31-2010 17:05:09\r\nOcean.col\r\n" +
                              folder.file(QStringLiteral("mine.txt")).toUtf8() +
                              "\r\nFran\xc3\xa7"
                              "ais Sans\r\n 9 \r\n");
    EXPECT_TRUE(notifier.messages().isEmpty());
    // The sign position of a negative size, the 24-hour clock, line breaks inside a value.
    EXPECT_EQ(ConfigFile::formatFile(QDateTime(QDate(2024, 1, 9), QTime(23, 59, 58)),
                                     QStringLiteral("a\r\nb"), QString(), QString(), -12),
              QStringLiteral("01-09-2024 23:59:58\r\na  b\r\n\r\n\r\n-12 \r\n"));
}

TEST_F(ConfigFileTest, FontNamesWithEdgeBlanksCommasOrQuotesAreWrittenQuoted) {
    const struct {
        const char* name;
        const char* line; // line 4 as written
    } rows[] = {
        {"im ", "\"im \""},
        {"Times, New", "\"Times, New\""},
        {"a\"b", "\"a\"\"b\""},
        {"Times New Roman", "Times New Roman"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        settings.BoardFontName = QString::fromUtf8(row.name);
        ASSERT_TRUE(config().SavecfgFile());
        EXPECT_EQ(cfgBytes().split('\n').value(3), QByteArray(row.line) + '\r');
    }
    // A name so long that the reader would refuse the file is not saved over a good one.
    const QByteArray good = cfgBytes();
    settings.BoardFontName = QString(70000, u'x');
    EXPECT_FALSE(config().SavecfgFile());
    EXPECT_EQ(cfgBytes(), good);
    EXPECT_EQ(notifier.messages().size(), 1);
}
