#include "data/constraint/3d/VrexConstraintManager3D.h"

#include <vector>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/geometry/VrexGeometryVariable.h"

void VrexConstraintManager3D::removeFromReleatedDimension(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    // The caller's pointer may be the one in a dimension's list, which unbinding erases.
    const std::shared_ptr<VrexBaseGeometry> variable = geometry; // NOLINT(performance-unnecessary-copy-*)
    std::vector<std::uint64_t> unbound;
    for (const auto& constraint : findRelatedConstraints(variable)) {
        const auto dimension = std::dynamic_pointer_cast<VrexDimension3D>(constraint);
        if (dimension != nullptr && dimension->getVariable() == variable) {
            dimension->bindVariable(nullptr);
            dimension->setDirty(true);
            unbound.push_back(dimension->getID());
        }
    }
    if (!unbound.empty()) {
        removeRelatedMap(variable, unbound);
    }
}

bool VrexConstraintManager3D::update(std::uint64_t id, const std::function<bool(VrexConstraint3D&)>& change) {
    const auto stored = std::dynamic_pointer_cast<VrexConstraint3D>(findData(id));
    if (stored == nullptr) {
        return refuseConstraintId(id);
    }
    const bool changed = change(*stored);
    if (changed) {
        stored->setDirty(true);
    }
    return changed;
}
