#include "data/VrexVariable.h"
#include "data/VrexVariableKernels.h"
#include "data/VrexVariableLogging.h"

// The log is extended first: printing the right side may fail, and then nothing has changed.
// Values are read before anything is written, since the right side may be this variable.

VrexVariable& VrexVariable::operator+=(const VrexVariable& right) {
    const double b = right.m_value;
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundAdd);
    }
    nsVariableKernels::combineInto(
        m_derivatives, right.m_derivatives, [](double d, double db) { return d + db; },
        [](double db) { return db; });
    m_value += b;
    return *this;
}

VrexVariable& VrexVariable::operator-=(const VrexVariable& right) {
    const double b = right.m_value;
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundSubtract);
    }
    const auto rule = [](double d, double db) { return d - db; };
    nsVariableKernels::combineInto(m_derivatives, right.m_derivatives, rule,
                                   [rule](double db) { return rule(0.0, db); });
    m_value -= b;
    return *this;
}

VrexVariable& VrexVariable::operator*=(const VrexVariable& right) {
    const double a = m_value;
    const double b = right.m_value;
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundMultiply);
    }
    nsVariableKernels::combineInto(
        m_derivatives, right.m_derivatives, [a, b](double d, double db) { return b * d + db * a; },
        [a](double db) { return db * a; });
    m_value *= b;
    return *this;
}

VrexVariable& VrexVariable::operator/=(const VrexVariable& right) {
    const double a = m_value;
    const double b = right.m_value;
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundDivide);
    }
    const auto rule = [a, b](double d, double db) { return (b * d - db * a) / (b * b); };
    nsVariableKernels::combineInto(m_derivatives, right.m_derivatives, rule,
                                   [rule](double db) { return rule(0.0, db); });
    m_value = a / b;
    return *this;
}

VrexVariable& VrexVariable::operator+=(double right) {
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundAdd);
    }
    m_value += right;
    return *this;
}

VrexVariable& VrexVariable::operator-=(double right) {
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundSubtract);
    }
    m_value -= right;
    return *this;
}

VrexVariable& VrexVariable::operator*=(double right) {
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundMultiply);
    }
    for (Derivatives::Entry& entry : m_derivatives) {
        entry.value *= right;
    }
    m_value *= right;
    return *this;
}

VrexVariable& VrexVariable::operator/=(double right) {
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundDivide);
    }
    for (Derivatives::Entry& entry : m_derivatives) {
        entry.value /= right;
    }
    m_value /= right;
    return *this;
}
