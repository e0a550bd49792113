// The rules of play; see playboard.h.
#include "board/playboard.h"

#include "board/messagegate.h"
#include "core/codepoints.h"
#include "core/eventpump.h"
#include "core/scopedcount.h"
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

PlayBoard::PlayBoard(const StarGrid& grid, MessageGate& messages, EventPump* pump, QObject* parent)
    : QObject(parent)
    , m_grid(grid)
    , m_messages(messages)
    , m_pump(pump) {}

bool PlayBoard::apply(const Move& move) {
    const BoardState before = m_state;
    play(move);
    const bool differs = !(m_state == before);
    if (differs)
        Q_EMIT changed();
    return differs;
}

void PlayBoard::play(const Move& move) {
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
    case MoveKind::SearchStarted:
        searchStarted();
        break;
    case MoveKind::SearchEnded:
        m_state.searching = false;
        break;
    case MoveKind::NewPuzzle:
        newPuzzle();
        break;
    case MoveKind::DictionaryLoaded:
        dictionaryLoaded();
        break;
    }
}

// --- Letter entry -------------------------------------------------------------------------

void PlayBoard::tileClick(int i) {
    if (!validTile(i) || m_state.solutionShown)
        return;
    TileState& tile = m_state.tiles[i];
    if (!tile.enabled || tile.word.isEmpty() || tile.status == TileStatus::Placed)
        return;
    resetTileLooks();
    m_state.SelectedWord = i;
    tile.status = TileStatus::Selected;
}

void PlayBoard::markerClick(int k) {
    if (!validMarker(k) || m_state.solutionShown || m_state.searching)
        return;
    const int selected = m_state.SelectedWord;
    bool allEmpty = true;
    for (const int cell : m_grid.cellsOf(k))
        allEmpty = allEmpty && m_state.Entries[cell].isEmpty();

    // The tests run in this order on purpose: a placed word fills its cells, so a click on
    // its marker never counts as an empty reading and always takes the word off, whatever
    // is selected.
    if (selected != BoardState::NoSelection && allEmpty) {
        // A selection can outlive its tile's word (the board was cleared or a create request
        // emptied the tiles): there is no word to write then.
        if (m_state.tiles[selected].word.isEmpty())
            return;
        writeWord(k);
        return;
    }
    if (m_state.placedTile[k] != BoardState::NoTile) {
        removeWord(k);
        return;
    }
    // Some cells hold letters: every one must agree, else nothing changes and the selection
    // stays.
    if (selected != BoardState::NoSelection && wordAgrees(k, m_state.tiles[selected].word))
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
    const int i = m_state.SelectedWord;
    TileState& tile = m_state.tiles[i];
    m_state.placedTile[k] = i;
    const auto cells = m_grid.cellsOf(k);
    for (int n = 1; n <= 4; ++n)
        m_state.Entries[cells[n - 1]] = characterAt(tile.word, n);
    tile.status = TileStatus::Placed;
    tile.reading = k;
    m_state.SelectedWord = BoardState::NoSelection;
}

void PlayBoard::removeWord(int k) {
    const int t = m_state.placedTile[k];
    TileState& tile = m_state.tiles[t];
    tile.word = m_grid.CandidateWords[t];
    m_state.placedTile[k] = BoardState::NoTile;
    for (const int cell : m_grid.cellsOf(k))
        m_state.Entries[cell].clear();
    // The removed word becomes the selected word, and its tile shows it: the next marker click
    // places it again, so the player must see which word that will be.
    m_state.SelectedWord = t;
    tile.reading = 0;
    tile.status = TileStatus::Available;
    showSelection();
    // Puts back the letters of crossing words that emptying the cells took away.
    redrawPlacedWords();
}

void PlayBoard::redrawPlacedWords() {
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        const int i = m_state.placedTile[k];
        if (i == BoardState::NoTile)
            continue;
        const auto cells = m_grid.cellsOf(k);
        for (int n = 1; n <= 4; ++n)
            m_state.Entries[cells[n - 1]] = characterAt(m_state.tiles[i].word, n);
    }
}

// Exactly the selected word's tile shows the selected look (none without a selection);
// placed tiles stay placed.
void PlayBoard::showSelection() {
    resetTileLooks();
    const int i = m_state.SelectedWord;
    if (validTile(i) && m_state.tiles[i].status == TileStatus::Available &&
        !m_state.tiles[i].word.isEmpty())
        m_state.tiles[i].status = TileStatus::Selected;
}

// No tile keeps the selected look; placed tiles stay placed.
void PlayBoard::resetTileLooks() {
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        TileState& tile = m_state.tiles[i];
        if (tile.status == TileStatus::Selected)
            tile.status = TileStatus::Available;
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
        m_state.tiles[i].decoyRevealed = m_grid.DecoyFlags[i] == 1;
    m_state.solutionShown = true;
}

void PlayBoard::solutionRelease() {
    // Without a press there are no saved letters to put back.
    if (!puzzleExists() || !m_state.solutionShown)
        return;
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        m_state.Entries[p - 1] = m_state.SavedEntries[p];
    // The selection stays and stays visible: a marker click still places it.
    showSelection();
    endSolutionDisplay();
    setCheckRunning(true);
}

void PlayBoard::endSolutionDisplay() {
    m_state.solutionShown = false;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        m_state.tiles[i].decoyRevealed = false;
}

void PlayBoard::emptyCellsAndLinks() {
    for (int c = 0; c < StarGrid::CellCount; ++c) {
        m_state.Entries[c].clear();
        m_state.placedTile[c + 1] = BoardState::NoTile;
    }
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        TileState& tile = m_state.tiles[i];
        tile.reading = 0;
        if (tile.status == TileStatus::Placed)
            tile.status = TileStatus::Available;
    }
}

void PlayBoard::clearEntries() {
    const ScopedCount handler(m_handlerDepth);
    const int answer = m_messages.MsgboxA(kClearQuestion, kClearStyle);
    letEventsRun();
    if (answer != AnswerYes)
        return;
    setCheckRunning(false);
    endSolutionDisplay();
    emptyCellsAndLinks();
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        TileState& tile = m_state.tiles[i];
        tile.status = TileStatus::Available;
        tile.enabled = true;
        tile.word = m_grid.CandidateWords[i];
    }
    m_state.SelectedWord = BoardState::NoSelection;
}

bool PlayBoard::completionTick() {
    if (!m_checkRunning || m_messages.isOpen() || m_handlerDepth > 0)
        return false;
    if (!boardFull() || !puzzleExists())
        return false;
    const ScopedCount handler(m_handlerDepth);
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

// --- The board's part of the create and dictionary commands --------------------------------

void PlayBoard::searchStarted() {
    setCheckRunning(false);
    endSolutionDisplay();
    // The links of tiles and readings go together, so a failed create leaves no one-sided
    // link behind. A selected tile keeps its look on its blank face.
    emptyCellsAndLinks();
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        m_state.tiles[i].word.clear();
        m_state.tiles[i].enabled = false;
    }
    m_state.searching = true;
}

void PlayBoard::newPuzzle() {
    setCheckRunning(false);
    endSolutionDisplay();
    emptyCellsAndLinks();
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        TileState& tile = m_state.tiles[i];
        tile = TileState{};
        tile.word = m_grid.CandidateWords[i];
    }
    m_state.SelectedWord = BoardState::NoSelection;
    m_state.searching = false;
}

void PlayBoard::dictionaryLoaded() {
    // Ends a solution display too: its release must not bring back letters of a board that
    // is gone.
    endSolutionDisplay();
    emptyCellsAndLinks();
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        m_state.tiles[i].word.clear();
        m_state.tiles[i].status = TileStatus::Available;
    }
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

TileState PlayBoard::tile(int i) const {
    return validTile(i) ? m_state.tiles[i] : TileState{};
}

int PlayBoard::markerTag(int k) const {
    return validMarker(k) ? m_state.placedTile[k] : BoardState::NoTile;
}

bool PlayBoard::puzzleExists() const {
    return !m_state.tiles[1].word.isEmpty();
}
