// Points on the board to parts and moves; see boardhit.h.
#include "board/boardhit.h"

#include "board/boardgeometry.h"

using namespace BoardGeometry;

namespace {

QRect rectOf(BoardPart part, int index) {
    switch (part) {
    case BoardPart::Cell:
        return cellRect(index);
    case BoardPart::Marker:
        return markerRect(index);
    case BoardPart::Tile:
        return tileRect(index);
    case BoardPart::None:
        break;
    }
    return {};
}

} // namespace

BoardHit partAt(const QPoint& twips) {
    // In stacking order, topmost first.
    const struct {
        BoardPart part;
        int first;
        int last;
    } layers[] = {
        {BoardPart::Cell, 0, StarGrid::CellCount - 1},
        {BoardPart::Marker, 1, StarGrid::DirectionCount},
        {BoardPart::Tile, 1, StarGrid::CandidateCount},
    };
    for (const auto& layer : layers) {
        for (int i = layer.first; i <= layer.last; ++i) {
            if (rectOf(layer.part, i).contains(twips))
                return {layer.part, i};
        }
    }
    return {};
}

std::optional<Move> hitTest(const QPoint& twips) {
    const BoardHit hit = partAt(twips);
    switch (hit.part) {
    case BoardPart::Marker:
        return Move::marker(hit.index);
    case BoardPart::Tile:
        return Move::tile(hit.index);
    case BoardPart::Cell:
    case BoardPart::None:
        break;
    }
    return std::nullopt;
}

QPoint centreOf(BoardPart part, int index) {
    return rectOf(part, index).center();
}
