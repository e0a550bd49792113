// The self-drawn push button; see boxcontrol.h.
#include "ui/boxcontrol.h"

#include "ui/boxgeometry.h"
#include "ui/contrast.h"
#include "ui/kitaccessible.h"
#include "ui/olecolor.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

using BoxGeometry::toPixel;
using BoxGeometry::TwipsPerPixel;

namespace {

// A one-pixel line between two twips points, both ends included (so the dark edges meet in
// their corner); drawn as a filled rectangle so it stays crisp at any screen scale.
void drawEdge(QPainter& painter, const QLineF& twips, const QColor& colour) {
    const int x0 = toPixel(std::min(twips.x1(), twips.x2()));
    const int x1 = toPixel(std::max(twips.x1(), twips.x2()));
    const int y0 = toPixel(std::min(twips.y1(), twips.y2()));
    const int y1 = toPixel(std::max(twips.y1(), twips.y2()));
    painter.fillRect(QRect(QPoint(x0, y0), QPoint(x1, y1)), colour);
}

QPointF twipsOf(const QPointF& pixels) {
    return pixels * TwipsPerPixel;
}

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
    face.setPointSizeF(m_fontSize);
    setFont(face);
    // The face is opaque and painted whole every time.
    setAttribute(Qt::WA_OpaquePaintEvent);
    // A screen reader calls it a push button and reads its caption.
    installKitAccessibility();
}

void BoxControl::setForeColor(quint32 colour) {
    m_foreColor = colour;
    update();
}

void BoxControl::setBackColor(quint32 colour) {
    m_backColor = colour;
    update();
}

void BoxControl::setControlFont(const QFont& font) {
    setFont(font);
    m_fontSize = float(font.pointSizeF());
    update();
}

void BoxControl::setCaption(const QString& caption) {
    m_caption = caption;
    update();
}

void BoxControl::setFontSize(float points) {
    m_fontSize = points;
    if (points > 0) {
        QFont f = font();
        f.setPointSizeF(points);
        setFont(f);
    }
    update();
}

void BoxControl::setFontBold(bool bold) {
    QFont f = font();
    f.setBold(bold);
    setFont(f);
    update();
}

void BoxControl::setFontItalic(bool italic) {
    QFont f = font();
    f.setItalic(italic);
    setFont(f);
    update();
}

void BoxControl::setPicture(const QPixmap& picture) {
    m_picture = picture;
    update();
}

void BoxControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double w = width() * TwipsPerPixel;
    const double h = height() * TwipsPerPixel;

    // The palette of the application, not the widget's own, so that a disabled control
    // (whose palette switches to the disabled group) keeps its look.
    painter.fillRect(rect(), OleTranslateColor(m_backColor));
    if (!m_caption.isEmpty()) {
        const QFontMetricsF metrics(font());
        const QPointF cell =
            BoxGeometry::captionOrigin(w, h, metrics.horizontalAdvance(m_caption) * TwipsPerPixel,
                                       metrics.height() * TwipsPerPixel);
        painter.setFont(font());
        painter.setPen(OleTranslateColor(m_foreColor));
        painter.drawText(QPointF(toPixel(cell.x()), toPixel(cell.y()) + metrics.ascent()),
                         m_caption);
    }

    for (const QLineF& edge : BoxGeometry::lightEdges(w, h))
        drawEdge(painter, edge, Qt::white);
    for (const QLineF& edge : BoxGeometry::darkEdges(w, h))
        drawEdge(painter, edge, Qt::black);

    if (!m_picture.isNull()) {
        const QSize natural = BoxGeometry::himetricSize(
            (QSizeF(m_picture.size()) / m_picture.devicePixelRatio()).toSize());
        const QPointF corner = BoxGeometry::pictureCorner(w, h, natural.width(), natural.height());
        painter.drawPixmap(QPoint(toPixel(corner.x()), toPixel(corner.y())), m_picture);
    }

    if (m_pressed) {
        // The pressed frame: one dark pixel all round, over everything else.
        const int right = width() - 1;
        const int bottom = height() - 1;
        painter.fillRect(QRect(0, 0, width(), 1), Qt::black);
        painter.fillRect(QRect(0, bottom, width(), 1), Qt::black);
        painter.fillRect(QRect(0, 0, 1, height()), Qt::black);
        painter.fillRect(QRect(right, 0, 1, height()), Qt::black);
    }

    if (hasFocus()) {
        // The keyboard focus: a ring two pixels wide along the edges, in black or white,
        // whichever stands out on the face.
        const QColor ring = contrastingColour(OleTranslateColor(m_backColor));
        painter.fillRect(QRect(0, 0, width(), FocusRingWidth), ring);
        painter.fillRect(QRect(0, height() - FocusRingWidth, width(), FocusRingWidth), ring);
        painter.fillRect(QRect(0, 0, FocusRingWidth, height()), ring);
        painter.fillRect(QRect(width() - FocusRingWidth, 0, FocusRingWidth, height()), ring);
    }
}

void BoxControl::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Space) {
        event->accept();
        if (!event->isAutoRepeat() && !m_keyHeld)
            keyDown(event->modifiers());
        return;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        event->accept();
        if (!event->isAutoRepeat() && !m_keyHeld) {
            keyDown(event->modifiers());
            keyUp(event->modifiers());
        }
        return;
    }
    QWidget::keyPressEvent(event);
}

void BoxControl::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat() && m_keyHeld) {
        event->accept();
        keyUp(event->modifiers());
        return;
    }
    QWidget::keyReleaseEvent(event);
}

void BoxControl::keyDown(Qt::KeyboardModifiers modifiers) {
    m_keyHeld = true;
    m_pressed = true;
    repaint();
    Q_EMIT MouseDown(0, shiftCode(modifiers), 0.0f, 0.0f);
}

void BoxControl::keyUp(Qt::KeyboardModifiers modifiers) {
    m_keyHeld = false;
    m_pressed = m_held != Qt::NoButton;
    repaint();
    Q_EMIT MouseUp(0, shiftCode(modifiers), 0.0f, 0.0f);
}

void BoxControl::focusInEvent(QFocusEvent* event) {
    update();
    QWidget::focusInEvent(event);
}

void BoxControl::focusOutEvent(QFocusEvent* event) {
    // A held Space whose release will go elsewhere ends its press now.
    if (m_keyHeld)
        keyUp(Qt::NoModifier);
    update();
    QWidget::focusOutEvent(event);
}

void BoxControl::mousePressEvent(QMouseEvent* event) {
    event->accept();
    m_held |= event->button();
    m_pressed = true;
    repaint(); // the frame shows before the container hears of the press
    const QPointF at = twipsOf(event->position());
    Q_EMIT MouseDown(mouseButtonCode(event->button()), shiftCode(event->modifiers()), float(at.x()),
                     float(at.y()));
}

void BoxControl::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    // Only a release that follows a press on this control counts.
    if (!(m_held & event->button()))
        return;
    m_held &= ~event->button();
    m_pressed = false;
    repaint(); // the frame is gone before the container hears of the release
    const QPointF at = twipsOf(event->position());
    Q_EMIT MouseUp(mouseButtonCode(event->button()), shiftCode(event->modifiers()), float(at.x()),
                   float(at.y()));
}

void BoxControl::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled() && m_pressed) {
        m_held = {};
        m_keyHeld = false;
        m_pressed = false;
        update();
    }
    QWidget::changeEvent(event);
}
