// How far peak resident memory rises while work runs, from /proc; shared with the benchmark.
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

// Bytes gained at the peak while `work` runs (peak reset first); -1 where it cannot be reset.
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
