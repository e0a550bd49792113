// Word handling shared by the puzzle generators; see generatorwords.h.
#include "core/generatorwords.h"

#include "core/codepoints.h"
#include "core/stargrid.h"

#include <algorithm>

namespace {

const QString kMark = QStringLiteral("*");

} // namespace

std::array<QString, 4> lettersOf(const QString& entry) {
    std::array<QString, 4> letters;
    qsizetype i = 0;
    for (QString& letter : letters) {
        if (i >= entry.size())
            break;
        const qsizetype start = i;
        nextCodePoint(entry, i);
        letter = entry.sliced(start, i - start);
    }
    return letters;
}

QString realSpelling(const QString& entry) {
    if (!entry.endsWith(kMark))
        return entry;
    return reversedCodePoints(entry).mid(1);
}

bool WorkingList::holds(const QString& word) const {
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&](const Entry& e) { return equalsIgnoringCase(e.word, word); });
}

void WorkingList::addDecoy(const QString& word) {
    m_entries.push_back({word, word + kMark, true});
}

std::vector<WorkingList::Entry> WorkingList::sortedEntries() const {
    std::vector<Entry> sorted = m_entries;
    std::stable_sort(sorted.begin(), sorted.end(), [](const Entry& a, const Entry& b) {
        return compareIgnoringCase(a.text, b.text) < 0;
    });
    return sorted;
}

void publishCandidates(const WorkingList& working, StarGrid& grid) {
    const std::vector<WorkingList::Entry> sorted = working.sortedEntries();
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const WorkingList::Entry& entry = sorted[static_cast<size_t>(i - 1)];
        grid.CandidateWords[i] = leftCodePoints(entry.text, 4).toString();
        grid.DecoyFlags[i] = entry.decoy ? 1 : 0;
    }
}
