// The Options window's rules; see optionsmodel.h.
#include "appearance/optionsmodel.h"

#include "appearance/colourpicker.h"
#include "appearance/colourscheme.h"
#include "core/notifier.h"
#include "core/settings.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace {

// The face colour of a window or control (system colour 15) until a scheme is shown.
constexpr quint32 ControlFace = 0x80000000u + 15;
// The standard boxes of this window carry the program's title.
const QString BoxTitle = QStringLiteral("Pentalink");

// The sorted order of the lists: ignoring case, as the platform's sorted list boxes keep it.
QStringList sortedIgnoringCase(QStringList names) {
    std::stable_sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        return QString::compare(a, b, Qt::CaseInsensitive) < 0;
    });
    return names;
}

// The row of `list` that equals `text` as a whole, ignoring case; -1 when none does.
int findExact(const QStringList& list, const QString& text) {
    const auto at = std::find_if(list.begin(), list.end(), [&text](const QString& entry) {
        return QString::compare(entry, text, Qt::CaseInsensitive) == 0;
    });
    return at == list.end() ? -1 : int(at - list.begin());
}

} // namespace

OptionsModel::OptionsModel(Settings& settings, ColourScheme& scheme, Notifier& notifier,
                           ColourPicker& picker, QObject* parent)
    : QObject(parent)
    , m_settings(settings)
    , m_scheme(scheme)
    , m_notifier(notifier)
    , m_picker(picker)
    , m_background(ControlFace)
    , m_buttonFace(ControlFace) {
    connect(&m_picker, &ColourPicker::SelColor, this, [this](quint32 colour) {
        m_scheme.SchemeColours[ColourScheme::BackgroundColour] = colour;
    });
}

quint32 OptionsModel::textColour() const {
    return m_settings.TextColour;
}

void OptionsModel::fillFontList(const QStringList& families) {
    // Fontconfig lists a family once per foundry that makes it ("C059 [urw]", "C059 [UKWN]");
    // players know it by its name alone, and the name alone finds it.
    static const QRegularExpression foundry(QStringLiteral("\\s*\\[[^\\]]*\\]$"));
    QStringList names;
    QSet<QString> seen;
    for (const QString& family : families) {
        const QString name = QString(family).remove(foundry);
        if (!seen.contains(name.toCaseFolded())) {
            seen.insert(name.toCaseFolded());
            names << name;
        }
    }
    m_fonts = sortedIgnoringCase(names);
    m_fontRow = -1;
    m_fontTop = 0;
    Q_EMIT fontListChanged();
}

void OptionsModel::fillSchemeList() {
    if (const std::optional<QStringList> names = m_scheme.ListSchemeNames())
        setSchemeNames(*names);
}

void OptionsModel::setSchemeNames(const QStringList& names) {
    m_schemes = sortedIgnoringCase(names);
    m_schemeRow = -1;
    Q_EMIT schemeListChanged();
}

void OptionsModel::selectScheme(int row) {
    m_schemeRow = row >= 0 && row < m_schemes.size() ? row : -1;
    Q_EMIT changed();
}

void OptionsModel::activate() {
    m_contrastGuard = true;
    setContrast(ContrastDefault);
    m_contrastGuard = false;

    // The picker reports the translated colour back, which becomes colour 2.
    m_picker.setSchemeColor(m_scheme.SchemeColours[ColourScheme::BackgroundColour]);

    m_background = m_scheme.SchemeColours[ColourScheme::BackgroundColour];
    m_buttonFace = m_scheme.SchemeColours[m_scheme.ButtonColourIndex];
    m_frame1Caption = QStringLiteral("Colour Scheme: ") + m_settings.ActiveSchemeFile;

    const int font = findExact(m_fonts, m_settings.BoardFontName);
    if (font >= 0) {
        m_fontTop = font;
        fontClicked(font);
    }
    m_sampleFont = m_settings.BoardFontName;
    m_sampleSize = float(m_settings.BoardFontSize);
    Q_EMIT changed();
}

void OptionsModel::preview() {
    quint32 base = 0;
    m_scheme.PreviewScheme(schemeText() + QStringLiteral(".col"), base);
    m_picker.setSchemeColor(base);
    setContrast(ContrastDefault); // rebuilds the table from the picker's colour if it moved
    RecolourOptions();
}

void OptionsModel::fontClicked(int row) {
    if (row < 0 || row >= m_fonts.size())
        return;
    m_fontRow = row;
    m_sampleItalic = false;
    m_sampleFont = m_fonts[row];
    Q_EMIT changed();
}

void OptionsModel::sampleReleased(int button) {
    int size = int(std::nearbyint(m_sampleSize));
    if (button == LeftButton)
        ++size;
    else if (button == RightButton)
        --size;
    m_sampleSize = float(std::clamp(size, SmallestSample, LargestSample));
    Q_EMIT changed();
}

void OptionsModel::setContrast(int value) {
    value = std::clamp(value, ContrastMinimum, ContrastMaximum);
    if (value == m_contrast)
        return;
    m_contrast = value;
    Q_EMIT changed();
    if (!m_contrastGuard)
        view();
}

void OptionsModel::view() {
    m_scheme.DeriveScheme(m_picker.SchemeColor(), m_contrast);
    RecolourOptions();
}

void OptionsModel::RecolourOptions() {
    m_frame1Caption = QStringLiteral("Colour Scheme: ") + schemeText();
    m_background = m_scheme.SchemeColours[ColourScheme::BackgroundColour];
    m_buttonFace = m_scheme.SchemeColours[m_scheme.ButtonColourIndex];
    Q_EMIT changed();
}

void OptionsModel::apply() {
    if (!schemeText().isEmpty())
        m_settings.ActiveSchemeFile = schemeText() + QStringLiteral(".col");
    m_settings.BoardFontName = m_sampleFont;
    m_settings.BoardFontSize = qint32(std::nearbyint(m_sampleSize)); // ties to even
    if (m_command2)
        m_command2();
}

void OptionsModel::add() {
    const QString name =
        m_notifier.inputBox(QStringLiteral("Enter new Color Scheme name"), BoxTitle);
    if (name.isEmpty())
        return;
    // Whether the name is taken is decided on the file, which another copy may have changed
    // since the list was filled; the list then shows what the file holds.
    const SchemeEdit result = m_scheme.AppendScheme(name);
    if (result == SchemeEdit::Done || result == SchemeEdit::Exists) {
        if (result == SchemeEdit::Done || findExact(m_schemes, name) < 0)
            fillSchemeList();
        message(QStringLiteral("Color Scheme: ") + name +
                (result == SchemeEdit::Done ? QStringLiteral(" added")
                                            : QStringLiteral(" already exists")));
        return;
    }
    notDone(result, SchemeFileName(name), QStringLiteral("Error in adding Color Scheme:\n"));
}

void OptionsModel::notDone(SchemeEdit result, const QString& file, const QString& error) {
    if (result == SchemeEdit::Busy) {
        message(QStringLiteral("The color schemes are being changed by another copy of "
                               "Pentalink.\nPlease try again."));
    } else if (result == SchemeEdit::NotFound) {
        fillSchemeList();
        message(QStringLiteral("Color Scheme: ") + file +
                QStringLiteral(" is no longer in the collection; nothing was changed"));
    } else {
        message(error + file);
    }
}

QString OptionsModel::confirmedSelection(const QString& noneSelected, const QString& question) {
    const QString name = schemeText();
    if (name.isEmpty()) {
        message(noneSelected);
        return QString();
    }
    return confirm(question + name) ? name : QString();
}

void OptionsModel::replace() {
    const QString name = confirmedSelection(QStringLiteral("Select a color scheme to replace"),
                                            QStringLiteral("Replace color scheme: "));
    if (name.isEmpty())
        return;
    const QString file = SchemeFileName(name);
    const SchemeEdit result = m_scheme.ReplaceScheme(name);
    if (result != SchemeEdit::Done)
        return notDone(result, file, QStringLiteral("Error in updating Color Scheme:\n"));
    message(QStringLiteral("Color Scheme: ") + file + QStringLiteral(" replaced"));
}

void OptionsModel::remove() {
    const QString name = confirmedSelection(QStringLiteral("Select a color scheme to delete"),
                                            QStringLiteral("Delete color scheme: "));
    if (name.isEmpty())
        return;
    const QString file = SchemeFileName(name);
    if (file == m_settings.ActiveSchemeFile.toLower()) {
        message(QStringLiteral("Cannot delete currently active Color Scheme"));
        return;
    }
    const SchemeEdit result = m_scheme.DeleteScheme(name);
    if (result != SchemeEdit::Done)
        return notDone(result, file, QStringLiteral("Error in updating Color Scheme:\n"));
    fillSchemeList();
    message(QStringLiteral("Color Scheme: ") + file + QStringLiteral(" deleted"));
}

void OptionsModel::message(const QString& text) {
    m_notifier.standardBox(text, QStringLiteral("vbok"), BoxTitle);
}

bool OptionsModel::confirm(const QString& question) {
    return m_notifier.standardBox(question, QStringLiteral("vbQuestion + vbYesNo"), BoxTitle) ==
           AnswerYes;
}
