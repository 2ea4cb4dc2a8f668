#include "data/geometry/VrexGeometryVariable.h"

#include <cmath>

#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexGeometryVariable)

std::shared_ptr<VrexGeometryVariable> VrexGeometryVariable::create(double value) {
    return VrexObjectAccess::make<VrexGeometryVariable>(value);
}

VrexGeometryVariable::VrexGeometryVariable(double value)
    : VrexBaseGeometry(VrexObjectType::Variable, PARAMETERS_AMOUNT) {
    setValue(value);
}

const char* VrexGeometryVariable::getNamePrefix() const { return "v"; }

int VrexGeometryVariable::dof() const { return 1; }

bool VrexGeometryVariable::checkChanged(double tolerance, double) const {
    const auto backup = getBackupAs<VrexGeometryVariable>();
    return backup != nullptr && std::fabs(getValue() - backup->getValue()) > tolerance;
}

void VrexGeometryVariable::setValue(double value) { setParameter(V, value); }
