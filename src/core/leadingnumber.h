// The leading number of a text as the scheme collection and the container's settings read
// numbers: blanks (spaces, tabs) skipped, an optional sign, ASCII digits with an optional
// decimal fraction and exponent. QtCore only.
#pragma once

#include <QString>

// The value of the leading number of `text`; 0 when `text` starts with no number (after
// blanks). An exponent without digits is not part of the number ("2e" reads 2).
double leadingNumber(const QString& text);
