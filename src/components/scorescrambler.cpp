// Scrambling and unscrambling of the scores line; see scorescrambler.h.
#include "components/scorescrambler.h"

namespace {

constexpr int kKeyLength = sizeof(kScoresKey) - 1;

int hexValue(QChar c) {
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    if (u >= u'A' && u <= u'F')
        return u - u'A' + 10;
    if (u >= u'a' && u <= u'f')
        return u - u'a' + 10;
    return -1;
}

} // namespace

QString ScrambleScores(const QString& text) {
    QString scrambled;
    scrambled.reserve(text.size() * 2);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t code = text.at(i).unicode() <= 0xff ? text.at(i).unicode() : u'?';
        const int x = (static_cast<unsigned char>(kScoresKey[i % kKeyLength]) ^ code) & 0xff;
        scrambled += QStringLiteral("%1").arg(x, 2, 16, QLatin1Char(' ')).toUpper();
    }
    return scrambled;
}

QString UnscrambleScores(const QString& text) {
    QString plain;
    plain.reserve(text.size() / 2 + 1);
    for (qsizetype i = 0, k = 0; i < text.size(); i += 2, ++k) {
        const QString pair = text.mid(i, 2).trimmed();
        int x = 0;
        for (const QChar c : pair) {
            const int digit = hexValue(c);
            if (digit < 0)
                break;
            x = x * 16 + digit;
        }
        const int key = static_cast<unsigned char>(kScoresKey[k % kKeyLength]);
        plain += QChar(static_cast<char16_t>((key ^ x) & 0xff));
    }
    return plain;
}
