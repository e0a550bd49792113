// pentalink-gen run as a user runs it (booklets read back with poppler's tools), and the
// command line both programs share.
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
    QString out, err;
};

GenRun runGen(const QStringList& arguments,
              const QString& program = QStringLiteral(PENTALINK_GEN_PATH),
              const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

class PentalinkGenTest : public ::testing::Test {
protected:
    TestFolder m_folder;
};

} // namespace

TEST_F(PentalinkGenTest, JsonAndTextOfTheProgramFoldersEnglish1InFileOrderAndOfFailures) {
    m_folder.writeLines(QStringLiteral("english1.txt"), testwords::kEight);
    GenRun run = runGen({"--no-shuffle", "--format", "json"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(
        run.out,
        QStringLiteral("{\"ok\": true, \"root\": \"sect\", \"cells\": [\"k\", \"s\", \"e\", "
                       "\"c\", \"t\", \"e\", \"e\", \"o\", \"p\", \"h\"], \"candidates\": "
                       "[\"hawk\", \"heck\", \"hoes\", \"keep\", \"peek\", \"poet\", \"sect\", "
                       "\"smut\"], \"decoys\": [1, 0, 0, 1, 0, 0, 0, 1], \"list_count\": 15}\n"));
    run = runGen({"--no-shuffle"});
    EXPECT_TRUE(
        run.out.startsWith(QStringLiteral("Puzzle 1 (root entry \"sect\", 15 entries left)")));
    EXPECT_EQ(run.out.count(QStringLiteral("(decoy)")), 3);
    for (const QString& word : testwords::kEight)
        EXPECT_TRUE(run.out.contains(word)) << word.toStdString();
    EXPECT_TRUE(
        run.out.contains(QStringLiteral("\n     s--------------e-------c--------------t\n")));
    // Failed requests report the count after the reload.
    const QString few = m_folder.writeLines(QStringLiteral("few.txt"), testwords::kSeven);
    EXPECT_EQ(runGen({"--dictionary", few, "--count", "2", "--format", "json"}).out,
              QStringLiteral("{\"ok\": false, \"list_count\": 14}\n").repeated(2));
}

TEST_F(PentalinkGenTest, SeededJsonLinesRepeatAndCountTheEntriesLeft) {
    QStringList words(150, QString(4, u'a'));
    std::mt19937 random(5);
    for (QString& w : words)
        for (QChar& c : w)
            c = QChar(char16_t(u'a' + random() % 5));
    const QStringList args = {"--dictionary", m_folder.writeLines("many.txt", words),
                              "--count",      "6",
                              "--seed",       "11",
                              "--format",     "json"};
    const GenRun run = runGen(args);
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(runGen(args).out, run.out) << "the same seed gives the same puzzles";
    int expectedCount = 300, puzzles = 0;
    const QStringList lines = run.out.split(u'\n');
    ASSERT_EQ(lines.size(), 7);
    EXPECT_EQ(lines.last(), QString());
    for (const QString& line : lines.mid(0, 6)) {
        const QJsonObject o = QJsonDocument::fromJson(line.toUtf8()).object();
        const bool ok = o.value(QStringLiteral("ok")).toBool();
        puzzles += ok;
        expectedCount = ok ? expectedCount - 1 : 300;
        EXPECT_EQ(o.value(QStringLiteral("list_count")).toInt(), expectedCount) << qPrintable(line);
    }
    EXPECT_GE(puzzles, 4);
}

// Bad arguments and unreadable dictionaries exit with 2 and one line, and leave no file; a
// PENTALINK_HOME that is not valid UTF-8 names no folder either program could use.
TEST_F(PentalinkGenTest, BadArgumentsAndUnreadableDictionariesExitWithOneLine) {
    m_folder.writeLines(QStringLiteral("known.txt"), testwords::kEight);
    m_folder.writeLines(QStringLiteral("empty.txt"), {"toolong", "abc"});
    m_folder.writeLines(QStringLiteral("few.txt"), {"aaaa", "abab", "baba"});
    const QStringList before = QDir(m_folder.path()).entryList(QDir::Files);
    // "@" stands for the test folder, "%d" for --dictionary @known.txt; cases end in ";".
    const QString cases = QStringLiteral(
        "--booklet @b.pdf --count 0 %d;--booklet @b.pdf --count 1001 %d;--title x %d;"
        "--booklet @b.pdf --per-page 3 %d;--booklet @b.pdf --paper b5 %d;--seed -1 %d;"
        "--booklet @b.pdf --format json %d;--booklet @b.pdf --dictionary @few.txt;"
        "--booklet @missing/b.pdf %d;--count 0 %d;--count many %d;--format xml %d;"
        "--frobnicate;%d extra;--dictionary @missing.txt;--dictionary @;--dictionary @empty.txt");
    const QRegularExpression oneLine(QStringLiteral("^pentalink-gen: [^\\n]+\\n$"));
    for (const QString& row : cases.split(u';')) {
        const QStringList args = QString(row)
                                     .replace("%d", "--dictionary @known.txt")
                                     .replace(u'@', m_folder.path())
                                     .split(u' ');
        const GenRun run = runGen(args);
        EXPECT_EQ(run.exitCode, 2) << args.join(u' ').toStdString();
        EXPECT_TRUE(oneLine.match(run.err).hasMatch() && run.out.isEmpty())
            << run.err.toStdString();
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), before) << "no file left";
    }
    qputenv("PENTALINK_HOME", QFile::encodeName(m_folder.path()) + "games\xff");
#ifdef PENTALINK_GAME_PATH
    EXPECT_EQ(runGen({}, QStringLiteral(PENTALINK_GAME_PATH)).exitCode, 1);
#endif
    const GenRun run = runGen({});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.err.contains(QStringLiteral("PENTALINK_HOME is not valid UTF-8")));
}

// The json puzzles of the same seed, in the game's order on puzzle and answer pages; paper
// from the locale unless --paper says; no display needed; fonts embedded.
TEST_F(PentalinkGenTest, BookletsHoldTheJsonPuzzlesOnTheLocalesPaper) {
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
        SCOPED_TRACE(row.args.join(u' ').toStdString() + " in " + row.locale.toStdString());
        environment.insert(QStringLiteral("LC_ALL"), row.locale);
        const QStringList common = {"--dictionary=" + shippedDataDir() + "english1.txt",
                                    QStringLiteral("--count=%1").arg(row.count), "--seed=7"};
        const GenRun run = runGen(common + row.args + QStringList{"--booklet=" + pdf},
                                  QStringLiteral(PENTALINK_GEN_PATH), environment);
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_EQ(run.err + run.out, QString());

        QStringList json;
        for (const QString& line : runGen(common + QStringList{"--format=json"}).out.split(u'\n'))
            for (const QJsonValue& word :
                 QJsonDocument::fromJson(line.toUtf8())["candidates"].toArray())
                json << word.toString();
        ASSERT_EQ(json.size(), 8 * row.count);
        const QString text = runGen({"-raw", pdf, "-"}, QStringLiteral("pdftotext")).out;
        QStringList words;
        for (const QString& token : text.split(QRegularExpression(QStringLiteral("\\s+"))))
            if (json.contains(token))
                words << token;
        EXPECT_EQ(words, json + json);
        EXPECT_TRUE(text.contains(u'\n' + row.pages + "\nSeed 7. Made with: pentalink-gen "));

        const QString info = runGen({pdf}, QStringLiteral("pdfinfo")).out;
        EXPECT_TRUE(info.contains(QRegularExpression("\\nPages: +" + row.pages + "\\n")));
        EXPECT_TRUE(info.contains(QStringLiteral("Page size:       ") + row.paper));
        for (const QString& font :
             runGen({pdf}, QStringLiteral("pdffonts")).out.split(u'\n').mid(2))
            EXPECT_TRUE(font.isEmpty() || font.contains(QStringLiteral(" yes ")))
                << qPrintable(font);
    }
}

// A booklet that cannot be written fails with one line and leaves no file behind.
class BookletWriteFault : public testing::TestWithParam<WriteFault> {};

TEST_P(BookletWriteFault, FailsInOneLineAndLeavesNothing) {
    const auto write = [](const QString&, const QString& target, Notifier&) {
        const QString command = QStringLiteral("'%1' --dictionary='%2english1.txt' --count=40 "
                                               "--seed=3 --booklet='%3b.pdf' 2>&1")
                                    .arg(PENTALINK_GEN_PATH, shippedDataDir(), target);
        FILE* pipe = popen(command.toLocal8Bit().constData(), "r");
        QByteArray output(4096, '\0');
        output.truncate(pipe ? qsizetype(fread(output.data(), 1, 4096, pipe)) : 0);
        const int status = pipe ? pclose(pipe) : -1;
        return QString::number(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + u' ' + output;
    };
    const WriteFaultOutcome outcome =
        runWithWriteFault(GetParam(), {[](const QString&) {}, write, 4000});
    if (outcome.skipped)
        GTEST_SKIP() << outcome.skipReason.toStdString();
    EXPECT_TRUE(
        outcome.result.startsWith("2 pentalink-gen: Cannot write " + outcome.target + "b.pdf"))
        << outcome.result.toStdString();
    EXPECT_EQ(outcome.result.count(u'\n'), 1) << outcome.result.toStdString();
    EXPECT_EQ(outcome.added, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Faults, BookletWriteFault, testing::ValuesIn(kWriteFaults),
                         [](const auto& info) { return writeFaultName(info.param); });

// GNU --help and --version, without a display or reading any file.
TEST_F(PentalinkGenTest, HelpAndVersionOfBothPrograms) {
#ifdef PENTALINK_GAME_PATH
    const QString game = QStringLiteral(PENTALINK_GAME_PATH);
#else
    const QString game; // the sanitizer tree does not build the game: its rows are skipped
#endif
    const QString gen = QStringLiteral(PENTALINK_GEN_PATH);
    const QString version = QStringLiteral(" (Pentalink) " PENTALINK_VERSION "\nCopyright (C) ");
    const QString usage = QStringLiteral("Usage: pentalink [OPTION]...\n");
    const struct {
        QString program;
        QStringList args;
        QString start, contains;
    } rows[] = {
        {game, {"--help"}, usage, "\n  -V, --version  output version"},
        {game, {"--help"}, usage, "(File > Help)"},
        {game, {"--bogus", "--version"}, "pentalink" + version, "NO WARRANTY"},
        {game, {"-V"}, "pentalink" + version, ""},
        {gen, {"--help"}, "Usage: pentalink-gen [OPTION]...\n", "\n      --no-shuffle       keep"},
        {gen, {"--version"}, "pentalink-gen" + version, ""},
    };
    for (const auto& row : rows) {
        if (row.program.isEmpty())
            continue;
        const GenRun run = runGen(row.args, row.program);
        SCOPED_TRACE((row.program + u' ' + row.args.join(u' ')).toStdString());
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.err, QString());
        EXPECT_TRUE(run.out.startsWith(row.start) && run.out.contains(row.contains))
            << run.out.toStdString();
    }
}
