// Resolution of the program folder; see appfolder.h for the rules.
#include "core/appfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

#include <optional>

namespace {

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

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString resolve() {
    const QString home = qEnvironmentVariable("PENTALINK_HOME");
    if (!home.isEmpty()) {
        QDir().mkpath(home);
        const QString folder = withSlash(QDir(home).absolutePath());
        seedProgramFolder(folder, installedDataFolder());
        return folder;
    }
    const QString exeDir =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QDir::currentPath();
    if (QFileInfo::exists(exeDir + QStringLiteral("/all.col")) && isWritableDir(exeDir))
        return withSlash(exeDir);

    QString user = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (user.isEmpty())
        user = QDir::homePath() + QStringLiteral("/.local/share/pentalink");
    QDir().mkpath(user);
    const QString folder = withSlash(user);
    seedProgramFolder(folder, installedDataFolder());
    return folder;
}

} // namespace

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
    for (const QString& name : shippedDataFiles()) {
        QFile from(source + name);
        if (!from.open(QIODevice::ReadOnly))
            continue;
        const QByteArray shipped = from.readAll();
        const QString target = folder + name;
        if (QFileInfo::exists(target) && (!followsTheInstall(name) || contentOf(target) == shipped))
            continue;
        // Written whole and renamed into place, so an interrupted seed leaves no half file
        // that a later start would take for the user's own copy.
        QSaveFile out(target);
        if (out.open(QIODevice::WriteOnly)) {
            out.write(shipped);
            out.commit();
        }
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
