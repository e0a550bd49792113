// The star's tables: the ten directions are the five drawn lines read each way; the puzzle
// record's solution words.
#include "core/stargrid.h"

#include <QStringList>

#include <gtest/gtest.h>

TEST(StarGrid, DirectionsAreTheFiveDrawnLinesReadEachWay) {
    const StarGrid grid;
    EXPECT_EQ(QStringList(grid.LineTable.begin(), grid.LineTable.end()).join(u' '),
              QStringLiteral(" 0258 0369 1234 4321 1579 4678 8520 9630 8764 9751"));
    const int drawingOrder[] = {1, 2, 3, 5, 6}; // the directions that read a line as drawn
    for (int line = 0; line < StarGrid::LineCount; ++line)
        EXPECT_EQ(StarGrid::lineCells(line), grid.cellsOf(drawingOrder[line])) << line;
    const std::array<int, 4> none{-1, -1, -1, -1};
    for (const int outside : {0, 11})
        EXPECT_EQ(grid.cellsOf(outside), none);
    for (const int outside : {-1, 5})
        EXPECT_EQ(StarGrid::lineCells(outside), none);
}

TEST(StarGrid, SolutionWordReadsTheCellsInDirectionOrder) {
    StarGrid grid;
    EXPECT_FALSE(grid.hasSolution());
    EXPECT_EQ(grid.solutionWord(1), QString());
    for (int p = 1; p <= 10; ++p) // cell n holds the n-th letter
        grid.SolutionLetters[p] = QString(QChar(u'a' + p - 1));
    EXPECT_TRUE(grid.hasSolution());
    EXPECT_EQ(grid.solutionWord(4), QStringLiteral("edcb"));
    EXPECT_EQ(grid.solutionWord(10), QStringLiteral("jhfb"));
    EXPECT_EQ(grid.solutionWord(11), QString());
    grid.SolutionLetters[10].clear();
    EXPECT_FALSE(grid.hasSolution());
    grid.clearSolution();
    EXPECT_EQ(grid.solutionWord(3), QString());
}
