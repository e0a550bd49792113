// The collection file as lines: reading, the section rewrite and the atomic writer.
#include "appearance/schemefile.h"

#include "support/testfolder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

QStringList sectionOf(const QString& header, const QString& fill) {
    QStringList lines{header};
    for (int k = 0; k < SchemeFile::ColourLines; ++k)
        lines.append(fill);
    return lines;
}

TEST(SchemeFileRewrite, ReplacesEveryMatchAndCarriesOtherLinesThrough) {
    const QStringList a = sectionOf(QStringLiteral("a.col"), QStringLiteral(" 1; 1; 1"));
    const QStringList b = sectionOf(QStringLiteral("b.col"), QStringLiteral(" 2; 2; 2"));
    const QStringList fresh = sectionOf(QStringLiteral("a.col"), QStringLiteral(" 9; 9; 9"));
    const QStringList loose{QStringLiteral("loose line"), QString()};

    EXPECT_EQ(SchemeFile::rewriteSections(a + loose + b + a, QStringLiteral("a.col"), fresh),
              fresh + loose + b + fresh);
    EXPECT_EQ(SchemeFile::rewriteSections(a + loose + b + a, QStringLiteral("a.col"), {}),
              loose + b);
    EXPECT_EQ(SchemeFile::rewriteSections(a + b, QStringLiteral("A.col"), fresh), a + b);
}

TEST(SchemeFileRewrite, ASectionCutShortIsAFailure) {
    QStringList lines = sectionOf(QStringLiteral("a.col"), QStringLiteral(" 1; 1; 1"));
    lines.removeLast();
    EXPECT_FALSE(SchemeFile::rewriteSections(lines, QStringLiteral("a.col"), {}).has_value());
    // The same lines are fine for any other header.
    EXPECT_EQ(SchemeFile::rewriteSections(lines, QStringLiteral("b.col"), {}), lines);
}

TEST(SchemeFileBytes, EveryLineEndsWithCrLfInUtf8) {
    EXPECT_EQ(SchemeFile::toBytes({QStringLiteral("x.col"), QString(), QStringLiteral("\u00e9")}),
              QByteArray("x.col\r\n\r\n\xc3\xa9\r\n"));
    EXPECT_TRUE(SchemeFile::toBytes({}).isEmpty());
}

TEST(SchemeFileRead, SplitsAnyLineEndAndRefusesWhatCannotBeRead) {
    TestFolder folder;
    folder.write(QStringLiteral("c"), "one\r\ntwo\nthree\rfour");
    EXPECT_EQ(SchemeFile::readLines(folder.file(QStringLiteral("c"))),
              (QStringList{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three"),
                           QStringLiteral("four")}));
    EXPECT_FALSE(SchemeFile::readLines(folder.file(QStringLiteral("missing"))).has_value());
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("dir")));
    EXPECT_FALSE(SchemeFile::readLines(folder.file(QStringLiteral("dir"))).has_value());
}

TEST(SchemeFileWrite, ReplacesTheWholeFileOrLeavesItAlone) {
    TestFolder folder;
    folder.write(QStringLiteral("f"), "a much longer old content\r\n");
    EXPECT_TRUE(SchemeFile::writeAtomically(folder.file(QStringLiteral("f")), "new\r\n"));
    EXPECT_EQ(folder.read(QStringLiteral("f")), QByteArray("new\r\n"));

    EXPECT_FALSE(SchemeFile::writeAtomically(folder.file(QStringLiteral("no/such/f")), "x"));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("d")));
    EXPECT_FALSE(SchemeFile::writeAtomically(folder.file(QStringLiteral("d")), "x"));
    EXPECT_TRUE(QFileInfo(folder.file(QStringLiteral("d"))).isDir());
}

} // namespace
