#include "data/constraint/3d/VrexIncidenceToCenter3D.h"

#include "data/constraint/3d/VrexPairBody.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

constexpr VrexGeometry3DTypeSet CENTRED = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{POINT, SPHERE, CIRCLE, CONE, ELLIPSE, TORUS};
}();

} // namespace

VREX_PAIR_BODY(VrexIncidenceToCenter3D, VrexConstraint3DType::IncidenceToCenter3D)

bool VrexIncidenceToCenter3D::canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    return CENTRED.contains(type1) && CENTRED.contains(type2);
}

int VrexIncidenceToCenter3D::doc() const { return 3; }
