// Reading a dictionary file: decoding, line ends and the four-character rule; see
// dictionaryfile.h.
#include "core/dictionaryfile.h"

#include "core/textdecoding.h"

#include "core/eventpump.h"
#include "core/regularfile.h"

#include <QFile>

#include <array>

namespace {

constexpr qint64 kChunkSize = 64 * 1024;
constexpr int kWordLength = 4;

// Text read between two questions whether more memory may be taken.
constexpr qsizetype kCheckEveryUnits = qsizetype{16} << 20;

// Splits characters into lines and keeps the lines of exactly four characters. Only the first
// characters of a line are stored, so a line of any length costs nothing.
class LineCollector {
public:
    LineCollector(DictionaryFileContents& words, const MemoryCheck& mayTake)
        : m_words(words)
        , m_mayTake(mayTake) {}

    void put(char32_t c) {
        if (c == U'\r') {
            endLine();
            m_afterCr = true;
            return;
        }
        if (c == U'\n') {
            if (!m_afterCr)
                endLine();
            m_afterCr = false;
            return;
        }
        m_afterCr = false;
        if (m_length < kWordLength + 1) {
            if (m_length < kWordLength)
                appendCodePoint(c);
            ++m_length;
        }
    }

    // Ends the last line when it has no line end of its own.
    void finish() {
        if (m_length > 0)
            endLine();
    }

    // False once the memory check said no.
    bool withinMemory() const { return !m_outOfMemory; }

private:
    void appendCodePoint(char32_t c) {
        if (QChar::requiresSurrogates(c)) {
            m_line[m_units++] = QChar::highSurrogate(c);
            m_line[m_units++] = QChar::lowSurrogate(c);
        } else {
            m_line[m_units++] = static_cast<char16_t>(c);
        }
    }

    void endLine() {
        if (m_length == kWordLength && !m_outOfMemory)
            keepLine();
        m_units = 0;
        m_length = 0;
    }

    void keepLine() {
        std::vector<char16_t>& text = m_words.text;
        if (static_cast<qsizetype>(text.size()) >= m_nextCheck) {
            m_nextCheck += kCheckEveryUnits;
            if (m_mayTake && !m_mayTake(kCheckEveryUnits * qint64(sizeof(char16_t)))) {
                m_outOfMemory = true;
                return;
            }
        }
        std::vector<qsizetype>& starts = m_words.starts;
        if (m_units != kWordLength && starts.empty()) { // the first line with a surrogate pair
            const auto lines = static_cast<qsizetype>(text.size()) / kWordLength;
            starts.reserve(static_cast<size_t>(lines) + 1);
            for (qsizetype k = 0; k < lines; ++k)
                starts.push_back(k * kWordLength);
        }
        if (!starts.empty() || m_units != kWordLength)
            starts.push_back(static_cast<qsizetype>(text.size()));
        text.insert(text.end(), m_line.begin(), m_line.begin() + m_units);
    }

    DictionaryFileContents& m_words;
    const MemoryCheck& m_mayTake;
    std::array<char16_t, 2 * kWordLength> m_line{}; // the first four characters of the line
    qsizetype m_units = 0;
    int m_length = 0; // characters of the current line, saturating at 5
    bool m_afterCr = false;
    bool m_outOfMemory = false;
    qsizetype m_nextCheck = kCheckEveryUnits;
};

// A strict UTF-8 decoder fed in chunks: rejects stray continuation bytes, overlong forms,
// surrogates, values above U+10FFFF and a sequence cut off by the end of the file.
class Utf8Decoder {
public:
    // Decodes `bytes`, passing each character to `emit`. Returns false at the first error.
    template <typename Emit> bool feed(const char* bytes, qint64 size, Emit emit) {
        for (qint64 k = 0; k < size; ++k) {
            const auto b = static_cast<unsigned char>(bytes[k]);
            if (m_needed == 0) {
                if (b < 0x80) {
                    emitCharacter(b, emit);
                } else if ((b & 0xE0) == 0xC0) {
                    start(b & 0x1F, 1, 0x80);
                } else if ((b & 0xF0) == 0xE0) {
                    start(b & 0x0F, 2, 0x800);
                } else if ((b & 0xF8) == 0xF0) {
                    start(b & 0x07, 3, 0x10000);
                } else {
                    return false;
                }
                continue;
            }
            if ((b & 0xC0) != 0x80)
                return false;
            m_value = (m_value << 6) | (b & 0x3F);
            if (--m_needed == 0) {
                if (m_value < m_minimum || m_value > 0x10FFFF ||
                    (m_value >= 0xD800 && m_value <= 0xDFFF))
                    return false;
                emitCharacter(m_value, emit);
            }
        }
        return true;
    }

    bool complete() const { return m_needed == 0; }

private:
    void start(char32_t bits, int needed, char32_t minimum) {
        m_value = bits;
        m_needed = needed;
        m_minimum = minimum;
    }

    template <typename Emit> void emitCharacter(char32_t c, Emit emit) {
        const bool byteOrderMark = m_first && c == 0xFEFF;
        m_first = false;
        if (!byteOrderMark)
            emit(c);
    }

    char32_t m_value = 0;
    char32_t m_minimum = 0;
    int m_needed = 0;
    bool m_first = true;
};

char32_t windows1252(unsigned char b) {
    return windows1252ToUnicode(b);
}

// Reads the whole file through `decode(chunk) -> bool`; false from decode stops early.
// Returns false with `error` set when the file cannot be read.
template <typename Decode>
bool readChunks(QFile& file, EventPump* pump, QString& error, Decode decode) {
    if (!file.seek(0)) {
        error = file.errorString();
        return false;
    }
    QByteArray chunk(kChunkSize, Qt::Uninitialized);
    for (;;) {
        const qint64 got = file.read(chunk.data(), kChunkSize);
        if (got < 0) {
            error = file.errorString();
            return false;
        }
        if (got == 0)
            return true;
        if (!decode(chunk.constData(), got))
            return true;
        if (pump) {
            pump->poll();
            if (pump->stopRequested()) {
                error = QStringLiteral("The load was stopped.");
                return false;
            }
        }
    }
}

} // namespace

namespace {

// Room for the most text a file of `bytes` bytes can give: four code units per line of at
// least five bytes. The pages are taken only as they are written.
void reserveFor(std::vector<char16_t>& text, qint64 bytes) {
    if (bytes <= 0)
        return;
    try {
        text.reserve(static_cast<size_t>(bytes / (kWordLength + 1) * kWordLength + kWordLength));
    } catch (const std::exception&) {
        // grows as it goes
    }
}

// Reads the file once, decoding each chunk with `decode(bytes, size, lines) -> bool`.
template <typename Decode>
bool readLines(QFile& file, EventPump* pump, const MemoryCheck& mayTake,
               DictionaryFileContents& result, Decode decode) {
    result.text.clear();
    result.starts.clear();
    LineCollector lines(result, mayTake);
    bool valid = true;
    const bool read = readChunks(file, pump, result.error, [&](const char* bytes, qint64 size) {
        valid = decode(bytes, size, lines);
        return valid && lines.withinMemory();
    });
    if (!read) {
        result.stopped = pump && pump->stopRequested();
        return false;
    }
    if (!lines.withinMemory()) {
        result.error = notEnoughMemoryText();
        return false;
    }
    if (!valid)
        return true; // the caller tells from its decoder
    lines.finish();
    return true;
}

} // namespace

QString notEnoughMemoryText() {
    return QStringLiteral("There is not enough memory for its words.");
}

DictionaryFileContents readDictionaryFile(const QString& path, EventPump* pump,
                                          const MemoryCheck& mayTake) {
    DictionaryFileContents result;
    // Only a regular file, opened without waiting: english1.txt, the fallback of every start,
    // may be a FIFO or a device as well as a configured dictionary may.
    QFile file;
    if (!openRegularFile(file, path, &result.error))
        return result;
    reserveFor(result.text, file.size());

    // First as UTF-8; at the first invalid byte start again as Windows-1252.
    try {
        Utf8Decoder decoder;
        bool valid = true;
        if (!readLines(file, pump, mayTake, result,
                       [&](const char* bytes, qint64 size, LineCollector& lines) {
                           valid = decoder.feed(bytes, size, [&](char32_t c) { lines.put(c); });
                           return valid;
                       }))
            return result;
        if (valid && decoder.complete()) {
            result.ok = true;
            return result;
        }

        result.windows1252 = true;
        if (!readLines(file, pump, mayTake, result,
                       [](const char* bytes, qint64 size, LineCollector& lines) {
                           for (qint64 k = 0; k < size; ++k)
                               lines.put(windows1252(static_cast<unsigned char>(bytes[k])));
                           return true;
                       }))
            return result;
    } catch (const std::bad_alloc&) {
        result.text = {};
        result.starts = {};
        result.error = notEnoughMemoryText();
        return result;
    }
    result.ok = true;
    return result;
}
