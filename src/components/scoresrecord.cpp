// Formatting and reading the scores record; see scoresrecord.h.
#include "components/scoresrecord.h"

#include "core/leadingnumber.h"

#include <QRegularExpression>
#include <QStringList>

#include <limits>

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
    const double value = leadingNumber(caption);
    // A whole leading number is counted exactly, and one at the top of the 64-bit range stays
    // there rather than wrap round to a negative total.
    static const QRegularExpression wholeNumber(QStringLiteral("^[ \t]*([+-]?[0-9]+)"));
    const QRegularExpressionMatch match = wholeNumber.match(caption);
    bool whole = false;
    const qint64 count = match.hasMatch() ? match.captured(1).toLongLong(&whole) : 0;
    if (whole && static_cast<double>(count) == value)
        return QString::number(count < std::numeric_limits<qint64>::max() ? count + 1 : count);
    return QString::number(value + 1, 'g', 15);
}
