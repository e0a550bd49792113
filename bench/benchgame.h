// What the benchmarks share: a word list loaded the way the game loads it (shuffled, with an
// event pump polled as the game polls it, here without window events to run) and timing
// helpers that report per-request figures in microseconds.
#pragma once

#include "core/clssimplearray.h"
#include "core/dictionary.h"
#include "core/eventpump.h"
#include "core/randomsource.h"
#include "core/stargrid.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

struct BenchGame {
    clsSimpleArray list;
    RandomSource random{1};
    EventPump pump;
    DictionaryLoader loader{list, random};
    StarGrid grid;

    BenchGame() { loader.setEventPump(&pump); }

    // Loads `path` shuffled with `seed`; stops the program when the file cannot be read.
    void load(const QString& path, quint64 seed) {
        random.seed(seed);
        if (!loader.LoadDictionary(path)) {
            std::fprintf(stderr, "cannot load %s\n", qPrintable(path));
            std::exit(1);
        }
    }
};

// Collects the durations of single operations and reports mean and median, and the median
// processor time of the thread (which other programs on a busy machine do not inflate).
class Durations {
public:
    template <typename Work> auto time(Work work) {
        const double cpuStart = threadCpuUs();
        const auto start = std::chrono::steady_clock::now();
        auto result = work();
        const auto stop = std::chrono::steady_clock::now();
        m_cpuUs.push_back(threadCpuUs() - cpuStart);
        m_us.push_back(std::chrono::duration<double, std::micro>(stop - start).count());
        return result;
    }

    // Records a duration measured otherwise.
    void add(double us) { m_us.push_back(us); }

    void report(benchmark::State& state, const char* prefix = "") const {
        if (m_us.empty())
            return;
        std::vector<double> sorted = m_us;
        std::sort(sorted.begin(), sorted.end());
        double sum = 0;
        for (const double us : sorted)
            sum += us;
        const std::string p = prefix;
        state.counters[p + "mean_us"] = sum / static_cast<double>(sorted.size());
        state.counters[p + "median_us"] = sorted[sorted.size() / 2];
        state.counters[p + "max_us"] = sorted.back();
        if (!m_cpuUs.empty()) {
            std::vector<double> cpu = m_cpuUs;
            std::sort(cpu.begin(), cpu.end());
            state.counters[p + "median_cpu_us"] = cpu[cpu.size() / 2];
        }
    }

    size_t count() const { return m_us.size(); }

private:
    static double threadCpuUs() {
        timespec t{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
        return static_cast<double>(t.tv_sec) * 1e6 + static_cast<double>(t.tv_nsec) / 1e3;
    }

    std::vector<double> m_us;
    std::vector<double> m_cpuUs;
};
