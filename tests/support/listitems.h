// The texts of a word list in order, so a test can compare a whole list in one assertion.
#pragma once

#include "core/clssimplearray.h"

#include <QStringList>

inline QStringList itemsOf(const clsSimpleArray& list) {
    QStringList items;
    for (int i = 0; i < list.ListCount(); ++i)
        items << list.List(i);
    return items;
}
