// clsSimpleArray: the word-list class; see clssimplearray.h for the contract.
#include "core/clssimplearray.h"

#include "core/codepoints.h"
#include "core/errorlog.h"
#include "core/memoryinfo.h"
#include "core/wildcard.h"

#include <QSet>

#include <atomic>
#include <limits>
#include <new>
#include <stdexcept>

namespace {

const QString kModule = QStringLiteral("clsSimpleArray");
const QString kIndexErrorText = QStringLiteral(
    "The selected index number exceeds the number of elements dimensioned in the array!");
constexpr int kSlack = 100; // unused slots added on growth / tolerated before shrinking
// Unused code units in the text buffer tolerated beyond the used ones before replacing texts
// copies the used ones together.
constexpr qsizetype kCompactAfterUnits = 4096;
// Freed storage of at least this size goes straight back to the system.
constexpr qint64 kLargeStorage = 1 << 20;

std::atomic<quint64> g_lastRevision{0};

} // namespace

clsSimpleArray::clsSimpleArray(Notifier* notifier)
    : m_notifier(notifier)
    , m_clock([] { return QDateTime::currentDateTime(); }) {
    touch();
}

void clsSimpleArray::touch() {
    m_revision = ++g_lastRevision;
}

void clsSimpleArray::setClock(Clock clock) {
    m_clock = clock ? std::move(clock) : Clock([] { return QDateTime::currentDateTime(); });
}

void clsSimpleArray::LogError(bool show, const ErrorRecord& record) const {
    reportError(show ? m_notifier : nullptr, m_clock(), record);
}

void clsSimpleArray::indexError(const QString& function) const {
    LogError(true, {QStringLiteral("0"), kIndexErrorText, kModule, function});
}

void clsSimpleArray::noteAppended() {
    ++m_last;
    if (m_capacity == 0)
        m_capacity = kSlack + 1;
    else if (m_last > m_capacity - 1)
        m_capacity = m_last + kSlack + 1;
}

void clsSimpleArray::noteRemoved() {
    --m_last;
    if (m_last < 0) {
        m_capacity = 0;
    } else if (m_capacity - 1 > m_last + kSlack) {
        m_capacity = m_last + 1;
    }
}

bool clsSimpleArray::insertAt(int position, QStringView text) {
    try {
        if (ListCount() == std::numeric_limits<int>::max())
            throw std::length_error("Overflow");
        if (m_data.size() == m_data.capacity())
            m_data.reserve(m_data.size() + m_data.size() / 2 + 1);
        m_texts.insert(position, text);
        m_data.insert(m_data.begin() + position, 0); // room was made: cannot throw
    } catch (const std::bad_alloc&) {
        LogError(true, {QStringLiteral("7"), QStringLiteral("Out of memory"), kModule,
                        QStringLiteral("AddItem")});
        return false;
    } catch (const std::length_error&) {
        LogError(true, {QStringLiteral("6"), QStringLiteral("Overflow"), kModule,
                        QStringLiteral("AddItem")});
        return false;
    }
    noteAppended();
    m_newIndex = position;
    touch();
    return true;
}

void clsSimpleArray::AddItem(const QString& vstrItem, int vlngIndex) {
    const int count = ListCount();
    if (vlngIndex > count) {
        indexError(QStringLiteral("AddItem"));
        return;
    }
    int position = vlngIndex < 0 ? count : vlngIndex;
    if (m_isSorted && count > 0) {
        for (int i = 0; i < count; ++i) {
            if (compareExact(m_texts.at(i), vstrItem) > 0) {
                position = i;
                break;
            }
        }
    }
    insertAt(position, vstrItem);
}

bool clsSimpleArray::appendItem(QStringView text) {
    if (m_isSorted) {
        const int before = ListCount();
        AddItem(text.toString(), -1);
        return ListCount() > before;
    }
    return insertAt(ListCount(), text);
}

bool clsSimpleArray::reserveForAppend(qsizetype items, qsizetype units) {
    if (items > std::numeric_limits<int>::max() - ListCount())
        return false;
    try {
        m_texts.reserve(items, units);
        m_data.reserve(m_data.size() + static_cast<size_t>(items));
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

qint64 clsSimpleArray::storageBytes() const {
    return m_texts.storageBytes() + static_cast<qint64>(m_data.capacity() * sizeof(qint32));
}

void clsSimpleArray::releaseStorage() {
    const qint64 bytes = storageBytes();
    m_texts.clear();
    std::vector<qint32>().swap(m_data);
    if (bytes >= kLargeStorage)
        returnFreedMemory();
}

void clsSimpleArray::tidyStorage() {
    if (ListCount() == 0) {
        releaseStorage();
        return;
    }
    const qint64 unused = m_texts.unusedUnits() * qint64(sizeof(char16_t)) +
                          m_texts.unusedSlots() * qint64(sizeof(quint32) + 1) +
                          qint64((m_data.capacity() - m_data.size()) * sizeof(qint32));
    const qint64 bytes = storageBytes();
    if (unused * 4 < bytes)
        return; // most of it is in use: not worth copying
    try {
        m_texts.compact();
        m_data.shrink_to_fit();
    } catch (const std::bad_alloc&) {
        return; // keeps the larger storage
    }
    if (unused >= kLargeStorage)
        returnFreedMemory();
}

void clsSimpleArray::Clear() {
    releaseStorage();
    m_last = -1;
    m_newIndex = -1;
    m_capacity = 0;
    touch();
}

bool clsSimpleArray::FindItem(const QString& vstrItem, bool vblnExactMatch) {
    for (int i = 0; i <= m_last; ++i) {
        const bool found = vblnExactMatch ? equalsIgnoringCase(m_texts.at(i), vstrItem)
                                          : containsIgnoringCase(m_texts.at(i), vstrItem);
        if (found) {
            m_newIndex = i;
            return true;
        }
    }
    m_newIndex = -1;
    return false;
}

bool clsSimpleArray::FindItemData(qint32 vlngItemData) {
    for (int i = 0; i <= m_last; ++i) {
        if (m_data[i] == vlngItemData) {
            m_newIndex = i;
            return true;
        }
    }
    m_newIndex = -1;
    return false;
}

qint32 clsSimpleArray::ItemData(int vlngIndex) const {
    if (!validIndex(vlngIndex)) {
        indexError(QStringLiteral("Get ItemData"));
        return 0;
    }
    return m_data[vlngIndex];
}

void clsSimpleArray::ItemData(int vlngIndex, qint32 vNewValue) {
    if (!validIndex(vlngIndex)) {
        indexError(QStringLiteral("Let ItemData"));
        return;
    }
    m_data[vlngIndex] = vNewValue;
}

QString clsSimpleArray::List(int vlngIndex) const {
    if (!validIndex(vlngIndex)) {
        indexError(QStringLiteral("Get List"));
        return {};
    }
    return m_texts.at(vlngIndex).toString();
}

void clsSimpleArray::List(int vlngIndex, const QString& vNewValue) {
    if (!validIndex(vlngIndex)) {
        indexError(QStringLiteral("Let List"));
        return;
    }
    try {
        m_texts.replace(vlngIndex, vNewValue);
    } catch (const std::exception&) {
        LogError(true, {QStringLiteral("7"), QStringLiteral("Out of memory"), kModule,
                        QStringLiteral("Let List")});
        return;
    }
    touch();
    // Old texts stay in the buffer: copy the used ones together once they are the lesser part.
    if (m_texts.unusedUnits() > 2 * m_texts.usedUnits() + kCompactAfterUnits) {
        try {
            m_texts.compact();
        } catch (const std::bad_alloc&) {
            // keeps the larger buffer
        }
    }
}

void clsSimpleArray::removeWhere(const std::function<bool(int)>& remove) {
    const int count = ListCount();
    std::vector<bool> keep(static_cast<size_t>(count));
    int removed = 0;
    for (int i = 0; i < count; ++i) {
        keep[static_cast<size_t>(i)] = !remove(i);
        removed += keep[static_cast<size_t>(i)] ? 0 : 1;
    }
    if (removed == 0)
        return;
    int kept = 0;
    for (int i = 0; i < count; ++i) {
        if (keep[static_cast<size_t>(i)])
            m_data[static_cast<size_t>(kept++)] = m_data[static_cast<size_t>(i)];
    }
    m_data.resize(static_cast<size_t>(kept));
    m_texts.keepOnly(keep);
    touch();
    const int before = m_capacity;
    for (int r = 0; r < removed; ++r)
        noteRemoved();
    if (m_capacity != before)
        tidyStorage();
    m_newIndex = m_last;
}

void clsSimpleArray::RemoveDuplicates() {
    if (ListCount() < 2)
        return;
    QSet<QString> seen;
    seen.reserve(ListCount());
    removeWhere([&](int i) {
        const QString key = upperCodePoints(m_texts.at(i));
        if (seen.contains(key))
            return true;
        seen.insert(key);
        return false;
    });
}

void clsSimpleArray::RemoveItem(int vlngIndex) {
    if (!validIndex(vlngIndex)) {
        indexError(QStringLiteral("RemoveItem"));
        return;
    }
    const int before = m_capacity;
    m_texts.erase(vlngIndex);
    m_data.erase(m_data.begin() + vlngIndex);
    noteRemoved();
    if (m_capacity != before)
        tidyStorage();
    m_newIndex = m_last;
    touch();
}

void clsSimpleArray::RemoveItemsMatching(const QString& vstrItem) {
    removeWhere([&](int i) { return equalsIgnoringCase(m_texts.at(i), vstrItem); });
}

void clsSimpleArray::RemoveItemDataMatching(qint32 vlngItemData) {
    removeWhere([&](int i) { return m_data[i] == vlngItemData; });
}

QString clsSimpleArray::Text() const {
    return validIndex(m_newIndex) ? m_texts.at(m_newIndex).toString() : QString();
}

int clsSimpleArray::FindStringOld(const QString& vstrItem, int ix) {
    m_newIndex = -1;
    for (int i = 0; i <= m_last; ++i) {
        if (i != ix && matchesWildcard(m_texts.at(i), vstrItem))
            return i;
    }
    return -1;
}

int clsSimpleArray::FindString(const QString& vstrItem, int /*ix*/) {
    for (int i = 0; i <= m_last; ++i) {
        if (m_data[i] == 0 && matchesWildcard(m_texts.at(i), vstrItem)) {
            m_data[i] = 1;
            return i;
        }
    }
    return -1;
}

int clsSimpleArray::FindStringAll(const QString& vstrItem) {
    m_newIndex = -1;
    return FindString(vstrItem);
}

QString clsSimpleArray::FindRandom(const QString& vstrItem) {
    std::vector<char32_t> pool;
    for (qsizetype i = 0; i < vstrItem.size();)
        pool.push_back(nextCodePoint(vstrItem, i));
    std::vector<bool> used(pool.size());
    for (int index = 0; index <= m_last; ++index) {
        m_data[index] = 0;
        std::fill(used.begin(), used.end(), false);
        const QStringView item = m_texts.at(index);
        qsizetype length = 0;
        bool allFound = true;
        for (qsizetype i = 0; i < item.size() && allFound; ++length) {
            const char32_t c = nextCodePoint(item, i);
            allFound = false;
            for (size_t k = 0; k < pool.size(); ++k) {
                if (!used[k] && pool[k] == c) {
                    used[k] = true;
                    allFound = true;
                    break;
                }
            }
        }
        if (allFound && length > 3)
            m_data[index] = static_cast<qint32>(length);
    }
    return {};
}
