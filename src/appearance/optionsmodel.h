// The rules of the Options window Form6: the scheme list and the font list, the font sample,
// the contrast bar and its guard, and the flows of its buttons (preview, View, Apply, Add,
// Replace, Delete) with every message they show. QtCore only; the Form6 widget renders this
// state and forwards the player's clicks.
//
// The window works on the program-wide colour table and settings: previews, View, the
// contrast bar and the picker change the table at once, but the main window takes a scheme
// only through Apply, which reloads it from the collection file. The editor buttons write the
// file at once. Messages go to the platform's standard boxes through the Notifier.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class ColourPicker;
class ColourScheme;
enum class SchemeEdit;
class Notifier;
struct Settings;

class OptionsModel : public QObject {
    Q_OBJECT
public:
    static constexpr int ContrastMinimum = -100;
    static constexpr int ContrastMaximum = 300;
    static constexpr int ContrastDefault = 100;
    static constexpr int SmallestSample = 8;
    static constexpr int LargestSample = 32;

    // Mouse buttons as released over the sample: 1 left, 2 right, 4 middle.
    enum SampleButton { LeftButton = 1, RightButton = 2, MiddleButton = 4 };

    // All four must outlive the model. Every colour `picker` reports becomes colour 2.
    OptionsModel(Settings& settings, ColourScheme& scheme, Notifier& notifier, ColourPicker& picker,
                 QObject* parent = nullptr);

    // What Apply runs last: the main window's "Trigger SetCol" (reload the active scheme
    // from the file and repaint). None does nothing.
    void setCommand2(std::function<void()> command2) { m_command2 = std::move(command2); }

    // Start-up. The font list takes `families` sorted ignoring case, each family once by its
    // name alone (a foundry suffix such as " [urw]" dropped). The scheme list is
    // refilled from the collection; when the file cannot be read it keeps its entries.
    void fillFontList(const QStringList& families);
    void fillSchemeList();

    // `List1`: the scheme names, sorted ignoring case, and the selected row (-1 for none).
    const QStringList& schemeNames() const { return m_schemes; }
    int schemeRow() const { return m_schemeRow; }
    // The selected name, "" when none is selected.
    QString schemeText() const { return m_schemes.value(m_schemeRow); }
    // The player selects a row (a preview follows only on the mouse button's release).
    void selectScheme(int row);

    // `List2`: the font names, the selected row and the row scrolled to the top.
    const QStringList& fontNames() const { return m_fonts; }
    int fontRow() const { return m_fontRow; }
    int fontTopRow() const { return m_fontTop; }

    // The sample `Label1`.
    QString sampleFontName() const { return m_sampleFont; }
    float sampleFontSize() const { return m_sampleSize; }
    bool sampleItalic() const { return m_sampleItalic; }

    int contrast() const { return m_contrast; }
    QString frame1Caption() const { return m_frame1Caption; }
    // The colours the window shows now: its backgrounds (colour 2) and the button faces
    // (the button colour), as packed values (a system colour stays as it is), taken from the
    // table when the window is activated or recoloured, not on every change of the table.
    quint32 background() const { return m_background; }
    quint32 buttonFace() const { return m_buttonFace; }
    // The buttons' captions: the program's fixed text colour, whatever the desktop says.
    quint32 textColour() const;

    // The window becomes active: the contrast bar goes back to 100 without rebuilding the
    // table, the picker takes colour 2, the window is recoloured from the table with the
    // active scheme in Frame1's caption, the configured board font is looked up (ignoring
    // case) in the font list, scrolled to the top and selected, and the sample shows the
    // configured board font and size.
    void activate();
    // A mouse button released over the scheme list: previews the selected scheme (a release
    // with none selected previews ".col", which is not found).
    void preview();
    // The font list's selection changed to `row`: the sample takes that font, not italic.
    void fontClicked(int row);
    // A mouse button released over the sample: left +1, right -1, any other unchanged, then
    // held to 8..32 (a configured 40 becomes 32 at any click).
    void sampleReleased(int button);
    // The contrast bar moved to `value` (held to -100..300): View, unless the bar is guarded.
    void setContrast(int value);
    // Derives the table from the picker's colour and the contrast, and recolours.
    void view();
    // Takes the selected scheme (if any) and the sample font as the active ones and presses
    // the main window's Command2. Writes nothing to disk.
    void apply();
    // Asks for a name and appends the current colours as that scheme, unless the collection
    // file (not the list, which another copy of the game may have outdated) already has it.
    void add();
    // After a Yes, writes the current colours over the selected scheme.
    void replace();
    // After a Yes, deletes the selected scheme unless it is the active one.
    // Each edit that finds the scheme gone from the file, or the file being edited by another
    // copy of the game, says so (and refreshes the list when the file changed).
    void remove();

Q_SIGNALS:
    // The scheme list's entries changed (its selection is then -1).
    void schemeListChanged();
    // The font list's entries changed.
    void fontListChanged();
    // Anything else shown changed: selections, sample, contrast, caption, colours.
    void changed();

private:
    void RecolourOptions();
    void message(const QString& text);
    // The message for an edit of `file` that was not done: `error` + file for a failure.
    void notDone(SchemeEdit result, const QString& file, const QString& error);
    bool confirm(const QString& question);
    // The selected scheme's name once the player said Yes to `question` + name; "" when none
    // is selected (after showing `noneSelected`) or the answer was not Yes.
    QString confirmedSelection(const QString& noneSelected, const QString& question);
    void setSchemeNames(const QStringList& names);

    Settings& m_settings;
    ColourScheme& m_scheme;
    Notifier& m_notifier;
    ColourPicker& m_picker;
    std::function<void()> m_command2;

    QStringList m_schemes;
    int m_schemeRow = -1;
    QStringList m_fonts;
    int m_fontRow = -1;
    int m_fontTop = 0;
    QString m_sampleFont = QStringLiteral("MS Sans Serif");
    float m_sampleSize = 8.25f;
    bool m_sampleItalic = false;
    int m_contrast = ContrastDefault;
    bool m_contrastGuard = false; // ContrastV.Tag holding "X"
    QString m_frame1Caption = QStringLiteral("Colour Scheme");
    quint32 m_background;
    quint32 m_buttonFace;
};
