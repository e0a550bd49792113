// The two small dictionaries the tests share, as lists of words to write into a test folder.
#pragma once

#include <QStringList>

namespace testwords {

// Eight words that cross: sect, peek, heck, poet and hoes fill a star and keep, hawk and smut
// fit as its decoys (keep also spells peek's line backwards). Read in file order, the
// generator makes the star on "sect".
inline const QStringList kEight = {"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"};

// Seven words: too few for the eight tiles, so no puzzle whatever the shuffle.
inline const QStringList kSeven = {"aaaa", "aaab", "abaa", "abab", "baba", "bbbb", "abba"};

} // namespace testwords
