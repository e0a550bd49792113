// An index over the entries of a word list by their letters (first four characters), for the
// searches of the puzzle generator: "the entries, in list order, whose letters at these
// positions are these". It is built once per list content and follows the generator's own
// removals, so successive requests on the same list reuse it.
//
// Entries are named by ids: their positions when the index was built. Removing an entry keeps
// every other id, and ids keep list order, so "before in the list" is "smaller id"; the
// current position of an id is its id minus the removed ids below it.
//
// Letters are numbered densely (Letter) in order of first appearance. An entry of fewer than
// four characters has no letters and is in no keyed list (no search with four fixed-length
// positions can find it). An entry is "plain" when it has four letters and none of them is a
// wildcard character ("?", "*", "#", "[") or a lone surrogate: only then does a search pattern
// built from its letters compare characters one by one.
#pragma once

#include <QtGlobal>

#include <array>
#include <span>
#include <vector>

class clsSimpleArray;

// Entries grouped by the letters at a fixed set of positions; each group lists its entry ids in
// ascending order (list order). Groups are ordered by their key.
class KeyedEntryLists {
public:
    using Letter = quint16;
    using Letters = std::array<Letter, 4>;

    // `positions`: the positions (0..3, ascending, 1 to 4 of them) the key is made of.
    // `ids`: the entries to file, ascending; `letters[id]` their letters; every letter is below
    // `alphabetSize`.
    void build(const std::vector<Letters>& letters, const std::vector<int>& ids,
               std::vector<int> positions, int alphabetSize);

    // The key of the letters at this list's positions.
    quint64 keyOf(const Letters& letters) const;
    // The group with this key, or -1.
    int findGroup(quint64 key) const;
    int groupCount() const { return static_cast<int>(m_keys.size()); }
    std::span<const int> group(int g) const;
    // The letters of group g at this list's positions, in the order of the positions.
    quint64 groupKey(int g) const { return m_keys[static_cast<size_t>(g)]; }

private:
    std::vector<int> m_positions;
    std::vector<quint64> m_keys;
    std::vector<int> m_offsets; // group g is m_ids[m_offsets[g] .. m_offsets[g + 1])
    std::vector<int> m_ids;
};

class WordIndex {
public:
    using Letter = KeyedEntryLists::Letter;
    using Letters = KeyedEntryLists::Letters;

    // Indexes the entries of `list` as they are now. Returns false, leaving no index, when the
    // letters use more distinct characters than a Letter can number (65535).
    bool build(const clsSimpleArray& list);
    void clear();

    // True when the index describes `list` as it is now (same revision).
    bool isBuiltFor(const clsSimpleArray& list) const;
    // Records that the indexed list now has `revision` (after a removal mirrored by remove()).
    void setRevision(quint64 revision) { m_revision = revision; }

    // Ids run from 0 to entryCount() - 1, removed ones included.
    int entryCount() const { return static_cast<int>(m_letters.size()); }
    int removedCount() const { return static_cast<int>(m_removed.size()); }
    int alphabetSize() const { return static_cast<int>(m_codePoints.size()); }
    bool alive(int id) const { return m_alive[static_cast<size_t>(id)] != 0; }
    bool hasLetters(int id) const { return m_kind[static_cast<size_t>(id)] != Kind::Short; }
    bool plain(int id) const { return m_kind[static_cast<size_t>(id)] == Kind::Plain; }
    // Precondition: hasLetters(id).
    const Letters& letters(int id) const { return m_letters[static_cast<size_t>(id)]; }
    char32_t codePoint(Letter letter) const { return m_codePoints[letter]; }
    // The position of a live entry in the list now.
    int currentIndex(int id) const;

    // Mirrors the removal of the live entry `id` from the list.
    void remove(int id);

    // Entries by letters 0 and 1; by 0, 1 and 3; by all four; by 0 and 3.
    const KeyedEntryLists& byFirstTwo() const { return m_k01; }
    const KeyedEntryLists& byFirstTwoAndLast() const { return m_k013; }
    const KeyedEntryLists& byAllFour() const { return m_k0123; }
    const KeyedEntryLists& byFirstAndLast() const { return m_k03; }

    // The groups of byFirstTwo() whose second letter is `second`, ordered by their first live
    // entry (groups without a live entry come last).
    std::span<const int> firstTwoGroupsWithSecond(Letter second) const;
    // The first live entry of byFirstTwo() group g, or -1.
    int firstAlive(int g) const { return m_head01[static_cast<size_t>(g)]; }
    // For byFirstTwo() group g: the first live entry of each third letter, ascending.
    std::span<const int> thirdLetterHeads(int g) const;
    // The next live entry after `id` with the same first three letters, or -1.
    int nextWithSameFirstThree(int id) const;

private:
    enum class Kind : quint8 { Short, Plain, Special };

    void sortGroupsBySecond(Letter second);
    void buildHeads();

    quint64 m_revision = 0;
    bool m_built = false;
    std::vector<Letters> m_letters;
    std::vector<Kind> m_kind;
    std::vector<quint8> m_alive;
    std::vector<char32_t> m_codePoints;
    std::vector<int> m_removed; // ascending
    KeyedEntryLists m_k01;
    KeyedEntryLists m_k013;
    KeyedEntryLists m_k0123;
    KeyedEntryLists m_k03;
    std::vector<int> m_groupOf01;      // id -> its byFirstTwo() group (-1 for short entries)
    std::vector<int> m_head01;         // byFirstTwo() group -> first live entry or -1
    std::vector<int> m_secondOffsets;  // second letter -> range in m_groupsBySecond
    std::vector<int> m_groupsBySecond; // byFirstTwo() groups, bucketed by second letter
    std::vector<int> m_headOffsets;    // byFirstTwo() group -> range in m_heads
    std::vector<int> m_headCount;      // byFirstTwo() group -> live heads in its range
    std::vector<int> m_heads;          // third-letter heads per byFirstTwo() group
    std::vector<int> m_nextSameThree;  // id -> next id with the same first three letters
};
