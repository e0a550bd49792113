// What assistive technology sees of the painted board and of the picture buttons. The board
// view is one widget, so its accessible interface gives it children of its own: the ten
// letter cells (children 0..9, role Cell), the eight word tiles (10..17) and the ten
// word-number markers (18..27), both role Button, named as BoardSpeech says and stating
// which one has the keyboard focus. installBoardAccessibility() registers it, and the kit's
// interfaces (kitaccessible.h), with QAccessible; call it before the first query (the main
// window does; later calls do nothing).
#pragma once

#include "board/boardfocus.h"

#include <functional>

class BoardView;
class QAccessibleEvent;

void installBoardAccessibility();

namespace BoardAccessibility {

constexpr int FirstTileChild = 10;
constexpr int FirstMarkerChild = 18;
constexpr int ChildCount = 28;

// The child index of a tile or marker (a button is no child of the board: -1).
int childOf(const FocusItem& item);

// Hands `event` to assistive technology. Every event of the main window goes through here.
void send(QAccessibleEvent& event);
// Sees every event sent, before Qt does (null: none). Without an accessibility bridge (the
// headless tests) Qt drops events before its own handlers see them; tests listen here.
using EventObserver = std::function<void(QAccessibleEvent&)>;
void setEventObserver(EventObserver observer);

// Tells assistive technology that the keyboard focus is on `view`'s item `item`, or on the
// board as a whole when `item` is a button.
void notifyFocus(BoardView* view, const FocusItem& item);
// Tells assistive technology that the names of the board's parts may have changed.
void notifyChanged(BoardView* view);
// Speaks the view's lastAnnouncement(): it is the board's accessible description, and an
// Alert event makes a screen reader say it.
void announce(BoardView* view);

} // namespace BoardAccessibility
