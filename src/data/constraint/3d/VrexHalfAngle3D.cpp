#include "data/constraint/3d/VrexHalfAngle3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexCone3D.h"

VREX_OBJECT_BODY(VrexHalfAngle3D)

std::shared_ptr<VrexHalfAngle3D> VrexHalfAngle3D::create(const std::shared_ptr<VrexCone3D>& cone,
                                                         double value) {
    return VrexObjectAccess::make<VrexHalfAngle3D>(cone, value);
}

VrexHalfAngle3D::VrexHalfAngle3D(const std::shared_ptr<VrexCone3D>& cone, double value)
    : VrexDimension3D(VrexConstraint3DType::HalfAngle3D, value) {
    addArguments(cone);
}

int VrexHalfAngle3D::doc() const { return 1; }
