// The puzzle side of the main window: owns the word list, the puzzle record, the random
// generator and the current dictionary path, and carries out the create command and the
// dictionary command. The window applies what a command means for the board itself (from the
// results and the search hook below), listens to the signals for the status label and the
// wait pointer, and asks the player through the Notifier.
//
// Long work lets pending window events run, so a click can arrive while a create request or a
// load is still running: such requests (create, or choosing a dictionary) are ignored until
// the running one has finished (isBusy()).
#pragma once

#include "core/clssimplearray.h"
#include "core/dictionary.h"
#include "core/eventpump.h"
#include "core/puzzlegenerator.h"
#include "core/randomsource.h"
#include "core/stargrid.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class Notifier;

class PuzzleSession : public QObject {
    Q_OBJECT

public:
    enum class CreateOutcome {
        Ignored,      // another request was still running
        NoDictionary, // the word list was empty: "No Dictioary Loaded"
        Failed,       // no puzzle: the four-line message, then the dictionary was reloaded
        Created,      // a puzzle is in grid()
        Abandoned,    // the search was abandoned (abandonSearch()): no message, no reload
    };

    // notifier: where messages go (null: nowhere). The event pump lets
    // QCoreApplication::processEvents() run at most every few milliseconds; the generator is
    // the indexed one (IndexedPuzzleGenerator) and the random source is seeded from the system.
    explicit PuzzleSession(Notifier* notifier, QObject* parent = nullptr);
    ~PuzzleSession() override;

    clsSimpleArray& WordList() { return m_wordList; }
    const clsSimpleArray& WordList() const { return m_wordList; }
    StarGrid& grid() { return m_grid; }
    const StarGrid& grid() const { return m_grid; }
    RandomSource& random() { return m_random; }
    EventPump& eventPump() { return m_pump; }
    DictionaryLoader& dictionary() { return m_loader; }
    const DictionaryLoader& dictionary() const { return m_loader; }

    // The dictionary that reloads read. Setting it loads nothing.
    QString DictionaryPath() const { return m_dictionaryPath; }
    void setDictionaryPath(const QString& path) { m_dictionaryPath = path; }

    bool isBusy() const { return m_busy > 0; }

    // Asks the running command to stop (the window is closing). A create request stops
    // before the generator's next attempt and returns Abandoned: the word list and the
    // dictionary stay as they were, no message is shown, and the board is enabled again with
    // empty tiles. A load stops at its next poll of the event pump, without a message: the
    // list stays as it was while the file is still being read, and is left empty when the
    // new list was already being built. Nothing happens when nothing runs.
    void abandonWork();
    // The same for a create request only: a load runs on to its end.
    void abandonSearch();

    // Loads `path` into the word list (start-up, reloads). On failure the notifier names the
    // file and the word list and status keep their previous values. Returns success.
    bool LoadDictionary(const QString& path);

    // The dictionary command once the player has picked `path`: "" (cancelled) changes
    // nothing. On a successful load DictionaryPath() becomes `path` and the result is true
    // (the caller then clears the board); on failure everything keeps its previous value.
    // Ignored (false) while busy.
    bool openDictionary(const QString& path);

    // Told true just before the search for a puzzle starts (the board goes blank and takes no
    // clicks) and false as soon as it has ended, whatever its outcome.
    using SearchHook = std::function<void(bool searching)>;

    // The create command. `onSearch` (may be empty) brackets the search; it is not called
    // when the request is ignored or no dictionary is loaded. On Created the caller puts the
    // new puzzle (grid()) on the board.
    CreateOutcome createPuzzle(const SearchHook& onSearch = {});

    // The last generator run of createPuzzle().
    const GenerationResult& lastGeneration() const { return m_lastGeneration; }

Q_SIGNALS:
    // Show (true) or restore (false) the wait pointer.
    void waitPointerChanged(bool waiting);
    // Status label text and tooltip after a successful load.
    void dictionaryStatusChanged(const QString& text, const QString& toolTip);

private:
    bool loadQuietly(const QString& path);

    Notifier* m_notifier;
    clsSimpleArray m_wordList;
    StarGrid m_grid;
    RandomSource m_random;
    EventPump m_pump;
    DictionaryLoader m_loader;
    std::unique_ptr<PuzzleGenerator> m_generator;
    QString m_dictionaryPath;
    GenerationResult m_lastGeneration;
    int m_busy = 0; // commands still running
    bool m_loading = false;
};
