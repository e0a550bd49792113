// Painting a plain widget (a window, a label, a frame) in one colour, as the windows do with
// the colours of the active scheme.
#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

// Fills the widget's background with `colour` (its window role, drawn by the widget itself).
inline void setBackground(QWidget* widget, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}
