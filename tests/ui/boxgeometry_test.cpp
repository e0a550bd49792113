// The push button's face geometry in twips and where it lands on pixels.
#include "ui/boxgeometry.h"

#include <gtest/gtest.h>

namespace {

using namespace BoxGeometry;

TEST(BoxGeometry, EdgesOfAnAnswerButton) {
    const auto dark = darkEdges(885, 345);
    EXPECT_EQ(dark[0], QLineF(865, 20, 865, 325)); // right edge
    EXPECT_EQ(dark[1], QLineF(20, 325, 865, 325)); // bottom edge, from 20 to 865
    const auto light = lightEdges(885, 345);
    EXPECT_EQ(light[0], QLineF(0, 0, 0, 345));
    EXPECT_EQ(light[1], QLineF(0, 0, 885, 0));
}

TEST(BoxGeometry, PictureCornerAndNaturalSizes) {
    const QSize natural = himetricSize(QSize(16, 16));
    EXPECT_EQ(natural, QSize(423, 423));
    const QPointF corner = pictureCorner(330, 330, natural.width(), natural.height());
    EXPECT_EQ(corner, QPointF(35.25, 35.25)); // (330 - 211.5) / 2 - 24
    // Natural sizes round to whole hundredths of a millimetre: 846.67 and 26.46.
    EXPECT_EQ(himetricSize(QSize(32, 1)), QSize(847, 26));
    EXPECT_EQ(himetricSize(QSize(96, 0)), QSize(2540, 0));
}

TEST(BoxGeometry, CaptionCellIsCentred) {
    EXPECT_EQ(captionOrigin(885, 345, 300, 195), QPointF(292.5, 75));
    // A caption wider than the face starts left of it (and is clipped).
    EXPECT_EQ(captionOrigin(330, 330, 600, 195), QPointF(-135, 67.5));
}

TEST(BoxGeometry, WholePixelsAreCutNotRounded) {
    for (int n = 0; n < 200; ++n)
        EXPECT_EQ(toPixel(15.0 * n), n) << n;
    EXPECT_EQ(toPixel(14.99), 0);
    EXPECT_EQ(toPixel(29.9), 1);
    EXPECT_EQ(toPixel(865), 57);
    EXPECT_EQ(toPixel(-0.5), -1);
}

} // namespace
