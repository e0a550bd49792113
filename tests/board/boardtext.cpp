// Text pictures of a play board; see boardtext.h.
#include "boardtext.h"

std::string cellsText(const PlayBoard& board) {
    QString text;
    for (int c = 0; c < StarGrid::CellCount; ++c) {
        const QString letter = board.cellLetter(c);
        text += letter.isEmpty() ? QStringLiteral(".") : letter;
    }
    return text.toStdString();
}

std::string tilesText(const PlayBoard& board) {
    std::string text;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const Tile tile = board.tile(i);
        char c = 0;
        if (!tile.look.enabled)
            c = tile.caption.isEmpty() ? '_' : 'x';
        else if (tile.caption.isEmpty())
            c = '-';
        else if (tile.look.border == TileBorder::Flat)
            c = tile.look.text == TileText::Faded ? 'f' : 's';
        else
            c = tile.look.text == TileText::Faded ? 'p' : 'a';
        if (tile.look.struckOut)
            c = static_cast<char>(c - 'a' + 'A');
        text += c;
    }
    return text;
}

std::string markersText(const PlayBoard& board) {
    std::string text;
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        const int t = board.markerTag(k);
        text += t == 0 ? '.' : static_cast<char>('0' + t);
    }
    return text;
}

std::string linkMismatch(const PlayBoard& board) {
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        const int t = board.markerTag(k);
        if (t != 0 && board.tile(t).placedOn != k)
            return "marker " + std::to_string(k) + " holds tile " + std::to_string(t) +
                   " but the tile says " + std::to_string(board.tile(t).placedOn);
    }
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const int k = board.tile(i).placedOn;
        if (k != 0 && board.markerTag(k) != i)
            return "tile " + std::to_string(i) + " is on reading " + std::to_string(k) +
                   " but the marker holds " + std::to_string(board.markerTag(k));
    }
    return {};
}

StarGrid makeStar(const QString& cells, const QStringList& words, const char* decoys) {
    StarGrid grid;
    for (int p = 1; p <= StarGrid::CellCount && p <= cells.size(); ++p)
        grid.SolutionLetters[p] = cells.mid(p - 1, 1);
    for (int i = 1; i <= StarGrid::CandidateCount && i <= words.size(); ++i) {
        grid.CandidateWords[i] = words[i - 1];
        grid.DecoyFlags[i] = decoys[i - 1] == 'x' ? 1 : 0;
    }
    return grid;
}

StarGrid referenceStar() {
    return makeStar(QStringLiteral("gponyaardw"),
                    {"gnaw", "goad", "gold", "grew", "play", "pony", "wrap", "yard"}, "..xxx...");
}
