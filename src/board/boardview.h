// The board on the screen: one widget over the star area and the word tiles (BoardRect) that
// paints the play board's state with paintBoard at 15 twips to the pixel and turns the mouse
// into moves through hitTest. It holds no rules: a move goes out through moveMade and the
// picture follows PlayBoard::changed.
//
// A click is the release of a mouse button pressed on a tile or a marker, wherever the
// pointer is released (any button). The main window's pointer is a crosshair over a marker
// while a word is selected, and the arrow over the star area's ground and the tiles.
//
// Keyboard play (keyboardplay.h) tells the view which tile or marker has the keyboard focus;
// the view rings it (FocusRingWidth pixels, just outside the item, black or white against the
// ground) while the view has the keyboard focus and the ring has been asked for, and keeps
// assistive technology told (boardaccessible.h).
#pragma once

#include "board/boardfocus.h"
#include "board/boardpainter.h"
#include "board/playmove.h"

#include <QWidget>

#include <optional>

class PlayBoard;

class BoardView : public QWidget {
    Q_OBJECT
public:
    // `board` must outlive the view.
    BoardView(const PlayBoard& board, QWidget* parent);

    void setBoardStyle(const BoardStyle& style);
    const BoardStyle& boardStyle() const { return m_style; }
    // The state the view shows.
    const BoardState& state() const;

    // Board twips to this widget's pixels and back (the pixel's centre).
    static QPoint toWidget(const QPoint& twips);
    static QPoint toTwips(const QPoint& pixel);

    // The item that has the keyboard focus while the view has it (tile 1 at first). A button
    // item rings nothing here: the button shows its own ring.
    FocusItem focusItem() const { return m_focus; }
    void setFocusItem(const FocusItem& item);
    // The ring shows from the first keyboard use on, so a mouse player never sees it.
    void setFocusRingShown(bool shown);
    // True while the ring is painted.
    bool focusRingVisible() const;
    static constexpr int FocusRingWidth = 2;

    // Speaks `text` to assistive technology (an empty text says nothing).
    void announce(const QString& text);
    QString lastAnnouncement() const { return m_announcement; }

Q_SIGNALS:
    void moveMade(const Move& move);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    const PlayBoard& m_board;
    BoardStyle m_style;
    std::optional<Move> m_pressed; // the click the held buttons will make
    FocusItem m_focus;
    bool m_ringShown = false;
    QString m_announcement;
};
