// Start-up settings, the file-presence test and the choice of the start-up dictionary.
#include "core/fileexists.h"
#include "core/settings.h"

#include "support/testfolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <unistd.h>

TEST(Settings, ForFolderSetsTheStartupValues) {
    const Settings s = Settings::forFolder(QStringLiteral("/opt/pentalink"));
    EXPECT_EQ(s.AppFolder, QStringLiteral("/opt/pentalink/"));
    EXPECT_EQ(s.SchemeCollectionPath, QStringLiteral("/opt/pentalink/all.col"));
    EXPECT_EQ(s.BoardFontName, QStringLiteral("Arial"));
    EXPECT_EQ(s.BoardFontSize, 18);
    EXPECT_EQ(s.TextColour, 28u + 256u * 28u + 65536u * 28u);
    EXPECT_TRUE(s.ActiveSchemeFile.isEmpty());
    EXPECT_TRUE(s.DictionaryPath.isEmpty());
}

TEST(Settings, ForFolderKeepsASingleTrailingSlash) {
    EXPECT_EQ(Settings::forFolder(QStringLiteral("/a/b/")).AppFolder, QStringLiteral("/a/b/"));
}

TEST(FileExists, CountsOnlyReadableFilesWithContent) {
    const TestFolder folder;
    folder.write(QStringLiteral("full.txt"), "word\r\n");
    folder.write(QStringLiteral("empty.txt"), "");
    QDir(folder.path()).mkdir(QStringLiteral("sub"));
    QFile::link(folder.file(QStringLiteral("full.txt")), folder.file(QStringLiteral("link.txt")));
    QFile::link(folder.file(QStringLiteral("gone.txt")), folder.file(QStringLiteral("dead.txt")));

    const struct {
        const char* name;
        bool exists;
    } rows[] = {
        {"full.txt", true}, {"empty.txt", false}, {"missing.txt", false},
        {"sub", false},     {"link.txt", true},   {"dead.txt", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FileExists(folder.file(QString::fromLatin1(row.name))), row.exists) << row.name;
    EXPECT_FALSE(FileExists(QString()));
}

TEST(FileExists, UnreadableFileCountsAsAbsent) {
    if (geteuid() == 0)
        GTEST_SKIP() << "permissions do not stop root from reading";
    const TestFolder folder;
    folder.write(QStringLiteral("locked.txt"), "word\r\n");
    QFile(folder.file(QStringLiteral("locked.txt"))).setPermissions(QFileDevice::WriteOwner);
    EXPECT_FALSE(FileExists(folder.file(QStringLiteral("locked.txt"))));
}

TEST(ProgramPath, RelativeNamesBelongToTheProgramFolder) {
    const QString app = QStringLiteral("/home/u/pl/");
    const struct {
        const char* path;
        const char* expected;
    } rows[] = {
        {"english1.txt", "/home/u/pl/english1.txt"},
        {"ENGLISH1.TXT", "/home/u/pl/ENGLISH1.TXT"},
        {"words/big.dic", "/home/u/pl/words/big.dic"},
        {"/usr/share/dict/words", "/usr/share/dict/words"},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(programPath(QString::fromLatin1(row.path), app),
                  QString::fromLatin1(row.expected))
            << row.path;
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
        {folder.file(QStringLiteral("nowhere.txt")), fallback},
        // The default configuration's "ENGLISH1.TXT" names no file on a case-sensitive
        // file system; the program folder's english1.txt is loaded instead.
        {QStringLiteral("ENGLISH1.TXT"), fallback},
        {QStringLiteral("english1.txt"), fallback},
        {QString(), fallback},
    };
    for (const auto& row : rows) {
        s.DictionaryPath = row.configured;
        EXPECT_EQ(startupDictionaryPath(s), row.expected) << row.configured.toStdString();
    }
}
