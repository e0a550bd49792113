// The button pictures, pixel by pixel.
#include "board/buttonpictures.h"

#include <gtest/gtest.h>

TEST(ButtonPictures, AreAFolderAndOnePageUnderThreeSignsInBlackOnClear) {
    // Each row as 16 bits, the leftmost pixel highest: opaque black 1, clear 0.
    const std::pair<ButtonPicture, std::vector<int>> pictures[] = {
        {ButtonPicture::OpenFolder,
         {0x0000, 0x0000, 0x7C00, 0x83F0, 0x8010, 0x8010, 0x8FFF, 0x9002, 0xA004, 0xA004, 0xC008,
          0xC008, 0x8010, 0xFFE0, 0x0000, 0x0000}},
        {ButtonPicture::PageTick,
         {0x3FC0, 0x2060, 0x2050, 0x2048, 0x207C, 0x2004, 0x2014, 0x2034, 0x2064, 0x28C4, 0x2D84,
          0x2704, 0x2204, 0x2004, 0x2004, 0x3FFC}},
        {ButtonPicture::PageArrows,
         {0x3FC0, 0x2060, 0x2050, 0x2048, 0x207C, 0x2004, 0x2384, 0x2444, 0x2024, 0x2474, 0x2E24,
          0x2404, 0x2224, 0x21C4, 0x2004, 0x3FFC}},
        {ButtonPicture::PageStar,
         {0x3FC0, 0x2060, 0x2050, 0x2048, 0x207C, 0x2004, 0x2004, 0x2084, 0x22A4, 0x21C4, 0x27F4,
          0x21C4, 0x22A4, 0x2084, 0x2004, 0x3FFC}},
    };
    for (const auto& [picture, expected] : pictures) {
        const QImage image = buttonPictureImage(picture);
        ASSERT_EQ(image.size(), QSize(16, 16));
        std::vector<int> rows(16);
        for (int n = 0; n < 256; ++n) {
            const QRgb px = image.pixel(n % 16, n / 16);
            EXPECT_TRUE(qAlpha(px) == 0 || px == qRgba(0, 0, 0, 255)) << n % 16 << "," << n / 16;
            rows[n / 16] |= (qAlpha(px) != 0) << (15 - n % 16);
        }
        EXPECT_EQ(rows, expected) << int(picture);
    }
}
