// Face geometry of the push button; see boxgeometry.h.
#include "ui/boxgeometry.h"

#include <QtMath>

#include <cmath>

namespace BoxGeometry {

QPointF captionOrigin(double faceWidth, double faceHeight, double textWidth, double textHeight) {
    return {(faceWidth - textWidth) / 2.0, (faceHeight - textHeight) / 2.0};
}

std::array<QLineF, 2> lightEdges(double faceWidth, double faceHeight) {
    return {QLineF(0, 0, 0, faceHeight), QLineF(0, 0, faceWidth, 0)};
}

std::array<QLineF, 2> darkEdges(double faceWidth, double faceHeight) {
    const double right = faceWidth - DarkInset;
    const double bottom = faceHeight - DarkInset;
    return {QLineF(right, DarkInset, right, bottom), QLineF(DarkInset, bottom, right, bottom)};
}

QPointF pictureCorner(double faceWidth, double faceHeight, int pw, int ph) {
    return {(faceWidth - pw / 2.0) / 2.0 - PictureNudge,
            (faceHeight - ph / 2.0) / 2.0 - PictureNudge};
}

QSize himetricSize(const QSize& pixels) {
    // 2540 hundredths of a millimetre to the inch.
    return {qRound(pixels.width() * 2540.0 / 96.0), qRound(pixels.height() * 2540.0 / 96.0)};
}

int toPixel(double twips) {
    // A hair of tolerance so that 15 * n twips computed in floating point stays pixel n.
    return int(std::floor(twips / TwipsPerPixel + 1e-9));
}

} // namespace BoxGeometry
