// The error record: the message shown for an internal error and the line appended to
// "ErrorLog.txt" in the program folder. A record line reads
//   #2010-01-31 17:05:09#,"0","<description>","<module>","<function>","Pentalink
//   v1.0.0","<user>","<computer>"
// ended by CR LF, written in UTF-8. Texts are written between quotes as they stand.
#pragma once

#include <QDateTime>
#include <QString>

class Notifier;

struct ErrorRecord {
    QString number;      // the error number as text, e.g. "0"
    QString description; // what went wrong
    QString module;      // e.g. "clsSimpleArray"
    QString function;    // e.g. "AddItem"
};

// The application title used in error titles and the version text.
inline constexpr const char* kApplicationTitle = "Pentalink";

// "Pentalink v" + major.minor.revision, e.g. "Pentalink v1.0.0".
QString versionText();

// The user name ($USER, else $USERNAME, else "") and the computer name (the host name).
QString userName();
QString computerName();

// The message shown for `record`: "Error occured: " + number + line break, then
// "Description: " + description + line break, "Module: " + module + line break and
// "Function: " + function, each only when its part is not empty; line breaks are CR LF.
QString errorMessageText(const ErrorRecord& record);

// The log line for `record` at time `when`, without its line end.
QString errorLogLine(const QDateTime& when, const ErrorRecord& record);

// Appends errorLogLine(when, record) + CR LF to `logPath`, creating the file when missing.
// The record is written whole or not at all: a write that falls short (a full disk) is cut
// back off, leaving the log as it was, and the result is false. When the log does not end
// in a line break (cut off by something else) the record starts on a new line. Returns
// false when the file cannot be written; callers ignore that.
bool appendErrorLogLine(const QString& logPath, const QDateTime& when, const ErrorRecord& record);

// Shows the message (when `notifier` is not null) titled "Pentalink - ERROR" with style
// "vbcritical+vbok", then appends the record to AppFolder() + "ErrorLog.txt". Never fails.
void reportError(Notifier* notifier, const QDateTime& when, const ErrorRecord& record);
