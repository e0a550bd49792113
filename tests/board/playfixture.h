// The play tests' set-up: the reference puzzle on a board, messages recorded; the board as text:
// cells 0..9 ("." empty), tiles 1..8 (a available, s selected, p placed, upper case a revealed
// decoy, "-" no word, "_"/"x" disabled without/with one), then each reading's tile ("." none).
#pragma once

#include "board/messagegate.h"
#include "board/playboard.h"
#include "core/eventpump.h"
#include "core/stargrid.h"
#include "support/recordingnotifier.h"

#include <gtest/gtest.h>

#include <string>

inline std::string cellsText(const PlayBoard& board) {
    QString text;
    for (int c = 0; c < StarGrid::CellCount; ++c)
        text += board.cellLetter(c).isEmpty() ? QStringLiteral(".") : board.cellLetter(c);
    return text.toStdString();
}

inline std::string tilesText(const PlayBoard& board) {
    std::string text;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const TileState t = board.tile(i);
        const char c = !t.enabled                         ? (t.word.isEmpty() ? '_' : 'x')
                       : t.word.isEmpty()                 ? '-'
                       : t.status == TileStatus::Selected ? 's'
                       : t.status == TileStatus::Placed   ? 'p'
                                                          : 'a';
        text += t.decoyRevealed ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return text;
}

inline std::string boardText(const PlayBoard& board) {
    std::string markers, fromTiles(StarGrid::DirectionCount, '.'); // "!": two tiles on one
    for (int k = 1; k <= StarGrid::DirectionCount; ++k)
        markers += board.markerTag(k) == 0 ? '.' : static_cast<char>('0' + board.markerTag(k));
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const int k = board.tile(i).reading;
        if (k >= 1 && k <= StarGrid::DirectionCount)
            fromTiles[k - 1] = fromTiles[k - 1] == '.' ? static_cast<char>('0' + i) : '!';
    }
    return cellsText(board) + " " + tilesText(board) + " " + markers +
           (fromTiles == markers ? "" : " link: the tiles say " + fromTiles);
}

// A puzzle from cells 0..9, the tiles' words, and "x" for each decoy tile.
inline StarGrid makeStar(const QString& cells, const QStringList& words, const char* decoys) {
    StarGrid grid;
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        grid.SolutionLetters[p] = cells.mid(p - 1, 1);
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        grid.CandidateWords[i] = words[i - 1];
        grid.DecoyFlags[i] = decoys[i - 1] == 'x' ? 1 : 0;
    }
    return grid;
}

// Readings: goad 1 (cells 0258), gnaw 2 (0369), pony 3 (1234), yard 6 (4678), wrap 10 (9751).
inline StarGrid referenceStar() {
    return makeStar(QStringLiteral("gponyaardw"),
                    {"gnaw", "goad", "gold", "grew", "play", "pony", "wrap", "yard"}, "..xxx...");
}
namespace ref {
enum Tile { Gnaw = 1, Goad, Gold, Grew, Play, Pony, Wrap, Yard };
enum Reading { GoadOn = 1, GnawOn = 2, PonyOn = 3, YardOn = 6, WrapOn = 10 };
} // namespace ref

class PlayTest : public ::testing::Test {
protected:
    PlayTest() {
        QObject::connect(&m_board, &PlayBoard::changed, [this] { ++m_changes; });
        QObject::connect(&m_board, &PlayBoard::completionCheckChanged,
                         [this](bool on) { m_checkSignals.push_back(on); });
        newPuzzle();
    }
    void newPuzzle() { m_board.apply(Move::newPuzzle()); }
    void place(int i, int k) {
        m_board.apply(Move::tile(i));
        m_board.apply(Move::marker(k));
    }
    bool clearEntries(int answer) {
        m_notifier.queueAnswer(answer);
        return m_board.apply(Move::clearEntries());
    }

    StarGrid m_grid = referenceStar();
    RecordingNotifier m_notifier;
    MessageGate m_gate{m_notifier};
    EventPump m_pump; // its action stands in for "let pending window events run"
    PlayBoard m_board{m_grid, m_gate, &m_pump};
    int m_changes = 0;
    std::vector<bool> m_checkSignals;
};
