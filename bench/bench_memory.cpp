// Memory of the word list, measured on whole processes: the peak of loading the 100,000-line
// file (and loading it again over the first list), the peak of a 5,000,000-line file with one
// create request (the list and the generator's index), and the resident size left after a
// 12,000-word list is loaded following the 5,000,000-line one and a create request.
//
// Each measurement runs in its own child process, forked at the very start of main() before
// the input files are generated, so a figure is that of a process that has done nothing but
// start and serve its one request: its peak (getrusage ru_maxrss) starts at the parent's size
// at the fork (the program with its libraries mapped, reported as the baseline). The loads and
// requests go through the game's own session (PuzzleSession), which also gives the
// generator's index back when another list is loaded.
#include "benchfiles.h"

#include "core/memoryinfo.h"
#include "core/puzzlesession.h"

#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>

namespace {

enum Mode : quint32 {
    Reload,        // load twice (a reload over the first list)
    LoadAndCreate, // load, one create request
    BigThenSmall,  // load, one create request, then load the second file
};

struct ChildReport {
    double baselineMb = 0;    // peak before loading
    double peakLoadMb = 0;    // peak after the first load
    double peakSecondMb = 0;  // peak after the create request or the second load
    double residentMb = 0;    // resident size at the end
    double firstLoadMs = 0;   // wall time of the first load
    double firstCreateMs = 0; // wall time of the create request
    int words = 0;            // of the first file
    bool ok = false;
};

double peakMb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0; // ru_maxrss is in KiB on Linux
}

double msSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
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

bool readText(int fd, QByteArray& text) {
    quint32 length = 0;
    if (!readAll(fd, &length, sizeof length))
        return false;
    text.resize(static_cast<qsizetype>(length));
    return readAll(fd, text.data(), length);
}

bool writeText(int fd, const QByteArray& text) {
    const auto length = static_cast<quint32>(text.size());
    return writeAll(fd, &length, sizeof length) && writeAll(fd, text.constData(), length);
}

ChildReport serve(Mode mode, const QString& first, const QString& second) {
    ChildReport report;
    report.baselineMb = peakMb();
    PuzzleSession session(nullptr);
    session.random().seed(1);
    const auto start = std::chrono::steady_clock::now();
    if (!session.LoadDictionary(first))
        return report;
    report.firstLoadMs = msSince(start);
    report.peakLoadMb = peakMb();
    report.words = session.dictionary().DictionaryWordCount();
    session.setDictionaryPath(first);
    if (mode == Reload) {
        if (!session.LoadDictionary(first))
            return report;
    } else {
        const auto create = std::chrono::steady_clock::now();
        session.createPuzzle();
        report.firstCreateMs = msSince(create);
        if (mode == BigThenSmall && !session.LoadDictionary(second))
            return report;
    }
    report.peakSecondMb = peakMb();
    report.residentMb = static_cast<double>(residentBytes()) / (1024.0 * 1024.0);
    report.ok = true;
    return report;
}

// One child: waits for its request (a mode and two paths), serves it, reports, exits.
[[noreturn]] void child(int in, int out) {
    quint32 mode = 0;
    QByteArray first;
    QByteArray second;
    if (!readAll(in, &mode, sizeof mode) || !readText(in, first) || !readText(in, second))
        _exit(0); // no request: the benchmark was filtered out
    const ChildReport report =
        serve(static_cast<Mode>(mode), QString::fromUtf8(first), QString::fromUtf8(second));
    _exit(writeAll(out, &report, sizeof report) ? 0 : 1);
}

struct Child {
    pid_t pid = -1;
    int toChild = -1;
    int fromChild = -1;
};

Child startChild() {
    std::array<int, 2> down{};
    std::array<int, 2> up{};
    if (pipe(down.data()) != 0 || pipe(up.data()) != 0)
        std::exit(1);
    Child c;
    c.pid = fork();
    if (c.pid < 0)
        std::exit(1);
    if (c.pid == 0) {
        close(down[1]);
        close(up[0]);
        child(down[0], up[1]);
    }
    close(down[0]);
    close(up[1]);
    c.toChild = down[1];
    c.fromChild = up[0];
    return c;
}

bool ask(Child& c, Mode mode, const QString& first, const QString& second, ChildReport& report) {
    const auto m = static_cast<quint32>(mode);
    const bool ok = writeAll(c.toChild, &m, sizeof m) && writeText(c.toChild, first.toUtf8()) &&
                    writeText(c.toChild, second.toUtf8()) &&
                    readAll(c.fromChild, &report, sizeof report) && report.ok;
    return ok;
}

// Runs one request in `c` (once: a peak only grows, so repeating it in the same process would
// say nothing) and hands the report to `counters`.
template <typename Counters>
void measure(benchmark::State& state, Child& c, Mode mode, const QString& first,
             const QString& second, Counters counters) {
    ChildReport report;
    for (auto _ : state) {
        if (!ask(c, mode, first, second, report)) {
            state.SkipWithError("the measuring process failed");
            return;
        }
    }
    state.counters["baseline_MB"] = report.baselineMb;
    state.counters["words"] = report.words;
    counters(report);
}

} // namespace

int main(int argc, char** argv) {
    std::array<Child, 3> children = {startChild(), startChild(), startChild()};

    auto files = std::make_unique<BenchFiles>();
    const QString lines100k = files->lines100k();
    const QString lines5m = files->lines5m();
    const QString words12k = files->words12k();
    benchmark::RegisterBenchmark(
        "PeakMemory/load_100k_lines",
        [&](benchmark::State& s) {
            measure(s, children[0], Reload, lines100k, {}, [&](const ChildReport& r) {
                s.counters["peak_after_load_MB"] = r.peakLoadMb;
                s.counters["peak_after_reload_MB"] = r.peakSecondMb;
                s.counters["first_load_ms"] = r.firstLoadMs;
            });
        })
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(
        "PeakMemory/load_and_create_5M_lines",
        [&](benchmark::State& s) {
            measure(s, children[1], LoadAndCreate, lines5m, {}, [&](const ChildReport& r) {
                s.counters["peak_after_load_MB"] = r.peakLoadMb;
                s.counters["peak_after_create_MB"] = r.peakSecondMb;
                s.counters["first_load_ms"] = r.firstLoadMs;
                s.counters["first_create_ms"] = r.firstCreateMs;
                s.counters["bytes_per_word"] =
                    (r.peakSecondMb - r.baselineMb) * 1024 * 1024 / std::max(r.words, 1);
            });
        })
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(
        "ResidentMemory/12k_words_after_5M_lines",
        [&](benchmark::State& s) {
            measure(s, children[2], BigThenSmall, lines5m, words12k, [&](const ChildReport& r) {
                s.counters["peak_MB"] = r.peakSecondMb;
                s.counters["resident_after_small_load_MB"] = r.residentMb;
            });
        })
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    for (Child& c : children) {
        close(c.toChild);
        close(c.fromChild);
        int status = 0;
        waitpid(c.pid, &status, 0);
    }
    return 0;
}
