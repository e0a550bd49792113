// The fast puzzle generator: the same greedy search as LiteralPuzzleGenerator, with the same
// observable results (solution letters, candidate words, decoy flags, the root removed, and
// the item data left as the marks of use of the last attempt), but answered from a WordIndex
// instead of scanning the word list for every pattern.
//
// How the literal search is reproduced without walking it step by step:
//   - Marks of use are the few entries an attempt marks one by one, plus ranges (below); on
//     pattern lists attempt stamps (a byte per entry), so starting an attempt clears them in
//     O(1), apart from one pass over all of them every 254 attempts.
//   - The second-word loop takes the entries with the root's second letter in list order, and
//     each one searches third words starting with its own first letter. Once the third words
//     of a first letter are used up they stay used up for the attempt, so only the first entry
//     of each first letter can lead anywhere; the others are only marked. The loop therefore
//     visits one entry per first letter, and the entries it passes over are described as
//     "every entry with this second letter up to here" instead of being marked one by one.
//   - Likewise in the third-word loop only the first entry of each third letter can find a
//     fourth word (a later one with the same letters faces the same or more marks), and the
//     third words used are "the entries of this list up to here".
//   - Later searches test marks against those ranges plus the few entries marked singly.
// An attempt whose patterns would hold a pattern character (from the letters of the root or
// of an entry the search takes) runs again from its start on pattern lists (PatternLists):
// every pattern's matches, found once from the index and tested with the wildcard rules
// themselves, each with a cursor past the entries already used. That search takes the same
// steps as the literal one, except that it does not ask again for what it already knows is
// used up in this attempt: the third words of a first letter (cell 0) once they ran out, and
// a fourth-word pattern once it found nothing. Only an attempt that would take an entry of
// fewer than four characters (no dictionary load makes one) is handed to the literal
// generator. Roots with the same text make the same attempt, and roots with the same last
// three letters the same search up to the fourth word (the first letter is used only after
// it), so within one request a root is passed over when such a root failed on pattern lists.
//
// Across requests: an attempt depends only on its root and on the entries its searches
// returned. When a success removes its root X, a failed attempt fails again unless X was one
// of the entries that steered it: a second word it took as the first of its first letter,
// its last third word, or an entry it marked singly (fourth, fifth, decoys). Removing any
// other entry it used up only takes away what it could not use again anyway. So failures are
// remembered, and only those steered by the removed entry are run again, in list order (the
// item data always come from an attempt actually run). On pattern lists the steering entries
// are listed one by one: the second words whose third-word search took anything, the third
// word that found a fourth, and the fourth, fifth and decoy words.
//
// A stop request on the event pump (the window is closing) ends generate() before the next
// attempt; the failures proved so far stay remembered.
//
// The index and the remembered failures are kept while the list is unchanged apart from the
// generator's own removals. The list must not change during generate() (the event pump may
// run events; the game ignores commands meanwhile).
#pragma once

#include "core/intmap.h"
#include "core/literalgenerator.h"
#include "core/patternlists.h"
#include "core/puzzlegenerator.h"
#include "core/stargrid.h"
#include "core/wordindex.h"

#include <QHash>
#include <QString>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <unordered_map>
#include <vector>

class EventPump;

class IndexedPuzzleGenerator : public PuzzleGenerator {
public:
    // Polled at the start of every attempt that runs (and inside the attempts handed to the
    // literal search), so pending window events run during a long search; null: none. A stop
    // request on it ends the search before the next attempt.
    void setEventPump(EventPump* pump);

    GenerationResult generate(clsSimpleArray& wordList, StarGrid& grid) override;
    void forgetWordList() override;

    // Work counters of the last generate() call, for tests and benchmarks.
    struct Statistics {
        int attempts = 0;        // attempts run
        int patternAttempts = 0; // of which run on pattern lists
        int literalAttempts = 0; // of which handed to the literal search
        int known = 0;      // roots passed over: one that makes the same search failed just before
        int remembered = 0; // roots passed over because their failure was remembered
        bool indexBuilt = false; // the index was (re)built for this call
    };
    const Statistics& statistics() const { return m_statistics; }

private:
    using Letter = WordIndex::Letter;
    // HandOver: the attempt needs a more general search (pattern lists, or the literal one).
    enum class Outcome { Failed, Succeeded, HandOver };
    // How the last attempt was run.
    enum class Mode { Index, Pattern, Literal };
    static constexpr int kAll = std::numeric_limits<int>::max();
    static constexpr int kNoEntry = -1;
    static constexpr int kAllMarked = -2;
    static constexpr int kSingles = 6; // entries a failed attempt can mark one by one
    // A failure on pattern lists with more steering entries than this is not remembered.
    static constexpr int kMaxSteering = 48;

    // What a failed attempt marked, enough to tell whether removing an entry could change it.
    struct Failure {
        quint32 generation = 0; // 0: nothing remembered
        int secondUpTo = -1;    // by index: second words were taken up to this id (kAll: all)
        int steerBegin = 0;     // the entries it marked singly, in m_steeringPool
        quint16 steerCount = 0;
    };
    // Failures by root, in pages allocated as roots are reached: a request on a large list
    // reaches only its first roots.
    class FailureTable {
    public:
        void clear() { m_pages.clear(); }
        Failure& operator[](int root) {
            const auto page = static_cast<size_t>(root) / kPage;
            if (page >= m_pages.size())
                m_pages.resize(page + 1);
            if (!m_pages[page])
                m_pages[page] = std::make_unique<std::array<Failure, kPage>>();
            return (*m_pages[page])[static_cast<size_t>(root) % kPage];
        }
        Failure* find(int root) {
            const auto page = static_cast<size_t>(root) / kPage;
            return page < m_pages.size() && m_pages[page]
                       ? &(*m_pages[page])[static_cast<size_t>(root) % kPage]
                       : nullptr;
        }

    private:
        static constexpr size_t kPage = 4096;
        std::vector<std::unique_ptr<std::array<Failure, kPage>>> m_pages;
    };
    // One remembered failure filed under a letter or a singly marked entry.
    struct Filing {
        int root;
        quint32 generation;
        int next; // the next filing of the same list, or -1
    };

    bool ensureIndex(const clsSimpleArray& wordList);
    void forgetFailures();
    // Runs one attempt (by index or by scanning); false when it fails.
    bool run(clsSimpleArray& wordList, StarGrid& grid, int root);
    Outcome attempt(const clsSimpleArray& wordList, StarGrid& grid, int root);
    Outcome patternAttempt(const clsSimpleArray& wordList, StarGrid& grid, int root);
    // The letters of cells 0..9 that the first four words fix (the fifth word only repeats
    // cells 1, 5, 7 and 9).
    std::array<Letter, StarGrid::CellCount> starLetters(int root, int second, int third,
                                                        int fourth) const;
    // The common end of both attempts once five words are found: distinct words, decoys
    // (found by findDecoy(first letter, last letter)), publishing.
    template <typename FindDecoy>
    Outcome finish(const clsSimpleArray& wordList, StarGrid& grid,
                   std::array<int, StarGrid::CandidateCount>& entries,
                   const std::array<Letter, StarGrid::CellCount>& cells, FindDecoy findDecoy);
    GenerationResult abandon(std::vector<int>& retry, size_t unreachedRetry, int resumeFrom,
                             StarGrid& grid);
    // A root run before in this request that makes the same attempt as `root` (the same text)
    // or the same search up to the fourth word (the same last three letters) and failed there;
    // or -1.
    int knownFailure(int root) const;
    // Notes the failure of the attempt just run for knownFailure().
    void noteFailure(int root);
    void copyFailure(int root, int from);
    void startAttempt();
    void mark(int id);
    // By index: marked in this attempt (one of the few singles) or removed for good.
    bool markedSingly(int id) const {
        return !m_index.alive(id) || std::find(m_singles.begin(), m_singles.begin() + m_singleCount,
                                               id) != m_singles.begin() + m_singleCount;
    }
    bool exhausted(int first) const { return m_exhausted[static_cast<size_t>(first)] == m_stamp; }
    bool marked(int id) const;
    // The id up to which the range marks cover an entry with these first two letters, or
    // kAllMarked.
    int rangeBound(int first, int second) const;
    // The first unmarked entry of a group whose entries all have the first two letters given
    // and, unless `third` is -1, the third letter `third`.
    int firstUnmarked(std::span<const int> ids, int first, int second, int third) const;
    int findByFirstTwoAndLast(int l0, int l1, int l3) const;
    int findByAllFour(int l0, int l1, int l2, int l3) const;
    int findByFirstAndLast(int l0, int l3) const;
    int wordId(const clsSimpleArray& wordList, int id);
    void writeMarks(clsSimpleArray& wordList);
    void rememberFailure(int root);
    void fileFailure(int root);
    // Files the failure of `root` at the front of the list that starts at `head`.
    void file(int& head, int root);
    // Before `removed` leaves the list: the remembered failures it steered are dropped and
    // queued to run again.
    void forgetFailuresMarking(int removed);
    bool steeredBy(const Failure& failure, int root, int entry) const;

    LiteralPuzzleGenerator m_literal;
    EventPump* m_pump = nullptr;
    WordIndex m_index;
    Statistics m_statistics;

    // Marks of use. By index: the singles and the ranges below. On pattern lists: an entry is
    // marked when its stamp is the attempt's (removed entries carry the highest stamp, so they
    // count as marked for good); the stamps are made by the first such attempt, so a list
    // whose words hold no pattern character never pays for them.
    std::vector<quint8> m_marks;
    std::vector<quint32> m_exhausted; // first letter -> stamp: its third words are used up
    quint32 m_stamp = 0;
    int m_second = -1;     // the root's second letter (cell 2)
    int m_third = -1;      // the root's third letter (cell 3)
    int m_first = -1;      // the first letter (cell 0) whose third words are being taken, or -1
    int m_secondUpTo = -1; // entries with second letter m_second and id <= this are marked
    int m_thirdUpTo = -1;  // entries with letters m_first, m_third and id <= this are marked
    std::array<int, kSingles> m_singles{};
    int m_singleCount = 0;
    std::vector<int> m_exhaustedLetters; // the first letters in m_exhausted, in order
    Mode m_mode = Mode::Index;           // how the last attempt was run
    PatternLists m_patterns;
    std::vector<int> m_patternMarks; // on pattern lists: the entries the attempt marked
    std::vector<int> m_steering;     // on pattern lists: the attempt's steering entries
    // Roots that failed in this request on pattern lists: by their last three letters when no
    // fourth word was found (the search up to it uses no other letter of the root), else by
    // their text when it is regular (four letters, or four and "*").
    static constexpr quint64 kLastThree = 0x0000'FFFF'FFFF'FFFFULL;
    bool m_searchFailed = false; // the last pattern attempt found no fourth word
    std::unordered_map<quint64, int> m_failedSearches;
    std::array<std::unordered_map<quint64, int>, 2> m_failedTexts;
    std::vector<qint32> m_data; // scratch: item data by id

    // Remembered failures: every root before m_resumeFrom failed, except those in m_retry
    // (ascending), which must run again.
    FailureTable m_failures;
    quint32 m_failureGeneration = 0;
    int m_resumeFrom = 0;
    std::vector<int> m_retry;
    std::vector<Filing> m_filings;
    std::vector<int> m_bySecond; // letter -> first filing of failures with that second letter
    // entry -> first filing of failures that marked it singly (few entries: a map, not an
    // array over every entry)
    IntMap m_bySingle;
    std::vector<int> m_steeringPool;

    // Real spellings numbered so that equal ones ignoring case share a number, by entry (for
    // the few entries a request looks at).
    IntMap m_wordIds;
    QHash<QString, int> m_wordNumbers;
};
