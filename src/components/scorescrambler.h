// The scrambling of the scores line: each character is XORed with the next letter of a fixed
// key and written as two hexadecimal digits. It keeps the totals from being edited by eye,
// not from being read by anyone determined.
#pragma once

#include <QString>

// The key, used cyclically from its first letter for every text.
inline constexpr char kScoresKey[] = "QEMBU";

// Two characters per character of `text`: (key code XOR character code) as capital hex
// digits, right-aligned (a leading blank below 16). Characters are taken as 8-bit codes; a
// character above U+00FF has no such code and is scrambled as '?'.
QString ScrambleScores(const QString& text);

// The inverse for every text of 8-bit characters. Reads `text` in pairs (a last single
// character alone); blanks around a pair are dropped, its leading hexadecimal digits are
// read (none gives 0) and XORed with the key. Never fails: any text gives some result.
QString UnscrambleScores(const QString& text);
