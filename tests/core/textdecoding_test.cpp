// Decoding read files (UTF-8 or Windows-1252) and splitting them into lines.
#include "core/textdecoding.h"

#include <gtest/gtest.h>

TEST(DecodeText, ValidUtf8IsTakenAsUtf8) {
    EXPECT_EQ(decodeText("caf\xc3\xa9"), QStringLiteral("caf\u00e9"));
    EXPECT_EQ(decodeText("\xef\xbb\xbfxp.col"), QStringLiteral("xp.col"));
    EXPECT_EQ(decodeText(""), QString());
}

TEST(DecodeText, OtherBytesAreWindows1252) {
    const struct {
        QByteArray bytes;
        QString text;
    } rows[] = {
        {"caf\xe9", QStringLiteral("caf\u00e9")},
        {"\x80 5", QStringLiteral("\u20ac 5")},
        {"\x93quoted\x94", QStringLiteral("\u201cquoted\u201d")},
        {"\x81\x8d\x8f\x90\x9d", QStringLiteral("\u0081\u008d\u008f\u0090\u009d")},
        {"\x9f\xff", QStringLiteral("\u0178\u00ff")},
        // A truncated UTF-8 sequence is not UTF-8.
        {"ok\xc3", QStringLiteral("ok\u00c3")},
    };
    for (const auto& row : rows)
        EXPECT_EQ(decodeText(row.bytes), row.text) << row.bytes.toHex().toStdString();
}

TEST(SplitTextLines, AnyLineEndEndsALine) {
    const struct {
        QString text;
        QStringList lines;
    } rows[] = {
        {QStringLiteral("a\r\nb\r\n"), {QStringLiteral("a"), QStringLiteral("b")}},
        {QStringLiteral("a\nb"), {QStringLiteral("a"), QStringLiteral("b")}},
        {QStringLiteral("a\rb\r"), {QStringLiteral("a"), QStringLiteral("b")}},
        {QStringLiteral("a\n\r\nb"), {QStringLiteral("a"), QString(), QStringLiteral("b")}},
        {QStringLiteral("\r\n\r\n"), {QString(), QString()}},
        {QStringLiteral("a\n\rb"), {QStringLiteral("a"), QString(), QStringLiteral("b")}},
        {QString(), {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(splitTextLines(row.text), row.lines) << row.text.toStdString();
}
