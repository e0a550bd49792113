// Keyboard play; see keyboardplay.h.
#include "board/keyboardplay.h"

#include "board/boardview.h"
#include "ui/boxcontrol.h"

#include <QKeyEvent>

namespace {

std::optional<FocusDirection> directionOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return FocusDirection::Left;
    case Qt::Key_Right:
        return FocusDirection::Right;
    case Qt::Key_Up:
        return FocusDirection::Up;
    case Qt::Key_Down:
        return FocusDirection::Down;
    default:
        return std::nullopt;
    }
}

} // namespace

KeyboardPlay::KeyboardPlay(BoardView* view, const std::array<BoxControl*, 4>& buttons,
                           QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_buttons(buttons) {
    m_view->installEventFilter(this);
    for (BoxControl* button : m_buttons) {
        // Tab reaches the buttons; a click does not take the focus.
        button->setFocusPolicy(Qt::TabFocus);
        button->installEventFilter(this);
    }
}

void KeyboardPlay::focusOn(const FocusItem& item) {
    m_focus = item;
    m_view->setFocusItem(item);
    m_view->setFocusRingShown(true);
    if (item.kind == FocusKind::Button)
        m_buttons[static_cast<size_t>(item.index)]->setFocus(Qt::TabFocusReason);
    else
        m_view->setFocus(Qt::TabFocusReason);
}

bool KeyboardPlay::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers mods = key->modifiers() & ~Qt::KeypadModifier;
    if (mods & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const bool onBoard = watched == m_view;
    if (onBoard)
        m_focus = m_view->focusItem();
    else {
        for (size_t b = 0; b < m_buttons.size(); ++b) {
            if (watched == m_buttons[b])
                m_focus = FocusItem::button(static_cast<BoardButton>(b));
        }
    }

    if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
        const bool backwards = key->key() == Qt::Key_Backtab || (mods & Qt::ShiftModifier);
        focusOn(BoardFocus::tabFrom(m_focus, backwards, m_view->state()));
        return true;
    }
    if (const auto direction = directionOf(key->key())) {
        if (const auto next = BoardFocus::nearest(m_focus, *direction, m_view->state()))
            focusOn(*next);
        return true;
    }
    const QString text = key->text();
    if (text.size() == 1 && text.front().isLetter()) {
        if (const auto tile = BoardFocus::letterJump(m_focus, text.front(), m_view->state()))
            focusOn(*tile);
        return true;
    }
    if (!onBoard)
        return false; // Space and Enter belong to the button
    m_view->setFocusRingShown(true);
    if (key->key() == Qt::Key_Space || key->key() == Qt::Key_Return ||
        key->key() == Qt::Key_Enter) {
        if (!key->isAutoRepeat()) {
            if (const auto move = BoardFocus::clickOf(m_focus))
                Q_EMIT moveMade(*move);
        }
        return true;
    }
    return false;
}
