#include "data/constraint/equation/VrexExpressionEquation.h"

#include <utility>

#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexExpressionEquation)

std::shared_ptr<VrexExpressionEquation> VrexExpressionEquation::create(VrexEquationConditionType type) {
    return VrexObjectAccess::make<VrexExpressionEquation>(type);
}

std::shared_ptr<VrexExpressionEquation>
VrexExpressionEquation::create(std::vector<VrexVariableDescriptor> descriptors,
                               VrexEquationConditionType type, const std::string& text) {
    auto equation = create(type);
    equation->setDescriptors(std::move(descriptors));
    return equation->setExpression(text) ? equation : nullptr;
}

VrexExpressionEquation::VrexExpressionEquation(VrexEquationConditionType type) : VrexBaseEquation(type) {}

VrexExpressionEquation::VrexExpressionEquation(const VrexExpressionEquation& other)
    : VrexBaseEquation(other), m_parser(other.m_parser) {
    updateVariables();
}

void VrexExpressionEquation::setDescriptors(std::vector<VrexVariableDescriptor> descriptors) {
    VrexBaseEquation::setDescriptors(std::move(descriptors));
    updateVariables();
}

void VrexExpressionEquation::updateVariables() {
    m_variables.clear();
    for (const VrexVariableDescriptor& descriptor : descriptors()) {
        m_variables.push_back(VrexVar::create(descriptor.variableName(), descriptor.getValue()));
    }
    if (!expression().empty()) {
        setExpression(expression());
    }
}

bool VrexExpressionEquation::setExpression(const std::string& text) {
    return m_parser.setExpression(m_variables, text, true) && m_parser.isExpressionContainVars();
}

VrexVariable VrexExpressionEquation::evaluateInternal(const std::vector<VrexVariable>& args) {
    return m_parser.evaluateVar(args);
}

void VrexExpressionEquation::traverse(const std::function<void(std::shared_ptr<VrexExpr>)>& visitor) const {
    m_parser.traverse(visitor);
}
