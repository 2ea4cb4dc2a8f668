#pragma once

#include <memory>
#include <vector>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"

/// A system as those take it who see its objects through their bases.
namespace nsVrexSystemLists {

using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;
using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;

/// Entities, then free scalars.
inline Geometries geometriesOf(const VrexImmutableSystem3D& system) {
    Geometries all(system.geometries().begin(), system.geometries().end());
    all.insert(all.end(), system.variables().begin(), system.variables().end());
    return all;
}

/// Constraints, then equations.
inline Constraints constraintsOf(const VrexImmutableSystem3D& system) {
    Constraints all(system.constraints().begin(), system.constraints().end());
    all.insert(all.end(), system.equations().begin(), system.equations().end());
    return all;
}

} // namespace nsVrexSystemLists
