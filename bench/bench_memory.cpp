// Peak memory of loading the 100,000-line file, and of the word list with the generator's
// index for a 5,000,000-line file. The load runs in a child process forked at the
// very start of main(), before the input files are generated, so the figure is the peak
// resident size (getrusage ru_maxrss) of a whole process that has done nothing but start and
// load: the child's peak starts at the parent's size at the fork (the program with its
// libraries mapped, measured as baseline), then the load, then a second load of the same file
// over the first (the reload after a failed request, when both lists briefly coexist).
#include "benchfiles.h"
#include "benchgame.h"

#include "core/indexedgenerator.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <ctime>
#include <memory>

namespace {

struct ChildReport {
    double baselineMb = 0; // peak before loading
    double indexedMb = 0;  // peak after one create request on the first load (the index built)
    double loadMb = 0;     // peak after the first load
    double reloadMb = 0;   // peak after loading again over the first list
    double loadMs = 0;     // wall time of the first load
    double loadCpuMs = 0;  // processor time of the first load
    int words = 0;
};

double cpuMs() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) / 1e6;
}

double peakMb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0; // ru_maxrss is in KiB on Linux
}

bool readAll(int fd, void* data, size_t size) {
    auto* bytes = static_cast<char*>(data);
    while (size > 0) {
        const ssize_t got = read(fd, bytes, size);
        if (got <= 0)
            return false;
        bytes += got;
        size -= static_cast<size_t>(got);
    }
    return true;
}

bool writeAll(int fd, const void* data, size_t size) {
    const auto* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t put = write(fd, bytes, size);
        if (put <= 0)
            return false;
        bytes += put;
        size -= static_cast<size_t>(put);
    }
    return true;
}

// The child: waits for a request (a mode and a path), serves it, reports, repeats until the
// pipe closes. Mode 0: load twice (the reload over the first list). Mode 1: load once, then
// one create request with the game's generator, which builds its index.
[[noreturn]] void serveLoads(int in, int out) {
    for (;;) {
        quint32 mode = 0;
        quint32 length = 0;
        if (!readAll(in, &mode, sizeof mode))
            _exit(0);
        if (!readAll(in, &length, sizeof length))
            _exit(1);
        QByteArray path(static_cast<qsizetype>(length), Qt::Uninitialized);
        if (!readAll(in, path.data(), length))
            _exit(1);
        ChildReport report;
        report.baselineMb = peakMb();
        {
            BenchGame game;
            const auto start = std::chrono::steady_clock::now();
            const double cpuStart = cpuMs();
            game.load(QString::fromUtf8(path), 1);
            report.loadCpuMs = cpuMs() - cpuStart;
            report.loadMs =
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                    .count();
            report.loadMb = peakMb();
            if (mode == 1) {
                IndexedPuzzleGenerator generator;
                generator.generate(game.list, game.grid);
                report.indexedMb = peakMb();
            } else {
                game.load(QString::fromUtf8(path), 2);
                report.reloadMb = peakMb();
            }
            report.words = game.loader.DictionaryWordCount();
        }
        if (!writeAll(out, &report, sizeof report))
            _exit(1);
    }
}

struct Child {
    pid_t pid = -1;
    int toChild = -1;
    int fromChild = -1;
};

Child g_child;

bool ask(quint32 mode, const QString& path, ChildReport& report) {
    const QByteArray bytes = path.toUtf8();
    const auto length = static_cast<quint32>(bytes.size());
    return writeAll(g_child.toChild, &mode, sizeof mode) &&
           writeAll(g_child.toChild, &length, sizeof length) &&
           writeAll(g_child.toChild, bytes.constData(), length) &&
           readAll(g_child.fromChild, &report, sizeof report);
}

void peakOfLoad(benchmark::State& state, const QString& path) {
    ChildReport report;
    for (auto _ : state) {
        if (!ask(0, path, report)) {
            state.SkipWithError("the measuring process failed");
            return;
        }
    }
    state.counters["baseline_MB"] = report.baselineMb;
    state.counters["peak_after_load_MB"] = report.loadMb;
    state.counters["peak_after_reload_MB"] = report.reloadMb;
    state.counters["first_load_ms"] = report.loadMs;
    state.counters["first_load_cpu_ms"] = report.loadCpuMs;
    state.counters["words"] = report.words;
}

// The word list and the generator's index together: the peak after a load and one create
// request, less the baseline, per accepted word.
void peakOfIndexedList(benchmark::State& state, const QString& path) {
    ChildReport report;
    for (auto _ : state) {
        if (!ask(1, path, report)) {
            state.SkipWithError("the measuring process failed");
            return;
        }
    }
    state.counters["baseline_MB"] = report.baselineMb;
    state.counters["peak_after_load_MB"] = report.loadMb;
    state.counters["peak_after_request_MB"] = report.indexedMb;
    state.counters["words"] = report.words;
    state.counters["bytes_per_word"] =
        (report.indexedMb - report.baselineMb) * 1024 * 1024 / std::max(report.words, 1);
}

} // namespace

int main(int argc, char** argv) {
    std::array<int, 2> down{};
    std::array<int, 2> up{};
    if (pipe(down.data()) != 0 || pipe(up.data()) != 0)
        return 1;
    g_child.pid = fork();
    if (g_child.pid < 0)
        return 1;
    if (g_child.pid == 0) {
        close(down[1]);
        close(up[0]);
        serveLoads(down[0], up[1]);
    }
    close(down[0]);
    close(up[1]);
    g_child.toChild = down[1];
    g_child.fromChild = up[0];

    auto files = std::make_unique<BenchFiles>();
    const QString path = files->lines100k();
    const QString large = files->lines5m();
    // One measurement: a peak only grows, so repeating it in the same process would say nothing.
    benchmark::RegisterBenchmark("PeakMemory/load_100k_lines",
                                 [path](benchmark::State& s) { peakOfLoad(s, path); })
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("PeakMemory/load_and_index_5M_lines",
                                 [large](benchmark::State& s) { peakOfIndexedList(s, large); })
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    close(g_child.toChild);
    close(g_child.fromChild);
    int status = 0;
    waitpid(g_child.pid, &status, 0);
    return 0;
}
