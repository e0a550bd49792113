// The board painter beyond the screen: the star picture of the printed page and the
// clipboard (markers, letters and tiles switched off) has its boxes where the page puts them,
// and each switch leaves out exactly its own part.
#include "board/boardgeometry.h"
#include "board/boardpainter.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

// A state with letters in every cell, a word on every tile, one selected and one placed.
BoardState busyBoard() {
    BoardState state;
    for (int c = 0; c < 10; ++c)
        state.Entries[c] = QString(QChar(u'a' + c));
    for (int i = 1; i <= 8; ++i)
        state.tiles[i].word = QStringLiteral("word");
    state.tiles[1].status = TileStatus::Selected;
    state.tiles[2].status = TileStatus::Placed;
    return state;
}

BoardStyle blackOnWhite() {
    BoardStyle style;
    style.ground = Qt::white;
    style.tileFace = Qt::white;
    for (QColor* c : {&style.text, &style.letters, &style.markers, &style.light, &style.shadow})
        *c = Qt::black;
    style.letterFont = QFont(QStringLiteral("Arial"), 18, QFont::Bold);
    style.tileFont = QFont(QStringLiteral("Arial"), 12);
    style.markerFont = QFont(QStringLiteral("Arial"), 12, QFont::Bold);
    return style;
}

// The board painted at screen scale, `origin` (board twips) at the image's top-left corner.
QImage paint(const BoardState& state, const BoardStyle& style, QSize size, QPoint origin) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1.0 / BoardGeometry::TwipsPerPixel, 1.0 / BoardGeometry::TwipsPerPixel);
    painter.translate(-origin);
    paintBoard(painter, state, style);
    return image;
}

bool black(const QImage& image, int x, int y) {
    return image.pixel(x, y) == qRgb(0, 0, 0);
}

// A 31-pixel box border (top row and left column all black) with its corner at (x, y).
bool boxCornerAt(const QImage& image, int x, int y) {
    for (int n = 0; n < 31; ++n) {
        if (!black(image, x + n, y) || !black(image, x, y + n))
            return false;
    }
    return true;
}

} // namespace

TEST(BoardPicture, StarPictureHasEmptyBoxesWhereThePageExpectsThem) {
    BoardStyle style = blackOnWhite();
    style.showMarkers = style.showLetters = style.showTiles = false;
    // The star area's point (345, 240) at the picture's top-left corner.
    const QPoint origin = BoardGeometry::starArea().topLeft() + QPoint(345, 240);
    const QImage star = paint(busyBoard(), style, QSize(299, 286), origin);
    const QPoint boxes[10] = {{135, 0},  {1, 101},   {99, 101},  {173, 101}, {265, 101},
                              {78, 164}, {191, 164}, {133, 198}, {49, 252},  {214, 252}};
    for (int c = 0; c < 10; ++c) {
        SCOPED_TRACE(c);
        bool found = false;
        for (int dy = -2; dy <= 2 && !found; ++dy) {
            for (int dx = -2; dx <= 2 && !found; ++dx) {
                const QPoint at = boxes[c] + QPoint(dx, dy);
                found = at.x() >= 0 && at.y() >= 0 && boxCornerAt(star, at.x(), at.y());
            }
        }
        EXPECT_TRUE(found);
        // No letter: the inside of the box is white.
        const QRect box =
            BoardGeometry::toPixels(BoardGeometry::cellRect(c))
                .translated(-BoardGeometry::toPixels(QRect(origin, QSize())).topLeft());
        for (int y = box.top() + 1; y < box.bottom(); ++y) {
            for (int x = box.left() + 1; x < box.right(); ++x)
                ASSERT_EQ(star.pixel(x, y), qRgb(255, 255, 255)) << x << "," << y;
        }
    }
}

TEST(BoardPicture, EachSwitchLeavesOutItsOwnPartOnly) {
    const BoardState state = busyBoard();
    const QSize size = BoardGeometry::toPixels(BoardGeometry::BoardRect).size();
    const QImage whole = paint(state, blackOnWhite(), size, {});
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
        BoardStyle style = blackOnWhite();
        style.*row.flag = false;
        const QImage without = paint(state, style, size, {});
        int changed = 0;
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
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
