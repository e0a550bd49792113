// pentalink-gen: makes puzzles from a dictionary without the game's window, for puzzle
// setters and for testing. Each request behaves like one click on the create button; the
// puzzles are printed as text or JSON lines, or written as a printable booklet.
#include "genbooklet.h"
#include "genoptions.h"
#include "genoutput.h"

#include "core/appfolder.h"
#include "core/puzzlesession.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTextStream>

#include <csignal>
#include <cstdio>
#include <memory>
#include <random>

namespace {

constexpr int kUsageError = 2;

// Every failure is one line on standard error.
int inputError(const QString& message) {
    QTextStream(stderr) << "pentalink-gen: " << message << '\n';
    return kUsageError;
}

int usageError(const QString& message) {
    return inputError(message + QStringLiteral(" Try 'pentalink-gen --help'."));
}

// Qt's notes on a GUI start without a session (no runtime folder, ...) would spoil the one-line
// messages of a command-line tool; its criticals still come through.
void quietQtNotes(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        QTextStream(stderr) << message << '\n';
}

QStringList argumentList(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

// Makes the booklet from `session`'s successive requests; stops at the first request that
// gives no puzzle, since the dictionary reload that follows a failure could repeat puzzles.
int makeBooklet(const GenOptions& options, PuzzleSession& session, quint64 seed,
                const QString& path) {
    QList<SheetContent> puzzles;
    while (puzzles.size() < options.count &&
           session.createPuzzle() == PuzzleSession::CreateOutcome::Created)
        puzzles.append(bookletContent(session.grid()));
    const int made = int(puzzles.size());
    if (made == 0)
        return inputError(
            QStringLiteral("the dictionary \"%1\" gives no puzzle; no booklet written").arg(path));
    const QString error = writeBooklet(options, puzzles, closingLines(options, seed, made));
    if (!error.isEmpty())
        return inputError(error);
    if (made < options.count)
        QTextStream(stderr) << QStringLiteral("pentalink-gen: the dictionary \"%1\" gave %2 of "
                                              "the %3 puzzles asked for; the booklet holds %2\n")
                                   .arg(path)
                                   .arg(made)
                                   .arg(options.count);
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    const GenParseResult parsed = parseGenOptions(argumentList(argc, argv));
    if (parsed.status == GenParseResult::Status::Print) {
        QTextStream(stdout) << parsed.message;
        return 0;
    }
    if (parsed.status == GenParseResult::Status::Error)
        return usageError(parsed.message);
    const GenOptions& options = parsed.options;
    if (const QString problem = homeVariableProblem(); !problem.isEmpty())
        return usageError(problem);
    const bool booklet = !options.booklet.isEmpty();

    // Only a booklet paints, and painting needs the GUI part of Qt (fonts), never a window.
    if (booklet) {
        useOffscreenPlatform();
        qInstallMessageHandler(quietQtNotes);
        // Under a file-size limit the write then fails like one on a full disk, with a message
        // and no file, instead of the signal ending the program half way.
        std::signal(SIGXFSZ, SIG_IGN);
    }
    const std::unique_ptr<QCoreApplication> app =
        booklet ? std::make_unique<QGuiApplication>(argc, argv)
                : std::make_unique<QCoreApplication>(argc, argv);
    // The game's name, so both programs share one per-user program folder.
    QCoreApplication::setApplicationName(QStringLiteral("pentalink"));

    const QString path = options.dictionary.isEmpty() ? AppFolder() + QStringLiteral("english1.txt")
                                                      : options.dictionary;
    PuzzleSession session(nullptr);
    session.eventPump().setAction({});
    // A booklet prints its seed, so it needs one even when none was given.
    std::optional<quint64> seed = options.seed;
    if (booklet && !seed) {
        std::random_device device;
        seed = (quint64(device()) << 32) | device();
    }
    if (seed)
        session.random().seed(*seed);
    session.dictionary().setShuffled(options.shuffle);
    session.setDictionaryPath(path);
    if (!session.LoadDictionary(path)) {
        return inputError(QStringLiteral("cannot read the dictionary \"%1\": %2")
                              .arg(path, session.dictionary().errorString()));
    }
    if (session.WordList().ListCount() == 0)
        return inputError(
            QStringLiteral("the dictionary \"%1\" has no four-character lines").arg(path));
    if (booklet)
        return makeBooklet(options, session, *seed, path);

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
