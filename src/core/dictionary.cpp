// Loading and shuffling a dictionary into the word list; see dictionary.h.
#include "core/dictionary.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/dictionaryfile.h"
#include "core/eventpump.h"
#include "core/memoryinfo.h"
#include "core/notifier.h"
#include "core/randomsource.h"
#include "core/textstore.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <vector>

namespace {

constexpr qint64 kLowestKey = 1;
constexpr qint64 kHighestKey = 99998;
constexpr int kPollEvery = 4096; // entries filled between two polls of the event pump
constexpr int kShortRun = 16;    // keys sharing a number that an insertion sort handles
// A load of at least this many words hands the memory its file took back to the system.
constexpr qint64 kLargeLoad = 100'000;

// The order of "five digits + entry" texts compared without regard to case: the fixed-width
// number first, then the entry.
bool keyLess(const ShuffleKey& a, const ShuffleKey& b) {
    if (a.number != b.number)
        return a.number < b.number;
    return compareIgnoringCase(a.entry, b.entry) < 0;
}

// Room for the reversed entry of an accepted line (four characters, each one or two units).
using ReverseBuffer = std::array<char16_t, 9>;

// The reversed entry of a word: its characters reversed (a surrogate pair stays in order),
// then the mark "*", written into `buffer`.
QStringView markedReverse(QStringView word, ReverseBuffer& buffer) {
    char16_t* out = buffer.data();
    qsizetype end = word.size();
    while (end > 0) {
        qsizetype start = end - 1;
        if (start > 0 && word[start].isLowSurrogate() && word[start - 1].isHighSurrogate())
            --start;
        for (qsizetype k = start; k < end; ++k)
            *out++ = word[k].unicode();
        end = start;
    }
    *out = u'*';
    return QStringView(buffer.data(), word.size() + 1);
}

QString megabytes(qint64 bytes) {
    return QString::number((bytes + (1 << 20) - 1) >> 20) + QStringLiteral(" MB");
}

// Sorts texts by comparing them without regard to case; equal ones keep their order.
template <typename Item, typename TextOf>
void stableSortIgnoringCase(std::vector<Item>& items, size_t from, size_t to, TextOf text) {
    auto less = [&](const Item& a, const Item& b) {
        return compareIgnoringCase(text(a), text(b)) < 0;
    };
    const auto begin = items.begin() + static_cast<std::ptrdiff_t>(from);
    const auto end = items.begin() + static_cast<std::ptrdiff_t>(to);
    if (to - from > kShortRun) {
        std::stable_sort(begin, end, less);
        return;
    }
    for (auto i = begin + 1; i < end; ++i) { // insertion sort: no buffer for a few items
        auto j = i;
        while (j > begin && less(*i, *(j - 1)))
            --j;
        std::rotate(j, i, i + 1);
    }
}

// One entry of a run of words that drew the same number: the word (its number in the file)
// and which of its two entries, with a key that orders ASCII texts as compareIgnoringCase
// does: the upper-cased characters as bytes, each plus one, then zeros (a prefix first), and
// in the low bits the entry's place in the run, so that equal texts keep their order.
struct RunEntry {
    quint64 key;
    quint32 word;
    bool reversed;
};
constexpr int kKeyedCharacters = 5;
constexpr qsizetype kKeyedRun = qsizetype{1} << 24; // places that fit in the low bits

// The key of an ASCII text of at most five characters, or nothing.
std::optional<quint64> asciiKey(QStringView text) {
    if (text.size() > kKeyedCharacters)
        return std::nullopt;
    quint64 key = 0;
    int shift = 56;
    for (const QChar c : text) {
        if (c.unicode() >= 0x80)
            return std::nullopt;
        key |= static_cast<quint64>(upperCodePoint(c.unicode()) + 1) << shift;
        shift -= 8;
    }
    return key;
}

} // namespace

void sortShuffleKeys(std::vector<ShuffleKey>& keys) {
    const bool inRange = std::all_of(keys.begin(), keys.end(), [](const ShuffleKey& k) {
        return k.number >= 0 && k.number <= kHighestKey;
    });
    if (!inRange) {
        std::stable_sort(keys.begin(), keys.end(), keyLess);
        return;
    }
    // Numbers are few and small: a stable counting sort by number, then each run of equal
    // numbers (mostly the two entries of one word) sorted by entry, stable as well.
    std::vector<int> start(static_cast<size_t>(kHighestKey) + 2, 0);
    for (const ShuffleKey& k : keys)
        ++start[static_cast<size_t>(k.number) + 1];
    for (size_t n = 1; n < start.size(); ++n)
        start[n] += start[n - 1];
    std::vector<ShuffleKey> sorted(keys.size());
    for (ShuffleKey& k : keys)
        sorted[static_cast<size_t>(start[static_cast<size_t>(k.number)]++)] = std::move(k);
    for (size_t run = 0; run < sorted.size();) {
        size_t end = run + 1;
        while (end < sorted.size() && sorted[end].number == sorted[run].number)
            ++end;
        stableSortIgnoringCase(sorted, run, end,
                               [](const ShuffleKey& k) -> const QString& { return k.entry; });
        run = end;
    }
    keys.swap(sorted);
}

DictionaryLoader::DictionaryLoader(clsSimpleArray& wordList, RandomSource& random,
                                   Notifier* notifier)
    : m_wordList(wordList)
    , m_random(random)
    , m_notifier(notifier)
    , m_available(availableMemoryBytes) {}

QString DictionaryLoader::fileNameOf(const QString& path) {
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash < 0 ? path : path.mid(slash + 1);
}

void DictionaryLoader::setAvailableMemory(AvailableMemory available) {
    m_askAlways = static_cast<bool>(available);
    m_available = available ? std::move(available) : AvailableMemory(availableMemoryBytes);
}

bool DictionaryLoader::stopRequested() const {
    return m_pump && m_pump->stopRequested();
}

QString DictionaryLoader::memoryShortfall(qint64 words) const {
    constexpr qint64 kSmallLoad = qint64{64} << 20; // not worth asking the system about
    if (!m_askAlways && words * kBytesPerWord < kSmallLoad)
        return {};
    const qint64 available = m_available();
    if (available < 0)
        return {};
    // The current list goes before the new one is built.
    const qint64 room = available + m_wordList.storageBytes();
    const qint64 needed = words * kBytesPerWord;
    if (needed <= room)
        return {};
    return QStringLiteral("There is not enough memory for its ") + QString::number(words) +
           QStringLiteral(" words: they need about ") + megabytes(needed) +
           QStringLiteral(", and ") + megabytes(room) + QStringLiteral(" are available.");
}

void DictionaryLoader::fail(const QString& path, const QString& reason) {
    m_error = reason;
    if (m_notifier) {
        m_notifier->MsgboxA(QStringLiteral("Unable to read the dictionary file\r\n") + path +
                                QStringLiteral("\r\n") + reason,
                            QStringLiteral("vbcritical+vbok"));
    }
}

bool DictionaryLoader::LoadDictionary(const QString& path) {
    constexpr qint64 kSpare = qint64{64} << 20; // left to the rest of the program and system
    const MemoryCheck mayTake = [this](qint64 bytes) {
        const qint64 available = m_available();
        return available < 0 || available >= bytes + kSpare;
    };
    qint64 wordCount = 0;
    {
        DictionaryFileContents contents = readDictionaryFile(path, m_pump, mayTake);
        if (contents.stopped) {
            m_error = contents.error;
            return false;
        }
        if (!contents.ok) {
            fail(path, contents.error);
            return false;
        }
        if (const QString shortfall = memoryShortfall(contents.wordCount()); !shortfall.isEmpty()) {
            fail(path, shortfall);
            return false;
        }
        m_error.clear();
        bool filled = false;
        try {
            filled = fill(contents);
        } catch (const std::bad_alloc&) {
            m_error = notEnoughMemoryText();
        }
        if (!filled) {
            m_wordList.Clear(); // the old list is gone already
            m_wordCount = 0;
            if (!stopRequested())
                fail(path, m_error);
            return false;
        }
        wordCount = contents.wordCount();
    }
    if (wordCount >= kLargeLoad)
        returnFreedMemory(); // what the file's words took while the list was built
    m_wordCount = static_cast<int>(wordCount);
    m_statusToolTip = path;
    m_statusText = QStringLiteral("Dictionary: ") + fileNameOf(path) + QStringLiteral(" (") +
                   QString::number(m_wordCount) + QStringLiteral(" words)");
    return true;
}

bool DictionaryLoader::fill(const DictionaryFileContents& words) {
    m_wordList.Clear(); // before building the new list, so the two never coexist
    const qsizetype count = words.wordCount();
    const qsizetype units = 2 * static_cast<qsizetype>(words.text.size()) + count;
    if (2 * count > std::numeric_limits<int>::max() || units > TextStore::kMaxUnits) {
        m_error = QStringLiteral("It has more words than a word list can hold.");
        return false;
    }
    if (!m_wordList.reserveForAppend(2 * count, units)) {
        m_error = notEnoughMemoryText();
        return false;
    }
    int sinceLastPoll = 0;
    bool stopped = false;
    auto poll = [&] {
        if (m_pump && ++sinceLastPoll == kPollEvery) {
            sinceLastPoll = 0;
            m_pump->poll();
            stopped = stopRequested();
        }
        return !stopped;
    };
    ReverseBuffer buffer;
    bool appended = true;
    auto append = [&](QStringView entry) { appended = m_wordList.appendItem(entry) && appended; };

    if (!m_shuffled) {
        for (qsizetype w = 0; w < count; ++w) {
            append(words.word(w));
            append(markedReverse(words.word(w), buffer));
            if (!poll())
                return false;
        }
        if (!appended)
            m_error = notEnoughMemoryText();
        return appended;
    }

    // The order of the keys "number + entry" (see sortShuffleKeys), without building them: the
    // words ordered by their numbers (file order among equal numbers), and where words share a
    // number, their entries in arrival order (word, then its reverse) sorted by text.
    std::vector<quint32> numbers(static_cast<size_t>(count));
    for (quint32& number : numbers) {
        number = static_cast<quint32>(m_random.between(kLowestKey, kHighestKey));
        if (!poll())
            return false;
    }
    std::vector<quint32> end(static_cast<size_t>(kHighestKey) + 2, 0);
    for (const quint32 number : numbers)
        ++end[number + 1];
    for (size_t n = 1; n < end.size(); ++n)
        end[n] += end[n - 1];
    std::vector<quint32> order(static_cast<size_t>(count));
    for (size_t w = 0; w < order.size(); ++w)
        order[static_cast<size_t>(end[numbers[w]]++)] = static_cast<quint32>(w);
    // The words of number n now end at end[n]. A large list walks the numbers and needs the
    // words' numbers no more; a small one walks its words.
    const bool walkNumbers = count >= kHighestKey;
    if (walkNumbers)
        std::vector<quint32>().swap(numbers);

    std::vector<RunEntry> run;
    auto entryText = [&](const RunEntry& e, ReverseBuffer& into) {
        return e.reversed ? markedReverse(words.word(e.word), into) : words.word(e.word);
    };
    // The words are visited in random order: their texts are fetched ahead of use.
    auto fetchAhead = [&](qsizetype k) {
        if (k < count && words.starts.empty())
            __builtin_prefetch(words.text.data() + 4 * static_cast<size_t>(order[k]));
    };
    constexpr qsizetype kAhead = 16;
    // The entries of the words order[first..last), which share a number.
    auto emitRun = [&](qsizetype first, qsizetype last) {
        if (last - first == 1) { // one word, its two entries
            fetchAhead(first + kAhead);
            const QStringView word = words.word(order[first]);
            const QStringView reverse = markedReverse(word, buffer);
            const bool reverseFirst = compareIgnoringCase(reverse, word) < 0;
            append(reverseFirst ? reverse : word);
            append(reverseFirst ? word : reverse);
        } else if (last > first) { // several words (most of them in a large file)
            run.clear();
            bool keyed = 2 * (last - first) <= kKeyedRun;
            for (qsizetype i = first; i < last; ++i) {
                fetchAhead(i + kAhead);
                for (const bool reversed : {false, true}) {
                    RunEntry e{0, order[i], reversed};
                    const std::optional<quint64> key = asciiKey(entryText(e, buffer));
                    keyed = keyed && key.has_value();
                    e.key = key.value_or(0) | run.size();
                    run.push_back(e);
                }
            }
            if (keyed) { // keys are distinct: a plain sort keeps equal texts in order
                std::sort(run.begin(), run.end(),
                          [](const RunEntry& a, const RunEntry& b) { return a.key < b.key; });
            } else { // a text beyond ASCII: compared as texts, each in a buffer of its own
                ReverseBuffer left;
                ReverseBuffer right;
                std::stable_sort(run.begin(), run.end(), [&](const RunEntry& a, const RunEntry& b) {
                    return compareIgnoringCase(entryText(a, left), entryText(b, right)) < 0;
                });
            }
            for (const RunEntry& e : run)
                append(entryText(e, buffer));
        }
    };
    if (walkNumbers) {
        for (size_t n = kLowestKey; n <= kHighestKey; ++n) {
            emitRun(end[n - 1], end[n]);
            if (!poll())
                return false;
        }
    } else {
        for (qsizetype first = 0; first < count;) {
            const quint32 number = numbers[order[first]];
            qsizetype last = first + 1;
            while (last < count && numbers[order[last]] == number)
                ++last;
            emitRun(first, last);
            first = last;
            if (!poll())
                return false;
        }
    }
    if (!appended)
        m_error = notEnoughMemoryText();
    return appended;
}
