// The star area; see stararea.h.
#include "board/stararea.h"

#include "board/boardgeometry.h"
#include "board/clicklabel.h"
#include "board/starpainter.h"

#include <QPainter>

using namespace BoardGeometry;

StarArea::StarArea(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("Picture2"));
    setGeometry(toPixels(StarAreaRect));
    setAutoFillBackground(true);
    setMouseTracking(true);

    // Markers first, cells after: the cells lie above everything else in the star.
    QFont markerFont(QStringLiteral("Arial"));
    markerFont.setPointSize(12);
    markerFont.setBold(true);
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        auto* marker = new ClickLabel(k, this);
        marker->setObjectName(QStringLiteral("wn%1").arg(k));
        marker->setGeometry(toPixels(Markers[k]));
        marker->setText(QStringLiteral("O"));
        marker->setFont(markerFont);
        marker->setAlignment(Qt::AlignCenter);
        marker->setAttribute(Qt::WA_TranslucentBackground);
        m_markers[k] = marker;
    }
    for (int c = 0; c < StarGrid::CellCount; ++c) {
        auto* cell = new QLabel(this);
        cell->setObjectName(QStringLiteral("Lts%1").arg(c));
        cell->setGeometry(toPixels(Cells[c]));
        cell->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        cell->setAlignment(Qt::AlignCenter);
        cell->setAutoFillBackground(true);
        cell->raise();
        m_cells[c] = cell;
    }
}

void StarArea::setLineColour(const QColor& colour) {
    m_lineColour = colour;
    update();
}

void StarArea::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / TwipsPerPixel, 1.0 / TwipsPerPixel);
    paintStarLines(painter, m_lineColour);
}

void StarArea::mouseMoveEvent(QMouseEvent* event) {
    QWidget::mouseMoveEvent(event);
    Q_EMIT hovered();
}
