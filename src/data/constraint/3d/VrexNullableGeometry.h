#pragma once

#include <memory>

#include "data/geometry/3d/VrexGeometry3D.h"

/// Hidden: what constraints read of a geometry that may be missing.
namespace nsNullableGeometry {

/// `UNKNOWN` without a geometry.
inline VrexGeometry3DType typeOf(const std::shared_ptr<VrexGeometry3D>& geometry) {
    return geometry == nullptr ? VrexGeometry3DType::UNKNOWN : geometry->type();
}

/// 0 without a geometry.
inline int dofOf(const std::shared_ptr<VrexGeometry3D>& geometry) {
    return geometry == nullptr ? 0 : geometry->dof();
}

/// The degree of a constraint that lays one geometry onto the other: all of the first one's freedom where
/// both are of one type, otherwise 1.
inline int degreeOfContact(const std::shared_ptr<VrexGeometry3D>& geometry1,
                           const std::shared_ptr<VrexGeometry3D>& geometry2) {
    return typeOf(geometry1) == typeOf(geometry2) ? dofOf(geometry1) : 1;
}

} // namespace nsNullableGeometry
