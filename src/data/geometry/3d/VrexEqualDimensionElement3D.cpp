#include "data/geometry/3d/VrexEqualDimensionElement3D.h"

#include <cmath>

#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexEqualDimensionElement3D)

std::shared_ptr<VrexEqualDimensionElement3D> VrexEqualDimensionElement3D::create(double value) {
    return VrexObjectAccess::make<VrexEqualDimensionElement3D>(value);
}

VrexEqualDimensionElement3D::VrexEqualDimensionElement3D(double value)
    : VrexGeometry3D(VrexGeometry3DType::EQUAL_DIMENSION_ELEMENT, PARAMETERS_AMOUNT) {
    setValue(value);
}

const char* VrexEqualDimensionElement3D::getNamePrefix() const { return "eq_d_ele"; }

int VrexEqualDimensionElement3D::dof() const { return 1; }

bool VrexEqualDimensionElement3D::checkChanged(double tolerance, double) const {
    const auto backup = getBackupAs<VrexEqualDimensionElement3D>();
    return backup != nullptr && std::fabs(getValue() - backup->getValue()) > tolerance;
}

void VrexEqualDimensionElement3D::setValue(double value) { setParameter(VALUE, value); }
