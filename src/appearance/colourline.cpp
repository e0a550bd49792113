// Packed colours and colour lines; see colourline.h.
#include "appearance/colourline.h"

#include "core/settings.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

// The leading number of `field` as a double: blanks skipped, an optional sign, digits with
// an optional fraction and exponent. 0 when the field starts with no number.
double leadingNumber(const QString& field) {
    qsizetype i = 0;
    const qsizetype n = field.size();
    while (i < n && (field[i] == u' ' || field[i] == u'\t'))
        ++i;
    const qsizetype start = i;
    if (i < n && (field[i] == u'+' || field[i] == u'-'))
        ++i;
    const qsizetype digitsStart = i;
    while (i < n && field[i].isDigit() && field[i].unicode() < 128)
        ++i;
    qsizetype digits = i - digitsStart;
    if (i < n && field[i] == u'.') {
        ++i;
        const qsizetype fractionStart = i;
        while (i < n && field[i].isDigit() && field[i].unicode() < 128)
            ++i;
        digits += i - fractionStart;
    }
    if (digits == 0)
        return 0.0;
    qsizetype end = i;
    if (i < n && (field[i] == u'e' || field[i] == u'E')) {
        qsizetype j = i + 1;
        if (j < n && (field[j] == u'+' || field[j] == u'-'))
            ++j;
        const qsizetype expStart = j;
        while (j < n && field[j].isDigit() && field[j].unicode() < 128)
            ++j;
        if (j > expStart)
            end = j;
    }
    bool ok = false;
    const double value = field.mid(start, end - start).toDouble(&ok);
    return ok ? value : 0.0;
}

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
