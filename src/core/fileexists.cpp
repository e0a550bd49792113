// The file-presence test; see fileexists.h.
#include "core/fileexists.h"

#include <QFileInfo>

bool FileExists(const QString& path) {
    if (path.isEmpty())
        return false;
    const QFileInfo info(path);
    return info.isFile() && info.isReadable() && info.size() > 0;
}
