// A label that reports the release of any mouse button pressed on it, and pointer movement
// over it, together with its index in a control array (tiles pw(1..8), markers wn(1..10)).
#pragma once

#include <QLabel>

class ClickLabel : public QLabel {
    Q_OBJECT
public:
    ClickLabel(int index, QWidget* parent);

    int index() const { return m_index; }

Q_SIGNALS:
    // A mouse button pressed on the label was released (any button, wherever the pointer is).
    void released(int index);
    // The pointer moved over the label.
    void hovered(int index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    const int m_index;
};
