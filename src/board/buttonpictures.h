// The pictures of the main window's four picture buttons and the program's window icon, all
// our own art drawn in code: 16 x 16 black line drawings on a transparent ground for the
// buttons, a black five-pointed star for the icon.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>

enum class ButtonPicture {
    OpenFolder, // load a dictionary
    PageTick,   // show the solution
    PageArrows, // clear the player's entries
    PageStar,   // create a new puzzle
};

// The picture as a 16 x 16 ARGB image: fully transparent except for opaque black strokes.
QImage buttonPictureImage(ButtonPicture picture);
// The same as a pixmap, for a button (needs a QGuiApplication).
QPixmap buttonPicture(ButtonPicture picture);

// The window icon at `size` x `size` pixels (size >= 16): a black five-pointed star on a
// transparent ground.
QImage windowIconImage(int size);
// The window icon in the sizes 16, 24, 32, 48, 64 and 128 (needs a QGuiApplication).
QIcon windowIcon();
