// The star's lines; see starpainter.h.
#include "board/starpainter.h"

#include "board/boardgeometry.h"

#include <QPainter>
#include <QPen>

void paintStarLines(QPainter& painter, const QColor& colour) {
    painter.save();
    QPen pen(colour);
    pen.setWidthF(BoardGeometry::LineWidthPixels * BoardGeometry::TwipsPerPixel);
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    for (const QLine& line : BoardGeometry::Lines)
        painter.drawLine(line);
    painter.restore();
}
