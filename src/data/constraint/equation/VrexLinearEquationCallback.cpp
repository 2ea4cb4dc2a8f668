#include "data/constraint/equation/VrexLinearEquationCallback.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

#include "data/VrexLog.h"
#include "data/VrexVariableInPlaceKernels.h"

namespace {

/// sum += factor * arg
inline void addScaled(VrexVariable& sum, double factor, const VrexVariable& arg) {
    if (!sum.hasLog() && !arg.hasLog() &&
        nsVariableKernels::addScaledInPlace(sum.derivatives(), arg.derivatives(), factor)) [[likely]] {
        sum.setValue(sum.value() + factor * arg.value());
    } else {
        sum += factor * arg;
    }
}

/// Of at least one argument.
VrexVariable weightedSum(const std::vector<double>& coefficients, const std::vector<VrexVariable>& args,
                         double constant) {
    // The only return, so that the sum grows in its caller's place.
    VrexVariable sum = coefficients[0] * args[0];
    for (std::size_t i = 1; i < args.size(); ++i) {
        addScaled(sum, coefficients[i], args[i]);
    }
    sum += constant;
    return sum;
}

} // namespace

VrexLinearEquationCallback::VrexLinearEquationCallback(std::vector<double> coefficients, double constant)
    : m_coefficients(std::move(coefficients)), m_constant(constant) {}

VrexVariable VrexLinearEquationCallback::operator()(const std::vector<VrexVariable>& args) const {
    if (m_coefficients.size() != args.size()) {
        VREX_RAISE(std::runtime_error, "Size mismatch");
    }
    return args.empty() ? VrexVariable(m_constant) : weightedSum(m_coefficients, args, m_constant);
}
