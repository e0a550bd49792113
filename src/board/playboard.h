// The rules of play on the star: selecting a word tile, placing a word on a reading by its
// word-number marker and taking it off again, showing the solution while its button is held,
// clearing the player's entries, the board's part of the create and dictionary commands, and
// the periodic completion check. Every change of the board is a Move given to apply(); this
// class is the only writer of the BoardState, including the selected word. QtCore only.
//
// The completion check: the window runs a 500 ms timer exactly while
// completionCheckRunning() is true (announced by completionCheckChanged) and calls
// completionTick() on each timeout.
#pragma once

#include "board/boardstate.h"
#include "board/playmove.h"

#include <QObject>
#include <QString>

class EventPump;
class MessageGate;
class StarGrid;

class PlayBoard : public QObject {
    Q_OBJECT

public:
    // grid: the puzzle record (SolutionLetters, CandidateWords, DecoyFlags, the readings).
    // messages: where the clear question and "All Done!" go. pump: what "let pending window
    // events run" means after a message (null: nothing). All three must outlive the board.
    // Starts with no puzzle: empty cells and tiles, no links, no selection, the check off.
    PlayBoard(const StarGrid& grid, MessageGate& messages, EventPump* pump = nullptr,
              QObject* parent = nullptr);

    // Applies one move. Indexes outside 1..8 (tiles) or 1..10 (markers) are ignored; tile and
    // marker clicks are ignored while the solution shows, marker clicks also during a search.
    //   SearchStarted: the check goes off, the solution display ends, every tile loses word
    //     and link and is disabled, every cell and reading is emptied; the selection stays.
    //   SearchEnded: the readings take clicks again.
    //   NewPuzzle: the tiles show CandidateWords (available, enabled), cells and links are
    //     empty, no word is selected, the check is off.
    //   DictionaryLoaded: cells, links and tile words emptied (tiles not selected), the
    //     solution display ends, the check goes off; the puzzle record and the selection stay.
    // Returns true when the state changed; changed() is emitted then.
    bool apply(const Move& move);

    // One timeout of the completion timer. Does nothing while the check is off, and while a
    // message is open or a handler of this board is still running (the tick is dropped and
    // the check stays on, so the next tick tries again). When all ten cells hold a letter
    // and a puzzle exists: switches the check off, shows "All Done!" and returns true.
    bool completionTick();
    bool completionCheckRunning() const { return m_checkRunning; }

    const BoardState& state() const { return m_state; }
    // The letter shown in cell 0..9 ("" for an empty cell or an index outside 0..9).
    QString cellLetter(int cell) const;
    // Tile 1..8 (a default, empty tile for other indexes).
    TileState tile(int i) const;
    // The tile 1..8 placed on reading k (1..10), or 0.
    int markerTag(int k) const;
    // The selected tile 1..8, or -1.
    int SelectedWord() const { return m_state.SelectedWord; }
    // A puzzle is on the tiles: tile 1 shows a word.
    bool puzzleExists() const;
    bool solutionShown() const { return m_state.solutionShown; }

Q_SIGNALS:
    // The state changed: repaint.
    void changed();
    // The completion timer must run (true) or stop (false).
    void completionCheckChanged(bool running);

private:
    void play(const Move& move);
    void tileClick(int i);
    void markerClick(int k);
    void removeWord(int k);
    void redrawPlacedWords();
    void writeWord(int k);
    bool wordAgrees(int k, const QString& word) const;
    void showSelection();
    void resetTileLooks();
    void solutionPress();
    void solutionRelease();
    void clearEntries();
    void searchStarted();
    void newPuzzle();
    void dictionaryLoaded();
    void endSolutionDisplay();
    void emptyCellsAndLinks();
    void setCheckRunning(bool running);
    void letEventsRun();
    bool boardFull() const;

    const StarGrid& m_grid;
    MessageGate& m_messages;
    EventPump* m_pump;
    BoardState m_state;
    bool m_checkRunning = false;
    int m_handlerDepth = 0; // handlers that show messages or let events run, still running
};
