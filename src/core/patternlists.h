// The generator's searches for patterns built from letters that hold pattern characters
// ("?", "*", "#", "[") or that otherwise do not name keyed lists of the index: each pattern's
// matches over the word list, in list order, kept while the index stays, and a cursor per
// pattern so that "the first unused match" costs nothing for the entries that earlier calls
// of the same attempt passed over.
//
// A pattern is named by what it is made of (its kind and the letters put into it), and its
// text is built exactly as the literal search builds it, then matched with the literal
// search's own wildcard rules: so the matches are the literal search's matches by
// construction, whatever characters the letters are. Candidates come from the keyed lists
// when the pattern fixes the first or second character (a plain character, or a class such as
// "#" or "[ab]"); a pattern that fixes neither is matched lazily, entry by entry in list
// order, only as far as the searches ask.
#pragma once

#include "core/wildcard.h"
#include "core/wordindex.h"

#include <QString>
#include <QtGlobal>

#include <array>
#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

class clsSimpleArray;

class PatternLists {
public:
    // Which pattern of the search, with its letters a, b, c, d:
    enum class Kind : quint8 {
        Second,         // "?" a "??*"
        Third,          // a b "??*"
        Fourth,         // a b "?" c "*"
        Fifth,          // a b c d "*"
        FifthBackwards, // (a b c d, its characters reversed) "*"
        Decoy,          // a "??" b "*"
    };

    // A pattern compiled for testing entries of the index.
    class Matcher {
    public:
        explicit Matcher(QString pattern);
        // Prepares testing by tables of letters (worth it for many entries); nothing when the
        // alphabet is too large or the pattern too full of "*".
        void useTables(const WordIndex& index);
        bool matchesNothing() const { return m_tokens.matchesNothing(); }
        const WildcardTokens& tokens() const { return m_tokens; }
        // Whether the entry `id` (live) matches.
        bool matches(int id, const WordIndex& index, const clsSimpleArray& wordList) const;
        // Whether token `token` (not a "*") takes letter `letter`. Precondition: byTables().
        bool takes(int token, WordIndex::Letter letter) const {
            return m_takes[static_cast<size_t>(token)][letter] != 0;
        }
        bool byTables() const { return m_byTables; }
        // The placings over texts of `length` (4 or 5) characters: for each character the
        // token it meets, -1 inside a "*". Precondition: byTables().
        using Alignment = std::array<int, 5>;
        const std::vector<Alignment>& alignments(int length) const {
            return m_alignments[static_cast<size_t>(length - 4)];
        }

    private:
        bool align();

        QString m_pattern;
        WildcardTokens m_tokens;
        // The placings of the tokens over texts of four and five characters (for each
        // character the token it meets, -1 inside a "*"), and per token and letter whether the
        // token takes it, and whether it takes "*": entries of four letters (and a "*") are
        // tested from these tables.
        bool m_byTables = false;
        std::array<std::vector<Alignment>, 2> m_alignments;
        std::vector<std::vector<quint8>> m_takes;
        std::vector<quint8> m_takesMark;
    };

    struct List {
        std::vector<int> ids; // the matching entry ids found so far, ascending
        quint32 stamp = 0;    // the attempt the cursor belongs to
        quint32 cursor = 0;   // every id before it is marked in that attempt
        // While the list is still being found: the matcher, the next id to test, and the
        // candidates (a bit per id; empty: every id).
        std::unique_ptr<Matcher> pending;
        int nextToTest = 0;
        std::vector<quint64> candidates;
    };

    // Forgets every list (the index was rebuilt).
    void clear();
    // Makes every cursor start afresh (the attempt stamps started over).
    void resetCursors();

    // The list of the pattern over the live entries of `index`, which describes `wordList`
    // now; both must stay the same (apart from mirrored removals) while lists are kept.
    List& list(Kind kind, quint64 letters);

    // The first id of `list` whose mark is below `stamp` (unused in this attempt; removed
    // entries carry the highest mark), which is then marked with `stamp`; -1 when none.
    int find(List& list, std::vector<quint8>& marks, quint32 stamp);
    // True when find() would give -1 without looking further (the list was used up in this
    // attempt).
    static bool usedUp(const List& list, quint32 stamp) {
        return list.stamp == stamp && list.cursor == list.ids.size() && !list.pending;
    }

    void setSources(const WordIndex* index, const clsSimpleArray* wordList) {
        m_index = index;
        m_wordList = wordList;
    }

private:
    struct Key {
        quint64 letters;
        Kind kind;
        bool operator==(const Key& o) const { return letters == o.letters && kind == o.kind; }
    };
    struct KeyHash {
        size_t operator()(const Key& k) const {
            return static_cast<size_t>((k.letters ^ (static_cast<quint64>(k.kind) << 61)) *
                                       0x9E3779B97F4A7C15ULL);
        }
    };

    QString patternText(Kind kind, quint64 letters) const;
    void start(List& list, std::unique_ptr<Matcher> matcher);
    // The number of entries in the groups by the first two letters that the first tokens of
    // `m` take (which must have tables); when at most half of all, they become m_candidates.
    int takenByGroups(const Matcher& m);
    // Sets in m_bits the candidates for a pattern with tables: for each placing, the entries
    // with a letter the most selective placed token takes, plus the irregular entries.
    // Returns their number, or -1 when some placing fixes no letter (every entry is one).
    int takenByPlaces(const Matcher& m);
    // Entries by the letter at each of the first four places (built on first use).
    void buildPlaces();
    std::array<std::vector<int>, 4> m_placeOffsets; // letter -> range in m_placeIds
    std::array<std::vector<int>, 4> m_placeIds;
    // Finds more of a pending list: up to and including its next match; false at the end.
    bool findMore(List& list);

    const WordIndex* m_index = nullptr;
    const clsSimpleArray* m_wordList = nullptr;
    std::deque<List> m_lists; // stable addresses: callers hold several at once
    std::unordered_map<Key, size_t, KeyHash> m_byKey;
    std::vector<int> m_candidates; // scratch
    std::vector<quint64> m_bits;   // scratch
};
