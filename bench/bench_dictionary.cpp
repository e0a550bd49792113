// Dictionary loading: the shipped dictionary, a 16,000-word file and a 100,000-line file, each
// loaded into an empty word list as at start-up (emptying the previous list is not timed).
#include "benchfiles.h"
#include "benchgame.h"

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

void add(const std::string& name, const QString& path) {
    benchmark::RegisterBenchmark(name.c_str(), [path](benchmark::State& s) {
        load(s, path);
    })->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    auto files = std::make_unique<BenchFiles>();
    add("Load/shipped", BenchFiles::shipped());
    add("Load/16k_words", files->words16k());
    add("Load/100k_lines", files->lines100k());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
