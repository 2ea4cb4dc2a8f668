#include "data/constraint/3d/VrexEqualDimensionValue3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"

VREX_OBJECT_BODY(VrexEqualDimensionValue3D)

std::shared_ptr<VrexEqualDimensionValue3D>
VrexEqualDimensionValue3D::create(const std::shared_ptr<VrexEqualDimensionElement3D>& element, double value) {
    return VrexObjectAccess::make<VrexEqualDimensionValue3D>(element, value);
}

VrexEqualDimensionValue3D::VrexEqualDimensionValue3D(
    const std::shared_ptr<VrexEqualDimensionElement3D>& element, double value)
    : VrexDimension3D(VrexConstraint3DType::EqualDimensionValue3D, value) {
    addArguments(element);
}

int VrexEqualDimensionValue3D::doc() const { return 1; }
