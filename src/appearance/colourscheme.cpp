// The colour-scheme table and the operations on the collection; see colourscheme.h.
#include "appearance/colourscheme.h"

#include "core/atomicwrite.h"
#include "core/notifier.h"

#include <QFileInfo>
#include <QLockFile>

#include <algorithm>
#include <cmath>

namespace {

// Colour 3 is colour 2 lightened; a component of 256 still counts as 255 when packed.
int lighten(int v) {
    v += 32;
    return v > 256 ? 254 : v;
}

// Colour 5 is colour 4 darkened.
int darken(int v) {
    v -= 32;
    return v < 1 ? 8 : v;
}

// The lines under the first header `schemeFile` in the collection at `path`, at most
// StoredColours of them: fewer when the file ends first, so the loaders store the colours
// before the missing one. Nothing when the collection cannot be read or has no such header.
std::optional<QStringList> storedLines(const QString& path, const QString& schemeFile) {
    const std::optional<QStringList> lines = SchemeFile::readLines(path);
    if (!lines)
        return std::nullopt;
    const qsizetype header = lines->indexOf(schemeFile);
    if (header < 0)
        return std::nullopt;
    return lines->mid(header + 1, ColourScheme::StoredColours);
}

// The names the scheme list shows for `lines`: the text before the first ".col" of every line
// that holds one.
QStringList listedNames(const QStringList& lines) {
    QStringList names;
    for (const QString& line : lines) {
        const qsizetype at = line.indexOf(QStringLiteral(".col"));
        if (at >= 0)
            names.append(line.left(at));
    }
    return names;
}

} // namespace

ColourScheme::ColourScheme(Settings& settings)
    : m_settings(settings)
    , m_writer(writeFileAtomically) {}

void ColourScheme::setWriter(SchemeFile::Writer writer) {
    m_writer = writer ? std::move(writer) : SchemeFile::Writer(writeFileAtomically);
}

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

    const std::optional<QStringList> lines =
        storedLines(m_settings.SchemeCollectionPath, schemeFile);
    if (!lines)
        return fail();

    // Components as read (0..32767); they carry over from colour 2 to 3 and from 4 to 5.
    ColourComponents c;
    for (int k = 0; k < StoredColours; ++k) {
        if (k >= lines->size()) // the section is cut short: the line cannot be read
            return fail();
        if (k == 3) {
            c = {lighten(c.red), lighten(c.green), lighten(c.blue)};
        } else if (k == 5) {
            c = {darken(c.red), darken(c.green), darken(c.blue)};
        } else {
            const std::optional<ColourComponents> read = readColourLine(lines->at(k));
            if (!read)
                return fail();
            c = *read;
        }
        SchemeColours[k] = packComponents(c);
    }
    return true;
}

bool ColourScheme::PreviewScheme(const QString& schemeFile, quint32& baseColour) {
    if (schemeFile.toLower() == QStringLiteral("default.col")) {
        SchemeColours[2] = SystemWindowBackground;
        SchemeColours[4] = SystemWindowBackground;
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

    const std::optional<QStringList> lines =
        storedLines(m_settings.SchemeCollectionPath, schemeFile);
    if (!lines)
        return fail();
    for (int k = 0; k < StoredColours; ++k) {
        const std::optional<ColourComponents> read =
            k < lines->size() ? readColourLine(lines->at(k)) : std::nullopt;
        if (!read)
            return fail();
        SchemeColours[k] = packComponents(*read);
        if (k == BackgroundColour)
            baseColour = SchemeColours[k];
    }
    return true;
}

bool ColourScheme::DeriveScheme(quint32 baseColour, int contrast) {
    int r = 0, g = 0, b = 0;
    try {
        r = RedByte(baseColour);
        g = GreenByte(baseColour);
        b = BlueByte(baseColour);
    } catch (const ColourOverflow&) {
        return false;
    }
    // The factor is computed in double and held in single precision, and so is each shift.
    const float f = float(double(contrast) / 100.0);
    SchemeColours[0] = packRgb(1, 1, 1);
    SchemeColours[1] = packRgb(240, 240, 240);
    SchemeColours[2] = baseColour;
    static constexpr int Factors[] = {-128, -32, -64, 128, 32, 64};
    for (int k = 3; k <= 8; ++k) {
        const float shift = f * float(Factors[k - 3]);
        const int d = int(std::nearbyint(shift)); // half to even
        const auto hold = [d](int v) { return quint32(std::clamp(v + d, 1, 244)); };
        SchemeColours[k] = packRgb(hold(r), hold(g), hold(b));
    }
    SchemeColours[9] = packRgb(128, 0, 0);
    SchemeColours[10] = packRgb(255, 0, 0);
    SchemeColours[11] = packRgb(0, 128, 0);
    SchemeColours[12] = packRgb(0, 255, 0);
    return true;
}

std::optional<QStringList> ColourScheme::ListSchemeNames() const {
    const std::optional<QStringList> lines = SchemeFile::readLines(m_settings.SchemeCollectionPath);
    if (!lines)
        return std::nullopt;
    return listedNames(*lines);
}

QString ColourScheme::scratchPath() const {
    const QString folder = m_settings.AppFolder.isEmpty()
                               ? QFileInfo(m_settings.SchemeCollectionPath).path() + u'/'
                               : m_settings.AppFolder;
    return folder + QStringLiteral("newall.cox");
}

QStringList ColourScheme::sectionFor(const QString& header) const {
    QStringList section{header};
    for (int k = 0; k < StoredColours; ++k)
        section.append(colourLineText(SchemeColours[k]));
    return section;
}

QString ColourScheme::lockPath() const {
    return m_settings.SchemeCollectionPath + QStringLiteral(".lock");
}

SchemeEdit ColourScheme::locked(const std::function<SchemeEdit()>& edit) const {
    // A lock left by a copy that was killed is taken over (QLockFile checks its process).
    QLockFile lock(lockPath());
    if (!lock.tryLock(m_lockWaitMs))
        return lock.error() == QLockFile::LockFailedError ? SchemeEdit::Busy : SchemeEdit::Failed;
    return edit();
}

SchemeEdit ColourScheme::AppendScheme(const QString& name) {
    // A header is one line: a name holding a line break would split it and shift every
    // colour line of the section.
    if (name.contains(u'\r') || name.contains(u'\n'))
        return SchemeEdit::Failed;
    QStringList section;
    try {
        // Every colour is split before anything is written, so no partial section is left.
        section = sectionFor(SchemeFileName(name));
    } catch (const ColourOverflow&) {
        return SchemeEdit::Failed;
    }
    return locked([&] {
        QStringList lines;
        if (QFileInfo::exists(m_settings.SchemeCollectionPath)) {
            const std::optional<QStringList> existing =
                SchemeFile::readLines(m_settings.SchemeCollectionPath);
            if (!existing)
                return SchemeEdit::Failed;
            lines = *existing;
        }
        if (listedNames(lines).contains(name, Qt::CaseInsensitive))
            return SchemeEdit::Exists;
        lines.append(section);
        const std::optional<QByteArray> bytes = SchemeFile::toReadableBytes(lines);
        return bytes && m_writer(m_settings.SchemeCollectionPath, *bytes) ? SchemeEdit::Done
                                                                          : SchemeEdit::Failed;
    });
}

SchemeEdit ColourScheme::rewrite(const QString& name, bool replace) {
    const QString header = SchemeFileName(name);
    return locked([&] {
        const std::optional<QStringList> lines =
            SchemeFile::readLines(m_settings.SchemeCollectionPath);
        if (!lines)
            return SchemeEdit::Failed;
        if (!lines->contains(header))
            return SchemeEdit::NotFound;
        QStringList section;
        try {
            if (replace)
                section = sectionFor(header);
        } catch (const ColourOverflow&) {
            return SchemeEdit::Failed;
        }
        const std::optional<QStringList> copy =
            SchemeFile::rewriteSections(*lines, header, section);
        if (!copy)
            return SchemeEdit::Failed;
        const std::optional<QByteArray> bytes = SchemeFile::toReadableBytes(*copy);
        return bytes && m_writer(scratchPath(), *bytes) &&
                       m_writer(m_settings.SchemeCollectionPath, *bytes)
                   ? SchemeEdit::Done
                   : SchemeEdit::Failed;
    });
}

SchemeEdit ColourScheme::ReplaceScheme(const QString& name) {
    return rewrite(name, true);
}

SchemeEdit ColourScheme::DeleteScheme(const QString& name) {
    return rewrite(name, false);
}
