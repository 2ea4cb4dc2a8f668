#include "tools/vrex/VrexDegrees.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/geometry/3d/VrexGeometry3D.h"

namespace {

using Type = VrexGeometry3DType;

Type typeOf(const VrexBaseGeometry& geometry) {
    const auto* const entity = dynamic_cast<const VrexGeometry3D*>(&geometry);
    return entity != nullptr ? entity->type() : Type::UNKNOWN;
}

/// Whether the freedom of the kind is also that of what it is built on.
bool isCarrier(Type type) {
    switch (type) {
    case Type::RIGID_SET:
    case Type::SPLINE:
    case Type::NURBS_SURFACE:
    case Type::SPIN_SURFACE:
    case Type::SWEEP_SURFACE:
        return true;
    default:
        return false;
    }
}

} // namespace

VrexDegrees::VrexDegrees(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries) {
    const auto addressOf = [](const auto& part) { return part.get(); };
    for (const auto& geometry : geometries) {
        const Type type = typeOf(*geometry);
        if (isCarrier(type)) {
            std::ranges::transform(geometry->getGeometries(), std::inserter(m_carried, m_carried.end()),
                                   addressOf);
        } else if (type == Type::CONNECTOR && !geometry->getGeometries().empty()) {
            m_carried.insert(geometry.get());
        }
    }
}

int VrexDegrees::of(const VrexBaseGeometry& geometry) const {
    return m_carried.contains(&geometry) ? 0 : geometry.dof();
}

int VrexDegrees::of(const VrexBaseConstraint& constraint) {
    try {
        return constraint.doc();
    } catch (const std::runtime_error&) {
        return 0;
    }
}
