// pentalink-gen: makes puzzles from a dictionary without the game's window, for puzzle
// setters and for testing. Each request behaves like one click on the create button.
#include "genoptions.h"
#include "genoutput.h"

#include "core/appfolder.h"
#include "core/puzzlesession.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

namespace {

constexpr int kUsageError = 2;

int usageError(const QString& message) {
    QTextStream err(stderr);
    err << "pentalink-gen: " << message << "\nTry 'pentalink-gen --help'.\n";
    return kUsageError;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    // The game's name, so both programs share one per-user program folder.
    QCoreApplication::setApplicationName(QStringLiteral("pentalink"));
    const GenParseResult parsed = parseGenOptions(QCoreApplication::arguments());
    if (parsed.status == GenParseResult::Status::Print) {
        QTextStream(stdout) << parsed.message;
        return 0;
    }
    if (parsed.status == GenParseResult::Status::Error)
        return usageError(parsed.message);
    const GenOptions& options = parsed.options;
    if (const QString problem = homeVariableProblem(); !problem.isEmpty())
        return usageError(problem);

    const QString path = options.dictionary.isEmpty() ? AppFolder() + QStringLiteral("english1.txt")
                                                      : options.dictionary;
    PuzzleSession session(nullptr);
    session.eventPump().setAction({});
    if (options.seed)
        session.random().seed(*options.seed);
    session.dictionary().setShuffled(options.shuffle);
    session.setDictionaryPath(path);
    if (!session.LoadDictionary(path)) {
        return usageError(QStringLiteral("cannot read the dictionary \"%1\": %2")
                              .arg(path, session.dictionary().errorString()));
    }
    if (session.WordList().ListCount() == 0)
        return usageError(
            QStringLiteral("the dictionary \"%1\" has no four-character lines").arg(path));

    QTextStream out(stdout);
    for (int n = 1; n <= options.count; ++n) {
        const bool ok = session.createPuzzle() == PuzzleSession::CreateOutcome::Created;
        const int listCount = session.WordList().ListCount();
        if (options.format == GenOptions::Format::Json)
            out << puzzleJson(ok, session.lastGeneration(), session.grid(), listCount) << '\n';
        else if (ok)
            out << puzzleText(n, session.lastGeneration(), session.grid(), listCount);
        else
            out << failureText(n, listCount);
        out.flush();
    }
    return 0;
}
