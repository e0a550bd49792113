// The fast puzzle generator; see indexedgenerator.h for how it mirrors the literal search.
#include "core/indexedgenerator.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/eventpump.h"
#include "core/generatorwords.h"
#include "core/stargrid.h"

#include <algorithm>
#include <array>

namespace {

constexpr quint32 kRemovedStamp = std::numeric_limits<quint32>::max();
// Removed entries pile up as dead weight in the keyed lists; past this share, rebuild.
constexpr int kRebuildShare = 8;

} // namespace

void IndexedPuzzleGenerator::setEventPump(EventPump* pump) {
    m_pump = pump;
    m_literal.setEventPump(pump);
}

bool IndexedPuzzleGenerator::ensureIndex(const clsSimpleArray& wordList) {
    if (m_index.isBuiltFor(wordList) &&
        m_index.removedCount() * kRebuildShare <= m_index.entryCount())
        return true;
    m_statistics.indexBuilt = true;
    m_wordIds.clear();
    m_wordNumbers.clear();
    if (!m_index.build(wordList))
        return false;
    m_marks.assign(static_cast<size_t>(m_index.entryCount()), 0);
    m_exhausted.assign(static_cast<size_t>(m_index.alphabetSize()), 0);
    m_wordIds.assign(static_cast<size_t>(m_index.entryCount()), -1);
    m_stamp = 0;
    return true;
}

void IndexedPuzzleGenerator::startAttempt() {
    if (++m_stamp == kRemovedStamp) { // after four billion attempts: start the stamps afresh
        for (quint32& stamp : m_marks) {
            if (stamp != kRemovedStamp)
                stamp = 0;
        }
        std::fill(m_exhausted.begin(), m_exhausted.end(), 0);
        m_stamp = 1;
    }
    m_second = m_third = m_first = -1;
    m_secondUpTo = m_thirdUpTo = -1;
}

GenerationResult IndexedPuzzleGenerator::generate(clsSimpleArray& wordList, StarGrid& grid) {
    m_statistics = {};
    grid.clearSolution();
    if (wordList.ListCount() == 0)
        return {};
    if (!ensureIndex(wordList))
        return m_literal.generate(wordList, grid);

    bool lastWasLiteral = false;
    int index = 0; // the root's position in the list
    for (int root = 0; root < m_index.entryCount(); ++root) {
        if (!m_index.alive(root))
            continue;
        ++m_statistics.attempts;
        if (m_pump)
            m_pump->poll(); // the marks are clear: the point where the literal search polls
        Outcome outcome = m_index.plain(root) ? attempt(wordList, grid, root) : Outcome::Literal;
        lastWasLiteral = outcome == Outcome::Literal;
        if (lastWasLiteral) {
            ++m_statistics.literalAttempts;
            outcome =
                m_literal.attempt(wordList, grid, index) ? Outcome::Succeeded : Outcome::Failed;
        }
        if (outcome == Outcome::Succeeded) {
            if (!lastWasLiteral)
                writeMarks(wordList);
            const QString rootEntry = wordList.List(index);
            wordList.RemoveItem(index);
            m_index.remove(root);
            m_index.setRevision(wordList.revision());
            m_marks[static_cast<size_t>(root)] = kRemovedStamp;
            grid.SelectedWord = -1;
            return {true, rootEntry, index};
        }
        if (lastWasLiteral)
            grid.clearSolution();
        ++index;
    }
    if (!lastWasLiteral)
        writeMarks(wordList);
    return {};
}

IndexedPuzzleGenerator::Outcome IndexedPuzzleGenerator::attempt(const clsSimpleArray& wordList,
                                                                StarGrid& grid, int root) {
    startAttempt();
    const WordIndex::Letters rootLetters = m_index.letters(root);
    const Letter c1 = rootLetters[0];
    const Letter c2 = rootLetters[1];
    const Letter c3 = rootLetters[2];
    const Letter c4 = rootLetters[3];
    m_second = c2;
    m_third = c3;

    // Second, third and fourth words (lines 0-2-5-8, 0-3-6-9, 4-6-7-8).
    int second = kNoEntry;
    int third = kNoEntry;
    int fourth = kNoEntry;
    for (const int group : m_index.firstTwoGroupsWithSecond(c2)) {
        const int head = m_index.firstAlive(group);
        if (head < 0)
            break; // groups without live entries come last
        // Every entry with the second letter before this one has been tried or was marked.
        m_secondUpTo = head;
        if (!m_index.plain(head))
            return Outcome::Literal;
        const Letter c0 = m_index.letters(head)[0];
        const Letter c8 = m_index.letters(head)[3];
        const int thirdGroup =
            m_index.byFirstTwo().findGroup(m_index.byFirstTwo().keyOf({c0, c3, 0, 0}));
        if (thirdGroup >= 0) {
            m_first = c0;
            // When the root's second and third letters agree, this second word is the first
            // entry of its own third-word list, and already marked: the first unmarked entry
            // with its three letters stands for its third letter instead.
            const bool skipHead = c2 == c3;
            int replacement = skipHead ? m_index.nextWithSameFirstThree(head) : kNoEntry;
            const std::span<const int> heads = m_index.thirdLetterHeads(thirdGroup);
            size_t k = 0;
            for (;;) {
                if (skipHead && k < heads.size() && heads[k] == head)
                    ++k;
                int candidate;
                if (replacement >= 0 && (k >= heads.size() || replacement < heads[k])) {
                    candidate = replacement;
                    replacement = kNoEntry;
                } else if (k < heads.size()) {
                    candidate = heads[k++];
                } else {
                    break;
                }
                if (!m_index.plain(candidate))
                    return Outcome::Literal;
                m_thirdUpTo = candidate;
                const Letter c6 = m_index.letters(candidate)[2];
                fourth = findByFirstTwoAndLast(c4, c6, c8);
                if (fourth >= 0) {
                    third = candidate;
                    break;
                }
            }
            if (fourth >= 0) {
                second = head;
                break;
            }
        }
        m_exhausted[c0] = m_stamp;
        m_first = -1;
        m_thirdUpTo = -1;
    }
    if (fourth < 0) {
        m_secondUpTo = kAll; // the second-word loop ran through all its entries
        return Outcome::Failed;
    }
    mark(fourth);
    if (!m_index.plain(fourth))
        return Outcome::Literal;

    const WordIndex::Letters& w2 = m_index.letters(second);
    const WordIndex::Letters& w3 = m_index.letters(third);
    const Letter c0 = w2[0];
    const Letter c5 = w2[2];
    const Letter c8 = w2[3];
    const Letter c6 = w3[2];
    const Letter c9 = w3[3];
    const Letter c7 = m_index.letters(fourth)[2];

    // Fifth word (line 1-5-7-9): both directions are always searched, and both mark.
    const int forwards = findByAllFour(c1, c5, c7, c9);
    if (forwards >= 0)
        mark(forwards);
    const int backwards = findByAllFour(c9, c7, c5, c1);
    if (backwards >= 0)
        mark(backwards);
    if (forwards < 0 && backwards < 0)
        return Outcome::Failed;
    const int fifth = forwards >= 0 ? forwards : backwards;

    std::array<int, StarGrid::CandidateCount> words{};
    std::array<int, StarGrid::CandidateCount> entries = {root, second, third, fourth, fifth};
    size_t held = 0;
    auto holds = [&](int word) {
        return std::find(words.begin(), words.begin() + held, word) != words.begin() + held;
    };
    for (; held < 5; ++held) {
        const int word = wordId(wordList, entries[held]);
        if (holds(word))
            return Outcome::Failed;
        words[held] = word;
    }

    // Decoys: first letter and last letter of lines 0-2-5-8, 0-3-6-9 and 1-2-3-4.
    const std::array<std::array<Letter, 2>, 3> decoyEnds = {{{c0, c8}, {c0, c9}, {c1, c4}}};
    for (const auto& [first, last] : decoyEnds) {
        const int decoy = findByFirstAndLast(first, last);
        if (decoy < 0)
            return Outcome::Failed;
        mark(decoy);
        const int word = wordId(wordList, decoy);
        if (holds(word))
            return Outcome::Failed;
        entries[held] = decoy;
        words[held++] = word;
    }

    const std::array<Letter, StarGrid::CellCount> cells = {c0, c1, c2, c3, c4, c5, c6, c7, c8, c9};
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        grid.SolutionLetters[p] = letterText(cells[static_cast<size_t>(p - 1)]);
    WorkingList working;
    for (size_t k = 0; k < entries.size(); ++k) {
        const QString word = realSpelling(wordList.List(m_index.currentIndex(entries[k])));
        if (k < 5)
            working.addSolutionWord(word);
        else
            working.addDecoy(word);
    }
    publishCandidates(working, grid);
    return Outcome::Succeeded;
}

int IndexedPuzzleGenerator::rangeBound(int first, int second) const {
    int bound = -1;
    if (second == m_second)
        bound = std::max(bound, m_secondUpTo);
    if (second == m_third) {
        if (exhausted(first))
            return kAllMarked;
        if (first == m_first)
            bound = std::max(bound, m_thirdUpTo);
    }
    return bound;
}

bool IndexedPuzzleGenerator::marked(int id) const {
    if (markedSingly(id))
        return true;
    if (!m_index.hasLetters(id))
        return false;
    const WordIndex::Letters& letters = m_index.letters(id);
    const int bound = rangeBound(letters[0], letters[1]);
    return bound == kAllMarked || id <= bound;
}

int IndexedPuzzleGenerator::firstUnmarked(std::span<const int> ids, int first, int second) const {
    const int bound = rangeBound(first, second);
    if (bound == kAllMarked)
        return kNoEntry;
    auto it = std::upper_bound(ids.begin(), ids.end(), bound);
    while (it != ids.end() && markedSingly(*it))
        ++it;
    return it == ids.end() ? kNoEntry : *it;
}

int IndexedPuzzleGenerator::findByFirstTwoAndLast(int l0, int l1, int l3) const {
    const KeyedEntryLists& lists = m_index.byFirstTwoAndLast();
    const int g = lists.findGroup(lists.keyOf(
        {static_cast<Letter>(l0), static_cast<Letter>(l1), 0, static_cast<Letter>(l3)}));
    return g < 0 ? kNoEntry : firstUnmarked(lists.group(g), l0, l1);
}

int IndexedPuzzleGenerator::findByAllFour(int l0, int l1, int l2, int l3) const {
    const KeyedEntryLists& lists = m_index.byAllFour();
    const int g = lists.findGroup(lists.keyOf({static_cast<Letter>(l0), static_cast<Letter>(l1),
                                               static_cast<Letter>(l2), static_cast<Letter>(l3)}));
    return g < 0 ? kNoEntry : firstUnmarked(lists.group(g), l0, l1);
}

int IndexedPuzzleGenerator::findByFirstAndLast(int l0, int l3) const {
    const KeyedEntryLists& lists = m_index.byFirstAndLast();
    const int g =
        lists.findGroup(lists.keyOf({static_cast<Letter>(l0), 0, 0, static_cast<Letter>(l3)}));
    if (g < 0)
        return kNoEntry;
    for (const int id : lists.group(g)) {
        if (!marked(id))
            return id;
    }
    return kNoEntry;
}

int IndexedPuzzleGenerator::wordId(const clsSimpleArray& wordList, int id) {
    int& number = m_wordIds[static_cast<size_t>(id)];
    if (number < 0) {
        const QString key = upperCodePoints(realSpelling(wordList.List(m_index.currentIndex(id))));
        number = m_wordNumbers.value(key, -1);
        if (number < 0) {
            number = static_cast<int>(m_wordNumbers.size());
            m_wordNumbers.insert(key, number);
        }
    }
    return number;
}

QString IndexedPuzzleGenerator::letterText(Letter letter) const {
    const char32_t c = m_index.codePoint(letter);
    return QString::fromUcs4(&c, 1);
}

void IndexedPuzzleGenerator::writeMarks(clsSimpleArray& wordList) const {
    int index = 0;
    for (int id = 0; id < m_index.entryCount(); ++id) {
        if (m_index.alive(id))
            wordList.ItemData(index++, marked(id) ? 1 : 0);
    }
}
