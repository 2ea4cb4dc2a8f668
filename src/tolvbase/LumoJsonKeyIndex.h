#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

class LumoJson;

/// Finds the members of a large object by key: open addressing over the places of their values.
///
/// Its hash takes a secret of the process, so a document cannot choose keys that crowd the same slots.
/// It stores places only; the keys stay in the object's list of keys and values, which every call names.
class LumoJsonKeyIndex {
public:
    static constexpr std::size_t NOT_FOUND = std::numeric_limits<std::size_t>::max();

    explicit LumoJsonKeyIndex(std::span<const LumoJson> keysAndValues);

    /// The place of the value that belongs to the key, or `NOT_FOUND`.
    [[nodiscard]] std::size_t find(std::span<const LumoJson> keysAndValues, std::string_view key) const;
    /// Enters a key that is not there yet, for the value that will stand at `place`.
    void add(std::span<const LumoJson> keysAndValues, std::string_view key, std::size_t place);

    /// The most slots that a key stands behind its own, plus one: what the slowest look-up compares.
    [[nodiscard]] std::size_t longestProbe() const;

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t member = 0; ///< Number of the member, from 1; 0 marks a free slot.
    };

    void rebuild(std::span<const LumoJson> keysAndValues, std::size_t slotCount);
    void enter(std::uint32_t hash, std::uint32_t member);

    std::vector<Slot> m_slots;
    std::size_t m_size = 0;
};
