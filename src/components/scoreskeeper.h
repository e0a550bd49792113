// ScoresKeeper: the tally behind the scores panel. Counts games played, won, drawn and lost
// for this session and in total, and keeps the totals in the scores file, one line holding
// the scrambled scores record (scoresrecord.h, scorescrambler.h) ended by CR LF. The counters
// are the captions the panel shows; counting reads a caption's leading number.
//
// The file is the program's base name + ".sco" in the program folder (AppFolder()), beside
// the configuration; any other path can be given (tests do). It is written whole or not at
// all. A file whose first line does not unscramble into a record of five or more fields shows
// zeros and is left as it is until the next save replaces it; a record with enough fields
// shows them as they stand, numbers or not. Depends on QtCore only.
#pragma once

#include "components/scoresrecord.h"

#include <QDate>
#include <QString>

#include <functional>

class Notifier;

// The rows of the counters: 1 played, then won, drawn, lost.
enum class GameResult { Won = 2, Drawn = 3, Lost = 4 };

class ScoresKeeper {
public:
    using DateSource = std::function<QDate()>;

    // `notifier` must outlive the object; `today` dates the records written.
    ScoresKeeper(
        QString scoreFilePath, Notifier& notifier,
        DateSource today = [] { return QDate::currentDate(); });

    // The running program's file name without folder and extension ("pentalink").
    static QString programBaseName();
    // AppFolder() + programBaseName() + ".sco".
    static QString defaultScoreFilePath();

    const QString& ScoreFileName() const { return m_path; }

    // The start sequence: a missing or empty file is created with a fresh record (errors
    // ignored); otherwise its first line is unscrambled and shown. Session counters read 0.
    void start();

    // Counts one game in both columns (played and the result's row; a count at the largest
    // 64-bit value stays there), then SaveScores; when the save fails, says so with a
    // standard box and keeps the counts for the next save.
    void countGame(GameResult result);

    // Writes the date and the four totals. Returns false when the file could not be written
    // (the old file is then unchanged).
    bool SaveScores();

    // Shows `record`: session counters "0", totals from fields 1 to 4. An empty record, or one
    // of fewer than five fields, is replaced by a fresh record (all zeros) first.
    void ShowScores(QString& record);

    // Asks "Clear ALL scores" (Yes/No, standard box); on Yes writes a fresh record (errors
    // ignored) and shows it. Returns whether the scores were cleared.
    bool clear();

    // Caption of the counter of row 1..4 (played, won, drawn, lost); "" for any other row.
    QString thisSession(int row) const;
    QString allSessions(int row) const;

private:
    bool writeRecord(const QString& record) const;

    QString m_path;
    Notifier& m_notifier;
    DateSource m_today;
    ScoreCaptions m_session{QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0"),
                            QStringLiteral("0")};
    ScoreCaptions m_totals = m_session;
};
