// Start-up settings and the path decisions derived from them; see settings.h.
#include "core/settings.h"

#include "core/fileexists.h"

#include <QDir>

Settings Settings::forFolder(const QString& appFolder) {
    Settings settings;
    settings.AppFolder = appFolder.endsWith(u'/') ? appFolder : appFolder + u'/';
    settings.SchemeCollectionPath = settings.AppFolder + QStringLiteral("all.col");
    return settings;
}

QString programPath(const QString& path, const QString& appFolder) {
    if (path.isEmpty() || QDir::isAbsolutePath(path))
        return path;
    return appFolder + path;
}

QString startupDictionaryPath(const Settings& settings) {
    const QString configured = programPath(settings.DictionaryPath, settings.AppFolder);
    if (FileExists(configured))
        return configured;
    return settings.AppFolder + QStringLiteral("english1.txt");
}
