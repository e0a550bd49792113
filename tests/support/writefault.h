// Making a write fail in ways that root cannot bypass, for the tests of every write path.
// Each run happens in a forked child process, so a limit or a mount never touches the test
// process itself:
//  - FileSizeLimit: RLIMIT_FSIZE (SIGXFSZ ignored), so no file may grow past a given size,
//    as on a disk that fills up part way through a write;
//  - PathThroughFile: the operation writes into "<folder>/blocker/", where "blocker" is a
//    regular file, so nothing can be created there;
//  - FullFileSystem: the folder is a fresh 64 KiB tmpfs in a private mount namespace, filled
//    to the last byte once the earlier files are in it. Where no mount is allowed, the run
//    reports `skipped`.
// The child writes the earlier files, takes a copy of every file of the folder, injects the
// fault, runs the write and compares every earlier file byte for byte afterwards.
#pragma once

#include "core/notifier.h"

#include <QString>
#include <QStringList>

#include <functional>

enum class WriteFault { FileSizeLimit, PathThroughFile, FullFileSystem };

inline constexpr WriteFault kWriteFaults[] = {
    WriteFault::FileSizeLimit, WriteFault::PathThroughFile, WriteFault::FullFileSystem};

// "FileSizeLimit", "PathThroughFile", "FullFileSystem" (for test names).
const char* writeFaultName(WriteFault fault);

struct WriteFaultCase {
    // Writes the earlier files into `folder` (which ends in "/").
    std::function<void(const QString& folder)> prepare;
    // The write under test. `folder` holds the earlier files; `target` is the folder it must
    // write into: `folder` itself, or a folder through a regular file for PathThroughFile.
    // Returns what the operation returned, as text. Exceptions are caught and reported.
    std::function<QString(const QString& folder, const QString& target, Notifier& notifier)> write;
    // FileSizeLimit only: the largest size any file may reach.
    qint64 sizeLimit = 0;
};

struct WriteFaultOutcome {
    bool skipped = false; // the fault cannot be made on this machine (see skipReason)
    QString skipReason;
    bool finished = false; // the write returned normally: no crash, no escaping exception
    QString target;        // the `target` the write was given
    QString result;        // what it returned (or the exception or signal that stopped it)
    QStringList messages;  // texts shown through the notifier, in order
    QStringList changed;   // earlier files whose bytes differ afterwards, or that are gone
    QStringList added;     // files of the folder that were not there before
};

WriteFaultOutcome runWithWriteFault(WriteFault fault, const WriteFaultCase& writeCase);

// Writes `bytes` as the whole file `path` (for `prepare`); aborts the child when it cannot.
void writeFaultFile(const QString& path, const QByteArray& bytes);
