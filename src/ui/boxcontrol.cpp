// The self-drawn push button; see boxcontrol.h.
#include "ui/boxcontrol.h"

#include "ui/olecolor.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr double TwipsPerPixel = 15.0;
constexpr int DarkInset = 20;
constexpr int PictureNudge = 24;

} // namespace

qint16 mouseButtonCode(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

qint16 shiftCode(Qt::KeyboardModifiers modifiers) {
    qint16 code = 0;
    if (modifiers & Qt::ShiftModifier)
        code |= 1;
    if (modifiers & Qt::ControlModifier)
        code |= 2;
    if (modifiers & Qt::AltModifier)
        code |= 4;
    return code;
}

BoxControl::BoxControl(QWidget* parent)
    : QWidget(parent)
    , m_foreColor(SystemButtonText)
    , m_backColor(SystemButtonFace) {
    QFont face(QStringLiteral("MS Sans Serif"));
    face.setPointSizeF(8.25);
    setFont(face);
}

void BoxControl::setForeColor(quint32 colour) {
    m_foreColor = colour;
    redraw();
}

void BoxControl::setBackColor(quint32 colour) {
    m_backColor = colour;
    redraw();
}

void BoxControl::setControlFont(const QFont& font) {
    setFont(font);
    redraw();
}

void BoxControl::setCaption(const QString& caption) {
    m_caption = caption;
    redraw();
}

void BoxControl::setFontSize(float points) {
    QFont f = font();
    if (points > 0)
        f.setPointSizeF(points);
    setFont(f);
    redraw();
}

void BoxControl::setFontBold(bool bold) {
    QFont f = font();
    f.setBold(bold);
    setFont(f);
    redraw();
}

void BoxControl::setFontItalic(bool italic) {
    QFont f = font();
    f.setItalic(italic);
    setFont(f);
    redraw();
}

void BoxControl::setPicture(const QPixmap& picture) {
    m_picture = picture;
    redraw();
}

QSize BoxControl::himetricSize(const QSize& pixels) {
    // 2540 hundredths of a millimetre to the inch, 96 pixels to the inch; whole numbers.
    return {int(pixels.width() * 2540 / 96), int(pixels.height() * 2540 / 96)};
}

QPointF BoxControl::pictureCorner(double faceWidth, double faceHeight, int pw, int ph) {
    return {(faceWidth - pw / 2.0) / 2.0 - PictureNudge,
            (faceHeight - ph / 2.0) / 2.0 - PictureNudge};
}

void BoxControl::redraw() {
    update();
}

void BoxControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double w = width() * TwipsPerPixel;
    const double h = height() * TwipsPerPixel;
    painter.scale(1.0 / TwipsPerPixel, 1.0 / TwipsPerPixel);

    // Face and caption.
    painter.fillRect(QRectF(0, 0, w, h), OleTranslateColor(m_backColor));
    if (!m_caption.isEmpty()) {
        const QFontMetricsF metrics(font());
        const double textWidth = metrics.horizontalAdvance(m_caption) * TwipsPerPixel;
        const double textHeight = metrics.height() * TwipsPerPixel;
        const double x = (w - textWidth) / 2.0;
        const double y = (h - textHeight) / 2.0;
        painter.save();
        painter.resetTransform();
        painter.setPen(OleTranslateColor(m_foreColor));
        painter.setFont(font());
        painter.drawText(QPointF(x / TwipsPerPixel, y / TwipsPerPixel + metrics.ascent()),
                         m_caption);
        painter.restore();
    }

    // Edges, one pixel wide.
    QPen pen(Qt::white, 0);
    painter.setPen(pen);
    painter.drawLine(QPointF(0, 0), QPointF(0, h));
    painter.drawLine(QPointF(0, 0), QPointF(w, 0));
    pen.setColor(Qt::black);
    painter.setPen(pen);
    painter.drawLine(QPointF(w - DarkInset, DarkInset), QPointF(w - DarkInset, h - DarkInset));
    painter.drawLine(QPointF(DarkInset, h - DarkInset), QPointF(w - DarkInset, h - DarkInset));

    if (!m_picture.isNull()) {
        const QSize natural = himetricSize(m_picture.size() / m_picture.devicePixelRatio());
        const QPointF corner = pictureCorner(w, h, natural.width(), natural.height());
        painter.save();
        painter.resetTransform();
        painter.drawPixmap(QPointF(corner.x() / TwipsPerPixel, corner.y() / TwipsPerPixel),
                           m_picture);
        painter.restore();
    }

    if (m_pressed) {
        // The pressed frame: a thin dark line around the whole control.
        painter.resetTransform();
        painter.setPen(QPen(Qt::black, 0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRect(0, 0, width() - 1, height() - 1));
    }
}

void BoxControl::mousePressEvent(QMouseEvent* event) {
    event->accept();
    m_pressed = true;
    repaint();
    const QPointF at = event->position() * TwipsPerPixel;
    Q_EMIT MouseDown(mouseButtonCode(event->button()), shiftCode(event->modifiers()), float(at.x()),
                     float(at.y()));
}

void BoxControl::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (!m_pressed)
        return;
    m_pressed = false;
    repaint();
    const QPointF at = event->position() * TwipsPerPixel;
    Q_EMIT MouseUp(mouseButtonCode(event->button()), shiftCode(event->modifiers()), float(at.x()),
                   float(at.y()));
}
