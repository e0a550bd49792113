// Connects the create and dictionary commands to the play rules, so a new puzzle, a create
// request and a loaded dictionary reach the board the same way in the program and in tests.
#pragma once

class PlayBoard;
class PuzzleSession;

// The board must use session.grid() as its puzzle record. Both must outlive the connections
// (they are QObject connections between the two, dropped when either is destroyed).
// create request: tiles cleared -> PlayBoard::generationStarted();
// success: puzzleCreated -> PlayBoard::puzzleCreated();
// dictionary loaded: boardCleared -> PlayBoard::ClearBoard();
// completion timer stopped (create, dictionary) -> PlayBoard::stopCompletionCheck().
void connectToSession(PuzzleSession& session, PlayBoard& board);
