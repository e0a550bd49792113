// The wildcard test used by the word list's pattern searches. The pattern must match the
// whole text, character by character (code points), case-sensitively:
//   ?        any one character
//   *        any run of characters, including none
//   #        any one digit 0-9
//   [list]   any one character of the list; "a-z" in a list is the range a..z (inclusive,
//            by code point); a "-" first or last in the list stands for itself; a range
//            whose ends are in descending order matches nothing
//   [!list]  any one character not in the list
//   other    itself ("]", "!" and "-" outside a list included)
// A list runs to the first "]" after its "[" (or "[!"), so "[]" matches no character and
// "[!]" any one character. A pattern with a "[" that is never closed matches nothing.
// Matching is linear in the text for each "*" segment (a single backtrack point), so no
// pattern can make it exponential.
#pragma once

#include <QStringView>

bool matchesWildcard(QStringView text, QStringView pattern);
