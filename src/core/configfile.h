// The configuration file "pentalink.cfg" of the program folder: five lines that remember the
// colour scheme, the dictionary and the board font between runs. Read at start-up, written
// only when the player leaves through Exit.
//
// Format (UTF-8 when written, every line ended by CR LF; read as UTF-8, or Windows-1252 when
// the bytes are not valid UTF-8, with lines ended by CR LF, LF or CR):
//   1  date and time of writing, "MM-dd-yyyy HH:mm:ss" (24-hour clock); ignored on reading
//   2  ActiveSchemeFile, the whole line
//   3  DictionaryPath, the whole line
//   4  BoardFontName as a delimited field: leading blanks skipped; a field opening with a
//      double quote runs to the next single double quote (the quotes are dropped, commas
//      inside are kept, a doubled quote stands for one); otherwise it ends at the first
//      comma or the end of the line, trailing blanks dropped. So `Times New Roman, Bold`
//      reads as "Times New Roman". A name with a blank at either end, a comma or a quote is
//      written quoted, so every name without a line break reads back as it was saved.
//   5  BoardFontSize as a whole number in sign position: a blank before a non-negative
//      number and a blank after it (" 18 ", "-3 "). Read as a numeric field: leading blanks
//      skipped, ending at a blank, a comma or the end of the line; it must be a decimal whole
//      number from Settings::MinBoardFontSize to MaxBoardFontSize (8 to 32).
// Lines after the fifth are ignored.
#pragma once

#include "core/settings.h"

#include <QDateTime>
#include <QString>

#include <functional>

class Notifier;

class ConfigFile {
public:
    // The source of "now" for line 1 (tests fix it).
    using Clock = std::function<QDateTime()>;

    // What ReadcfgFile found.
    enum class ReadResult {
        Read,              // the five lines were read into the settings
        DefaultsWritten,   // the file was missing or damaged; defaults written and taken
        DefaultsNotWritten // as before, but the fresh file could not be written
    };

    // Works on `settings` (its AppFolder names the folder of the file) and reports through
    // `notifier`; both must outlive this object.
    ConfigFile(
        Settings& settings, Notifier& notifier,
        Clock clock = [] { return QDateTime::currentDateTime(); });

    // settings.AppFolder + "pentalink.cfg".
    QString path() const;

    // Reads the five lines into ActiveSchemeFile, DictionaryPath, BoardFontName and
    // BoardFontSize; DictionaryPath becomes startupDictionaryPath() of line 3. Nothing is
    // taken from a file that fails anywhere: when the file is missing, has fewer than five
    // lines, is larger than 64 KiB, or line 5 is not a size from 8 to 32, the file is
    // rewritten with the defaults (lines 2..5 "xp.col", "ENGLISH1.TXT", "Arial", " 18 ") and
    // the settings become ActiveSchemeFile "xp.col", DictionaryPath "english1.txt" (no
    // folder), BoardFontName "Arial"; BoardFontSize is left as it was (18 at start-up).
    // No message is shown in any case.
    ReadResult ReadcfgFile();

    // Writes the five lines from the clock and the settings, atomically: the old file stays
    // whole unless the new one was written completely. On failure shows "Configuration
    // file:", the full path and "could not be accessed, options not saved" on three lines
    // with style "vbcritical+vbok" and returns false. Line breaks inside a setting are
    // written as blanks so the file keeps its five lines. Settings so long that the file
    // would pass the 64 KiB the reader accepts are not saved either (the same message).
    bool SavecfgFile();

    // The five lines for the given values, each ended by CR LF (what SavecfgFile writes).
    static QString formatFile(const QDateTime& when, const QString& schemeFile,
                              const QString& dictionaryPath, const QString& fontName,
                              qint32 fontSize);

private:
    bool writeFile(const QString& content) const;

    Settings& m_settings;
    Notifier& m_notifier;
    Clock m_clock;
};
