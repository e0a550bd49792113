// Write faults root cannot bypass, each in a forked child: FileSizeLimit (RLIMIT_FSIZE,
// SIGXFSZ ignored), PathThroughFile (the target "<folder>/blocker/" runs through a regular
// file), FullFileSystem (a private 64 KiB tmpfs filled to the last byte; `skipped` where no
// mount is allowed). The child writes the earlier files, snapshots them, injects the fault,
// runs the write and reports which files changed or were added.
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
