#include "data/VrexVariable.h"
#include "data/VrexVariableInPlaceKernels.h"
#include "data/VrexVariableLogging.h"

// What may fail comes first, so that a failure has changed nothing: making the log's entries and its room,
// then making room in the store. Values are read before anything is written, since the right side may be this
// variable.

namespace {

/// Any sum but the one that `addInPlace` makes.
[[gnu::noinline]] void addOther(VrexVariable& target, const VrexVariable& right) {
    if (target.hasLog()) {
        return VrexVariableLogging::applyCompound(target, right, VrexLogOperationType::CompoundAdd,
                                                  &VrexVariable::operator+=);
    }
    const double value = target.value() + right.value();
    nsVariableKernels::combineInto(
        target.derivatives(), right.derivatives(), [](double d, double db) { return d + db; },
        [](double db) { return db; });
    target.setValue(value);
}

} // namespace

VrexVariable& VrexVariable::operator+=(const VrexVariable& right) {
    if (m_log == nullptr && nsVariableKernels::addInPlace(m_derivatives, right.m_derivatives)) [[likely]] {
        m_value += right.m_value;
    } else {
        addOther(*this, right);
    }
    return *this;
}

VrexVariable& VrexVariable::operator-=(const VrexVariable& right) {
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::applyCompound(*this, right, VrexLogOperationType::CompoundSubtract,
                                           &VrexVariable::operator-=);
        return *this;
    }
    const double b = right.m_value;
    const auto rule = [](double d, double db) { return d - db; };
    nsVariableKernels::combineInto(m_derivatives, right.m_derivatives, rule,
                                   [rule](double db) { return rule(0.0, db); });
    m_value -= b;
    return *this;
}

VrexVariable& VrexVariable::operator*=(const VrexVariable& right) {
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::applyCompound(*this, right, VrexLogOperationType::CompoundMultiply,
                                           &VrexVariable::operator*=);
        return *this;
    }
    const double a = m_value;
    const double b = right.m_value;
    nsVariableKernels::combineInto(
        m_derivatives, right.m_derivatives, [a, b](double d, double db) { return b * d + db * a; },
        [a](double db) { return db * a; });
    m_value *= b;
    return *this;
}

VrexVariable& VrexVariable::operator/=(const VrexVariable& right) {
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::applyCompound(*this, right, VrexLogOperationType::CompoundDivide,
                                           &VrexVariable::operator/=);
        return *this;
    }
    const double a = m_value;
    const double b = right.m_value;
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
    nsVariableKernels::update(m_derivatives, [right](double d) { return d * right; });
    m_value *= right;
    return *this;
}

VrexVariable& VrexVariable::operator/=(double right) {
    if (m_log != nullptr) [[unlikely]] {
        VrexVariableLogging::recordCompound(*this, right, VrexLogOperationType::CompoundDivide);
    }
    nsVariableKernels::update(m_derivatives, [right](double d) { return d / right; });
    m_value /= right;
    return *this;
}
