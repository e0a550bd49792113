// Dictionary loading: the shipped dictionary, a 16,000-word file and a 100,000-line file, each
// loaded into an empty word list as at start-up (emptying the previous list is not timed).
// And the 5,000,000-line file loaded as the game loads it: through its session, with an
// application whose pending events run during the load, timed from the wait pointer going on
// to its going off; then the first create request on that list.
#include "benchfiles.h"
#include "benchgame.h"

#include "core/puzzlesession.h"

#include <QCoreApplication>

#include <memory>
#include <string>

namespace {

void load(benchmark::State& state, const QString& path) {
    BenchGame game;
    quint64 seed = 0;
    for (auto _ : state) {
        state.PauseTiming();
        game.list.Clear();
        state.ResumeTiming();
        game.load(path, seed++);
    }
    state.counters["words"] = game.loader.DictionaryWordCount();
    state.counters["entries"] = game.list.ListCount();
}

double processCpuMs() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) / 1e6;
}

void loadInSession(benchmark::State& state, const QString& path) {
    Durations loads;
    Durations creates;
    std::chrono::steady_clock::time_point pointerOn;
    double cpuMs = 0;
    for (auto _ : state) {
        PuzzleSession session(nullptr); // a new game: nothing loaded, no index
        session.random().seed(loads.count());
        bool loading = true; // the create request turns the pointer on and off too
        QObject::connect(&session, &PuzzleSession::waitPointerChanged, [&](bool waiting) {
            if (!loading)
                return;
            if (waiting) {
                pointerOn = std::chrono::steady_clock::now();
                return;
            }
            loads.add(std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() -
                                                                pointerOn)
                          .count());
        });
        const double cpuStart = processCpuMs();
        session.openDictionary(path);
        cpuMs += processCpuMs() - cpuStart;
        loading = false;
        const auto outcome = creates.time([&] { return session.createPuzzle(); });
        if (outcome != PuzzleSession::CreateOutcome::Created)
            state.SkipWithError("no puzzle");
        state.counters["words"] = session.dictionary().DictionaryWordCount();
    }
    loads.report(state, "load_");
    state.counters["load_mean_cpu_us"] = cpuMs * 1000 / static_cast<double>(loads.count());
    creates.report(state, "first_create_");
}

void add(const std::string& name, const QString& path) {
    benchmark::RegisterBenchmark(name.c_str(), [path](benchmark::State& s) {
        load(s, path);
    })->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv); // the session's event pump runs its pending events
    auto files = std::make_unique<BenchFiles>();
    add("Load/shipped", BenchFiles::shipped());
    add("Load/16k_words", files->words16k());
    add("Load/100k_lines", files->lines100k());
    const QString lines5m = files->lines5m();
    benchmark::RegisterBenchmark("GameLoad/5M_lines_then_first_create",
                                 [lines5m](benchmark::State& s) { loadInSession(s, lines5m); })
        ->Iterations(3)
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
