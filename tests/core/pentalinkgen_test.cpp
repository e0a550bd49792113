// pentalink-gen run as a user runs it: JSON lines, the text drawing, the default dictionary
// of the program folder, booklets (read back with poppler's pdfinfo, pdftotext and pdffonts),
// and bad arguments.
#include "support/testfolder.h"
#include "support/testwords.h"
#include "support/writefault.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

namespace {

struct GenRun {
    int exitCode = -1;
    QString out;
    QString err;
};

GenRun runGen(const QStringList& arguments,
              const QString& program = QStringLiteral(PENTALINK_GEN_PATH),
              const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    GenRun run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

// The words of `json` lines' candidates, in order.
QStringList candidatesOf(const QString& json) {
    QStringList words;
    for (const QString& line : json.split(u'\n', Qt::SkipEmptyParts)) {
        for (const QJsonValue& word : QJsonDocument::fromJson(line.toUtf8())
                                          .object()
                                          .value(QStringLiteral("candidates"))
                                          .toArray())
            words << word.toString();
    }
    return words;
}

class PentalinkGenTest : public ::testing::Test {
protected:
    TestFolder m_folder;
};

} // namespace

TEST_F(PentalinkGenTest, JsonOfTheProgramFoldersEnglish1InFileOrderAndOfFailures) {
    m_folder.writeLines(QStringLiteral("english1.txt"), testwords::kEight);
    const GenRun run = runGen({"--no-shuffle", "--format", "json"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(
        run.out,
        QStringLiteral("{\"ok\": true, \"root\": \"sect\", \"cells\": [\"k\", \"s\", \"e\", "
                       "\"c\", \"t\", \"e\", \"e\", \"o\", \"p\", \"h\"], \"candidates\": "
                       "[\"hawk\", \"heck\", \"hoes\", \"keep\", \"peek\", \"poet\", \"sect\", "
                       "\"smut\"], \"decoys\": [1, 0, 0, 1, 0, 0, 0, 1], \"list_count\": 15}\n"));
    // Failed requests report the count after the reload.
    const QString few = m_folder.writeLines(QStringLiteral("few.txt"), testwords::kSeven);
    EXPECT_EQ(runGen({"--dictionary", few, "--count", "2", "--format", "json"}).out,
              QStringLiteral("{\"ok\": false, \"list_count\": 14}\n").repeated(2));
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
    const QStringList args = {
        "--dictionary", m_folder.writeLines(QStringLiteral("many.txt"), words),
        "--count",      "6",
        "--seed",       "11",
        "--format",     "json"};
    const GenRun run = runGen(args);
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(runGen(args).out, run.out) << "the same seed gives the same puzzles";
    // A success uses up its root entry; a failure reloads the dictionary.
    int expectedCount = 300;
    int puzzles = 0;
    for (const QString& line : run.out.split(u'\n')) {
        if (line.isEmpty())
            continue;
        const QJsonObject o = QJsonDocument::fromJson(line.toUtf8()).object();
        const bool ok = o.value(QStringLiteral("ok")).toBool();
        puzzles += ok;
        expectedCount = ok ? expectedCount - 1 : 300;
        EXPECT_EQ(o.value(QStringLiteral("list_count")).toInt(), expectedCount)
            << line.toStdString();
    }
    EXPECT_EQ(run.out.count(u'\n'), 6);
    EXPECT_TRUE(run.out.endsWith(u'\n'));
    EXPECT_GE(puzzles, 4);
}

TEST_F(PentalinkGenTest, TextDrawsTheStarAndMarksTheDecoys) {
    const QString path = m_folder.writeLines(QStringLiteral("known.txt"), testwords::kEight);
    const GenRun run = runGen({"--dictionary", path, "--no-shuffle"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(
        run.out.startsWith(QStringLiteral("Puzzle 1 (root entry \"sect\", 15 entries left)")));
    EXPECT_EQ(run.out.count(QStringLiteral("(decoy)")), 3);
    for (const QString& word : testwords::kEight)
        EXPECT_TRUE(run.out.contains(word)) << word.toStdString();
    // The bar: left tip s, crossings e and c, right tip t, on one line joined by dashes.
    EXPECT_TRUE(run.out.contains(QRegularExpression(QStringLiteral("s-+e-+c-+t"))));
}

TEST_F(PentalinkGenTest, BadArgumentsAndUnreadableDictionariesExitWithTwo) {
    const QString path = m_folder.writeLines(QStringLiteral("known.txt"), testwords::kEight);
    const QString empty = m_folder.writeLines(QStringLiteral("empty.txt"), {"toolong", "abc"});
    const QString few = m_folder.writeLines(QStringLiteral("few.txt"), {"aaaa", "abab", "baba"});
    const QString pdf = m_folder.file(QStringLiteral("b.pdf"));
    const QStringList before = QDir(m_folder.path()).entryList(QDir::Files);
    const QList<QStringList> cases = {
        {"--booklet", pdf, "--count", "0", "--dictionary", path},
        {"--booklet", pdf, "--count", "1001", "--dictionary", path},
        {"--booklet", pdf, "--per-page", "3", "--dictionary", path},
        {"--booklet", pdf, "--paper", "b5", "--dictionary", path},
        {"--booklet", pdf, "--format", "json", "--dictionary", path},
        {"--title", "no booklet", "--dictionary", path},
        {"--booklet", pdf, "--dictionary", few},
        {"--booklet", m_folder.file(QStringLiteral("missing/b.pdf")), "--dictionary", path},
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
        EXPECT_EQ(run.err.count(u'\n'), 1) << "one line: " << run.err.toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << args.join(u' ').toStdString();
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), before) << "no file left";
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

// A booklet holds the puzzles --format=json gives for the same seed and count, each puzzle's
// words in the game's order on the puzzle pages and again on the answer pages; the paper
// follows the locale unless --paper says; it needs no display and embeds its fonts.
TEST_F(PentalinkGenTest, BookletsHoldTheJsonPuzzlesOnTheLocalesPaper) {
    const QString dictionary = shippedDataDir() + QStringLiteral("english1.txt");
    const QString pdf = m_folder.file(QStringLiteral("booklet.pdf"));
    const struct {
        QString locale;
        QStringList args;
        int count;
        QString pages; // puzzle pages + answer pages
        QString paper;
    } rows[] = {
        {"en_US.UTF-8", {}, 12, "4", "612 x 792 pts (letter)"},
        {"de_DE.UTF-8", {"--per-page=2"}, 13, "9", "595 x 842 pts (A4)"},
        {"fr_CA", {"--per-page=1", "--title=Club night"}, 3, "4", "612 x 792 pts (letter)"},
        {"en_CA.UTF-8", {"--paper=a4"}, 5, "3", "595 x 842 pts (A4)"},
    };
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "LC_PAPER"})
        environment.remove(QString::fromLatin1(name));
    for (const auto& row : rows) {
        environment.insert(QStringLiteral("LC_ALL"), row.locale);
        const QStringList common = {"--dictionary=" + dictionary,
                                    QStringLiteral("--count=%1").arg(row.count), "--seed=7"};
        const GenRun run = runGen(common + row.args + QStringList{"--booklet=" + pdf},
                                  QStringLiteral(PENTALINK_GEN_PATH), environment);
        const std::string what =
            row.args.join(u' ').toStdString() + " in " + row.locale.toStdString();
        ASSERT_EQ(run.exitCode, 0) << what << run.err.toStdString();
        EXPECT_EQ(run.err + run.out, QString()) << what;

        const QStringList json = candidatesOf(runGen(common + QStringList{"--format=json"}).out);
        ASSERT_EQ(json.size(), 8 * row.count);
        const GenRun text = runGen({"-raw", pdf, "-"}, QStringLiteral("pdftotext"));
        QStringList words;
        for (const QString& token : text.out.split(QRegularExpression(QStringLiteral("\\s+"))))
            if (json.contains(token))
                words << token;
        EXPECT_EQ(words, json + json) << what;
        EXPECT_TRUE(text.out.contains(QStringLiteral("Seed 7. Made with: pentalink-gen "))) << what;

        const QString info = runGen({pdf}, QStringLiteral("pdfinfo")).out;
        EXPECT_TRUE(info.contains(QRegularExpression("\\nPages: +" + row.pages + "\\n"))) << what;
        EXPECT_TRUE(info.contains(QStringLiteral("Page size:       ") + row.paper)) << what;
        const QStringList fonts = runGen({pdf}, QStringLiteral("pdffonts")).out.split(u'\n').mid(2);
        for (const QString& font : fonts)
            EXPECT_TRUE(font.isEmpty() || font.contains(QStringLiteral(" yes ")))
                << font.toStdString();
    }
}

// A booklet that cannot be written (the file may not grow, its folder is a file, the disk is
// full) fails with one line and leaves no file behind.
class BookletWriteFault : public testing::TestWithParam<WriteFault> {};

TEST_P(BookletWriteFault, FailsInOneLineAndLeavesNothing) {
    const auto write = [](const QString&, const QString& target, Notifier&) {
        const QString command =
            QStringLiteral("'%1' --dictionary='%2english1.txt' --count=40 "
                           "--seed=3 --booklet='%3b.pdf' 2>&1")
                .arg(QStringLiteral(PENTALINK_GEN_PATH), shippedDataDir(), target);
        FILE* pipe = popen(command.toLocal8Bit().constData(), "r");
        QByteArray output;
        char buffer[512];
        for (size_t n; pipe && (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;)
            output.append(buffer, qsizetype(n));
        const int status = pipe ? pclose(pipe) : -1;
        return QString::number(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + u' ' +
               QString::fromLocal8Bit(output);
    };
    const WriteFaultOutcome outcome =
        runWithWriteFault(GetParam(), {[](const QString&) {}, write, 4000});
    if (outcome.skipped)
        GTEST_SKIP() << outcome.skipReason.toStdString();
    EXPECT_TRUE(outcome.result.startsWith(QStringLiteral("2 pentalink-gen: Cannot write ") +
                                          outcome.target + QStringLiteral("b.pdf")))
        << outcome.result.toStdString();
    EXPECT_EQ(outcome.result.count(u'\n'), 1) << outcome.result.toStdString();
    EXPECT_EQ(outcome.added, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Faults, BookletWriteFault, testing::ValuesIn(kWriteFaults),
                         [](const auto& info) { return writeFaultName(info.param); });

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
        QString contains;
    } rows[] = {
        {game, {"--help"}, "Usage: pentalink [OPTION]...\n", "\n  -V, --version  output version"},
        {game, {"--help"}, "Usage: pentalink [OPTION]...\n", "(File > Help)"},
        {game, {"-h", "--version"}, "Usage: pentalink [OPTION]...\n", "\n  -h, --help     display"},
        {game, {"--bogus", "--version"}, "pentalink" + version, "NO WARRANTY"},
        {game, {"-V"}, "pentalink" + version, ""},
        {gen, {"--help"}, "Usage: pentalink-gen [OPTION]...\n", "\n      --no-shuffle       keep"},
        {gen, {"--version"}, "pentalink-gen" + version, ""},
    };
    for (const auto& row : rows) {
        if (row.program.isEmpty())
            continue;
        const GenRun run = runGen(row.args, row.program);
        const std::string what = (row.program + u' ' + row.args.join(u' ')).toStdString();
        EXPECT_EQ(run.exitCode, 0) << what;
        EXPECT_TRUE(run.err.isEmpty()) << what << run.err.toStdString();
        EXPECT_TRUE(run.out.startsWith(row.start)) << what << "\n" << run.out.toStdString();
        EXPECT_TRUE(run.out.contains(row.contains))
            << what << " lacks " << row.contains.toStdString();
    }
}
