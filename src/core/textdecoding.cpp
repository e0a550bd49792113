// Text decoding and line splitting; see textdecoding.h.
#include "core/textdecoding.h"

#include <QStringDecoder>

#include <array>

namespace {

// Windows-1252 bytes 0x80..0x9F; the rest of the code page equals Latin-1.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString decodeWindows1252(const QByteArray& bytes) {
    QString text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        text.append(QChar(windows1252ToUnicode(static_cast<unsigned char>(c))));
    }
    return text;
}

} // namespace

char16_t windows1252ToUnicode(unsigned char byte) {
    return (byte >= 0x80 && byte <= 0x9F) ? kHighControls[byte - 0x80] : char16_t(byte);
}

QString decodeText(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    // The decoder drops a leading byte-order mark by itself.
    const QString text = utf8.decode(bytes);
    return utf8.hasError() ? decodeWindows1252(bytes) : text;
}

QStringList splitTextLines(const QString& text) {
    QStringList lines;
    qsizetype start = 0;
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (c != u'\r' && c != u'\n')
            continue;
        lines.append(text.mid(start, i - start));
        if (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n')
            ++i;
        start = i + 1;
    }
    if (start < n)
        lines.append(text.mid(start));
    return lines;
}
