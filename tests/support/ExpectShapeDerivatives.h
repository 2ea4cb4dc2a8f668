#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexBaseObject.h"
#include "data/VrexVariable.h"
#include "data/VrexVariableDescriptor.h"
#include "data/VrexVector3DT.h"

/// Central differences for what curves and surfaces give: vectors.
namespace nsShapeDerivatives {

using Vector = VrexVector3DT<double>;

constexpr double STEP = 1e-3;

/// The five-point difference of a vector function at 0, good to about 1e-11 of the function's size.
template <class Function>
Vector slope(const Function& function) {
    return ((function(STEP) - function(-STEP)) * 8.0 - (function(2.0 * STEP) - function(-2.0 * STEP))) /
           (12.0 * STEP);
}

/// Each component may be off by `tolerance` times the larger of 1 and the size of what is expected.
inline void expectNear(const Vector& actual, const Vector& expected, double tolerance) {
    const double allowed = tolerance * std::max(1.0, expected.magnitude());
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(actual[i], expected[i], allowed) << "component " << i;
    }
}

/// Descriptors of the first `count` parameters of an object.
inline std::vector<VrexVariableDescriptor> parametersOf(const std::shared_ptr<VrexBaseObject>& object,
                                                        int count) {
    std::vector<VrexVariableDescriptor> parameters;
    for (int i = 0; i < count; ++i) {
        parameters.emplace_back(object, static_cast<std::uint32_t>(i), nullptr);
    }
    return parameters;
}

/// The values of the parameters, each an independent variable with its place as the key.
inline std::vector<VrexVariable> variablesOf(const std::vector<VrexVariableDescriptor>& parameters) {
    std::vector<VrexVariable> variables;
    for (const VrexVariableDescriptor& parameter : parameters) {
        variables.emplace_back(parameter.getValue());
    }
    VrexVariable::initializeDerivatives(variables);
    return variables;
}

inline double derivativeBy(const VrexVariable& number, std::size_t key) {
    for (const auto& entry : number.derivatives()) {
        if (entry.key == key) {
            return entry.value;
        }
    }
    return 0.0;
}

/// Expects that `differentiable`, called with the variables of `parameters`, gives the values of `plain`, bit
/// by bit, and the derivatives by each parameter that `plain` shows when the parameter moves. Both give the
/// same number of vectors; `plain` reads the parameters from their objects.
template <class Plain, class Differentiable>
void expectParameterDerivativesMatch(std::vector<VrexVariableDescriptor> parameters, const Plain& plain,
                                     const Differentiable& differentiable, double tolerance) {
    const auto results = differentiable(variablesOf(parameters));
    const auto values = plain();
    ASSERT_EQ(results.size(), values.size());
    for (std::size_t element = 0; element < values.size(); ++element) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(results[element][i].value(), values[element][i]) << "element " << element;
        }
        for (std::size_t key = 0; key < parameters.size(); ++key) {
            SCOPED_TRACE(testing::Message() << "element " << element << " by parameter " << key);
            const double value = parameters[key].getValue();
            const Vector expected = slope([&](double step) {
                parameters[key].setValue(value + step);
                return plain()[element];
            });
            parameters[key].setValue(value);
            const auto& vector = results[element];
            expectNear(
                {derivativeBy(vector.x(), key), derivativeBy(vector.y(), key), derivativeBy(vector.z(), key)},
                expected, tolerance);
        }
    }
}

} // namespace nsShapeDerivatives
