// Where the program's own files live (dictionary, schemes, help page, configuration, error
// log). Resolved once, in one place, so every file name of the program agrees.
#pragma once

#include <QString>

// Returns the program folder, always ending in "/". In this order:
//  1. the folder named by $PENTALINK_HOME (created when missing);
//  2. the executable's folder, when it holds "all.col" and is writable (a build tree or a
//     portable copy);
//  3. the per-user data folder, created on first use and seeded with copies of the
//     installed data files that are not there yet (a user's edited copy is never replaced).
// The result is computed on the first call and cached; resetAppFolderForTests() forgets it.
QString AppFolder();

// Forgets the cached folder so the next AppFolder() resolves again (tests change
// $PENTALINK_HOME between cases).
void resetAppFolderForTests();

// The data files the program ships and seeds into a fresh per-user folder.
QStringList shippedDataFiles();
