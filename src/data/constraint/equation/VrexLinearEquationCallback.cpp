#include "data/constraint/equation/VrexLinearEquationCallback.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

#include "data/VrexLog.h"

VrexLinearEquationCallback::VrexLinearEquationCallback(std::vector<double> coefficients, double constant)
    : m_coefficients(std::move(coefficients)), m_constant(constant) {}

VrexVariable VrexLinearEquationCallback::operator()(const std::vector<VrexVariable>& args) const {
    if (m_coefficients.size() != args.size()) {
        VREX_RAISE(std::runtime_error, "Size mismatch");
    }
    if (args.empty()) {
        return m_constant;
    }
    VrexVariable sum = m_coefficients[0] * args[0];
    for (std::size_t i = 1; i < args.size(); ++i) {
        sum += m_coefficients[i] * args[i];
    }
    sum += m_constant;
    return sum;
}
