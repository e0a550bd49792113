// The fast puzzle generator; see indexedgenerator.h for how it mirrors the literal search.
#include "core/indexedgenerator.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/eventpump.h"
#include "core/generatorwords.h"
#include "core/memoryinfo.h"
#include "core/stargrid.h"

#include <algorithm>
#include <array>

namespace {

// Marks are a byte per entry: the stamps of attempts run from 1 to 254 and then start over.
constexpr quint8 kRemovedStamp = 0xFF;
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
    m_wordNumbers.clear();
    m_patterns.clear();
    const bool built = m_index.build(wordList);
    forgetFailures();
    if (!built)
        return false;
    std::vector<quint8>().swap(m_marks); // made by the first attempt on pattern lists
    m_exhausted.assign(static_cast<size_t>(m_index.alphabetSize()), 0);
    m_wordIds.clear();
    m_stamp = 0;
    return true;
}

void IndexedPuzzleGenerator::forgetWordList() {
    EventPump* pump = m_pump;
    *this = IndexedPuzzleGenerator(); // every index and table released, not only emptied
    setEventPump(pump);
    returnFreedMemory();
}

void IndexedPuzzleGenerator::forgetFailures() {
    m_failures.clear();
    m_failureGeneration = 0;
    m_resumeFrom = 0;
    m_retry.clear();
    m_filings.clear();
    m_bySecond.assign(static_cast<size_t>(m_index.alphabetSize()), -1);
    m_bySingle.clear();
    m_steeringPool.clear();
}

void IndexedPuzzleGenerator::startAttempt() {
    if (++m_stamp == kRemovedStamp) { // every 254 attempts: start the stamps afresh
        for (quint8& stamp : m_marks) {
            if (stamp != kRemovedStamp)
                stamp = 0;
        }
        std::fill(m_exhausted.begin(), m_exhausted.end(), 0);
        m_patterns.resetCursors();
        m_stamp = 1;
    }
    m_second = m_third = m_first = -1;
    m_secondUpTo = m_thirdUpTo = -1;
    m_singleCount = 0;
    m_exhaustedLetters.clear();
}

void IndexedPuzzleGenerator::mark(int id) {
    m_singles[static_cast<size_t>(m_singleCount++)] = id;
}

bool IndexedPuzzleGenerator::run(clsSimpleArray& wordList, StarGrid& grid, int root) {
    ++m_statistics.attempts;
    m_mode = Mode::Index;
    Outcome outcome = m_index.plain(root) ? attempt(wordList, grid, root) : Outcome::HandOver;
    if (outcome == Outcome::HandOver) {
        ++m_statistics.patternAttempts;
        m_mode = Mode::Pattern;
        outcome = patternAttempt(wordList, grid, root);
    }
    if (outcome != Outcome::HandOver)
        return outcome == Outcome::Succeeded;
    ++m_statistics.literalAttempts;
    m_mode = Mode::Literal;
    if (m_literal.attempt(wordList, grid, m_index.currentIndex(root)))
        return true;
    grid.clearSolution();
    return false;
}

GenerationResult IndexedPuzzleGenerator::abandon(std::vector<int>& retry, size_t unreachedRetry,
                                                 int resumeFrom, StarGrid& grid) {
    // Every root before the one not run has failed and is remembered or queued again.
    m_retry.insert(m_retry.end(), retry.begin() + static_cast<std::ptrdiff_t>(unreachedRetry),
                   retry.end());
    std::sort(m_retry.begin(), m_retry.end());
    m_retry.erase(std::unique(m_retry.begin(), m_retry.end()), m_retry.end());
    m_resumeFrom = resumeFrom;
    grid.clearSolution();
    return abandonedGeneration();
}

int IndexedPuzzleGenerator::knownFailure(int root) const {
    if (!m_failedSearches.empty() && m_index.hasLetters(root)) {
        const auto it = m_failedSearches.find(m_index.packed(root) & kLastThree);
        if (it != m_failedSearches.end())
            return it->second;
    }
    if (m_index.plain(root))
        return kNoEntry; // cheap attempts: not worth the look-up
    const int length = m_index.regularLength(root);
    if (length == 0)
        return kNoEntry;
    const auto& failed = m_failedTexts[static_cast<size_t>(length - 4)];
    const auto it = failed.find(m_index.packed(root));
    return it == failed.end() ? kNoEntry : it->second;
}

void IndexedPuzzleGenerator::noteFailure(int root) {
    if (m_mode != Mode::Pattern)
        return; // attempts by index are cheap; literal ones are rare
    if (m_searchFailed) {
        m_failedSearches.emplace(m_index.packed(root) & kLastThree, root);
        return;
    }
    const int length = m_index.regularLength(root);
    if (length > 0)
        m_failedTexts[static_cast<size_t>(length - 4)].emplace(m_index.packed(root), root);
}

GenerationResult IndexedPuzzleGenerator::generate(clsSimpleArray& wordList, StarGrid& grid) {
    m_statistics = {};
    grid.clearSolution();
    if (wordList.ListCount() == 0)
        return {};
    if (!ensureIndex(wordList))
        return m_literal.generate(wordList, grid);
    m_failedSearches.clear();
    for (auto& failed : m_failedTexts)
        failed.clear();

    // Roots in list order: first those whose remembered failure was dropped (all before
    // m_resumeFrom), then every root from m_resumeFrom on.
    std::vector<int> retry;
    retry.swap(m_retry);
    size_t nextRetry = 0;
    int nextRoot = m_resumeFrom;
    int lastRun = kNoEntry;
    for (;;) {
        int root;
        const bool fromRetry = nextRetry < retry.size();
        if (fromRetry) {
            root = retry[nextRetry++];
        } else if (nextRoot < m_index.entryCount()) {
            root = nextRoot++;
        } else {
            break;
        }
        if (!m_index.alive(root))
            continue;
        if (const int same = knownFailure(root); same >= 0) {
            ++m_statistics.known;
            copyFailure(root, same);
            continue;
        }
        if (m_pump) {
            m_pump->poll(); // the marks are clear: the point where the literal search polls
            if (m_pump->stopRequested()) {
                return fromRetry ? abandon(retry, nextRetry - 1, m_resumeFrom, grid)
                                 : abandon(retry, nextRetry, root, grid);
            }
        }
        lastRun = root;
        if (!run(wordList, grid, root)) {
            rememberFailure(root);
            noteFailure(root);
            continue;
        }

        // Success: the roots not reached stay as they were.
        m_retry.insert(m_retry.end(), retry.begin() + static_cast<std::ptrdiff_t>(nextRetry),
                       retry.end());
        m_resumeFrom = std::max(m_resumeFrom, root + 1);
        if (m_mode != Mode::Literal)
            writeMarks(wordList);
        const int index = m_index.currentIndex(root);
        const QString rootEntry = wordList.List(index);
        wordList.RemoveItem(index);
        forgetFailuresMarking(root);
        m_index.remove(root);
        m_index.setRevision(wordList.revision());
        if (!m_marks.empty())
            m_marks[static_cast<size_t>(root)] = kRemovedStamp;
        std::sort(m_retry.begin(), m_retry.end());
        m_retry.erase(std::unique(m_retry.begin(), m_retry.end()), m_retry.end());
        m_statistics.remembered = index + 1 - m_statistics.attempts - m_statistics.known;
        return {true, rootEntry, index};
    }

    // Every root failed. The item data must show the marks of the last root's attempt.
    m_resumeFrom = m_index.entryCount();
    m_statistics.remembered = wordList.ListCount() - m_statistics.attempts - m_statistics.known;
    int last = m_index.entryCount() - 1;
    while (last >= 0 && !m_index.alive(last))
        --last;
    if (last != lastRun) {
        run(wordList, grid, last);
        rememberFailure(last);
    }
    if (m_mode != Mode::Literal)
        writeMarks(wordList);
    return {};
}

IndexedPuzzleGenerator::Outcome IndexedPuzzleGenerator::attempt(const clsSimpleArray& wordList,
                                                                StarGrid& grid, int root) {
    startAttempt();
    const Letter c1 = m_index.letter(root, 0);
    const Letter c2 = m_index.letter(root, 1);
    const Letter c3 = m_index.letter(root, 2);
    const Letter c4 = m_index.letter(root, 3);
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
            return Outcome::HandOver;
        const Letter c0 = m_index.letter(head, 0);
        const Letter c8 = m_index.letter(head, 3);
        const int thirdGroup = m_index.byFirstTwo().findGroup(WordIndex::pack(c0, c3, 0, 0));
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
                    return Outcome::HandOver;
                m_thirdUpTo = candidate;
                const Letter c6 = m_index.letter(candidate, 2);
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
        m_exhaustedLetters.push_back(c0);
        m_first = -1;
        m_thirdUpTo = -1;
    }
    if (fourth < 0) {
        m_secondUpTo = kAll; // the second-word loop ran through all its entries
        return Outcome::Failed;
    }
    mark(fourth);
    if (!m_index.plain(fourth))
        return Outcome::HandOver;

    const std::array<Letter, StarGrid::CellCount> cells = starLetters(root, second, third, fourth);
    const Letter c5 = cells[5], c7 = cells[7], c9 = cells[9];

    // Fifth word (line 1-5-7-9): both directions are always searched, and both mark.
    const int forwards = findByAllFour(c1, c5, c7, c9);
    if (forwards >= 0)
        mark(forwards);
    const int backwards = findByAllFour(c9, c7, c5, c1);
    if (backwards >= 0)
        mark(backwards);
    if (forwards < 0 && backwards < 0)
        return Outcome::Failed;

    std::array<int, StarGrid::CandidateCount> entries = {root, second, third, fourth,
                                                         forwards >= 0 ? forwards : backwards};
    return finish(wordList, grid, entries, cells, [this](Letter first, Letter last) {
        const int decoy = findByFirstAndLast(first, last);
        if (decoy >= 0)
            mark(decoy);
        return decoy;
    });
}

std::array<IndexedPuzzleGenerator::Letter, StarGrid::CellCount>
IndexedPuzzleGenerator::starLetters(int root, int second, int third, int fourth) const {
    const auto at = [this](int word, int position) { return m_index.letter(word, position); };
    return {at(second, 0), at(root, 0),  at(root, 1),   at(root, 2),   at(root, 3),
            at(second, 2), at(third, 2), at(fourth, 2), at(second, 3), at(third, 3)};
}

template <typename FindDecoy>
IndexedPuzzleGenerator::Outcome
IndexedPuzzleGenerator::finish(const clsSimpleArray& wordList, StarGrid& grid,
                               std::array<int, StarGrid::CandidateCount>& entries,
                               const std::array<Letter, StarGrid::CellCount>& cells,
                               FindDecoy findDecoy) {
    std::array<int, StarGrid::CandidateCount> words{};
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
    const std::array<std::array<Letter, 2>, 3> decoyEnds = {
        {{cells[0], cells[8]}, {cells[0], cells[9]}, {cells[1], cells[4]}}};
    for (const auto& [first, last] : decoyEnds) {
        const int decoy = findDecoy(first, last);
        if (decoy < 0)
            return Outcome::Failed;
        const int word = wordId(wordList, decoy);
        if (holds(word))
            return Outcome::Failed;
        entries[held] = decoy;
        words[held++] = word;
    }

    for (int p = 1; p <= StarGrid::CellCount; ++p)
        grid.SolutionLetters[p] = m_index.letterText(cells[static_cast<size_t>(p - 1)]);
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

IndexedPuzzleGenerator::Outcome
IndexedPuzzleGenerator::patternAttempt(const clsSimpleArray& wordList, StarGrid& grid, int root) {
    startAttempt();
    if (m_marks.empty()) { // removed entries count as marked for good
        m_marks.resize(static_cast<size_t>(m_index.entryCount()));
        for (int id = 0; id < m_index.entryCount(); ++id)
            m_marks[static_cast<size_t>(id)] = m_index.alive(id) ? 0 : kRemovedStamp;
    }
    m_patterns.setSources(&m_index, &wordList);
    m_patternMarks.clear();
    m_steering.clear();
    m_searchFailed = false;
    if (!m_index.hasLetters(root))
        return Outcome::HandOver;
    using Kind = PatternLists::Kind;
    auto listOf = [&](Kind kind, Letter a, Letter b = 0, Letter c = 0,
                      Letter d = 0) -> PatternLists::List& {
        return m_patterns.list(kind, WordIndex::pack(a, b, c, d));
    };
    auto find = [&](PatternLists::List& list) {
        const int id = m_patterns.find(list, m_marks, m_stamp);
        if (id >= 0)
            m_patternMarks.push_back(id);
        return id;
    };
    const Letter c1 = m_index.letter(root, 0);
    const Letter c2 = m_index.letter(root, 1);
    const Letter c3 = m_index.letter(root, 2);
    const Letter c4 = m_index.letter(root, 3);

    // Second, third and fourth words, as the literal search takes them.
    PatternLists::List& seconds = listOf(Kind::Second, c2);
    int second = kNoEntry;
    int third = kNoEntry;
    int fourth = kNoEntry;
    while (fourth < 0) {
        second = find(seconds);
        if (second < 0) {
            m_searchFailed = true;
            return Outcome::Failed;
        }
        if (!m_index.hasLetters(second))
            return Outcome::HandOver;
        const Letter c0 = m_index.letter(second, 0);
        if (exhausted(c0))
            continue; // its third words ran out under an earlier second word
        const Letter c8 = m_index.letter(second, 3);
        PatternLists::List& thirds = listOf(Kind::Third, c0, c3);
        bool tookThird = false;
        for (;;) {
            third = find(thirds);
            if (third < 0)
                break;
            tookThird = true;
            if (!m_index.hasLetters(third))
                return Outcome::HandOver;
            PatternLists::List& fourths = listOf(Kind::Fourth, c4, m_index.letter(third, 2), c8);
            if (PatternLists::usedUp(fourths, m_stamp))
                continue;
            fourth = find(fourths);
            if (fourth >= 0)
                break;
        }
        if (tookThird)
            m_steering.push_back(second);
        if (fourth < 0)
            m_exhausted[c0] = m_stamp;
    }
    m_steering.push_back(third);
    m_steering.push_back(fourth);
    if (!m_index.hasLetters(fourth))
        return Outcome::HandOver;

    const std::array<Letter, StarGrid::CellCount> cells = starLetters(root, second, third, fourth);
    const Letter c5 = cells[5], c7 = cells[7], c9 = cells[9];

    const int forwards = find(listOf(Kind::Fifth, c1, c5, c7, c9));
    const int backwards = find(listOf(Kind::FifthBackwards, c1, c5, c7, c9));
    for (const int found : {forwards, backwards}) {
        if (found >= 0)
            m_steering.push_back(found);
    }
    if (forwards < 0 && backwards < 0)
        return Outcome::Failed;

    std::array<int, StarGrid::CandidateCount> entries = {root, second, third, fourth,
                                                         forwards >= 0 ? forwards : backwards};
    return finish(wordList, grid, entries, cells, [&](Letter first, Letter last) {
        const int decoy = find(listOf(Kind::Decoy, first, last));
        if (decoy >= 0)
            m_steering.push_back(decoy);
        return decoy;
    });
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
    const int bound = rangeBound(m_index.letter(id, 0), m_index.letter(id, 1));
    return bound == kAllMarked || id <= bound;
}

int IndexedPuzzleGenerator::firstUnmarked(std::span<const int> ids, int first, int second,
                                          int third) const {
    const int bound = rangeBound(first, second);
    if (bound == kAllMarked)
        return kNoEntry;
    auto it = std::upper_bound(ids.begin(), ids.end(), bound);
    for (; it != ids.end(); ++it) {
        if ((third < 0 || m_index.letter(*it, 2) == third) && !markedSingly(*it))
            return *it;
    }
    return kNoEntry;
}

int IndexedPuzzleGenerator::findByFirstTwoAndLast(int l0, int l1, int l3) const {
    const KeyedEntryLists& lists = m_index.byFirstTwoAndLast();
    const int g = lists.findGroup(WordIndex::pack(l0, l1, 0, l3));
    return g < 0 ? kNoEntry : firstUnmarked(lists.group(g), l0, l1, -1);
}

int IndexedPuzzleGenerator::findByAllFour(int l0, int l1, int l2, int l3) const {
    const KeyedEntryLists& lists = m_index.byFirstTwoAndLast();
    const int g = lists.findGroup(WordIndex::pack(l0, l1, 0, l3));
    return g < 0 ? kNoEntry : firstUnmarked(lists.group(g), l0, l1, l2);
}

int IndexedPuzzleGenerator::findByFirstAndLast(int l0, int l3) const {
    // The first unmarked entry of each second letter's group, the earliest of them.
    int best = kNoEntry;
    const KeyedEntryLists& firstTwo = m_index.byFirstTwo();
    const KeyedEntryLists& lists = m_index.byFirstTwoAndLast();
    const auto [begin, end] = m_index.firstTwoGroupsWithFirst(static_cast<Letter>(l0));
    for (int g = begin; g < end; ++g) {
        const auto l1 = static_cast<int>((firstTwo.groupKey(g) >> 32) & 0xFFFF);
        const int last = lists.findGroup(WordIndex::pack(l0, l1, 0, l3));
        if (last < 0 || (best != kNoEntry && lists.group(last).front() > best))
            continue;
        const int id = firstUnmarked(lists.group(last), l0, l1, -1);
        if (id != kNoEntry && (best == kNoEntry || id < best))
            best = id;
    }
    return best;
}

int IndexedPuzzleGenerator::wordId(const clsSimpleArray& wordList, int id) {
    int& number = m_wordIds.findOrInsert(id, -1);
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

void IndexedPuzzleGenerator::writeMarks(clsSimpleArray& wordList) {
    // Every item 0, then 1 for the ranges and the single marks of the last attempt.
    const std::span<qint32> data = wordList.allItemData();
    std::fill(data.begin(), data.end(), 0);
    auto set = [&](int id) {
        if (m_index.alive(id))
            data[static_cast<size_t>(m_index.currentIndex(id))] = 1;
    };
    if (m_mode == Mode::Pattern) {
        for (const int id : m_patternMarks)
            set(id);
        return;
    }
    auto setAll = [&](std::span<const int> ids, int upTo) {
        for (const int id : ids) {
            if (id > upTo)
                break;
            set(id);
        }
    };
    const KeyedEntryLists& firstTwo = m_index.byFirstTwo();
    if (m_second >= 0) {
        for (const int g : m_index.firstTwoGroupsWithSecond(static_cast<Letter>(m_second)))
            setAll(firstTwo.group(g), m_secondUpTo);
    }
    for (const int first : m_exhaustedLetters) {
        const int g = firstTwo.findGroup(WordIndex::pack(first, m_third, 0, 0));
        if (g >= 0)
            setAll(firstTwo.group(g), kAll);
    }
    if (m_first >= 0) {
        const int g = firstTwo.findGroup(WordIndex::pack(m_first, m_third, 0, 0));
        if (g >= 0)
            setAll(firstTwo.group(g), m_thirdUpTo);
    }
    for (int k = 0; k < m_singleCount; ++k)
        set(m_singles[static_cast<size_t>(k)]);
}

void IndexedPuzzleGenerator::file(int& head, int root) {
    const auto generation = m_failures[root].generation;
    m_filings.push_back({root, generation, head});
    head = static_cast<int>(m_filings.size()) - 1;
}

void IndexedPuzzleGenerator::rememberFailure(int root) {
    if (m_mode == Mode::Literal ||
        (m_mode == Mode::Pattern && static_cast<int>(m_steering.size()) > kMaxSteering)) {
        if (Failure* known = m_failures.find(root))
            known->generation = 0;
        m_retry.push_back(root); // run again next time
        return;
    }
    Failure& failure = m_failures[root];
    failure.generation = ++m_failureGeneration;
    failure.steerBegin = static_cast<int>(m_steeringPool.size());
    if (m_mode == Mode::Pattern) {
        failure.secondUpTo = -1;
        m_steeringPool.insert(m_steeringPool.end(), m_steering.begin(), m_steering.end());
    } else {
        // The entries it marked singly: its last third word and the singles.
        failure.secondUpTo = m_secondUpTo;
        if (m_first >= 0 && m_thirdUpTo >= 0)
            m_steeringPool.push_back(m_thirdUpTo);
        m_steeringPool.insert(m_steeringPool.end(), m_singles.begin(),
                              m_singles.begin() + m_singleCount);
    }
    failure.steerCount =
        static_cast<quint16>(static_cast<int>(m_steeringPool.size()) - failure.steerBegin);
    fileFailure(root);
}

void IndexedPuzzleGenerator::copyFailure(int root, int from) {
    const Failure known = m_failures[from];
    if (known.generation == 0) {
        m_retry.push_back(root); // the failure was not remembered: neither is this one
        return;
    }
    Failure& failure = m_failures[root];
    failure = known;
    failure.generation = ++m_failureGeneration;
    fileFailure(root);
}

void IndexedPuzzleGenerator::fileFailure(int root) {
    const Failure& failure = m_failures[root];
    // Failures by index are also filed under the root's second letter (see steeredBy).
    if (failure.secondUpTo >= 0)
        file(m_bySecond[m_index.letter(root, 1)], root);
    for (int k = 0; k < failure.steerCount; ++k) {
        const int entry = m_steeringPool[static_cast<size_t>(failure.steerBegin + k)];
        file(m_bySingle.findOrInsert(entry, -1), root);
    }
}

bool IndexedPuzzleGenerator::steeredBy(const Failure& failure, int root, int entry) const {
    const auto begin = m_steeringPool.begin() + failure.steerBegin;
    if (std::find(begin, begin + failure.steerCount, entry) != begin + failure.steerCount)
        return true;
    // A second word taken as the first entry of its first letter: without it the next entry
    // of that letter would be taken, with other letters for the lines that cross it.
    if (failure.secondUpTo < 0 || !m_index.hasLetters(entry) ||
        m_index.letter(entry, 1) != m_index.letter(root, 1) || entry > failure.secondUpTo)
        return false;
    const int g = m_index.byFirstTwo().findGroup(m_index.byFirstTwo().keyOf(m_index.packed(entry)));
    return m_index.firstAlive(g) == entry;
}

void IndexedPuzzleGenerator::forgetFailuresMarking(int removed) {
    auto check = [&](int filing) {
        for (; filing >= 0; filing = m_filings[static_cast<size_t>(filing)].next) {
            const Filing& f = m_filings[static_cast<size_t>(filing)];
            Failure& failure = m_failures[f.root];
            if (failure.generation != f.generation || f.root == removed)
                continue; // stale: forgotten or remembered again since
            if (steeredBy(failure, f.root, removed)) {
                failure.generation = 0;
                m_retry.push_back(f.root);
            }
        }
    };
    if (m_index.hasLetters(removed))
        check(m_bySecond[m_index.letter(removed, 1)]);
    if (const int* first = m_bySingle.find(removed))
        check(*first);
}
