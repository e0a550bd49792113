// The board widget; see boardview.h.
#include "board/boardview.h"

#include "board/boardgeometry.h"
#include "board/boardhit.h"
#include "board/playboard.h"

#include <QMouseEvent>
#include <QPainter>

using namespace BoardGeometry;

BoardView::BoardView(const PlayBoard& board, QWidget* parent)
    : QWidget(parent)
    , m_board(board) {
    setObjectName(QStringLiteral("board"));
    setGeometry(toPixels(BoardRect));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&board, &PlayBoard::changed, this, qOverload<>(&QWidget::update));
}

void BoardView::setBoardStyle(const BoardStyle& style) {
    m_style = style;
    update();
}

const BoardState& BoardView::state() const {
    return m_board.state();
}

QPoint BoardView::toWidget(const QPoint& twips) {
    return {twips.x() / TwipsPerPixel, twips.y() / TwipsPerPixel};
}

QPoint BoardView::toTwips(const QPoint& pixel) {
    return pixelToTwips(pixel);
}

void BoardView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.scale(1.0 / TwipsPerPixel, 1.0 / TwipsPerPixel);
    paintBoard(painter, m_board.state(), m_style);
}

void BoardView::mousePressEvent(QMouseEvent* event) {
    // The first button down picks the target; further buttons add releases to it.
    if (event->buttons() == event->button())
        m_pressed = hitTest(toTwips(event->position().toPoint()));
    event->accept();
}

void BoardView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const std::optional<Move> move = m_pressed;
    if (event->buttons() == Qt::NoButton)
        m_pressed.reset();
    if (move)
        Q_EMIT moveMade(*move);
}

void BoardView::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    const BoardHit hit = partAt(toTwips(event->position().toPoint()));
    switch (hit.part) {
    case BoardPart::Marker:
        // A crosshair says "a click places the selected word here".
        if (m_board.SelectedWord() != BoardState::NoSelection)
            window()->setCursor(Qt::CrossCursor);
        break;
    case BoardPart::Cell:
        break;
    case BoardPart::Tile:
    case BoardPart::None:
        window()->setCursor(Qt::ArrowCursor);
        break;
    }
}
