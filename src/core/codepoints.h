// Character-level text helpers shared by the word list, the dictionary and the generator.
// A "character" is a Unicode code point: a surrogate pair counts as one character and is never
// split. "Without regard to case" means both texts are upper-cased one character at a time
// with the simple Unicode mapping (so "ß" stays "ß", as a per-character upper-casing does) and
// then compared by code point. None of these functions copies its arguments.
#pragma once

#include <QString>
#include <QStringView>

// Reads the character starting at code unit `i` of `s` and advances `i` past it. A lone
// surrogate is returned as it stands. Precondition: 0 <= i < s.size().
inline char32_t nextCodePoint(QStringView s, qsizetype& i) {
    const QChar c = s[i++];
    if (c.isHighSurrogate() && i < s.size() && s[i].isLowSurrogate())
        return QChar::surrogateToUcs4(c, s[i++]);
    return c.unicode();
}

// The simple upper-case mapping of one character.
inline char32_t upperCodePoint(char32_t c) {
    if (c < 0x80) // the common case, without the Unicode tables
        return c >= U'a' && c <= U'z' ? c - (U'a' - U'A') : c;
    return QChar::toUpper(c);
}

// Number of characters in `s`.
qsizetype codePointCount(QStringView s);

// The first `n` characters of `s` (all of `s` when it is shorter). n >= 0.
QStringView leftCodePoints(QStringView s, qsizetype n);

// `s` with its characters in reverse order; surrogate pairs stay in their order.
QString reversedCodePoints(QStringView s);

// `s` upper-cased one character at a time (the form "without regard to case" compares).
QString upperCodePoints(QStringView s);

// Orders by code point, exactly (case-sensitive); a proper prefix sorts first.
// Returns < 0, 0 or > 0.
int compareExact(QStringView a, QStringView b);

// Orders the upper-cased texts by code point; a proper prefix sorts first. Returns < 0, 0, > 0.
int compareIgnoringCase(QStringView a, QStringView b);

// True when the upper-cased texts are equal.
bool equalsIgnoringCase(QStringView a, QStringView b);

// True when `needle` occurs in `haystack` without regard to case. An empty needle occurs in
// every non-empty haystack but not in an empty one.
bool containsIgnoringCase(QStringView haystack, QStringView needle);
