#include "data/constraint/3d/VrexTangency3D.h"

#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexNullableGeometry.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

constexpr VrexGeometry3DTypeSet TOUCHING = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{LINE,         PLANE,        NURBS_SURFACE, CYLINDER,     SPHERE,
                                 CIRCLE,       SPLINE,       CONE,          ELLIPSE,      TORUS,
                                 SPIN_SURFACE, EVAL_SURFACE, EVAL_CURVE,    SWEEP_SURFACE};
}();

constexpr VrexGeometry3DTypeSet STRAIGHT{VrexGeometry3DType::LINE, VrexGeometry3DType::PLANE};

} // namespace

VREX_OBJECT_BODY(VrexTangency3D)

bool VrexTangency3D::canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    return TOUCHING.contains(type1) && TOUCHING.contains(type2) &&
           !(STRAIGHT.contains(type1) && STRAIGHT.contains(type2));
}

std::shared_ptr<VrexTangency3D> VrexTangency3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                       const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                       VrexGeometryComponentType component1,
                                                       VrexGeometryComponentType component2) {
    return VrexObjectAccess::make<VrexTangency3D>(geometry1, geometry2, component1, component2);
}

VrexTangency3D::VrexTangency3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                               const std::shared_ptr<VrexGeometry3D>& geometry2,
                               VrexGeometryComponentType component1, VrexGeometryComponentType component2)
    : VrexConstraint3D(VrexConstraint3DType::Tangency3D, component1, component2) {
    addArguments(geometry1, geometry2);
}

int VrexTangency3D::doc() const { return nsNullableGeometry::degreeOfContact(geometry(1), geometry(2)); }

bool VrexTangency3D::isHelpPointSupported() const { return true; }

bool VrexTangency3D::isHelpParameterSupported() const { return true; }
