// Helpers for scheme tests: collection files written as readable text.
#pragma once

#include "core/settings.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>

namespace SchemeText {

// A section: the header, then 13 colour lines (" r; g; b").
inline QStringList section(const QString& header, const std::array<quint32, 13>& colours) {
    QStringList lines{header};
    for (const quint32 c : colours) {
        lines.append(
            QStringLiteral(" %1; %2; %3").arg(c & 0xFF).arg((c >> 8) & 0xFF).arg((c >> 16) & 0xFF));
    }
    return lines;
}

// A section whose colour k is RGB(k, 10 * k, 255 - k): every colour distinct.
inline QStringList numberedSection(const QString& header) {
    std::array<quint32, 13> colours{};
    for (int k = 0; k < 13; ++k)
        colours[k] = packRgb(quint32(k), quint32(10 * k), quint32(255 - k));
    return section(header, colours);
}

// Lines joined as the program writes them: CR LF after each.
inline QByteArray bytes(const QStringList& lines) {
    QByteArray out;
    for (const QString& line : lines)
        out += line.toUtf8() + "\r\n";
    return out;
}

} // namespace SchemeText
