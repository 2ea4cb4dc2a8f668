#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVariable.h"

/// Expects that the derivatives of `function` agree with central differences at `inputs`, and that its value
/// is the one that plain numbers give. `function` takes `const std::vector<T>&` and returns T, for double and
/// VrexVariable. A derivative may be off by `tolerance` times the larger of 1 and its size; the five-point
/// difference itself is good to about 1e-11 where the function's fifth derivative is of the size of its
/// first.
template <typename Function>
void expectDerivativesMatch(const Function& function, const std::vector<double>& inputs, double tolerance) {
    std::vector<VrexVariable> variables(inputs.begin(), inputs.end());
    VrexVariable::initializeDerivatives(variables);
    const VrexVariable result = function(variables);
    EXPECT_DOUBLE_EQ(result.value(), function(inputs));
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const double step = 1e-3 * std::max(1.0, std::fabs(inputs[i]));
        const auto at = [&](double steps) {
            std::vector<double> moved = inputs;
            moved[i] += steps * step;
            return static_cast<double>(function(moved));
        };
        const double slope = (8.0 * (at(1.0) - at(-1.0)) - (at(2.0) - at(-2.0))) / (12.0 * step);
        const auto& derivatives = result.derivatives();
        EXPECT_NEAR(derivatives[i], slope, tolerance * std::max(1.0, std::fabs(slope))) << "by input " << i;
    }
}
