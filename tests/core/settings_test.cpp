// The program folder, start-up settings, the file-presence test and the choice of the
// start-up dictionary.
#include "core/appfolder.h"
#include "core/fileexists.h"
#include "core/settings.h"

#include "support/testfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <unistd.h>

TEST(AppFolder, FollowsPentalinkHomeCreatingItAndEndsInSlash) {
    const TestFolder folder;
    EXPECT_EQ(AppFolder(), folder.path());
    const QString nested = folder.path() + QStringLiteral("a/b");
    qputenv("PENTALINK_HOME", nested.toLocal8Bit());
    resetAppFolderForTests();
    EXPECT_EQ(AppFolder(), nested + u'/');
    EXPECT_TRUE(QFileInfo(nested).isDir());
}

TEST(Settings, ForFolderSetsTheStartupValues) {
    const Settings s = Settings::forFolder(QStringLiteral("/opt/pentalink"));
    EXPECT_EQ(s.AppFolder, QStringLiteral("/opt/pentalink/"));
    EXPECT_EQ(s.SchemeCollectionPath, QStringLiteral("/opt/pentalink/all.col"));
    EXPECT_EQ(s.BoardFontName, QStringLiteral("Arial"));
    EXPECT_EQ(s.BoardFontSize, 18);
    EXPECT_EQ(s.TextColour, 28u + 256u * 28u + 65536u * 28u);
    EXPECT_TRUE(s.ActiveSchemeFile.isEmpty());
    EXPECT_TRUE(s.DictionaryPath.isEmpty());
    EXPECT_EQ(Settings::forFolder(QStringLiteral("/a/b/")).AppFolder, QStringLiteral("/a/b/"));
}

TEST(FileExists, CountsOnlyReadableFilesWithContent) {
    const TestFolder folder;
    folder.write(QStringLiteral("full.txt"), "word\r\n");
    folder.write(QStringLiteral("empty.txt"), "");
    folder.write(QStringLiteral("locked.txt"), "word\r\n");
    QFile(folder.file(QStringLiteral("locked.txt"))).setPermissions(QFileDevice::WriteOwner);
    QDir(folder.path()).mkdir(QStringLiteral("sub"));
    QFile::link(folder.file(QStringLiteral("full.txt")), folder.file(QStringLiteral("link.txt")));
    QFile::link(folder.file(QStringLiteral("gone.txt")), folder.file(QStringLiteral("dead.txt")));

    const struct {
        const char* name;
        bool exists;
    } rows[] = {
        {"full.txt", true},
        {"empty.txt", false},
        {"missing.txt", false},
        {"sub", false},
        {"link.txt", true},
        {"dead.txt", false},
        // Permissions do not stop root from reading.
        {"locked.txt", geteuid() == 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FileExists(folder.file(QString::fromLatin1(row.name))), row.exists) << row.name;
    EXPECT_FALSE(FileExists(QString()));
}

TEST(StartupDictionary, LoadsTheConfiguredDictionaryWhenItExists) {
    const TestFolder folder;
    folder.write(QStringLiteral("mine.txt"), "abcd\r\n");
    folder.write(QStringLiteral("english1.txt"), "word\r\n");
    folder.write(QStringLiteral("blank.txt"), "");
    Settings s = Settings::forFolder(folder.path());
    const QString fallback = folder.file(QStringLiteral("english1.txt"));

    const struct {
        QString configured;
        QString expected;
    } rows[] = {
        {folder.file(QStringLiteral("mine.txt")), folder.file(QStringLiteral("mine.txt"))},
        {QStringLiteral("mine.txt"), folder.file(QStringLiteral("mine.txt"))},
        {folder.file(QStringLiteral("blank.txt")), fallback},
        {QStringLiteral("/nowhere/mine.txt"), fallback},
        // The default configuration's "ENGLISH1.TXT" names no file on a case-sensitive
        // file system; the program folder's english1.txt is loaded instead.
        {QStringLiteral("ENGLISH1.TXT"), fallback},
        {QString(), fallback},
    };
    for (const auto& row : rows) {
        s.DictionaryPath = row.configured;
        EXPECT_EQ(startupDictionaryPath(s), row.expected) << row.configured.toStdString();
    }
}
