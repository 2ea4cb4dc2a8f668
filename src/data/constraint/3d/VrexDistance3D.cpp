#include "data/constraint/3d/VrexDistance3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexGeometry3D.h"

VREX_OBJECT_BODY(VrexDistance3D)

std::shared_ptr<VrexDistance3D> VrexDistance3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                       const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                       double value, VrexGeometryComponentType component1,
                                                       VrexGeometryComponentType component2) {
    return VrexObjectAccess::make<VrexDistance3D>(geometry1, geometry2, value, component1, component2);
}

VrexDistance3D::VrexDistance3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                               const std::shared_ptr<VrexGeometry3D>& geometry2, double value,
                               VrexGeometryComponentType component1, VrexGeometryComponentType component2)
    : VrexDimension3D(VrexConstraint3DType::Distance3D, value, component1, component2) {
    addArguments(geometry1, geometry2);
}

int VrexDistance3D::doc() const { return 1; }

bool VrexDistance3D::isHelpPointSupported() const { return true; }

bool VrexDistance3D::isHelpParameterSupported() const { return true; }
