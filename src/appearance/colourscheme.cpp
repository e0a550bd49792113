// The colour-scheme table and its loader; see colourscheme.h.
#include "appearance/colourscheme.h"

#include "core/notifier.h"
#include "core/textdecoding.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>

#include <algorithm>
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

// Writes `text` as the whole of `path`, atomically; unbuffered so a short write is seen.
bool writeWhole(const QString& path, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

QString joinLines(const QStringList& lines) {
    QString text;
    for (const QString& line : lines)
        text += line + QStringLiteral("\r\n");
    return text;
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

QString colourLineText(quint32 colour) {
    return QStringLiteral(" %1; %2; %3")
        .arg(RedByte(colour))
        .arg(GreenByte(colour))
        .arg(BlueByte(colour));
}

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
        // The lines of colours 3 and 5 are passed over unread: those two are always derived.
        quint32 read = 0;
        if (k != 3 && k != 5 && !readColourLine(lines[at], read))
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

bool ColourScheme::readCollection(QStringList& lines) const {
    QFile file(m_settings.SchemeCollectionPath);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaxCollectionBytes)
        return false;
    lines = splitTextLines(decodeText(file.read(MaxCollectionBytes)));
    return true;
}

bool ColourScheme::PreviewScheme(const QString& schemeFile, quint32& baseColour) {
    if (schemeFile.toLower() == QStringLiteral("default.col")) {
        // The system colour value itself, as a list box would report it.
        constexpr quint32 WindowBackground = 0x80000005u;
        SchemeColours[2] = WindowBackground;
        SchemeColours[4] = WindowBackground;
        SchemeColours[3] = 0;
        baseColour = SchemeColours[2];
        return true;
    }
    const auto fail = [&] {
        if (m_notifier) {
            m_notifier->standardBox(QStringLiteral("Color Scheme: ") + schemeFile +
                                        QStringLiteral(" not found"),
                                    QStringLiteral("vbok"), QStringLiteral("Pentalink"));
        }
        baseColour = 0;
        m_settings.ActiveSchemeFile = QStringLiteral("default.col");
        return false;
    };
    QStringList lines;
    if (!readCollection(lines))
        return fail();
    const qsizetype header = lines.indexOf(schemeFile);
    if (header < 0)
        return fail();
    for (int k = 0; k <= 12; ++k) {
        quint32 colour = 0;
        const qsizetype at = header + 1 + k;
        if (at >= lines.size() || !readColourLine(lines[at], colour))
            return fail();
        SchemeColours[k] = colour;
        if (k == 2)
            baseColour = colour;
    }
    return true;
}

void ColourScheme::DeriveScheme(quint32 baseColour, int contrast) {
    const float f = float(contrast) / 100.0f;
    SchemeColours[0] = pack(1, 1, 1);
    SchemeColours[1] = pack(240, 240, 240);
    SchemeColours[2] = baseColour;
    const int r = RedByte(baseColour), g = GreenByte(baseColour), b = BlueByte(baseColour);
    const int factors[] = {-128, -32, -64, 128, 32, 64};
    for (int k = 3; k <= 8; ++k) {
        const int d = int(std::nearbyint(f * float(factors[k - 3]))); // half to even
        const auto clamp = [d](int v) { return std::clamp(v + d, 1, 244); };
        SchemeColours[k] = pack(clamp(r), clamp(g), clamp(b));
    }
    SchemeColours[9] = pack(128, 0, 0);
    SchemeColours[10] = pack(255, 0, 0);
    SchemeColours[11] = pack(0, 128, 0);
    SchemeColours[12] = pack(0, 255, 0);
}

QStringList ColourScheme::ListSchemeNames() const {
    QStringList lines;
    QStringList names;
    if (!readCollection(lines))
        return names;
    for (const QString& line : lines) {
        const qsizetype at = line.indexOf(QStringLiteral(".col"));
        if (at >= 0)
            names.append(line.left(at));
    }
    return names;
}

QStringList ColourScheme::sectionLines(const QString& header) const {
    QStringList section{header};
    for (int k = 0; k <= 12; ++k)
        section.append(colourLineText(SchemeColours[k])); // may throw ColourOverflow
    return section;
}

bool ColourScheme::AppendScheme(const QString& name) {
    try {
        // Every colour is split before anything is written, so no partial section is left.
        const QStringList section = sectionLines(SchemeFileName(name));
        QFile existing(m_settings.SchemeCollectionPath);
        QByteArray before;
        if (existing.exists()) {
            if (!existing.open(QIODevice::ReadOnly) || existing.size() > MaxCollectionBytes)
                return false;
            before = existing.readAll();
            existing.close();
        }
        QString text = QString::fromUtf8(before);
        if (!before.isEmpty() && !before.endsWith('\n') && !before.endsWith('\r'))
            text += QStringLiteral("\r\n");
        return writeWhole(m_settings.SchemeCollectionPath, text + joinLines(section));
    } catch (const ColourOverflow&) {
        return false;
    }
}

bool ColourScheme::rewriteWithout(const QString& name, bool replace) {
    try {
        const QString header = SchemeFileName(name);
        const QStringList section = replace ? sectionLines(header) : QStringList();
        QStringList lines;
        if (!readCollection(lines))
            return false;
        QStringList copy;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (lines[i] != header) {
                copy.append(lines[i]);
                continue;
            }
            if (i + 13 >= lines.size())
                return false; // a section cut short
            i += 13;
            copy.append(section);
        }
        const QString text = joinLines(copy);
        const QString scratch = QDir(m_settings.AppFolder).filePath(QStringLiteral("newall.cox"));
        return writeWhole(scratch, text) && writeWhole(m_settings.SchemeCollectionPath, text);
    } catch (const ColourOverflow&) {
        return false;
    }
}

bool ColourScheme::ReplaceScheme(const QString& name) {
    return rewriteWithout(name, true);
}

bool ColourScheme::DeleteScheme(const QString& name) {
    return rewriteWithout(name, false);
}
