#pragma once

#include <cstddef>
#include <cstdint>

#include "data/VrexMiniMap.h"

/// Finds the keys of at most `MOST` entries, on the stack.
///
/// The low six bits of a key name the slot that says where to look; only keys that share them are searched
/// for.
class VrexVariableKeyIndex {
public:
    using Entry = VrexMiniMap<std::uint64_t, double, 10>::Entry;
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);
    static constexpr std::size_t MOST = 64;

    /// Empty; positions count from `entries`, which must outlive the index.
    explicit VrexVariableKeyIndex(const Entry* entries) : m_entries(entries) {}
    VrexVariableKeyIndex(const Entry* entries, std::size_t count) : VrexVariableKeyIndex(entries) {
        for (std::size_t i = 0; i < count; ++i) {
            add(entries[i].key, i);
        }
    }
    /// Positions rise one by one from 0.
    void add(std::uint64_t key, std::size_t position) {
        m_slots[key & 63] = static_cast<std::uint8_t>(position);
        m_seen |= std::uint64_t{1} << (key & 63);
    }
    /// False only for a key that is absent.
    [[nodiscard]] bool mayHold(std::uint64_t key) const { return (m_seen >> (key & 63) & 1) != 0; }
    /// The position of `key`, or `NOWHERE`. Of the keys that share a slot the slot names the last.
    [[nodiscard]] std::size_t find(std::uint64_t key) const {
        if (!mayHold(key)) {
            return NOWHERE;
        }
        std::size_t position = m_slots[key & 63];
        while (m_entries[position].key != key) {
            if (position == 0) {
                return NOWHERE;
            }
            --position;
        }
        return position;
    }

private:
    const Entry* m_entries;
    std::uint64_t m_seen = 0;
    std::uint8_t m_slots[64]; // raw where the bit of the slot is not set
};
