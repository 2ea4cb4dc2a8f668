#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"

/// A sum of weighted arguments and a constant, as the function of a `VrexCallbackEquation`.
class VREX_DATA_EXPORT VrexLinearEquationCallback {
public:
    VrexLinearEquationCallback(std::vector<double> coefficients, double constant);

    const std::vector<double>& coefficients() const { return m_coefficients; }
    double constant() const { return m_constant; }
    /// From the first argument to the last, the constant after them. Throws `std::runtime_error` "Size
    /// mismatch" unless there is one argument a coefficient.
    VrexVariable operator()(const std::vector<VrexVariable>& args) const;

private:
    std::vector<double> m_coefficients;
    double m_constant;
};
