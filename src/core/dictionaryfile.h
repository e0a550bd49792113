// Reads the usable words of a dictionary file: one entry per line, a line ending at CR LF,
// LF or CR (a last line without an end counts too). A line is accepted when it is exactly four
// characters (code points) long as read: no trimming, no change of case, no check of the
// characters. The bytes are read as UTF-8 when the whole file is valid UTF-8 (a leading byte
// order mark is skipped), otherwise as Windows-1252. Memory stays bounded by the accepted
// words however long a line is, so binary and huge files are harmless.
#pragma once

#include <QString>
#include <QStringView>

#include <functional>
#include <vector>

class EventPump;

struct DictionaryFileContents {
    bool ok = false;          // false: the file could not be read (or the reading was stopped)
    bool stopped = false;     // a stop request on the event pump ended the reading
    QString error;            // the reason, when !ok
    bool windows1252 = false; // the bytes were not valid UTF-8

    // The accepted lines, in file order (duplicates kept), stored one after another in `text`
    // (one buffer rather than a string each: a large file costs far less memory). While every
    // line is four code units, `starts` stays empty; a line with a surrogate pair fills it.
    std::vector<char16_t> text;
    std::vector<qsizetype> starts; // where each accepted line begins in `text`, or empty

    qsizetype wordCount() const {
        return starts.empty() ? static_cast<qsizetype>(text.size()) / 4
                              : static_cast<qsizetype>(starts.size());
    }
    // Accepted line i, 0 <= i < wordCount().
    QStringView word(qsizetype i) const {
        if (starts.empty())
            return QStringView(text.data() + 4 * i, 4);
        const auto k = static_cast<size_t>(i);
        const qsizetype end = k + 1 < starts.size() ? starts[k + 1] : qsizetype(text.size());
        return QStringView(text.data() + starts[k], end - starts[k]);
    }
};

// The reason a load gives when the words do not fit in the memory there is.
QString notEnoughMemoryText();

// Says whether `bytes` more may be taken; false stops the reading ("not enough memory").
using MemoryCheck = std::function<bool(qint64 bytes)>;

// Reads `path`. `pump` (may be null) is polled while reading so the window stays responsive;
// a stop request on it ends the reading (stopped). `mayTake` (may be empty) is asked before
// the words read take more memory.
DictionaryFileContents readDictionaryFile(const QString& path, EventPump* pump,
                                          const MemoryCheck& mayTake = {});
