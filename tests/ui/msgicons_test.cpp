// The message window's icon pictures: sizes, slots without a picture, the 16-colour rule.
#include "ui/msgicons.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

// Every pixel is transparent or one of the sixteen colours; returns the number of opaque ones.
int checkColours(const QImage& image) {
    QSet<QRgb> allowed;
    for (const QColor& c : msgIconPalette())
        allowed.insert(c.rgb());
    int opaque = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) == 0)
                continue;
            EXPECT_EQ(qAlpha(pixel), 255) << x << "," << y;
            EXPECT_TRUE(allowed.contains(pixel | 0xFF000000u))
                << x << "," << y << " " << QColor(pixel).name().toStdString();
            ++opaque;
        }
    }
    return opaque;
}

TEST(MsgIcons, SixteenPaletteColoursMakeEveryPicture) {
    EXPECT_EQ(msgIconPalette().size(), 16);
    for (int slot = 0; slot <= 8; ++slot) {
        SCOPED_TRACE(slot);
        const QImage image = msgIcon(slot);
        ASSERT_EQ(image.size(), QSize(32, 32));
        // A real picture: a good part of the square is painted, but not all of it.
        const int opaque = checkColours(image);
        EXPECT_GT(opaque, 250);
        EXPECT_LT(opaque, 32 * 32);
    }
}

TEST(MsgIcons, TheFirstFiveSlotsAlsoComeInSixteenPixels) {
    for (int slot = 0; slot <= 4; ++slot) {
        SCOPED_TRACE(slot);
        const QImage small = msgIcon(slot, 16);
        ASSERT_EQ(small.size(), QSize(16, 16));
        EXPECT_GT(checkColours(small), 60);
    }
    EXPECT_TRUE(msgIcon(5, 16).isNull());
    EXPECT_TRUE(msgIcon(0, 24).isNull());
}

TEST(MsgIcons, SlotsNineAndTenHaveNoPicture) {
    EXPECT_TRUE(msgIcon(9).isNull());
    EXPECT_TRUE(msgIcon(10).isNull());
    EXPECT_TRUE(msgIcon(-1).isNull());
    EXPECT_TRUE(msgIcon(11).isNull());
}

TEST(MsgIcons, EveryPictureIsDifferent) {
    QSet<QByteArray> seen;
    for (int slot = 0; slot <= 8; ++slot) {
        const QImage image = msgIcon(slot);
        seen.insert(
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
    }
    EXPECT_EQ(seen.size(), 9);
}

} // namespace
