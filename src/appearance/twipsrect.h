// Places a control given in twips (15 to the logical pixel) on a window, as the Options
// window and the colour picker lay out their children.
#pragma once

#include "ui/boxgeometry.h"

#include <QRect>

// The pixel rectangle of a control at (left, top) of size width x height twips, each edge
// cut to whole pixels.
inline QRect twipsRect(int left, int top, int width, int height) {
    using BoxGeometry::toPixel;
    return QRect(toPixel(left), toPixel(top), toPixel(width), toPixel(height));
}
