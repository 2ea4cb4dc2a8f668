#pragma once

#include <cstdint>
#include <unordered_map>

#include "data/VrexExport.h"
#include "data/base/VrexIDHash.h"
#include "data/base/VrexIDRelation.h"

/// Which set a geometry belongs to, by identifiers; 0 means none. A geometry belongs to one set at most.
class VREX_DATA_EXPORT VrexGeometrySetManager {
public:
    /// Enters the geometry, which leaves the set that it was in; false, and nothing changed, for a 0.
    bool addToSet(std::uint64_t id, std::uint64_t setId);
    /// 0 for a geometry that is in no set.
    std::uint64_t findSet(std::uint64_t id) const;
    /// False for a geometry that is in no set.
    bool removeGeometryFromSet(std::uint64_t id);
    /// Forgets `id` as a member, and as a set with all its members.
    void erase(std::uint64_t id);
    /// Takes every member out of the set.
    void eraseSet(std::uint64_t setId);
    void eraseAll();

private:
    std::unordered_map<std::uint64_t, std::uint64_t, VrexIDHash> m_sets;
    VrexIDRelation m_members; ///< The same pairs from set to geometries, to spare walks over all geometries.
};
