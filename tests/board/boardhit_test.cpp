// From a point on the board to a part and a move: pixel edges of the layout, hitTest's moves.
#include "board/boardgeometry.h"
#include "board/boardhit.h"

#include <gtest/gtest.h>

TEST(BoardHit, PixelsOnTheEdgesOfPartsFindThePartOrTheGround) {
    // Client-area pixels, as the window places its parts (the star area starts at 2, 4), and
    // the part there: c cell, m marker, t tile, "." the ground; at 95,272 a cell covers a marker.
    const struct {
        int x, y;
        char part;
        int index;
    } rows[] = {{160, 20, 'c', 0},  {190, 50, 'c', 0},  {191, 50, '.', 0},  {159, 20, '.', 0},
                {154, 66, 'm', 1},  {153, 66, '.', 0},  {176, 90, 'm', 1},  {176, 91, '.', 0},
                {95, 271, 'm', 7},  {95, 272, 'c', 8},  {92, 326, 't', 2},  {91, 326, '.', 0},
                {171, 350, 't', 2}, {172, 350, '.', 0}, {352, 378, 't', 8}, {353, 378, '.', 0},
                {-1, -1, '.', 0},   {400, 500, '.', 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.x << "," << row.y);
        const BoardPart part = row.part == 'c'   ? BoardPart::Cell
                               : row.part == 'm' ? BoardPart::Marker
                                                 : BoardPart::Tile;
        const BoardHit hit = row.part == '.' ? BoardHit{} : BoardHit{part, row.index};
        EXPECT_EQ(partAt(BoardGeometry::pixelToTwips({row.x, row.y})), hit);
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
