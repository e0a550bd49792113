// The board's one drawing; see boardpainter.h.
#include "board/boardpainter.h"

#include "board/boardgeometry.h"

#include <QPaintDevice>
#include <QPainter>
#include <QPen>

using namespace BoardGeometry;

namespace {

constexpr int Pixel = TwipsPerPixel;

// A one-pixel border inside `r`: the top and left edges in `shadow` (the bottom-left and
// top-right corners excepted), the bottom and right edges in `light`.
void sunkenBorder(QPainter& p, const QRect& r, const QColor& light, const QColor& shadow) {
    p.fillRect(QRect(r.x(), r.y(), r.width() - Pixel, Pixel), shadow);
    p.fillRect(QRect(r.x(), r.y(), Pixel, r.height() - Pixel), shadow);
    p.fillRect(QRect(r.x(), r.y() + r.height() - Pixel, r.width(), Pixel), light);
    p.fillRect(QRect(r.x() + r.width() - Pixel, r.y(), Pixel, r.height() - Pixel), light);
}

// A border `width` twips wide inside `r`, in one colour.
void flatBorder(QPainter& p, const QRect& r, const QColor& colour, int width) {
    p.fillRect(QRect(r.x(), r.y(), r.width(), width), colour);
    p.fillRect(QRect(r.x(), r.y() + r.height() - width, r.width(), width), colour);
    p.fillRect(QRect(r.x(), r.y(), width, r.height()), colour);
    p.fillRect(QRect(r.x() + r.width() - width, r.y(), width, r.height()), colour);
}

void centredText(QPainter& p, const QRect& r, const QString& text, const QFont& font,
                 const QColor& colour) {
    paintText(p, r, Qt::AlignCenter, text, font, colour);
}

void paintLines(QPainter& p, const QColor& colour) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(starArea().topLeft());
    QPen pen(colour);
    pen.setWidthF(LineWidthPixels * TwipsPerPixel);
    pen.setCapStyle(Qt::FlatCap);
    p.setPen(pen);
    for (const QLine& line : Lines)
        p.drawLine(line);
    p.restore();
}

void paintTile(QPainter& p, const QRect& r, const TileState& tile, const BoardStyle& style) {
    const QColor text = tile.status == TileStatus::Placed ? style.ground : style.text;
    p.fillRect(r, style.tileFace);
    if (tile.status == TileStatus::Selected)
        flatBorder(p, r, text, SelectedBorderPixels * Pixel);
    else
        sunkenBorder(p, r, style.light, style.shadow);
    QFont font = style.tileFont;
    font.setStrikeOut(tile.decoyRevealed);
    centredText(p, r.adjusted(Pixel, Pixel, -Pixel, -Pixel), tile.word, font, text);
}

} // namespace

void paintText(QPainter& p, const QRectF& twips, int flags, const QString& text, QFont font,
               const QColor& colour) {
    if (text.isEmpty())
        return;
    const QTransform transform = p.transform();
    const qreal dpi = p.device() ? p.device()->logicalDpiY() : 96.0;
    const qreal scale = transform.m22() * TwipsPerPixel * 96.0 / dpi;
    if (qAbs(scale - 1.0) > 1e-9) {
        if (font.pointSizeF() > 0)
            font.setPointSizeF(font.pointSizeF() * scale);
        else
            font.setPixelSize(qMax(1, qRound(font.pixelSize() * transform.m22() * Pixel)));
    }
    const QRect device = transform.mapRect(twips).toRect();
    p.save();
    p.resetTransform();
    p.setFont(font);
    p.setPen(colour);
    p.drawText(device, flags, text);
    p.restore();
}

void paintBoard(QPainter& painter, const BoardState& state, const BoardStyle& style) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (style.showGround)
        painter.fillRect(BoardRect, style.ground);
    paintLines(painter, style.text);
    if (style.showMarkers) {
        const QColor colour = state.searching ? style.idleMarkers : style.markers;
        for (int k = 1; k <= StarGrid::DirectionCount; ++k)
            centredText(painter, markerRect(k), QStringLiteral("O"), style.markerFont, colour);
    }
    // Cells above the markers and the lines.
    for (int c = 0; c < StarGrid::CellCount; ++c) {
        const QRect r = cellRect(c);
        painter.fillRect(r, style.ground);
        sunkenBorder(painter, r, style.light, style.shadow);
        if (style.showLetters) {
            centredText(painter, r.adjusted(Pixel, Pixel, -Pixel, -Pixel), state.Entries[c],
                        style.letterFont, style.letters);
        }
    }
    if (style.showTiles) {
        for (int i = 1; i <= StarGrid::CandidateCount; ++i)
            paintTile(painter, tileRect(i), state.tiles[i], style);
    }
    painter.restore();
}
