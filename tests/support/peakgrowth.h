// How far a process's peak resident memory rises while some work runs, read from /proc (Linux).
// Header-only and QtCore-only, so the container benchmark measures the same way as the tests.
#pragma once

#include <QByteArray>
#include <QFile>

#include <functional>

namespace peakmemory {

// A size line of /proc/self/status ("VmRSS:", "VmHWM:") in bytes; -1 when it cannot be read.
inline qint64 statusBytes(const char* key) {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(key))
            return line.mid(qstrlen(key)).trimmed().split(' ').value(0).toLongLong() * 1024;
    }
    return -1;
}

// The resident memory the process gains at its peak while `work` runs, in bytes; -1 when the
// peak cannot be reset on this system (the peak is reset first, so earlier work does not count).
inline qint64 peakGrowth(const std::function<void()>& work) {
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (!clear.open(QIODevice::WriteOnly) || clear.write("5") != 1 || !clear.flush())
        return -1;
    const qint64 before = statusBytes("VmRSS:");
    work();
    const qint64 peak = statusBytes("VmHWM:");
    return before < 0 || peak < 0 ? -1 : peak - before;
}

} // namespace peakmemory
