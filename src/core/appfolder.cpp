// Resolution of the program folder; see appfolder.h for the rules.
#include "core/appfolder.h"

#include "core/atomicwrite.h"
#include "core/regularfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

#include <optional>

namespace {

// The shipped data files are a few kilobytes; a larger file under one of their names is not
// one of them, and seeding never reads more than this.
constexpr qint64 kMaxSeedBytes = 16 * 1024 * 1024;

std::optional<QString>& cachedFolder() {
    static std::optional<QString> folder;
    return folder;
}

QString withSlash(const QString& path) {
    const QString clean = QDir::cleanPath(path);
    return clean.endsWith(u'/') ? clean : clean + u'/';
}

bool isWritableDir(const QString& dir) {
    const QFileInfo info(dir);
    return info.isDir() && info.isWritable();
}

// The help page belongs to the install: a newer one replaces the copy in the folder.
bool followsTheInstall(const QString& name) {
    return name == QStringLiteral("pentalink.htm");
}

// Every name the program writes whole in its folder, through a temporary file beside it.
QStringList rewrittenFiles() {
    QStringList names = shippedDataFiles();
    names << QStringLiteral("pentalink.cfg") << QStringLiteral("newall.cox");
    if (QCoreApplication::instance())
        names << QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName() +
                     QStringLiteral(".sco");
    return names;
}

QString prepared(const QString& folder) {
    removeStaleTemporaries(folder, rewrittenFiles());
    return folder;
}

QString resolve() {
    const QByteArray home = qgetenv("PENTALINK_HOME");
    if (!home.isEmpty() && homeVariableProblem().isEmpty()) {
        const QString path = QFile::decodeName(home);
        QDir().mkpath(path);
        const QString folder = withSlash(QDir(path).absolutePath());
        seedProgramFolder(folder, installedDataFolder());
        return prepared(folder);
    }
    const QString exeDir =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QDir::currentPath();
    if (QFileInfo::exists(exeDir + QStringLiteral("/all.col")) && isWritableDir(exeDir))
        return prepared(withSlash(exeDir));

    QString user = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (user.isEmpty())
        user = QDir::homePath() + QStringLiteral("/.local/share/pentalink");
    QDir().mkpath(user);
    const QString folder = withSlash(user);
    seedProgramFolder(folder, installedDataFolder());
    return prepared(folder);
}

} // namespace

QString homeVariableProblem() {
    const QByteArray home = qgetenv("PENTALINK_HOME");
    if (QFile::encodeName(QFile::decodeName(home)) == home)
        return QString();
    return QStringLiteral("PENTALINK_HOME is not valid UTF-8, so no file name of the program "
                          "can reach that folder; rename the folder or unset the variable");
}

QStringList shippedDataFiles() {
    return {QStringLiteral("english1.txt"), QStringLiteral("all.col"),
            QStringLiteral("pentalink.htm")};
}

QString installedDataFolder() {
    const QString chosen = qEnvironmentVariable("PENTALINK_DATA_DIR");
    if (!chosen.isEmpty())
        return withSlash(chosen);
    if (QCoreApplication::instance()) {
        const QString besideExe = withSlash(QCoreApplication::applicationDirPath() + u'/' +
                                            QStringLiteral(PENTALINK_RELATIVE_DATADIR));
        if (QFileInfo::exists(besideExe + QStringLiteral("all.col")))
            return besideExe;
        // A build tree or a portable copy carries the data files beside the executable.
        const QString exeDir = withSlash(QCoreApplication::applicationDirPath());
        if (QFileInfo::exists(exeDir + QStringLiteral("all.col")))
            return exeDir;
    }
    return withSlash(QStringLiteral(PENTALINK_DATADIR));
}

void seedProgramFolder(const QString& folder, const QString& source) {
    using Status = RegularFileRead::Status;
    for (const QString& name : shippedDataFiles()) {
        const RegularFileRead shipped = readRegularFile(source + name, kMaxSeedBytes);
        if (shipped.status != Status::Read)
            continue;
        const QString target = folder + name;
        if (QFileInfo::exists(target) || QFileInfo(target).isSymLink()) {
            // Only the help page is refreshed, and only a regular file is read or replaced:
            // anything else at the name is left for that file's reader to refuse.
            if (!followsTheInstall(name))
                continue;
            const RegularFileRead present = readRegularFile(target, kMaxSeedBytes);
            const bool stale = present.status == Status::TooLarge ||
                               (present.status == Status::Read && present.bytes != shipped.bytes);
            if (!stale)
                continue;
        }
        // Written whole and renamed into place, so an interrupted seed leaves no half file
        // that a later start would take for the user's own copy.
        writeFileAtomically(target, shipped.bytes);
    }
}

QString AppFolder() {
    std::optional<QString>& folder = cachedFolder();
    if (!folder)
        folder = resolve();
    return *folder;
}

void resetAppFolderForTests() {
    cachedFolder().reset();
}
