// Test helper: see puzzlecheck.h.
#include "puzzlecheck.h"

#include "core/codepoints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace {

// True when some assignment of items to slots (one each) satisfies `fits(item, slot)`.
template <typename Fits> bool perfectMatching(int n, Fits fits) {
    std::vector<int> order(static_cast<size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    do {
        bool all = true;
        for (int slot = 0; slot < n && all; ++slot)
            all = fits(order[static_cast<size_t>(slot)], slot);
        if (all)
            return true;
    } while (std::next_permutation(order.begin(), order.end()));
    return false;
}

} // namespace

void expectValidPuzzle(const StarGrid& grid, const QSet<QString>& words) {
    auto cell = [&grid](int c) { return grid.SolutionLetters[c + 1]; };
    for (int c = 0; c < StarGrid::CellCount; ++c)
        ASSERT_EQ(codePointCount(cell(c)), 1) << "cell " << c;

    std::vector<QString> solution;
    std::vector<QString> decoys;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const QString& word = grid.CandidateWords[i];
        EXPECT_TRUE(words.contains(word)) << qPrintable(word) << " is not a dictionary word";
        ASSERT_TRUE(grid.DecoyFlags[i] == 0 || grid.DecoyFlags[i] == 1);
        (grid.DecoyFlags[i] ? decoys : solution).push_back(word);
        if (i > 1) {
            EXPECT_LT(compareIgnoringCase(grid.CandidateWords[i - 1], word), 0)
                << "candidates out of order or equal ignoring case: "
                << qPrintable(grid.CandidateWords[i - 1]) << ", " << qPrintable(word);
        }
    }
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        for (int j = i + 1; j <= StarGrid::CandidateCount; ++j)
            EXPECT_FALSE(equalsIgnoringCase(grid.CandidateWords[i], grid.CandidateWords[j]));
    }
    ASSERT_EQ(solution.size(), 5u);
    ASSERT_EQ(decoys.size(), 3u);

    std::array<QString, StarGrid::LineCount> lines;
    for (int line = 0; line < StarGrid::LineCount; ++line) {
        for (int c : StarGrid::lineCells(line))
            lines[line] += cell(c);
    }
    EXPECT_TRUE(perfectMatching(5, [&](int w, int line) {
        const QString& word = solution[static_cast<size_t>(w)];
        return lines[line] == word || reversedCodePoints(lines[line]) == word;
    })) << "the solution words do not fill the five lines";

    const std::array<std::array<int, 2>, 3> ends = {{{0, 8}, {0, 9}, {1, 4}}};
    EXPECT_TRUE(perfectMatching(3, [&](int d, int slot) {
        const QString& word = decoys[static_cast<size_t>(d)];
        const QString first = leftCodePoints(word, 1).toString();
        const QString last = leftCodePoints(reversedCodePoints(word), 1).toString();
        const QString a = cell(ends[slot][0]);
        const QString b = cell(ends[slot][1]);
        return (first == a && last == b) || (first == b && last == a);
    })) << "the decoys do not fit the ends of the lines 0-8, 0-9, 1-4";
}
