// Packed colour values to QColor; see packedcolour.h.
#include "components/packedcolour.h"

QColor colourFromPacked(quint32 value, const QPalette& palette) {
    if ((value & 0x80000000u) == 0)
        return QColor(value & 0xff, (value >> 8) & 0xff, (value >> 16) & 0xff);
    switch (value & 0xffffff) {
    case 5:
        return palette.color(QPalette::Base);
    case 8:
        return palette.color(QPalette::WindowText);
    case 13:
        return palette.color(QPalette::Highlight);
    case 14:
        return palette.color(QPalette::HighlightedText);
    case 15:
        return palette.color(QPalette::Button);
    case 16:
        return palette.color(QPalette::Dark);
    case 18:
        return palette.color(QPalette::ButtonText);
    case 20:
        return palette.color(QPalette::Light);
    default:
        return palette.color(QPalette::Window);
    }
}
