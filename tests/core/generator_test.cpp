// The literal generator on word lists whose outcome is known by hand, dictionaries that can
// never give a puzzle, and the puzzle rules checked on many puzzles from random dictionaries.
#include "core/clssimplearray.h"
#include "core/dictionary.h"
#include "core/literalgenerator.h"
#include "core/randomsource.h"
#include "core/stargrid.h"

#include "puzzlecheck.h"
#include "support/testfolder.h"

#include <gtest/gtest.h>

#include <random>

namespace {

QStringList itemsOf(const clsSimpleArray& list) {
    QStringList items;
    for (int i = 0; i < list.ListCount(); ++i)
        items << list.List(i);
    return items;
}

QStringList candidatesOf(const StarGrid& grid) {
    QStringList words;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        words << grid.CandidateWords[i];
    return words;
}

QList<int> decoysOf(const StarGrid& grid) {
    QList<int> flags;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        flags << grid.DecoyFlags[i];
    return flags;
}

QString cellsOf(const StarGrid& grid) {
    QString cells;
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        cells += grid.SolutionLetters[p].isEmpty() ? QStringLiteral(".") : grid.SolutionLetters[p];
    return cells;
}

// A word list made from `words` in file order: each word, then its marked reverse.
class GeneratorTest : public ::testing::Test {
protected:
    void loadInOrder(const QStringList& words) {
        m_folder.write(QStringLiteral("d.txt"), words.join(u'\n').toUtf8());
        DictionaryLoader loader(m_list, m_random);
        loader.setShuffled(false);
        ASSERT_TRUE(loader.LoadDictionary(m_folder.file(QStringLiteral("d.txt"))));
    }

    TestFolder m_folder;
    clsSimpleArray m_list;
    RandomSource m_random{1};
    StarGrid m_grid;
    LiteralPuzzleGenerator m_generator;
};

} // namespace

TEST_F(GeneratorTest, HandCheckedDictionaryGivesItsKnownPuzzle) {
    // Root "sect" fills the bar. "?e??*" first finds the unmarked root itself, whose third
    // word search "sc??*" fails; then "peek" ("pc??*" fails); then "keep*" with "kceh*" and
    // "teop*". The fifth line s-e-o-h is "seoh*", so "hoes" reads from cell 9 to cell 1.
    // Decoys: "keep" (k??p), "kwah*" -> "hawk" (k??h), "smut" (s??t).
    loadInOrder({"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"});
    const GenerationResult result = m_generator.generate(m_list, m_grid);
    ASSERT_TRUE(result.success);
    EXPECT_EQ(result.root, QStringLiteral("sect"));
    EXPECT_EQ(result.rootIndex, 0);
    EXPECT_EQ(cellsOf(m_grid), QStringLiteral("ksectee"
                                              "oph"));
    EXPECT_EQ(candidatesOf(m_grid),
              QStringList({"hawk", "heck", "hoes", "keep", "peek", "poet", "sect", "smut"}));
    EXPECT_EQ(decoysOf(m_grid), QList<int>({1, 0, 0, 1, 0, 0, 0, 1}));
    EXPECT_EQ(m_grid.SelectedWord, -1);
    // Only the root entry left the list; the word's reversed entry stays.
    EXPECT_EQ(m_list.ListCount(), 15);
    EXPECT_EQ(m_list.List(0), QStringLiteral("tces*"));
    expectValidPuzzle(m_grid, {"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"});
}

TEST_F(GeneratorTest, NextRequestStartsFromTheSameOrderWithoutTheRoot) {
    loadInOrder({"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"});
    ASSERT_TRUE(m_generator.generate(m_list, m_grid).success);
    const GenerationResult second = m_generator.generate(m_list, m_grid);
    if (second.success) {
        EXPECT_GE(second.rootIndex, 0);
        EXPECT_NE(second.root, QStringLiteral("sect"));
        EXPECT_EQ(m_list.ListCount(), 14);
    }
}

TEST_F(GeneratorTest, FewerThanEightDifferentWordsNeverGiveAPuzzle) {
    const QStringList words = {"aaaa", "aaab", "abaa", "abab", "baba",
                               "bbbb", "AAAA", "Abba", "abba"};
    loadInOrder(words);
    const QStringList before = itemsOf(m_list);
    m_grid.CandidateWords[1] = QStringLiteral("old");
    m_grid.DecoyFlags[1] = 1;
    const GenerationResult result = m_generator.generate(m_list, m_grid);
    EXPECT_FALSE(result.success);
    EXPECT_EQ(result.root, QString());
    EXPECT_EQ(cellsOf(m_grid), QStringLiteral(".........."));
    EXPECT_EQ(itemsOf(m_list), before);
    EXPECT_EQ(m_grid.CandidateWords[1], QStringLiteral("old")); // untouched by a failure
    EXPECT_EQ(m_grid.DecoyFlags[1], 1);
}

TEST_F(GeneratorTest, EmptyListFailsWithoutSearching) {
    EXPECT_FALSE(m_generator.generate(m_list, m_grid).success);
    EXPECT_FALSE(m_grid.hasSolution());
}

TEST_F(GeneratorTest, PalindromeDecoyIsNotOfferedTwiceThroughItsReversedEntry) {
    // With root "heir" the decoy searches d??d find "dood" and then "dood*": the same word.
    // Comparing the marked decoy text would let "dood" appear twice; the attempt must fail.
    loadInOrder({"dood", "heir", "dead", "died", "read", "haad", "hear"});
    const GenerationResult result = m_generator.generate(m_list, m_grid);
    EXPECT_FALSE(result.success && result.root == QStringLiteral("heir"));
    if (result.success)
        expectValidPuzzle(m_grid, {"dood", "heir", "dead", "died", "read", "haad", "hear"});
}

TEST_F(GeneratorTest, SameWordNeverFillsTwoLinesButAWordAndItsReverseMay) {
    // "peek" and "keep" are different words that are each other's reverse: both may appear.
    loadInOrder({"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"});
    ASSERT_TRUE(m_generator.generate(m_list, m_grid).success);
    const QStringList candidates = candidatesOf(m_grid);
    EXPECT_TRUE(candidates.contains(QStringLiteral("peek")));
    EXPECT_TRUE(candidates.contains(QStringLiteral("keep")));
}

TEST_F(GeneratorTest, PuzzleRulesHoldOnManyPuzzlesFromSeveralSeeds) {
    // Small mixed-case alphabets give many palindromes, reverse pairs and words that differ
    // only in case: the cases the distinctness rules exist for.
    int puzzles = 0;
    for (const quint64 seed : {1u, 2u, 3u, 4u, 5u}) {
        std::mt19937 random(static_cast<unsigned>(seed));
        const QString alphabet = seed % 2 ? QStringLiteral("abcdeAB") : QStringLiteral("abcd");
        QStringList words;
        QSet<QString> wordSet;
        for (int n = 0; n < 90; ++n) {
            QString w;
            for (int k = 0; k < 4; ++k)
                w += alphabet[static_cast<qsizetype>(random() % alphabet.size())];
            words << w;
            wordSet.insert(w);
            if (random() % 4 == 0) { // the same word in another case
                words << w.toUpper();
                wordSet.insert(w.toUpper());
            }
        }
        m_folder.write(QStringLiteral("d.txt"), words.join(u'\n').toUtf8());
        RandomSource shuffle(seed);
        DictionaryLoader loader(m_list, shuffle);
        ASSERT_TRUE(loader.LoadDictionary(m_folder.file(QStringLiteral("d.txt"))));
        for (int request = 0; request < 25; ++request) {
            const int before = m_list.ListCount();
            const QString firstEntry = m_list.List(0);
            const GenerationResult result = m_generator.generate(m_list, m_grid);
            if (!result.success) {
                ASSERT_TRUE(loader.LoadDictionary(m_folder.file(QStringLiteral("d.txt"))));
                continue;
            }
            ++puzzles;
            SCOPED_TRACE("seed " + std::to_string(seed) + ", request " + std::to_string(request) +
                         ", root " + result.root.toStdString());
            expectValidPuzzle(m_grid, wordSet);
            EXPECT_EQ(m_list.ListCount(), before - 1);
            EXPECT_EQ(m_grid.solutionWord(3), result.root.left(4)); // the root fills the bar
            if (result.rootIndex > 0) {
                EXPECT_EQ(m_list.List(0), firstEntry);
            }
        }
    }
    EXPECT_GE(puzzles, 40) << "the random dictionaries should give many puzzles";
}
