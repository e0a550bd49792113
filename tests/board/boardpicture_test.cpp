// The board painter's switches, which the star picture of the printed page and the clipboard
// uses (markers, letters and tiles off): each leaves out exactly its own part.
#include "board/boardgeometry.h"
#include "board/boardpainter.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

// The whole board painted at screen scale.
QImage paint(const BoardState& state, const BoardStyle& style) {
    QImage image(BoardGeometry::toPixels(BoardGeometry::BoardRect).size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1.0 / BoardGeometry::TwipsPerPixel, 1.0 / BoardGeometry::TwipsPerPixel);
    paintBoard(painter, state, style);
    return image;
}

} // namespace

TEST(BoardPicture, EachSwitchLeavesOutItsOwnPartOnly) {
    // Letters in every cell, a word on every tile, one selected and one placed; black on white.
    BoardState state;
    for (int c = 0; c < 10; ++c)
        state.Entries[c] = QString(QChar(u'a' + c));
    for (int i = 1; i <= 8; ++i)
        state.tiles[i].word = QStringLiteral("word");
    state.tiles[1].status = TileStatus::Selected;
    state.tiles[2].status = TileStatus::Placed;
    BoardStyle blackOnWhite;
    blackOnWhite.ground = blackOnWhite.tileFace = Qt::white;
    for (QColor* c : {&blackOnWhite.text, &blackOnWhite.letters, &blackOnWhite.markers,
                      &blackOnWhite.light, &blackOnWhite.shadow})
        *c = Qt::black;
    const QImage whole = paint(state, blackOnWhite);
    const struct {
        const char* name;
        bool BoardStyle::*flag;
        std::function<QRect(int)> part;
        int count;
        int first;
    } rows[] = {
        {"markers", &BoardStyle::showMarkers, BoardGeometry::markerRect, 10, 1},
        {"letters", &BoardStyle::showLetters, BoardGeometry::cellRect, 10, 0},
        {"tiles", &BoardStyle::showTiles, BoardGeometry::tileRect, 8, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        BoardStyle style = blackOnWhite;
        style.*row.flag = false;
        const QImage without = paint(state, style);
        int changed = 0;
        for (int y = 0; y < whole.height(); ++y) {
            for (int x = 0; x < whole.width(); ++x) {
                if (whole.pixel(x, y) == without.pixel(x, y))
                    continue;
                ++changed;
                bool inPart = false;
                for (int i = row.first; i < row.first + row.count; ++i)
                    inPart = inPart || BoardGeometry::toPixels(row.part(i)).contains(x, y);
                ASSERT_TRUE(inPart) << x << "," << y;
            }
        }
        EXPECT_GT(changed, 0);
    }
}
