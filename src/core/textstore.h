// The texts of the word list kept compactly: all of them in one UTF-16 buffer, each item
// named by a 32-bit offset into it and a one-byte length (a longer text, from 255 code units
// on, has its length noted aside). A dictionary of millions of short words thus costs a few
// bytes per word beyond its characters, instead of a string object and a heap block each.
//
// Items are numbered 0..size()-1; their texts lie in the buffer in no particular order.
// Replacing or removing an item leaves its old characters unused in the buffer until
// compact() copies the used ones together; clear() releases everything. Operations that
// grow the store throw std::bad_alloc when memory runs out, and std::length_error when the
// buffer would pass 2^32 code units; either way the store is left as it was.
#pragma once

#include <QStringView>
#include <QtGlobal>

#include <unordered_map>
#include <vector>

class TextStore {
public:
    qsizetype size() const { return static_cast<qsizetype>(m_offsets.size()); }

    // The text of item i, valid until the store changes. Precondition: 0 <= i < size().
    QStringView at(qsizetype i) const {
        const auto k = static_cast<size_t>(i);
        const quint32 offset = m_offsets[k];
        const quint8 length = m_lengths[k];
        return QStringView(m_units.data() + offset,
                           length == kLong ? m_longLengths.at(offset) : qsizetype(length));
    }

    // Inserts `text` before item i (i == size() appends).
    void insert(qsizetype i, QStringView text);
    void append(QStringView text) { insert(size(), text); }
    // Replaces the text of item i.
    void replace(qsizetype i, QStringView text);
    // Removes item i.
    void erase(qsizetype i);
    // Keeps the items for which keep[i] is true, in order.
    void keepOnly(const std::vector<bool>& keep);

    // Makes room for `items` more items holding `units` more code units in all.
    void reserve(qsizetype items, qsizetype units);
    // Releases all storage.
    void clear();
    // Copies the used characters together in item order and fits every array to its
    // contents. Throws std::bad_alloc (leaving the store as it was) when there is no room.
    void compact();

    // Code units and array slots held but not used (what compact() would give back).
    qsizetype unusedUnits() const { return static_cast<qsizetype>(m_units.capacity()) - m_used; }
    qsizetype unusedSlots() const {
        return static_cast<qsizetype>(m_offsets.capacity() - m_offsets.size());
    }
    // Code units that items use.
    qsizetype usedUnits() const { return m_used; }
    // Bytes of storage held.
    qint64 storageBytes() const;

    // The most code units the buffer can hold (offsets are 32 bits).
    static constexpr qint64 kMaxUnits = 0xFFFF'FFFFLL;

private:
    static constexpr quint8 kLong = 0xFF; // the length is in m_longLengths

    qsizetype lengthOf(size_t k) const {
        return m_lengths[k] == kLong ? m_longLengths.at(m_offsets[k]) : m_lengths[k];
    }
    // Puts `text` at the end of the buffer; returns its offset.
    quint32 appendUnits(QStringView text);
    void forget(size_t k); // item k's characters are no longer used

    std::vector<char16_t> m_units;                        // the characters of every item
    std::vector<quint32> m_offsets;                       // where item i starts in m_units
    std::vector<quint8> m_lengths;                        // its length, or kLong
    qsizetype m_used = 0;                                 // units of m_units that items use
    std::unordered_map<quint32, qsizetype> m_longLengths; // by offset
};
