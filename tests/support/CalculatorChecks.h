#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"
#include "support/ExpectDerivativesMatch.h"
#include "support/LogCapture.h"
#include "support/ScalarSamples.h"
#include "support/VectorSamples.h"

/// What every calculator of a closed form is held to, for entities whose slots are all their shape.
namespace nsCalculatorChecks {

using Values = std::vector<double>;
using Variables = std::vector<VrexVariable>;

/// How far a derivative may be off its five-point difference, relative to the larger of 1 and its size: the
/// samples stay below 100, so rounding alone makes a difference uncertain by 100 * 2e-16 / 1e-3.
constexpr double TOLERANCE = 1e-9;

/// Numbers that are the same on every platform.
class Random {
public:
    explicit Random(std::uint32_t seed) : m_engine(seed) {}
    /// Uniform in [low, high).
    double number(double low, double high) { return low + (high - low) * (m_engine() / 4294967296.0); }
    VrexVector3DT<double> vector(double low, double high) {
        const double x = number(low, high);
        const double y = number(low, high);
        return {x, y, number(low, high)};
    }

private:
    std::mt19937 m_engine;
};

/// The axes X, Y, Z of space, turned about the normal of both Z and `direction` so that Z gets there.
struct Axes {
    explicit Axes(const VrexVector3DT<double>& direction) {
        const double polar = std::atan2(std::hypot(direction.x(), direction.y()), direction.z());
        const double azimuthal = std::atan2(direction.y(), direction.x());
        const nsVectorSamples::Values3 about{-std::sin(azimuthal), std::cos(azimuthal), 0.0};
        const auto turned = [&](const nsVectorSamples::Values3& axis) {
            const auto [x, y, z] = nsVectorSamples::rodrigues(axis, about, polar);
            return VrexVector3DT<double>(x, y, z);
        };
        X = turned({1.0, 0.0, 0.0});
        Y = turned({0.0, 1.0, 0.0});
        Z = turned({0.0, 0.0, 1.0});
    }

    VrexVector3DT<double> X, Y, Z;
};

/// Up to rounding.
inline void expectNear(const VrexVector3DT<double>& actual, const VrexVector3DT<double>& expected,
                       double tolerance = 1e-13) {
    nsVectorSamples::expectNear(nsVectorSamples::valuesOf(actual), nsVectorSamples::valuesOf(expected),
                                tolerance);
}

inline void setParameters(const std::shared_ptr<VrexBaseObject>& entity, const Values& values,
                          std::size_t count) {
    for (std::size_t slot = 0; slot < count; ++slot) {
        VrexVariableDescriptor(entity, static_cast<std::uint32_t>(slot), nullptr).setValue(values[slot]);
    }
}

/// The slots, then `more`.
inline Values parametersOf(const std::shared_ptr<VrexBaseObject>& entity, std::size_t count,
                           std::initializer_list<double> more) {
    Values values;
    for (std::size_t slot = 0; slot < count; ++slot) {
        values.push_back(
            VrexVariableDescriptor(entity, static_cast<std::uint32_t>(slot), nullptr).getValue());
    }
    values.insert(values.end(), more);
    return values;
}

inline Variables independent(const Values& values) {
    Variables variables(values.begin(), values.end());
    VrexVariable::initializeDerivatives(variables);
    return variables;
}

/// The five-point central difference.
template <typename Function>
double slope(const Function& function, double at) {
    const double step = 1e-3 * std::max(1.0, std::fabs(at));
    const auto moved = [&](double steps) { return function(at + steps * step); };
    return (8.0 * (moved(1.0) - moved(-1.0)) - (moved(2.0) - moved(-2.0))) / (12.0 * step);
}

template <typename Function>
void expectSlope(double derivative, const Function& function, double at) {
    const double expected = slope(function, at);
    EXPECT_NEAR(derivative, expected, TOLERANCE * std::max(1.0, std::fabs(expected)));
}

/// Expects each derivative from `first` on to be the slope of the one before it.
inline void expectCurveDerivatives(const VrexParametricCurve3D& curve, double t, int order, int first = 1) {
    const auto calculator = VrexParametricCurveCalculator3D::create(curve);
    const auto derivatives = calculator->calculate(t, order);
    ASSERT_EQ(derivatives.size(), static_cast<std::size_t>(order) + 1);
    for (int k = first; k <= order; ++k) {
        for (int component = 0; component < 3; ++component) {
            SCOPED_TRACE(testing::Message() << "order " << k << ", component " << component);
            const auto before = static_cast<std::size_t>(k - 1);
            expectSlope(
                derivatives[before + 1][component],
                [&](double at) { return calculator->calculate(at, k - 1)[before][component]; }, t);
        }
    }
}

/// Expects each of these elements of the sample to be the slope of the one before it.
inline void expectSurfaceDerivatives(const VrexParametricSurface3D& surface, double u, double v,
                                     std::initializer_list<std::size_t> elements) {
    const auto calculator = VrexParametricSurfaceCalculator3D::create(surface);
    const auto sample = calculator->calculate(u, v, 2);
    for (const std::size_t element : elements) {
        const bool byU = element >= 3;
        const std::size_t before = byU ? element - 3 : element - 1;
        for (int component = 0; component < 3; ++component) {
            SCOPED_TRACE(testing::Message() << "element " << element << ", component " << component);
            expectSlope(
                sample[element][component],
                [&](double at) {
                    return calculator->calculate(byU ? at : u, byU ? v : at, 2)[before][component];
                },
                byU ? u : v);
        }
    }
}

/// A function of plain and of differentiable numbers, from one of each.
template <typename OfValues, typename OfVariables>
struct Both : OfValues, OfVariables {
    using OfValues::operator();
    using OfVariables::operator();
};
template <typename OfValues, typename OfVariables>
Both(OfValues, OfVariables) -> Both<OfValues, OfVariables>;

/// Expects all derivatives of all results by the `count` slots and by t.
template <class Curve>
void expectCurveGradients(const std::shared_ptr<Curve>& curve, double t, int order) {
    constexpr std::size_t count = Curve::PARAMETERS_AMOUNT;
    const Values inputs = parametersOf(curve, count, {t});
    for (std::size_t k = 0; k <= static_cast<std::size_t>(order); ++k) {
        for (int component = 0; component < 3; ++component) {
            SCOPED_TRACE(testing::Message() << "order " << k << ", component " << component);
            expectDerivativesMatch(Both{[&](const Values& values) {
                                            setParameters(curve, values, count);
                                            return curve->evaluate(values[count], order)[k][component];
                                        },
                                        [&](const Variables& variables) {
                                            return curve->evaluate(variables, variables[count],
                                                                   order)[k][component];
                                        }},
                                   inputs, TOLERANCE);
        }
    }
    setParameters(curve, inputs, count);
}

/// Expects all derivatives of all nine elements, and of the normal, by the `count` slots, u and v.
template <class Surface>
void expectSurfaceGradients(const std::shared_ptr<Surface>& surface, double u, double v) {
    constexpr std::size_t count = Surface::PARAMETERS_AMOUNT;
    const Values inputs = parametersOf(surface, count, {u, v});
    const auto calculator = VrexParametricSurfaceCalculator3D::create(*surface);
    for (std::size_t element = 0; element < 10; ++element) {
        const auto pick = [element](auto& by, const auto&... arguments) {
            return element < 9 ? by.calculate(arguments..., 2)[element] : by.calculateNormal(arguments...);
        };
        for (int component = 0; component < 3; ++component) {
            SCOPED_TRACE(testing::Message() << "element " << element << ", component " << component);
            expectDerivativesMatch(Both{[&](const Values& values) {
                                            setParameters(surface, values, count);
                                            return pick(*calculator, values[count],
                                                        values[count + 1])[component];
                                        },
                                        [&](const Variables& variables) {
                                            return pick(*calculator, variables, variables[count],
                                                        variables[count + 1])[component];
                                        }},
                                   inputs, TOLERANCE);
        }
    }
    setParameters(surface, inputs, count);
}

inline void expectSameBits(const VrexVector3DT<VrexVariable>& variable, const VrexVector3DT<double>& value) {
    for (int component = 0; component < 3; ++component) {
        EXPECT_TRUE(nsScalarSamples::sameBits(variable[component].value(), value[component]))
            << variable[component].value() << " instead of " << value[component] << " in component "
            << component;
    }
}

/// Expects the very bits of the plain result as values of the differentiable one.
template <class Curve>
void expectCurveBits(const std::shared_ptr<Curve>& curve, double t, int order) {
    constexpr std::size_t count = Curve::PARAMETERS_AMOUNT;
    const Variables variables = independent(parametersOf(curve, count, {t}));
    const auto plain = curve->evaluate(t, order);
    const auto differentiable = curve->evaluate(variables, variables[count], order);
    ASSERT_EQ(differentiable.size(), plain.size());
    for (std::size_t k = 0; k < plain.size(); ++k) {
        expectSameBits(differentiable[k], plain[k]);
    }
}

template <class Surface>
void expectSurfaceBits(const std::shared_ptr<Surface>& surface, double u, double v, int order) {
    constexpr std::size_t count = Surface::PARAMETERS_AMOUNT;
    const Variables variables = independent(parametersOf(surface, count, {u, v}));
    const auto calculator = VrexParametricSurfaceCalculator3D::create(*surface);
    calculator->setAddZeroDerivatives(false); // the zero that is added would turn -0.0 into 0.0
    const auto plain = calculator->calculate(u, v, order);
    const auto differentiable =
        calculator->calculate(variables, variables[count], variables[count + 1], order);
    for (std::size_t element = 0; element < 9; ++element) {
        expectSameBits(differentiable[element], plain[element]);
    }
    expectSameBits(calculator->calculateNormal(variables, variables[count], variables[count + 1]),
                   calculator->calculateNormal(u, v));
}

/// Expects that `evaluate`, of a list of parameters, refuses lists shorter than `count`, with a line in the
/// log.
template <typename Evaluate>
void expectTooFewParameters(const Evaluate& evaluate, std::size_t count) {
    EXPECT_NO_THROW(static_cast<void>(evaluate(Variables(count))));
    for (const std::size_t size : {std::size_t{0}, count - 1}) {
        const LogCapture log;
        const std::string text =
            "Too few parameters: " + std::to_string(size) + " instead of " + std::to_string(count) + ".";
        EXPECT_THAT([&] { static_cast<void>(evaluate(Variables(size))); },
                    testing::ThrowsMessage<std::invalid_argument>(text));
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines().front().level, 1U);
        EXPECT_THAT(log.lines().front().text, testing::EndsWith("(): " + text));
    }
}

/// Expects that a curve refuses orders whose result nobody could use, with a line in the log.
inline void expectTooHighOrder(const VrexParametricCurve3D& curve, std::size_t count) {
    const auto expectThrow = [](int order, const auto& call) {
        const LogCapture log;
        const std::string text = "Too high an order: " + std::to_string(order) + ".";
        EXPECT_THAT(call, testing::ThrowsMessage<std::invalid_argument>(text));
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines().front().level, 1U);
        EXPECT_THAT(log.lines().front().text, testing::EndsWith("(): " + text));
    };
    for (const int order : {100'001, std::numeric_limits<int>::max()}) {
        expectThrow(order, [&] { static_cast<void>(curve.evaluate(0.7, order)); });
        expectThrow(order,
                    [&] { static_cast<void>(curve.evaluate(Variables(count), VrexVariable(0.7), order)); });
    }
}

/// Expects that orders above 2 give the second order, and that negative ones touch nothing.
template <class Surface>
void expectOrderLimits(const std::shared_ptr<Surface>& surface) {
    const Variables variables = independent(parametersOf(surface, Surface::PARAMETERS_AMOUNT, {}));
    const VrexVariable at(0.7);
    const auto second = surface->evaluate(0.7, 0.7, 2);
    for (const int order : {3, std::numeric_limits<int>::max()}) {
        const auto plain = surface->evaluate(0.7, 0.7, order);
        const auto differentiable = surface->evaluate(variables, at, at, order);
        for (std::size_t element = 0; element < 9; ++element) {
            expectNear(plain[element], second[element], 0.0);
            expectSameBits(differentiable[element], second[element]);
        }
    }
    for (const int order : {-1, std::numeric_limits<int>::min()}) {
        const auto plain = surface->evaluate(0.7, 0.7, order);
        const auto differentiable = surface->evaluate(variables, at, at, order);
        for (std::size_t element = 0; element < 9; ++element) {
            expectNear(plain[element], {0.0, 0.0, 0.0}, 0.0);
            expectSameBits(differentiable[element], {0.0, 0.0, 0.0});
            EXPECT_EQ(differentiable[element].x().derivatives().size(), 0U);
        }
    }
}

/// Expects that neither sample nor normal depends on a parameter behind the slots.
template <class Surface>
void expectNoFurtherParameter(const std::shared_ptr<Surface>& surface) {
    constexpr std::size_t count = Surface::PARAMETERS_AMOUNT;
    const Variables variables = independent(parametersOf(surface, count, {9.0}));
    const VrexVariable at(0.7);
    const auto calculator = VrexParametricSurfaceCalculator3D::create(*surface);
    const auto expectNone = [&](const VrexVector3DT<VrexVariable>& vector) {
        for (int component = 0; component < 3; ++component) {
            EXPECT_FALSE(nsScalarSamples::hasKey(nsScalarSamples::entriesOf(vector[component]), count));
        }
    };
    for (const auto& element : calculator->calculate(variables, at, at, 2)) {
        expectNone(element);
    }
    expectNone(calculator->calculateNormal(variables, at, at));
}

} // namespace nsCalculatorChecks
