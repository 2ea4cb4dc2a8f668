#include "data/constraint/equation/VrexCallbackEquation.h"

#include <utility>

#include "data/VrexLog.h"
#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexCallbackEquation)

std::shared_ptr<VrexCallbackEquation> VrexCallbackEquation::create(VrexEquationConditionType type,
                                                                   Callback callback) {
    return VrexObjectAccess::make<VrexCallbackEquation>(type, std::move(callback));
}

std::shared_ptr<VrexCallbackEquation>
VrexCallbackEquation::create(std::vector<VrexVariableDescriptor> descriptors, VrexEquationConditionType type,
                             Callback callback) {
    auto equation = create(type, std::move(callback));
    equation->setDescriptors(std::move(descriptors));
    return equation;
}

VrexCallbackEquation::VrexCallbackEquation(VrexEquationConditionType type, Callback callback)
    : VrexBaseEquation(type), m_callback(std::move(callback)) {}

VrexVariable VrexCallbackEquation::evaluateInternal(const std::vector<VrexVariable>& args) {
    if (m_callback == nullptr) {
        nsLog::writeFailure(VREX_HERE, __PRETTY_FUNCTION__, std::bad_function_call().what());
    }
    return m_callback(args);
}
