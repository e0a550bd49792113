// The compact store of the word list's texts; see textstore.h.
#include "core/textstore.h"

#include <QString>

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace {

// Grows `v` geometrically so that `more` elements fit; the contents stay.
template <typename T> void makeRoom(std::vector<T>& v, size_t more) {
    const size_t needed = v.size() + more;
    if (needed <= v.capacity())
        return;
    v.reserve(std::max(needed, v.capacity() + v.capacity() / 2));
}

} // namespace

quint32 TextStore::appendUnits(QStringView text) {
    const auto* source = reinterpret_cast<const char16_t*>(text.utf16());
    const std::less<const char16_t*> before;
    if (!before(source, m_units.data()) && before(source, m_units.data() + m_units.size())) {
        const QString copy = text.toString(); // growing the buffer would move the source
        return appendUnits(copy);
    }
    const auto size = static_cast<size_t>(text.size());
    if (static_cast<qint64>(m_units.size() + size) > kMaxUnits)
        throw std::length_error("Overflow");
    makeRoom(m_units, size);
    const auto offset = static_cast<quint32>(m_units.size());
    const auto* begin = reinterpret_cast<const char16_t*>(text.utf16());
    m_units.insert(m_units.end(), begin, begin + size);
    return offset;
}

void TextStore::insert(qsizetype i, QStringView text) {
    const size_t oldUnits = m_units.size();
    const quint32 offset = appendUnits(text);
    const auto at = static_cast<std::ptrdiff_t>(i);
    const bool isLong = text.size() >= kLong;
    try {
        makeRoom(m_offsets, 1);
        makeRoom(m_lengths, 1);
        if (isLong)
            m_longLengths.emplace(offset, text.size());
    } catch (...) {
        m_units.resize(oldUnits);
        throw;
    }
    // No allocation below: room was made.
    m_offsets.insert(m_offsets.begin() + at, offset);
    m_lengths.insert(m_lengths.begin() + at, isLong ? kLong : static_cast<quint8>(text.size()));
    m_used += text.size();
}

void TextStore::replace(qsizetype i, QStringView text) {
    const auto k = static_cast<size_t>(i);
    const size_t oldUnits = m_units.size();
    const quint32 offset = appendUnits(text);
    const bool isLong = text.size() >= kLong;
    if (isLong) {
        try {
            m_longLengths.emplace(offset, text.size());
        } catch (...) {
            m_units.resize(oldUnits);
            throw;
        }
    }
    forget(k);
    m_offsets[k] = offset;
    m_lengths[k] = isLong ? kLong : static_cast<quint8>(text.size());
    m_used += text.size();
}

void TextStore::forget(size_t k) {
    m_used -= lengthOf(k);
    if (m_lengths[k] == kLong)
        m_longLengths.erase(m_offsets[k]);
}

void TextStore::erase(qsizetype i) {
    const auto k = static_cast<size_t>(i);
    forget(k);
    m_offsets.erase(m_offsets.begin() + static_cast<std::ptrdiff_t>(i));
    m_lengths.erase(m_lengths.begin() + static_cast<std::ptrdiff_t>(i));
}

void TextStore::keepOnly(const std::vector<bool>& keep) {
    size_t kept = 0;
    for (size_t k = 0; k < m_offsets.size(); ++k) {
        if (!keep[k]) {
            forget(k);
            continue;
        }
        m_offsets[kept] = m_offsets[k];
        m_lengths[kept] = m_lengths[k];
        ++kept;
    }
    m_offsets.resize(kept);
    m_lengths.resize(kept);
}

void TextStore::reserve(qsizetype items, qsizetype units) {
    if (static_cast<qint64>(m_units.size()) + units > kMaxUnits)
        throw std::length_error("Overflow");
    m_units.reserve(m_units.size() + static_cast<size_t>(units));
    m_offsets.reserve(m_offsets.size() + static_cast<size_t>(items));
    m_lengths.reserve(m_lengths.size() + static_cast<size_t>(items));
}

void TextStore::clear() {
    std::vector<char16_t>().swap(m_units);
    std::vector<quint32>().swap(m_offsets);
    std::vector<quint8>().swap(m_lengths);
    std::unordered_map<quint32, qsizetype>().swap(m_longLengths);
    m_used = 0;
}

void TextStore::compact() {
    std::vector<char16_t> units;
    units.reserve(static_cast<size_t>(m_used));
    std::unordered_map<quint32, qsizetype> longLengths;
    longLengths.reserve(m_longLengths.size());
    std::vector<quint32> offsets(m_offsets.size());
    for (size_t k = 0; k < m_offsets.size(); ++k) {
        const QStringView text = at(static_cast<qsizetype>(k));
        offsets[k] = static_cast<quint32>(units.size());
        if (m_lengths[k] == kLong)
            longLengths.emplace(offsets[k], text.size());
        const auto* begin = reinterpret_cast<const char16_t*>(text.utf16());
        units.insert(units.end(), begin, begin + text.size());
    }
    std::vector<quint8> lengths(m_lengths.begin(), m_lengths.end());
    m_units.swap(units);
    m_offsets.swap(offsets);
    m_lengths.swap(lengths);
    m_longLengths.swap(longLengths);
}

qint64 TextStore::storageBytes() const {
    return static_cast<qint64>(m_units.capacity() * sizeof(char16_t) +
                               m_offsets.capacity() * sizeof(quint32) + m_lengths.capacity());
}
