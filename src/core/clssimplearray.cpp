// clsSimpleArray: the word-list class; see clssimplearray.h for the contract.
#include "core/clssimplearray.h"

#include "core/codepoints.h"
#include "core/errorlog.h"
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

void clsSimpleArray::AddItem(const QString& vstrItem, int vlngIndex) {
    const int count = ListCount();
    if (vlngIndex > count) {
        indexError(QStringLiteral("AddItem"));
        return;
    }
    int position = vlngIndex < 0 ? count : vlngIndex;
    if (m_isSorted && count > 0) {
        for (int i = 0; i < count; ++i) {
            if (compareExact(m_items[i], vstrItem) > 0) {
                position = i;
                break;
            }
        }
    }
    try {
        if (count == std::numeric_limits<int>::max())
            throw std::length_error("Overflow");
        m_items.insert(m_items.begin() + position, vstrItem);
        try {
            m_data.insert(m_data.begin() + position, 0);
        } catch (...) {
            m_items.erase(m_items.begin() + position);
            throw;
        }
    } catch (const std::bad_alloc&) {
        LogError(true, {QStringLiteral("7"), QStringLiteral("Out of memory"), kModule,
                        QStringLiteral("AddItem")});
        return;
    } catch (const std::length_error&) {
        LogError(true, {QStringLiteral("6"), QStringLiteral("Overflow"), kModule,
                        QStringLiteral("AddItem")});
        return;
    }
    noteAppended();
    m_newIndex = position;
    touch();
}

void clsSimpleArray::appendItems(std::vector<QString>&& items) {
    if (items.empty())
        return;
    const size_t room = static_cast<size_t>(std::numeric_limits<int>::max()) - m_items.size();
    if (m_isSorted || items.size() > room) {
        for (const QString& item : items)
            AddItem(item, -1);
        return;
    }
    try {
        m_data.reserve(m_items.size() + items.size());
        if (m_items.empty()) { // take the texts' storage as it is
            m_items = std::move(items);
            m_data.assign(m_items.size(), 0);
            for (size_t k = 0; k < m_items.size(); ++k)
                noteAppended();
            m_newIndex = m_last;
            touch();
            return;
        }
        m_items.reserve(m_items.size() + items.size());
    } catch (const std::bad_alloc&) {
        for (const QString& item : items) // item by item, each failure recorded
            AddItem(item, -1);
        return;
    }
    for (QString& item : items) {
        m_items.push_back(std::move(item));
        m_data.push_back(0);
        noteAppended();
    }
    m_newIndex = m_last;
    touch();
}

void clsSimpleArray::Clear() {
    std::vector<QString>().swap(m_items);
    std::vector<qint32>().swap(m_data);
    m_last = -1;
    m_newIndex = -1;
    m_capacity = 0;
    touch();
}

bool clsSimpleArray::FindItem(const QString& vstrItem, bool vblnExactMatch) {
    for (int i = 0; i <= m_last; ++i) {
        const bool found = vblnExactMatch ? equalsIgnoringCase(m_items[i], vstrItem)
                                          : containsIgnoringCase(m_items[i], vstrItem);
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
    return m_items[vlngIndex];
}

void clsSimpleArray::List(int vlngIndex, const QString& vNewValue) {
    if (!validIndex(vlngIndex)) {
        indexError(QStringLiteral("Let List"));
        return;
    }
    m_items[vlngIndex] = vNewValue;
    touch();
}

void clsSimpleArray::removeWhere(const std::function<bool(int)>& remove) {
    int kept = 0;
    const int count = ListCount();
    int removed = 0;
    for (int i = 0; i < count; ++i) {
        if (remove(i)) {
            ++removed;
            continue;
        }
        if (kept != i) {
            m_items[kept] = std::move(m_items[i]);
            m_data[kept] = m_data[i];
        }
        ++kept;
    }
    if (removed == 0)
        return;
    touch();
    m_items.resize(kept);
    m_data.resize(kept);
    const int before = m_capacity;
    for (int r = 0; r < removed; ++r)
        noteRemoved();
    if (m_capacity != before) {
        m_items.shrink_to_fit();
        m_data.shrink_to_fit();
    }
    m_newIndex = m_last;
}

void clsSimpleArray::RemoveDuplicates() {
    if (ListCount() < 2)
        return;
    QSet<QString> seen;
    seen.reserve(ListCount());
    removeWhere([&](int i) {
        const QString key = upperCodePoints(m_items[i]);
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
    m_items.erase(m_items.begin() + vlngIndex);
    m_data.erase(m_data.begin() + vlngIndex);
    noteRemoved();
    if (m_capacity != before) {
        m_items.shrink_to_fit();
        m_data.shrink_to_fit();
    }
    m_newIndex = m_last;
    touch();
}

void clsSimpleArray::RemoveItemsMatching(const QString& vstrItem) {
    removeWhere([&](int i) { return equalsIgnoringCase(m_items[i], vstrItem); });
}

void clsSimpleArray::RemoveItemDataMatching(qint32 vlngItemData) {
    removeWhere([&](int i) { return m_data[i] == vlngItemData; });
}

QString clsSimpleArray::Text() const {
    return validIndex(m_newIndex) ? m_items[m_newIndex] : QString();
}

int clsSimpleArray::FindStringOld(const QString& vstrItem, int ix) {
    m_newIndex = -1;
    for (int i = 0; i <= m_last; ++i) {
        if (i != ix && matchesWildcard(m_items[i], vstrItem))
            return i;
    }
    return -1;
}

int clsSimpleArray::FindString(const QString& vstrItem, int /*ix*/) {
    for (int i = 0; i <= m_last; ++i) {
        if (m_data[i] == 0 && matchesWildcard(m_items[i], vstrItem)) {
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
        const QString& item = m_items[index];
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
