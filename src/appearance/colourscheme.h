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
#include <stdexcept>

class Notifier;

// A packed colour that cannot be split into bytes (a system colour, or above 16777215).
class ColourOverflow : public std::runtime_error {
public:
    ColourOverflow();
};

// The components of a packed colour 0..16777215 (the value taken as a signed 32-bit number,
// red = c mod 256, green = (c div 256) mod 256, blue = c div 65536). Throw ColourOverflow when
// a component falls outside 0..255.
quint8 RedByte(quint32 colour);
quint8 GreenByte(quint32 colour);
quint8 BlueByte(quint32 colour);

// The header of a scheme: its name lower-cased followed by ".col".
QString SchemeFileName(const QString& name);

// The colour line the collection file stores for `colour`: " r; g; b" (each number with a
// blank in the sign position). Throws ColourOverflow for a colour that cannot be split.
QString colourLineText(quint32 colour);

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

    // The Options window's loader: reads the section headed `schemeFile` as stored (nothing
    // derived) and returns its colour 2 in baseColour. "default.col" (any case) reads no file:
    // colours 2 and 4 become the system window-background colour, colour 3 becomes 0. On
    // failure shows "Color Scheme: " + schemeFile + " not found" in a plain box, sets
    // baseColour 0 and ActiveSchemeFile "default.col", keeps the colours read so far.
    bool PreviewScheme(const QString& schemeFile, quint32& baseColour);

    // Replaces colours 0..12 with a scheme derived from `baseColour` (plain RGB) at `contrast`
    // percent: colours 3..8 are the base shifted by contrast/100 x (-128, -32, -64, +128, +32,
    // +64), rounded half to even in single precision and clamped to 1..244 per component.
    void DeriveScheme(quint32 baseColour, int contrast);

    // The listed names of the collection: for every line containing ".col", the text before
    // its first ".col", in file order. Empty when the file cannot be read.
    QStringList ListSchemeNames() const;

    // Rewrite the collection with the current colours 0..12 under SchemeFileName(name):
    // Append adds a section at the end; Replace swaps every section with that header; Delete
    // drops every such section. Replace and Delete write the whole new collection to
    // "newall.cox" in the program folder first (it stays there) and only then replace
    // "all.col", atomically. On any failure (unreadable or unwritable file, a section cut
    // short, a colour that cannot be split) they return false and "all.col" is unchanged.
    bool AppendScheme(const QString& name);
    bool ReplaceScheme(const QString& name);
    bool DeleteScheme(const QString& name);

private:
    bool readCollection(QStringList& lines) const;
    QStringList sectionLines(const QString& header) const;
    bool rewriteWithout(const QString& name, bool replace);

    Settings& m_settings;
    Notifier* m_notifier = nullptr;
};
