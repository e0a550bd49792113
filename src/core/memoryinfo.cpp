// Resident size, available memory and handing freed pages back; see memoryinfo.h.
#include "core/memoryinfo.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>

#include <unistd.h>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

QByteArray readSmallFile(const char* path) {
    QFile file(QString::fromLatin1(path));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.read(64 * 1024);
}

// The value in kB of the line "<key>: <value> kB" of /proc/meminfo, or -1.
qint64 meminfoBytes(const QByteArray& meminfo, const QByteArray& key) {
    for (const QByteArray& line : meminfo.split('\n')) {
        if (!line.startsWith(key + ':'))
            continue;
        bool ok = false;
        const qint64 kb = line.mid(key.size() + 1).trimmed().split(' ').value(0).toLongLong(&ok);
        return ok ? kb * 1024 : -1;
    }
    return -1;
}

// A control group's room: its limit less its usage, or -1 when it has no limit.
qint64 controlGroupRoom() {
    const QByteArray limit = readSmallFile("/sys/fs/cgroup/memory.max").trimmed();
    bool ok = false;
    const qint64 max = limit.toLongLong(&ok);
    if (!ok)
        return -1; // "max", or no such file
    const qint64 used = readSmallFile("/sys/fs/cgroup/memory.current").trimmed().toLongLong(&ok);
    return ok ? std::max<qint64>(max - used, 0) : -1;
}

} // namespace

qint64 residentBytes() {
    const QList<QByteArray> fields = readSmallFile("/proc/self/statm").split(' ');
    bool ok = false;
    const qint64 pages = fields.value(1).toLongLong(&ok);
    return ok ? pages * sysconf(_SC_PAGESIZE) : 0;
}

qint64 availableMemoryBytes() {
    qint64 available = meminfoBytes(readSmallFile("/proc/meminfo"), "MemAvailable");
    const qint64 room = controlGroupRoom();
    if (room >= 0 && (available < 0 || room < available))
        available = room;
    return available;
}

void returnFreedMemory() {
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
}
