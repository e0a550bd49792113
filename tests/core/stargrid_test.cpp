// The star's tables: the directions are the five lines read each way, in reverse pairs; the
// puzzle record and its solution words.
#include "core/stargrid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

TEST(StarGridTables, DirectionsReadTheFiveLinesEachWay) {
    const StarGrid grid;
    const int reverse[] = {0, 7, 8, 4, 3, 10, 9, 1, 2, 6, 5};
    std::set<std::set<int>> directionLines;
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        auto cells = grid.cellsOf(k);
        directionLines.insert(std::set<int>(cells.begin(), cells.end()));
        EXPECT_EQ(grid.reverseOf(k), reverse[k]) << "direction " << k;
        std::reverse(cells.begin(), cells.end());
        EXPECT_EQ(grid.cellsOf(reverse[k]), cells) << "direction " << k;
    }
    std::set<std::set<int>> drawn;
    for (int line = 0; line < StarGrid::LineCount; ++line) {
        const auto cells = StarGrid::lineCells(line);
        drawn.insert(std::set<int>(cells.begin(), cells.end()));
    }
    EXPECT_EQ(directionLines, drawn);
    EXPECT_EQ(drawn.size(), 5u);
    EXPECT_EQ(grid.reverseOf(0), -1);
    EXPECT_EQ(grid.reverseOf(11), -1);
}

TEST(StarGridRecord, SolutionWordReadsTheCellsInDirectionOrder) {
    StarGrid grid;
    EXPECT_FALSE(grid.hasSolution());
    EXPECT_EQ(grid.SelectedWord, -1);
    EXPECT_EQ(grid.solutionWord(1), QString());
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
