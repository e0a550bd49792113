// Drawing the button pictures; see buttonpictures.h.
#include "board/buttonpictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygon>
#include <QTransform>

#include <array>

namespace {

constexpr int kPictureSize = 16;

// A page with its top-right corner folded over, filling the picture's middle.
void drawPage(QPainter& p) {
    p.drawPolyline(QPolygon({QPoint(9, 0), QPoint(2, 0), QPoint(2, 15), QPoint(13, 15),
                             QPoint(13, 4), QPoint(9, 0), QPoint(9, 4), QPoint(13, 4)}));
}

void drawTick(QPainter& p) {
    for (int dy = 0; dy < 2; ++dy)
        p.drawPolyline(QPolygon({QPoint(4, 9 + dy), QPoint(6, 11 + dy), QPoint(11, 6 + dy)}));
}

// Two arrows chasing each other round a circle (the "start again" sign): the upper one runs
// clockwise over the top and points down at the right, the lower one runs under the bottom
// and points up at the left. The second is the first turned half round.
void drawArrows(QPainter& p) {
    const QPolygon arc({QPoint(5, 7), QPoint(6, 6), QPoint(8, 6), QPoint(10, 8)});
    const QPolygon head({QPoint(9, 9), QPoint(11, 9), QPoint(10, 10)});
    QTransform halfTurn;
    halfTurn.translate(15, 19);
    halfTurn.rotate(180);
    for (const QTransform& t : {QTransform(), halfTurn}) {
        p.drawPolyline(t.map(arc));
        p.drawPolygon(t.map(head));
    }
}

void drawStar(QPainter& p) {
    p.drawLine(8, 7, 8, 13);
    p.drawLine(5, 10, 11, 10);
    p.drawLine(6, 8, 10, 12);
    p.drawLine(10, 8, 6, 12);
}

void drawOpenFolder(QPainter& p) {
    // The back of the folder with its tab.
    p.drawPolyline(QPolygon({QPoint(11, 6), QPoint(11, 3), QPoint(6, 3), QPoint(5, 2), QPoint(1, 2),
                             QPoint(0, 3), QPoint(0, 13)}));
    // The front flap, swung open towards the viewer.
    p.drawPolygon(QPolygon({QPoint(4, 6), QPoint(15, 6), QPoint(11, 13), QPoint(0, 13)}));
}

QImage blankPicture(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

QImage buttonPictureImage(ButtonPicture picture) {
    QImage image = blankPicture(kPictureSize);
    QPainter p(&image);
    // Crisp one-pixel strokes: at 16 x 16 antialiased lines turn grey and blurred.
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(QPen(Qt::black, 0));
    p.setBrush(Qt::NoBrush);
    switch (picture) {
    case ButtonPicture::OpenFolder:
        drawOpenFolder(p);
        break;
    case ButtonPicture::PageTick:
        drawPage(p);
        drawTick(p);
        break;
    case ButtonPicture::PageArrows:
        drawPage(p);
        drawArrows(p);
        break;
    case ButtonPicture::PageStar:
        drawPage(p);
        drawStar(p);
        break;
    }
    return image;
}

QPixmap buttonPicture(ButtonPicture picture) {
    return QPixmap::fromImage(buttonPictureImage(picture));
}
