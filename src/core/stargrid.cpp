// The star's tables and the queries derived from them.
#include "core/stargrid.h"

#include <algorithm>

namespace {

constexpr std::array<std::array<int, 4>, StarGrid::LineCount> kLines = {{
    {0, 2, 5, 8},
    {0, 3, 6, 9},
    {1, 2, 3, 4},
    {1, 5, 7, 9},
    {4, 6, 7, 8},
}};

// Direction k (1..10) reads line kDirections[k - 1].line, from its last cell when reversed:
// "0258", "0369", "1234", "4321", "1579", "4678", "8520", "9630", "8764", "9751".
struct Direction {
    int line;
    bool reversed;
};
constexpr std::array<Direction, StarGrid::DirectionCount> kDirections = {{
    {0, false},
    {1, false},
    {2, false},
    {2, true},
    {3, false},
    {4, false},
    {0, true},
    {1, true},
    {4, true},
    {3, true},
}};

bool validDirection(int k) {
    return k >= 1 && k <= StarGrid::DirectionCount;
}

} // namespace

StarGrid::StarGrid() {
    for (int k = 1; k <= DirectionCount; ++k) {
        for (const int cell : cellsOf(k))
            LineTable[k] += QChar(u'0' + cell);
    }
}

std::array<int, 4> StarGrid::cellsOf(int direction) {
    if (!validDirection(direction))
        return {-1, -1, -1, -1};
    const Direction d = kDirections[direction - 1];
    std::array<int, 4> cells = kLines[d.line];
    if (d.reversed)
        std::reverse(cells.begin(), cells.end());
    return cells;
}

std::array<int, 4> StarGrid::lineCells(int line) {
    if (line < 0 || line >= LineCount)
        return {-1, -1, -1, -1};
    return kLines[line];
}

std::array<int, 2> StarGrid::linesThrough(int cell) {
    std::array<int, 2> found{-1, -1};
    int n = 0;
    for (int line = 0; line < LineCount && n < 2; ++line) {
        for (int c : kLines[line]) {
            if (c == cell) {
                found[n++] = line;
                break;
            }
        }
    }
    return found;
}

QString StarGrid::solutionWord(int direction) const {
    QString word;
    if (!validDirection(direction))
        return word;
    for (int cell : cellsOf(direction))
        word += SolutionLetters[cell + 1];
    return word;
}

void StarGrid::clearSolution() {
    for (QString& letter : SolutionLetters)
        letter.clear();
}

bool StarGrid::hasSolution() const {
    for (int p = 1; p <= CellCount; ++p) {
        if (SolutionLetters[p].isEmpty())
            return false;
    }
    return true;
}
