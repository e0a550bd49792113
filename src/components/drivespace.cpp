// File-system queries behind clsZip's drive members; see drivespace.h.
#include "components/drivespace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>

bool isRemovableDevice(const QString& path, const QString& sysBlock) {
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return false;
    const QString device =
        sysBlock + QStringLiteral("%1:%2/").arg(major(info.st_dev)).arg(minor(info.st_dev));
    // A partition carries no flag of its own; its parent disk does.
    for (const QString& candidate :
         {device + QStringLiteral("removable"), device + QStringLiteral("../removable")}) {
        QFile flag(candidate);
        if (flag.open(QIODevice::ReadOnly))
            return flag.read(8).trimmed() == "1";
    }
    return false;
}

QString existingAncestor(const QString& path) {
    QFileInfo info(QDir::current().absoluteFilePath(path));
    QString candidate = QDir::cleanPath(info.absoluteFilePath());
    while (!QFileInfo::exists(candidate)) {
        const QString parent = QFileInfo(candidate).path();
        if (parent == candidate)
            break;
        candidate = parent;
    }
    return candidate;
}

DriveSpace querySpace(const QString& path) {
    DriveSpace space;
    const QString target = existingAncestor(path);
    struct statvfs fs {};
    if (::statvfs(QFile::encodeName(target).constData(), &fs) == 0) {
        space.freeBytes = static_cast<double>(fs.f_bavail) * static_cast<double>(fs.f_frsize);
        space.totalBytes = static_cast<double>(fs.f_blocks) * static_cast<double>(fs.f_frsize);
    }
    space.root = QStorageInfo(target).rootPath();
    if (!space.root.isEmpty() && !space.root.endsWith(u'/'))
        space.root += u'/';
    return space;
}

qint16 driveTypeOf(const QString& path) {
    if (path.isEmpty())
        return DriveUnknown;
    const QString target = existingAncestor(path);
    struct statfs fs {};
    if (::statfs(QFile::encodeName(target).constData(), &fs) != 0)
        return DriveUnknown;
    const auto magic = static_cast<quint64>(static_cast<quint32>(fs.f_type));
    return driveTypeForFileSystem(magic, isRemovableDevice(target));
}

qint16 driveTypeForFileSystem(quint64 magic, bool removable) {
    switch (magic) {
    case 0x01021994: // tmpfs
    case 0x858458f6: // ramfs
        return DriveRam;
    case 0x6969:     // nfs
    case 0x517b:     // smb
    case 0xff534d42: // cifs
    case 0xfe534d42: // smb2
    case 0x564c:     // ncp
    case 0x5346414f: // afs
    case 0x00c36400: // ceph
    case 0x73757245: // coda
    case 0x01021997: // 9p
        return DriveRemote;
    case 0x9660:     // iso9660
    case 0x15013346: // udf
        return DriveOptical;
    case 0xef53:     // ext2, ext3, ext4
    case 0x58465342: // xfs
    case 0x9123683e: // btrfs
    case 0xf2f52010: // f2fs
    case 0x3153464a: // jfs
    case 0x52654973: // reiserfs
    case 0x2fc12fc1: // zfs
    case 0x794c7630: // overlayfs
    case 0x4d44:     // vfat
    case 0x2011bab0: // exfat
    case 0x5346544e: // ntfs
    case 0x7366746e: // ntfs3
    case 0x482b:     // hfsplus
        return removable ? DriveRemovable : DriveFixed;
    default:
        return DriveUnknown;
    }
}
