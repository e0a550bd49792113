// The reference puzzle generator: a greedy depth-first search over the word list driven by
// wildcard patterns, exactly in the order the game has always used, so any faster generator
// can be checked against it.
//
// For each root entry j in list order (one attempt each, marks of use cleared first):
//   the root's letters fill the bar, cells 1-2-3-4;
//   the second word ("?" c2 "??*") fills 0-2-5-8; for each, third words (c0 c3 "??*") fill
//   0-3-6-9; for each, one fourth word (c4 c6 "?" c8 "*") fills 4-6-7-8, else the next third
//   word is tried, and when the third words run out the next second word;
//   the fifth line 1-5-7-9 is then fixed: its letters must be an entry forwards or backwards;
//   the five real spellings must differ ignoring case;
//   three decoys (c0 "??" c8 "*", c0 "??" c9 "*", c1 "??" c4 "*") must differ ignoring case
//   (and their decoy mark) from the solution words and from each other.
// Every search takes the first entry not yet used in this attempt and marks it, so retries
// step through the matches. The first attempt that succeeds is taken and its root entry is
// removed. Letters of entries are used in patterns as they stand: an entry holding "?", "*",
// "#" or "[" makes patterns with those wildcards.
#pragma once

#include "core/puzzlegenerator.h"

class EventPump;

class LiteralPuzzleGenerator : public PuzzleGenerator {
public:
    // Polled after each reset of the marks, after each root word and after each failed
    // attempt, so pending window events run during a long search; null: none. A stop request
    // on it ends the search before the next attempt.
    void setEventPump(EventPump* pump) { m_pump = pump; }

    GenerationResult generate(clsSimpleArray& wordList, StarGrid& grid) override;

    // One attempt from the root entry at index `root` (0 <= root < wordList.ListCount()), as
    // generate() makes them: resets every item data to 0, then searches and marks. On success
    // grid holds the solution letters, CandidateWords and DecoyFlags and true is returned; the
    // root is not removed. On failure some SolutionLetters may hold letters of the search.
    bool attempt(clsSimpleArray& wordList, StarGrid& grid, int root);

private:
    void poll();

    EventPump* m_pump = nullptr;
};
