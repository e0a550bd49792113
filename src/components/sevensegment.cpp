// Segment patterns and geometry of the clock digits; see sevensegment.h.
#include "components/sevensegment.h"

namespace sevensegment {

const std::array<QString, 10>& SegmentPatterns() {
    static const std::array<QString, 10> patterns{
        QStringLiteral("1011111"), QStringLiteral("0000101"), QStringLiteral("1110110"),
        QStringLiteral("1110101"), QStringLiteral("0101101"), QStringLiteral("1111001"),
        QStringLiteral("1111011"), QStringLiteral("1000101"), QStringLiteral("1111111"),
        QStringLiteral("1111101")};
    return patterns;
}

bool segmentLit(int digit, int segment) {
    return SegmentPatterns().at(static_cast<size_t>(digit)).at(segment) == u'1';
}

QLine segmentLine(int position, int segment) {
    static constexpr int kLeft[kPositions] = {90, 450, 930, 1290};
    const int l = kLeft[position];
    // The middle bar of the first and third digit sits 15 twips further left.
    const int shift = (position == 0 || position == 2) ? 15 : 0;
    switch (segment) {
    case 0:
        return {l + 60, 90, l + 180, 90};
    case 1:
        return {l + 60 - shift, 285, l + 180 - shift, 285};
    case 2:
        return {l + 60, 495, l + 180, 495};
    case 3:
        return {l, 135, l, 255};
    case 4:
        return {l + 240, 135, l + 240, 255};
    case 5:
        return {l, 315, l, 435};
    default:
        return {l + 240, 315, l + 240, 435};
    }
}

QLine dotLine(int dot) {
    return dot == kUpperDot ? QLine(810, 210, 825, 225) : QLine(810, 405, 825, 420);
}

} // namespace sevensegment
