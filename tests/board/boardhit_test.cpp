// From a point on the board to a part and a move: pixel edges of the fixed layout, the cell
// that covers a marker's corner, and the moves hitTest makes.
#include "board/boardgeometry.h"
#include "board/boardhit.h"

#include <gtest/gtest.h>

namespace {

BoardHit atPixel(int x, int y) {
    return partAt(BoardGeometry::pixelToTwips({x, y}));
}

} // namespace

TEST(BoardHit, PixelsOnTheEdgesOfPartsFindThePartOrTheGround) {
    // Client-area pixels, as the window places its parts (the star area starts at 2, 4).
    const struct {
        int x, y;
        BoardHit hit;
    } rows[] = {
        {160, 20, {BoardPart::Cell, 0}},
        {190, 50, {BoardPart::Cell, 0}},
        {191, 50, {}},
        {159, 20, {}},
        {154, 66, {BoardPart::Marker, 1}},
        {153, 66, {}},
        {176, 90, {BoardPart::Marker, 1}},
        {176, 91, {}},
        {95, 271, {BoardPart::Marker, 7}},
        {95, 272, {BoardPart::Cell, 8}}, // the cell covers
        {92, 326, {BoardPart::Tile, 2}},
        {91, 326, {}},
        {171, 350, {BoardPart::Tile, 2}},
        {172, 350, {}},
        {352, 378, {BoardPart::Tile, 8}},
        {353, 378, {}},
        {-1, -1, {}},
        {400, 500, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.x << "," << row.y);
        EXPECT_EQ(atPixel(row.x, row.y), row.hit);
    }
}

TEST(BoardHit, EveryPartIsHitAtItsCentreAndOnlyTilesAndMarkersMakeMoves) {
    for (int c = 0; c < 10; ++c) {
        EXPECT_EQ(partAt(centreOf(BoardPart::Cell, c)), (BoardHit{BoardPart::Cell, c}));
        EXPECT_EQ(hitTest(centreOf(BoardPart::Cell, c)), std::nullopt);
    }
    for (int k = 1; k <= 10; ++k)
        EXPECT_EQ(hitTest(centreOf(BoardPart::Marker, k)), Move::marker(k));
    for (int i = 1; i <= 8; ++i)
        EXPECT_EQ(hitTest(centreOf(BoardPart::Tile, i)), Move::tile(i));
    EXPECT_EQ(hitTest(BoardGeometry::pixelToTwips({5, 5})), std::nullopt);
}
