#include "data/constraint/3d/VrexVariableFixation3D.h"

#include "data/VrexLog.h"
#include "data/VrexObjectBody.h"
#include "data/geometry/VrexGeometryVariable.h"

VREX_OBJECT_BODY(VrexVariableFixation3D)

std::shared_ptr<VrexVariableFixation3D>
VrexVariableFixation3D::create(const std::shared_ptr<VrexGeometryVariable>& variable) {
    return VrexObjectAccess::make<VrexVariableFixation3D>(variable);
}

VrexVariableFixation3D::VrexVariableFixation3D(const std::shared_ptr<VrexGeometryVariable>& variable)
    : VrexConstraint3D(VrexConstraint3DType::VariableFixation3D) {
    if (variable != nullptr) {
        addArguments(variable);
    }
}

int VrexVariableFixation3D::doc() const { return 1; }

std::shared_ptr<VrexGeometryVariable> VrexVariableFixation3D::variable() const {
    const auto& list = getGeometries();
    if (list.empty()) {
        VREX_LOG(nsLog::REFUSAL, "the variable fixation argument nonexistent");
        return nullptr;
    }
    return std::dynamic_pointer_cast<VrexGeometryVariable>(list.front());
}
