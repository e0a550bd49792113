// Word handling shared by the puzzle generators: the letters and the real spelling of a word
// list entry, the working list of one attempt (solution words and decoys, distinct without
// regard to case) and publishing a finished attempt into the puzzle record.
#pragma once

#include <QString>

#include <array>
#include <vector>

class StarGrid;

// The first four characters of an entry, one per element ("" past the end of a short entry).
std::array<QString, 4> lettersOf(const QString& entry);

// The word an entry stands for: a marked entry ("ekac*") reversed without its first character
// ("cake"); any other entry is its own real spelling.
QString realSpelling(const QString& entry);

// The words gathered by one attempt: the five solution words, then the decoys.
class WorkingList {
public:
    void clear() { m_entries.clear(); }

    // True when `word` equals a listed word without regard to case.
    bool holds(const QString& word) const;

    void addSolutionWord(const QString& word) { m_entries.push_back({word, word, false}); }
    void addDecoy(const QString& word);

    struct Entry {
        QString word;       // the real spelling
        QString text;       // as listed: the word, with "*" for a decoy
        bool decoy = false; // set by addDecoy only, so a word that itself ends in "*" is no decoy
    };

    // The entries ascending by their texts (decoys with their trailing "*") without regard to
    // case; equal texts keep the order in which they were added.
    std::vector<Entry> sortedEntries() const;

private:
    std::vector<Entry> m_entries;
};

// Writes the eight words of a finished attempt: CandidateWords[i] is the i-th sorted text
// without its mark (its first four characters), DecoyFlags[i] is 1 exactly for the entries
// added as decoys. Precondition: `working` holds exactly StarGrid::CandidateCount words.
void publishCandidates(const WorkingList& working, StarGrid& grid);
