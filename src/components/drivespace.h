// Questions about the file system that holds a path: its kind, its size and the space left
// for this user. Stands in for drive letters: a path names the file system it lives on.
#pragma once

#include <QString>
#include <QtGlobal>

// Kinds of file system, numbered as drive types traditionally are.
enum DriveKind : qint16 {
    DriveUnknown = 0,
    DriveRemovable = 2,
    DriveFixed = 3,
    DriveRemote = 4,
    DriveOptical = 5,
    DriveRam = 6,
};

struct DriveSpace {
    double freeBytes = 0;  // bytes available to this user; 0 when the query failed
    double totalBytes = 0; // size of the file system; 0 when the query failed
    QString root;          // the mount point, ending in "/" ("" when unknown)
};

// The nearest existing folder or file for `path` (relative paths count from the current
// folder): `path` itself when it exists, else its closest existing ancestor.
QString existingAncestor(const QString& path);

// Space of the file system holding existingAncestor(path), by statvfs. `path` must not be
// empty (callers answer -1 for that before asking).
DriveSpace querySpace(const QString& path);

// What the kernel says of the block device holding `path`: its "removable" flag under
// `sysBlock` (one folder per device number), the device's own or, for a partition, which has
// none, its parent disk's. False when neither says "1".
bool isRemovableDevice(const QString& path,
                       const QString& sysBlock = QStringLiteral("/sys/dev/block/"));

// The kind of the file system holding existingAncestor(path), by statfs; DriveUnknown for
// an empty path or a failed query.
qint16 driveTypeOf(const QString& path);

// The kind for a statfs file-system magic number; `removable` is what the kernel says of the
// block device behind it. Network file systems are remote, tmpfs/ramfs RAM, iso9660/udf
// optical, disk file systems fixed (removable when the device is), anything else unknown.
qint16 driveTypeForFileSystem(quint64 magic, bool removable);
