// Packed colours split into bytes, and colour lines read and written.
#include "appearance/colourline.h"

#include "core/settings.h"

#include <gtest/gtest.h>

namespace {

TEST(ColourLine, WritesEachByteWithASignBlankPacksAbove255As255AndNamesTheFile) {
    const std::pair<quint32, const char*> rows[] = {
        {0x123456, " 86; 52; 18"},
        {packRgb(7, 0, 0), " 7; 0; 0"},
        {0xFFFFFF, " 255; 255; 255"},
    };
    for (const auto& [colour, text] : rows)
        EXPECT_EQ(colourLineText(colour), QString::fromLatin1(text)) << colour;
    EXPECT_EQ(packComponents({300, 0, 256}), packRgb(255, 0, 255));
    EXPECT_EQ(packComponents({1, 2, 3}), packRgb(1, 2, 3));
    EXPECT_EQ(SchemeFileName(QStringLiteral("My Blue")), QStringLiteral("my blue.col"));
}

TEST(ColourLine, SystemColoursAndValuesAboveWhiteOverflow) {
    // A system colour's red byte is negative; 16777216 has a blue part of 256.
    EXPECT_THROW(RedByte(0x80000005u), ColourOverflow);
    EXPECT_THROW(GreenByte(0x8000000Fu), ColourOverflow);
    EXPECT_THROW(BlueByte(0x80000012u), ColourOverflow);
    EXPECT_THROW(BlueByte(0x01000000u), ColourOverflow);
    EXPECT_EQ(RedByte(0x01000000u), 0); // only the part out of range fails
    EXPECT_THROW(colourLineText(0x8000000Fu), ColourOverflow);
}

TEST(ColourLine, ReadsLeadingNumbersRoundedHalfToEven) {
    const std::tuple<const char*, int, int, int> rows[] = {
        {" 0; 128; 255", 0, 128, 255},
        {"12.5; 13.5; 0.5", 12, 14, 0},       // ties to the even neighbour
        {"12.51; 13.49; 254.6", 13, 13, 255}, // otherwise to the nearest
        {"7x; 8 apples; 9;", 7, 8, 9},        // leading number only; an empty fourth field
        {"abc; ; 5", 0, 0, 5},                // no number counts 0
        {" 1; 2; 3; 4", 1, 2, 3},             // a fourth number is ignored
        {"300; 32767; 32767.4", 300, 32767, 32767},
        {"-0.4; +5; 1e2", 0, 5, 100},
        {"\t 6;\t7; 8", 6, 7, 8},
    };
    for (const auto& [line, red, green, blue] : rows) {
        const std::optional<ColourComponents> read = readColourLine(QString::fromUtf8(line));
        ASSERT_TRUE(read.has_value()) << line;
        EXPECT_EQ(std::tie(read->red, read->green, read->blue), std::tie(red, green, blue)) << line;
    }
    for (const char* line : {"", " 1; 2", "1,2,3", "-1; 0; 0", "0; -0.6; 0", "0; 0; 32768",
                             "32767.5; 0; 0", "0; 1e9; 0"})
        EXPECT_FALSE(readColourLine(QString::fromUtf8(line)).has_value()) << line;
}

} // namespace
