// Where the program's own files live (dictionary, schemes, help page, configuration, error
// log). Resolved once, in one place, so every file name of the program agrees.
#pragma once

#include <QString>

// Returns the program folder, always ending in "/". In this order:
//  1. the folder named by $PENTALINK_HOME (created when missing), seeded like the per-user
//     folder, so a fresh or emptied folder still gets the schemes and the dictionary; its
//     bytes are used as given (QFile::decodeName), and a value that is not valid UTF-8, which
//     no file name of the program could reach, is skipped (see homeVariableProblem());
//  2. the executable's folder, when it holds "all.col" and is writable (a build tree or a
//     portable copy);
//  3. the per-user data folder, created on first use and seeded with copies of the
//     installed data files that are not there yet (a user's edited copy is never replaced).
// The folder found has the leftovers of killed rewrites removed (removeStaleTemporaries() in
// atomicwrite.h, for every file the program rewrites there).
// The result is computed on the first call and cached; resetAppFolderForTests() forgets it.
QString AppFolder();

// Why $PENTALINK_HOME cannot name the program folder ("" when it can, or is unset): its bytes
// are not valid UTF-8. Both programs refuse to start with this reason rather than silently
// take another folder.
QString homeVariableProblem();

// Forgets the cached folder so the next AppFolder() resolves again (tests change
// $PENTALINK_HOME between cases).
void resetAppFolderForTests();

// The data files the program ships and seeds into a fresh per-user folder.
QStringList shippedDataFiles();

// The installed data folder ("<prefix>/share/pentalink/"), ending in "/": the folder named by
// $PENTALINK_DATA_DIR when set (tests seed from their own folders); else found beside the
// executable's own folder when an install was moved to another prefix; else the executable's
// folder itself when it holds all.col (a build tree or a portable copy); else the folder fixed
// when the program was built.
QString installedDataFolder();

// Copies into `folder` each shipped data file it lacks, taken from `source` (both end in "/").
// A copy the player or the program may edit (the dictionary, the colour schemes) is never
// replaced once present, so an edited all.col survives any later install or upgrade; the
// configuration file is never shipped and so never touched. The help page, which only an
// install changes, is replaced when the installed copy differs. Only regular files of at most
// 16 MiB are read, on either side, and never in a way that can block; anything else at a
// name in `folder` (a FIFO, a link to a device) is left alone for that file's reader to
// refuse. Files missing from `source` and copies that fail are skipped: the reader of each
// file reports its absence.
void seedProgramFolder(const QString& folder, const QString& source);
