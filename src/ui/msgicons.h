// The message window's icon pictures: our own 32 x 32 art for slots 0..8 (question,
// exclamation, information, stop, critical, happy, waste bin, printer, light bulb); slots 9
// and 10 have no picture. Painted from a 16-colour palette.
#pragma once

#include <QImage>

constexpr int MsgIconSlots = 11;

// The picture of `slot` (0..10), 32 x 32 ARGB; a null image for slots without a picture.
QImage msgIcon(int slot);
