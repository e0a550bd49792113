// The settings the whole program shares for a run: the program folder, the board font, the
// active colour scheme, the dictionary, the scheme collection and the fixed text colour.
// Plain data; the configuration file (configfile.h) reads and writes part of it.
#pragma once

#include <QString>
#include <QtGlobal>

// A packed colour: red + 256 * green + 65536 * blue (a set top bit names a system colour).
constexpr quint32 packRgb(quint32 red, quint32 green, quint32 blue) {
    return red + 256 * green + 65536 * blue;
}

struct Settings {
    // The fixed text and line colour of the board.
    static constexpr quint32 DefaultTextColour = packRgb(28, 28, 28);

    // The program folder, ending in "/".
    QString AppFolder;
    // The board font (cells, tiles, print). The size is one the Options window can set.
    static constexpr qint32 MinBoardFontSize = 8;
    static constexpr qint32 MaxBoardFontSize = 32;
    QString BoardFontName = QStringLiteral("Arial");
    qint32 BoardFontSize = 18;
    // File name of the active colour scheme ("xp.col" after a damaged configuration).
    QString ActiveSchemeFile;
    // The dictionary to load; may be relative (see programPath()).
    QString DictionaryPath;
    // The colour-scheme collection, AppFolder + "all.col".
    QString SchemeCollectionPath;
    quint32 TextColour = DefaultTextColour;

    // The start-up settings for the program folder `appFolder` ("/" is appended when it does
    // not already end in one): font "Arial" 18, the scheme collection in that folder, the
    // fixed text colour; scheme and dictionary are empty until the configuration is read.
    static Settings forFolder(const QString& appFolder);
};

// `path` as the program opens it: an absolute path stands as it is; a relative one (such as
// "english1.txt" or "ENGLISH1.TXT" written by a default configuration) names a file of the
// program folder `appFolder` (which ends in "/"), never one of the process's current
// directory. Letter case is kept: file names are case-sensitive here.
QString programPath(const QString& path, const QString& appFolder);

// The dictionary start-up loads: the configured one, settings.DictionaryPath resolved by
// programPath(), when FileExists() holds for it; otherwise AppFolder + "english1.txt" (which
// may itself be missing; the dictionary loader reports that). The one rule for the
// configuration file's dictionary line and for start-up.
QString startupDictionaryPath(const Settings& settings);
