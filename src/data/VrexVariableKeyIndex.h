#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

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
    explicit VrexVariableKeyIndex(const Entry* entries) : m_entries(entries) {
        std::memset(m_slots, FREE, sizeof m_slots);
    }
    VrexVariableKeyIndex(const Entry* entries, std::size_t count) : VrexVariableKeyIndex(entries) {
        for (std::size_t i = 0; i < count; ++i) {
            add(entries[i].key, i);
            m_seen |= std::uint64_t{1} << (entries[i].key & 63);
        }
    }
    /// False only for a key that is absent. Only for an index made of entries.
    [[nodiscard]] bool mayHold(std::uint64_t key) const { return (m_seen >> (key & 63) & 1) != 0; }
    /// Positions rise one by one from 0.
    void add(std::uint64_t key, std::size_t position) {
        m_slots[key & 63] = static_cast<std::uint8_t>(position);
        m_count = position + 1;
    }
    /// The position of `key`, or `NOWHERE`.
    [[nodiscard]] std::size_t find(std::uint64_t key) const {
        const std::size_t guess = m_slots[key & 63];
        if (guess == FREE) {
            return NOWHERE;
        }
        return m_entries[guess].key == key ? guess : search(m_entries, m_count, key);
    }

private:
    static constexpr std::uint8_t FREE = 255;

    [[gnu::noinline]] static std::size_t search(const Entry* entries, std::size_t count, std::uint64_t key) {
        for (std::size_t i = 0; i < count; ++i) {
            if (entries[i].key == key) {
                return i;
            }
        }
        return NOWHERE;
    }

    const Entry* m_entries;
    std::size_t m_count = 0;
    std::uint64_t m_seen = 0;
    std::uint8_t m_slots[64];
};
