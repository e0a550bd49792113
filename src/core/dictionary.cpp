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
    auto entryLess = [](const ShuffleKey& a, const ShuffleKey& b) {
        return compareIgnoringCase(a.entry, b.entry) < 0;
    };
    for (auto run = sorted.begin(); run != sorted.end();) {
        auto end = run + 1;
        while (end != sorted.end() && end->number == run->number)
            ++end;
        if (end - run > kShortRun) {
            std::stable_sort(run, end, entryLess);
        } else { // insertion sort: stable, and no buffer to allocate for two or three keys
            for (auto i = run + 1; i < end; ++i) {
                auto j = i;
                while (j > run && entryLess(*i, *(j - 1)))
                    --j;
                std::rotate(j, i, i + 1);
            }
        }
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
    fill(contents.words);
    m_wordCount = static_cast<int>(contents.words.size());
    m_statusToolTip = path;
    m_statusText = QStringLiteral("Dictionary: ") + fileNameOf(path) + QStringLiteral(" (") +
                   QString::number(m_wordCount) + QStringLiteral(" words)");
    return true;
}

void DictionaryLoader::fill(const QStringList& words) {
    m_wordList.Clear(); // before building the new list, so the two never coexist
    std::vector<ShuffleKey> keys;
    keys.reserve(static_cast<size_t>(words.size()) * 2);
    int sinceLastPoll = 0;
    auto poll = [&] {
        if (m_pump && ++sinceLastPoll == kPollEvery) {
            sinceLastPoll = 0;
            m_pump->poll();
        }
    };
    for (const QString& word : words) {
        const qint64 number = m_shuffled ? m_random.between(kLowestKey, kHighestKey) : 0;
        keys.push_back({number, word});
        keys.push_back({number, markedReverse(word)});
        poll();
    }
    if (m_shuffled)
        sortShuffleKeys(keys);
    if (m_pump)
        m_pump->poll();

    std::vector<QString> entries;
    entries.reserve(keys.size());
    for (ShuffleKey& key : keys)
        entries.push_back(std::move(key.entry));
    std::vector<ShuffleKey>().swap(keys);
    m_wordList.appendItems(std::move(entries));
}
