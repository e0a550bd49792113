// Dictionary loading and puzzle generation on any file: every accepted line gives the word
// and its reverse marked "*"; every puzzle made places its five words along the star's lines
// in agreement with the ten solution letters (unless a letter is a pattern character), offers
// them with three decoys sorted without regard to case, and removes its root; and on small
// lists the indexed generator gives exactly what the literal search gives, request after
// request.
#include "fuzzsupport.h"

#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/dictionary.h"
#include "core/indexedgenerator.h"
#include "core/literalgenerator.h"
#include "core/randomsource.h"
#include "core/stargrid.h"

#include <QSet>

namespace {

// The literal search is slow on large lists; compare the two generators below this size.
constexpr int kDifferentialEntries = 160;

QStringList itemsOf(const clsSimpleArray& list) {
    QStringList items;
    for (int i = 0; i < list.ListCount(); ++i)
        items << list.List(i);
    return items;
}

void checkPuzzle(const StarGrid& grid) {
    check(grid.hasSolution(), "a puzzle fills every cell");
    // A cell letter that is a pattern character ("?", "*", "#", "[") acts as a pattern in the
    // searches after it, so the words found there agree with the pattern, not the letter: the
    // search's own rule, kept on purpose. Such puzzles are checked against the literal search
    // only.
    bool patterned = false;
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        patterned = patterned || QStringLiteral("?*#[").contains(grid.SolutionLetters[size_t(p)]);
    int decoys = 0;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const QString& word = grid.CandidateWords[static_cast<size_t>(i)];
        if (i > 1) {
            check(compareIgnoringCase(grid.CandidateWords[static_cast<size_t>(i - 1)], word) <= 0,
                  "candidates are sorted without regard to case");
        }
        if (grid.DecoyFlags[static_cast<size_t>(i)] != 0) {
            ++decoys;
            continue;
        }
        bool placed = false;
        for (int direction = 1; direction <= StarGrid::DirectionCount; ++direction)
            placed = placed || grid.solutionWord(direction) == word;
        check(placed || patterned, "every solution word lies along a line");
    }
    check(decoys == 3, "three decoys");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString path = scratchFolder() + QStringLiteral("words.txt");
    writeFile(path, QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));

    FuzzNotifier notifier;
    RandomSource random(size);
    clsSimpleArray fast;
    DictionaryLoader loader(fast, random, &notifier);
    loader.setShuffled(size % 2 == 0);
    check(loader.LoadDictionary(path), "a readable file loads");
    check(fast.ListCount() == 2 * loader.DictionaryWordCount(), "two entries per word");
    const QStringList entries = itemsOf(fast);
    const QSet<QString> present(entries.cbegin(), entries.cend());
    for (const QString& entry : entries) {
        const bool reversed = entry.endsWith(u'*') && codePointCount(entry) == 5;
        const QString word = reversed ? reversedCodePoints(entry.chopped(1)) : entry;
        check(codePointCount(word) == 4, "only four-character lines are words");
        check(present.contains(reversed ? word : reversedCodePoints(word) + u'*'),
              "each word comes with its reverse");
    }

    clsSimpleArray literal;
    for (const QString& entry : entries)
        literal.AddItem(entry);
    const bool differential = fast.ListCount() <= kDifferentialEntries;
    IndexedPuzzleGenerator indexed;
    LiteralPuzzleGenerator reference;
    for (int request = 0; request < 3; ++request) {
        StarGrid fastGrid;
        const int before = fast.ListCount();
        const GenerationResult made = indexed.generate(fast, fastGrid);
        if (made.success) {
            checkPuzzle(fastGrid);
            check(fast.ListCount() == before - 1, "a puzzle removes its root");
        } else {
            check(fast.ListCount() == before && !fastGrid.hasSolution(),
                  "a failure changes nothing");
        }
        if (!differential)
            continue;
        StarGrid literalGrid;
        const GenerationResult expected = reference.generate(literal, literalGrid);
        check(made.success == expected.success && made.root == expected.root &&
                  made.rootIndex == expected.rootIndex,
              "both generators pick the same root");
        check(fastGrid.SolutionLetters == literalGrid.SolutionLetters &&
                  fastGrid.CandidateWords == literalGrid.CandidateWords &&
                  fastGrid.DecoyFlags == literalGrid.DecoyFlags,
              "both generators make the same puzzle");
        check(itemsOf(fast) == itemsOf(literal), "both lists keep the same words");
        if (!made.success)
            break;
    }
    return 0;
}
