// Peak memory and time of restoring containers, among them hostile ones whose header claims
// far more than their stream holds. Each restore runs in a child process forked for it: the
// child resets its peak resident size (/proc/self/clear_refs), restores, and reports how far
// the peak rose above where it started. The target: a container of n bytes restores or is
// refused with the peak under n + 64 MiB.
#include "components/clszip.h"
#include "components/ziperror.h"
#include "components/zipformat.h"
#include "core/notifier.h"
#include "support/peakgrowth.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <zlib.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

constexpr qint64 kMiB = 1024 * 1024;

class SilentNotifier : public Notifier {
public:
    int MsgboxA(const QString&, const QString&) override { return AnswerOk; }
    int standardBox(const QString&, const QString&, const QString&) override { return AnswerOk; }
    QString inputBox(const QString&, const QString&) override { return {}; }
};

struct Report {
    qint64 growth = -1; // bytes the peak resident size rose
    int restored = 0;   // 1 restored, 0 refused
};

Report restoreInChild(const QString& container, const QString& destination) {
    int channel[2];
    if (pipe(channel) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        close(channel[0]);
        Report report;
        report.growth = peakmemory::peakGrowth([&] {
            SilentNotifier notifier;
            clsZip zip(notifier, [](const QString&) { return DriveSpace{1e15, 1e15, "/"}; });
            try {
                report.restored = zip.DecompressFile(container, destination) ? 1 : 0;
            } catch (const ZipError&) {
                report.restored = 0;
            }
        });
        const bool sent = write(channel[1], &report, sizeof report) == sizeof report;
        _exit(sent ? 0 : 1);
    }
    close(channel[1]);
    Report report;
    if (read(channel[0], &report, sizeof report) != sizeof report)
        report = {};
    close(channel[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return report;
}

QByteArray streamOf(const QByteArray& data) {
    uLongf length = compressBound(static_cast<uLong>(data.size()));
    QByteArray stream(static_cast<qsizetype>(length), '\0');
    compress2(reinterpret_cast<Bytef*>(stream.data()), &length,
              reinterpret_cast<const Bytef*>(data.constData()), static_cast<uLong>(data.size()), 6);
    stream.truncate(static_cast<qsizetype>(length));
    return stream;
}

QByteArray noise(qsizetype size) {
    QByteArray bytes(size, '\0');
    quint32 x = 2026;
    for (char& c : bytes)
        c = static_cast<char>((x = x * 1103515245 + 12345) >> 24);
    return bytes;
}

struct Case {
    const char* name;
    qint64 claimed;
    QByteArray stream;
};

QTemporaryDir* g_dir = nullptr;

void restore(benchmark::State& state, const Case& c) {
    const QString container = g_dir->path() + QStringLiteral("/in.mlh");
    QFile file(container);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(zipformat::buildHeader(static_cast<qint32>(c.claimed), QStringLiteral("x.bin")) +
                   c.stream) < 0) {
        state.SkipWithError("cannot write the container");
        return;
    }
    file.close();
    const qint64 size = QFileInfo(container).size();
    Report report;
    for (auto _ : state) {
        report = restoreInChild(container, g_dir->path() + QStringLiteral("/out"));
        if (report.growth < 0) {
            state.SkipWithError("the peak resident size cannot be measured here");
            return;
        }
        QFile::remove(g_dir->path() + QStringLiteral("/out.bin"));
    }
    state.counters["container_MB"] = double(size) / double(kMiB);
    state.counters["claimed_MB"] = double(c.claimed) / double(kMiB);
    state.counters["peak_growth_MB"] = double(report.growth) / double(kMiB);
    state.counters["limit_MB"] = double(size + 64 * kMiB) / double(kMiB);
    state.counters["restored"] = report.restored;
}

} // namespace

int main(int argc, char** argv) {
    QTemporaryDir dir;
    g_dir = &dir;
    // 2 MiB of noise claiming the largest length; 100 KiB claiming 100 MiB; a container that
    // really restores 256 MiB of zeros from some 250 KiB.
    static const Case cases[] = {
        {"two_MiB_claiming_2GiB", 0x7fffffff, streamOf(noise(2 * kMiB))},
        {"hundred_KiB_claiming_100MiB", 100 * kMiB, streamOf(noise(100 * 1024))},
        {"quarter_MiB_restoring_256MiB", 256 * kMiB, streamOf(QByteArray(256 * kMiB, '\0'))},
    };
    for (const Case& c : cases) {
        benchmark::RegisterBenchmark(c.name, [&c](benchmark::State& state) { restore(state, c); })
            ->Iterations(3)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
