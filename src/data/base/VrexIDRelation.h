#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "data/VrexExport.h"
#include "data/base/VrexIDHash.h"

/// Which identifiers belong to an identifier: users to what they use, members to their set. Each operation on
/// one pair takes constant time on average, however many belong to one key.
class VREX_DATA_EXPORT VrexIDRelation {
public:
    using Ids = std::unordered_set<std::uint64_t, VrexIDHash>;

    void add(std::uint64_t key, std::uint64_t id) { m_map[key].insert(id); }
    /// Forgets one pair, if it is there; the key goes with its last identifier.
    void remove(std::uint64_t key, std::uint64_t id);
    /// The same, but the key stays, with nothing that belongs to it.
    void removeKeepingKey(std::uint64_t key, std::uint64_t id);
    /// Forgets the key, if it is there, and tells what belonged to it, rising.
    std::vector<std::uint64_t> take(std::uint64_t key);

    bool contains(std::uint64_t key) const { return m_map.contains(key); }
    /// What belongs to the key, rising; a copy, which outlives every change.
    std::vector<std::uint64_t> find(std::uint64_t key) const;
    void erase(std::uint64_t key) { m_map.erase(key); }
    void clear() { m_map.clear(); }

private:
    std::unordered_map<std::uint64_t, Ids, VrexIDHash> m_map;
};
