// The rules of play; see playboard.h.
#include "board/playboard.h"

#include "board/messagegate.h"
#include "core/codepoints.h"
#include "core/eventpump.h"
#include "core/stargrid.h"

namespace {

const QString kAllDone = QStringLiteral("All Done!");
const QString kAllDoneStyle = QStringLiteral("vbhappy+vbok");
const QString kClearQuestion = QStringLiteral("Clear all User Entries?");
const QString kClearStyle = QStringLiteral("vbQuestion + vbYesNo");

// Character n (1-based, counted in code points) of `word`, or "" past its end.
QString characterAt(const QString& word, int n) {
    qsizetype i = 0;
    for (int m = 1; i < word.size(); ++m) {
        const qsizetype start = i;
        nextCodePoint(word, i);
        if (m == n)
            return word.mid(start, i - start);
    }
    return {};
}

bool validTile(int i) {
    return i >= 1 && i <= StarGrid::CandidateCount;
}

bool validMarker(int k) {
    return k >= 1 && k <= StarGrid::DirectionCount;
}

} // namespace

// Marks a handler that shows a message or lets events run, so a tick arriving meanwhile
// holds back.
class PlayBoard::HandlerScope {
public:
    explicit HandlerScope(int& depth)
        : m_depth(depth) {
        ++m_depth;
    }
    ~HandlerScope() { --m_depth; }
    HandlerScope(const HandlerScope&) = delete;
    HandlerScope& operator=(const HandlerScope&) = delete;

private:
    int& m_depth;
};

PlayBoard::PlayBoard(StarGrid& grid, MessageGate& messages, EventPump* pump, QObject* parent)
    : QObject(parent)
    , m_grid(grid)
    , m_messages(messages)
    , m_pump(pump) {}

template <typename Action> bool PlayBoard::tracked(Action action) {
    const PlayState before = m_state;
    const int selectedBefore = m_grid.SelectedWord;
    action();
    const bool differs = !(m_state == before) || m_grid.SelectedWord != selectedBefore;
    if (differs)
        Q_EMIT changed();
    return differs;
}

bool PlayBoard::apply(const Move& move) {
    return tracked([&] {
        switch (move.kind) {
        case MoveKind::TileClick:
            tileClick(move.index);
            break;
        case MoveKind::MarkerClick:
            markerClick(move.index);
            break;
        case MoveKind::SolutionPress:
            solutionPress();
            break;
        case MoveKind::SolutionRelease:
            solutionRelease();
            break;
        case MoveKind::ClearEntries:
            clearEntries();
            break;
        }
    });
}

// --- Letter entry -------------------------------------------------------------------------

void PlayBoard::tileClick(int i) {
    if (!validTile(i) || m_state.solutionShown)
        return;
    Tile& tile = m_state.tiles[i];
    if (!tile.look.enabled || tile.caption.isEmpty() || tile.placedOn != PlayState::kNone)
        return;
    resetTileLooks();
    m_grid.SelectedWord = i;
    tile.look.border = TileBorder::Flat;
}

void PlayBoard::markerClick(int k) {
    if (!validMarker(k) || m_state.solutionShown)
        return;
    const int selected = SelectedWord();
    bool allEmpty = true;
    for (const int cell : m_grid.cellsOf(k))
        allEmpty = allEmpty && m_state.Entries[cell].isEmpty();

    // The tests run in this order on purpose: a placed word fills its cells, so a click on
    // its marker never counts as an empty reading and always takes the word off, whatever
    // is selected.
    if (selected != -1 && allEmpty) {
        // A selection can outlive its tile's caption (the board was cleared or a create
        // request emptied the tiles): there is no word to write then.
        if (m_state.tiles[selected].caption.isEmpty())
            return;
        writeWord(k);
        return;
    }
    if (m_state.markerTags[k] != PlayState::kNone) {
        removeWord(k);
        return;
    }
    // Some cells hold letters: every one must agree, else nothing changes and the selection
    // stays.
    if (selected != -1 && wordAgrees(k, m_state.tiles[selected].caption))
        writeWord(k);
}

bool PlayBoard::wordAgrees(int k, const QString& word) const {
    const auto cells = m_grid.cellsOf(k);
    for (int n = 1; n <= 4; ++n) {
        const QString& letter = m_state.Entries[cells[n - 1]];
        if (!letter.isEmpty() && letter != characterAt(word, n))
            return false;
    }
    return true;
}

void PlayBoard::writeWord(int k) {
    const int i = SelectedWord();
    Tile& tile = m_state.tiles[i];
    m_state.markerTags[k] = i;
    const auto cells = m_grid.cellsOf(k);
    for (int n = 1; n <= 4; ++n)
        m_state.Entries[cells[n - 1]] = characterAt(tile.caption, n);
    tile.look.border = TileBorder::Sunken;
    tile.look.text = TileText::Faded;
    tile.placedOn = k;
    m_grid.SelectedWord = -1;
}

void PlayBoard::removeWord(int k) {
    const int t = m_state.markerTags[k];
    Tile& tile = m_state.tiles[t];
    tile.caption = m_grid.CandidateWords[t];
    m_state.markerTags[k] = PlayState::kNone;
    for (const int cell : m_grid.cellsOf(k))
        m_state.Entries[cell].clear();
    // The removed word becomes the selected word, but its tile shows the available look.
    m_grid.SelectedWord = t;
    resetTileLooks();
    tile.look.border = TileBorder::Sunken;
    tile.placedOn = PlayState::kNone;
    tile.look.text = TileText::Normal;
    // Puts back the letters of crossing words that emptying the cells took away.
    redrawPlacedWords();
}

void PlayBoard::RedrawPlacedWords() {
    tracked([this] { redrawPlacedWords(); });
}

void PlayBoard::redrawPlacedWords() {
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        const int i = m_state.markerTags[k];
        if (i == PlayState::kNone)
            continue;
        const auto cells = m_grid.cellsOf(k);
        for (int n = 1; n <= 4; ++n)
            m_state.Entries[cells[n - 1]] = characterAt(m_state.tiles[i].caption, n);
    }
}

void PlayBoard::resetTileLooks() {
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        TileLook& look = m_state.tiles[i].look;
        look.border = TileBorder::Sunken;
        look.text =
            m_state.tiles[i].placedOn != PlayState::kNone ? TileText::Faded : TileText::Normal;
    }
}

// --- Solution, clearing, completion ---------------------------------------------------------

void PlayBoard::solutionPress() {
    // A second press (another mouse button) while the solution shows would save the solution
    // letters over the player's.
    if (!puzzleExists() || m_state.solutionShown)
        return;
    setCheckRunning(false);
    for (int p = 1; p <= StarGrid::CellCount; ++p) {
        m_state.SavedEntries[p] = m_state.Entries[p - 1];
        m_state.Entries[p - 1] = m_grid.SolutionLetters[p];
    }
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        m_state.tiles[i].look.struckOut = m_grid.DecoyFlags[i] == 1;
    m_state.solutionShown = true;
}

void PlayBoard::solutionRelease() {
    // Without a press there are no saved letters to put back.
    if (!puzzleExists() || !m_state.solutionShown)
        return;
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        m_state.Entries[p - 1] = m_state.SavedEntries[p];
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        TileLook& look = m_state.tiles[i].look;
        look.border = TileBorder::Sunken;
        look.struckOut = false;
        if (m_state.tiles[i].placedOn != PlayState::kNone)
            look.text = TileText::Faded;
    }
    m_state.solutionShown = false;
    setCheckRunning(true);
}

void PlayBoard::endSolutionDisplay() {
    m_state.solutionShown = false;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        m_state.tiles[i].look.struckOut = false;
}

void PlayBoard::clearEntries() {
    const HandlerScope handler(m_handlerDepth);
    const int answer = m_messages.MsgboxA(kClearQuestion, kClearStyle);
    letEventsRun();
    if (answer != AnswerYes)
        return;
    setCheckRunning(false);
    endSolutionDisplay();
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        Tile& tile = m_state.tiles[i];
        tile.look.border = TileBorder::Sunken;
        tile.placedOn = PlayState::kNone;
        tile.look.text = TileText::Normal;
        tile.look.enabled = true;
        tile.caption = m_grid.CandidateWords[i];
    }
    m_grid.SelectedWord = -1;
    for (int c = 0; c < StarGrid::CellCount; ++c) {
        m_state.Entries[c].clear();
        m_state.markerTags[c + 1] = PlayState::kNone;
    }
}

bool PlayBoard::completionTick() {
    if (!m_checkRunning || m_messages.isOpen() || m_handlerDepth > 0)
        return false;
    if (!boardFull() || !puzzleExists())
        return false;
    const HandlerScope handler(m_handlerDepth);
    // Off before the message, so no tick during the message can show it a second time.
    setCheckRunning(false);
    m_messages.MsgboxA(kAllDone, kAllDoneStyle);
    letEventsRun();
    return true;
}

bool PlayBoard::boardFull() const {
    for (const QString& letter : m_state.Entries) {
        if (letter.isEmpty())
            return false;
    }
    return true;
}

// --- Hooks of the create and dictionary commands --------------------------------------------

void PlayBoard::generationStarted() {
    tracked([this] {
        setCheckRunning(false);
        endSolutionDisplay();
        for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
            Tile& tile = m_state.tiles[i];
            tile.caption.clear();
            tile.placedOn = PlayState::kNone;
            tile.look.enabled = false;
        }
        // The marker links go with the tile links, so a failed create leaves no one-sided
        // link behind.
        for (int c = 0; c < StarGrid::CellCount; ++c) {
            m_state.Entries[c].clear();
            m_state.markerTags[c + 1] = PlayState::kNone;
        }
    });
}

void PlayBoard::puzzleCreated() {
    tracked([this] {
        setCheckRunning(false);
        endSolutionDisplay();
        for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
            Tile& tile = m_state.tiles[i];
            tile.caption = m_grid.CandidateWords[i];
            tile.placedOn = PlayState::kNone;
            tile.look = TileLook{};
        }
        for (int c = 0; c < StarGrid::CellCount; ++c) {
            m_state.Entries[c].clear();
            m_state.markerTags[c + 1] = PlayState::kNone;
        }
        m_grid.SelectedWord = -1;
    });
}

void PlayBoard::ClearBoard() {
    tracked([this] {
        // Ends a solution display too: its release must not bring back letters of a board
        // that is gone.
        endSolutionDisplay();
        for (int c = 0; c < StarGrid::CellCount; ++c) {
            m_state.Entries[c].clear();
            m_state.markerTags[c + 1] = PlayState::kNone;
        }
        for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
            Tile& tile = m_state.tiles[i];
            tile.placedOn = PlayState::kNone;
            tile.caption.clear();
            tile.look.border = TileBorder::Sunken;
        }
    });
}

void PlayBoard::stopCompletionCheck() {
    setCheckRunning(false);
}

void PlayBoard::setCheckRunning(bool running) {
    if (m_checkRunning == running)
        return;
    m_checkRunning = running;
    Q_EMIT completionCheckChanged(running);
}

void PlayBoard::letEventsRun() {
    if (m_pump)
        m_pump->runNow();
}

// --- Queries -------------------------------------------------------------------------------

QString PlayBoard::cellLetter(int cell) const {
    if (cell < 0 || cell >= StarGrid::CellCount)
        return {};
    return m_state.Entries[cell];
}

Tile PlayBoard::tile(int i) const {
    return validTile(i) ? m_state.tiles[i] : Tile{};
}

int PlayBoard::markerTag(int k) const {
    return validMarker(k) ? m_state.markerTags[k] : PlayState::kNone;
}

int PlayBoard::SelectedWord() const {
    return validTile(m_grid.SelectedWord) ? m_grid.SelectedWord : -1;
}

bool PlayBoard::puzzleExists() const {
    return !m_state.tiles[1].caption.isEmpty();
}
