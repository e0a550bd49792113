// Formatting and reading the scores record; see scoresrecord.h.
#include "components/scoresrecord.h"

#include <QStringList>

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

QString formatScoresRecord(const QDate& date, const ScoreTotals& totals) {
    QString record = scoresDate(date) + u' ';
    for (const qint64 total : totals)
        record += QString::number(total) + u' ';
    return record;
}

QString freshScoresRecord(const QDate& date, int zeros) {
    return scoresDate(date) + QStringLiteral(" 0").repeated(zeros) + u' ';
}

std::optional<ScoreTotals> parseScoresRecord(const QString& record) {
    const QStringList fields = record.split(u' ');
    if (fields.size() < 5)
        return std::nullopt;
    ScoreTotals totals{};
    for (int i = 0; i < 4; ++i) {
        const QString field = fields.at(i + 1).trimmed();
        bool ok = !field.isEmpty();
        for (const QChar c : field)
            ok = ok && c >= u'0' && c <= u'9';
        const qint64 value = ok ? field.toLongLong(&ok) : 0;
        if (!ok)
            return std::nullopt;
        totals[static_cast<size_t>(i)] = value;
    }
    return totals;
}
