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
// The index is kept across requests while the list is unchanged apart from the generator's
// own removals. The list must not change during generate() (the event pump may run events).
#pragma once

#include "core/literalgenerator.h"
#include "core/puzzlegenerator.h"
#include "core/wordindex.h"

#include <QHash>
#include <QString>

#include <limits>
#include <vector>

class EventPump;

class IndexedPuzzleGenerator : public PuzzleGenerator {
public:
    // Polled at the start of every attempt (and inside the attempts handed to the literal
    // search), so pending window events run during a long search; null: none.
    void setEventPump(EventPump* pump);

    GenerationResult generate(clsSimpleArray& wordList, StarGrid& grid) override;

    // Work counters of the last generate() call, for tests and benchmarks.
    struct Statistics {
        int attempts = 0;        // roots tried
        int literalAttempts = 0; // of which handed to the literal search
        bool indexBuilt = false; // the index was (re)built for this call
    };
    const Statistics& statistics() const { return m_statistics; }

private:
    using Letter = WordIndex::Letter;
    enum class Outcome { Failed, Succeeded, Literal };
    static constexpr int kAll = std::numeric_limits<int>::max();
    static constexpr int kNoEntry = -1;
    static constexpr int kAllMarked = -2;

    bool ensureIndex(const clsSimpleArray& wordList);
    Outcome attempt(const clsSimpleArray& wordList, StarGrid& grid, int root);
    void startAttempt();
    void mark(int id) { m_marks[static_cast<size_t>(id)] = m_stamp; }
    bool markedSingly(int id) const { return m_marks[static_cast<size_t>(id)] >= m_stamp; }
    bool exhausted(int first) const { return m_exhausted[static_cast<size_t>(first)] == m_stamp; }
    bool marked(int id) const;
    // The lowest id up to which the range marks cover an entry with these first two letters,
    // or kAllMarked.
    int rangeBound(int first, int second) const;
    // The first unmarked entry of a group whose entries all have the first two letters given.
    int firstUnmarked(std::span<const int> ids, int first, int second) const;
    int findByFirstTwoAndLast(int l0, int l1, int l3) const;
    int findByAllFour(int l0, int l1, int l2, int l3) const;
    int findByFirstAndLast(int l0, int l3) const;
    int wordId(const clsSimpleArray& wordList, int id);
    QString letterText(Letter letter) const;
    void writeMarks(clsSimpleArray& wordList) const;

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

    // Real spellings numbered so that equal ones ignoring case share a number (-1: not yet).
    std::vector<int> m_wordIds;
    QHash<QString, int> m_wordNumbers;
};
