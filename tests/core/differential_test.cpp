// The indexed generator against the literal one: every request leaves the same observable state
// and a valid puzzle. Rerun a failing case with PENTALINK_DIFF_SEED=<seed> (printed with it);
// PENTALINK_DIFF_CASES=<n> sets how many random dictionaries each row tries.
#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/dictionary.h"
#include "core/indexedgenerator.h"
#include "core/literalgenerator.h"
#include "core/randomsource.h"
#include "core/stargrid.h"

#include "support/listitems.h"
#include "support/testfolder.h"

#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

// What a request leaves that anyone can observe.
std::string observe(const GenerationResult& result, const clsSimpleArray& list,
                    const StarGrid& grid) {
    QStringList seen = {QString::number(result.success), result.root,
                        QString::number(result.rootIndex)};
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        seen << grid.SolutionLetters[p];
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        seen << grid.CandidateWords[i] + u'=' + QString::number(grid.DecoyFlags[i]);
    for (int i = 0; i < list.ListCount(); ++i)
        seen << list.List(i) + u'=' + QString::number(list.ItemData(i));
    return seen.join(u'|').toStdString();
}

// A text and its reverse stand for the same line, or the same two line ends.
QString eitherWay(const QString& s) {
    return std::min(s, reversedCodePoints(s));
}

// One letter a cell; candidates are dictionary words, ascending ignoring case; the solution
// words fill the lines; the decoys fit the ends 0-8, 0-9 and 1-4.
void expectValidPuzzle(const StarGrid& grid, const QSet<QString>& words) {
    const auto cell = [&grid](int c) { return grid.SolutionLetters[c + 1]; };
    for (int c = 0; c < StarGrid::CellCount; ++c)
        ASSERT_EQ(codePointCount(cell(c)), 1) << "cell " << c;
    QStringList solution, decoyEnds, lines;
    QStringList ends = {eitherWay(cell(0) + cell(8)), eitherWay(cell(0) + cell(9)),
                        eitherWay(cell(1) + cell(4))};
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const QString& word = grid.CandidateWords[i];
        EXPECT_TRUE(words.contains(word)) << qPrintable(word) << " is not a dictionary word";
        ASSERT_TRUE(grid.DecoyFlags[i] == 0 || grid.DecoyFlags[i] == 1);
        if (grid.DecoyFlags[i])
            decoyEnds << eitherWay(leftCodePoints(word, 1).toString() +
                                   leftCodePoints(reversedCodePoints(word), 1).toString());
        else
            solution << eitherWay(word);
        EXPECT_TRUE(i == 1 || compareIgnoringCase(grid.CandidateWords[i - 1], word) < 0) << "order";
    }
    for (int line = 0; line < StarGrid::LineCount; ++line) {
        QString letters;
        for (const int c : StarGrid::lineCells(line))
            letters += cell(c);
        lines << eitherWay(letters);
    }
    for (QStringList* list : {&solution, &decoyEnds, &lines, &ends})
        list->sort();
    EXPECT_EQ(solution, lines) << "the lines";
    EXPECT_EQ(decoyEnds, ends) << "the ends";
}

// Two lists with the same content, one per generator, and the requests made on both.
class Pair {
public:
    // `rules`: check puzzles too (off once a word holds a pattern character); `stale`: when
    // not 0, seeds the stale item data every request must reset.
    void fill(const QStringList& entries, bool rules = true, unsigned stale = 0) {
        m_rules = rules;
        edit([&entries, stale](clsSimpleArray& list) {
            std::mt19937 random(stale);
            list.Clear();
            for (const QString& e : entries)
                list.AddItem(e, stale ? static_cast<qint32>(random() % 3) : -1);
        });
    }

    void edit(const std::function<void(clsSimpleArray&)>& change) {
        change(m_literalList);
        change(m_fastList);
        m_words.clear();
        static const QRegularExpression patternCharacter(QStringLiteral("[?*#[]"));
        for (const QString& e : itemsOf(m_literalList)) {
            const QString word = e.endsWith(u'*') ? reversedCodePoints(e.chopped(1)) : e;
            m_rules = m_rules && !word.contains(patternCharacter);
            m_words.insert(word);
        }
    }

    // One request on both; false when they differ or the puzzle breaks a rule.
    bool request(GenerationResult& result) {
        const int before = count();
        const QString first = before > 0 ? m_literalList.List(0) : QString();
        result = m_literal.generate(m_literalList, m_literalGrid);
        const std::string literal = observe(result, m_literalList, m_literalGrid);
        EXPECT_EQ(observe(m_fast.generate(m_fastList, m_fastGrid), m_fastList, m_fastGrid),
                  literal);
        if (m_rules && result.success) {
            SCOPED_TRACE("puzzle " + literal);
            expectValidPuzzle(m_literalGrid, m_words);
            EXPECT_EQ(count(), before - 1) << "the root entry leaves the list";
            EXPECT_EQ(m_literalGrid.solutionWord(3), leftCodePoints(result.root, 4).toString());
            EXPECT_EQ(result.rootIndex > 0 ? m_literalList.List(0) : first, first);
        } else if (m_rules) {
            EXPECT_EQ(count(), before);
            EXPECT_FALSE(m_literalGrid.hasSolution());
        }
        return !::testing::Test::HasFailure();
    }

    int count() const { return m_literalList.ListCount(); }
    const IndexedPuzzleGenerator& fast() const { return m_fast; }

private:
    clsSimpleArray m_literalList, m_fastList;
    StarGrid m_literalGrid, m_fastGrid;
    LiteralPuzzleGenerator m_literal;
    IndexedPuzzleGenerator m_fast;
    QSet<QString> m_words;
    bool m_rules = true;
};

QString pick(std::mt19937& random, const QStringList& from) {
    return from[static_cast<qsizetype>(random() % from.size())];
}

QString randomWord(std::mt19937& random, const QStringList& alphabet) {
    QString w;
    for (int k = 0; k < 4; ++k)
        w += pick(random, alphabet);
    return w;
}

// Four-character words over a small alphabet, some repeated, recased, reversed or made
// palindromes; pattern-rich ones mostly hold lists, ranges, open lists and wildcards.
QStringList randomWords(std::mt19937& random, bool patternRich) {
    static const QStringList pool = {"a", "b", "c", "A", "B", "e",
                                     "E", "1", "2", "?", "*", "#",
                                     "[", "]", "!", "-", " ", QString::fromUcs4(U"\U0001D11E")};
    const QStringList wildcards = pool.mid(9, 4), letters = {"a", "b", "A"};
    QStringList alphabet;
    if (patternRich) {
        alphabet = {"?", pick(random, wildcards), pick(random, letters), pick(random, letters)};
        if (random() % 2)
            alphabet << pick(random, pool.mid(12, 4));
        if (random() % 3 == 0)
            alphabet << pick(random, {"1", "2", "#"});
    } else {
        const int size =
            random() % 3 == 0 ? (random() % 2 ? 2 : 5) : 3 + static_cast<int>(random() % 2);
        const QStringList from = pool.mid(0, random() % 3 == 0 ? pool.size() : 7);
        while (alphabet.size() < size)
            if (const QString c = pick(random, from); !alphabet.contains(c))
                alphabet << c;
    }
    const int count = random() % 4 == 0 ? 6 + static_cast<int>(random() % 10)
                                        : 25 + static_cast<int>(random() % 21);
    QStringList words;
    while (words.size() < count) {
        const unsigned kind = words.isEmpty() ? 12 : random() % (patternRich ? 20 : 12);
        const QString earlier = words.isEmpty() ? QString() : pick(random, words);
        const QString head = leftCodePoints(earlier, 2).toString();
        const QString a = pick(random, letters), b = pick(random, letters);
        const QString made[] = {earlier,
                                upperCodePoints(earlier),
                                reversedCodePoints(earlier),
                                head + reversedCodePoints(head),
                                randomWord(random, patternRich ? wildcards : alphabet),
                                u'[' + a + b + u']',
                                QStringLiteral("[!") + a + u']',
                                u'[' + a + u'-' + b,
                                a + u'[' + b + pick(random, alphabet),
                                randomWord(random, {"1", "2", "#", "a"})};
        words << (kind < 8 || kind >= 18 ? randomWord(random, alphabet) : made[kind - 8]);
    }
    return words;
}

// A dictionary, its loads (sometimes with odd entries), requests with reloads after failures
// and occasional edits. Returns the requests made.
int runRandomCase(quint64 seed, bool patternRich, int& failures) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(static_cast<unsigned>(seed));
    RandomSource shuffle(seed);
    const QStringList words = randomWords(random, patternRich);
    const bool withOddEntries = random() % 8 == 0;
    const QString high = QString(QChar(0xD800)) + "abc", low = "b" + QString(QChar(0xDC00)) + "ab";
    const QStringList odd = {"",    "a",  "ab*", "abc",  "abcde", "abcdef*",
                             "ba?", high, low,   "****", "a*",    "[ab]"};
    const bool withWideAlphabet = seed % 16 == 0; // over 256 letters: the index stores them wider
    Pair pair;
    auto load = [&] {
        QStringList entries = loadedEntries(words, shuffle);
        for (int k = withOddEntries ? 1 + static_cast<int>(random() % 3) : 0; k > 0; --k)
            entries.insert(static_cast<qsizetype>(random() % (entries.size() + 1)),
                           random() % 2 ? pick(random, odd)
                                        : randomWord(random, {"a", "b"}) + u'a');
        for (char16_t c = 0x4E00; withWideAlphabet && c < 0x4E00 + 300; c += 4)
            entries << QStringView(
                           std::u16string{c, char16_t(c + 1), char16_t(c + 2), char16_t(c + 3)})
                           .toString();
        pair.fill(entries, !withOddEntries, static_cast<unsigned>(random()) | 1);
    };
    load();
    const int requests = random() % 4 == 0 ? 8 + static_cast<int>(random() % 12)
                                           : 1 + static_cast<int>(random() % 4);
    for (int r = 0; r < requests; ++r) {
        SCOPED_TRACE("request " + std::to_string(r));
        GenerationResult result;
        if (!pair.request(result))
            return r + 1;
        if (!result.success) {
            ++failures;
            if (random() % 3 != 0)
                load(); // the reload that follows a failure (or once more without it)
        } else if (random() % 5 == 0 && pair.count() > 1) {
            const int index = static_cast<int>(random() % pair.count());
            pair.edit([index](clsSimpleArray& l) { l.RemoveItem(index); }); // someone else
        }
    }
    return requests;
}

} // namespace

// Rows: first seed, default cases, dictionary kind, least share (tenths) ending in puzzles.
TEST(DifferentialTest, RandomDictionaries) {
    bool ok = false, one = false;
    const int set = qEnvironmentVariableIntValue("PENTALINK_DIFF_CASES", &ok);
    const quint64 only = qgetenv("PENTALINK_DIFF_SEED").toULongLong(&one);
    const struct {
        quint64 first;
        int cases;
        bool patternRich;
        int puzzleTenths;
    } rows[] = {{1000, 2000, false, 5}, {500000, 600, true, 1}};
    for (const auto& row : rows) {
        const int cases = ok && set > 0 ? set : row.cases;
        int requests = 0, failures = 0;
        for (quint64 seed = row.first; seed < row.first + quint64(cases) && !HasFailure(); ++seed)
            if (!one || seed == only)
                requests += runRandomCase(seed, row.patternRich, failures);
        std::printf("[ info     ] seeds from %llu: %d requests, %d failed\n",
                    static_cast<unsigned long long>(row.first), requests, failures);
        if (!one) {
            EXPECT_GT(failures, cases / 10) << "the cases should include many failed requests";
            EXPECT_GT(requests - failures, cases * row.puzzleTenths / 10) << "and puzzles";
        }
    }
}

TEST(DifferentialTest, ShippedDictionaryIndexFollowsRemovalsAndNoticesOtherChanges) {
    // Successive requests reuse the index; an edit by anyone else makes it start afresh.
    clsSimpleArray loaded;
    RandomSource random(77);
    DictionaryLoader loader(loaded, random);
    ASSERT_TRUE(loader.LoadDictionary(shippedDataDir() + QStringLiteral("english1.txt")));
    Pair pair;
    pair.fill(itemsOf(loaded));
    const std::pair<std::function<void(clsSimpleArray&)>, bool> steps[] = {
        {[](clsSimpleArray&) {}, true},
        {[](clsSimpleArray&) {}, false},
        {[](clsSimpleArray& l) { l.List(0, QStringLiteral("zzzz")); }, true},
        {[](clsSimpleArray& l) { l.AddItem(QStringLiteral("abcd"), 3); }, true},
        {[](clsSimpleArray&) {}, false},
    };
    for (const auto& [edit, built] : steps) {
        pair.edit(edit);
        GenerationResult result;
        ASSERT_TRUE(pair.request(result));
        ASSERT_TRUE(result.success);
        EXPECT_EQ(pair.fast().statistics().indexBuilt, built);
    }
}
