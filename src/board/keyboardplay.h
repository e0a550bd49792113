// Keyboard play on the main window: watches the key presses that reach the board view and the
// four picture buttons and moves the keyboard focus by the rules of boardfocus.h (Tab and
// Shift+Tab through the tab order, the arrow keys to the nearest item that way, a letter to
// the next tile whose word starts with it). Enter or Space on a focused tile or marker makes
// the same move as a click on it (moveMade); on a button the button itself answers
// (BoxControl: Space holds it down until released, Enter presses and releases). It holds no
// rules of its own.
#pragma once

#include "board/boardfocus.h"
#include "board/playmove.h"

#include <QObject>

#include <array>

class BoardView;
class BoxControl;

class KeyboardPlay : public QObject {
    Q_OBJECT
public:
    // `buttons` in BoardButton order. The view and the buttons must outlive this object.
    KeyboardPlay(BoardView* view, const std::array<BoxControl*, 4>& buttons, QObject* parent);

    FocusItem focus() const { return m_focus; }
    // Gives `item` the keyboard focus (and its widget the window's focus) and shows the ring.
    void focusOn(const FocusItem& item);

Q_SIGNALS:
    void moveMade(const Move& move);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    BoardView* m_view;
    std::array<BoxControl*, 4> m_buttons;
    FocusItem m_focus;
};
