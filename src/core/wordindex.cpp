// The generator's index over a word list; see wordindex.h.
#include "core/wordindex.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"

#include <QHash>

#include <algorithm>
#include <limits>

namespace {

constexpr int kLetterBits = 16;
constexpr int kMaxAlphabet = std::numeric_limits<quint16>::max(); // one value kept free
constexpr char16_t kNoLetter = 0xFFFF;

bool isWildcardCharacter(char32_t c) {
    return c == U'?' || c == U'*' || c == U'#' || c == U'[';
}

bool isSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

// Numbers the characters of the letters densely: a table for the common plane, a hash beyond.
class Alphabet {
public:
    Alphabet()
        : m_table(0x10000, kNoLetter) {}

    // The number of `c`, or -1 when the alphabet is full.
    int letterOf(char32_t c, std::vector<char32_t>& codePoints) {
        if (c < 0x10000) {
            char16_t& slot = m_table[c];
            if (slot == kNoLetter) {
                if (codePoints.size() >= kMaxAlphabet)
                    return -1;
                slot = static_cast<char16_t>(codePoints.size());
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

private:
    std::vector<char16_t> m_table;
    QHash<char32_t, int> m_other;
};

} // namespace

void KeyedEntryLists::build(const std::vector<Letters>& letters, const std::vector<int>& ids,
                            std::vector<int> positions, int alphabetSize) {
    m_positions = std::move(positions);
    // Stable counting sorts from the last key position to the first: ids stay ascending within
    // a group because they start ascending.
    std::vector<int> order = ids;
    std::vector<int> sorted(order.size());
    std::vector<int> start(static_cast<size_t>(alphabetSize) + 1);
    for (auto p = m_positions.rbegin(); p != m_positions.rend(); ++p) {
        std::fill(start.begin(), start.end(), 0);
        for (const int id : order)
            ++start[letters[static_cast<size_t>(id)][*p] + 1u];
        for (size_t k = 1; k < start.size(); ++k)
            start[k] += start[k - 1];
        for (const int id : order)
            sorted[static_cast<size_t>(start[letters[static_cast<size_t>(id)][*p]]++)] = id;
        order.swap(sorted);
    }
    m_keys.clear();
    m_offsets.clear();
    for (size_t k = 0; k < order.size(); ++k) {
        const quint64 key = keyOf(letters[static_cast<size_t>(order[k])]);
        if (m_keys.empty() || m_keys.back() != key) {
            m_keys.push_back(key);
            m_offsets.push_back(static_cast<int>(k));
        }
    }
    m_offsets.push_back(static_cast<int>(order.size()));
    m_ids = std::move(order);
}

quint64 KeyedEntryLists::keyOf(const Letters& letters) const {
    quint64 key = 0;
    for (const int p : m_positions)
        key = (key << kLetterBits) | letters[static_cast<size_t>(p)];
    return key;
}

int KeyedEntryLists::findGroup(quint64 key) const {
    const auto it = std::lower_bound(m_keys.begin(), m_keys.end(), key);
    if (it == m_keys.end() || *it != key)
        return -1;
    return static_cast<int>(it - m_keys.begin());
}

std::span<const int> KeyedEntryLists::group(int g) const {
    const auto begin = static_cast<size_t>(m_offsets[static_cast<size_t>(g)]);
    const auto end = static_cast<size_t>(m_offsets[static_cast<size_t>(g) + 1]);
    return std::span<const int>(m_ids).subspan(begin, end - begin);
}

void WordIndex::clear() {
    *this = WordIndex();
}

bool WordIndex::isBuiltFor(const clsSimpleArray& list) const {
    return m_built && m_revision == list.revision();
}

bool WordIndex::build(const clsSimpleArray& list) {
    clear();
    const int count = list.ListCount();
    m_letters.resize(static_cast<size_t>(count));
    m_kind.assign(static_cast<size_t>(count), Kind::Short);
    m_alive.assign(static_cast<size_t>(count), 1);
    std::vector<int> indexed;
    indexed.reserve(static_cast<size_t>(count));
    Alphabet alphabet;
    for (int id = 0; id < count; ++id) {
        const QString entry = list.List(id);
        Letters& letters = m_letters[static_cast<size_t>(id)];
        bool special = false;
        qsizetype i = 0;
        int taken = 0;
        for (; taken < 4 && i < entry.size(); ++taken) {
            const char32_t c = nextCodePoint(entry, i);
            const int letter = alphabet.letterOf(c, m_codePoints);
            if (letter < 0) {
                clear();
                return false;
            }
            letters[static_cast<size_t>(taken)] = static_cast<Letter>(letter);
            special = special || isWildcardCharacter(c) || isSurrogate(c);
        }
        if (taken < 4)
            continue;
        m_kind[static_cast<size_t>(id)] = special ? Kind::Special : Kind::Plain;
        indexed.push_back(id);
    }
    const int size = alphabetSize();
    m_k01.build(m_letters, indexed, {0, 1}, size);
    m_k013.build(m_letters, indexed, {0, 1, 3}, size);
    m_k0123.build(m_letters, indexed, {0, 1, 2, 3}, size);
    m_k03.build(m_letters, indexed, {0, 3}, size);
    buildHeads();
    m_revision = list.revision();
    m_built = true;
    return true;
}

void WordIndex::buildHeads() {
    const int groups = m_k01.groupCount();
    m_groupOf01.assign(m_letters.size(), -1);
    m_head01.assign(static_cast<size_t>(groups), -1);
    m_headOffsets.assign(static_cast<size_t>(groups) + 1, 0);
    m_headCount.assign(static_cast<size_t>(groups), 0);
    m_heads.clear();
    m_nextSameThree.assign(m_letters.size(), -1);

    // Third-letter heads and the chains of entries sharing the first three letters.
    std::vector<int> lastOfThird(static_cast<size_t>(alphabetSize()), -1);
    std::vector<int> seenIn(static_cast<size_t>(alphabetSize()), -1);
    for (int g = 0; g < groups; ++g) {
        const std::span<const int> ids = m_k01.group(g);
        m_head01[static_cast<size_t>(g)] = ids.front();
        m_headOffsets[static_cast<size_t>(g)] = static_cast<int>(m_heads.size());
        for (const int id : ids) {
            m_groupOf01[static_cast<size_t>(id)] = g;
            const Letter third = m_letters[static_cast<size_t>(id)][2];
            if (seenIn[third] != g) {
                seenIn[third] = g;
                m_heads.push_back(id);
            } else {
                m_nextSameThree[static_cast<size_t>(lastOfThird[third])] = id;
            }
            lastOfThird[third] = id;
        }
        m_headCount[static_cast<size_t>(g)] =
            static_cast<int>(m_heads.size()) - m_headOffsets[static_cast<size_t>(g)];
    }
    m_headOffsets[static_cast<size_t>(groups)] = static_cast<int>(m_heads.size());

    // Groups bucketed by their second letter, each bucket ordered by first entry.
    m_secondOffsets.assign(static_cast<size_t>(alphabetSize()) + 1, 0);
    for (int g = 0; g < groups; ++g)
        ++m_secondOffsets[(m_k01.groupKey(g) & 0xFFFF) + 1];
    for (size_t k = 1; k < m_secondOffsets.size(); ++k)
        m_secondOffsets[k] += m_secondOffsets[k - 1];
    m_groupsBySecond.assign(static_cast<size_t>(groups), 0);
    std::vector<int> fill(m_secondOffsets.begin(), m_secondOffsets.end() - 1);
    for (int g = 0; g < groups; ++g)
        m_groupsBySecond[static_cast<size_t>(fill[m_k01.groupKey(g) & 0xFFFF]++)] = g;
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
    int next = m_nextSameThree[static_cast<size_t>(id)];
    while (next >= 0 && !alive(next))
        next = m_nextSameThree[static_cast<size_t>(next)];
    return next;
}

void WordIndex::remove(int id) {
    m_alive[static_cast<size_t>(id)] = 0;
    m_removed.insert(std::lower_bound(m_removed.begin(), m_removed.end(), id), id);
    const int g = m_groupOf01[static_cast<size_t>(id)];
    if (g < 0)
        return;

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
        sortGroupsBySecond(m_letters[static_cast<size_t>(id)][1]);
    }
}
