// Loading and shuffling a dictionary into the word list; see dictionary.h.
#include "core/dictionary.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/dictionaryfile.h"
#include "core/eventpump.h"
#include "core/notifier.h"
#include "core/randomsource.h"

#include <algorithm>
#include <vector>

namespace {

constexpr qint64 kLowestKey = 1;
constexpr qint64 kHighestKey = 99998;
constexpr int kPollEvery = 4096; // entries filled between two polls of the event pump
constexpr int kShortRun = 16;    // keys sharing a number that an insertion sort handles

// The order of "five digits + entry" texts compared without regard to case: the fixed-width
// number first, then the entry.
bool keyLess(const ShuffleKey& a, const ShuffleKey& b) {
    if (a.number != b.number)
        return a.number < b.number;
    return compareIgnoringCase(a.entry, b.entry) < 0;
}

// The reversed entry of a word: its characters reversed (a surrogate pair stays in order),
// then the mark "*".
QString markedReverse(QStringView word) {
    QString entry(word.size() + 1, Qt::Uninitialized);
    QChar* out = entry.data();
    qsizetype end = word.size();
    while (end > 0) {
        qsizetype start = end - 1;
        if (start > 0 && word[start].isLowSurrogate() && word[start - 1].isHighSurrogate())
            --start;
        for (qsizetype k = start; k < end; ++k)
            *out++ = word[k];
        end = start;
    }
    *out = u'*';
    return entry;
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

void stableSortIgnoringCase(std::vector<QString>& texts) {
    stableSortIgnoringCase(texts, 0, texts.size(),
                           [](const QString& t) -> const QString& { return t; });
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
    , m_notifier(notifier) {}

QString DictionaryLoader::fileNameOf(const QString& path) {
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash < 0 ? path : path.mid(slash + 1);
}

bool DictionaryLoader::LoadDictionary(const QString& path) {
    const DictionaryFileContents contents = readDictionaryFile(path, m_pump);
    if (!contents.ok) {
        m_error = contents.error;
        if (m_notifier) {
            m_notifier->MsgboxA(QStringLiteral("Unable to read the dictionary file\r\n") + path +
                                    QStringLiteral("\r\n") + contents.error,
                                QStringLiteral("vbcritical+vbok"));
        }
        return false;
    }
    m_error.clear();
    fill(contents);
    m_wordCount = static_cast<int>(contents.wordCount());
    m_statusToolTip = path;
    m_statusText = QStringLiteral("Dictionary: ") + fileNameOf(path) + QStringLiteral(" (") +
                   QString::number(m_wordCount) + QStringLiteral(" words)");
    return true;
}

void DictionaryLoader::fill(const DictionaryFileContents& words) {
    m_wordList.Clear(); // before building the new list, so the two never coexist
    const auto count = static_cast<size_t>(words.wordCount());
    std::vector<QString> entries;
    entries.reserve(count * 2);
    int sinceLastPoll = 0;
    auto poll = [&] {
        if (m_pump && ++sinceLastPoll == kPollEvery) {
            sinceLastPoll = 0;
            m_pump->poll();
        }
    };

    if (!m_shuffled) {
        for (qsizetype w = 0; w < words.wordCount(); ++w) {
            entries.push_back(words.word(w).toString());
            entries.push_back(markedReverse(words.word(w)));
            poll();
        }
        m_wordList.appendItems(std::move(entries));
        return;
    }

    // The order of the keys "number + entry" (see sortShuffleKeys), without building them: the
    // words ordered by their numbers (file order among equal numbers), and where words share a
    // number, their entries in arrival order (word, then its reverse) sorted by text.
    std::vector<quint32> numbers(count);
    for (quint32& number : numbers) {
        number = static_cast<quint32>(m_random.between(kLowestKey, kHighestKey));
        poll();
    }
    std::vector<int> start(static_cast<size_t>(kHighestKey) + 2, 0);
    for (const quint32 number : numbers)
        ++start[number + 1];
    for (size_t n = 1; n < start.size(); ++n)
        start[n] += start[n - 1];
    std::vector<int> order(count);
    for (size_t w = 0; w < count; ++w)
        order[static_cast<size_t>(start[numbers[w]]++)] = static_cast<int>(w);
    std::vector<int>().swap(start);

    std::vector<QString> run;
    for (size_t k = 0; k < count;) {
        size_t end = k + 1;
        const quint32 number = numbers[static_cast<size_t>(order[k])];
        while (end < count && numbers[static_cast<size_t>(order[end])] == number)
            ++end;
        if (end - k == 1) { // the usual case: one word, its two entries
            const QStringView word = words.word(order[k]);
            QString reverse = markedReverse(word);
            if (compareIgnoringCase(reverse, word) < 0) {
                entries.push_back(std::move(reverse));
                entries.push_back(word.toString());
            } else {
                entries.push_back(word.toString());
                entries.push_back(std::move(reverse));
            }
        } else {
            run.clear();
            for (size_t i = k; i < end; ++i) {
                run.push_back(words.word(order[i]).toString());
                run.push_back(markedReverse(words.word(order[i])));
            }
            stableSortIgnoringCase(run);
            for (QString& entry : run)
                entries.push_back(std::move(entry));
        }
        poll();
        k = end;
    }
    m_wordList.appendItems(std::move(entries));
}
