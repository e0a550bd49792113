// The generator's lists of pattern matches; see patternlists.h.
#include "core/patternlists.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"

#include <algorithm>
#include <bit>
#include <functional>

namespace {

// Tables per letter are built for alphabets up to this size; larger ones test characters.
constexpr int kTableAlphabet = 4096;
// More placings than this (patterns full of "*") are not listed: such texts are tested as
// characters.
constexpr size_t kMaxAlignments = 64;
// Up to this many candidates are tested as characters, without building tables.
constexpr size_t kFewCandidates = 48;

} // namespace

PatternLists::Matcher::Matcher(QString pattern)
    : m_pattern(std::move(pattern))
    , m_tokens(m_pattern) {}

void PatternLists::Matcher::useTables(const WordIndex& index) {
    if (m_byTables || m_tokens.matchesNothing() || index.alphabetSize() > kTableAlphabet ||
        !align())
        return;
    m_byTables = true;
    const auto letters = static_cast<size_t>(index.alphabetSize());
    const auto count = static_cast<size_t>(m_tokens.tokenCount());
    m_takes.resize(count);
    m_takesMark.assign(count, 0);
    for (size_t k = 0; k < count; ++k) {
        if (m_tokens.isStar(static_cast<int>(k)))
            continue;
        std::vector<quint8>& table = m_takes[k];
        table.resize(letters);
        for (size_t l = 0; l < letters; ++l)
            table[l] = m_tokens.takes(static_cast<int>(k),
                                      index.codePoint(static_cast<WordIndex::Letter>(l)));
        m_takesMark[k] = m_tokens.takes(static_cast<int>(k), U'*');
    }
}

bool PatternLists::Matcher::align() {
    // Every way of giving each token one character and each "*" a run, over texts of four and
    // five characters.
    Alignment current{};
    bool tooMany = false;
    const int count = m_tokens.tokenCount();
    std::function<void(int, int, int)> place = [&](int token, int at, int length) {
        if (tooMany)
            return;
        if (token == count) {
            if (at != length)
                return;
            auto& list = m_alignments[static_cast<size_t>(length - 4)];
            if (std::find(list.begin(), list.end(), current) == list.end())
                list.push_back(current);
            tooMany = list.size() > kMaxAlignments;
            return;
        }
        if (m_tokens.isStar(token)) {
            for (int run = 0; at + run <= length; ++run) {
                for (int p = at; p < at + run; ++p)
                    current[static_cast<size_t>(p)] = -1;
                place(token + 1, at + run, length);
            }
            return;
        }
        if (at < length) {
            current[static_cast<size_t>(at)] = token;
            place(token + 1, at + 1, length);
        }
    };
    for (const int length : {4, 5}) {
        current.fill(-1);
        place(0, 0, length);
    }
    return !tooMany;
}

bool PatternLists::Matcher::matches(int id, const WordIndex& index,
                                    const clsSimpleArray& wordList) const {
    if (m_byTables) {
        const int length = index.regularLength(id);
        if (length > 0) {
            for (const Alignment& a : m_alignments[static_cast<size_t>(length - 4)]) {
                bool all = true;
                for (int p = 0; p < 4 && all; ++p) {
                    const int k = a[static_cast<size_t>(p)];
                    all = k < 0 || m_takes[static_cast<size_t>(k)][index.letter(id, p)];
                }
                if (all && length == 5 && a[4] >= 0)
                    all = m_takesMark[static_cast<size_t>(a[4])] != 0;
                if (all)
                    return true;
            }
            return false;
        }
    }
    char32_t text[5];
    const int length = index.regularText(id, text);
    if (length > 0)
        return m_tokens.matches(std::span<const char32_t>(text, static_cast<size_t>(length)));
    return matchesWildcard(wordList.itemView(index.currentIndex(id)), m_pattern);
}

void PatternLists::clear() {
    m_lists.clear();
    m_byKey.clear();
    for (auto& offsets : m_placeOffsets)
        offsets.clear();
}

void PatternLists::resetCursors() {
    for (List& list : m_lists)
        list.stamp = 0;
}

PatternLists::List& PatternLists::list(Kind kind, quint64 letters) {
    const auto [it, added] = m_byKey.try_emplace(Key{letters, kind}, m_lists.size());
    if (!added)
        return m_lists[it->second];
    List& list = m_lists.emplace_back();
    start(list, std::make_unique<Matcher>(patternText(kind, letters)));
    return list;
}

int PatternLists::find(List& list, std::vector<quint8>& marks, quint32 stamp) {
    if (list.stamp != stamp) {
        list.stamp = stamp;
        list.cursor = 0;
    }
    for (;;) {
        const auto size = static_cast<quint32>(list.ids.size());
        while (list.cursor < size && marks[static_cast<size_t>(list.ids[list.cursor])] >= stamp)
            ++list.cursor;
        if (list.cursor < size)
            break;
        if (!findMore(list))
            return -1;
    }
    const int id = list.ids[list.cursor++];
    marks[static_cast<size_t>(id)] = static_cast<quint8>(stamp);
    return id;
}

bool PatternLists::findMore(List& list) {
    if (!list.pending)
        return false;
    const WordIndex& index = *m_index;
    auto test = [&](int id) {
        if (!index.alive(id) || !list.pending->matches(id, index, *m_wordList))
            return false;
        list.ids.push_back(id);
        return true;
    };
    if (list.candidates.empty()) {
        for (int& id = list.nextToTest; id < index.entryCount();) {
            if (test(id++))
                return true;
        }
    } else {
        const auto words = list.candidates.size();
        for (int& id = list.nextToTest; static_cast<size_t>(id) / 64 < words;) {
            const quint64 word = list.candidates[static_cast<size_t>(id) / 64] >> (id % 64);
            if (word == 0) {
                id = (id / 64 + 1) * 64;
                continue;
            }
            id += std::countr_zero(word);
            if (test(id++))
                return true;
        }
    }
    list.pending.reset();
    list.candidates = {};
    return false;
}

QString PatternLists::patternText(Kind kind, quint64 letters) const {
    auto at = [&](int k) {
        return m_index->letterText(static_cast<WordIndex::Letter>(letters >> (48 - 16 * k)));
    };
    const QString star = QStringLiteral("*");
    switch (kind) {
    case Kind::Second:
        return u'?' + at(0) + QStringLiteral("??*");
    case Kind::Third:
        return at(0) + at(1) + QStringLiteral("??*");
    case Kind::Fourth:
        return at(0) + at(1) + u'?' + at(2) + star;
    case Kind::Fifth:
        return at(0) + at(1) + at(2) + at(3) + star;
    case Kind::FifthBackwards:
        return reversedCodePoints(at(0) + at(1) + at(2) + at(3)) + star;
    case Kind::Decoy:
        return at(0) + QStringLiteral("??") + at(1) + star;
    }
    return {};
}

int PatternLists::takenByGroups(const Matcher& m) {
    const WordIndex& index = *m_index;
    const KeyedEntryLists& firstTwo = index.byFirstTwo();
    const bool second = m.tokens().fixedPrefix() >= 2;
    m_bits.assign((static_cast<size_t>(index.entryCount()) + 63) / 64, 0);
    int taken = 0;
    for (int g = 0; g < firstTwo.groupCount(); ++g) {
        const quint64 key = firstTwo.groupKey(g);
        if (!m.takes(0, static_cast<WordIndex::Letter>(key >> 48)) ||
            (second && !m.takes(1, static_cast<WordIndex::Letter>(key >> 32))))
            continue;
        for (const int id : firstTwo.group(g))
            m_bits[static_cast<size_t>(id) / 64] |= quint64{1} << (id % 64);
        taken += static_cast<int>(firstTwo.group(g).size());
    }
    if (2 * taken > index.entryCount())
        return taken;
    m_candidates.clear();
    for (size_t w = 0; w < m_bits.size(); ++w) {
        for (quint64 word = m_bits[w]; word != 0; word &= word - 1)
            m_candidates.push_back(static_cast<int>(w * 64) + std::countr_zero(word));
    }
    return taken;
}

void PatternLists::buildPlaces() {
    const WordIndex& index = *m_index;
    const auto letters = static_cast<size_t>(index.alphabetSize());
    for (int p = 0; p < 4; ++p) {
        std::vector<int>& offsets = m_placeOffsets[static_cast<size_t>(p)];
        std::vector<int>& ids = m_placeIds[static_cast<size_t>(p)];
        offsets.assign(letters + 1, 0);
        for (int id = 0; id < index.entryCount(); ++id) {
            if (index.hasLetters(id))
                ++offsets[index.letter(id, p) + 1u];
        }
        for (size_t l = 1; l <= letters; ++l)
            offsets[l] += offsets[l - 1];
        ids.resize(static_cast<size_t>(offsets[letters]));
        std::vector<int> fill(offsets.begin(), offsets.end() - 1);
        for (int id = 0; id < index.entryCount(); ++id) {
            if (index.hasLetters(id))
                ids[static_cast<size_t>(fill[index.letter(id, p)]++)] = id;
        }
    }
}

int PatternLists::takenByPlaces(const Matcher& m) {
    const WordIndex& index = *m_index;
    if (m_placeOffsets[0].empty())
        buildPlaces();
    const int letters = index.alphabetSize();
    auto takenAt = [&](int place, int token) {
        const std::vector<int>& offsets = m_placeOffsets[static_cast<size_t>(place)];
        int n = 0;
        for (int l = 0; l < letters; ++l) {
            if (m.takes(token, static_cast<WordIndex::Letter>(l)))
                n += offsets[static_cast<size_t>(l) + 1] - offsets[static_cast<size_t>(l)];
        }
        return n;
    };
    m_bits.assign((static_cast<size_t>(index.entryCount()) + 63) / 64, 0);
    auto set = [&](int id) { m_bits[static_cast<size_t>(id) / 64] |= quint64{1} << (id % 64); };
    int taken = 0;
    for (const int length : {4, 5}) {
        for (const Matcher::Alignment& a : m.alignments(length)) {
            int best = -1;
            int bestTaken = index.entryCount() + 1;
            for (int p = 0; p < 4; ++p) {
                const int token = a[static_cast<size_t>(p)];
                if (token < 0)
                    continue;
                const int n = takenAt(p, token);
                if (n < bestTaken) {
                    best = p;
                    bestTaken = n;
                }
            }
            if (best < 0)
                return -1; // only the "*" mark is placed: nothing to narrow by
            const std::vector<int>& offsets = m_placeOffsets[static_cast<size_t>(best)];
            const std::vector<int>& ids = m_placeIds[static_cast<size_t>(best)];
            const int token = a[static_cast<size_t>(best)];
            for (int l = 0; l < letters; ++l) {
                if (!m.takes(token, static_cast<WordIndex::Letter>(l)))
                    continue;
                for (int k = offsets[static_cast<size_t>(l)];
                     k < offsets[static_cast<size_t>(l) + 1]; ++k)
                    set(ids[static_cast<size_t>(k)]);
            }
            taken += bestTaken;
        }
    }
    // Entries of other lengths meet other placings: they are always candidates.
    for (const int id : index.irregular())
        set(id);
    return taken;
}

void PatternLists::start(List& list, std::unique_ptr<Matcher> matcher) {
    Matcher& m = *matcher;
    if (m.matchesNothing())
        return;
    const WordIndex& index = *m_index;
    const WildcardTokens& tokens = m.tokens();

    // A plain character at a place every match has: the letter there (-1: not known; -2: no
    // entry has that character, so no entry with letters matches).
    auto fixed = [&](int position) {
        if (position >= tokens.fixedPrefix() || tokens.literalAt(position) == 0)
            return -1;
        const int letter = index.letterOf(tokens.literalAt(position));
        return letter < 0 ? -2 : letter;
    };
    const int l0 = fixed(0);
    const int l1 = fixed(1);
    const int l3 = fixed(3);
    std::vector<int>& candidates = m_candidates;
    candidates.clear();
    auto group = [&](const KeyedEntryLists& lists, quint64 key) {
        const int g = lists.findGroup(key);
        if (g >= 0)
            candidates.assign(lists.group(g).begin(), lists.group(g).end());
    };
    if (l0 == -2 || l1 == -2 || l3 == -2) {
        // none
    } else if (l0 >= 0 && l1 >= 0 && l3 >= 0) {
        group(index.byFirstTwoAndLast(), WordIndex::pack(l0, l1, 0, l3));
    } else if (l0 >= 0 && l1 >= 0) {
        group(index.byFirstTwo(), WordIndex::pack(l0, l1, 0, 0));
    } else if (l0 >= 0 && l3 >= 0) { // the groups of every second letter, in list order
        const KeyedEntryLists& lists = index.byFirstTwoAndLast();
        const auto [begin, end] = index.firstTwoGroupsWithFirst(static_cast<WordIndex::Letter>(l0));
        for (int g = begin; g < end; ++g) {
            const quint64 l1 = (index.byFirstTwo().groupKey(g) >> 32) & 0xFFFF;
            const int last = lists.findGroup(WordIndex::pack(l0, l1, 0, l3));
            if (last >= 0)
                candidates.insert(candidates.end(), lists.group(last).begin(),
                                  lists.group(last).end());
        }
        std::sort(candidates.begin(), candidates.end());
    } else {
        // Classes (or nothing known) at the first places: the groups by the first two letters
        // whose letters the first tokens take; failing that, the entries by their letter at
        // the most selective place of each placing, tested lazily in list order.
        m.useTables(index);
        if (!m.byTables()) {
            list.pending = std::move(matcher);
            return;
        }
        const int taken = tokens.fixedPrefix() >= 1 ? takenByGroups(m) : -1;
        if (taken < 0 || 2 * taken > index.entryCount()) {
            if (takenByPlaces(m) >= 0)
                list.candidates = m_bits;
            list.pending = std::move(matcher);
            return;
        }
    }
    if (candidates.size() > kFewCandidates)
        m.useTables(index);

    for (const int id : candidates) {
        if (index.alive(id) && m.matches(id, index, *m_wordList))
            list.ids.push_back(id);
    }
    // Entries of fewer than four characters are in no keyed list: a "*" from a letter can
    // still let a pattern match them.
    const size_t withLetters = list.ids.size();
    for (const int id : index.irregular()) {
        if (!index.hasLetters(id) && index.alive(id) && m.matches(id, index, *m_wordList))
            list.ids.push_back(id);
    }
    if (list.ids.size() != withLetters)
        std::inplace_merge(list.ids.begin(),
                           list.ids.begin() + static_cast<std::ptrdiff_t>(withLetters),
                           list.ids.end());
}
