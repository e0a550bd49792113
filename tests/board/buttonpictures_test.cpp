// The button pictures, checked pixel by pixel.
#include "board/buttonpictures.h"

#include <gtest/gtest.h>

#include <set>

namespace {

bool isClear(const QImage& image, int x, int y) {
    return qAlpha(image.pixel(x, y)) == 0;
}

} // namespace

TEST(ButtonPictures, AreFourDifferentBlackLineDrawingsOnATransparentGround) {
    std::set<QByteArray> seen;
    for (const ButtonPicture p : {ButtonPicture::OpenFolder, ButtonPicture::PageTick,
                                  ButtonPicture::PageArrows, ButtonPicture::PageStar}) {
        SCOPED_TRACE(static_cast<int>(p));
        const QImage image = buttonPictureImage(p);
        ASSERT_EQ(image.size(), QSize(16, 16));
        ASSERT_TRUE(image.hasAlphaChannel());
        int black = 0;
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x) {
                const QRgb px = image.pixel(x, y);
                if (qAlpha(px) == 0)
                    continue;
                EXPECT_EQ(px, qRgba(0, 0, 0, 255)) << "at " << x << "," << y;
                ++black;
            }
        }
        // A line drawing: clearly something, far from a filled square.
        EXPECT_GE(black, 30);
        EXPECT_LE(black, 256 / 2);
        EXPECT_TRUE(isClear(image, 15, 15));
        seen.insert(
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
    }
    EXPECT_EQ(seen.size(), 4u);
}

TEST(ButtonPictures, PagesHaveTheFoldedCornerAndKeepTheirSignOffTheEdges) {
    for (const ButtonPicture p :
         {ButtonPicture::PageTick, ButtonPicture::PageArrows, ButtonPicture::PageStar}) {
        SCOPED_TRACE(static_cast<int>(p));
        const QImage image = buttonPictureImage(p);
        EXPECT_FALSE(isClear(image, 9, 2)); // the fold
        EXPECT_TRUE(isClear(image, 13, 1)); // the corner folded away
        // A clear pixel between the sign and the page's sides and bottom, so the sign reads
        // on its own at 16 x 16; and the sign itself drawn inside the page.
        for (int y = 5; y <= 14; ++y)
            EXPECT_TRUE(isClear(image, 3, y) && isClear(image, 12, y)) << "side gap at " << y;
        for (int x = 3; x <= 12; ++x)
            EXPECT_TRUE(isClear(image, x, 14)) << "bottom gap at " << x;
        int inside = 0;
        for (int y = 5; y <= 13; ++y)
            for (int x = 4; x <= 11; ++x)
                inside += isClear(image, x, y) ? 0 : 1;
        EXPECT_GE(inside, 10);
    }
}
