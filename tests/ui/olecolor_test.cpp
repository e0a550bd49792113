// Packed and system colours turned into QColor.
#include "ui/olecolor.h"

#include "core/settings.h"

#include <QPalette>

#include <gtest/gtest.h>

namespace {

TEST(OleTranslateColor, PlainColoursPassUnchangedSystemColoursComeFromThePalette) {
    EXPECT_EQ(OleTranslateColor(packRgb(10, 128, 250)), QColor(10, 128, 250));
    EXPECT_EQ(OleTranslateColor(0xFFFFFF), QColor(255, 255, 255));
    EXPECT_EQ(packedColour(QColor(1, 2, 3)), packRgb(1, 2, 3));
    QPalette palette;
    const QPalette::ColorRole roles[] = {QPalette::Base, QPalette::Button, QPalette::ButtonText,
                                         QPalette::Highlight, QPalette::ToolTipBase};
    for (int i = 0; i < 5; ++i)
        palette.setColor(QPalette::Active, roles[i], QColor(i + 1, i + 1, i + 1));
    EXPECT_EQ(OleTranslateColor(0x80000005u, palette), QColor(1, 1, 1));   // window background
    EXPECT_EQ(OleTranslateColor(0x8000000Fu, palette), QColor(2, 2, 2));   // button face
    EXPECT_EQ(OleTranslateColor(0x80000012u, palette), QColor(3, 3, 3));   // button text
    EXPECT_EQ(OleTranslateColor(0x8000000Du, palette), QColor(4, 4, 4));   // highlight
    EXPECT_EQ(OleTranslateColor(0x80000018u, palette), QColor(5, 5, 5));   // info background
    EXPECT_EQ(OleTranslateColor(0x800000FFu, palette), QColor(Qt::black)); // no such colour
}

} // namespace
