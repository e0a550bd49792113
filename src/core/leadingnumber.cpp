// Reading a leading number; see leadingnumber.h.
#include "core/leadingnumber.h"

namespace {

bool asciiDigit(QChar c) {
    return c.unicode() >= u'0' && c.unicode() <= u'9';
}

} // namespace

double leadingNumber(const QString& text) {
    const qsizetype n = text.size();
    const auto digitsFrom = [&](qsizetype i) {
        while (i < n && asciiDigit(text[i]))
            ++i;
        return i;
    };
    qsizetype i = 0;
    while (i < n && (text[i] == u' ' || text[i] == u'\t'))
        ++i;
    const qsizetype start = i;
    if (i < n && (text[i] == u'+' || text[i] == u'-'))
        ++i;
    const qsizetype wholeStart = i;
    i = digitsFrom(i);
    qsizetype digits = i - wholeStart;
    if (i < n && text[i] == u'.') {
        const qsizetype fractionStart = i + 1;
        i = digitsFrom(fractionStart);
        digits += i - fractionStart;
    }
    if (digits == 0)
        return 0.0;
    qsizetype end = i;
    if (i < n && (text[i] == u'e' || text[i] == u'E')) {
        qsizetype j = i + 1;
        if (j < n && (text[j] == u'+' || text[j] == u'-'))
            ++j;
        const qsizetype exponentEnd = digitsFrom(j);
        if (exponentEnd > j)
            end = exponentEnd;
    }
    bool ok = false;
    const double value = text.mid(start, end - start).toDouble(&ok);
    return ok ? value : 0.0;
}
