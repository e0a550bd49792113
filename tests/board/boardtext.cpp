// Text pictures of a play board; see boardtext.h.
#include "boardtext.h"

std::string cellsText(const PlayBoard& board) {
    QString text;
    for (int c = 0; c < StarGrid::CellCount; ++c)
        text += board.cellLetter(c).isEmpty() ? QStringLiteral(".") : board.cellLetter(c);
    return text.toStdString();
}

std::string tilesText(const PlayBoard& board) {
    std::string text;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const TileState tile = board.tile(i);
        char c = tile.status == TileStatus::Selected ? 's'
                 : tile.status == TileStatus::Placed ? 'p'
                                                     : 'a';
        if (!tile.enabled)
            c = tile.word.isEmpty() ? '_' : 'x';
        else if (tile.word.isEmpty())
            c = '-';
        text += tile.decoyRevealed ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return text;
}

std::string markersText(const PlayBoard& board) {
    std::string text;
    for (int k = 1; k <= StarGrid::DirectionCount; ++k)
        text += board.markerTag(k) == 0 ? '.' : static_cast<char>('0' + board.markerTag(k));
    return text;
}

std::string boardText(const PlayBoard& board) {
    const std::string markers = markersText(board);
    // The markers as the tiles see them; "!" where two tiles claim one reading.
    std::string fromTiles(StarGrid::DirectionCount, '.');
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const int k = board.tile(i).reading;
        if (k >= 1 && k <= StarGrid::DirectionCount)
            fromTiles[k - 1] = fromTiles[k - 1] == '.' ? static_cast<char>('0' + i) : '!';
    }
    return cellsText(board) + " " + tilesText(board) + " " + markers +
           (fromTiles == markers ? "" : " link: the tiles say " + fromTiles);
}

StarGrid makeStar(const QString& cells, const QStringList& words, const char* decoys) {
    StarGrid grid;
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        grid.SolutionLetters[p] = cells.mid(p - 1, 1);
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        grid.CandidateWords[i] = words[i - 1];
        grid.DecoyFlags[i] = decoys[i - 1] == 'x' ? 1 : 0;
    }
    return grid;
}

StarGrid referenceStar() {
    return makeStar(QStringLiteral("gponyaardw"),
                    {"gnaw", "goad", "gold", "grew", "play", "pony", "wrap", "yard"}, "..xxx...");
}
