// The fast puzzle generator: the same greedy search as LiteralPuzzleGenerator, with the same
// observable results (solution letters, candidate words, decoy flags, the root removed, and
// the item data left as the marks of use of the last attempt), but answered from a WordIndex
// instead of scanning the word list for every pattern.
//
// How the literal search is reproduced without walking it step by step:
//   - Marks of use are attempt stamps, so starting an attempt clears them in O(1).
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
// An attempt whose patterns would hold a wildcard character (from the letters of the root or
// of an entry the search takes), or whose root has fewer than four characters, is handed to
// the literal generator, which gives the reference result by scanning.
//
// Across requests: an attempt depends only on its root and on the entries its searches
// returned. When a success removes its root X, a failed attempt fails again unless X was one
// of the entries that steered it: a second word it took as the first of its first letter,
// its last third word, or an entry it marked singly (fourth, fifth, decoys). Removing any
// other entry it used up only takes away what it could not use again anyway. So failures are
// remembered, and only those steered by the removed entry are run again, in list order (the
// item data always come from an attempt actually run).
//
// The index and the remembered failures are kept while the list is unchanged apart from the
// generator's own removals. The list must not change during generate() (the event pump may
// run events; the game ignores commands meanwhile).
#pragma once

#include "core/literalgenerator.h"
#include "core/puzzlegenerator.h"
#include "core/wordindex.h"

#include <QHash>
#include <QString>

#include <array>
#include <limits>
#include <vector>

class EventPump;

class IndexedPuzzleGenerator : public PuzzleGenerator {
public:
    // Polled at the start of every attempt that runs (and inside the attempts handed to the
    // literal search), so pending window events run during a long search; null: none.
    void setEventPump(EventPump* pump);

    GenerationResult generate(clsSimpleArray& wordList, StarGrid& grid) override;

    // Work counters of the last generate() call, for tests and benchmarks.
    struct Statistics {
        int attempts = 0;        // attempts run
        int literalAttempts = 0; // of which handed to the literal search
        int remembered = 0;      // roots passed over because their failure was remembered
        bool indexBuilt = false; // the index was (re)built for this call
    };
    const Statistics& statistics() const { return m_statistics; }

private:
    using Letter = WordIndex::Letter;
    enum class Outcome { Failed, Succeeded, Literal };
    static constexpr int kAll = std::numeric_limits<int>::max();
    static constexpr int kNoEntry = -1;
    static constexpr int kAllMarked = -2;
    static constexpr int kSingles = 6; // entries a failed attempt can mark one by one

    // What a failed attempt marked, enough to tell whether removing an entry could change it.
    struct Failure {
        quint32 generation = 0; // 0: nothing remembered
        int secondUpTo = -1;    // second words were taken up to this id (kAll: all)
        int third = -1;         // the last third word taken, or -1
        std::array<int, kSingles> singles{};
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
    void startAttempt();
    void mark(int id);
    bool markedSingly(int id) const { return m_marks[static_cast<size_t>(id)] >= m_stamp; }
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
    QString letterText(Letter letter) const;
    void writeMarks(clsSimpleArray& wordList);
    void rememberFailure(int root);
    void file(std::vector<int>& heads, size_t at, int root);
    // Before `removed` leaves the list: the remembered failures it steered are dropped and
    // queued to run again.
    void forgetFailuresMarking(int removed);
    bool steeredBy(const Failure& failure, int root, int entry) const;

    LiteralPuzzleGenerator m_literal;
    EventPump* m_pump = nullptr;
    WordIndex m_index;
    Statistics m_statistics;

    // Marks of use: an entry is marked singly when its stamp is the attempt's (removed entries
    // carry the highest stamp, so they count as marked for good), or by the ranges below.
    std::vector<quint32> m_marks;
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
    bool m_lastWasLiteral = false;       // the last attempt run was handed to the scan
    std::vector<qint32> m_data;          // scratch: item data by id

    // Remembered failures: every root before m_resumeFrom failed, except those in m_retry
    // (ascending), which must run again.
    std::vector<Failure> m_failures;
    quint32 m_failureGeneration = 0;
    int m_resumeFrom = 0;
    std::vector<int> m_retry;
    std::vector<Filing> m_filings;
    std::vector<int> m_bySecond; // letter -> first filing of failures with that second letter
    std::vector<int> m_bySingle; // entry -> first filing of failures that marked it singly

    // Real spellings numbered so that equal ones ignoring case share a number (-1: not yet).
    std::vector<int> m_wordIds;
    QHash<QString, int> m_wordNumbers;
};
