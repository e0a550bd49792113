// A map from whole numbers (0 or more) to whole numbers for the few entries of a large word
// list that one puzzle request looks at: open addressing in one array, so it costs memory by
// the entries it holds, not by the size of the list, and no allocation per entry.
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <utility>
#include <vector>

class IntMap {
public:
    // The value of `key` (>= 0), inserting it with `fallback` when it is not there.
    int& findOrInsert(int key, int fallback) {
        if (2 * (m_size + 1) > m_slots.size())
            grow();
        size_t slot = slotOf(key);
        if (m_slots[slot].first != key) {
            m_slots[slot] = {key, fallback};
            ++m_size;
        }
        return m_slots[slot].second;
    }
    // The value of `key`, or nullptr.
    const int* find(int key) const {
        if (m_slots.empty())
            return nullptr;
        const auto& slot = m_slots[slotOf(key)];
        return slot.first == key ? &slot.second : nullptr;
    }
    // Empties the map; a small table stays for the next use, a large one is given back.
    void clear() {
        constexpr size_t kKeep = size_t{1} << 12;
        if (m_slots.size() > kKeep)
            std::vector<std::pair<int, int>>().swap(m_slots);
        else
            std::fill(m_slots.begin(), m_slots.end(), std::pair<int, int>{kEmpty, 0});
        m_size = 0;
    }

private:
    static constexpr int kEmpty = -1;

    size_t slotOf(int key) const {
        const size_t mask = m_slots.size() - 1;
        size_t slot = (static_cast<size_t>(key) * 0x9E3779B97F4A7C15ULL >> 20) & mask;
        while (m_slots[slot].first != kEmpty && m_slots[slot].first != key)
            slot = (slot + 1) & mask;
        return slot;
    }
    void grow() {
        std::vector<std::pair<int, int>> old(std::max<size_t>(64, 2 * m_slots.size()), {kEmpty, 0});
        old.swap(m_slots);
        for (const auto& [key, value] : old) {
            if (key != kEmpty)
                m_slots[slotOf(key)] = {key, value};
        }
    }

    std::vector<std::pair<int, int>> m_slots; // {kEmpty, _} marks a free slot
    size_t m_size = 0;
};
