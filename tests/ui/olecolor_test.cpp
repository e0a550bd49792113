// Packed and system colours turned into QColor.
#include "ui/olecolor.h"

#include "core/settings.h"

#include <QPalette>

#include <gtest/gtest.h>

namespace {

TEST(OleTranslateColor, PlainColoursPassUnchanged) {
    EXPECT_EQ(OleTranslateColor(packRgb(10, 128, 250)), QColor(10, 128, 250));
    EXPECT_EQ(OleTranslateColor(0), QColor(0, 0, 0));
    EXPECT_EQ(OleTranslateColor(0xFFFFFF), QColor(255, 255, 255));
    for (const quint32 packed : {packRgb(1, 2, 3), packRgb(255, 0, 128), 0x00ABCDEFu})
        EXPECT_EQ(packedColour(OleTranslateColor(packed)), packed);
}

TEST(OleTranslateColor, SystemColoursComeFromThePaletteByMeaning) {
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::Base, QColor(1, 1, 1));
    palette.setColor(QPalette::Active, QPalette::Button, QColor(2, 2, 2));
    palette.setColor(QPalette::Active, QPalette::ButtonText, QColor(3, 3, 3));
    palette.setColor(QPalette::Active, QPalette::Highlight, QColor(4, 4, 4));
    palette.setColor(QPalette::Active, QPalette::ToolTipBase, QColor(5, 5, 5));
    EXPECT_EQ(OleTranslateColor(0x80000005u, palette), QColor(1, 1, 1));   // window background
    EXPECT_EQ(OleTranslateColor(0x8000000Fu, palette), QColor(2, 2, 2));   // button face
    EXPECT_EQ(OleTranslateColor(0x80000012u, palette), QColor(3, 3, 3));   // button text
    EXPECT_EQ(OleTranslateColor(0x8000000Du, palette), QColor(4, 4, 4));   // highlight
    EXPECT_EQ(OleTranslateColor(0x80000018u, palette), QColor(5, 5, 5));   // info background
    EXPECT_EQ(OleTranslateColor(0x800000FFu, palette), QColor(Qt::black)); // no such colour
}

} // namespace
