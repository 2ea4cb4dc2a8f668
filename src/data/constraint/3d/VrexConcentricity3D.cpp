#include "data/constraint/3d/VrexConcentricity3D.h"

#include <cstdint>

#include "data/constraint/3d/VrexNullableGeometry.h"
#include "data/constraint/3d/VrexPairBody.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

constexpr VrexGeometry3DTypeSet CENTRED = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{POINT, LINE, CYLINDER, SPHERE, CIRCLE, CONE, ELLIPSE, TORUS, SPIN_SURFACE};
}();

constexpr VrexGeometry3DTypeSet POINT_LIKE{VrexGeometry3DType::POINT, VrexGeometry3DType::SPHERE};

} // namespace

VREX_PAIR_BODY(VrexConcentricity3D, VrexConstraint3DType::Concentricity3D)

bool VrexConcentricity3D::canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    return CENTRED.contains(type1) && CENTRED.contains(type2);
}

int VrexConcentricity3D::doc() const {
    constexpr int degrees[] = {4, 2, 3};
    const auto isPointLike = [this](std::uint32_t number) {
        return POINT_LIKE.contains(nsNullableGeometry::typeOf(geometry(number))) ? 1 : 0;
    };
    return degrees[isPointLike(1) + isPointLike(2)];
}
