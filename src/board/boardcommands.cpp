// The create and dictionary commands on the board; see boardcommands.h.
#include "board/boardcommands.h"

#include "board/playboard.h"

PuzzleSession::CreateOutcome createPuzzle(PuzzleSession& session, PlayBoard& board) {
    const PuzzleSession::CreateOutcome outcome = session.createPuzzle([&board](bool searching) {
        board.apply(searching ? Move::searchStarted() : Move::searchEnded());
    });
    if (outcome == PuzzleSession::CreateOutcome::Created)
        board.apply(Move::newPuzzle());
    return outcome;
}

bool openDictionary(PuzzleSession& session, PlayBoard& board, const QString& path) {
    if (!session.openDictionary(path))
        return false;
    board.apply(Move::dictionaryLoaded());
    return true;
}
