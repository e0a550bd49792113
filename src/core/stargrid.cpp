// The star's tables and the queries derived from them.
#include "core/stargrid.h"

#include <algorithm>

namespace {

constexpr std::array<const char*, StarGrid::DirectionCount> kLineTable = {
    "0258", "0369", "1234", "4321", "1579", "4678", "8520", "9630", "8764", "9751"};

constexpr std::array<std::array<int, 4>, StarGrid::LineCount> kLines = {{
    {0, 2, 5, 8},
    {0, 3, 6, 9},
    {1, 2, 3, 4},
    {1, 5, 7, 9},
    {4, 6, 7, 8},
}};

bool validDirection(int k) {
    return k >= 1 && k <= StarGrid::DirectionCount;
}

} // namespace

StarGrid::StarGrid() {
    for (int k = 1; k <= DirectionCount; ++k)
        LineTable[k] = QString::fromLatin1(kLineTable[k - 1]);
}

std::array<int, 4> StarGrid::cellsOf(int direction) const {
    std::array<int, 4> cells{-1, -1, -1, -1};
    if (!validDirection(direction))
        return cells;
    const QString& digits = LineTable[direction];
    for (int i = 0; i < 4 && i < digits.size(); ++i)
        cells[i] = digits[i].digitValue();
    return cells;
}

int StarGrid::reverseOf(int direction) const {
    if (!validDirection(direction))
        return -1;
    QString reversed = LineTable[direction];
    std::reverse(reversed.begin(), reversed.end());
    for (int k = 1; k <= DirectionCount; ++k) {
        if (LineTable[k] == reversed)
            return k;
    }
    return -1;
}

std::array<int, 2> StarGrid::directionsStartingAt(int cell) const {
    std::array<int, 2> found{-1, -1};
    int n = 0;
    for (int k = 1; k <= DirectionCount && n < 2; ++k) {
        if (cellsOf(k)[0] == cell)
            found[n++] = k;
    }
    return found;
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
