// Test helper: checks a generated puzzle against the rules every puzzle obeys (letters on
// the five lines, five solution words and three decoys, order, distinctness, decoy ends).
#pragma once

#include "core/stargrid.h"

#include <QSet>
#include <QString>

// Adds a GoogleTest failure for every rule `grid` breaks. `words` are the dictionary's
// words as written (every candidate must be one of them).
void expectValidPuzzle(const StarGrid& grid, const QSet<QString>& words);
