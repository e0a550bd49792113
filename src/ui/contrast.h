// Contrast between two colours as the accessibility guidelines measure it, and the colour a
// focus ring takes so that it stays visible on any ground a colour scheme gives it.
#pragma once

#include <QColor>

// The contrast ratio (L1 + 0.05) / (L2 + 0.05) of the relative luminances of `a` and `b`,
// lighter over darker: 1 for equal colours, 21 for black on white.
double contrastRatio(const QColor& a, const QColor& b);

// Black or white, whichever contrasts more with `ground` (at least 4.5 : 1 for any ground).
QColor contrastingColour(const QColor& ground);
