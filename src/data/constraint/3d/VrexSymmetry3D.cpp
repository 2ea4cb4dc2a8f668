#include "data/constraint/3d/VrexSymmetry3D.h"

#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexNullableGeometry.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"
#include "data/geometry/3d/VrexPlane3D.h"

namespace {

constexpr VrexGeometry3DTypeSet MIRRORED = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{POINT, LINE,    PLANE, CYLINDER,     SPHERE,       CIRCLE,
                                 CONE,  ELLIPSE, TORUS, SPIN_SURFACE, SWEEP_SURFACE};
}();

} // namespace

VREX_OBJECT_BODY(VrexSymmetry3D)

bool VrexSymmetry3D::canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    return MIRRORED.contains(type1) && MIRRORED.contains(type2);
}

std::shared_ptr<VrexSymmetry3D> VrexSymmetry3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                       const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                       const std::shared_ptr<VrexPlane3D>& plane) {
    return VrexObjectAccess::make<VrexSymmetry3D>(geometry1, geometry2, plane);
}

VrexSymmetry3D::VrexSymmetry3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                               const std::shared_ptr<VrexGeometry3D>& geometry2,
                               const std::shared_ptr<VrexPlane3D>& plane)
    : VrexConstraint3D(VrexConstraint3DType::Symmetry3D) {
    addArguments(geometry1, geometry2, plane);
}

int VrexSymmetry3D::doc() const { return nsNullableGeometry::dofOf(geometry(1)); }

std::shared_ptr<VrexPlane3D> VrexSymmetry3D::symmetryPlane() const {
    return std::dynamic_pointer_cast<VrexPlane3D>(geometry(3));
}
