// Loading a dictionary into the word list. Every accepted word w (see dictionaryfile.h) gives
// two entries: w, and w reversed (by characters) followed by "*" ("cake" -> "cake", "ekac*").
//
// Shuffled (the default), each word draws one number r from 1 to 99998 shared by its two
// entries; the entries are ordered by the key "r as five digits" + entry text, ascending
// without regard to case. Entries whose keys are equal ignoring case (the same word in two
// spellings, or a repeated line, that drew the same number) keep the order in which they were
// read, as a sorted list does that files an added entry after the entries equal to it.
// Unshuffled, the entries follow the file: each word followed by its reversed entry.
//
// A file that cannot be opened or read changes nothing: the word list, the word count and the
// status texts keep their previous values, and the notifier (when set) reports the file name.
// Neither does a file whose words need more memory than the system has available (the list
// and the generator's index that the first puzzle builds): the message says how much each.
// The words go from the file's bytes into one compact buffer and from there straight into
// the word list's store, so a load needs little more than the list itself.
//
// A stop request on the event pump (the window is closing) ends a load early, without a
// message: while the file is read nothing has changed yet; later the list is left empty.
#pragma once

#include <QString>

#include <functional>
#include <vector>

class clsSimpleArray;
class EventPump;
struct DictionaryFileContents;
class Notifier;
class RandomSource;

// One entry of the shuffle: its random number (the five-digit key prefix) and its text.
struct ShuffleKey {
    qint64 number;
    QString entry;
};

// Orders keys ascending as the texts "number as five digits" + entry compared without regard
// to case; keys that compare equal keep their relative order.
void sortShuffleKeys(std::vector<ShuffleKey>& keys);

class DictionaryLoader {
public:
    DictionaryLoader(clsSimpleArray& wordList, RandomSource& random, Notifier* notifier = nullptr);

    void setNotifier(Notifier* notifier) { m_notifier = notifier; }
    // Polled while reading and filling, so pending window events run; null: none.
    void setEventPump(EventPump* pump) { m_pump = pump; }
    // False: keep file order instead of shuffling (for reproducible tools and tests).
    void setShuffled(bool shuffled) { m_shuffled = shuffled; }
    bool shuffled() const { return m_shuffled; }

    // Reads `path` and replaces the word list (all item data 0). Returns false, changing
    // nothing and reporting the file through the notifier, when the file cannot be read.
    bool LoadDictionary(const QString& path);

    // The number of words of the last successful load (0 before the first).
    int DictionaryWordCount() const { return m_wordCount; }
    // "Dictionary: <file name> (<count> words)" and the full path; both "" before a load.
    QString statusText() const { return m_statusText; }
    QString statusToolTip() const { return m_statusToolTip; }
    // Why the last failed load failed.
    QString errorString() const { return m_error; }

    // The part of `path` after its last "/", or the whole path when it holds none.
    static QString fileNameOf(const QString& path);

    // Where the memory still available comes from (bytes; negative: unknown, no check).
    // Default: availableMemoryBytes(), asked only for loads that need 64 MB or more; a
    // source set here is asked for every load.
    using AvailableMemory = std::function<qint64()>;
    void setAvailableMemory(AvailableMemory available);

    // Bytes a load needs per accepted word, with some room to spare: the list's two entries
    // (about 36 bytes) with what the load holds meanwhile (about 12 more), or with the index
    // that the generator's first request builds (about 26 more).
    static constexpr qint64 kBytesPerWord = 80;

private:
    // False when stopped, or when the memory ran out (m_error says so; the list is empty).
    bool fill(const DictionaryFileContents& words);
    bool stopRequested() const;
    // The message for a load that needs more memory than there is, or "".
    QString memoryShortfall(qint64 words) const;
    void fail(const QString& path, const QString& reason);

    clsSimpleArray& m_wordList;
    RandomSource& m_random;
    Notifier* m_notifier;
    EventPump* m_pump = nullptr;
    AvailableMemory m_available;
    bool m_askAlways = false;
    bool m_shuffled = true;
    int m_wordCount = 0;
    QString m_statusText;
    QString m_statusToolTip;
    QString m_error;
};
