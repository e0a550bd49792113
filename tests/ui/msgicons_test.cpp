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

TEST(MsgIcons, SixteenPaletteColoursMakeNineDistinctPicturesTheFirstFiveAlsoSmall) {
    EXPECT_EQ(msgIconPalette().size(), 16);
    QSet<QByteArray> seen;
    for (int slot = 0; slot <= 8; ++slot) {
        SCOPED_TRACE(slot);
        const QImage image = msgIcon(slot);
        ASSERT_EQ(image.size(), QSize(32, 32));
        // A real picture: a good part of the square is painted, but not all of it.
        const int opaque = checkColours(image);
        EXPECT_GT(opaque, 250);
        EXPECT_LT(opaque, 32 * 32);
        seen.insert(
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
        const QImage small = msgIcon(slot, 16);
        if (slot <= 4) {
            ASSERT_EQ(small.size(), QSize(16, 16));
            EXPECT_GT(checkColours(small), 60);
        } else {
            EXPECT_TRUE(small.isNull());
        }
    }
    EXPECT_EQ(seen.size(), 9);
}

TEST(MsgIcons, OtherSlotsAndSizesHaveNoPicture) {
    for (const int slot : {-1, 9, 10, 11})
        EXPECT_TRUE(msgIcon(slot).isNull()) << slot;
    EXPECT_TRUE(msgIcon(0, 24).isNull());
}

} // namespace
