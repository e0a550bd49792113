// The generator interface: fills the puzzle record from the word list. Implementations must
// give identical results for the same word list (the literal generator is the reference).
//
// Word list entries are dictionary words ("cake") and reversed words with the mark ("ekac*").
// The letters of an entry are its first four characters; an entry's real spelling is the entry
// itself, or for an entry ending in "*" the entry reversed without its first character.
#pragma once

#include <QString>

class clsSimpleArray;
class StarGrid;

struct GenerationResult {
    bool success = false;
    QString root;           // the text of the root entry as stored (with its "*" when reversed)
    int rootIndex = -1;     // its index before it was removed
    bool abandoned = false; // the search stopped on request before it had an outcome
};

// The result of a search stopped on request.
inline GenerationResult abandonedGeneration() {
    GenerationResult result;
    result.abandoned = true;
    return result;
}

class PuzzleGenerator {
public:
    virtual ~PuzzleGenerator() = default;

    // On success: grid.SolutionLetters[1..10] hold the ten cell letters, CandidateWords[1..8]
    // the five solution words and three decoys ascending without regard to case, DecoyFlags
    // marks the decoys, and the root entry has been removed from
    // `wordList`. On failure: every SolutionLetters entry is "", CandidateWords and DecoyFlags
    // are untouched and `wordList` keeps its items. Either way the item data of `wordList`
    // are left as the search used them (marks of use); callers must not rely on them.
    // When the event pump the generator polls has a stop request (EventPump::requestStop),
    // the search stops at its next poll: the result is a failure with `abandoned` set, and
    // `wordList` keeps its items.
    virtual GenerationResult generate(clsSimpleArray& wordList, StarGrid& grid) = 0;

    // Drops what the generator keeps about the last word list it searched (another list has
    // been loaded), giving the memory back.
    virtual void forgetWordList() {}
};
