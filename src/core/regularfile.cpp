// Opening and reading files by name without blocking and within a bound; see regularfile.h.
#include "core/regularfile.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Status = RegularFileRead::Status;

// Opens `path` for reading when it is a regular file. A look at the name first keeps devices
// from being opened at all; the open itself does not wait for a FIFO's writer, and the fstat
// of what was opened settles it. Returns the descriptor, or -1 with `status` set.
int openRegular(const QString& path, Status& status) {
    const QByteArray name = QFile::encodeName(path);
    struct stat info {};
    if (path.isEmpty() || ::stat(name.constData(), &info) != 0) {
        status = Status::Missing;
        return -1;
    }
    if (!S_ISREG(info.st_mode)) {
        status = Status::NotRegular;
        return -1;
    }
    const int fd = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        status = errno == ENOENT ? Status::Missing : Status::Unreadable;
        return -1;
    }
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        status = Status::NotRegular;
        ::close(fd);
        return -1;
    }
    // Reads of a regular file never wait anyway; clearing the flag keeps them plain.
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    status = Status::Read;
    return fd;
}

} // namespace

RegularFileRead readRegularFile(const QString& path, qint64 maxBytes) {
    RegularFileRead result;
    const int fd = openRegular(path, result.status);
    if (fd < 0)
        return result;
    struct stat info {};
    if (::fstat(fd, &info) == 0 && info.st_size > maxBytes) {
        ::close(fd);
        result.status = Status::TooLarge;
        return result;
    }
    // The size may change while the file is read: read to the end, but never past the bound.
    QByteArray bytes(qsizetype(std::min<qint64>(info.st_size, maxBytes) + 1), Qt::Uninitialized);
    qint64 got = 0;
    for (;;) {
        if (got == bytes.size()) {
            if (got > maxBytes)
                break;
            bytes.resize(qsizetype(std::min<qint64>(2 * got, maxBytes + 1)));
        }
        const ssize_t n = ::read(fd, bytes.data() + got, size_t(bytes.size() - got));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            ::close(fd);
            result.status = Status::Unreadable;
            return result;
        }
        if (n == 0)
            break;
        got += n;
    }
    ::close(fd);
    if (got > maxBytes) {
        result.status = Status::TooLarge;
        return result;
    }
    bytes.truncate(qsizetype(got));
    result.bytes = std::move(bytes);
    return result;
}

bool openRegularFile(QFile& file, const QString& path, QString* error) {
    Status status = Status::Missing;
    const int fd = openRegular(path, status);
    if (fd >= 0 && file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return true;
    if (fd >= 0)
        ::close(fd);
    if (error) {
        switch (status) {
        case Status::Missing:
            *error = QStringLiteral("No such file.");
            break;
        case Status::NotRegular:
            *error = QStringLiteral("It is not a regular file (a folder, a device or a pipe).");
            break;
        default:
            *error = QStringLiteral("It cannot be opened for reading.");
            break;
        }
    }
    return false;
}

bool isRegularOrAbsent(const QString& path) {
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return errno == ENOENT;
    return S_ISREG(info.st_mode);
}
