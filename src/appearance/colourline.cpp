// Packed colours and colour lines; see colourline.h.
#include "appearance/colourline.h"

#include "core/leadingnumber.h"
#include "core/settings.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

qint64 component(quint32 colour, qint64 divisor, qint64 modulus) {
    const qint64 value = qint32(colour);             // the signed 32-bit number it is stored as
    const qint64 part = (value / divisor) % modulus; // C++ keeps the sign of the dividend
    if (part < 0 || part > 255)
        throw ColourOverflow();
    return part;
}

} // namespace

ColourOverflow::ColourOverflow()
    : std::runtime_error("Overflow: the colour cannot be split into red, green and blue") {}

quint8 RedByte(quint32 colour) {
    return quint8(component(colour, 1, 256));
}

quint8 GreenByte(quint32 colour) {
    return quint8(component(colour, 256, 256));
}

quint8 BlueByte(quint32 colour) {
    return quint8(component(colour, 65536, 65536));
}

QString SchemeFileName(const QString& name) {
    return name.toLower() + QStringLiteral(".col");
}

std::optional<ColourComponents> readColourLine(const QString& line) {
    const QStringList fields = line.split(u';');
    if (fields.size() < 3)
        return std::nullopt;
    int values[3] = {};
    for (int i = 0; i < 3; ++i) {
        // nearbyint rounds half to even in the default rounding mode; -0.4 gives -0, not < 0.
        const double rounded = std::nearbyint(leadingNumber(fields[i]));
        if (!(rounded >= 0 && rounded <= 32767))
            return std::nullopt;
        values[i] = int(rounded);
    }
    return ColourComponents{values[0], values[1], values[2]};
}

quint32 packComponents(const ColourComponents& components) {
    const auto byte = [](int v) { return quint32(std::clamp(v, 0, 255)); };
    return packRgb(byte(components.red), byte(components.green), byte(components.blue));
}

QString colourLineText(quint32 colour) {
    return QStringLiteral(" %1; %2; %3")
        .arg(RedByte(colour))
        .arg(GreenByte(colour))
        .arg(BlueByte(colour));
}
