// The reference puzzle generator; see literalgenerator.h for the search.
#include "core/literalgenerator.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/eventpump.h"
#include "core/generatorwords.h"
#include "core/stargrid.h"

#include <array>

namespace {

const QString kMark = QStringLiteral("*");

} // namespace

void LiteralPuzzleGenerator::poll() {
    if (m_pump)
        m_pump->poll();
}

GenerationResult LiteralPuzzleGenerator::generate(clsSimpleArray& wordList, StarGrid& grid) {
    grid.clearSolution();
    const int count = wordList.ListCount();
    for (int root = 0; root < count; ++root) {
        if (m_pump && m_pump->stopRequested()) {
            grid.clearSolution();
            return abandonedGeneration();
        }
        const QString rootEntry = wordList.List(root);
        if (attempt(wordList, grid, root)) {
            wordList.RemoveItem(root);
            return {true, rootEntry, root};
        }
        grid.clearSolution();
        poll();
    }
    return {};
}

bool LiteralPuzzleGenerator::attempt(clsSimpleArray& wordList, StarGrid& grid, int root) {
    for (int i = 0; i < wordList.ListCount(); ++i)
        wordList.ItemData(i, 0);
    poll();

    // c(k) is the letter of cell k, kept in the record as the search fixes it.
    auto c = [&grid](int cell) -> QString& { return grid.SolutionLetters[cell + 1]; };
    auto find = [&wordList](const QString& pattern) { return wordList.FindStringAll(pattern); };
    auto entry = [&wordList](int index) { return wordList.List(index); };

    const QString rootEntry = entry(root);
    const auto w1 = lettersOf(rootEntry);
    c(1) = w1[0];
    c(2) = w1[1];
    c(3) = w1[2];
    c(4) = w1[3];
    poll();

    int second = -1;
    int third = -1;
    int fourth = -1;
    while (fourth < 0) {
        second = find(u'?' + c(2) + QStringLiteral("??*"));
        if (second < 0)
            return false;
        const auto w2 = lettersOf(entry(second));
        c(0) = w2[0];
        c(5) = w2[2];
        c(8) = w2[3];
        for (;;) {
            third = find(c(0) + c(3) + QStringLiteral("??*"));
            if (third < 0)
                break; // another second word
            const auto w3 = lettersOf(entry(third));
            c(6) = w3[2];
            c(9) = w3[3];
            fourth = find(c(4) + c(6) + u'?' + c(8) + kMark);
            if (fourth < 0)
                continue; // another third word under the same second word
            c(7) = lettersOf(entry(fourth))[2];
            break;
        }
    }

    const QString fifthLetters = c(1) + c(5) + c(7) + c(9);
    const int forwards = find(fifthLetters + kMark);
    const int backwards = find(reversedCodePoints(fifthLetters) + kMark);
    if (forwards < 0 && backwards < 0)
        return false;
    const int fifth = forwards >= 0 ? forwards : backwards;

    WorkingList working;
    for (const QString& e : {rootEntry, entry(second), entry(third), entry(fourth), entry(fifth)}) {
        const QString word = realSpelling(e);
        if (working.holds(word))
            return false;
        working.addSolutionWord(word);
    }

    const std::array<QString, 3> decoyPatterns = {
        c(0) + QStringLiteral("??") + c(8) + kMark,
        c(0) + QStringLiteral("??") + c(9) + kMark,
        c(1) + QStringLiteral("??") + c(4) + kMark,
    };
    for (const QString& pattern : decoyPatterns) {
        const int decoy = find(pattern);
        if (decoy < 0)
            return false;
        const QString word = realSpelling(entry(decoy));
        if (working.holds(word))
            return false;
        working.addDecoy(word);
    }

    publishCandidates(working, grid);
    return true;
}
