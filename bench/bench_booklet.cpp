// Puzzle booklets as a user makes them: the pentalink-gen command writing a 100-puzzle booklet
// (4 puzzles to a page, the answers at the back) from the shipped dictionary, timed from the
// process start to its end (Qt's start, the dictionary load, 100 create requests, composing
// and painting 34 pages into the PDF file). The "bytes" counter is the file's size.
#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

void booklet(benchmark::State& state) {
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("booklet.pdf"));
    const QStringList arguments = {QStringLiteral("--dictionary=" PENTALINK_SHIPPED_DICTIONARY),
                                   QStringLiteral("--count=%1").arg(state.range(0)),
                                   QStringLiteral("--seed=7"), QStringLiteral("--per-page=4"),
                                   QStringLiteral("--booklet=") + pdf};
    for (auto _ : state) {
        QProcess process;
        process.start(QStringLiteral(PENTALINK_GEN_PATH), arguments);
        if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit ||
            process.exitCode() != 0) {
            state.SkipWithError(process.readAllStandardError().constData());
            return;
        }
    }
    state.counters["bytes"] = double(QFileInfo(pdf).size());
}

} // namespace

BENCHMARK(booklet)
    ->Name("Booklet/shipped/4_per_page")
    ->Arg(100)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
