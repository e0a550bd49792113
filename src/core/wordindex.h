// An index over the entries of a word list by their letters (first four characters), for the
// searches of the puzzle generator: "the entries, in list order, whose letters at these
// positions are these". It is built once per list content and follows the generator's own
// removals, so successive requests on the same list reuse it.
//
// Entries are named by ids: their positions when the index was built. Removing an entry keeps
// every other id, and ids keep list order, so "before in the list" is "smaller id"; the
// current position of an id is its id minus the removed ids below it.
//
// Letters are numbered densely (Letter) in order of first appearance and packed into one
// 64-bit value per entry, letter 0 in the top 16 bits; they are stored in four bytes per entry
// while there are at most 256 of them, so a list of millions of entries costs little. An entry of
// fewer than four characters has no letters and is in no keyed list (no search with four
// fixed-length positions can find it). An entry is "plain" when it has four letters and none of
// them is a wildcard character
// ("?", "*", "#", "[") or a lone surrogate: only then does a search pattern built from its
// letters compare characters one by one.
#pragma once

#include <QHash>
#include <QString>
#include <QStringView>
#include <QtGlobal>

#include <array>
#include <span>
#include <utility>
#include <vector>

class clsSimpleArray;

// Entries grouped by the letters at some positions (a mask over the packed letters); each
// group lists its entry ids ascending (list order). Looking a group up costs O(1).
class KeyedEntryLists {
public:
    using Key = quint64;

    // Files the ids with letters of `index` (its entries 0..entryCount()-1 that have letters)
    // by `index.packed(id) & mask`; every letter is below `alphabetSize`. Storage is kept
    // from one build to the next.
    template <typename Index> void build(const Index& index, quint64 mask, int alphabetSize);

    Key keyOf(quint64 packed) const { return packed & m_mask; }
    // The group with this key, or -1.
    int findGroup(Key key) const;
    int groupCount() const { return static_cast<int>(m_keys.size()); }
    Key groupKey(int g) const { return m_keys[static_cast<size_t>(g)]; }
    std::span<const int> group(int g) const {
        const auto begin = static_cast<size_t>(m_offsets[static_cast<size_t>(g)]);
        const auto end = static_cast<size_t>(m_offsets[static_cast<size_t>(g) + 1]);
        return std::span<const int>(m_ids).subspan(begin, end - begin);
    }

private:
    size_t slotOf(Key key) const;
    // The dense number of a key (letters as digits in base alphabetSize), when keys are dense.
    quint64 digitOf(Key key) const {
        quint64 digit = 0;
        for (int k = 0; k < m_letterCount; ++k)
            digit = digit * m_alphabetSize + ((key >> m_shifts[static_cast<size_t>(k)]) & 0xFFFF);
        return digit;
    }
    // Digits computed by `digit(packed)`: a fixed mask compiles to a few multiplications.
    template <typename Index, typename Digit> void buildDense(const Index& index, Digit digit);
    template <typename Index> void buildSparse(const Index& index);

    quint64 m_mask = 0;
    quint64 m_alphabetSize = 0;
    std::array<int, 4> m_shifts{}; // the key's letters in the packed value, first letter first
    int m_letterCount = 0;
    bool m_dense = false;            // keys are numbered densely: m_groupOfDigit finds them
    std::vector<int> m_groupOfDigit; // dense key number -> group, or -1
    std::vector<Key> m_keys;
    std::vector<int> m_offsets; // group g is m_ids[m_offsets[g] .. m_offsets[g + 1])
    std::vector<int> m_ids;
    std::vector<int> m_table; // open addressing: group numbers, -1 for an empty slot
    int m_tableBits = 0;
    std::vector<int> m_scratch; // for the sparse build
    std::vector<int> m_count;
};

class WordIndex {
public:
    using Letter = quint16;
    using Letters = std::array<Letter, 4>;

    static constexpr quint64 kFirstTwo = 0xFFFF'FFFF'0000'0000ULL;
    static constexpr quint64 kFirstTwoAndLast = 0xFFFF'FFFF'0000'FFFFULL;

    static quint64 pack(quint64 l0, quint64 l1, quint64 l2, quint64 l3) {
        return (l0 << 48) | (l1 << 32) | (l2 << 16) | l3;
    }

    // Indexes the entries of `list` as they are now. Returns false, leaving no index, when the
    // letters use more distinct characters than a Letter can number (65535).
    bool build(const clsSimpleArray& list);
    // Forgets the index (keeping storage for the next build).
    void clear();

    // True when the index describes `list` as it is now (same revision).
    bool isBuiltFor(const clsSimpleArray& list) const;
    // Records that the indexed list now has `revision` (after a removal mirrored by remove()).
    void setRevision(quint64 revision) { m_revision = revision; }

    // Ids run from 0 to entryCount() - 1, removed ones included.
    int entryCount() const { return static_cast<int>(m_flags.size()); }
    int removedCount() const { return static_cast<int>(m_removed.size()); }
    int alphabetSize() const { return static_cast<int>(m_codePoints.size()); }
    bool alive(int id) const { return (m_flags[static_cast<size_t>(id)] & kDead) == 0; }
    bool hasLetters(int id) const { return kindOf(id) != Kind::Short; }
    bool plain(int id) const { return kindOf(id) == Kind::Plain; }
    // The characters of an entry with letters when it is exactly its four letters, or its four
    // letters and "*" (every entry a dictionary load makes): copied into `text` (room for 5),
    // returning how many. 0 for any other entry, whose text must be read from the list.
    int regularText(int id, char32_t* text) const;
    // The length regularText() gives, without copying.
    int regularLength(int id) const {
        const Tail tail = tailOf(id);
        if (kindOf(id) == Kind::Short || tail == Tail::Other)
            return 0;
        return tail == Tail::None ? 4 : 5;
    }
    // The ids of the entries for which regularText() gives 0 (fewer than four characters, or
    // more after the letters than one "*"), ascending.
    const std::vector<int>& irregular() const { return m_irregular; }
    // The text of one letter as it stands in the entries (a lone surrogate stays one unit).
    QString letterText(Letter letter) const;
    // The packed letters of an entry. Precondition: hasLetters(id).
    quint64 packed(int id) const {
        return m_wide.empty() ? widen(m_narrow[static_cast<size_t>(id)])
                              : m_wide[static_cast<size_t>(id)];
    }
    // Letter `position` (0..3) of an entry. Precondition: hasLetters(id).
    Letter letter(int id, int position) const {
        if (!m_wide.empty())
            return static_cast<Letter>(m_wide[static_cast<size_t>(id)] >> (48 - 16 * position));
        return static_cast<Letter>((m_narrow[static_cast<size_t>(id)] >> (24 - 8 * position)) &
                                   0xFF);
    }
    char32_t codePoint(Letter letter) const { return m_codePoints[letter]; }
    // The letter of a character, or -1 when no entry holds it among its first four.
    int letterOf(char32_t c) const { return m_alphabet.find(c); }
    // The position of a live entry in the list now.
    int currentIndex(int id) const;

    // Mirrors the removal of the live entry `id` from the list.
    void remove(int id);

    // Entries by letters 0 and 1; by 0, 1 and 3.
    const KeyedEntryLists& byFirstTwo() const { return m_k01; }
    const KeyedEntryLists& byFirstTwoAndLast() const { return m_k013; }
    // The byFirstTwo() groups whose first letter is `first`: group numbers begin..end-1
    // (groups are numbered in the order of their letters). An entry with first letter a and
    // last letter b is in byFirstTwoAndLast() under a, one of these second letters, and b.
    std::pair<int, int> firstTwoGroupsWithFirst(Letter first) const {
        return {m_firstOffsets[first], m_firstOffsets[first + 1u]};
    }

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
    // What follows the four letters: nothing, one "*", or anything else (or nothing known).
    enum class Tail : quint8 { None, Mark, Other };
    // An entry's flags: its kind (bits 0-1), its tail (bits 2-3), and whether it was removed.
    static constexpr quint8 kDead = 0x10;
    Kind kindOf(int id) const { return static_cast<Kind>(m_flags[static_cast<size_t>(id)] & 3); }
    Tail tailOf(int id) const {
        return static_cast<Tail>((m_flags[static_cast<size_t>(id)] >> 2) & 3);
    }
    // Four letters of a byte each, packed.
    static quint64 widen(quint64 n) {
        return ((n & 0xFF00'0000) << 24) | ((n & 0xFF'0000) << 16) | ((n & 0xFF00) << 8) |
               (n & 0xFF);
    }
    // Files entry `id` with these letters, kind and tail.
    void setEntry(int id, quint64 a, quint64 b, quint64 c, quint64 d, Kind kind, Tail tail);
    // The byFirstTwo() group of an entry with letters.
    int groupOf01(int id) const { return m_k01.findGroup(m_k01.keyOf(packed(id))); }

    // Numbers characters densely: a table for the most common characters, a hash beyond.
    class Alphabet {
    public:
        void clear(std::vector<char32_t>& codePoints);
        // The number of `c`, or -1 when the alphabet is full.
        int letterOf(char32_t c, std::vector<char32_t>& codePoints) {
            if (c < kTableSize && m_table[c] != kNone)
                return m_table[c];
            return addLetter(c, codePoints);
        }
        // The number of `c`, or -1 when it has none.
        int find(char32_t c) const {
            if (c < kTableSize)
                return m_table.empty() || m_table[c] == kNone ? -1 : m_table[c];
            return m_other.value(c, -1);
        }
        // The number of a character below kTableSize already numbered, else kNone.
        quint16 known(char16_t c) const { return c < kTableSize ? m_table[c] : kNone; }

        static constexpr char32_t kTableSize = 0x800;
        static constexpr quint16 kNone = 0xFFFF;

    private:
        int addLetter(char32_t c, std::vector<char32_t>& codePoints);
        std::vector<quint16> m_table;
        QHash<char32_t, int> m_other;
    };

    static Tail tailAfter(QStringView entry, qsizetype end);
    void sortGroupsBySecond(Letter second);
    void buildHeads();

    quint64 m_revision = 0;
    bool m_built = false;
    Alphabet m_alphabet;
    // The letters of every entry (0 for an entry without): one byte each while the alphabet
    // has at most 256 letters (m_narrow, letter 0 in the top byte), else packed (m_wide).
    std::vector<quint32> m_narrow;
    std::vector<quint64> m_wide;
    std::vector<quint8> m_flags;
    std::vector<int> m_irregular; // ids without a regular text, ascending
    std::vector<char32_t> m_codePoints;
    std::vector<quint8> m_specialLetter; // letter -> a wildcard character or lone surrogate
    std::vector<int> m_removed;          // ascending
    KeyedEntryLists m_k01;
    KeyedEntryLists m_k013;
    std::vector<int> m_firstOffsets;   // first letter -> range of byFirstTwo() groups
    std::vector<int> m_head01;         // byFirstTwo() group -> first live entry or -1
    std::vector<int> m_secondOffsets;  // second letter -> range in m_groupsBySecond
    std::vector<int> m_groupsBySecond; // byFirstTwo() groups, bucketed by second letter
    std::vector<int> m_headOffsets;    // byFirstTwo() group -> range in m_heads
    std::vector<int> m_headCount;      // byFirstTwo() group -> live heads in its range
    std::vector<int> m_heads;          // third-letter heads per byFirstTwo() group
    std::vector<int> m_seen;           // scratch: per letter, the last group seen
};
