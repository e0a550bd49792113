// The scheme collection file as lines; see schemefile.h.
#include "appearance/schemefile.h"

#include "core/regularfile.h"
#include "core/textdecoding.h"

namespace SchemeFile {

std::optional<QStringList> readLines(const QString& path) {
    const RegularFileRead read = readRegularFile(path, MaxBytes);
    if (read.status != RegularFileRead::Status::Read)
        return std::nullopt;
    return splitTextLines(decodeText(read.bytes));
}

QByteArray toBytes(const QStringList& lines) {
    QString text;
    for (const QString& line : lines)
        text += line + QStringLiteral("\r\n");
    return text.toUtf8();
}

std::optional<QByteArray> toReadableBytes(const QStringList& lines) {
    QByteArray bytes = toBytes(lines);
    if (bytes.size() > MaxBytes)
        return std::nullopt;
    return bytes;
}

std::optional<QStringList> rewriteSections(const QStringList& lines, const QString& header,
                                           const QStringList& replacement) {
    QStringList copy;
    copy.reserve(lines.size());
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i] != header) {
            copy.append(lines[i]);
            continue;
        }
        if (i + ColourLines >= lines.size())
            return std::nullopt;
        i += ColourLines;
        copy.append(replacement);
    }
    return copy;
}

} // namespace SchemeFile
