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

// Collects the durations of single operations and reports mean and median.
class Durations {
public:
    template <typename Work> auto time(Work work) {
        const auto start = std::chrono::steady_clock::now();
        auto result = work();
        const auto stop = std::chrono::steady_clock::now();
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
    }

    size_t count() const { return m_us.size(); }

private:
    std::vector<double> m_us;
};
