#include "data/geometry/VrexGeometryFactory.h"

#include "data/base/VrexRefusal.h"
#include "data/geometry/VrexGeometryVariable.h"

std::shared_ptr<VrexGeometryVariable> VrexGeometryFactory::createVariable(double value) const {
    auto variable = VrexGeometryVariable::create(value);
    if (variable == nullptr) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::CHECK_GEOMETRY_FAILURE,
                    "Failed to create the variable, variable isnot available.");
        return nullptr;
    }
    assignID(*variable);
    return variable;
}
