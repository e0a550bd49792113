// clsSimpleArray: a growable list of texts, each carrying one whole-number item data, with
// the operations of a list box but no window: append or insert (optionally in sorted order),
// remove, exact and substring search, wildcard search that marks what it finds as used, and
// a letter-pool test. The program keeps one instance, the dictionary's word list, which the
// puzzle generator searches.
//
// Indices are zero-based. An index outside the valid range is an index error: it is shown
// through the notifier (when one is set) and appended to ErrorLog.txt in the program folder,
// and the list is left unchanged (readers yield 0 or ""). Item access is constant time and
// the searches scan from index 0 without copying any item.
//
// Capacity (observable through capacity()): the first item creates 101 slots; when an append
// or insert makes the last index exceed the last slot, the slots become last index + 101; when
// a removal leaves more than 100 unused slots above the last index, the slots shrink to exactly
// the item count; an emptied list releases its storage (capacity 0). The storage underneath
// grows geometrically, so appends stay cheap however long the list; it is given back at the
// points where the rules shrink the capacity (when a good share of it is unused) and when the
// list is cleared or emptied, large amounts straight to the system, so the process shrinks.
//
// The texts live in one compact buffer (TextStore: a few bytes per item beyond the
// characters), the item data in a parallel array.
//
// Texts compare "without regard to case" when their per-character upper-cased forms are equal;
// ordering and pattern matching compare characters exactly (case-sensitive).
#pragma once

#include "core/textstore.h"

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <functional>
#include <span>
#include <vector>

class Notifier;
struct ErrorRecord;

class clsSimpleArray {
public:
    // Supplies the time stamp of error records (default: the current local time).
    using Clock = std::function<QDateTime()>;

    // notifier: where index errors are shown; null shows nothing (they are still logged).
    explicit clsSimpleArray(Notifier* notifier = nullptr);

    void setNotifier(Notifier* notifier) { m_notifier = notifier; }
    void setClock(Clock clock);

    // Inserts vstrItem with item data 0. vlngIndex 0..ListCount()-1 inserts before that item;
    // a negative value or ListCount() appends; a value above ListCount() is an index error
    // ("AddItem") and adds nothing. When Sorted() and the list is not empty, a valid call
    // instead inserts before the first item greater than vstrItem (so equal items keep their
    // order of arrival), or at vlngIndex when none is greater. NewIndex() becomes the position.
    void AddItem(const QString& vstrItem, int vlngIndex = -1);

    // Appends `text` with item data 0: the same result as AddItem(text, -1) (on a Sorted()
    // list it is exactly that), without a string copy. Returns false when the list could not
    // take it (no memory, or over the list's limits); that is recorded as AddItem records it.
    bool appendItem(QStringView text);
    // Makes room for `items` more items holding `units` more code units in all, so that the
    // appends that follow do not grow the storage step by step. False (nothing changed, nothing
    // recorded) when the memory or the list's limits do not allow it.
    bool reserveForAppend(qsizetype items, qsizetype units);

    // Empties the list and releases its storage; NewIndex() becomes -1.
    void Clear();

    // Scans from index 0 for an item equal to vstrItem ignoring case (vblnExactMatch) or
    // containing it ignoring case (an empty vstrItem is contained in every non-empty item).
    // Sets NewIndex() to the found index or -1 and returns whether one was found.
    bool FindItem(const QString& vstrItem, bool vblnExactMatch = false);

    // Finds the first item whose item data equals vlngItemData; NewIndex() is its index or -1.
    bool FindItemData(qint32 vlngItemData);

    // Reads the item data (index error "Get ItemData" yields 0).
    qint32 ItemData(int vlngIndex) const;
    // Writes the item data (index error "Let ItemData" changes nothing).
    void ItemData(int vlngIndex, qint32 vNewValue);
    // The item data of every item (element i belongs to item i), for bulk writers: writing
    // element i is the same as ItemData(i, value). Valid until items are added or removed.
    std::span<qint32> allItemData() { return {m_data.data(), static_cast<size_t>(ListCount())}; }

    // Reads the item text (index error "Get List" yields "").
    QString List(int vlngIndex) const;
    // The item text without a copy, for bulk readers. Precondition: 0 <= index < ListCount();
    // the view is valid until the list changes.
    QStringView itemView(int index) const { return m_texts.at(index); }
    // Replaces the item text, keeping its item data (index error "Let List" changes nothing).
    void List(int vlngIndex, const QString& vNewValue);

    // The number of items.
    int ListCount() const { return m_last + 1; }

    // The position of the last insertion or find (see each member); -1 when none.
    int NewIndex() const { return m_newIndex; }

    // Removes every item that equals an earlier item ignoring case; the first occurrence of
    // each value stays and the survivors keep their order.
    void RemoveDuplicates();

    // Removes item vlngIndex and its data (index error "RemoveItem" removes nothing).
    // NewIndex() becomes the new last index.
    void RemoveItem(int vlngIndex);

    // Removes every item equal to vstrItem ignoring case (an equality test, not a pattern).
    void RemoveItemsMatching(const QString& vstrItem);

    // Removes every item whose item data equals vlngItemData.
    void RemoveItemDataMatching(qint32 vlngItemData);

    // Whether AddItem inserts in ascending order. Setting it does not reorder the list.
    bool Sorted() const { return m_isSorted; }
    void Sorted(bool vblnNewValue) { m_isSorted = vblnNewValue; }

    // The item at NewIndex(), or "" when NewIndex() is negative or no longer valid.
    QString Text() const;

    // Sets NewIndex() to -1 and returns the first index other than ix whose item matches the
    // wildcard pattern vstrItem, or -1. Item data is neither read nor changed; ix is not
    // changed either.
    int FindStringOld(const QString& vstrItem, int ix);

    // Returns the first index whose item data is 0 and whose item matches the pattern, and
    // sets that item data to 1 (marks it used); -1 when there is none. NewIndex() is unchanged;
    // ix is not used.
    int FindString(const QString& vstrItem, int ix = 0);

    // FindString after setting NewIndex() to -1.
    int FindStringAll(const QString& vstrItem);

    // For every item: sets its data to 0, then, when each of its characters can be taken from
    // what remains of the pool vstrItem (exact characters, each pool letter used once) and the
    // item is longer than 3 characters, sets its data to its length. Returns "".
    QString FindRandom(const QString& vstrItem);

    // The number of slots the capacity rules above give; 0 when the storage is released.
    int capacity() const { return m_capacity; }

    // A value that changes whenever an item text, the number of items or their order changes
    // (item data changes leave it alone). Values are unique within the process: two lists with
    // the same revision hold the same texts in the same order (one is an unchanged copy of the
    // other), so an index built over a list stays valid while its revision is unchanged.
    quint64 revision() const { return m_revision; }

    // Bytes of storage the list holds (texts, their offsets and lengths, item data).
    qint64 storageBytes() const;

private:
    bool validIndex(int index) const { return index >= 0 && index <= m_last; }
    void indexError(const QString& function) const;
    void LogError(bool show, const ErrorRecord& record) const;
    void noteAppended();
    void noteRemoved();
    // Inserts at `position` (texts and data); false after recording a failure of AddItem.
    bool insertAt(int position, QStringView text);
    // At a point where the capacity shrank: gives back storage when a good share is unused.
    void tidyStorage();
    // Releases all storage, handing a large amount straight back to the system.
    void releaseStorage();
    // Removes the items for which `remove(i)` is true, keeping the order of the others and
    // applying the capacity rules as if they were removed one at a time from the end of the
    // scan. NewIndex() becomes the new last index when anything was removed.
    void removeWhere(const std::function<bool(int)>& remove);
    // Gives the list a new revision.
    void touch();

    TextStore m_texts;
    std::vector<qint32> m_data;
    int m_last = -1;
    int m_newIndex = -1;
    int m_capacity = 0;
    bool m_isSorted = false;
    quint64 m_revision = 0;
    Notifier* m_notifier = nullptr;
    Clock m_clock;
};
