// Drawing the program's icon; see programicon.h.
#include "ui/programicon.h"

#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QtMath>

#include <cmath>

QPolygonF programStar(qreal size) {
    const QPointF centre(size / 2, size * 0.53);
    const qreal outer = size * 0.48;
    const qreal inner = outer * 0.381966; // where the star's lines cross
    QPolygonF star;
    for (int k = 0; k < 5; ++k) {
        const qreal tip = qDegreesToRadians(-90.0 + 72.0 * k);
        const qreal crossing = qDegreesToRadians(-90.0 + 36.0 + 72.0 * k);
        star << centre + QPointF(std::cos(tip), std::sin(tip)) * outer
             << centre + QPointF(std::cos(crossing), std::sin(crossing)) * inner;
    }
    return star;
}

qreal programOutlineWidth(qreal size) {
    return size * 10.0 / 128.0;
}

QImage programIconImage(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    // A white outline keeps the black star in sight on a dark panel.
    QPen outline(Qt::white, programOutlineWidth(size));
    outline.setJoinStyle(Qt::RoundJoin);
    p.setPen(outline);
    p.setBrush(Qt::black);
    p.drawPolygon(programStar(size));
    return image;
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(QPixmap::fromImage(programIconImage(size)));
    return icon;
}

QIcon noWindowIcon() {
    QPixmap blank(16, 16);
    blank.fill(Qt::transparent);
    return QIcon(blank);
}
