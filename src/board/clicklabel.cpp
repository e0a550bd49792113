// Clickable labels; see clicklabel.h.
#include "board/clicklabel.h"

#include <QMouseEvent>

ClickLabel::ClickLabel(int index, QWidget* parent)
    : QLabel(parent)
    , m_index(index) {
    setMouseTracking(true);
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
    // Accept the press so the release comes back to this label.
    event->accept();
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    Q_EMIT released(m_index);
}

void ClickLabel::mouseMoveEvent(QMouseEvent* event) {
    // Handled here: the star area beneath must not see it and reset the pointer.
    event->accept();
    Q_EMIT hovered(m_index);
}
