// The program folder and its seeding, the command line, FileExists, the start-up dictionary.
#include "core/appfolder.h"
#include "core/atomicwrite.h"
#include "core/commandline.h"
#include "core/configfile.h"
#include "core/fileexists.h"
#include "core/settings.h"

#include "support/fifowatch.h"
#include "support/peakgrowth.h"
#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <unistd.h>

TEST(AppFolder, FollowsPentalinkHomeCreatingAndSeedingItAndEndsInSlash) {
    const TestFolder folder;
    EXPECT_EQ(AppFolder(), folder.path());
    EXPECT_FALSE(QFile::exists(folder.file(QStringLiteral("all.col"))));
    // A folder that lacks the shipped files gets them, as the per-user folder does.
    qputenv("PENTALINK_DATA_DIR", shippedDataDir().toLocal8Bit());
    const QString nested = folder.path() + QStringLiteral("a/b");
    qputenv("PENTALINK_HOME", nested.toLocal8Bit());
    resetAppFolderForTests();
    EXPECT_EQ(AppFolder(), nested + u'/');
    EXPECT_TRUE(QFileInfo(nested).isDir());
    for (const QString& name : {QStringLiteral("all.col"), QStringLiteral("english1.txt")})
        EXPECT_TRUE(QFileInfo(nested + u'/' + name).size() > 0) << name.toStdString();
}

// Only old temporaries of the program's own files: another running copy may be writing one.
TEST(AppFolder, RemovesOnlyStaleTemporariesOfItsOwnFiles) {
    const TestFolder folder;
    const QDateTime old = QDateTime::currentDateTime().addSecs(-StaleTemporarySeconds - 60);
    const struct {
        const char* name;
        bool old;
        bool removed;
    } rows[] = {
        {"all.col.Ab12Cd", true, true},    {"pentalink.cfg.zzzzzz", true, true},
        {"newall.cox.000000", true, true}, {"all.col.Xy34Ef", false, false},
        {"all.col.Ab12C", true, false},    {"all.col.Ab-2Cd", true, false},
        {"notes.txt.Ab12Cd", true, false}, {"all.col", true, false},
    };
    for (const auto& row : rows) {
        QFile file(folder.file(QString::fromLatin1(row.name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("x") == 1 && file.flush());
        ASSERT_TRUE(!row.old || file.setFileTime(old, QFileDevice::FileModificationTime));
    }
    resetAppFolderForTests();
    ASSERT_EQ(AppFolder(), folder.path());
    for (const auto& row : rows)
        EXPECT_NE(QFile::exists(folder.file(QString::fromLatin1(row.name))), row.removed)
            << row.name;
}

// Seed, the player edits files, an upgrade installs newer data, seed again.
TEST(SeedProgramFolder, KeepsThePlayersFilesAcrossAnUpgradeAndRefreshesTheHelpPage) {
    const TestFolder user, install;
    const QStringList shipped = {"english1.txt", "all.col", "pentalink.htm"};
    for (const QString& name : shipped)
        install.write(name, "v1 " + name.toUtf8());

    seedProgramFolder(user.path(), install.path());
    for (const QString& name : shipped)
        EXPECT_EQ(user.read(name), "v1 " + name.toUtf8()) << name.toStdString();

    user.write(QStringLiteral("all.col"), "edited schemes");
    user.write(QStringLiteral("pentalink.cfg"), "player's settings");
    QFile::remove(user.file(QStringLiteral("english1.txt")));
    for (const QString& name : shipped)
        install.write(name, "v2 " + name.toUtf8());
    install.write(QStringLiteral("pentalink.cfg"), "never shipped");

    seedProgramFolder(user.path(), install.path());
    EXPECT_EQ(user.read(QStringLiteral("all.col")), "edited schemes");
    EXPECT_EQ(user.read(QStringLiteral("pentalink.cfg")), "player's settings");
    EXPECT_EQ(user.read(QStringLiteral("english1.txt")), "v2 english1.txt"); // seeded again
    EXPECT_EQ(user.read(QStringLiteral("pentalink.htm")), "v2 pentalink.htm");

    // An unchanged dictionary is the player's too: it is not replaced by a newer one.
    install.write(QStringLiteral("english1.txt"), "v3 english1.txt");
    seedProgramFolder(user.path(), install.path());
    EXPECT_EQ(user.read(QStringLiteral("english1.txt")), "v2 english1.txt");
}

TEST(SeedProgramFolder, SkipsWhatCannotBeCopied) {
    const TestFolder user, install;
    install.write(QStringLiteral("all.col"), "schemes");
    // The help page is missing from the install; the dictionary's name is taken by a folder.
    QDir(install.path()).mkdir(QStringLiteral("english1.txt"));
    seedProgramFolder(user.path(), install.path());
    EXPECT_EQ(QDir(user.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{"all.col"});

    // A folder that cannot exist (its path runs through a regular file) gets nothing.
    const QString blocked = user.file(QStringLiteral("all.col")) + QStringLiteral("/sub/");
    seedProgramFolder(blocked, install.path());
    EXPECT_EQ(user.read(QStringLiteral("all.col")), "schemes");
    EXPECT_FALSE(QFileInfo::exists(blocked));
}

// Seeding reads only regular files, never waiting on a FIFO, and never more than any shipped
// file could need: a help page as a link to /dev/zero was read until memory ran out.
TEST(SeedProgramFolder, ReadsOnlyRegularFilesWithinABound) {
    const TestFolder user, install;
    for (const QString& name : shippedDataFiles())
        install.write(name, "v1 " + name.toUtf8());
    {
        const FifoWatch fifos({user.file("pentalink.htm"), user.file("all.col")});
        seedProgramFolder(user.path(), install.path());
        EXPECT_EQ(fifos.opened(), 0);
    }
    EXPECT_FALSE(QFileInfo(user.file("pentalink.htm")).isFile()); // left for its reader
    EXPECT_EQ(user.read(QStringLiteral("english1.txt")), "v1 english1.txt");

    QFile::remove(user.file("pentalink.htm"));
    QFile huge(user.file("pentalink.htm"));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(64 << 20)); // sparse
    huge.close();
    const qint64 growth =
        peakmemory::peakGrowth([&] { seedProgramFolder(user.path(), install.path()); });
    EXPECT_LT(growth, 16 << 20); // negative: not measurable here
    EXPECT_EQ(user.read(QStringLiteral("pentalink.htm")), "v1 pentalink.htm");
}

TEST(GameArguments, HelpAndVersionDecideTheFirstTimeAndTheRestIsIgnored) {
    using Action = GameArguments::Action;
    const struct {
        QStringList args; // after argv[0]
        Action action;
        QStringList ignored;
    } rows[] = {
        {{}, Action::Run, {}},
        {{"--version", "--help"}, Action::Version, {"--help"}},
        {{"puzzle.txt", "-h", "-v"}, Action::Help, {"puzzle.txt", "-v"}},
        {{"--helpme", "-help", "--"}, Action::Run, {"--helpme", "-help", "--"}},
    };
    for (const auto& row : rows) {
        const GameArguments parsed = parseGameArguments(QStringList{"pentalink"} + row.args);
        EXPECT_EQ(parsed.action, row.action) << row.args.join(u' ').toStdString();
        EXPECT_EQ(parsed.ignored, row.ignored) << row.args.join(u' ').toStdString();
    }
    EXPECT_EQ(ignoredArgumentsWarning({}), QString());
    EXPECT_EQ(ignoredArgumentsWarning({"x y"}), "pentalink: ignoring unknown argument 'x y'\n");
    EXPECT_EQ(ignoredArgumentsWarning({"-a", "b"}),
              "pentalink: ignoring unknown arguments '-a' 'b'\n");
}

TEST(FileExists, CountsOnlyReadableFilesWithContent) {
    const TestFolder folder;
    folder.write(QStringLiteral("full.txt"), "word\r\n");
    folder.write(QStringLiteral("empty.txt"), "");
    folder.write(QStringLiteral("one.txt"), "w");
    folder.write(QStringLiteral("locked.txt"), "word\r\n");
    QFile(folder.file(QStringLiteral("locked.txt"))).setPermissions(QFileDevice::WriteOwner);
    QDir(folder.path()).mkdir(QStringLiteral("sub"));
    QFile::link(folder.file(QStringLiteral("full.txt")), folder.file(QStringLiteral("link.txt")));
    QFile::link(folder.file(QStringLiteral("gone.txt")), folder.file(QStringLiteral("dead.txt")));

    // Permissions do not stop root from reading.
    const std::pair<const char*, bool> rows[] = {
        {"full.txt", true},  {"empty.txt", false},
        {"one.txt", true},   {"missing.txt", false},
        {"sub", false},      {"link.txt", true},
        {"dead.txt", false}, {"locked.txt", geteuid() == 0}};
    for (const auto& [name, exists] : rows)
        EXPECT_EQ(FileExists(folder.file(QString::fromLatin1(name))), exists) << name;
    EXPECT_FALSE(FileExists(QString()));
}

TEST(StartupDictionary, IsTheConfiguredFileWhenItExistsElseTheProgramFoldersEnglish1) {
    const TestFolder folder;
    folder.write(QStringLiteral("Big Words.TXT"), "abcd\r\n");
    folder.write(QStringLiteral("english1.txt"), "word\r\n");
    folder.write(QStringLiteral("empty.txt"), "");
    const QString mine = folder.file(QStringLiteral("Big Words.TXT"));
    const QString fallback = folder.file(QStringLiteral("english1.txt"));
    const struct {
        QString configured;
        QString expected;
    } rows[] = {
        {mine, mine},
        {QStringLiteral("Big Words.TXT"), mine}, // relative to the program folder
        {folder.file(QStringLiteral("big words.txt")), fallback},
        // The default "ENGLISH1.TXT" names no file on a case-sensitive file system.
        {QStringLiteral("ENGLISH1.TXT"), fallback},
        {folder.file(QStringLiteral("empty.txt")), fallback},
        {QStringLiteral("/nowhere/mine.txt"), fallback},
        {QString(), fallback},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.configured.toStdString());
        Settings s = Settings::forFolder(folder.path().chopped(1)); // the "/" is added
        s.DictionaryPath = row.configured;
        EXPECT_EQ(startupDictionaryPath(s), row.expected);
        // Line 3 of a file with CR line ends, a blank scheme line and a line too many.
        const QByteArray bytes = "d\r\r" + row.configured.toUtf8() + "\rArial\r 18 \rmore\r";
        folder.write(QStringLiteral("pentalink.cfg"), bytes);
        RecordingNotifier notifier;
        EXPECT_EQ(ConfigFile(s, notifier).ReadcfgFile(), ConfigFile::ReadResult::Read);
        EXPECT_EQ(s.DictionaryPath, row.expected);
        EXPECT_EQ(s.ActiveSchemeFile, QString());
        EXPECT_EQ(folder.read(QStringLiteral("pentalink.cfg")), bytes); // never rewritten
    }
}
