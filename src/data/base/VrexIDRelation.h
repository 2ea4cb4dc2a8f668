#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "data/VrexExport.h"
#include "data/base/VrexIDHash.h"

/// Which identifiers belong to an identifier: users to what they use, members to their set. Each operation on
/// one pair takes constant time on average, however many belong to one key; taking and erasing a key, time in
/// proportion to what belongs to it.
class VREX_DATA_EXPORT VrexIDRelation {
public:
    void add(std::uint64_t key, std::uint64_t id);
    /// Forgets one pair, if it is there; the key goes with its last identifier.
    void remove(std::uint64_t key, std::uint64_t id);
    /// The same, but the key stays, with nothing that belongs to it.
    void removeKeepingKey(std::uint64_t key, std::uint64_t id);
    /// Forgets the key, if it is there, and tells what belonged to it, in no order.
    std::vector<std::uint64_t> take(std::uint64_t key);

    bool contains(std::uint64_t key) const { return m_few.contains(key) || m_many.contains(key); }
    /// What belongs to the key, rising; a copy, which outlives every change.
    std::vector<std::uint64_t> find(std::uint64_t key) const;
    void erase(std::uint64_t key);
    void clear();

private:
    /// Up to so many are looked through one by one, which is faster than a hash and takes less memory.
    static constexpr std::size_t FEW = 16;
    using Few = std::vector<std::uint64_t>;
    using Many = std::unordered_set<std::uint64_t, VrexIDHash>;

    std::vector<std::uint64_t> findUnordered(std::uint64_t key) const;

    /// A key is in one of the two, and stays with the many until it goes.
    std::unordered_map<std::uint64_t, Few, VrexIDHash> m_few;
    std::unordered_map<std::uint64_t, Many, VrexIDHash> m_many;
};
