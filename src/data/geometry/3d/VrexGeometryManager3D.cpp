#include "data/geometry/3d/VrexGeometryManager3D.h"

#include <algorithm>
#include <utility>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"

namespace {

/// The kinds whose uses are found out anew.
constexpr VrexGeometry3DTypeSet USERS{VrexGeometry3DType::NURBS_SURFACE, VrexGeometry3DType::SPLINE,
                                      VrexGeometry3DType::CONNECTOR,     VrexGeometry3DType::SPIN_SURFACE,
                                      VrexGeometry3DType::SWEEP_SURFACE, VrexGeometry3DType::PATTERN,
                                      VrexGeometry3DType::ARRAY_PATTERN};

/// The kinds whose uses are registered as they are added.
constexpr VrexGeometry3DTypeSet ADDED_USERS = USERS | VrexGeometry3DTypeSet{VrexGeometry3DType::EVAL_CURVE};

VrexGeometry3DType kindOf(const VrexBaseGeometry* geometry) {
    const auto* entity = dynamic_cast<const VrexGeometry3D*>(geometry);
    return entity != nullptr ? entity->type() : VrexGeometry3DType::UNKNOWN;
}

} // namespace

void VrexGeometryManager3D::addGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    VrexGeometryManager::addGeometry(geometry);
    const VrexGeometry3DType kind = kindOf(geometry.get());
    if (kind == VrexGeometry3DType::RIGID_SET) {
        enterMembers(*geometry);
    } else if (ADDED_USERS.contains(kind)) {
        initGeometryRelatedMap(geometry);
    }
}

std::vector<std::shared_ptr<VrexSpline3D>>
VrexGeometryManager3D::findRelatedInterpolatedSplines(const std::shared_ptr<VrexPoint3D>& point) const {
    std::vector<std::shared_ptr<VrexSpline3D>> splines;
    for (const auto& user : findRelatedGeometries(point)) {
        auto spline = std::dynamic_pointer_cast<VrexSpline3D>(user);
        if (spline != nullptr && std::ranges::find(spline->getInterpolatedPoints(), point) !=
                                     spline->getInterpolatedPoints().end()) {
            splines.push_back(std::move(spline));
        }
    }
    return splines;
}

bool VrexGeometryManager3D::hasRelatedPattern(std::uint64_t id) const { return m_relatedMap.contains(id); }

bool VrexGeometryManager3D::isAllowedGeometryInsertTo(std::uint64_t id, std::uint64_t setId) const {
    const std::uint64_t set = m_geometrySetManager.findSet(id);
    if (set == 0 || set == setId) {
        return true;
    }
    VREX_LOG(nsLog::REFUSAL, "Geometry(%llu) already in set(%llu).", static_cast<unsigned long long>(id),
             static_cast<unsigned long long>(set));
    return false;
}

void VrexGeometryManager3D::updateRelatedGeometries() {
    m_relatedMap.clear();
    for (const auto& [id, geometry] : getDataMap()) {
        if (USERS.contains(kindOf(geometry.get()))) {
            initGeometryRelatedMap(geometry);
        }
    }
}
