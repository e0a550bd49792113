// Formatting and reading the scores record; see scoresrecord.h.
#include "components/scoresrecord.h"

#include "core/leadingnumber.h"

#include <QStringList>

#include <cmath>

QString scoresDate(const QDate& date) {
    static const char* const kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    if (!date.isValid())
        return QStringLiteral("00Jan0000");
    return QStringLiteral("%1%2%3")
        .arg(date.day(), 2, 10, QLatin1Char('0'))
        .arg(QLatin1String(kMonths[date.month() - 1]))
        .arg(date.year(), 4, 10, QLatin1Char('0'));
}

QString formatScoresRecord(const QDate& date, const ScoreCaptions& totals) {
    QString record = scoresDate(date) + u' ';
    for (const QString& total : totals)
        record += total + u' ';
    return record;
}

QString freshScoresRecord(const QDate& date, int zeros) {
    return scoresDate(date) + QStringLiteral(" 0").repeated(zeros) + u' ';
}

std::optional<ScoreCaptions> parseScoresRecord(const QString& record) {
    const QStringList fields = record.split(u' ');
    if (fields.size() < 5)
        return std::nullopt;
    ScoreCaptions totals;
    for (size_t i = 0; i < totals.size(); ++i)
        totals[i] = fields.at(static_cast<qsizetype>(i) + 1).trimmed();
    return totals;
}

QString countedCaption(const QString& caption) {
    const double next = leadingNumber(caption) + 1;
    // Whole counts (every count the panel writes itself) as plain digits.
    if (std::abs(next) < 1e15 && next == std::floor(next))
        return QString::number(static_cast<qint64>(next));
    return QString::number(next, 'g', 15);
}
