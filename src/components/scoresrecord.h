// The scores record, the text that is scrambled into the scores file: the date of the last
// save as "DDMMMYYYY" and the four totals (played, won, drawn, lost), separated by single
// blanks, e.g. "07Mar2025 12 7 1 4 ". Fields after the fifth are ignored on reading.
#pragma once

#include <QDate>
#include <QString>

#include <array>
#include <optional>

// The four totals as the panel shows them, in the order played, won, drawn, lost: normally
// whole numbers, but a damaged record's fields are shown (and saved again) as they stand.
using ScoreCaptions = std::array<QString, 4>;

// `date` as "DDMMMYYYY" with English month abbreviations whatever the locale ("07Mar2025").
// An invalid date gives "00Jan0000" (the field is never read back).
QString scoresDate(const QDate& date);

// The record written from the counters: the date, a blank, then each total followed by one
// blank.
QString formatScoresRecord(const QDate& date, const ScoreCaptions& totals);

// The record of a fresh file: the date followed by `zeros` times " 0", then a blank.
QString freshScoresRecord(const QDate& date, int zeros);

// Fields 1 to 4 of `record` split at every blank, blanks trimmed, whatever they hold. Nothing
// for a record with fewer than five fields.
std::optional<ScoreCaptions> parseScoresRecord(const QString& record);

// A counter's caption after one more game: its leading number (0 when it starts with none)
// plus 1, as plain digits ("7" gives "8", "x" gives "1", "2.5" gives "3.5"); a whole number
// at the largest 64-bit value stays as it is.
QString countedCaption(const QString& caption);
