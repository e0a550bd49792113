// The scheme collection file as lines; see schemefile.h.
#include "appearance/schemefile.h"

#include "core/textdecoding.h"

#include <QFile>
#include <QSaveFile>

namespace SchemeFile {

std::optional<QStringList> readLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaxBytes)
        return std::nullopt;
    // A special file can claim size 0 and still stream for ever: read at most one byte more
    // than allowed and refuse when it arrives.
    const QByteArray bytes = file.read(MaxBytes + 1);
    if (bytes.size() > MaxBytes || file.error() != QFileDevice::NoError)
        return std::nullopt;
    return splitTextLines(decodeText(bytes));
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

bool writeAtomically(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
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
