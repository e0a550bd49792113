// The star's tables: every cell on two lines, every direction with a reverse, derived queries.
#include "core/stargrid.h"

#include <gtest/gtest.h>

#include <set>

TEST(StarGridTables, EveryCellDigitAppearsInExactlyFourDirections) {
    const StarGrid grid;
    for (int cell = 0; cell < StarGrid::CellCount; ++cell) {
        int count = 0;
        for (int k = 1; k <= StarGrid::DirectionCount; ++k)
            count += grid.LineTable[k].count(QChar(u'0' + cell));
        EXPECT_EQ(count, 4) << "cell " << cell;
    }
}

TEST(StarGridTables, EveryDirectionHasAReverseThatIsNotItself) {
    const StarGrid grid;
    const int expected[] = {0, 7, 8, 4, 3, 10, 9, 1, 2, 6, 5};
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        const int r = grid.reverseOf(k);
        EXPECT_EQ(r, expected[k]) << "direction " << k;
        EXPECT_NE(r, k);
        EXPECT_EQ(grid.reverseOf(r), k);
    }
    EXPECT_EQ(grid.reverseOf(0), -1);
    EXPECT_EQ(grid.reverseOf(11), -1);
}

TEST(StarGridTables, DirectionsAreTheFiveLinesEachWay) {
    const StarGrid grid;
    std::set<std::set<int>> lines;
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        const auto cells = grid.cellsOf(k);
        lines.insert(std::set<int>(cells.begin(), cells.end()));
    }
    std::set<std::set<int>> drawn;
    for (int line = 0; line < StarGrid::LineCount; ++line) {
        const auto cells = StarGrid::lineCells(line);
        drawn.insert(std::set<int>(cells.begin(), cells.end()));
    }
    EXPECT_EQ(lines, drawn);
    EXPECT_EQ(lines.size(), 5u);
}

TEST(StarGridTables, OnlyTipsStartDirections) {
    const StarGrid grid;
    for (int cell : {0, 1, 4, 8, 9}) {
        const auto dirs = grid.directionsStartingAt(cell);
        EXPECT_NE(dirs[0], -1) << cell;
        EXPECT_NE(dirs[1], -1) << cell;
    }
    for (int cell : {2, 3, 5, 6, 7})
        EXPECT_EQ(grid.directionsStartingAt(cell)[0], -1) << cell;
}

TEST(StarGridTables, LinesThroughACellMatchTheStar) {
    using Pair = std::array<int, 2>;
    EXPECT_EQ(StarGrid::linesThrough(0), (Pair{0, 1}));
    EXPECT_EQ(StarGrid::linesThrough(2), (Pair{0, 2}));
    EXPECT_EQ(StarGrid::linesThrough(7), (Pair{3, 4}));
    EXPECT_EQ(StarGrid::linesThrough(9), (Pair{1, 3}));
    EXPECT_EQ(StarGrid::linesThrough(10), (Pair{-1, -1}));
}

TEST(StarGridRecord, StartsWithoutAPuzzle) {
    const StarGrid grid;
    EXPECT_FALSE(grid.hasSolution());
    EXPECT_EQ(grid.SelectedWord, -1);
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        EXPECT_TRUE(grid.CandidateWords[i].isEmpty());
        EXPECT_EQ(grid.DecoyFlags[i], 0);
    }
    EXPECT_EQ(grid.solutionWord(1), QString());
}

TEST(StarGridRecord, SolutionWordReadsTheCellsInDirectionOrder) {
    StarGrid grid;
    const QString letters = QStringLiteral("abcdefghij"); // cell n holds letter n
    for (int p = 1; p <= 10; ++p)
        grid.SolutionLetters[p] = letters.mid(p - 1, 1);
    EXPECT_TRUE(grid.hasSolution());
    EXPECT_EQ(grid.solutionWord(3), QStringLiteral("bcde"));
    EXPECT_EQ(grid.solutionWord(4), QStringLiteral("edcb"));
    EXPECT_EQ(grid.solutionWord(10), QStringLiteral("jhfb"));
    grid.clearSolution();
    EXPECT_FALSE(grid.hasSolution());
    EXPECT_EQ(grid.solutionWord(3), QString());
}
