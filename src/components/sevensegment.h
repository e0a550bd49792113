// The seven-segment digits of the countdown clock: which segments light for each digit and
// where every line element lies, in twips on the clock's 1635 x 585 face.
//
// Elements are numbered 10 * p + s for digit position p = 0..3 (left to right) and segment
// s = 0..6 (top, middle, bottom, upper left, upper right, lower left, lower right), and 40,
// 41 for the upper and lower dot between the second and third digit.
#pragma once

#include <QLine>
#include <QString>

#include <array>

namespace sevensegment {

inline constexpr int kPositions = 4;
inline constexpr int kSegments = 7;
inline constexpr int kUpperDot = 40;
inline constexpr int kLowerDot = 41;

// For each digit a text of seven "0"/"1": character s tells whether segment s is lit.
const std::array<QString, 10>& SegmentPatterns();

// Whether `segment` (0..6) is lit for `digit` (0..9).
bool segmentLit(int digit, int segment);

// The line of segment `segment` of position `position`, or of a dot (kUpperDot, kLowerDot,
// position ignored), in twips.
QLine segmentLine(int position, int segment);
QLine dotLine(int dot);

} // namespace sevensegment
