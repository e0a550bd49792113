// The keyboard focus rules of the main window; see boardfocus.h.
#include "board/boardfocus.h"

#include "board/boardgeometry.h"
#include <cstdlib>

#include <limits>

using namespace BoardGeometry;

namespace BoardFocus {

std::array<FocusItem, ItemCount> tabOrder() {
    std::array<FocusItem, ItemCount> order;
    size_t n = 0;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        order[n++] = FocusItem::tile(i);
    for (int k = 1; k <= StarGrid::DirectionCount; ++k)
        order[n++] = FocusItem::marker(k);
    for (const BoardButton b : {BoardButton::Dictionary, BoardButton::ShowSolution,
                                BoardButton::Reset, BoardButton::Create})
        order[n++] = FocusItem::button(b);
    return order;
}

bool stopsOn(const FocusItem& item, const BoardState& board) {
    return item.kind != FocusKind::Tile ||
           board.tiles[static_cast<size_t>(item.index)].status != TileStatus::Placed;
}

FocusItem tabFrom(const FocusItem& from, bool backwards, const BoardState& board) {
    const auto order = tabOrder();
    size_t at = 0;
    while (at < order.size() && !(order[at] == from))
        ++at;
    if (at == order.size())
        at = order.size() - 1; // as if from the last item
    const size_t step = backwards ? order.size() - 1 : 1;
    // At most five tiles are placed, so some item always stops the keyboard.
    do
        at = (at + step) % order.size();
    while (!stopsOn(order[at], board));
    return order[at];
}

QRect rectOf(const FocusItem& item) {
    switch (item.kind) {
    case FocusKind::Tile:
        return tileRect(item.index);
    case FocusKind::Marker:
        return markerRect(item.index);
    case FocusKind::Button:
        break;
    }
    static constexpr std::array<QRect, 4> buttons{DictButton, ShowSolButton, ResetButton,
                                                  CreateButton};
    return snapped(buttons[static_cast<size_t>(item.index)]);
}

std::optional<FocusItem> nearest(const FocusItem& from, FocusDirection direction,
                                 const BoardState& board) {
    const QPoint origin = rectOf(from).center();
    std::optional<FocusItem> best;
    long bestScore = std::numeric_limits<long>::max();
    for (const FocusItem& item : tabOrder()) {
        const QPoint d = rectOf(item).center() - origin;
        long along = 0;
        long across = 0;
        switch (direction) {
        case FocusDirection::Left:
            along = -d.x(), across = d.y();
            break;
        case FocusDirection::Right:
            along = d.x(), across = d.y();
            break;
        case FocusDirection::Up:
            along = -d.y(), across = d.x();
            break;
        case FocusDirection::Down:
            along = d.y(), across = d.x();
            break;
        }
        if (along <= 0 || !stopsOn(item, board))
            continue;
        const long score = along + 3 * std::abs(across);
        if (score < bestScore) {
            bestScore = score;
            best = item;
        }
    }
    return best;
}

std::optional<FocusItem> letterJump(const FocusItem& from, QChar letter, const BoardState& board) {
    const int start = from.kind == FocusKind::Tile ? from.index : 0;
    const QString wanted = QString(letter).toCaseFolded();
    for (int n = 1; n <= StarGrid::CandidateCount; ++n) {
        const int i = (start + n - 1) % StarGrid::CandidateCount + 1;
        const QString& word = board.tiles[static_cast<size_t>(i)].word;
        if (!word.isEmpty() && word.left(1).toCaseFolded() == wanted &&
            stopsOn(FocusItem::tile(i), board))
            return FocusItem::tile(i);
    }
    return std::nullopt;
}

std::optional<Move> clickOf(const FocusItem& item) {
    switch (item.kind) {
    case FocusKind::Tile:
        return Move::tile(item.index);
    case FocusKind::Marker:
        return Move::marker(item.index);
    case FocusKind::Button:
        break;
    }
    return std::nullopt;
}

} // namespace BoardFocus
