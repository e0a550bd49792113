// What a screen reader says about the board; see boardspeech.h.
#include "board/boardspeech.h"

#include <QStringList>

#include <array>

namespace BoardSpeech {

namespace {

bool validTile(int i) {
    return i >= 1 && i <= StarGrid::CandidateCount;
}

const TileState& tileOf(const BoardState& board, int i) {
    return board.tiles[static_cast<size_t>(i)];
}

// Where each cell 0..9 stands on the star.
const char* const Places[StarGrid::CellCount] = {
    "top tip",
    "left tip",
    "upper left crossing",
    "upper right crossing",
    "right tip",
    "lower left crossing",
    "lower right crossing",
    "bottom crossing",
    "bottom left tip",
    "bottom right tip",
};

// Each line 0..4 by the two tips it joins.
const char* const LineNames[StarGrid::LineCount] = {
    "top to bottom left",   "top to bottom right",  "left to right",
    "left to bottom right", "right to bottom left",
};

QString place(int cell) {
    return QString::fromLatin1(Places[cell]);
}

QString letterIn(const BoardState& board, int cell, const QString& none) {
    const QString& letter = board.Entries[static_cast<size_t>(cell)];
    return letter.isEmpty() ? none : letter;
}

} // namespace

QString cellName(const BoardState& board, int cell) {
    const std::array<int, 2> lines = StarGrid::linesThrough(cell);
    return QStringLiteral("cell %1, %2, %3 of the lines %4 and %5")
        .arg(cell + 1)
        .arg(letterIn(board, cell, QStringLiteral("empty")), place(cell),
             QString::fromLatin1(LineNames[lines[0]]), QString::fromLatin1(LineNames[lines[1]]));
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
    const QString holds = tile == BoardState::NoTile
                              ? QStringLiteral("empty")
                              : QStringLiteral("holds ") + tileOf(board, tile).word;
    const std::array<int, 4> cells = StarGrid::cellsOf(marker);
    QStringList numbers;
    QStringList letters;
    for (const int c : cells) {
        numbers << QString::number(c + 1);
        letters << letterIn(board, c, QStringLiteral("blank"));
    }
    return QStringLiteral("start %1, %2, %3 to %4, fills cells %5: %6")
        .arg(marker)
        .arg(holds, place(cells.front()), place(cells.back()), numbers.join(QStringLiteral(", ")),
             letters.join(QStringLiteral(", ")));
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
