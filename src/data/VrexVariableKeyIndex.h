#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "data/VrexMiniMap.h"

/// Finds keys in a run of at most `MOST` entries, on the stack. The entries must outlive it.
///
/// A bit for the low six bits of each key tells most absent keys without a look, and the slot of a seen bit
/// says where to look first. Only keys that share their low bits are searched for.
class VrexVariableKeyIndex {
public:
    using Entry = VrexMiniMap<std::uint64_t, double, 10>::Entry;
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);
    static constexpr std::size_t MOST = 32;

    VrexVariableKeyIndex(const Entry* entries, std::size_t count) : m_entries(entries), m_count(count) {
        for (std::size_t i = 0; i < count; ++i) {
            const unsigned low = entries[i].key & 63;
            m_seen |= std::uint64_t{1} << low;
            m_slots[low] = static_cast<std::uint8_t>(i);
        }
    }
    /// The position of `key`, or `NOWHERE`.
    [[nodiscard]] std::size_t find(std::uint64_t key) const {
        if ((m_seen >> (key & 63) & 1) == 0) {
            return NOWHERE;
        }
        const std::size_t guess = m_slots[key & 63];
        return m_entries[guess].key == key ? guess : search(key);
    }

private:
    [[nodiscard]] std::size_t search(std::uint64_t key) const {
        for (std::size_t i = 0; i < m_count; ++i) {
            if (m_entries[i].key == key) {
                return i;
            }
        }
        return NOWHERE;
    }

    const Entry* m_entries;
    std::size_t m_count;
    std::uint64_t m_seen = 0;
    std::array<std::uint8_t, 64> m_slots; // raw where the bit is not seen
};
