// The active colour scheme: a table of 14 packed colours (red + 256 * green + 65536 * blue)
// and the loader that fills it from the scheme collection "all.col". Only entries 2
// (backgrounds), 3 (menus) and 4 (buttons and tiles, always reached through
// ButtonColourIndex) are painted by the windows.
//
// "all.col" is a sequence of 14-line sections: a header line (the scheme's file name, e.g.
// "xp.col"), then colours 0 to 12, each "r; g; b". QtCore only.
#pragma once

#include "core/settings.h"

#include <QString>

#include <array>

class Notifier;

// One colour line: its first three ";"-separated fields as red, green, blue. Each field's
// value is its leading number (blanks skipped; none counts 0) rounded half to even; above 255
// counts as 255. Returns false for fewer than three fields, a negative value or one above
// 32767.
bool readColourLine(const QString& line, quint32& colour);

class ColourScheme {
public:
    static constexpr int ColourCount = 14;

    // Works on settings.SchemeCollectionPath and settings.ActiveSchemeFile, which must outlive
    // the scheme.
    explicit ColourScheme(Settings& settings);

    void setNotifier(Notifier* notifier) { m_notifier = notifier; }

    std::array<quint32, ColourCount> SchemeColours{};
    int ButtonColourIndex = 4;

    // Reads the section headed `schemeFile` into SchemeColours; colour 3 is always colour 2
    // lightened by 32 and colour 5 colour 4 darkened by 32, whatever the file says. On any
    // failure (no file, no such section, a short or bad section) shows "Colour Scheme: " +
    // schemeFile + " not found" ("vbok+vbcritical"), sets ActiveSchemeFile to "xp.col" and
    // keeps the colours read so far. Returns success.
    bool LoadColourScheme(const QString& schemeFile);

private:
    Settings& m_settings;
    Notifier* m_notifier = nullptr;
};
