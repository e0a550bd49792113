// The pictures of the main window's four picture buttons, our own art drawn in code: 16 x 16
// black line drawings on a transparent ground. (The program's icon is in ui/programicon.h.)
#pragma once

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
