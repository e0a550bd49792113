// Painting the page blocks and the clipboard picture; see sheetpainter.h.
#include "board/sheetpainter.h"

#include "board/boardgeometry.h"
#include "board/boardpainter.h"

#include <QFont>
#include <QPainter>
#include <QPen>

using namespace BoardGeometry;

namespace {

// Large enough for any one line of text; texts are aligned to its top-left corner.
constexpr QSizeF TextRoom{20000, 2000};

QFont toFont(const SheetFont& sheetFont) {
    QFont font(sheetFont.name);
    font.setPointSizeF(sheetFont.pointSize);
    font.setBold(sheetFont.bold);
    font.setStrikeOut(sheetFont.strikeOut);
    return font;
}

} // namespace

void paintStarPicture(QPainter& painter, const QPointF& at, double scale) {
    BoardStyle style;
    style.ground = Qt::white;
    style.text = Qt::black;
    style.light = Qt::black;
    style.shadow = Qt::black;
    style.showMarkers = false;
    style.showLetters = false;
    style.showTiles = false;

    const QSizeF size = QSizeF(PuzzleSheet::StarPictureSize) * TwipsPerPixel;
    painter.save();
    painter.translate(at);
    painter.scale(scale, scale);
    painter.setClipRect(QRectF(QPointF(0, 0), size), Qt::IntersectClip);
    // The picture's corner is this star-area point; paintBoard draws in board twips.
    painter.translate(-QPointF(starArea().topLeft() + PuzzleSheet::StarPictureOrigin));
    paintBoard(painter, BoardState{}, style);
    // The boxes cover the cells the board drew: black one-pixel borders, empty inside. The
    // border is a stroke along the middle of its pixel rather than a white square on a black
    // one, so a viewer showing a small page still draws it (at least a device pixel wide).
    QPen border(Qt::black);
    border.setWidthF(TwipsPerPixel);
    border.setJoinStyle(Qt::MiterJoin);
    painter.setPen(border);
    painter.setBrush(Qt::white);
    const double half = TwipsPerPixel / 2.0;
    for (int c = 0; c < StarGrid::CellCount; ++c) {
        const QRectF box(cellRect(c).topLeft(),
                         QSizeF(PuzzleSheet::StarBoxPixels, PuzzleSheet::StarBoxPixels) *
                             TwipsPerPixel);
        painter.drawRect(box.adjusted(half, half, -half, -half));
    }
    painter.restore();
}

void paintSheetTexts(QPainter& painter, const QList<SheetText>& texts) {
    for (const SheetText& text : texts) {
        paintText(painter, QRectF(text.at, TextRoom), Qt::AlignLeft | Qt::AlignTop, text.text,
                  toFont(text.font), Qt::black);
    }
}

void paintSheetBlock(QPainter& painter, const SheetBlock& block) {
    paintStarPicture(painter, block.starAt, block.starScale);
    paintSheetTexts(painter, block.texts);
}

void paintBookletPage(QPainter& painter, const BookletPage& page) {
    for (const SheetBlock& block : page.blocks)
        paintSheetBlock(painter, block);
    paintSheetTexts(painter, page.texts);
}

void paintPage(QPainter& painter, const std::array<SheetBlock, 2>& page) {
    for (const SheetBlock& block : page)
        paintSheetBlock(painter, block);
}

QImage starPicture() {
    QImage image(PuzzleSheet::StarPictureSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1.0 / TwipsPerPixel, 1.0 / TwipsPerPixel);
    paintStarPicture(painter, QPointF(0, 0), 1.0);
    return image;
}

QImage puzzlePicture(const SheetBlock& block) {
    QImage image(toPixels(PuzzleSheet::PictureTwips.width()),
                 toPixels(PuzzleSheet::PictureTwips.height()), QImage::Format_RGB32);
    image.setDevicePixelRatio(1.0);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1.0 / TwipsPerPixel, 1.0 / TwipsPerPixel);
    paintSheetBlock(painter, block);
    return image;
}
