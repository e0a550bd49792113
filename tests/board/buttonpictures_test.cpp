// The button pictures: black strokes on a clear ground, one page under three different signs,
// each sign clear of the page's edges, and a folder.
#include "board/buttonpictures.h"

#include <gtest/gtest.h>

#include <bit>
#include <set>

namespace {

// Each row as 16 bits, the leftmost pixel highest: opaque black 1, clear 0 (anything else fails).
std::vector<int> rows(ButtonPicture p) {
    const QImage image = buttonPictureImage(p);
    std::vector<int> bits(16);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const QRgb px = image.pixel(x, y);
            EXPECT_TRUE(qAlpha(px) == 0 || px == qRgba(0, 0, 0, 255)) << x << "," << y;
            bits[y] |= (qAlpha(px) != 0) << (15 - x);
        }
    }
    return bits;
}

} // namespace

TEST(ButtonPictures, AreOnePageUnderThreeSignsAndAFolderInBlackOnClear) {
    const std::vector<int> star = rows(ButtonPicture::PageStar);
    EXPECT_EQ(star,
              (std::vector<int>{0x3FC0, 0x2060, 0x2050, 0x2048, 0x207C, 0x2004, 0x2004, 0x2084,
                                0x22A4, 0x21C4, 0x27F4, 0x21C4, 0x22A4, 0x2084, 0x2004, 0x3FFC}));
    std::set<std::vector<int>> seen{star};
    for (const ButtonPicture p :
         {ButtonPicture::OpenFolder, ButtonPicture::PageTick, ButtonPicture::PageArrows}) {
        const std::vector<int> picture = rows(p);
        seen.insert(picture);
        int sign = 0; // a sign stays in x 4..11, y 5..13, clear of the page's sides and bottom
        for (int y = 0; y < 16; ++y) {
            const int inSign = y >= 5 && y <= 13 ? 0x0FF0 : 0;
            sign += std::popcount(unsigned(picture[y] & inSign));
            if (p != ButtonPicture::OpenFolder) {
                EXPECT_EQ(picture[y] & ~inSign, star[y] & ~inSign) << int(p) << " row " << y;
            }
        }
        EXPECT_GE(sign, 10) << int(p);
    }
    EXPECT_EQ(seen.size(), 4u);
}
