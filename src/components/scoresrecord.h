// The scores record, the text that is scrambled into the scores file: the date of the last
// save as "DDMMMYYYY" and the four totals (played, won, drawn, lost), separated by single
// blanks, e.g. "07Mar2025 12 7 1 4 ". Fields after the fifth are ignored on reading.
#pragma once

#include <QDate>
#include <QString>

#include <array>
#include <optional>

// The four totals, in the order played, won, drawn, lost.
using ScoreTotals = std::array<qint64, 4>;

// `date` as "DDMMMYYYY" with English month abbreviations whatever the locale ("07Mar2025").
// An invalid date gives "00Jan0000" (the field is never read back).
QString scoresDate(const QDate& date);

// The record written from the counters: the date, a blank, then each total followed by one
// blank.
QString formatScoresRecord(const QDate& date, const ScoreTotals& totals);

// The record of a fresh file: the date followed by `zeros` times " 0", then a blank.
QString freshScoresRecord(const QDate& date, int zeros);

// The totals of `record`, split at every blank: fields 1 to 4 (blanks trimmed) must be
// whole numbers of decimal digits that fit 63 bits. Nothing for a record with fewer than
// five fields or any other content in fields 1 to 4.
std::optional<ScoreTotals> parseScoresRecord(const QString& record);
