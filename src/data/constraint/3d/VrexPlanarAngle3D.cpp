#include "data/constraint/3d/VrexPlanarAngle3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexGeometry3D.h"

VREX_OBJECT_BODY(VrexPlanarAngle3D)

std::shared_ptr<VrexPlanarAngle3D> VrexPlanarAngle3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                             const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                             const std::shared_ptr<VrexGeometry3D>& geometry3,
                                                             double value) {
    return VrexObjectAccess::make<VrexPlanarAngle3D>(geometry1, geometry2, geometry3, value);
}

VrexPlanarAngle3D::VrexPlanarAngle3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                     const std::shared_ptr<VrexGeometry3D>& geometry2,
                                     const std::shared_ptr<VrexGeometry3D>& geometry3, double value)
    : VrexDimension3D(VrexConstraint3DType::PlanarAngle3D, value) {
    addArguments(geometry1, geometry2, geometry3);
}

int VrexPlanarAngle3D::doc() const { return 1; }
