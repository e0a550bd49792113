// Fault injection for write paths: see writefault.h.
#include "support/writefault.h"

#include "support/recordingnotifier.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Snapshot = QMap<QString, QByteArray>;

Snapshot snapshot(const QString& folder) {
    Snapshot files;
    const QDir dir(folder);
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        QFile file(dir.filePath(name));
        files.insert(name, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }
    return files;
}

bool writeText(const char* path, const QByteArray& text) {
    const int fd = open(path, O_WRONLY);
    if (fd < 0)
        return false;
    const bool ok = write(fd, text.constData(), size_t(text.size())) == text.size();
    close(fd);
    return ok;
}

// Mounts a 64 KiB tmpfs over `folder`, visible to this process only. Tries a plain mount
// namespace first (root with CAP_SYS_ADMIN), then a user namespace.
QString mountSmallTmpfs(const QString& folder) {
    if (unshare(CLONE_NEWNS) != 0) {
        const QByteArray uid = QByteArray::number(geteuid());
        const QByteArray gid = QByteArray::number(getegid());
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return QStringLiteral("no mount namespace: ") + QString::fromLocal8Bit(strerror(errno));
        writeText("/proc/self/setgroups", "deny");
        writeText("/proc/self/uid_map", "0 " + uid + " 1");
        writeText("/proc/self/gid_map", "0 " + gid + " 1");
    }
    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    if (mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=64k") != 0)
        return QStringLiteral("cannot mount a tmpfs: ") + QString::fromLocal8Bit(strerror(errno));
    return {};
}

// Fills the file system of `folder` to the last byte with the file "filler".
void fill(const QString& folder) {
    const int fd = open(QFile::encodeName(folder + QStringLiteral("filler")).constData(),
                        O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (fd < 0)
        std::abort();
    while (write(fd, "f", 1) > 0) { // byte by byte: 64 KiB is quickly full
    }
    close(fd);
}

QByteArray runChild(WriteFault fault, const WriteFaultCase& writeCase, const QString& folder) {
    WriteFaultOutcome outcome;
    outcome.target = folder;
    if (fault == WriteFault::FullFileSystem) {
        outcome.skipReason = mountSmallTmpfs(folder);
        outcome.skipped = !outcome.skipReason.isEmpty();
    }
    if (!outcome.skipped) {
        writeCase.prepare(folder);
        if (fault == WriteFault::PathThroughFile) {
            writeFaultFile(folder + QStringLiteral("blocker"), "a regular file");
            outcome.target = folder + QStringLiteral("blocker/");
        }
        if (fault == WriteFault::FullFileSystem)
            fill(folder);
        const Snapshot before = snapshot(folder);
        if (fault == WriteFault::FileSizeLimit) {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{rlim_t(writeCase.sizeLimit), rlim_t(writeCase.sizeLimit)};
            setrlimit(RLIMIT_FSIZE, &limit);
        }
        RecordingNotifier notifier;
        try {
            outcome.result = writeCase.write(folder, outcome.target, notifier);
            outcome.finished = true;
        } catch (const std::exception& error) {
            outcome.result = QStringLiteral("exception: ") + QString::fromLocal8Bit(error.what());
        } catch (...) {
            outcome.result = QStringLiteral("exception");
        }
        for (const RecordedMessage& message : notifier.messages())
            outcome.messages.append(message.text);
        const Snapshot after = snapshot(folder);
        for (auto it = before.cbegin(); it != before.cend(); ++it) {
            if (!after.contains(it.key()) || after.value(it.key()) != it.value())
                outcome.changed.append(it.key());
        }
        for (auto it = after.cbegin(); it != after.cend(); ++it) {
            if (!before.contains(it.key()))
                outcome.added.append(it.key());
        }
    }
    QByteArray report;
    QDataStream out(&report, QIODevice::WriteOnly);
    out << outcome.skipped << outcome.skipReason << outcome.finished << outcome.target
        << outcome.result << outcome.messages << outcome.changed << outcome.added;
    return report;
}

} // namespace

const char* writeFaultName(WriteFault fault) {
    static const char* const names[] = {"FileSizeLimit", "PathThroughFile", "FullFileSystem"};
    return names[static_cast<int>(fault)];
}

void writeFaultFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size() || !file.flush())
        std::abort();
}

WriteFaultOutcome runWithWriteFault(WriteFault fault, const WriteFaultCase& writeCase) {
    WriteFaultOutcome outcome;
    QTemporaryDir dir;
    int channel[2];
    const pid_t child = dir.isValid() && pipe(channel) == 0 ? fork() : -1;
    if (child < 0) {
        outcome.result = QStringLiteral("no temporary folder, pipe or child process");
        return outcome;
    }
    const QString folder = dir.path() + u'/';
    if (child == 0) {
        close(channel[0]);
        const QByteArray report = runChild(fault, writeCase, folder);
        qsizetype sent = 0;
        while (sent < report.size()) {
            const ssize_t n =
                write(channel[1], report.constData() + sent, size_t(report.size() - sent));
            if (n <= 0)
                break;
            sent += n;
        }
        _exit(0); // no destructors: the folder belongs to the parent
    }
    close(channel[1]);
    QByteArray report;
    char buffer[4096];
    for (ssize_t n; (n = read(channel[0], buffer, sizeof buffer)) > 0;)
        report.append(buffer, n);
    close(channel[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (report.isEmpty()) {
        outcome.result = WIFSIGNALED(status)
                             ? QStringLiteral("killed by signal %1").arg(WTERMSIG(status))
                             : QStringLiteral("the child reported nothing");
        return outcome;
    }
    QDataStream in(report);
    in >> outcome.skipped >> outcome.skipReason >> outcome.finished >> outcome.target >>
        outcome.result >> outcome.messages >> outcome.changed >> outcome.added;
    return outcome;
}
