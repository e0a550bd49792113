// The literal generator on hand-checked word lists and dictionaries that never give a puzzle.
#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/literalgenerator.h"
#include "core/stargrid.h"

#include "support/listitems.h"
#include "support/testwords.h"

#include <gtest/gtest.h>

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

class GeneratorTest : public ::testing::Test {
protected:
    void loadInOrder(const QStringList& words) {
        for (const QString& w : words) {
            m_list.AddItem(w);
            m_list.AddItem(reversedCodePoints(w) + u'*');
        }
    }

    clsSimpleArray m_list;
    StarGrid m_grid;
    LiteralPuzzleGenerator m_generator;
};

} // namespace

TEST_F(GeneratorTest, HandCheckedDictionaryGivesItsKnownPuzzle) {
    // Root "sect": "?e??*" finds the root itself ("sc??*" fails), then "peek" ("pc??*" fails),
    // then "keep*" with "kceh*", "teop*" and "seoh*". Decoys k??p, k??h, s??t; "peek" and
    // "keep", each other's reverse, may both appear.
    loadInOrder(testwords::kEight);
    const GenerationResult result = m_generator.generate(m_list, m_grid);
    ASSERT_TRUE(result.success);
    EXPECT_EQ(result.root, QStringLiteral("sect"));
    EXPECT_EQ(result.rootIndex, 0);
    EXPECT_EQ(cellsOf(m_grid), QStringLiteral("ksecteeoph"));
    EXPECT_EQ(offered(m_grid), QStringList({"hawk (decoy)", "heck", "hoes", "keep (decoy)", "peek",
                                            "poet", "sect", "smut (decoy)"}));
    // Only the root entry left the list; the word's reversed entry stays.
    EXPECT_EQ(m_list.ListCount(), 15);
    EXPECT_EQ(m_list.List(0), QStringLiteral("tces*"));
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
}
