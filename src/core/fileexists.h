// Whether a file is there to be used: the test every file name the player or the
// configuration supplies goes through before the program relies on it.
#pragma once

#include <QString>

// True when `path` names a file (symbolic links followed) whose length can be read, that the
// program may read, and whose length is not zero. A missing, unreadable or empty file, a
// folder and an empty path all count as absent. A relative path is taken relative to the
// current directory, like any file name.
bool FileExists(const QString& path);
