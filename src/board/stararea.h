// The star area `Picture2`: paints the five lines and holds the ten letter cells `Lts(0..9)`
// and the ten word-number markers `wn(1..10)` at their fixed places. It renders only; clicks
// on the markers are passed on through ClickLabel's signals.
#pragma once

#include "core/stargrid.h"

#include <QColor>
#include <QWidget>

#include <array>

class ClickLabel;
class QLabel;

class StarArea : public QWidget {
    Q_OBJECT
public:
    explicit StarArea(QWidget* parent);

    // Cell c (0..9).
    QLabel* cell(int c) const { return m_cells.at(c); }
    // Marker k (1..10); index 0 is not a marker.
    ClickLabel* marker(int k) const { return m_markers.at(k); }

    // The colour of the lines (TextColour).
    void setLineColour(const QColor& colour);

Q_SIGNALS:
    // The pointer moved over the star area itself (not over a cell or marker).
    void hovered();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    std::array<QLabel*, StarGrid::CellCount> m_cells{};
    std::array<ClickLabel*, StarGrid::DirectionCount + 1> m_markers{};
    QColor m_lineColour = Qt::black;
};
