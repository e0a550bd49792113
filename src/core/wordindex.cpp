// The generator's index over a word list; see wordindex.h.
#include "core/wordindex.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"

#include <QHash>

#include <algorithm>
#include <limits>

namespace {

constexpr int kLetterBits = 16;
constexpr quint64 kLetterMask = 0xFFFF;
constexpr int kMaxAlphabet = std::numeric_limits<quint16>::max(); // one value kept free
constexpr quint16 kNoLetter = 0xFFFF;
// Keys whose letters can take at most this many values are numbered densely.
constexpr quint64 kDenseKeys = 1 << 15;

bool isWildcardCharacter(char32_t c) {
    return c == U'?' || c == U'*' || c == U'#' || c == U'[';
}

bool isSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

// Scratch of an id per entry is kept from one build to the next for small lists (allocating
// it afresh costs more than building their index) and given back for large ones, whose
// memory counts (they do without it where they can).
constexpr int kKeptScratch = 1 << 18;
void releaseIfLarge(std::vector<int>& scratch) {
    if (scratch.capacity() > size_t{kKeptScratch})
        std::vector<int>().swap(scratch);
}

} // namespace

// What follows the letters of `entry`, which end at code unit `end`.
WordIndex::Tail WordIndex::tailAfter(QStringView entry, qsizetype end) {
    if (end == entry.size())
        return Tail::None;
    if (end + 1 == entry.size() && entry[end] == u'*')
        return Tail::Mark;
    return Tail::Other;
}

namespace {} // namespace

template <typename Index>
void KeyedEntryLists::build(const Index& index, quint64 mask, int alphabetSize) {
    m_mask = mask;
    m_alphabetSize = static_cast<quint64>(std::max(alphabetSize, 1));
    m_letterCount = 0;
    quint64 space = 1;
    for (int shift = 48; shift >= 0; shift -= kLetterBits) {
        if (((mask >> shift) & kLetterMask) == 0)
            continue;
        m_shifts[static_cast<size_t>(m_letterCount++)] = shift;
        space = std::min(space * m_alphabetSize, kDenseKeys + 1);
    }
    m_dense = space <= kDenseKeys;
    m_keys.clear();
    m_offsets.clear();
    if (!m_dense) {
        buildSparse(index);
        releaseIfLarge(m_scratch);
        return;
    }
    const quint64 base = m_alphabetSize;
    auto at = [](quint64 p, int shift) { return (p >> shift) & kLetterMask; };
    switch (mask) {
    case WordIndex::kFirstTwo:
        buildDense(index, [=](quint64 p) { return at(p, 48) * base + at(p, 32); });
        break;
    case WordIndex::kFirstTwoAndLast:
        buildDense(index,
                   [=](quint64 p) { return (at(p, 48) * base + at(p, 32)) * base + at(p, 0); });
        break;
    default:
        buildDense(index, [this](quint64 p) { return digitOf(p); });
    }
    releaseIfLarge(m_scratch);
}

template <typename Index, typename Digit>
void KeyedEntryLists::buildDense(const Index& index, Digit digitOfPacked) {
    // One stable counting sort by the whole key: ids stay ascending within a group. The digit
    // of an entry is computed twice rather than kept, which would cost four bytes an entry.
    quint64 space = 1;
    for (int k = 0; k < m_letterCount; ++k)
        space *= m_alphabetSize;
    const int entries = index.entryCount();
    m_count.assign(space + 1, 0);
    int indexed = 0;
    // A small list keeps each digit for the second pass; a large one computes it again.
    const bool keepDigits = entries <= kKeptScratch;
    if (keepDigits)
        m_scratch.resize(static_cast<size_t>(entries));
    for (int id = 0; id < entries; ++id) {
        if (!index.hasLetters(id))
            continue;
        const auto digit = static_cast<int>(digitOfPacked(index.packed(id)));
        if (keepDigits)
            m_scratch[static_cast<size_t>(id)] = digit;
        ++m_count[static_cast<size_t>(digit) + 1];
        ++indexed;
    }
    m_groupOfDigit.assign(space, -1);
    for (quint64 d = 0; d < space; ++d) {
        if (m_count[d + 1] > 0) {
            m_groupOfDigit[d] = static_cast<int>(m_keys.size());
            m_offsets.push_back(m_count[d]); // where the group starts (the sum so far)
            m_keys.push_back(0);
        }
        m_count[d + 1] += m_count[d];
    }
    m_offsets.push_back(indexed);
    m_ids.resize(static_cast<size_t>(indexed));
    for (int id = 0; id < entries; ++id) {
        if (!index.hasLetters(id))
            continue;
        const auto digit = keepDigits ? static_cast<size_t>(m_scratch[static_cast<size_t>(id)])
                                      : static_cast<size_t>(digitOfPacked(index.packed(id)));
        m_ids[static_cast<size_t>(m_count[digit]++)] = id;
    }
    for (size_t g = 0; g < m_keys.size(); ++g)
        m_keys[g] = keyOf(index.packed(m_ids[static_cast<size_t>(m_offsets[g])]));
}

template <typename Index> void KeyedEntryLists::buildSparse(const Index& index) {
    // Stable counting sorts by each letter of the key, the last one first: ids stay ascending
    // within a group because they start ascending.
    m_ids.clear();
    for (int id = 0; id < index.entryCount(); ++id) {
        if (index.hasLetters(id))
            m_ids.push_back(id);
    }
    m_scratch.resize(m_ids.size());
    for (int k = m_letterCount - 1; k >= 0; --k) {
        const int shift = m_shifts[static_cast<size_t>(k)];
        m_count.assign(static_cast<size_t>(m_alphabetSize) + 1, 0);
        for (const int id : m_ids)
            ++m_count[((index.packed(id) >> shift) & kLetterMask) + 1];
        for (size_t n = 1; n < m_count.size(); ++n)
            m_count[n] += m_count[n - 1];
        for (const int id : m_ids) {
            const auto letter = (index.packed(id) >> shift) & kLetterMask;
            m_scratch[static_cast<size_t>(m_count[letter]++)] = id;
        }
        m_ids.swap(m_scratch);
    }
    for (size_t k = 0; k < m_ids.size(); ++k) {
        const Key key = keyOf(index.packed(m_ids[k]));
        if (m_keys.empty() || m_keys.back() != key) {
            m_keys.push_back(key);
            m_offsets.push_back(static_cast<int>(k));
        }
    }
    m_offsets.push_back(static_cast<int>(m_ids.size()));

    m_tableBits = 4;
    while ((size_t{1} << m_tableBits) < 2 * m_keys.size())
        ++m_tableBits;
    m_table.assign(size_t{1} << m_tableBits, -1);
    for (size_t g = 0; g < m_keys.size(); ++g)
        m_table[slotOf(m_keys[g])] = static_cast<int>(g);
}

size_t KeyedEntryLists::slotOf(Key key) const {
    const size_t last = m_table.size() - 1;
    size_t slot = static_cast<size_t>((key * 0x9E3779B97F4A7C15ULL) >> (64 - m_tableBits));
    while (m_table[slot] >= 0 && m_keys[static_cast<size_t>(m_table[slot])] != key)
        slot = (slot + 1) & last;
    return slot;
}

int KeyedEntryLists::findGroup(Key key) const {
    if (m_dense) {
        const quint64 digit = digitOf(key);
        return digit < m_groupOfDigit.size() ? m_groupOfDigit[digit] : -1;
    }
    if (m_table.empty())
        return -1;
    return m_table[slotOf(key)];
}

void WordIndex::Alphabet::clear(std::vector<char32_t>& codePoints) {
    m_table.assign(kTableSize, kNoLetter);
    m_other.clear();
    codePoints.clear();
}

int WordIndex::Alphabet::addLetter(char32_t c, std::vector<char32_t>& codePoints) {
    if (c < kTableSize) {
        quint16& slot = m_table[c];
        if (slot == kNoLetter) {
            if (codePoints.size() >= kMaxAlphabet)
                return -1;
            slot = static_cast<quint16>(codePoints.size());
            codePoints.push_back(c);
        }
        return slot;
    }
    const auto it = m_other.constFind(c);
    if (it != m_other.constEnd())
        return it.value();
    if (codePoints.size() >= kMaxAlphabet)
        return -1;
    const int letter = static_cast<int>(codePoints.size());
    m_other.insert(c, letter);
    codePoints.push_back(c);
    return letter;
}

void WordIndex::clear() {
    m_built = false;
    m_revision = 0;
    m_narrow.clear();
    m_wide.clear();
    m_flags.clear();
    m_irregular.clear();
    m_removed.clear();
}

bool WordIndex::isBuiltFor(const clsSimpleArray& list) const {
    return m_built && m_revision == list.revision();
}

void WordIndex::setEntry(int id, quint64 a, quint64 b, quint64 c, quint64 d, Kind kind, Tail tail) {
    const auto k = static_cast<size_t>(id);
    if (m_wide.empty() && (a | b | c | d) > 0xFF) { // the 257th letter: four bytes no longer do
        m_wide.resize(m_narrow.size());
        for (size_t i = 0; i < m_narrow.size(); ++i)
            m_wide[i] = widen(m_narrow[i]);
        std::vector<quint32>().swap(m_narrow);
    }
    if (m_wide.empty())
        m_narrow[k] = static_cast<quint32>((a << 24) | (b << 16) | (c << 8) | d);
    else
        m_wide[k] = pack(a, b, c, d);
    m_flags[k] = static_cast<quint8>(static_cast<int>(kind) | (static_cast<int>(tail) << 2));
    if (tail == Tail::Other)
        m_irregular.push_back(id);
}

bool WordIndex::build(const clsSimpleArray& list) {
    clear();
    m_alphabet.clear(m_codePoints);
    const int count = list.ListCount();
    m_narrow.assign(static_cast<size_t>(count), 0);
    m_flags.assign(static_cast<size_t>(count),
                   static_cast<quint8>(Kind::Short) | (static_cast<quint8>(Tail::Other) << 2));
    m_specialLetter.clear();
    for (int id = 0; id < count; ++id) {
        const QStringView entry = list.itemView(id);
        // The usual entry: four known characters of the common range, none a surrogate.
        if (entry.size() >= 4) {
            const quint16 a = m_alphabet.known(entry[0].unicode());
            const quint16 b = m_alphabet.known(entry[1].unicode());
            const quint16 c = m_alphabet.known(entry[2].unicode());
            const quint16 d = m_alphabet.known(entry[3].unicode());
            if (a != Alphabet::kNone && b != Alphabet::kNone && c != Alphabet::kNone &&
                d != Alphabet::kNone) {
                const bool special = m_specialLetter[a] | m_specialLetter[b] | m_specialLetter[c] |
                                     m_specialLetter[d];
                const Kind kind = special ? Kind::Special : Kind::Plain;
                const Tail tail = tailAfter(entry, 4);
                if (m_wide.empty() && (a | b | c | d) <= 0xFF && tail != Tail::Other) {
                    const auto k = static_cast<size_t>(id);
                    m_narrow[k] = (quint32(a) << 24) | (quint32(b) << 16) | (quint32(c) << 8) | d;
                    m_flags[k] = static_cast<quint8>(int(kind) | (int(tail) << 2));
                    continue;
                }
                setEntry(id, a, b, c, d, kind, tail);
                continue;
            }
        }
        std::array<quint64, 4> letters{};
        bool special = false;
        qsizetype i = 0;
        int taken = 0;
        for (; taken < 4 && i < entry.size(); ++taken) {
            const char32_t c = nextCodePoint(entry, i);
            const int letter = m_alphabet.letterOf(c, m_codePoints);
            if (letter < 0) {
                clear();
                return false;
            }
            letters[static_cast<size_t>(taken)] = static_cast<quint64>(letter);
            if (static_cast<size_t>(letter) >= m_specialLetter.size())
                m_specialLetter.push_back(isWildcardCharacter(c) || isSurrogate(c) ? 1 : 0);
            special = special || m_specialLetter[static_cast<size_t>(letter)] != 0;
        }
        if (taken < 4) {
            m_irregular.push_back(id);
            continue;
        }
        setEntry(id, letters[0], letters[1], letters[2], letters[3],
                 special ? Kind::Special : Kind::Plain, tailAfter(entry, i));
    }
    const int size = alphabetSize();
    m_k01.build(*this, kFirstTwo, size);
    m_k013.build(*this, kFirstTwoAndLast, size);
    buildHeads();
    m_revision = list.revision();
    m_built = true;
    return true;
}

void WordIndex::buildHeads() {
    const int groups = m_k01.groupCount();
    m_head01.assign(static_cast<size_t>(groups), -1);
    m_headOffsets.assign(static_cast<size_t>(groups) + 1, 0);
    m_headCount.assign(static_cast<size_t>(groups), 0);
    m_heads.clear();

    // Third-letter heads: the first entry of each third letter in each group.
    std::vector<int>& seenIn = m_seen;
    seenIn.assign(static_cast<size_t>(alphabetSize()), -1);
    for (int g = 0; g < groups; ++g) {
        const std::span<const int> ids = m_k01.group(g);
        m_head01[static_cast<size_t>(g)] = ids.front();
        m_headOffsets[static_cast<size_t>(g)] = static_cast<int>(m_heads.size());
        for (const int id : ids) {
            const Letter third = letter(id, 2);
            if (seenIn[third] != g) {
                seenIn[third] = g;
                m_heads.push_back(id);
            }
        }
        m_headCount[static_cast<size_t>(g)] =
            static_cast<int>(m_heads.size()) - m_headOffsets[static_cast<size_t>(g)];
    }
    m_headOffsets[static_cast<size_t>(groups)] = static_cast<int>(m_heads.size());

    // Groups bucketed by their second letter, each bucket ordered by first entry.
    // Groups are numbered in key order: those of one first letter are consecutive.
    m_firstOffsets.assign(static_cast<size_t>(alphabetSize()) + 1, 0);
    for (int g = 0; g < groups; ++g)
        ++m_firstOffsets[(m_k01.groupKey(g) >> 48) + 1];
    for (size_t k = 1; k < m_firstOffsets.size(); ++k)
        m_firstOffsets[k] += m_firstOffsets[k - 1];

    m_secondOffsets.assign(static_cast<size_t>(alphabetSize()) + 1, 0);
    auto secondOf = [this](int g) { return (m_k01.groupKey(g) >> 32) & kLetterMask; };
    for (int g = 0; g < groups; ++g)
        ++m_secondOffsets[secondOf(g) + 1];
    for (size_t k = 1; k < m_secondOffsets.size(); ++k)
        m_secondOffsets[k] += m_secondOffsets[k - 1];
    m_groupsBySecond.assign(static_cast<size_t>(groups), 0);
    std::vector<int>& fill = m_seen;
    fill.assign(m_secondOffsets.begin(), m_secondOffsets.end() - 1);
    for (int g = 0; g < groups; ++g)
        m_groupsBySecond[static_cast<size_t>(fill[secondOf(g)]++)] = g;
    for (int second = 0; second < alphabetSize(); ++second)
        sortGroupsBySecond(static_cast<Letter>(second));
}

void WordIndex::sortGroupsBySecond(Letter second) {
    const auto begin = m_groupsBySecond.begin() + m_secondOffsets[second];
    const auto end = m_groupsBySecond.begin() + m_secondOffsets[second + 1u];
    auto order = [this](int g) {
        const int head = m_head01[static_cast<size_t>(g)];
        return head < 0 ? std::numeric_limits<int>::max() : head;
    };
    std::sort(begin, end, [&](int a, int b) { return order(a) < order(b); });
}

int WordIndex::currentIndex(int id) const {
    const auto below = std::lower_bound(m_removed.begin(), m_removed.end(), id) - m_removed.begin();
    return id - static_cast<int>(below);
}

std::span<const int> WordIndex::firstTwoGroupsWithSecond(Letter second) const {
    const auto begin = static_cast<size_t>(m_secondOffsets[second]);
    const auto end = static_cast<size_t>(m_secondOffsets[second + 1u]);
    return std::span<const int>(m_groupsBySecond).subspan(begin, end - begin);
}

std::span<const int> WordIndex::thirdLetterHeads(int g) const {
    return std::span<const int>(m_heads).subspan(
        static_cast<size_t>(m_headOffsets[static_cast<size_t>(g)]),
        static_cast<size_t>(m_headCount[static_cast<size_t>(g)]));
}

int WordIndex::nextWithSameFirstThree(int id) const {
    // Its group by the first two letters lists the candidates in list order.
    const std::span<const int> ids = m_k01.group(groupOf01(id));
    const Letter third = letter(id, 2);
    for (auto it = std::upper_bound(ids.begin(), ids.end(), id); it != ids.end(); ++it) {
        if (letter(*it, 2) == third && alive(*it))
            return *it;
    }
    return -1;
}

void WordIndex::remove(int id) {
    m_flags[static_cast<size_t>(id)] |= kDead;
    m_removed.insert(std::lower_bound(m_removed.begin(), m_removed.end(), id), id);
    if (!hasLetters(id))
        return;
    const int g = groupOf01(id);

    // Its third-letter head, if it was one, passes to the next entry of the same three letters.
    const auto headsBegin = m_heads.begin() + m_headOffsets[static_cast<size_t>(g)];
    int& count = m_headCount[static_cast<size_t>(g)];
    const auto headsEnd = headsBegin + count;
    const auto at = std::lower_bound(headsBegin, headsEnd, id);
    if (at != headsEnd && *at == id) {
        std::copy(at + 1, headsEnd, at);
        --count;
        const int next = nextWithSameFirstThree(id);
        if (next >= 0) {
            const auto newEnd = headsBegin + count;
            const auto place = std::upper_bound(headsBegin, newEnd, next);
            std::copy_backward(place, newEnd, newEnd + 1);
            *place = next;
            ++count;
        }
    }

    // Its group's first live entry, and with it the order of the groups sharing its letter.
    if (m_head01[static_cast<size_t>(g)] == id) {
        const std::span<const int> ids = m_k01.group(g);
        auto it = std::upper_bound(ids.begin(), ids.end(), id);
        while (it != ids.end() && !alive(*it))
            ++it;
        m_head01[static_cast<size_t>(g)] = it == ids.end() ? -1 : *it;
        sortGroupsBySecond(letter(id, 1));
    }
}

int WordIndex::regularText(int id, char32_t* text) const {
    const Tail tail = tailOf(id);
    if (kindOf(id) == Kind::Short || tail == Tail::Other)
        return 0;
    for (int k = 0; k < 4; ++k)
        text[k] = m_codePoints[letter(id, k)];
    if (tail == Tail::None)
        return 4;
    text[4] = U'*';
    return 5;
}

QString WordIndex::letterText(Letter letter) const {
    const char32_t c = m_codePoints[letter];
    if (c >= 0x10000) {
        const QChar pair[2] = {QChar::highSurrogate(c), QChar::lowSurrogate(c)};
        return QString(pair, 2);
    }
    return QString(QChar(static_cast<char16_t>(c)));
}
