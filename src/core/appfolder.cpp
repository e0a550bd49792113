// Resolution of the program folder; see appfolder.h for the rules.
#include "core/appfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
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

// Copies every shipped file that the per-user folder lacks from the installed data folder.
void seedUserFolder(const QString& folder) {
    const QString source = QStringLiteral(PENTALINK_DATADIR);
    for (const QString& name : shippedDataFiles()) {
        const QString target = folder + name;
        if (!QFileInfo::exists(target)) {
            QFile::copy(source + u'/' + name, target);
            QFile(target).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                         QFileDevice::ReadGroup | QFileDevice::ReadOther);
        }
    }
}

QString resolve() {
    const QString home = qEnvironmentVariable("PENTALINK_HOME");
    if (!home.isEmpty()) {
        QDir().mkpath(home);
        return withSlash(QDir(home).absolutePath());
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
    seedUserFolder(folder);
    return folder;
}

} // namespace

QStringList shippedDataFiles() {
    return {QStringLiteral("english1.txt"), QStringLiteral("all.col"),
            QStringLiteral("pentalink.htm")};
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
