// The message window's icon pictures, our own art drawn in code from the sixteen classic
// palette colours (no smoothing, so no other colour appears): 0 question mark in a speech
// balloon, 1 exclamation mark on a yellow triangle, 2 letter i in a speech balloon, 3 STOP on
// a black disc, 4 white cross on a red disc, 5 smiling face, 6 green waste bin with rubbish,
// 7 printer with a sheet of paper, 8 lit light bulb with rays; slots 9 and 10 have none.
#pragma once

#include <QColor>
#include <QImage>
#include <QList>

constexpr int MsgIconSlots = 11;

// The picture of `slot` at `size` x `size` pixels with a transparent background: 32 for
// slots 0..8, 16 also for slots 0..4. A null image for any other slot or size.
QImage msgIcon(int slot, int size = 32);

// The sixteen colours the pictures are made of.
const QList<QColor>& msgIconPalette();
