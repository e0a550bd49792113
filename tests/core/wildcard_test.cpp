// The wildcard test: a table, random patterns against std::regex, and explosive patterns.
#include "core/wildcard.h"

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <random>
#include <regex>
#include <string>

namespace {

// The pattern as an ECMAScript regular expression over single (ASCII) bytes.
std::string escaped(char c) {
    const std::string special = "\\^$.|?*+()[]{}-/";
    return special.find(c) != std::string::npos ? std::string("\\") + c : std::string(1, c);
}

bool regexMatches(const std::string& text, const std::string& pattern) {
    std::string re;
    for (size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        if (c == '*') {
            re += "[\\s\\S]*";
        } else if (c == '?') {
            re += "[\\s\\S]";
        } else if (c == '#') {
            re += "[0-9]";
        } else if (c == '[') {
            const size_t close = pattern.find(']', i + 1);
            if (close == std::string::npos)
                return false; // an unclosed list matches nothing
            std::string body = pattern.substr(i + 1, close - i - 1);
            const bool negated = !body.empty() && body[0] == '!';
            if (negated)
                body.erase(0, 1);
            std::string members;
            for (size_t k = 0; k < body.size(); ++k) {
                if (k + 2 < body.size() && body[k + 1] == '-') {
                    if (body[k] <= body[k + 2])
                        members += escaped(body[k]) + "-" + escaped(body[k + 2]);
                    k += 2;
                } else {
                    members += escaped(body[k]);
                }
            }
            if (members.empty())
                re += negated ? "[\\s\\S]" : "[^\\s\\S]";
            else
                re += (negated ? "[^" : "[") + members + "]";
            i = close;
        } else {
            re += escaped(c);
        }
    }
    return std::regex_match(text, std::regex(re));
}

} // namespace

TEST(Wildcard, CasesBeyondTheRandomAlphabet) {
    // Case, ranges, the generator's patterns, surrogate pairs; the rest is the random test's.
    // "text pattern": pairs that match, and pairs that do not.
    const QStringList like = {"ekac* ?k??*",
                              "m [a-z]",
                              "0 #",
                              "9 #",
                              "a [a-c]",
                              "c [a-c]",
                              "d [!a-c]",
                              "\u00fcber ?ber",
                              "a\U0001F600b a?b",
                              "\U0001F600 [\U0001F600]"};
    const QStringList unlike = {"cake Cake", "cakes ?a??", "M [a-z]",
                                "/ #",       ": #",        "` [a-c]",
                                "d [a-c]",   "c [!a-c]",   "a\U0001F600b a??b"};
    for (const auto& [rows, matches] : {std::pair{like, true}, {unlike, false}}) {
        for (const QString& row : rows) {
            const QStringList parts = row.split(u' ');
            EXPECT_EQ(matchesWildcard(parts[0], parts[1]), matches) << row.toStdString();
            const QList<uint> ucs4 = parts[0].toUcs4();
            const std::u32string characters(ucs4.begin(), ucs4.end());
            EXPECT_EQ(WildcardTokens(parts[1]).matches(characters), matches) << row.toStdString();
        }
    }
}

TEST(Wildcard, AgreesWithARegularExpressionFormulation) {
    const std::string alphabet = "ab1?*#[]!-";
    const std::string textAlphabet = "ab1[]!-*";
    std::mt19937 random(20240611);
    auto pick = [&](const std::string& from, int maxLength) {
        std::string s(std::uniform_int_distribution<int>(0, maxLength)(random), ' ');
        for (char& c : s)
            c = from[std::uniform_int_distribution<size_t>(0, from.size() - 1)(random)];
        return s;
    };
    int matched = 0;
    for (int n = 0; n < 20000; ++n) {
        const std::string pattern = pick(alphabet, 7);
        const std::string text = pick(textAlphabet, 6);
        const bool expected = regexMatches(text, pattern);
        matched += expected;
        const QString patternText = QString::fromStdString(pattern);
        ASSERT_EQ(matchesWildcard(QString::fromStdString(text), patternText), expected)
            << '"' << text << "\" like \"" << pattern << '"';
        // The tokenized form the generator's index uses gives the same answer.
        const std::u32string characters(text.begin(), text.end());
        ASSERT_EQ(WildcardTokens(patternText).matches(characters), expected)
            << "tokens: \"" << text << "\" like \"" << pattern << '"';
    }
    EXPECT_GT(matched, 500) << "the random cases should include many matches";
}

TEST(Wildcard, ManyStarsAgainstALongTextStayLinear) {
    const QString text(5000, u'a');
    QString pattern;
    for (int n = 0; n < 40; ++n)
        pattern += QStringLiteral("*a");
    EXPECT_FALSE(matchesWildcard(text, pattern + QStringLiteral("*b")));
    EXPECT_TRUE(matchesWildcard(text, pattern + u'*'));
}
