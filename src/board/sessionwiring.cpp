// Session-to-board connections; see sessionwiring.h.
#include "board/sessionwiring.h"

#include "board/playboard.h"
#include "core/puzzlesession.h"

void connectToSession(PuzzleSession& session, PlayBoard& board) {
    QObject::connect(&session, &PuzzleSession::tilesCleared, &board, &PlayBoard::generationStarted);
    QObject::connect(&session, &PuzzleSession::puzzleCreated, &board, &PlayBoard::puzzleCreated);
    QObject::connect(&session, &PuzzleSession::boardCleared, &board, &PlayBoard::ClearBoard);
    QObject::connect(&session, &PuzzleSession::completionCheckStopped, &board,
                     &PlayBoard::stopCompletionCheck);
}
