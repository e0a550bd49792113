// pentalink-gen run as a user runs it: JSON lines, the text drawing, the default dictionary
// of the program folder, and bad arguments.
#include "support/testfolder.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <random>

namespace {

const QStringList kKnownWords = {"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"};

struct GenRun {
    int exitCode = -1;
    QString out;
    QString err;
};

GenRun runGen(const QStringList& arguments,
              const QString& program = QStringLiteral(PENTALINK_GEN_PATH)) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    GenRun run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

class PentalinkGenTest : public ::testing::Test {
protected:
    QString writeDictionary(const QString& name, const QStringList& words) {
        m_folder.write(name, words.join(u'\n').toUtf8());
        return m_folder.file(name);
    }

    TestFolder m_folder;
};

} // namespace

TEST_F(PentalinkGenTest, JsonOfTheProgramFoldersEnglish1InFileOrder) {
    writeDictionary(QStringLiteral("english1.txt"), kKnownWords);
    const GenRun run = runGen({"--no-shuffle", "--format", "json"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(
        run.out,
        QStringLiteral("{\"ok\": true, \"root\": \"sect\", \"cells\": [\"k\", \"s\", \"e\", "
                       "\"c\", \"t\", \"e\", \"e\", \"o\", \"p\", \"h\"], \"candidates\": "
                       "[\"hawk\", \"heck\", \"hoes\", \"keep\", \"peek\", \"poet\", \"sect\", "
                       "\"smut\"], \"decoys\": [1, 0, 0, 1, 0, 0, 0, 1], \"list_count\": 15}\n"));
}

TEST_F(PentalinkGenTest, SeededJsonLinesRepeatAndCountTheEntriesLeft) {
    QStringList words;
    std::mt19937 random(5);
    for (int n = 0; n < 150; ++n) {
        QString w;
        for (int k = 0; k < 4; ++k)
            w += QChar(char16_t(u'a' + random() % 5));
        words << w;
    }
    const QString path = writeDictionary(QStringLiteral("many.txt"), words);
    const QStringList args = {"--dictionary", path, "--count",  "6",
                              "--seed",       "11", "--format", "json"};
    const GenRun run = runGen(args);
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(runGen(args).out, run.out) << "the same seed gives the same puzzles";
    EXPECT_TRUE(run.out.endsWith(u'\n'));
    const QStringList output = run.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(output.size(), 6);
    int expectedCount = 2 * int(words.size());
    int puzzles = 0;
    for (const QString& line : output) {
        const QJsonObject o = QJsonDocument::fromJson(line.toUtf8()).object();
        const bool ok = o.value(QStringLiteral("ok")).toBool();
        puzzles += ok;
        // A success uses up its root entry; a failure reloads the dictionary.
        expectedCount = ok ? expectedCount - 1 : 2 * int(words.size());
        EXPECT_EQ(o.value(QStringLiteral("list_count")).toInt(), expectedCount)
            << line.toStdString();
    }
    EXPECT_GE(puzzles, 4);
}

TEST_F(PentalinkGenTest, FailedRequestsReportTheReloadedCount) {
    const QString path = writeDictionary(QStringLiteral("few.txt"),
                                         {"aaaa", "aaab", "abaa", "abab", "baba", "bbbb", "abba"});
    const GenRun run = runGen({"--dictionary", path, "--count", "2", "--format", "json"});
    ASSERT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, QStringLiteral("{\"ok\": false, \"list_count\": 14}\n"
                                      "{\"ok\": false, \"list_count\": 14}\n"));
}

TEST_F(PentalinkGenTest, TextDrawsTheStarAndMarksTheDecoys) {
    const QString path = writeDictionary(QStringLiteral("known.txt"), kKnownWords);
    const GenRun run = runGen({"--dictionary", path, "--no-shuffle"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(
        run.out.startsWith(QStringLiteral("Puzzle 1 (root entry \"sect\", 15 entries left)")));
    EXPECT_EQ(run.out.count(QStringLiteral("(decoy)")), 3);
    for (const QString& word : kKnownWords)
        EXPECT_TRUE(run.out.contains(word)) << word.toStdString();
    // The bar: left tip s, crossings e and c, right tip t, on one line joined by dashes.
    EXPECT_TRUE(run.out.contains(QRegularExpression(QStringLiteral("s-+e-+c-+t"))));
}

TEST_F(PentalinkGenTest, BadArgumentsAndUnreadableDictionariesExitWithTwo) {
    const QString path = writeDictionary(QStringLiteral("known.txt"), kKnownWords);
    const QString empty = writeDictionary(QStringLiteral("empty.txt"), {"toolong", "abc"});
    const QList<QStringList> cases = {
        {"--count", "0", "--dictionary", path},
        {"--count", "many", "--dictionary", path},
        {"--seed", "-1", "--dictionary", path},
        {"--format", "xml", "--dictionary", path},
        {"--frobnicate"},
        {"--dictionary", path, "extra"},
        {"--dictionary", m_folder.file(QStringLiteral("missing.txt"))},
        {"--dictionary", m_folder.path()},
        {"--dictionary", empty},
    };
    for (const QStringList& args : cases) {
        const GenRun run = runGen(args);
        EXPECT_EQ(run.exitCode, 2) << args.join(u' ').toStdString();
        EXPECT_TRUE(run.err.startsWith(QStringLiteral("pentalink-gen: "))) << run.err.toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << args.join(u' ').toStdString();
    }
}

// A PENTALINK_HOME that is not valid UTF-8 names no folder the programs could use: both stop
// and say why, rather than work in another folder.
TEST_F(PentalinkGenTest, AHomeThatIsNotUtf8StopsBothProgramsWithTheReason) {
    qputenv("PENTALINK_HOME", QFile::encodeName(m_folder.path()) + "games\xff");
    const std::pair<QString, int> rows[] = {
        {QStringLiteral(PENTALINK_GEN_PATH), 2},
#ifdef PENTALINK_GAME_PATH
        {QStringLiteral(PENTALINK_GAME_PATH), 1},
#endif
    };
    for (const auto& [program, exitCode] : rows) {
        const GenRun run = runGen({}, program);
        EXPECT_EQ(run.exitCode, exitCode) << program.toStdString();
        EXPECT_TRUE(run.err.contains(QStringLiteral("PENTALINK_HOME is not valid UTF-8")))
            << run.err.toStdString();
    }
}

// Both programs answer --help and --version in GNU form, without a display and before
// reading any file.
TEST_F(PentalinkGenTest, HelpAndVersionOfBothPrograms) {
#ifdef PENTALINK_GAME_PATH
    const QString game = QStringLiteral(PENTALINK_GAME_PATH);
#else
    const QString game; // the sanitizer tree does not build the game: its rows are skipped
#endif
    const QString gen = QStringLiteral(PENTALINK_GEN_PATH);
    const QString version = QStringLiteral(" (Pentalink) " PENTALINK_VERSION "\nCopyright (C) ");
    const struct {
        QString program;
        QStringList args;
        QString start;
        QStringList contains;
    } rows[] = {
        {game,
         {"--help"},
         "Usage: pentalink [OPTION]...\n",
         {"\n  -V, --version  output version information and exit\n"}},
        {game,
         {"-h", "--version"},
         "Usage: pentalink [OPTION]...\n",
         {"\n  -h, --help     display this help and exit\n"}},
        {game, {"--bogus", "--version"}, "pentalink" + version, {"NO WARRANTY"}},
        {game, {"-V"}, "pentalink" + version, {}},
        {gen,
         {"--help"},
         "Usage: pentalink-gen [OPTION]...\n",
         {"\n      --dictionary=FILE  the dictionary file", "\n      --no-shuffle       keep",
          "\n  -V, --version          output"}},
        {gen, {"--version"}, "pentalink-gen" + version, {}},
    };
    for (const auto& row : rows) {
        if (row.program.isEmpty())
            continue;
        const GenRun run = runGen(row.args, row.program);
        const std::string what = (row.program + u' ' + row.args.join(u' ')).toStdString();
        EXPECT_EQ(run.exitCode, 0) << what;
        EXPECT_TRUE(run.err.isEmpty()) << what << run.err.toStdString();
        EXPECT_TRUE(run.out.startsWith(row.start)) << what << "\n" << run.out.toStdString();
        for (const QString& part : row.contains)
            EXPECT_TRUE(run.out.contains(part)) << what << " lacks " << part.toStdString();
    }
}
