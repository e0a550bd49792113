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

// The order of "five digits + entry" texts compared without regard to case: the fixed-width
// number first, then the entry.
bool keyLess(const ShuffleKey& a, const ShuffleKey& b) {
    if (a.number != b.number)
        return a.number < b.number;
    return compareIgnoringCase(a.entry, b.entry) < 0;
}

} // namespace

void sortShuffleKeys(std::vector<ShuffleKey>& keys) {
    std::stable_sort(keys.begin(), keys.end(), keyLess);
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
    std::vector<ShuffleKey> keys;
    keys.reserve(static_cast<size_t>(words.size()) * 2);
    for (const QString& word : words) {
        const qint64 number = m_shuffled ? m_random.between(kLowestKey, kHighestKey) : 0;
        keys.push_back({number, word});
        keys.push_back({number, reversedCodePoints(word) + u'*'});
    }
    if (m_shuffled)
        sortShuffleKeys(keys);

    m_wordList.Clear();
    int sinceLastPoll = 0;
    for (ShuffleKey& key : keys) {
        m_wordList.AddItem(key.entry, -1);
        if (m_pump && ++sinceLastPoll == kPollEvery) {
            sinceLastPoll = 0;
            m_pump->poll();
        }
    }
}
