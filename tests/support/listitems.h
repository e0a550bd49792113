// Whole word lists for one-assertion comparisons: a list's texts, a shuffled load's entries.
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

// One number per word for both its entries, ordered by number, then entry ignoring case.
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
