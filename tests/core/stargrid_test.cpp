// The star's tables: the directions are the five lines read each way, in reverse pairs; the
// puzzle record and its solution words.
#include "core/stargrid.h"

#include <QStringList>

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

TEST(StarGridTables, ExactValuesOfTheFixedTables) {
    const StarGrid grid;
    const QStringList lineTable = {"",     "0258", "0369", "1234", "4321", "1579",
                                   "4678", "8520", "9630", "8764", "9751"};
    for (int k = 0; k <= StarGrid::DirectionCount; ++k)
        EXPECT_EQ(grid.LineTable[k], lineTable[k]) << "direction " << k;

    // Per cell: the two lines through it, and the directions starting there (tips only).
    struct Cell {
        std::array<int, 2> lines;
        std::array<int, 2> starts;
    };
    const Cell cells[StarGrid::CellCount] = {
        {{0, 1}, {1, 2}}, {{2, 3}, {3, 5}},   {{0, 2}, {-1, -1}}, {{1, 2}, {-1, -1}},
        {{2, 4}, {4, 6}}, {{0, 3}, {-1, -1}}, {{1, 4}, {-1, -1}}, {{3, 4}, {-1, -1}},
        {{0, 4}, {7, 9}}, {{1, 3}, {8, 10}},
    };
    for (int c = 0; c < StarGrid::CellCount; ++c) {
        EXPECT_EQ(StarGrid::linesThrough(c), cells[c].lines) << "cell " << c;
        EXPECT_EQ(grid.directionsStartingAt(c), cells[c].starts) << "cell " << c;
    }
    EXPECT_EQ(StarGrid::lineCells(2), (std::array<int, 4>{1, 2, 3, 4}));
    EXPECT_EQ(StarGrid::lineCells(5), (std::array<int, 4>{-1, -1, -1, -1}));
    EXPECT_EQ(grid.cellsOf(11), (std::array<int, 4>{-1, -1, -1, -1}));
}

TEST(StarGridRecord, SolutionWordReadsTheCellsInDirectionOrder) {
    StarGrid grid;
    EXPECT_FALSE(grid.hasSolution());
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
