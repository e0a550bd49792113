// The rules of play on the star: selecting a word tile, placing a word on a reading by its
// word-number marker and taking it off again, showing the solution while its button is held,
// clearing the player's entries and the board, and the periodic completion check. The window
// turns clicks into Moves, renders state() and owns the timer; this class holds every rule.
//
// The selected word is StarGrid::SelectedWord: the board keeps no copy of its own, so the
// create command's "no word selected" (it writes -1 into the grid) and the board always agree.
// Everything else the board shows (cell letters, tile captions and looks, the links between
// tiles and markers, the letters saved while the solution shows) lives in PlayState here.
//
// The completion check: the window runs a 500 ms timer exactly while
// completionCheckRunning() is true (announced by completionCheckChanged) and calls
// completionTick() on each timeout.
#pragma once

#include "board/playmove.h"
#include "board/playstate.h"

#include <QObject>
#include <QString>

class EventPump;
class MessageGate;
class StarGrid;

class PlayBoard : public QObject {
    Q_OBJECT

public:
    // grid: the puzzle record (read: LineTable, SolutionLetters, CandidateWords, DecoyFlags;
    // read and written: SelectedWord). messages: where the clear question and "All Done!"
    // go. pump: what "let pending window events run" means after a message (null: nothing).
    // All three must outlive the board. Starts with no puzzle: empty cells and tiles, no
    // links, the completion check off.
    PlayBoard(StarGrid& grid, MessageGate& messages, EventPump* pump = nullptr,
              QObject* parent = nullptr);

    // Applies one player action. Indexes outside 1..8 (tiles) or 1..10 (markers) are ignored.
    // Tile and marker clicks are ignored while the solution is shown. Returns true when the
    // state (or the selection) changed; changed() is emitted then.
    bool apply(const Move& move);

    // One timeout of the completion timer. Does nothing while the check is off, and while a
    // message is open or a handler of this board is still running (the tick is dropped and
    // the check stays on, so the next tick tries again). When all ten cells hold a letter
    // and a puzzle exists: switches the check off, shows "All Done!" and returns true.
    bool completionTick();
    bool completionCheckRunning() const { return m_checkRunning; }

    // Hooks for the create and dictionary commands.
    // A create request starts: the check goes off, the solution display ends, every tile
    // loses caption and link and is disabled, every cell and marker link is emptied.
    void generationStarted();
    // A generation succeeded: the tiles show CandidateWords (available, enabled), cells and
    // links are empty, no word is selected, the check is off.
    void puzzleCreated();
    // A dictionary was loaded: cells, links and tile captions emptied (tiles sunken); the
    // puzzle record and the selection stay. Does not touch the completion check.
    void ClearBoard();
    // Switches the completion check off (create request, dictionary load).
    void stopCompletionCheck();

    // Rewrites the letters of every placed word into its cells, readings 1 to 10 in order.
    void RedrawPlacedWords();

    const PlayState& state() const { return m_state; }
    // The letter shown in cell 0..9 ("" for an empty cell or an index outside 0..9).
    QString cellLetter(int cell) const;
    // Tile 1..8 (a default, empty tile for other indexes).
    Tile tile(int i) const;
    // The tile 1..8 placed on reading k (1..10), or 0.
    int markerTag(int k) const;
    // The selected tile 1..8, or -1.
    int SelectedWord() const;
    // A puzzle is on the tiles: tile 1's caption is not "".
    bool puzzleExists() const;
    bool solutionShown() const { return m_state.solutionShown; }

Q_SIGNALS:
    // The state or the selection changed: repaint.
    void changed();
    // The completion timer must run (true) or stop (false).
    void completionCheckChanged(bool running);

private:
    class HandlerScope;

    void tileClick(int i);
    void markerClick(int k);
    void removeWord(int k);
    void redrawPlacedWords();
    void writeWord(int k);
    bool wordAgrees(int k, const QString& word) const;
    void resetTileLooks();
    void solutionPress();
    void solutionRelease();
    void clearEntries();
    void endSolutionDisplay();
    void setCheckRunning(bool running);
    void letEventsRun();
    bool boardFull() const;
    // Applies `action`, then emits changed() when state or selection differ from before.
    template <typename Action> bool tracked(Action action);

    StarGrid& m_grid;
    MessageGate& m_messages;
    EventPump* m_pump;
    PlayState m_state;
    bool m_checkRunning = false;
    int m_handlerDepth = 0; // handlers that show messages or let events run, still running
};
