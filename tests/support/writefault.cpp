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

// Mounts a 64 KiB tmpfs over `folder` for this process only: as root, else in a user namespace.
QString mountSmallTmpfs(const QString& folder) {
    if (unshare(CLONE_NEWNS) != 0) {
        const QByteArray uid = QByteArray::number(geteuid()), gid = QByteArray::number(getegid());
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return QStringLiteral("no mount namespace: ") + QString::fromLocal8Bit(strerror(errno));
        for (const auto& [path, text] : {std::pair("/proc/self/setgroups", QByteArray("deny")),
                                         {"/proc/self/uid_map", "0 " + uid + " 1"},
                                         {"/proc/self/gid_map", "0 " + gid + " 1"}}) {
            if (const int fd = open(path, O_WRONLY); fd >= 0) {
                [[maybe_unused]] const ssize_t n = write(fd, text.constData(), size_t(text.size()));
                close(fd);
            }
        }
    }
    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    if (mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=64k") != 0)
        return QStringLiteral("cannot mount a tmpfs: ") + QString::fromLocal8Bit(strerror(errno));
    return {};
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
        if (fault == WriteFault::FullFileSystem) { // to the last byte: 64 KiB is quickly full
            QFile filler(folder + QStringLiteral("filler"));
            if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
                std::abort();
            while (filler.write("f", 1) > 0) {
            }
        }
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
        for (auto it = before.cbegin(); it != before.cend(); ++it)
            if (!after.contains(it.key()) || after.value(it.key()) != it.value())
                outcome.changed.append(it.key());
        for (const QString& name : after.keys())
            if (!before.contains(name))
                outcome.added.append(name);
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
        QFile out;
        if (out.open(channel[1], QIODevice::WriteOnly))
            out.write(runChild(fault, writeCase, folder));
        out.close();
        _exit(0); // no destructors: the folder belongs to the parent
    }
    close(channel[1]);
    QFile pipe;
    const QByteArray report =
        pipe.open(channel[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle) ? pipe.readAll()
                                                                                 : QByteArray();
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
