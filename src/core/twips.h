// Twips (1/1440 inch) on logical pixels, 15 to the pixel, for windows laid out in twips.
// QtCore only, so the rules libraries can use it too.
#pragma once

#include <QRect>
#include <QSize>

namespace Twips {

constexpr int PerPixel = 15;

// Twips to the nearest logical pixel (halves round up).
constexpr int toPixels(int twips) {
    return twips >= 0 ? (twips + PerPixel / 2) / PerPixel : -((-twips + PerPixel / 2) / PerPixel);
}
constexpr QRect toPixels(const QRect& twips) {
    return {toPixels(twips.x()), toPixels(twips.y()), toPixels(twips.width()),
            toPixels(twips.height())};
}
constexpr QSize toPixels(const QSize& twips) {
    return {toPixels(twips.width()), toPixels(twips.height())};
}
constexpr QSize fromPixels(const QSize& pixels) {
    return pixels * PerPixel;
}

} // namespace Twips
