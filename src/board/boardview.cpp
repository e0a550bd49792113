// The board widget; see boardview.h.
#include "board/boardview.h"

#include "board/boardaccessible.h"
#include "board/boardgeometry.h"
#include "board/boardhit.h"
#include "board/playboard.h"

#include "ui/contrast.h"

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
    // Tab reaches the board; a click does not take the focus, so the mouse changes nothing.
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(QStringLiteral("Pentalink board"));
    connect(&board, &PlayBoard::changed, this, [this] {
        update();
        BoardAccessibility::notifyChanged(this);
    });
}

void BoardView::setFocusItem(const FocusItem& item) {
    if (m_focus == item)
        return;
    m_focus = item;
    update();
    if (hasFocus())
        BoardAccessibility::notifyFocus(this, m_focus);
}

void BoardView::setFocusRingShown(bool shown) {
    if (m_ringShown == shown)
        return;
    m_ringShown = shown;
    update();
}

bool BoardView::focusRingVisible() const {
    return m_ringShown && hasFocus() && m_focus.kind != FocusKind::Button;
}

void BoardView::announce(const QString& text) {
    if (text.isEmpty())
        return;
    m_announcement = text;
    BoardAccessibility::announce(this);
}

void BoardView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
    BoardAccessibility::notifyFocus(this, m_focus);
}

void BoardView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
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
    if (focusRingVisible()) {
        // A band just outside the item, on the ground around it.
        const int band = FocusRingWidth * TwipsPerPixel;
        const QRect outer = BoardFocus::rectOf(m_focus).adjusted(-band, -band, band, band);
        const QColor ring = contrastingColour(m_style.ground);
        painter.fillRect(QRect(outer.left(), outer.top(), outer.width(), band), ring);
        painter.fillRect(QRect(outer.left(), outer.bottom() + 1 - band, outer.width(), band), ring);
        painter.fillRect(QRect(outer.left(), outer.top(), band, outer.height()), ring);
        painter.fillRect(QRect(outer.right() + 1 - band, outer.top(), band, outer.height()), ring);
    }
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
