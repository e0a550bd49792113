// Whole-file rewrites that a crash, a full disk or a power cut cannot leave half done, and the
// clean-up after the ones a kill interrupted. Every file the program rewrites in its folder
// goes through here.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

// Writes `bytes` as the whole of `path`: to a temporary file beside it ("<name>.XXXXXX"),
// unbuffered so that a short write on a full disk is seen, then renamed over the old file, and
// the folder synced so that a power cut cannot bring the old name back. A name held by anything
// but a regular file (a folder, a FIFO, a link to a device) is refused: the rename would
// replace it, or follow the link and replace the device. False leaves the old file as it was.
bool writeFileAtomically(const QString& path, const QByteArray& bytes);

// Flushes the folder holding `path` (its entries, such as a rename just made) to the disk.
bool syncFolderOf(const QString& path);

// How old a temporary file must be before start-up takes it for the leftover of a killed
// write: no live write takes anywhere near this long, so another copy of the game that is
// writing at this moment never loses its temporary file.
inline constexpr qint64 StaleTemporarySeconds = 10 * 60;

// Removes from `folder` (ending in "/") the temporary files a killed write of one of `names`
// left behind: "<name>.XXXXXX" with six letters or digits, regular files last modified more
// than StaleTemporarySeconds before `now`. Nothing else is touched. Returns the names removed.
QStringList removeStaleTemporaries(const QString& folder, const QStringList& names,
                                   const QDateTime& now = QDateTime::currentDateTime());
