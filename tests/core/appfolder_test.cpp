// The program folder: $PENTALINK_HOME wins and is created when missing; the result ends in "/".
#include "core/appfolder.h"

#include "support/testfolder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

TEST(AppFolder, FollowsPentalinkHomeAndEndsInSlash) {
    const TestFolder folder;
    EXPECT_EQ(AppFolder(), folder.path());
}

TEST(AppFolder, CreatesAMissingHomeFolder) {
    const TestFolder folder;
    const QString nested = folder.path() + QStringLiteral("a/b");
    qputenv("PENTALINK_HOME", nested.toLocal8Bit());
    resetAppFolderForTests();
    EXPECT_EQ(AppFolder(), nested + u'/');
    EXPECT_TRUE(QFileInfo(nested).isDir());
}
