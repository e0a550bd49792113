// Puzzle generation: the literal generator against the indexed one on the shipped dictionary
// and on a 16,000-word dictionary, and dictionaries that give no puzzle at all.
//
// "fresh loads": every iteration loads the dictionary anew (not timed, shuffle seed 0..3 in
// turn) and then times the first three create requests, as a player starting the game would;
// the indexed generator builds its index inside the first of them. Both generators get the
// same loads, so they make the very same puzzles.
// "successive": one load, then one create request per iteration, as a player clicking create
// again and again (a failure reloads untimed, as the game reloads after its message).
// "no puzzle": a fresh load (not timed), then one request that fails after trying every root.
#include "benchfiles.h"
#include "benchgame.h"

#include "core/indexedgenerator.h"
#include "core/literalgenerator.h"

#include <memory>
#include <string>
#include <type_traits>

namespace {

// Roots tried by the last request (only the indexed generator counts them).
template <typename Generator> int attemptsOf(const Generator& generator) {
    if constexpr (std::is_same_v<Generator, IndexedPuzzleGenerator>)
        return generator.statistics().attempts;
    else
        return 0;
}

constexpr int kRequestsPerLoad = 3;
constexpr int kSeeds = 4;
// The no-puzzle size the literal generator gets through in seconds rather than hours.
constexpr int kLiteralNoPuzzleWords = 1000;

std::unique_ptr<BenchFiles> g_files;

template <typename Generator> void freshLoads(benchmark::State& state, const QString& path) {
    BenchGame game;
    Generator generator;
    generator.setEventPump(&game.pump);
    Durations durations;
    int failures = 0;
    long attempts = 0;
    quint64 seed = 0;
    for (auto _ : state) {
        state.PauseTiming();
        game.load(path, seed++ % kSeeds);
        state.ResumeTiming();
        for (int r = 0; r < kRequestsPerLoad; ++r) {
            const GenerationResult result =
                durations.time([&] { return generator.generate(game.list, game.grid); });
            failures += result.success ? 0 : 1;
            attempts += attemptsOf(generator);
        }
    }
    durations.report(state);
    if (attempts > 0)
        state.counters["attempts"] = static_cast<double>(attempts) / durations.count();
    state.counters["puzzles"] = static_cast<double>(durations.count()) - failures;
    state.counters["failures"] = failures;
}

void successive(benchmark::State& state, const QString& path) {
    BenchGame game;
    IndexedPuzzleGenerator generator;
    generator.setEventPump(&game.pump);
    game.load(path, 1);
    Durations durations;
    int failures = 0;
    long attempts = 0;
    for (auto _ : state) {
        const GenerationResult result =
            durations.time([&] { return generator.generate(game.list, game.grid); });
        attempts += generator.statistics().attempts;
        if (!result.success) {
            ++failures;
            state.PauseTiming();
            game.load(path, static_cast<quint64>(failures) + 1);
            state.ResumeTiming();
        }
    }
    durations.report(state);
    state.counters["failures"] = failures;
    state.counters["attempts"] = static_cast<double>(attempts) / durations.count();
}

template <typename Generator> void noPuzzle(benchmark::State& state, const QString& path) {
    BenchGame game;
    Generator generator;
    generator.setEventPump(&game.pump);
    Durations durations;
    quint64 seed = 0;
    for (auto _ : state) {
        state.PauseTiming();
        game.load(path, seed++);
        state.ResumeTiming();
        const GenerationResult result =
            durations.time([&] { return generator.generate(game.list, game.grid); });
        if (result.success) {
            state.SkipWithError("the dictionary gave a puzzle");
            return;
        }
    }
    durations.report(state);
    state.counters["entries"] = game.list.ListCount();
}

// A stop request (the close box) during a search that holds no puzzle: the time from the
// request to generate() returning. The request comes from the event pump's action after the
// search has run for a while (kAbandonAfterMs), as a window event would bring it.
constexpr double kAbandonAfterMs = 20;

template <typename Generator> void abandon(benchmark::State& state, const QString& path) {
    BenchGame game;
    Generator generator;
    generator.setEventPump(&game.pump);
    Durations durations;
    quint64 seed = 0;
    for (auto _ : state) {
        state.PauseTiming();
        game.pump.clearStop(); // the last iteration's request would stop the load as well
        game.load(path, seed++);
        using Clock = std::chrono::steady_clock;
        const Clock::time_point start = Clock::now();
        Clock::time_point requested{};
        game.pump.setAction([&] {
            const double ms =
                std::chrono::duration<double, std::milli>(Clock::now() - start).count();
            if (!game.pump.stopRequested() && ms >= kAbandonAfterMs) {
                game.pump.requestStop();
                requested = Clock::now();
            }
        });
        const GenerationResult result = generator.generate(game.list, game.grid);
        const Clock::time_point returned = Clock::now();
        game.pump.setAction({});
        state.ResumeTiming();
        if (!result.abandoned) {
            state.SkipWithError("the search ended before the stop request");
            return;
        }
        durations.add(std::chrono::duration<double, std::micro>(returned - requested).count());
    }
    durations.report(state, "stop_to_return_");
}

void add(const std::string& name, void (*run)(benchmark::State&, const QString&),
         const QString& path, int iterations = 0) {
    auto* b = benchmark::RegisterBenchmark(
        name.c_str(), [run, path](benchmark::State& state) { run(state, path); });
    b->Unit(benchmark::kMicrosecond);
    if (iterations > 0)
        b->Iterations(iterations);
}

} // namespace

int main(int argc, char** argv) {
    g_files = std::make_unique<BenchFiles>();
    const QString shipped = BenchFiles::shipped();
    const QString words16k = g_files->words16k();

    add("Puzzle/shipped/literal/fresh_loads", freshLoads<LiteralPuzzleGenerator>, shipped, kSeeds);
    add("Puzzle/shipped/fast/fresh_loads", freshLoads<IndexedPuzzleGenerator>, shipped,
        kSeeds * 25);
    add("Puzzle/shipped/fast/successive", successive, shipped);
    add("Puzzle/16k/literal/fresh_loads", freshLoads<LiteralPuzzleGenerator>, words16k, kSeeds);
    add("Puzzle/16k/fast/fresh_loads", freshLoads<IndexedPuzzleGenerator>, words16k, kSeeds * 25);
    add("Puzzle/16k/fast/successive", successive, words16k);
    add("NoPuzzle/16k/fast", noPuzzle<IndexedPuzzleGenerator>, g_files->noPuzzle(16000), 20);
    const QString patterns = g_files->patternWords16k();
    add("Puzzle/16k_patterns/fast/fresh_loads", freshLoads<IndexedPuzzleGenerator>, patterns,
        kSeeds * 5);
    add("Puzzle/16k_patterns/fast/successive", successive, patterns);
    const QString patternNoPuzzle = g_files->patternNoPuzzle16k();
    add("NoPuzzle/16k_patterns/fast", noPuzzle<IndexedPuzzleGenerator>, patternNoPuzzle, 10);
    add("NoPuzzle/16k_hash_xyz/fast", noPuzzle<IndexedPuzzleGenerator>, g_files->hashXyz16k(), 10);
    add("Abandon/16k_patterns_nopuzzle/fast", abandon<IndexedPuzzleGenerator>, patternNoPuzzle, 10);
    add("Abandon/16k_patterns_nopuzzle/literal", abandon<LiteralPuzzleGenerator>, patternNoPuzzle,
        3);
    const std::string small = std::to_string(kLiteralNoPuzzleWords / 1000) + "k";
    add("NoPuzzle/" + small + "/literal", noPuzzle<LiteralPuzzleGenerator>,
        g_files->noPuzzle(kLiteralNoPuzzleWords), 1);
    add("NoPuzzle/" + small + "/fast", noPuzzle<IndexedPuzzleGenerator>,
        g_files->noPuzzle(kLiteralNoPuzzleWords), 20);

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    g_files.reset();
    return 0;
}
