// The literal generator on word lists whose outcome is known by hand, dictionaries that can
// never give a puzzle, and the puzzle rules checked on many puzzles from random dictionaries.
#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/dictionary.h"
#include "core/literalgenerator.h"
#include "core/randomsource.h"
#include "core/stargrid.h"
#include "support/listitems.h"

#include "support/testfolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

// The eight offered words in tile order, decoys marked.
QStringList offered(const StarGrid& grid) {
    QStringList words;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        words << grid.CandidateWords[i] +
                     (grid.DecoyFlags[i] ? QStringLiteral(" (decoy)") : QString());
    return words;
}

QString cellsOf(const StarGrid& grid) {
    QString cells;
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        cells += grid.SolutionLetters[p].isEmpty() ? QStringLiteral(".") : grid.SolutionLetters[p];
    return cells;
}

// A text and its reverse stand for the same line, or the same two line ends.
QString eitherWay(const QString& s) {
    return std::min(s, reversedCodePoints(s));
}

// Adds a GoogleTest failure for every rule `grid` breaks: letters on the five lines, five
// solution words and three decoys, order, distinctness, decoy ends. `words` are the
// dictionary's words as written (every candidate must be one of them).
void expectValidPuzzle(const StarGrid& grid, const QSet<QString>& words) {
    auto cell = [&grid](int c) { return grid.SolutionLetters[c + 1]; };
    for (int c = 0; c < StarGrid::CellCount; ++c)
        ASSERT_EQ(codePointCount(cell(c)), 1) << "cell " << c;

    QStringList solution;
    QStringList decoyEnds;
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
                << "candidates out of order or equal ignoring case: "
                << qPrintable(grid.CandidateWords[i - 1]) << ", " << qPrintable(word);
        }
    }
    QStringList lines;
    for (int line = 0; line < StarGrid::LineCount; ++line) {
        QString letters;
        for (int c : StarGrid::lineCells(line))
            letters += cell(c);
        lines << eitherWay(letters);
    }
    solution.sort();
    lines.sort();
    EXPECT_EQ(solution.join(u' ').toStdString(), lines.join(u' ').toStdString())
        << "the solution words do not fill the five lines";
    QStringList ends = {eitherWay(cell(0) + cell(8)), eitherWay(cell(0) + cell(9)),
                        eitherWay(cell(1) + cell(4))};
    decoyEnds.sort();
    ends.sort();
    EXPECT_EQ(decoyEnds.join(u' ').toStdString(), ends.join(u' ').toStdString())
        << "the decoys do not fit the ends of the lines 0-8, 0-9, 1-4";
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
    // Decoys: "keep" (k??p), "kwah*" -> "hawk" (k??h), "smut" (s??t). "peek" and "keep" are
    // different words that are each other's reverse: both may appear.
    loadInOrder({"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"});
    const GenerationResult result = m_generator.generate(m_list, m_grid);
    ASSERT_TRUE(result.success);
    EXPECT_EQ(result.root, QStringLiteral("sect"));
    EXPECT_EQ(result.rootIndex, 0);
    EXPECT_EQ(cellsOf(m_grid), QStringLiteral("ksectee"
                                              "oph"));
    EXPECT_EQ(offered(m_grid), QStringList({"hawk (decoy)", "heck", "hoes", "keep (decoy)", "peek",
                                            "poet", "sect", "smut (decoy)"}));
    // Only the root entry left the list; the word's reversed entry stays.
    EXPECT_EQ(m_list.ListCount(), 15);
    EXPECT_EQ(m_list.List(0), QStringLiteral("tces*"));
    expectValidPuzzle(m_grid, {"sect", "peek", "heck", "poet", "hoes", "keep", "hawk", "smut"});
}

TEST_F(GeneratorTest, EmptyListOrFewerThanEightDifferentWordsNeverGiveAPuzzle) {
    EXPECT_FALSE(m_generator.generate(m_list, m_grid).success);
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

TEST_F(GeneratorTest, PalindromeDecoyIsNotOfferedTwiceThroughItsReversedEntry) {
    // With root "heir" the decoy searches d??d find "dood" and then "dood*": the same word.
    // Comparing the marked decoy text would let "dood" appear twice; the attempt must fail.
    loadInOrder({"dood", "heir", "dead", "died", "read", "haad", "hear"});
    const GenerationResult result = m_generator.generate(m_list, m_grid);
    EXPECT_FALSE(result.success && result.root == QStringLiteral("heir"));
    if (result.success)
        expectValidPuzzle(m_grid, {"dood", "heir", "dead", "died", "read", "haad", "hear"});
}

TEST_F(GeneratorTest, PuzzleRulesHoldOnManyPuzzlesFromSeveralSeeds) {
    // Small mixed-case alphabets give many palindromes, reverse pairs and words that differ
    // only in case: the cases the distinctness rules exist for.
    int puzzles = 0;
    for (const quint64 seed : {1u, 2u, 3u, 4u, 5u}) {
        std::mt19937 random(static_cast<unsigned>(seed));
        const QString alphabet = seed % 2 ? QStringLiteral("abcdeAB") : QStringLiteral("abcd");
        QStringList words;
        for (int n = 0; n < 90; ++n) {
            QString w;
            for (int k = 0; k < 4; ++k)
                w += alphabet[static_cast<qsizetype>(random() % alphabet.size())];
            words << w;
            if (random() % 4 == 0) // the same word in another case
                words << w.toUpper();
        }
        const QSet<QString> wordSet(words.begin(), words.end());
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
