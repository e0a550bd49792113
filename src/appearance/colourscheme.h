// The active colour scheme: a table of 14 packed colours (red + 256 * green + 65536 * blue,
// or a system colour with the top bit set) and the operations that fill it from the scheme
// collection "all.col", derive it from one colour, and add, replace, delete and list the
// schemes of the collection. QtCore only.
//
// One object lives for the whole run, owned by the application and handed to every window
// that paints from the table. Only entries 2 (backgrounds), 3 (menus) and 4 (buttons and
// tiles, always reached through ButtonColourIndex) are painted; the others are stored,
// loaded and derived only. See schemefile.h for the file's layout.
#pragma once

#include "appearance/colourline.h"
#include "appearance/schemefile.h"
#include "core/settings.h"

#include <QString>
#include <QStringList>

#include <array>
#include <functional>

class Notifier;

// What an edit of the collection came to (the Options window words a message for each).
enum class SchemeEdit {
    Done,     // the collection was rewritten
    Exists,   // Append: the file already lists a scheme of that name
    NotFound, // Replace, Delete: the file has no section with that header (any more)
    Busy,     // another running copy of the game held the collection's lock for the whole wait
    Failed    // nothing could be written; the collection is as it was
};

class ColourScheme {
public:
    static constexpr int ColourCount = 14;
    // Colours 0..12 belong to a scheme; entry 13 is never read or written.
    static constexpr int StoredColours = 13;
    static constexpr int BackgroundColour = 2;
    static constexpr int MenuColour = 3;
    // The system window-background colour, which the "default.col" preview puts in place.
    static constexpr quint32 SystemWindowBackground = 0x80000005u;

    // Works on settings.SchemeCollectionPath, settings.AppFolder (where "newall.cox" goes)
    // and settings.ActiveSchemeFile; `settings` must outlive the scheme.
    explicit ColourScheme(Settings& settings);

    // Where failure messages go; none shows nothing.
    void setNotifier(Notifier* notifier) { m_notifier = notifier; }
    // How whole files are written (default writeFileAtomically); tests make it fail.
    void setWriter(SchemeFile::Writer writer);

    // The shipped "xp.col" as the main window's loader reads it. The table starts from it, so
    // a window whose scheme cannot be loaded (no collection, a damaged one, an unknown name)
    // still paints readable text, menus and buttons.
    static constexpr std::array<quint32, ColourCount> BuiltInXp = {
        packRgb(1, 1, 1),       packRgb(240, 240, 240),
        packRgb(236, 233, 216), packRgb(254, 254, 248),
        packRgb(214, 223, 247), packRgb(182, 191, 215),
        packRgb(244, 244, 244), packRgb(244, 244, 244),
        packRgb(244, 244, 244), packRgb(128, 0, 0),
        packRgb(255, 0, 0),     packRgb(0, 128, 0),
        packRgb(0, 255, 0),     0};

    std::array<quint32, ColourCount> SchemeColours = BuiltInXp;
    int ButtonColourIndex = 4;

    // The main window's loader. Reads the section headed exactly `schemeFile` into colours
    // 0..12; colour 3 is always colour 2 lightened by 32 per component (above 256 becomes
    // 254) and colour 5 colour 4 darkened by 32 (below 1 becomes 8), so their own lines need
    // only be present. On any failure (no file, no such section, a section cut short, a bad
    // colour line) shows "Colour Scheme: " + schemeFile + " not found" with "vbok+vbcritical",
    // sets ActiveSchemeFile to "xp.col" and keeps the colours stored so far. Returns success.
    bool LoadColourScheme(const QString& schemeFile);

    // The Options window's loader: colours 0..12 as stored (nothing derived) and colour 2 in
    // `baseColour`. "default.col" (in any case) reads no file: colours 2 and 4 become
    // SystemWindowBackground, colour 3 becomes 0. On failure shows "Color Scheme: " +
    // schemeFile + " not found" in the standard box (OK only), sets baseColour 0 and
    // ActiveSchemeFile "default.col", keeps the colours stored so far. Returns success.
    bool PreviewScheme(const QString& schemeFile, quint32& baseColour);

    // Replaces colours 0..12 with a scheme computed from `baseColour` at `contrast` percent
    // (f = contrast / 100 in single precision): colours 3..8 are the base with f x (-128,
    // -32, -64, +128, +32, +64) added to each component, rounded half to even and held to
    // 1..244; 0, 1 and 9..12 are fixed. `baseColour` must be plain RGB (0..16777215); any
    // other value leaves the table unchanged and returns false.
    bool DeriveScheme(quint32 baseColour, int contrast);

    // For every line of the collection that contains ".col" (case counts), the text before
    // its first ".col", in file order; an empty list for a file with no header line. Nothing
    // when the file cannot be read (missing, unreadable, too large), so a caller can keep the
    // names it has. The scheme list of the Options window is refilled from this at start-up
    // and after every add and delete.
    std::optional<QStringList> ListSchemeNames() const;

    // The editor's rewrites, each for the header SchemeFileName(name) and the current colours
    // 0..12. Append adds a section at the end (creating the file when missing); Replace puts
    // the colours in place of every section with that header; Delete drops every such section.
    // Each edit holds the collection's lock (lockPath(), a QLockFile beside it, waited for up
    // to lockWait()) and reads the file afresh under it, so two running copies of the game
    // never lose each other's edits and every decision is taken on the file as it is now:
    // Append of a name the file already lists (ignoring case) is Exists; Replace and Delete
    // of a header the file no longer holds are NotFound; neither writes anything.
    // Replace and Delete write the whole new collection to "newall.cox" in the program folder
    // first (it stays there) and only then replace "all.col". Every failure (the lock held by
    // another copy: Busy; the collection unreadable, not a regular file or unwritable, a
    // matching section cut short, a colour of a section being written that cannot be split:
    // Failed) leaves "all.col" exactly as it was; no message is shown here. Append refuses a
    // name holding a line break (CR or LF), which cannot be one header line. So does a rewrite
    // whose result would be larger than the reader accepts (SchemeFile::MaxBytes, reached for
    // example when LF line ends become CR LF): the collection stays readable.
    SchemeEdit AppendScheme(const QString& name);
    SchemeEdit ReplaceScheme(const QString& name);
    SchemeEdit DeleteScheme(const QString& name);

    // The lock file of the collection, SchemeCollectionPath + ".lock".
    QString lockPath() const;
    int lockWait() const { return m_lockWaitMs; }
    void setLockWait(int milliseconds) { m_lockWaitMs = milliseconds; }

    // The scratch copy Replace and Delete write first.
    QString scratchPath() const;

private:
    QStringList sectionFor(const QString& header) const; // throws ColourOverflow
    SchemeEdit rewrite(const QString& name, bool replace);
    // Runs `edit` while holding the collection's lock.
    SchemeEdit locked(const std::function<SchemeEdit()>& edit) const;

    Settings& m_settings;
    Notifier* m_notifier = nullptr;
    SchemeFile::Writer m_writer;
    // Long enough for any edit of another copy to finish, short enough for a click to wait.
    int m_lockWaitMs = 2000;
};
