#include "data/geometry/3d/VrexEvaluatedShape3D.h"

#include <algorithm>
#include <utility>

VrexEvaluatedShape3D::VrexEvaluatedShape3D(std::span<const char* const> parameterNames)
    : m_parameterNames(parameterNames) {}

VrexEvaluatedShape3D::VrexEvaluatedShape3D(const VrexEvaluatedShape3D& other)
    : m_parsers(other.m_parsers),
      m_descriptors(other.m_descriptors),
      m_parameterNames(other.m_parameterNames) {
    if (!other.m_variables.empty()) {
        updateVariables(true);
    }
}

bool VrexEvaluatedShape3D::set(const std::string& x, const std::string& y, const std::string& z,
                               std::vector<VrexVariableDescriptor> descriptors) {
    const std::array<std::string, 3> texts{x, y, z}; // copies: they may be the shape's own
    m_descriptors = std::move(descriptors);
    updateVariables(false);
    return setText(X, texts[X]) && setText(Y, texts[Y]) && setText(Z, texts[Z]);
}

bool VrexEvaluatedShape3D::setText(std::size_t coordinate, const std::string& text) {
    if (m_variables.empty()) {
        updateVariables(true);
    }
    return m_parsers[coordinate].setExpression(m_variables, text, true);
}

void VrexEvaluatedShape3D::setDescriptors(std::vector<VrexVariableDescriptor> descriptors) {
    m_descriptors = std::move(descriptors);
    updateVariables(true);
}

std::shared_ptr<VrexVar> VrexEvaluatedShape3D::getParameter(std::size_t index) const {
    return index < m_variables.size() ? m_variables[index] : nullptr;
}

void VrexEvaluatedShape3D::updateVariables(bool reparse) {
    m_variables.clear();
    for (const char* name : m_parameterNames) {
        m_variables.push_back(VrexVar::create(name, 0.0));
    }
    for (const VrexVariableDescriptor& descriptor : m_descriptors) {
        m_variables.push_back(VrexVar::create(descriptor.variableName(), descriptor.getValue()));
    }
    if (!reparse) {
        return;
    }
    for (VrexExpressionParser& parser : m_parsers) {
        if (const std::string text = parser.getExpression(); !text.empty()) {
            parser.setExpression(m_variables, text, true);
        }
    }
}

bool VrexEvaluatedShape3D::isChanged(double tolerance) const {
    return std::any_of(m_descriptors.begin(), m_descriptors.end(),
                       [tolerance](const auto& descriptor) { return descriptor.checkChanged(tolerance); });
}
