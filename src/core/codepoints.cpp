// Character-level text helpers; see codepoints.h.
#include "core/codepoints.h"

#include <algorithm>

namespace {

template <typename Map> int compareMapped(QStringView a, QStringView b, Map map) {
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < a.size() && j < b.size()) {
        const char32_t x = map(nextCodePoint(a, i));
        const char32_t y = map(nextCodePoint(b, j));
        if (x != y)
            return x < y ? -1 : 1;
    }
    if (i < a.size())
        return 1;
    if (j < b.size())
        return -1;
    return 0;
}

// True when `needle` matches `haystack` starting at code unit `at`, ignoring case.
bool matchesAt(QStringView haystack, qsizetype at, QStringView needle) {
    qsizetype i = at;
    qsizetype j = 0;
    while (j < needle.size()) {
        if (i >= haystack.size())
            return false;
        if (upperCodePoint(nextCodePoint(haystack, i)) != upperCodePoint(nextCodePoint(needle, j)))
            return false;
    }
    return true;
}

} // namespace

qsizetype codePointCount(QStringView s) {
    qsizetype count = 0;
    for (qsizetype i = 0; i < s.size(); ++count)
        nextCodePoint(s, i);
    return count;
}

QStringView leftCodePoints(QStringView s, qsizetype n) {
    qsizetype i = 0;
    for (qsizetype taken = 0; taken < n && i < s.size(); ++taken)
        nextCodePoint(s, i);
    return s.first(i);
}

QString reversedCodePoints(QStringView s) {
    QString out;
    out.reserve(s.size());
    qsizetype end = s.size();
    while (end > 0) {
        qsizetype start = end - 1;
        if (start > 0 && s[start].isLowSurrogate() && s[start - 1].isHighSurrogate())
            --start;
        out.append(s.sliced(start, end - start));
        end = start;
    }
    return out;
}

QString upperCodePoints(QStringView s) {
    QString out;
    out.reserve(s.size());
    for (qsizetype i = 0; i < s.size();) {
        const char32_t c = upperCodePoint(nextCodePoint(s, i));
        if (QChar::requiresSurrogates(c)) {
            out.append(QChar(QChar::highSurrogate(c)));
            out.append(QChar(QChar::lowSurrogate(c)));
        } else {
            out.append(QChar(static_cast<char16_t>(c)));
        }
    }
    return out;
}

int compareExact(QStringView a, QStringView b) {
    return compareMapped(a, b, [](char32_t c) { return c; });
}

int compareIgnoringCase(QStringView a, QStringView b) {
    return compareMapped(a, b, [](char32_t c) { return upperCodePoint(c); });
}

bool equalsIgnoringCase(QStringView a, QStringView b) {
    return compareIgnoringCase(a, b) == 0;
}

bool containsIgnoringCase(QStringView haystack, QStringView needle) {
    if (haystack.isEmpty())
        return false;
    for (qsizetype at = 0; at < haystack.size();) {
        if (matchesAt(haystack, at, needle))
            return true;
        nextCodePoint(haystack, at);
    }
    return false;
}
