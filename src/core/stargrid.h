// The puzzle record: the star's fixed cell and line tables, the solution letters, the eight
// candidate words and which of them are decoys. Plain data shared by the generator, the board
// and printing; it knows nothing of widgets. The player's letters (the cell entries) and the
// selected word belong to the board's state, not to this record.
//
// Cells are numbered 0..9: 0 top tip, 1 left tip, 2 and 3 the upper crossings (left, right),
// 4 right tip, 5 and 6 the lower crossings (left, right), 7 the bottom crossing, 8 and 9 the
// bottom tips (left, right). Solution position p (1..10) is cell p - 1.
// Lines are numbered 0..4 in drawing order: 0-2-5-8, 0-3-6-9, 1-2-3-4, 1-5-7-9, 4-6-7-8.
// Directions 1..10 are the lines read one way or the other (see LineTable).
#pragma once

#include <QString>

#include <array>

class StarGrid {
public:
    static constexpr int DirectionCount = 10;
    static constexpr int CellCount = 10;
    static constexpr int LineCount = 5;
    static constexpr int CandidateCount = 8;

    // Fills LineTable and starts with no puzzle: every SolutionLetters and CandidateWords
    // entry "", every DecoyFlags entry 0.
    StarGrid();

    // Index 0 of the 1-based tables is unused and always "" / 0.
    // LineTable[k] (k = 1..10): the four cell digits of direction k, first letter first.
    std::array<QString, DirectionCount + 1> LineTable;
    // SolutionLetters[p] (p = 1..10): the solution letter of cell p - 1, or "" with no puzzle.
    std::array<QString, CellCount + 1> SolutionLetters;
    // CandidateWords[i] (i = 1..8): the offered words, ascending without regard to case.
    std::array<QString, CandidateCount + 1> CandidateWords;
    // DecoyFlags[i] (i = 1..8): 1 when CandidateWords[i] is a decoy, else 0.
    std::array<qint32, CandidateCount + 1> DecoyFlags{};

    // The cells of direction k (1..10) in reading order, from the fixed tables (LineTable
    // spells the same digits). k outside 1..10 yields {-1,-1,-1,-1}.
    static std::array<int, 4> cellsOf(int direction);
    // The cells of line 0..4, from one end to the other in drawing order.
    static std::array<int, 4> lineCells(int line);
    // The two lines (0..4, ascending) through cell 0..9.
    static std::array<int, 2> linesThrough(int cell);
    // The solution letters along direction k (1..10), concatenated; "" without a puzzle.
    QString solutionWord(int direction) const;

    // Empties every SolutionLetters entry (a failed or not yet made puzzle).
    void clearSolution();
    // True when every cell has a solution letter.
    bool hasSolution() const;
};
