// The colour-scheme table and its loader; see colourscheme.h.
#include "appearance/colourscheme.h"

#include "core/notifier.h"
#include "core/textdecoding.h"

#include <QFile>
#include <QRegularExpression>

#include <cmath>

namespace {

constexpr qint64 MaxCollectionBytes = 4 * 1024 * 1024;

// The leading number of a field (blanks skipped), or 0 when it starts with none.
double leadingNumber(const QString& field) {
    static const QRegularExpression number(
        QStringLiteral(R"(^\s*([-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?))"));
    const QRegularExpressionMatch match = number.match(field);
    return match.hasMatch() ? match.captured(1).toDouble() : 0.0;
}

quint32 pack(int r, int g, int b) {
    return quint32(r) + 256u * quint32(g) + 65536u * quint32(b);
}

} // namespace

bool readColourLine(const QString& line, quint32& colour) {
    const QStringList fields = line.split(u';');
    if (fields.size() < 3)
        return false;
    int value[3];
    for (int i = 0; i < 3; ++i) {
        const double rounded = std::nearbyint(leadingNumber(fields[i])); // ties to even
        if (rounded < 0 || rounded > 32767)
            return false;
        value[i] = rounded > 255 ? 255 : int(rounded);
    }
    colour = pack(value[0], value[1], value[2]);
    return true;
}

ColourScheme::ColourScheme(Settings& settings)
    : m_settings(settings) {}

bool ColourScheme::LoadColourScheme(const QString& schemeFile) {
    const auto fail = [&] {
        if (m_notifier) {
            m_notifier->MsgboxA(QStringLiteral("Colour Scheme: ") + schemeFile +
                                    QStringLiteral(" not found"),
                                QStringLiteral("vbok+vbcritical"));
        }
        m_settings.ActiveSchemeFile = QStringLiteral("xp.col");
        return false;
    };

    QFile file(m_settings.SchemeCollectionPath);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaxCollectionBytes)
        return fail();
    const QStringList lines = splitTextLines(decodeText(file.read(MaxCollectionBytes)));
    const qsizetype header = lines.indexOf(schemeFile);
    if (header < 0)
        return fail();

    int r = 0, g = 0, b = 0;
    for (int k = 0; k <= 12; ++k) {
        const qsizetype at = header + 1 + k;
        if (at >= lines.size())
            return fail();
        quint32 read = 0;
        if (!readColourLine(lines[at], read))
            return fail();
        if (k == 3) {
            // Colour 3 is colour 2 lightened; 256 still counts as 255 below.
            const auto lighten = [](int v) {
                v += 32;
                return v > 256 ? 254 : std::min(v, 255);
            };
            r = lighten(r), g = lighten(g), b = lighten(b);
        } else if (k == 5) {
            const auto darken = [](int v) {
                v -= 32;
                return v < 1 ? 8 : v;
            };
            r = darken(r), g = darken(g), b = darken(b);
        } else {
            r = int(read & 0xFF), g = int((read >> 8) & 0xFF), b = int((read >> 16) & 0xFF);
        }
        SchemeColours[k] = pack(r, g, b);
    }
    return true;
}
