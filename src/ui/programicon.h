// The program's icon, a black five-pointed star with a white outline on a transparent ground
// (so it shows on light and dark panels alike), drawn in code. The desktop's icon theme gets
// the same star as data/icons/pentalink.svg; a test keeps the two outlines equal.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPolygonF>

// The star's outline in a `size` x `size` square: ten corners, starting at the top tip and
// going clockwise, tips and inner crossings alternating.
QPolygonF programStar(qreal size);

// The width of the white outline in a `size` x `size` icon (10 at 128, 1.25 at 16).
qreal programOutlineWidth(qreal size);

// The icon at `size` x `size` pixels (size >= 16): the star filled black and outlined white,
// antialiased.
QImage programIconImage(int size);
// The icon in the sizes 16, 24, 32, 48, 64 and 128 (needs a QGuiApplication). Every window
// with a title-bar icon carries it; the message window has none.
QIcon programIcon();
// A fully transparent icon for the one window that shows none, the message window: a window
// without an icon of its own would take the program's.
QIcon noWindowIcon();
