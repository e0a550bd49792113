// What a screen reader says about the board; see boardspeech.h.
#include "board/boardspeech.h"

namespace BoardSpeech {

namespace {

bool validTile(int i) {
    return i >= 1 && i <= StarGrid::CandidateCount;
}

const TileState& tileOf(const BoardState& board, int i) {
    return board.tiles[static_cast<size_t>(i)];
}

} // namespace

QString cellName(const BoardState& board, int cell) {
    const QString& letter = board.Entries[static_cast<size_t>(cell)];
    return QStringLiteral("cell %1, %2")
        .arg(cell + 1)
        .arg(letter.isEmpty() ? QStringLiteral("empty") : letter);
}

QString tileName(const BoardState& board, int tile) {
    const TileState& t = tileOf(board, tile);
    if (t.word.isEmpty())
        return QStringLiteral("word tile %1, empty").arg(tile);
    QString status = QStringLiteral("available");
    if (t.decoyRevealed)
        status = QStringLiteral("struck out");
    else if (t.status == TileStatus::Placed)
        status = QStringLiteral("placed");
    else if (board.SelectedWord == tile)
        status = QStringLiteral("selected");
    return QStringLiteral("word %1, %2").arg(t.word, status);
}

QString markerName(const BoardState& board, int marker) {
    const int tile = board.placedTile[static_cast<size_t>(marker)];
    if (tile == BoardState::NoTile)
        return QStringLiteral("start %1, empty").arg(marker);
    return QStringLiteral("start %1, holds %2").arg(marker).arg(tileOf(board, tile).word);
}

QString announcement(const Move& move, const BoardState& before, const BoardState& after) {
    switch (move.kind) {
    case MoveKind::TileClick:
        if (!(before == after) && validTile(after.SelectedWord))
            return QStringLiteral("%1 selected").arg(tileOf(after, after.SelectedWord).word);
        return {};
    case MoveKind::MarkerClick:
        break;
    default:
        return {};
    }
    const int k = move.index;
    if (k < 1 || k > StarGrid::DirectionCount)
        return {};
    const int placed = after.placedTile[static_cast<size_t>(k)];
    const int removed = before.placedTile[static_cast<size_t>(k)];
    if (placed != BoardState::NoTile && placed != removed)
        return QStringLiteral("%1 placed at start %2").arg(tileOf(after, placed).word).arg(k);
    if (removed != BoardState::NoTile && placed == BoardState::NoTile) {
        return QStringLiteral("%1 taken off start %2, selected")
            .arg(tileOf(after, removed).word)
            .arg(k);
    }
    const int selected = before.SelectedWord;
    if (before == after && validTile(selected) && !tileOf(before, selected).word.isEmpty() &&
        !before.solutionShown && !before.searching) {
        return QStringLiteral("%1 does not fit at start %2")
            .arg(tileOf(before, selected).word)
            .arg(k);
    }
    return {};
}

} // namespace BoardSpeech
