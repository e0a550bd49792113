// The indexed generator against the literal one: for the same word list, every request must
// leave the same result, the same puzzle record, the same list items and the same item data,
// on success and on failure, through successive requests and the reloads after failures; and
// every puzzle must keep the puzzle rules.
//
// Every random case is derived from one seed, printed with any failure. To rerun one case:
//   PENTALINK_DIFF_SEED=<seed> ./tests/differential_tests
// PENTALINK_DIFF_CASES=<n> sets how many random dictionaries each random test tries.
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
#include <array>
#include <optional>
#include <random>
#include <string>

namespace {

// What a request leaves behind that anyone can observe: the result and the puzzle record,
// and the list with its item data.
struct Observed {
    QString puzzle;
    QString list;
};

Observed observe(const GenerationResult& result, const clsSimpleArray& list, const StarGrid& grid) {
    QStringList puzzle = {QString::number(result.success), result.root,
                          QString::number(result.rootIndex)};
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        puzzle << grid.SolutionLetters[p];
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        puzzle << grid.CandidateWords[i] + u'=' + QString::number(grid.DecoyFlags[i]);
    QStringList items;
    for (int i = 0; i < list.ListCount(); ++i)
        items << list.List(i) + u'=' + QString::number(list.ItemData(i));
    return {puzzle.join(u'|'), items.join(u'|')};
}

// A text and its reverse stand for the same line, or the same two line ends.
QString eitherWay(const QString& s) {
    return std::min(s, reversedCodePoints(s));
}

// The puzzle rules: one letter a cell; eight candidates, dictionary words, ascending and
// distinct ignoring case; the five solution words fill the five lines; the three decoys fit
// the ends of the lines 0-8, 0-9 and 1-4.
void expectValidPuzzle(const StarGrid& grid, const QSet<QString>& words) {
    const auto cell = [&grid](int c) { return grid.SolutionLetters[c + 1]; };
    for (int c = 0; c < StarGrid::CellCount; ++c)
        ASSERT_EQ(codePointCount(cell(c)), 1) << "cell " << c;
    QStringList solution, decoyEnds, lines;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const QString& word = grid.CandidateWords[i];
        EXPECT_TRUE(words.contains(word)) << qPrintable(word) << " is not a dictionary word";
        ASSERT_TRUE(grid.DecoyFlags[i] == 0 || grid.DecoyFlags[i] == 1);
        if (grid.DecoyFlags[i])
            decoyEnds << eitherWay(leftCodePoints(word, 1).toString() +
                                   leftCodePoints(reversedCodePoints(word), 1).toString());
        else
            solution << eitherWay(word);
        if (i > 1) {
            EXPECT_LT(compareIgnoringCase(grid.CandidateWords[i - 1], word), 0)
                << "out of order or equal ignoring case: " << qPrintable(word);
        }
    }
    for (int line = 0; line < StarGrid::LineCount; ++line) {
        QString letters;
        for (const int c : StarGrid::lineCells(line))
            letters += cell(c);
        lines << eitherWay(letters);
    }
    QStringList ends = {eitherWay(cell(0) + cell(8)), eitherWay(cell(0) + cell(9)),
                        eitherWay(cell(1) + cell(4))};
    for (QStringList* list : {&solution, &decoyEnds, &lines, &ends})
        list->sort();
    EXPECT_EQ(solution.join(u' ').toStdString(), lines.join(u' ').toStdString()) << "the lines";
    EXPECT_EQ(decoyEnds.join(u' ').toStdString(), ends.join(u' ').toStdString()) << "the ends";
}

// Two lists with the same content, one per generator, and the requests made on both.
class Pair {
public:
    // `rules`: the entries are a dictionary's (a word, its reverse marked "*"), so every
    // puzzle is checked against the puzzle rules too, unless a word holds a character that
    // means something in a search pattern (the letters then match more than themselves).
    void fill(const QStringList& entries, bool rules = true) {
        for (clsSimpleArray* list : {&m_literalList, &m_fastList}) {
            list->Clear();
            for (const QString& e : entries)
                list->AddItem(e, -1);
        }
        m_rules = rules;
        learnWords();
    }

    // Gives both lists the same stale item data, which every request must reset.
    void scribble(std::mt19937& random) {
        for (int i = 0; i < m_literalList.ListCount(); ++i) {
            const auto value = static_cast<qint32>(random() % 3);
            m_literalList.ItemData(i, value);
            m_fastList.ItemData(i, value);
        }
    }

    void edit(const std::function<void(clsSimpleArray&)>& change) {
        change(m_literalList);
        change(m_fastList);
        learnWords();
    }

    // One request on both; false when they differ.
    bool request(GenerationResult& result) {
        const int before = count();
        const QString first = before > 0 ? m_literalList.List(0) : QString();
        result = m_literal.generate(m_literalList, m_literalGrid);
        const GenerationResult fast = m_fast.generate(m_fastList, m_fastGrid);
        const Observed literal = observe(result, m_literalList, m_literalGrid);
        const Observed indexed = observe(fast, m_fastList, m_fastGrid);
        EXPECT_EQ(indexed.puzzle.toStdString(), literal.puzzle.toStdString());
        EXPECT_EQ(indexed.list.toStdString(), literal.list.toStdString());
        if (m_rules && result.success) {
            SCOPED_TRACE("puzzle " + literal.puzzle.toStdString());
            expectValidPuzzle(m_literalGrid, m_words);
            EXPECT_EQ(count(), before - 1) << "the root entry leaves the list";
            EXPECT_EQ(m_literalGrid.solutionWord(3), leftCodePoints(result.root, 4).toString());
            if (result.rootIndex > 0) {
                EXPECT_EQ(m_literalList.List(0).toStdString(), first.toStdString());
            }
        } else if (m_rules) {
            EXPECT_EQ(count(), before);
            EXPECT_FALSE(m_literalGrid.hasSolution());
        }
        return !::testing::Test::HasFailure();
    }

    int count() const { return m_literalList.ListCount(); }
    const IndexedPuzzleGenerator& fast() const { return m_fast; }

private:
    // The words the entries spell (the candidates may be any of them).
    void learnWords() {
        m_words.clear();
        for (int i = 0; i < count(); ++i) {
            const QString e = m_literalList.List(i);
            const QString word = e.endsWith(u'*') ? reversedCodePoints(e.chopped(1)) : e;
            static const QRegularExpression patternCharacter(QStringLiteral("[?*#[]"));
            m_rules = m_rules && !word.contains(patternCharacter);
            m_words.insert(word);
        }
    }

    clsSimpleArray m_literalList;
    clsSimpleArray m_fastList;
    StarGrid m_literalGrid;
    StarGrid m_fastGrid;
    LiteralPuzzleGenerator m_literal;
    IndexedPuzzleGenerator m_fast;
    QSet<QString> m_words;
    bool m_rules = true;
};

// Characters random dictionaries are made of: twins in both cases, digits, characters that
// are wildcards in a pattern, characters that mean something only inside a list, and one
// character outside the common plane (a surrogate pair).
const QStringList kCharacterPool = {
    "a", "b", "c", "A", "B", "e", "E", "1", "2",
    "?", "*", "#", "[", "]", "!", "-", " ", QString::fromUcs4(U"\U0001D11E"),
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

// Mostly fresh words from `fresh`, some repeated, in another case, reversed or made into
// palindromes, which the distinctness rules exist for. Few words rarely give a puzzle; more
// give some, and then fail once they are used up.
template <typename Fresh> QStringList wordsWithTwins(std::mt19937& random, Fresh fresh) {
    const int count = random() % 4 == 0 ? 6 + static_cast<int>(random() % 10)
                                        : 25 + static_cast<int>(random() % 21);
    QStringList words;
    while (words.size() < count) {
        const unsigned kind = random() % 12;
        if (kind < 8 || words.isEmpty()) {
            words << fresh();
            continue;
        }
        const QString earlier = pick(random, words);
        if (kind == 8)
            words << earlier; // a repeated line
        else if (kind == 9)
            words << upperCodePoints(earlier); // a twin in another case
        else if (kind == 10)
            words << reversedCodePoints(earlier); // a word and its reverse
        else                                      // a palindrome
            words << leftCodePoints(earlier, 2).toString() +
                         reversedCodePoints(leftCodePoints(earlier, 2));
    }
    return words;
}

// Four-character words over a small alphabet: mostly plain letters; sometimes digits,
// wildcards and the rest of the pool join in.
QStringList randomWords(std::mt19937& random) {
    QStringList alphabet;
    const int size =
        random() % 3 == 0 ? (random() % 2 ? 2 : 5) : 3 + static_cast<int>(random() % 2);
    const QStringList pool = kCharacterPool.mid(0, random() % 3 == 0 ? kCharacterPool.size() : 7);
    while (alphabet.size() < size) {
        const QString c = pick(random, pool);
        if (!alphabet.contains(c))
            alphabet << c;
    }
    return wordsWithTwins(random, [&] { return randomWord(random, alphabet); });
}

// Words most of which hold pattern characters, so that most patterns do: words of pattern
// characters only, lists of letters ("[ab]", "[!a]"), ranges ("[a-c"), lists closed only by a
// later word ("a[b" meeting "]"), unmatched "[", digits for "#", and words over a small mixed
// alphabet.
QStringList patternRichWords(std::mt19937& random) {
    const QStringList patternCharacters = {"?", "*", "#", "["};
    const QStringList letters = {"a", "b", "A"};
    const QStringList digits = {"1", "2", "#"};
    // "?" and "*" in patterns make puzzles easier to find, the others harder.
    QStringList alphabet = {QStringLiteral("?"), pick(random, patternCharacters),
                            pick(random, letters), pick(random, letters)};
    if (random() % 2)
        alphabet << pick(random, {"[", "]", "!", "-"});
    if (random() % 3 == 0)
        alphabet << pick(random, digits);
    return wordsWithTwins(random, [&]() -> QString {
        switch (random() % 12) {
        case 0:
            return randomWord(random, patternCharacters);
        case 1:
            return u'[' + pick(random, letters) + pick(random, letters) + u']';
        case 2:
            return QStringLiteral("[!") + pick(random, letters) + u']';
        case 3:
            return u'[' + pick(random, letters) + u'-' + pick(random, letters);
        case 4:
            return pick(random, letters) + u'[' + pick(random, letters) + pick(random, alphabet);
        case 5:
            return randomWord(random, digits + letters.mid(0, 1));
        default:
            return randomWord(random, alphabet);
        }
    });
}

// One random case: a dictionary, its loads (sometimes with entries no dictionary load makes),
// and a run of requests with reloads after failures and occasional edits of the list.
// Returns the requests made.
int runRandomCase(quint64 seed, QStringList (*makeWords)(std::mt19937&), int& failures) {
    SCOPED_TRACE("seed " + std::to_string(seed) +
                 " (rerun: PENTALINK_DIFF_SEED=" + std::to_string(seed) + ")");
    std::mt19937 random(static_cast<unsigned>(seed));
    RandomSource shuffle(seed);
    const QStringList words = makeWords(random);
    const bool withOddEntries = random() % 8 == 0;
    // Halves of a surrogate pair on their own.
    const QString high = QString(QChar(0xD800)) + "abc", low = "b" + QString(QChar(0xDC00)) + "ab";
    const QStringList odd = {"",    "a",  "ab*", "abc",  "abcde", "abcdef*",
                             "ba?", high, low,   "****", "a*",    "[ab]"};
    const bool withWideAlphabet = seed % 16 == 0; // over 256 letters: the index stores them wider
    Pair pair;
    auto load = [&] {
        QStringList entries = loadedEntries(words, shuffle);
        QStringList added;
        for (int k = withOddEntries ? 1 + static_cast<int>(random() % 3) : 0; k > 0; --k)
            added << (random() % 2 ? pick(random, odd) : randomWord(random, {"a", "b"}) + u'a');
        for (const QString& e : added)
            entries.insert(static_cast<qsizetype>(random() % (entries.size() + 1)), e);
        for (char16_t c = 0x4E00; withWideAlphabet && c < 0x4E00 + 300; c += 4)
            entries << QString(
                std::array<QChar, 4>{c, char16_t(c + 1), char16_t(c + 2), char16_t(c + 3)}.data(),
                4);
        pair.fill(entries, !withOddEntries);
        pair.scribble(random);
    };
    load();
    // Mostly a few requests; sometimes a long run, where remembered failures pile up.
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

struct RandomRun {
    int cases = 0;
    int requests = 0; // 0 when PENTALINK_DIFF_SEED names one case: no claims about the mix
    int failures = 0;
};

// Runs random dictionaries from seed `firstSeed` on: PENTALINK_DIFF_CASES of them, else
// `standard`; only the one PENTALINK_DIFF_SEED names, when set.
RandomRun runRandomCases(quint64 firstSeed, int standard, QStringList (*makeWords)(std::mt19937&)) {
    bool ok = false;
    const int set = qEnvironmentVariableIntValue("PENTALINK_DIFF_CASES", &ok);
    RandomRun run{ok && set > 0 ? set : standard};
    bool one = false;
    const quint64 only = qgetenv("PENTALINK_DIFF_SEED").toULongLong(&one);
    const quint64 last = firstSeed + static_cast<quint64>(run.cases) - 1;
    for (quint64 seed = firstSeed; seed <= last && !::testing::Test::HasFailure(); ++seed) {
        if (!one || seed == only)
            run.requests += runRandomCase(seed, makeWords, run.failures);
    }
    std::printf("[ info     ] seeds %llu..%llu: %d requests, %d failed\n",
                static_cast<unsigned long long>(firstSeed), static_cast<unsigned long long>(last),
                run.requests, run.failures);
    if (one)
        run.requests = 0;
    return run;
}

} // namespace

TEST(DifferentialTest, RandomSmallAlphabetDictionaries) {
    const RandomRun run = runRandomCases(1000, 2000, randomWords);
    if (run.requests > 0) {
        EXPECT_GT(run.failures, run.cases / 10) << "the cases should include many failed requests";
        EXPECT_GT(run.requests - run.failures, run.cases / 2) << "and many puzzles";
    }
}

TEST(DifferentialTest, RandomPatternRichDictionaries) {
    const RandomRun run = runRandomCases(500000, 600, patternRichWords);
    if (run.requests > 0) {
        EXPECT_GT(run.failures, run.cases / 10) << "the cases should include many failed requests";
        EXPECT_GT(run.requests - run.failures, run.cases / 10) << "and puzzles";
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
