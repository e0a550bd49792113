// Icon art of the message window; see msgicons.h. Every shape is drawn on a 32 x 32 grid
// without smoothing.
#include "ui/msgicons.h"

#include <QPainter>
#include <QPainterPath>

namespace {

const QColor Black(0, 0, 0), Maroon(128, 0, 0), Green(0, 128, 0), Olive(128, 128, 0),
    Navy(0, 0, 128), Purple(128, 0, 128), Teal(0, 128, 128), Silver(192, 192, 192),
    Grey(128, 128, 128), Red(255, 0, 0), Lime(0, 255, 0), Yellow(255, 255, 0), Blue(0, 0, 255),
    Fuchsia(255, 0, 255), Aqua(0, 255, 255), White(255, 255, 255);

void fill(QPainter& p, const QRectF& r, const QColor& c) {
    p.fillRect(r, c);
}

void outlined(QPainter& p, const QColor& line, const QColor& inside) {
    p.setPen(QPen(line, 1));
    p.setBrush(inside);
}

// A white speech balloon with a grey shadow, its tail at the lower left.
void balloon(QPainter& p) {
    const auto shape = [](double dx, double dy) {
        QPainterPath body;
        body.addEllipse(QRectF(2 + dx, 1 + dy, 27, 21));
        QPainterPath tail;
        tail.moveTo(7 + dx, 17 + dy);
        tail.lineTo(4 + dx, 29 + dy);
        tail.lineTo(15 + dx, 20 + dy);
        tail.closeSubpath();
        return body.united(tail);
    };
    p.setPen(Qt::NoPen);
    p.setBrush(Grey);
    p.drawPath(shape(2, 2));
    outlined(p, Black, White);
    p.drawPath(shape(0, 0));
}

void questionMark(QPainter& p) {
    p.setPen(QPen(Blue, 3, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.setBrush(Qt::NoBrush);
    QPainterPath hook;
    hook.moveTo(11.5, 8.5);
    hook.cubicTo(11.5, 4.5, 20.5, 4.5, 20.5, 8.5);
    hook.cubicTo(20.5, 11.5, 16, 11.5, 16, 14.5);
    hook.lineTo(16, 15.5);
    p.drawPath(hook);
    fill(p, QRectF(14.5, 17, 3, 3), Blue);
}

void letterI(QPainter& p) {
    fill(p, QRectF(14, 4, 4, 3), Blue);
    fill(p, QRectF(13, 9, 5, 1), Blue);
    fill(p, QRectF(14, 9, 4, 9), Blue);
    fill(p, QRectF(12, 17, 8, 2), Blue);
}

void exclamation(QPainter& p) {
    QPolygonF triangle;
    triangle << QPointF(16, 2) << QPointF(30, 28) << QPointF(2, 28);
    p.setPen(Qt::NoPen);
    p.setBrush(Grey);
    p.drawPolygon(triangle.translated(1, 2));
    outlined(p, Black, Yellow);
    p.drawPolygon(triangle);
    fill(p, QRectF(15, 9, 3, 11), Black);
    fill(p, QRectF(15, 22, 3, 3), Black);
}

// STOP in a 5 x 7 pixel alphabet of our own.
void stopWord(QPainter& p, double left, double top) {
    static const char* const Glyphs[4][7] = {
        {".####", "#....", "#....", ".###.", "....#", "....#", "####."},
        {"#####", "..#..", "..#..", "..#..", "..#..", "..#..", "..#.."},
        {".###.", "#...#", "#...#", "#...#", "#...#", "#...#", ".###."},
        {"####.", "#...#", "#...#", "####.", "#....", "#....", "#...."},
    };
    for (int g = 0; g < 4; ++g) {
        for (int row = 0; row < 7; ++row) {
            for (int col = 0; col < 5; ++col) {
                if (Glyphs[g][row][col] == '#')
                    fill(p, QRectF(left + g * 6 + col, top + row, 1, 1), White);
            }
        }
    }
}

void stopDisc(QPainter& p) {
    outlined(p, Silver, Black);
    p.drawEllipse(QRectF(1, 1, 29, 29));
    stopWord(p, 4.5, 12.5);
}

// Sixteen pixels hold no readable word: a white bar stands for it.
QImage smallStopDisc() {
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, false);
    outlined(p, Silver, Black);
    p.drawEllipse(QRect(0, 0, 15, 15));
    fill(p, QRectF(3, 6, 10, 4), White);
    return image;
}

void criticalDisc(QPainter& p) {
    outlined(p, Maroon, Red);
    p.drawEllipse(QRectF(1, 1, 29, 29));
    p.setPen(QPen(White, 4, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(10, 10), QPointF(21, 21));
    p.drawLine(QPointF(21, 10), QPointF(10, 21));
}

void happyFace(QPainter& p) {
    outlined(p, Olive, Yellow);
    p.drawEllipse(QRectF(1, 1, 29, 29));
    fill(p, QRectF(10, 9, 3, 5), Black);
    fill(p, QRectF(19, 9, 3, 5), Black);
    p.setPen(QPen(Black, 2, Qt::SolidLine, Qt::FlatCap));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(8, 7, 16, 15), 200 * 16, 140 * 16);
    fill(p, QRectF(7, 17, 2, 2), Red); // cheeks
    fill(p, QRectF(23, 17, 2, 2), Red);
}

void wasteBin(QPainter& p) {
    // Rubbish above the rim: a crumpled red sheet and a yellow peel.
    QPolygonF paper;
    paper << QPointF(8, 9) << QPointF(10, 3) << QPointF(15, 5) << QPointF(16, 9);
    outlined(p, Maroon, Red);
    p.drawPolygon(paper);
    QPolygonF peel;
    peel << QPointF(17, 9) << QPointF(20, 2) << QPointF(23, 3) << QPointF(21, 9);
    outlined(p, Olive, Yellow);
    p.drawPolygon(peel);
    // The bin, its rim and ribs.
    QPolygonF bin;
    bin << QPointF(6, 10) << QPointF(26, 10) << QPointF(23, 30) << QPointF(9, 30);
    outlined(p, Black, Green);
    p.drawPolygon(bin);
    fill(p, QRectF(5, 9, 23, 3), Black);
    fill(p, QRectF(6, 10, 21, 1), Lime);
    for (const int x : {11, 16, 21})
        fill(p, QRectF(x, 14, 1, 13), Lime);
}

void printer(QPainter& p) {
    // The sheet waiting at the back.
    outlined(p, Black, White);
    p.drawRect(QRectF(9, 2, 14, 11));
    // The body, shaded.
    outlined(p, Black, Silver);
    p.drawRect(QRectF(2, 12, 27, 12));
    fill(p, QRectF(3, 13, 26, 1), White);
    fill(p, QRectF(3, 21, 26, 3), Grey);
    fill(p, QRectF(24, 15, 3, 2), Lime); // power light
    // The printed sheet coming out at the front.
    outlined(p, Black, White);
    p.drawRect(QRectF(7, 19, 18, 11));
    for (const int y : {22, 25, 28})
        fill(p, QRectF(9, y, y == 28 ? 9 : 14, 1), Navy);
}

void lightBulb(QPainter& p) {
    // Rays.
    p.setPen(QPen(Olive, 1));
    const QLineF rays[] = {{16, 0, 16, 2}, {4, 12, 6, 12}, {26, 12, 28, 12}, {7, 3, 9, 5},
                           {25, 3, 23, 5}, {6, 20, 8, 18}, {26, 20, 24, 18}};
    for (const QLineF& ray : rays)
        p.drawLine(ray);
    // The glass, lit, with a highlight.
    outlined(p, Olive, Yellow);
    p.drawEllipse(QRectF(9, 4, 14, 14));
    p.drawRect(QRectF(12, 16, 8, 4));
    fill(p, QRectF(13, 16, 7, 1), Yellow);
    fill(p, QRectF(12, 7, 2, 3), White);
    // The screw base.
    outlined(p, Black, Silver);
    p.drawRect(QRectF(12, 20, 8, 7));
    fill(p, QRectF(13, 22, 7, 1), Grey);
    fill(p, QRectF(13, 25, 7, 1), Grey);
    fill(p, QRectF(14, 27, 4, 2), Black);
}

void paintSlot(QPainter& p, int slot) {
    switch (slot) {
    case 0:
        balloon(p);
        questionMark(p);
        break;
    case 1:
        exclamation(p);
        break;
    case 2:
        balloon(p);
        letterI(p);
        break;
    case 3:
        stopDisc(p);
        break;
    case 4:
        criticalDisc(p);
        break;
    case 5:
        happyFace(p);
        break;
    case 6:
        wasteBin(p);
        break;
    case 7:
        printer(p);
        break;
    case 8:
        lightBulb(p);
        break;
    default:
        break;
    }
}

} // namespace

const QList<QColor>& msgIconPalette() {
    static const QList<QColor> palette = {Black, Maroon, Green, Olive,  Navy, Purple,  Teal, Silver,
                                          Grey,  Red,    Lime,  Yellow, Blue, Fuchsia, Aqua, White};
    return palette;
}

QImage msgIcon(int slot, int size) {
    const bool hasPicture = slot >= 0 && slot <= 8;
    if (!hasPicture || !(size == 32 || (size == 16 && slot <= 4)))
        return {};
    if (size == 16 && slot == 3)
        return smallStopDisc();
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, false);
    paintSlot(p, slot);
    p.end();
    // The small variant keeps every other pixel, so it too holds only the sixteen colours.
    return size == 32 ? image
                      : image.scaled(size, size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}
