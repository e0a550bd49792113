// Colour contrast; see contrast.h.
#include "ui/contrast.h"

#include <algorithm>
#include <cmath>

namespace {

double channel(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& c) {
    const QColor rgb = c.toRgb();
    return 0.2126 * channel(rgb.redF()) + 0.7152 * channel(rgb.greenF()) +
           0.0722 * channel(rgb.blueF());
}

} // namespace

double contrastRatio(const QColor& a, const QColor& b) {
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor contrastingColour(const QColor& ground) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return contrastRatio(black, ground) >= contrastRatio(white, ground) ? black : white;
}
