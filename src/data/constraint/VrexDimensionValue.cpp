#include "data/constraint/VrexDimensionValue.h"

#include "data/geometry/VrexGeometryVariable.h"

double VrexDimensionValue::get() const {
    const auto bound = m_variable.lock();
    return bound != nullptr ? bound->getValue() : m_value;
}

void VrexDimensionValue::set(double value) {
    if (const auto bound = m_variable.lock()) {
        bound->setValue(value);
    } else {
        m_value = value;
    }
}

void VrexDimensionValue::bindVariable(const std::shared_ptr<VrexGeometryVariable>& variable) {
    m_variable = variable;
}

std::shared_ptr<VrexGeometryVariable> VrexDimensionValue::variable() const { return m_variable.lock(); }
