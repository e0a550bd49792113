// Colour translation; see olecolor.h.
#include "ui/olecolor.h"

#include <QGuiApplication>
#include <QPalette>

#include <array>
#include <optional>

namespace {

// Windows system colour numbers 0..30 mapped onto palette roles by meaning.
std::optional<QPalette::ColorRole> roleOf(quint32 n) {
    using R = QPalette::ColorRole;
    static constexpr std::array<R, 31> roles = {
        R::Button,          // 0 scroll bar
        R::Dark,            // 1 desktop
        R::Highlight,       // 2 active caption
        R::Mid,             // 3 inactive caption
        R::Window,          // 4 menu
        R::Base,            // 5 window background
        R::Shadow,          // 6 window frame
        R::WindowText,      // 7 menu text
        R::Text,            // 8 window text
        R::HighlightedText, // 9 caption text
        R::Button,          // 10 active border
        R::Button,          // 11 inactive border
        R::Dark,            // 12 application workspace
        R::Highlight,       // 13 highlight
        R::HighlightedText, // 14 highlighted text
        R::Button,          // 15 button face
        R::Mid,             // 16 button shadow
        R::PlaceholderText, // 17 grey text
        R::ButtonText,      // 18 button text
        R::WindowText,      // 19 inactive caption text
        R::Light,           // 20 button highlight
        R::Shadow,          // 21 3D dark shadow
        R::Midlight,        // 22 3D light
        R::ToolTipText,     // 23 info text
        R::ToolTipBase,     // 24 info background
        R::Window,          // 25 (unused by the system)
        R::Link,            // 26 hot-tracked item
        R::Highlight,       // 27 gradient active caption
        R::Mid,             // 28 gradient inactive caption
        R::Highlight,       // 29 menu highlight
        R::Window,          // 30 menu bar
    };
    if (n >= roles.size())
        return std::nullopt;
    return roles[n];
}

} // namespace

QColor OleTranslateColor(quint32 colour) {
    return OleTranslateColor(colour, QGuiApplication::palette());
}

QColor OleTranslateColor(quint32 colour, const QPalette& palette) {
    if (colour & SystemColourFlag) {
        const auto role = roleOf(colour & ~SystemColourFlag);
        return role ? palette.color(QPalette::Active, *role) : QColor(Qt::black);
    }
    return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

quint32 packedColour(const QColor& colour) {
    return quint32(colour.red()) + 256u * quint32(colour.green()) + 65536u * quint32(colour.blue());
}
