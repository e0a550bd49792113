// The create and dictionary commands with their effect on the board, in one place for the
// window and the tests: the session does the work, the board gets the matching moves. QtCore
// only.
#pragma once

#include "core/puzzlesession.h"

class PlayBoard;

// The create command: the board goes blank for the search and shows the new puzzle when one
// was made. `board` must use session.grid() as its puzzle record.
PuzzleSession::CreateOutcome createPuzzle(PuzzleSession& session, PlayBoard& board);

// The dictionary command once the player has picked `path` ("" when cancelled): a successful
// load blanks the board and stops the completion check. Returns whether a dictionary loaded.
bool openDictionary(PuzzleSession& session, PlayBoard& board, const QString& path);
