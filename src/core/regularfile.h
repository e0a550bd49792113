// Reading the files the program finds by name (the configuration, the scheme collection, the
// help page, the dictionaries, the installed data): only regular files are opened, and never
// in a way that can block, and a read never takes more than its purpose needs. A FIFO, a
// device or a socket at one of those names counts as unusable, not as a file to wait on.
#pragma once

#include <QByteArray>
#include <QString>

class QFile;

// What reading a file by name came to.
struct RegularFileRead {
    enum class Status {
        Read,       // `bytes` holds the whole file
        Missing,    // nothing at that name (a dangling link too)
        NotRegular, // a folder, FIFO, device or socket (symbolic links followed)
        TooLarge,   // more than the bound the caller gave
        Unreadable  // it could not be opened or read (permissions, I/O error)
    };
    Status status = Status::Missing;
    QByteArray bytes;
};

// Reads the whole of `path` when it is a regular file of at most `maxBytes` bytes. The open
// cannot block (O_NONBLOCK, then fstat on the opened file, so a file swapped for a FIFO after
// the first look is still refused), and at most `maxBytes` + 1 bytes are ever read, so a file
// that grows while it is read is refused as too large rather than followed.
RegularFileRead readRegularFile(const QString& path, qint64 maxBytes);

// Opens `file` for reading in chunks (the dictionary loader) when `path` is a regular file,
// checked as readRegularFile() does. On failure `file` stays closed and `error` (when given)
// says why in words.
bool openRegularFile(QFile& file, const QString& path, QString* error = nullptr);

// True when `path` names nothing yet or a regular file (links followed): a name an atomic
// rewrite may put a new file at. False for a folder, FIFO, device or socket, or a link to one.
bool isRegularOrAbsent(const QString& path);
