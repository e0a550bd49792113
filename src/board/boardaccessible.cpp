// The board's accessible interface; see boardaccessible.h.
#include "board/boardaccessible.h"

#include "board/boardgeometry.h"
#include "board/boardhit.h"
#include "board/boardspeech.h"
#include "board/boardview.h"
#include "ui/kitaccessible.h"

#include <QAccessibleWidget>

#include <array>

namespace {

// One cell, tile or marker of the board; has no QObject of its own.
class BoardItemAccessible : public QAccessibleInterface {
public:
    BoardItemAccessible(BoardView* view, BoardPart part, int index)
        : m_view(view)
        , m_part(part)
        , m_index(index) {}

    bool isValid() const override { return !m_view.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent() ? parent()->window() : nullptr; }
    QAccessibleInterface* parent() const override {
        return m_view ? QAccessible::queryAccessibleInterface(m_view.data()) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* focusChild() const override { return nullptr; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text t) const override {
        if (t != QAccessible::Name || !m_view)
            return {};
        const BoardState& board = m_view->state();
        switch (m_part) {
        case BoardPart::Cell:
            return BoardSpeech::cellName(board, m_index);
        case BoardPart::Tile:
            return BoardSpeech::tileName(board, m_index);
        case BoardPart::Marker:
            return BoardSpeech::markerName(board, m_index);
        case BoardPart::None:
            break;
        }
        return {};
    }

    QRect rect() const override {
        if (!m_view)
            return {};
        const QRect twips = m_part == BoardPart::Cell     ? BoardGeometry::cellRect(m_index)
                            : m_part == BoardPart::Marker ? BoardGeometry::markerRect(m_index)
                                                          : BoardGeometry::tileRect(m_index);
        return QRect(m_view->mapToGlobal(BoardView::toWidget(twips.topLeft())),
                     BoardGeometry::toPixels(twips).size());
    }

    QAccessible::Role role() const override {
        return m_part == BoardPart::Cell ? QAccessible::Cell : QAccessible::Button;
    }

    QAccessible::State state() const override {
        QAccessible::State s;
        if (!m_view)
            return s;
        const BoardState& board = m_view->state();
        if (m_part == BoardPart::Cell) {
            s.readOnly = true;
            return s;
        }
        s.focusable = true;
        const FocusItem item =
            m_part == BoardPart::Tile ? FocusItem::tile(m_index) : FocusItem::marker(m_index);
        s.focused = m_view->hasFocus() && m_view->focusItem() == item;
        if (m_part == BoardPart::Tile) {
            const TileState& tile = board.tiles[static_cast<size_t>(m_index)];
            s.selectable = true;
            s.selected = board.SelectedWord == m_index && tile.status != TileStatus::Placed;
            s.disabled = tile.word.isEmpty() || !tile.enabled || tile.status == TileStatus::Placed;
        }
        return s;
    }

private:
    QPointer<BoardView> m_view;
    BoardPart m_part;
    int m_index;
};

class BoardViewAccessible : public QAccessibleWidget {
public:
    explicit BoardViewAccessible(BoardView* view)
        : QAccessibleWidget(view, QAccessible::Pane, QStringLiteral("Pentalink board")) {}

    ~BoardViewAccessible() override {
        for (const QAccessible::Id id : m_ids) {
            if (id != 0)
                QAccessible::deleteAccessibleInterface(id);
        }
    }

    int childCount() const override { return BoardAccessibility::ChildCount; }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= BoardAccessibility::ChildCount)
            return nullptr;
        QAccessible::Id& id = m_ids[static_cast<size_t>(index)];
        if (id == 0) {
            auto* view = static_cast<BoardView*>(widget());
            BoardItemAccessible* item = nullptr;
            if (index < BoardAccessibility::FirstTileChild)
                item = new BoardItemAccessible(view, BoardPart::Cell, index);
            else if (index < BoardAccessibility::FirstMarkerChild)
                item = new BoardItemAccessible(view, BoardPart::Tile,
                                               index - BoardAccessibility::FirstTileChild + 1);
            else
                item = new BoardItemAccessible(view, BoardPart::Marker,
                                               index - BoardAccessibility::FirstMarkerChild + 1);
            // The registry owns it from here; the destructor gives it back.
            id = QAccessible::registerAccessibleInterface(item);
        }
        return QAccessible::accessibleInterface(id);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        for (int i = 0; i < BoardAccessibility::ChildCount; ++i) {
            const QAccessible::Id id = m_ids[static_cast<size_t>(i)];
            if (id != 0 && QAccessible::accessibleInterface(id) == child)
                return i;
        }
        return -1;
    }

    QAccessibleInterface* focusChild() const override {
        const auto* view = static_cast<const BoardView*>(widget());
        if (!view->hasFocus())
            return nullptr;
        const int index = BoardAccessibility::childOf(view->focusItem());
        return index < 0 ? nullptr : child(index);
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        const auto* view = static_cast<const BoardView*>(widget());
        const QPoint local = view->mapFromGlobal(QPoint(x, y));
        const BoardHit hit = partAt(BoardView::toTwips(local));
        switch (hit.part) {
        case BoardPart::Cell:
            return child(hit.index);
        case BoardPart::Tile:
            return child(BoardAccessibility::FirstTileChild + hit.index - 1);
        case BoardPart::Marker:
            return child(BoardAccessibility::FirstMarkerChild + hit.index - 1);
        case BoardPart::None:
            break;
        }
        return nullptr;
    }

    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Description)
            return static_cast<const BoardView*>(widget())->lastAnnouncement();
        return QAccessibleWidget::text(t);
    }

private:
    mutable std::array<QAccessible::Id, BoardAccessibility::ChildCount> m_ids{};
};

QAccessibleInterface* boardFactory(const QString& className, QObject* object) {
    if (className == QLatin1String("BoardView") && object && object->isWidgetType())
        return new BoardViewAccessible(static_cast<BoardView*>(object));
    return nullptr;
}

} // namespace

void installBoardAccessibility() {
    installKitAccessibility();
    [[maybe_unused]] static const bool installed =
        (QAccessible::installFactory(boardFactory), true); // once, on the first call
}

namespace BoardAccessibility {

namespace {
EventObserver& observer() {
    static EventObserver instance;
    return instance;
}
} // namespace

void send(QAccessibleEvent& event) {
    if (observer())
        observer()(event);
    QAccessible::updateAccessibility(&event);
}

void setEventObserver(EventObserver o) {
    observer() = std::move(o);
}

int childOf(const FocusItem& item) {
    switch (item.kind) {
    case FocusKind::Tile:
        return FirstTileChild + item.index - 1;
    case FocusKind::Marker:
        return FirstMarkerChild + item.index - 1;
    case FocusKind::Button:
        break;
    }
    return -1;
}

void notifyFocus(BoardView* view, const FocusItem& item) {
    QAccessibleEvent event(view, QAccessible::Focus);
    event.setChild(childOf(item));
    send(event);
}

void notifyChanged(BoardView* view) {
    const int focused = view->hasFocus() ? childOf(view->focusItem()) : -1;
    if (focused < 0)
        return;
    QAccessibleEvent event(view, QAccessible::NameChanged);
    event.setChild(focused);
    send(event);
}

void announce(BoardView* view) {
    QAccessibleEvent description(view, QAccessible::DescriptionChanged);
    send(description);
    QAccessibleEvent alert(view, QAccessible::Alert);
    send(alert);
}

} // namespace BoardAccessibility
