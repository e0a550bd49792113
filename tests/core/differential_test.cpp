// The indexed generator against the literal one: for the same word list, every request must
// leave the same result, the same puzzle record, the same list items and the same item data,
// on success and on failure, through successive requests and the reloads after failures;
// every puzzle flags exactly its three decoys.
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

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <random>
#include <string>

namespace {

// Everything a request leaves behind that anyone can observe.
struct Observed {
    GenerationResult result;
    QStringList items;
    QList<qint32> data;
    QStringList cells;
    QStringList candidates;
    QList<qint32> decoys;
};

Observed observe(const GenerationResult& result, const clsSimpleArray& list, const StarGrid& grid) {
    Observed o;
    o.result = result;
    for (int i = 0; i < list.ListCount(); ++i) {
        o.items << list.List(i);
        o.data << list.ItemData(i);
    }
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        o.cells << grid.SolutionLetters[p];
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        o.candidates << grid.CandidateWords[i];
        o.decoys << grid.DecoyFlags[i];
    }
    return o;
}

// Compares one request's outcome; returns false (with GoogleTest failures) on a difference.
bool sameOutcome(const Observed& literal, const Observed& fast) {
    EXPECT_EQ(fast.result.success, literal.result.success);
    EXPECT_EQ(fast.result.root, literal.result.root);
    EXPECT_EQ(fast.result.rootIndex, literal.result.rootIndex);
    EXPECT_EQ(fast.cells, literal.cells);
    EXPECT_EQ(fast.candidates, literal.candidates);
    EXPECT_EQ(fast.decoys, literal.decoys);
    EXPECT_EQ(fast.items, literal.items);
    EXPECT_EQ(fast.data, literal.data);
    return fast.result.success == literal.result.success &&
           fast.result.root == literal.result.root &&
           fast.result.rootIndex == literal.result.rootIndex && fast.cells == literal.cells &&
           fast.candidates == literal.candidates && fast.decoys == literal.decoys &&
           fast.items == literal.items && fast.data == literal.data;
}

// Two lists with the same content, one per generator, and the requests made on both.
class Pair {
public:
    void fill(const QStringList& entries) {
        for (clsSimpleArray* list : {&m_literalList, &m_fastList}) {
            list->Clear();
            for (const QString& e : entries)
                list->AddItem(e, -1);
        }
    }

    // Gives both lists the same stale item data, which every request must reset.
    void scribble(std::mt19937& random) {
        for (int i = 0; i < m_literalList.ListCount(); ++i) {
            const auto value = static_cast<qint32>(random() % 3);
            m_literalList.ItemData(i, value);
            m_fastList.ItemData(i, value);
        }
    }

    void removeBoth(int index) {
        m_literalList.RemoveItem(index);
        m_fastList.RemoveItem(index);
    }

    // One request on both; false when they differ.
    bool request(GenerationResult& result) {
        result = m_literal.generate(m_literalList, m_literalGrid);
        const GenerationResult fast = m_fast.generate(m_fastList, m_fastGrid);
        s_attempts += m_fast.statistics().attempts;
        s_patternAttempts += m_fast.statistics().patternAttempts;
        s_literalAttempts += m_fast.statistics().literalAttempts;
        const Observed literal = observe(result, m_literalList, m_literalGrid);
        // Exactly the three decoys are flagged, also when a solution word ends in "*".
        if (result.success) {
            EXPECT_EQ(literal.decoys.count(1), 3) << qPrintable(literal.candidates.join(u' '));
        }
        return sameOutcome(literal, observe(fast, m_fastList, m_fastGrid)) &&
               (!result.success || literal.decoys.count(1) == 3);
    }

    int count() const { return m_literalList.ListCount(); }
    clsSimpleArray& literalList() { return m_literalList; }
    clsSimpleArray& fastList() { return m_fastList; }
    const IndexedPuzzleGenerator& fast() const { return m_fast; }

    // Attempts of the indexed generator over all pairs, and how many it handed on.
    static inline long s_attempts = 0;
    static inline long s_patternAttempts = 0;
    static inline long s_literalAttempts = 0;

private:
    clsSimpleArray m_literalList;
    clsSimpleArray m_fastList;
    StarGrid m_literalGrid;
    StarGrid m_fastGrid;
    LiteralPuzzleGenerator m_literal;
    IndexedPuzzleGenerator m_fast;
};

// Characters random dictionaries are made of: twins in both cases, digits, characters that
// are wildcards in a pattern, characters that mean something only inside a list, and one
// character outside the common plane (a surrogate pair).
const QStringList kCharacterPool = {
    "a", "b", "c", "A", "B", "e", "E", "1", "2",
    "?", "*", "#", "[", "]", "!", "-", " ", QString::fromUcs4(U"\U0001D11E"),
};

QString randomWord(std::mt19937& random, const QStringList& alphabet) {
    QString w;
    for (int k = 0; k < 4; ++k)
        w += alphabet[static_cast<qsizetype>(random() % alphabet.size())];
    return w;
}

QString pick(std::mt19937& random, const QStringList& from) {
    return from[static_cast<qsizetype>(random() % from.size())];
}

// `count` words: mostly fresh ones from `fresh`, some repeated, in another case, reversed or
// made into palindromes, which the distinctness rules exist for.
template <typename Fresh> QStringList wordsWithTwins(std::mt19937& random, int count, Fresh fresh) {
    QStringList words;
    while (words.size() < count) {
        const unsigned kind = random() % 12;
        if (kind < 8 || words.isEmpty()) {
            words << fresh();
            continue;
        }
        const QString& earlier = words[static_cast<qsizetype>(random() % words.size())];
        switch (kind) {
        case 8:
            words << earlier; // a repeated line
            break;
        case 9:
            words << upperCodePoints(earlier); // a twin in another case
            break;
        case 10:
            words << reversedCodePoints(earlier); // a word and its reverse
            break;
        default: { // a palindrome
            const QString half = leftCodePoints(earlier, 2).toString();
            words << half + reversedCodePoints(half);
            break;
        }
        }
    }
    return words;
}

// Few words rarely give a puzzle; more give some, and then fail once they are used up.
int randomCount(std::mt19937& random) {
    return random() % 4 == 0 ? 6 + static_cast<int>(random() % 10)
                             : 25 + static_cast<int>(random() % 21);
}

// A random dictionary of four-character words over a small alphabet, rich in the cases the
// distinctness rules and the pattern-character path exist for.
QStringList randomWords(std::mt19937& random) {
    // Mostly plain letters; sometimes digits, wildcards and the rest of the pool join in.
    QStringList alphabet;
    const int size =
        random() % 3 == 0 ? (random() % 2 ? 2 : 5) : 3 + static_cast<int>(random() % 2);
    const int poolSize = random() % 3 == 0 ? static_cast<int>(kCharacterPool.size()) : 7;
    while (alphabet.size() < size) {
        const QString c = kCharacterPool[static_cast<qsizetype>(random() % poolSize)];
        if (!alphabet.contains(c))
            alphabet << c;
    }
    return wordsWithTwins(random, randomCount(random),
                          [&] { return randomWord(random, alphabet); });
}

// A random dictionary where most words hold pattern characters, so that most patterns do:
// words of pattern characters only, lists of letters ("[ab]", "[!a]"), ranges ("[a-c"), lists
// closed only by a later word ("a[b" meeting "]"), unmatched "[", digits for "#", and words
// over a small mixed alphabet.
QStringList patternRichWords(std::mt19937& random) {
    const QStringList patternCharacters = {"?", "*", "#", "["};
    const QStringList listCharacters = {"[", "]", "!", "-"};
    const QStringList letters = {"a", "b", "A"};
    const QStringList digits = {"1", "2", "#"};
    // "?" and "*" in patterns make puzzles easier to find, the others harder.
    QStringList alphabet = {QStringLiteral("?"), pick(random, patternCharacters),
                            pick(random, letters), pick(random, letters)};
    if (random() % 2)
        alphabet << pick(random, listCharacters);
    if (random() % 3 == 0)
        alphabet << pick(random, digits);
    auto fresh = [&]() -> QString {
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
    };
    return wordsWithTwins(random, randomCount(random), fresh);
}

// Entries no dictionary load makes: short and long ones, a lone surrogate, an empty one.
QStringList oddEntries(std::mt19937& random, const QStringList& alphabet) {
    const QStringList odd = {"",
                             "a",
                             "ab*",
                             "abc",
                             "abcde",
                             "abcdef*",
                             "ba?",
                             QString(QChar(0xD800)) + "abc",
                             "b" + QString(QChar(0xDC00)) + "ab",
                             "****",
                             "a*",
                             "[ab]"};
    QStringList out;
    const int n = 1 + static_cast<int>(random() % 3);
    for (int k = 0; k < n; ++k) {
        if (random() % 2)
            out << odd[static_cast<qsizetype>(random() % odd.size())];
        else
            out << randomWord(random, alphabet) + alphabet.first();
    }
    return out;
}

// One random case: a dictionary, its loads, and a run of requests with reloads after failures,
// occasional changes to the list between requests and odd entries. Returns the requests made.
int runRandomCase(quint64 seed, QStringList (*makeWords)(std::mt19937&), int& failures) {
    SCOPED_TRACE("seed " + std::to_string(seed) +
                 " (rerun: PENTALINK_DIFF_SEED=" + std::to_string(seed) + ")");
    std::mt19937 random(static_cast<unsigned>(seed));
    RandomSource shuffle(seed);
    const QStringList words = makeWords(random);
    const bool withOddEntries = random() % 8 == 0;
    const bool withWideAlphabet = seed % 16 == 0; // over 256 letters: the index stores them wider
    Pair pair;
    auto load = [&] {
        QStringList entries = loadedEntries(words, shuffle);
        if (withOddEntries) {
            for (const QString& e : oddEntries(random, {"a", "b"}))
                entries.insert(static_cast<qsizetype>(random() % (entries.size() + 1)), e);
        }
        for (char16_t c = 0x4E00; withWideAlphabet && c < 0x4E00 + 300; c += 4)
            entries << QString(
                std::array<QChar, 4>{c, char16_t(c + 1), char16_t(c + 2), char16_t(c + 3)}.data(),
                4);
        pair.fill(entries);
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
            pair.removeBoth(static_cast<int>(random() % pair.count())); // someone else edits it
        }
    }
    return requests;
}

std::optional<quint64> seedFromEnvironment() {
    const QByteArray value = qgetenv("PENTALINK_DIFF_SEED");
    bool ok = false;
    const quint64 seed = value.toULongLong(&ok);
    return ok ? std::optional<quint64>(seed) : std::nullopt;
}

} // namespace

// The number of random dictionaries a run tries: `standard`, or PENTALINK_DIFF_CASES when set
// (a slow build, such as the sanitizer one, sets fewer).
int caseCount(int standard) {
    bool ok = false;
    const int set = qEnvironmentVariableIntValue("PENTALINK_DIFF_CASES", &ok);
    return ok && set > 0 ? set : standard;
}

// Runs `cases` random dictionaries from seed `firstSeed` on; returns {requests, failed}.
std::pair<int, int> runRandomCases(quint64 firstSeed, int cases,
                                   QStringList (*makeWords)(std::mt19937&)) {
    const std::optional<quint64> only = seedFromEnvironment();
    int requests = 0;
    int failures = 0;
    int run = 0;
    Pair::s_attempts = Pair::s_patternAttempts = Pair::s_literalAttempts = 0;
    for (quint64 seed = firstSeed; seed < firstSeed + static_cast<quint64>(cases); ++seed) {
        if (only && seed != *only)
            continue;
        requests += runRandomCase(seed, makeWords, failures);
        ++run;
        if (::testing::Test::HasFailure())
            break; // the first differing case says it all
    }
    std::printf("[ info     ] %d random dictionaries (seeds %llu..%llu), %d requests, %d failed "
                "requests; %ld attempts, %ld on pattern lists, %ld by scanning\n",
                run, static_cast<unsigned long long>(firstSeed),
                static_cast<unsigned long long>(firstSeed + static_cast<quint64>(cases) - 1),
                requests, failures, Pair::s_attempts, Pair::s_patternAttempts,
                Pair::s_literalAttempts);
    if (only)
        return {0, 0}; // one case: no claims about the mix
    return {requests, failures};
}

TEST(DifferentialTest, RandomSmallAlphabetDictionaries) {
    const int cases = caseCount(2000);
    const auto [requests, failures] = runRandomCases(1000, cases, randomWords);
    if (requests > 0) {
        EXPECT_GT(failures, cases / 10) << "the cases should include many failed requests";
        EXPECT_GT(requests - failures, cases / 2) << "the cases should include many puzzles";
    }
}

TEST(DifferentialTest, RandomPatternRichDictionaries) {
    const int cases = caseCount(600);
    const auto [requests, failures] = runRandomCases(500000, cases, patternRichWords);
    if (requests > 0) {
        EXPECT_GT(failures, cases / 10) << "the cases should include many failed requests";
        EXPECT_GT(requests - failures, cases / 10) << "the cases should include puzzles";
        EXPECT_GT(Pair::s_patternAttempts, Pair::s_attempts / 2)
            << "most attempts should meet pattern characters";
    }
}

TEST(DifferentialTest, ShippedDictionaryWithSeveralSeeds) {
    const QString path = shippedDataDir() + QStringLiteral("english1.txt");
    ASSERT_TRUE(QFile::exists(path));
    int puzzles = 0;
    for (const quint64 seed : {1u, 2u, 77u}) {
        SCOPED_TRACE("shuffle seed " + std::to_string(seed));
        clsSimpleArray loaded;
        RandomSource random(seed);
        DictionaryLoader loader(loaded, random);
        ASSERT_TRUE(loader.LoadDictionary(path));
        Pair pair;
        pair.fill(itemsOf(loaded));
        for (int r = 0; r < 2; ++r) {
            SCOPED_TRACE("request " + std::to_string(r));
            GenerationResult result;
            ASSERT_TRUE(pair.request(result));
            ASSERT_TRUE(result.success);
            ++puzzles;
        }
    }
    EXPECT_EQ(puzzles, 6);
}

// The first `count` words of the shipped dictionary after skipping `skip`, as written.
QStringList shippedWords(int skip, int count) {
    clsSimpleArray all;
    RandomSource random(0);
    DictionaryLoader loader(all, random);
    loader.setShuffled(false);
    if (!loader.LoadDictionary(shippedDataDir() + QStringLiteral("english1.txt")))
        return {};
    QStringList words;
    for (int i = skip; i < skip + count && 2 * i < all.ListCount(); ++i)
        words << all.List(2 * i); // each word is followed by its reversed entry
    return words;
}

TEST(DifferentialTest, SlicesOfTheShippedDictionaryUntilTheyFailAndAfterTheReload) {
    // A few dozen shipped words give some puzzles, then a failure; the reload restores them.
    // Half the slices add twins with the same ends ("cAKe" for "cake"), which fit every decoy
    // place the word's line has: the case folding that makes them one word to the search is
    // otherwise reached only by the long random runs.
    int failures = 0;
    int puzzles = 0;
    for (int slice = 0; slice < 10; ++slice) {
        SCOPED_TRACE("slice " + std::to_string(slice));
        QStringList words = shippedWords(slice / 2 * 400, 60);
        ASSERT_EQ(words.size(), 60);
        for (const QString& word : words.mid(0, slice % 2 ? 40 : 0))
            words << word.first(1) + word.sliced(1, 2).toUpper() + word.last(1);
        RandomSource shuffle(static_cast<quint64>(slice));
        Pair pair;
        pair.fill(loadedEntries(words, shuffle));
        for (int r = 0; r < 40; ++r) {
            SCOPED_TRACE("request " + std::to_string(r));
            GenerationResult result;
            ASSERT_TRUE(pair.request(result));
            if (result.success) {
                ++puzzles;
                continue;
            }
            ++failures;
            pair.fill(loadedEntries(words, shuffle));
            ASSERT_TRUE(pair.request(result)); // the first request after the reload
            puzzles += result.success ? 1 : 0;
            break;
        }
    }
    EXPECT_GT(failures, 0);
    EXPECT_GT(puzzles, 0);
}

TEST(DifferentialTest, IndexFollowsRemovalsAndNoticesOtherChanges) {
    // Successive requests reuse the index; an edit by anyone else makes it start afresh.
    const QStringList words = shippedWords(0, 400);
    RandomSource shuffle(9);
    Pair pair;
    pair.fill(loadedEntries(words, shuffle));
    GenerationResult result;
    ASSERT_TRUE(pair.request(result));
    EXPECT_TRUE(pair.fast().statistics().indexBuilt);
    ASSERT_TRUE(pair.request(result));
    EXPECT_FALSE(pair.fast().statistics().indexBuilt);
    pair.literalList().List(0, QStringLiteral("zzzz"));
    pair.fastList().List(0, QStringLiteral("zzzz"));
    ASSERT_TRUE(pair.request(result));
    EXPECT_TRUE(pair.fast().statistics().indexBuilt);
    pair.literalList().AddItem(QStringLiteral("abcd"), 3);
    pair.fastList().AddItem(QStringLiteral("abcd"), 3);
    ASSERT_TRUE(pair.request(result));
    EXPECT_TRUE(pair.fast().statistics().indexBuilt);
    ASSERT_TRUE(pair.request(result));
    EXPECT_FALSE(pair.fast().statistics().indexBuilt);
}
