// The container layout and its arithmetic; see zipformat.h.
#include "components/zipformat.h"

#include "core/leadingnumber.h"

#include <QtEndian>

#include <algorithm>
#include <cfenv>
#include <cmath>

namespace zipformat {

double roundHalfEven(double value) {
    // std::nearbyint follows the current rounding mode, which is to-nearest-even by default.
    const int previous = std::fegetround();
    std::fesetround(FE_TONEAREST);
    const double rounded = std::nearbyint(value);
    std::fesetround(previous);
    return rounded;
}

qint64 bufferBound(qint64 n) {
    const double x = static_cast<double>(n);
    return static_cast<qint64>(roundHalfEven(x * 0.01 + x + 12.0));
}

qint16 levelFromValue(const QVariant& value) {
    const double number = roundHalfEven(leadingNumber(value.toString()));
    if (std::isnan(number))
        return 1;
    return static_cast<qint16>(std::clamp(number, 1.0, 9.0));
}

QByteArray extensionField(const QString& sourceFile) {
    QByteArray field;
    for (const QChar c : sourceFile.right(3))
        field += c.unicode() <= 0xff ? static_cast<char>(c.unicode()) : '_';
    while (field.size() < 3)
        field += ' ';
    return field;
}

QByteArray buildHeader(qint32 originalSize, const QString& sourceFile) {
    QByteArray header(kSignature, 3);
    char length[4];
    qToLittleEndian<qint32>(originalSize, length);
    header.append(length, 4);
    header += extensionField(sourceFile);
    return header;
}

std::optional<Header> parseHeader(const QByteArray& bytes) {
    if (!bytes.startsWith(kSignature))
        return std::nullopt;
    Header header;
    if (bytes.size() >= kHeaderSize) {
        header.originalSize = qFromLittleEndian<qint32>(bytes.constData() + 3);
        header.extension = bytes.mid(7, 3);
    }
    return header;
}

QString restoredExtension(const QByteArray& field) {
    QString extension = QString::fromLatin1(field);
    while (extension.endsWith(u' '))
        extension.chop(1);
    extension.replace(u'/', u'_');
    extension.replace(QChar(u'\0'), u'_');
    return extension;
}

bool plausibleOriginalSize(qint64 originalSize, qint64 streamLength, qint64 limit) {
    if (originalSize < 0 || originalSize > limit || streamLength < 0)
        return false;
    // A zlib stream carries at least 6 bytes of frame; the slack covers block headers.
    return originalSize <= streamLength * kMaxExpansion + 1024;
}

} // namespace zipformat
