// Atomic rewrites and the clean-up of their leftovers; see atomicwrite.h.
#include "core/atomicwrite.h"

#include "core/regularfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

bool writeFileAtomically(const QString& path, const QByteArray& bytes) {
    if (!isRegularOrAbsent(path))
        return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    if (!file.commit())
        return false;
    // The rename is in the folder (the link target's folder for a linked file); without this
    // a power cut can bring the old name back.
    const QString written = QFileInfo(path).canonicalFilePath();
    syncFolderOf(written.isEmpty() ? path : written);
    return true;
}

bool syncFolderOf(const QString& path) {
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool synced = ::fsync(fd) == 0;
    ::close(fd);
    return synced;
}

QStringList removeStaleTemporaries(const QString& folder, const QStringList& names,
                                   const QDateTime& now) {
    QStringList removed;
    const QDir dir(folder);
    for (const QString& name : names) {
        const QRegularExpression temporary(u'^' + QRegularExpression::escape(name) +
                                           QStringLiteral("\\.[A-Za-z0-9]{6}$"));
        const QStringList candidates =
            dir.entryList({name + QStringLiteral(".??????")}, QDir::Files | QDir::Hidden);
        for (const QString& candidate : candidates) {
            const QFileInfo info(dir.filePath(candidate));
            if (!temporary.match(candidate).hasMatch() || info.isSymLink() ||
                info.lastModified().secsTo(now) <= StaleTemporarySeconds)
                continue;
            if (QFile::remove(info.filePath()))
                removed << candidate;
        }
    }
    return removed;
}
