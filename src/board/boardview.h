// The board on the screen: one widget over the star area and the word tiles (BoardRect) that
// paints the play board's state with paintBoard at 15 twips to the pixel and turns the mouse
// into moves through hitTest. It holds no rules: a move goes out through moveMade and the
// picture follows PlayBoard::changed.
//
// A click is the release of a mouse button pressed on a tile or a marker, wherever the
// pointer is released (any button). The main window's pointer is a crosshair over a marker
// while a word is selected, and the arrow over the star area's ground and the tiles.
#pragma once

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

Q_SIGNALS:
    void moveMade(const Move& move);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    const PlayBoard& m_board;
    BoardStyle m_style;
    std::optional<Move> m_pressed; // the click the held buttons will make
};
