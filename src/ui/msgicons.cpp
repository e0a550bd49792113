// Icon art of the message window; see msgicons.h. Every colour used is one of the sixteen
// classic palette colours, so the pictures stay true to a 16-colour set.
#include "ui/msgicons.h"

#include <QPainter>
#include <QPainterPath>

namespace {

const QColor Black(0, 0, 0), White(255, 255, 255), Red(255, 0, 0), DarkRed(128, 0, 0),
    Yellow(255, 255, 0), Olive(128, 128, 0), Blue(0, 0, 255), Navy(0, 0, 128), Green(0, 128, 0),
    Lime(0, 255, 0), Grey(128, 128, 128), Silver(192, 192, 192);

void balloon(QPainter& p) {
    QPainterPath path;
    path.addEllipse(QRectF(2, 1, 28, 23));
    QPainterPath tail;
    tail.moveTo(8, 19);
    tail.lineTo(5, 30);
    tail.lineTo(16, 22);
    tail.closeSubpath();
    p.setPen(QPen(Black, 1));
    p.setBrush(White);
    p.drawPath(path.united(tail));
}

void letter(QPainter& p, const QString& text, const QColor& colour, const QRectF& box, int px) {
    QFont font(QStringLiteral("DejaVu Serif"));
    font.setPixelSize(px);
    font.setBold(true);
    p.setFont(font);
    p.setPen(colour);
    p.drawText(box, Qt::AlignCenter, text);
}

void paintSlot(QPainter& p, int slot) {
    switch (slot) {
    case 0: // question
        balloon(p);
        letter(p, QStringLiteral("?"), Blue, QRectF(2, 1, 28, 23), 20);
        break;
    case 1: { // exclamation on a yellow triangle
        QPainterPath tri;
        tri.moveTo(16, 2);
        tri.lineTo(30, 29);
        tri.lineTo(2, 29);
        tri.closeSubpath();
        p.setPen(QPen(Black, 1));
        p.setBrush(Yellow);
        p.drawPath(tri);
        letter(p, QStringLiteral("!"), Black, QRectF(2, 8, 28, 22), 18);
        break;
    }
    case 2: // information
        balloon(p);
        letter(p, QStringLiteral("i"), Blue, QRectF(2, 1, 28, 23), 20);
        break;
    case 3: { // STOP on a black disc
        p.setPen(Qt::NoPen);
        p.setBrush(Black);
        p.drawEllipse(QRectF(1, 1, 30, 30));
        QFont font(QStringLiteral("DejaVu Sans Condensed"));
        font.setPixelSize(9);
        font.setBold(true);
        p.setFont(font);
        p.setPen(White);
        p.drawText(QRectF(1, 1, 30, 30), Qt::AlignCenter, QStringLiteral("STOP"));
        break;
    }
    case 4: // white cross on a red disc
        p.setPen(QPen(DarkRed, 1));
        p.setBrush(Red);
        p.drawEllipse(QRectF(1, 1, 30, 30));
        p.setPen(QPen(White, 4, Qt::SolidLine, Qt::FlatCap));
        p.drawLine(QPointF(10, 10), QPointF(22, 22));
        p.drawLine(QPointF(22, 10), QPointF(10, 22));
        break;
    case 5: // smiling face
        p.setPen(QPen(Olive, 1));
        p.setBrush(Yellow);
        p.drawEllipse(QRectF(1, 1, 30, 30));
        p.setPen(Qt::NoPen);
        p.setBrush(Black);
        p.drawEllipse(QRectF(10, 9, 4, 5));
        p.drawEllipse(QRectF(18, 9, 4, 5));
        p.setPen(QPen(Black, 2));
        p.setBrush(Qt::NoBrush);
        p.drawArc(QRectF(8, 8, 16, 15), 200 * 16, 140 * 16);
        break;
    case 6: { // green waste bin with rubbish
        p.setPen(QPen(Red, 2));
        p.drawLine(QPointF(11, 9), QPointF(15, 3));
        p.setPen(QPen(Yellow, 3));
        p.drawLine(QPointF(17, 9), QPointF(21, 4));
        p.setPen(QPen(Black, 1));
        p.setBrush(Green);
        QPainterPath bin;
        bin.moveTo(6, 9);
        bin.lineTo(26, 9);
        bin.lineTo(23, 30);
        bin.lineTo(9, 30);
        bin.closeSubpath();
        p.drawPath(bin);
        p.setPen(QPen(Lime, 1));
        for (int x : {12, 16, 20})
            p.drawLine(QPointF(x, 12), QPointF(x, 27));
        break;
    }
    case 7: // printer with a sheet
        p.setPen(QPen(Black, 1));
        p.setBrush(White);
        p.drawRect(QRectF(9, 2, 14, 12));
        p.setBrush(Silver);
        p.drawRect(QRectF(3, 12, 26, 11));
        p.setBrush(Grey);
        p.drawRect(QRectF(6, 23, 20, 5));
        p.setBrush(White);
        p.drawRect(QRectF(9, 20, 14, 10));
        p.setPen(QPen(Navy, 1));
        p.drawLine(QPointF(11, 24), QPointF(21, 24));
        p.drawLine(QPointF(11, 27), QPointF(19, 27));
        p.setPen(Qt::NoPen);
        p.setBrush(Lime);
        p.drawRect(QRectF(24, 15, 2, 2));
        break;
    case 8: // lit bulb with rays
        p.setPen(QPen(Olive, 1));
        for (int i = 0; i < 8; ++i) {
            p.save();
            p.translate(16, 12);
            p.rotate(i * 45);
            p.drawLine(QPointF(0, -11), QPointF(0, -14));
            p.restore();
        }
        p.setPen(QPen(Black, 1));
        p.setBrush(Yellow);
        p.drawEllipse(QRectF(9, 5, 14, 14));
        p.setBrush(Grey);
        p.drawRect(QRectF(12, 19, 8, 8));
        p.setPen(QPen(Black, 1));
        p.drawLine(QPointF(12, 22), QPointF(20, 22));
        p.drawLine(QPointF(12, 25), QPointF(20, 25));
        break;
    default:
        break;
    }
}

} // namespace

QImage msgIcon(int slot) {
    if (slot < 0 || slot > 8)
        return {};
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, false);
    paintSlot(p, slot);
    return image;
}
