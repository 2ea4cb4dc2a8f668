#include "data/constraint/3d/VrexAngle3D.h"

#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexDirectedKinds.h"
#include "data/geometry/3d/VrexGeometry3D.h"

VREX_OBJECT_BODY(VrexAngle3D)

bool VrexAngle3D::canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    return DIRECTED_KINDS.contains(type1) && DIRECTED_KINDS.contains(type2);
}

std::shared_ptr<VrexAngle3D> VrexAngle3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                 const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                 double value) {
    return VrexObjectAccess::make<VrexAngle3D>(geometry1, geometry2, value);
}

VrexAngle3D::VrexAngle3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                         const std::shared_ptr<VrexGeometry3D>& geometry2, double value)
    : VrexDimension3D(VrexConstraint3DType::Angle3D, value) {
    addArguments(geometry1, geometry2);
}

int VrexAngle3D::doc() const { return 2; }
