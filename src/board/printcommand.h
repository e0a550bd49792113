// The print command's rules: the question, what the player is told afterwards, and where the
// page goes as a PDF file when the desktop has no printer. The page itself is printed by the
// caller's function, so these rules need no printer and no display. QtCore only.
#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

class Notifier;

// How one print job ended.
struct PrintResult {
    enum class Outcome {
        Printed, // the printer took the page
        Saved,   // no printer: the page is in `file`, a PDF file
        Failed,  // nothing was printed and no file was left behind; `error` says why
    };
    Outcome outcome = Outcome::Failed;
    QString file;
    QString error; // one or more sentences naming the cause
};

// The file a page saved at `when` goes to when there is no printer: in `documentsFolder` (the
// player's documents folder), or in `appFolder` when that is "". The folder is created when
// missing. The name carries the date and time, "Pentalink 2026-11-23 15-08-53.pdf", with
// " (2)", " (3)", ... added when a file of that name exists. Returns "" and sets `error`
// (naming the folder and the cause) when the folder cannot be created.
QString newPdfFile(const QString& documentsFolder, const QString& appFolder, const QDateTime& when,
                   QString& error);

// The print command: asks "Print Current Puzzle and its Solution on a page?" and, on Yes,
// lets pending events run, calls `printPage` once and tells the outcome: "Printed" (with a
// second line naming the file when the page was saved as PDF), or the failure with its cause
// (never "Printed"). Returns true when the page was printed or saved.
bool printCommand(Notifier& notifier, const std::function<void()>& letEventsRun,
                  const std::function<PrintResult()>& printPage);
