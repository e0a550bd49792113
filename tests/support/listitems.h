// Whole word lists for one-assertion comparisons: the texts of a list in order, and the
// entries a shuffled dictionary load is expected to make.
#pragma once

#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/dictionary.h"
#include "core/randomsource.h"

#include <QStringList>

#include <vector>

inline QStringList itemsOf(const clsSimpleArray& list) {
    QStringList items;
    for (int i = 0; i < list.ListCount(); ++i)
        items << list.List(i);
    return items;
}

// The entries a dictionary load makes of `words`, shuffled as loading does with `random`
// (one number per word, both entries of a word together, ordered by number then entry
// ignoring case).
inline QStringList loadedEntries(const QStringList& words, RandomSource& random) {
    std::vector<ShuffleKey> keys;
    for (const QString& w : words) {
        const qint64 number = random.between(1, 99998);
        keys.push_back({number, w});
        keys.push_back({number, reversedCodePoints(w) + u'*'});
    }
    sortShuffleKeys(keys);
    QStringList entries;
    for (const ShuffleKey& k : keys)
        entries << k.entry;
    return entries;
}
