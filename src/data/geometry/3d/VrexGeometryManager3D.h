#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/VrexGeometryManager.h"

class VrexPoint3D;
class VrexSpline3D;

/// The geometries of a system in space: it knows which kinds are built on others.
class VREX_DATA_EXPORT VrexGeometryManager3D : public VrexGeometryManager {
public:
    using VrexGeometryManager::VrexGeometryManager;
    /// Stores the geometry; enters the members of a rigid set into it, what they are built on left out; and
    /// registers a curve, surface, connector or pattern as a user of what it is built on.
    /// Kept: the relations are entered also for a geometry whose identifier is taken.
    void addGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) override;

    /// The stored splines that were fitted through this point.
    std::vector<std::shared_ptr<VrexSpline3D>>
    findRelatedInterpolatedSplines(const std::shared_ptr<VrexPoint3D>& point) const;
    /// Kept: whether anything uses the geometry, a pattern or not.
    bool hasRelatedPattern(std::uint64_t id) const;
    /// True for a geometry that is in no set, or in this one; otherwise the log says which set has it.
    bool isAllowedGeometryInsertTo(std::uint64_t id, std::uint64_t setId) const;
    /// Finds out anew who uses whom.
    /// Kept: evaluated curves are left out, so their uses are gone afterwards.
    void updateRelatedGeometries();
};
