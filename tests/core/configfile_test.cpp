// The configuration file: its exact five lines, how each line is read, the fallback to the
// defaults for a missing or damaged file, and the message when it cannot be saved.
#include "core/configfile.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"
#include "support/writefault.h"

#include <QDir>
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
    const struct {
        const char* why;
        QByteArray bytes;
    } rows[] = {
        {"missing", {}},
        {"empty", ""},
        {"four lines", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n"},
        {"size not a number", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n big \r\n"},
        {"size empty", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n\r\n"},
        {"size with letters", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n 12pt\r\n"},
        {"size too large", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n 4294967296 \r\n"},
        {"size decimal", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n 12.5 \r\n"},
        // Sizes the Options window cannot set: tiny or negative letters, clipped ones.
        {"size 7", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n 7 \r\n"},
        {"size -5", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n-5 \r\n"},
        {"size 33", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n 33 \r\n"},
        {"size 60", "d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n 60 \r\n"},
        {"binary", QByteArray("\x00\x01\x02\xff\xfe", 5)},
        // One byte over the 64 KiB a configuration file may have.
        {"huge", QByteArray("d\r\nblue.col\r\n/x/words.txt\r\nTahoma\r\n 12 \r\n")
                     .leftJustified(64 * 1024 + 1, 'x')},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        settings = Settings::forFolder(folder.path());
        settings.BoardFontSize = 24; // the defaults leave the font size as it was
        if (row.bytes.isNull())
            QFile::remove(folder.file(QStringLiteral("pentalink.cfg")));
        else
            writeCfg(row.bytes);
        EXPECT_EQ(config().ReadcfgFile(), ConfigFile::ReadResult::DefaultsWritten);
        EXPECT_EQ(cfgBytes(), kDefaultFile);
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

TEST_F(ConfigFileTest, DictionaryLineIsKeptWhenTheFileExists) {
    folder.write(QStringLiteral("english1.txt"), "word\r\n");
    folder.write(QStringLiteral("Big Words.TXT"), "abcd\r\n");
    folder.write(QStringLiteral("empty.txt"), "");
    const QString fallback = folder.file(QStringLiteral("english1.txt"));
    const struct {
        QString line;
        QString path;
    } rows[] = {
        {folder.file(QStringLiteral("Big Words.TXT")),
         folder.file(QStringLiteral("Big Words.TXT"))},
        {QStringLiteral("Big Words.TXT"), folder.file(QStringLiteral("Big Words.TXT"))},
        {folder.file(QStringLiteral("big words.txt")), fallback},
        // The default file's "ENGLISH1.TXT" is not "english1.txt" on a case-sensitive file
        // system.
        {QStringLiteral("ENGLISH1.TXT"), fallback},
        {folder.file(QStringLiteral("empty.txt")), fallback},
        {QString(), fallback},
    };
    for (const auto& row : rows) {
        // CR only, a blank scheme line and a line too many.
        const QByteArray bytes = "d\r\r" + row.line.toUtf8() + "\rArial\r 18 \rmore\r";
        writeCfg(bytes);
        EXPECT_EQ(config().ReadcfgFile(), ConfigFile::ReadResult::Read);
        EXPECT_EQ(settings.DictionaryPath, row.path) << row.line.toStdString();
        EXPECT_EQ(settings.ActiveSchemeFile, QString());
        EXPECT_EQ(cfgBytes(), bytes); // reading never rewrites a good file
    }
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

    Settings reread = Settings::forFolder(folder.path());
    EXPECT_EQ(ConfigFile(reread, notifier).ReadcfgFile(), ConfigFile::ReadResult::Read);
    EXPECT_EQ(reread.ActiveSchemeFile, settings.ActiveSchemeFile);
    EXPECT_EQ(reread.DictionaryPath, settings.DictionaryPath);
    EXPECT_EQ(reread.BoardFontName, settings.BoardFontName);
    EXPECT_EQ(reread.BoardFontSize, 9);
}

TEST_F(ConfigFileTest, FontNamesWithEdgeBlanksCommasOrQuotesSurviveSaveAndReload) {
    const struct {
        const char* name;
        const char* line; // line 4 as written
    } rows[] = {
        {"im ", "\"im \""},
        {"Times, New", "\"Times, New\""},
        {"\"Quoted\"", "\"\"\"Quoted\"\"\""},
        {"a\"b", "\"a\"\"b\""},
        {" lead", "\" lead\""},
        {"\t", "\"\t\""},
        {",", "\",\""},
        {"Times New Roman", "Times New Roman"},
        {"", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        settings.BoardFontName = QString::fromUtf8(row.name);
        ASSERT_TRUE(config().SavecfgFile());
        EXPECT_EQ(cfgBytes().split('\n').value(3), QByteArray(row.line) + '\r');
        Settings reread = Settings::forFolder(folder.path());
        EXPECT_EQ(ConfigFile(reread, notifier).ReadcfgFile(), ConfigFile::ReadResult::Read);
        EXPECT_EQ(reread.BoardFontName, settings.BoardFontName);
    }
    // A name so long that the reader would refuse the file is not saved over a good one.
    const QByteArray good = cfgBytes();
    settings.BoardFontName = QString(70000, u'x');
    EXPECT_FALSE(config().SavecfgFile());
    EXPECT_EQ(cfgBytes(), good);
    EXPECT_EQ(notifier.messages().size(), 1);
}

TEST_F(ConfigFileTest, SaveFormatsTimeAndSignPosition) {
    const QDateTime morning(QDate(2024, 12, 5), QTime(7, 3, 0));
    EXPECT_EQ(ConfigFile::formatFile(morning, QStringLiteral("a"), QStringLiteral("b"),
                                     QStringLiteral("c"), -12),
              QStringLiteral("12-05-2024 07:03:00\r\na\r\nb\r\nc\r\n-12 \r\n"));
    const QDateTime evening(QDate(2024, 1, 9), QTime(23, 59, 58));
    EXPECT_EQ(ConfigFile::formatFile(evening, QStringLiteral("a\r\nb"), QString(), QString(), 0),
              QStringLiteral("01-09-2024 23:59:58\r\na  b\r\n\r\n\r\n 0 \r\n"));
}

// Leaving through Exit when the file cannot be written: the message, the old file kept byte
// for byte, and the program goes on.
class ConfigSaveFault : public testing::TestWithParam<WriteFault> {};

TEST_P(ConfigSaveFault, ShowsTheMessageAndKeepsTheOldFile) {
    const WriteFaultOutcome outcome = runWithWriteFault(
        GetParam(),
        {[](const QString& folder) { writeFaultFile(folder + "pentalink.cfg", kDefaultFile); },
         [](const QString&, const QString& target, Notifier& notifier) {
             Settings settings = Settings::forFolder(target);
             settings.ActiveSchemeFile = QStringLiteral("changed.col");
             settings.BoardFontName = QStringLiteral("A much longer font name than before");
             return QString::number(ConfigFile(settings, notifier).SavecfgFile());
         },
         40});
    if (outcome.skipped)
        GTEST_SKIP() << outcome.skipReason.toStdString();
    EXPECT_TRUE(outcome.finished) << outcome.result.toStdString();
    EXPECT_EQ(outcome.result, QStringLiteral("0"));
    EXPECT_EQ(
        outcome.messages,
        QStringList{QStringLiteral("Configuration file:\n") + outcome.target +
                    QStringLiteral("pentalink.cfg\ncould not be accessed, options not saved")});
    EXPECT_EQ(outcome.changed, QStringList());
    EXPECT_EQ(outcome.added, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Faults, ConfigSaveFault, testing::ValuesIn(kWriteFaults),
                         [](const auto& info) { return writeFaultName(info.param); });

TEST_F(ConfigFileTest, MissingFolderTakesTheDefaultsButCannotSave) {
    settings.AppFolder = folder.path() + QStringLiteral("gone/");
    EXPECT_EQ(config().ReadcfgFile(), ConfigFile::ReadResult::DefaultsNotWritten);
    EXPECT_EQ(settings.ActiveSchemeFile, QStringLiteral("xp.col"));
    EXPECT_EQ(settings.DictionaryPath, QStringLiteral("english1.txt"));
    EXPECT_EQ(settings.BoardFontName, QStringLiteral("Arial"));
    EXPECT_TRUE(notifier.messages().isEmpty());
    EXPECT_FALSE(config().SavecfgFile());
    ASSERT_EQ(notifier.messages().size(), 1);
    EXPECT_TRUE(notifier.messages().at(0).text.contains(settings.AppFolder + "pentalink.cfg"));
}
