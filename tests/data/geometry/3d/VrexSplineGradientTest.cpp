// The differentiable side of the calculator of splines.

#include "data/geometry/3d/VrexSplineGradient.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSplineCalculator3D.h"
#include "support/ExpectDerivativesMatch.h"
#include "support/LogCapture.h"
#include "support/SplineSamples.h"

namespace {

using nsSplineSamples::coordinatesOf;
using nsSplineSamples::Maker;
using nsSplineSamples::variablesOf;
using Keys = std::vector<std::uint64_t>;
using Vector = VrexVector3DT<VrexVariable>;

Keys keysOf(const VrexVariable& variable) {
    Keys keys;
    for (const auto& entry : variable.derivatives()) {
        keys.push_back(entry.key);
    }
    return keys;
}

VrexVariable independent(double value, std::uint64_t key) {
    VrexVariable variable(value);
    variable.derivatives().set(key, 1.0);
    return variable;
}

/// Component `component` of derivative `k`, as a function of all coordinates and then t.
struct Component {
    VrexSpline3D& spline;
    int k;
    int component;

    double operator()(const std::vector<double>& inputs) const {
        for (std::size_t i = 0; i < spline.controlPoints().size(); ++i) {
            spline.controlPoints()[i].point->assign(inputs[3 * i], inputs[3 * i + 1], inputs[3 * i + 2]);
        }
        return spline.evaluate(inputs.back(), k)[static_cast<std::size_t>(k)][component];
    }
    VrexVariable operator()(const std::vector<VrexVariable>& inputs) const {
        const std::vector<VrexVariable> parameters(inputs.begin(), inputs.end() - 1);
        return spline.evaluate(parameters, inputs.back(), k)[static_cast<std::size_t>(k)][component];
    }
};

TEST(VrexSplineGradient, AgreesWithFiniteDifferencesInEveryCoordinateAndInT) {
    Maker maker(21);
    for (const bool periodic : {false, true}) {
        for (int degree = 3; degree <= 5; ++degree) {
            const auto spline = maker.spline(degree, 7, periodic);
            // In the middle of a span, as far from both knots as the differences reach and farther.
            const std::size_t span = static_cast<std::size_t>(degree) + 1;
            auto inputs = coordinatesOf(spline->controlPoints());
            inputs.push_back(0.5 * (spline->knots()[span] + spline->knots()[span + 1]));
            for (int k = 0; k <= 2; ++k) {
                for (int component = 0; component < 3; ++component) {
                    // The fifth derivative by t of a rational curve is some thousand times the first.
                    expectDerivativesMatch(Component{*spline, k, component}, inputs, 1e-6);
                }
            }
        }
    }
}

TEST(VrexSplineGradient, ByTEachDerivativeHasTheNextOneAsItsEntry) {
    const auto spline = Maker(22).spline(3, 6);
    VrexSplineCalculator3D calculator(*spline);
    const auto parameters = variablesOf(coordinatesOf(spline->controlPoints()));
    const auto result = calculator.calculate(parameters, independent(0.25, 99), 3);
    const auto plain = calculator.calculate(0.25, 3);
    ASSERT_EQ(result.size(), 4U);
    for (std::size_t k = 0; k < 3; ++k) {
        for (int component = 0; component < 3; ++component) {
            EXPECT_NEAR(result[k][component].derivatives()[99], plain[k + 1][component],
                        1e-12 * (1.0 + std::fabs(plain[k + 1][component])));
        }
    }
}

TEST(VrexSplineGradient, HighestDerivativeOfARationalSplineStillDependsOnT) {
    const auto spline = Maker(23).spline(1, 4);
    auto inputs = coordinatesOf(spline->controlPoints());
    inputs.push_back(0.5 * (spline->knots()[2] + spline->knots()[3]));
    for (int component = 0; component < 3; ++component) {
        expectDerivativesMatch(Component{*spline, 1, component}, inputs, 1e-6);
    }
}

TEST(VrexSplineGradient, ValuesAreThoseOfPlainNumbersBitByBit) {
    Maker maker(24);
    for (const bool periodic : {false, true}) {
        const auto spline = maker.spline(3, 9, periodic);
        VrexSplineCalculator3D calculator(*spline);
        const auto parameters = variablesOf(coordinatesOf(spline->controlPoints()));
        for (int i = 0; i < 20; ++i) {
            const double t = maker.inside(spline->interval());
            const auto plain = calculator.calculate(t, 4);
            const VrexVariable variable = independent(t, 99);
            const auto result = calculator.calculate(parameters, variable, 4);
            for (std::size_t k = 0; k < plain.size(); ++k) {
                for (int component = 0; component < 3; ++component) {
                    EXPECT_EQ(result[k][component].value(), plain[k][component]);
                }
            }
        }
    }
}

/// Two control points a span; six points, parameter i has the key i.
struct Polyline {
    std::shared_ptr<VrexSpline3D> spline = Maker(25).spline(1, 4);
    std::vector<VrexVariable> parameters = variablesOf(coordinatesOf(spline->controlPoints()));
    double inSecondSpan = 0.5 * (spline->knots()[2] + spline->knots()[3]);
};

TEST(VrexSplineGradient, KeysAreTheSpansFirstThenAllOthersInOrder) {
    const Polyline line;
    VrexSplineCalculator3D calculator(*line.spline);
    const auto plain = calculator.calculate(line.parameters, VrexVariable(line.inSecondSpan), 2);
    EXPECT_EQ(keysOf(plain[0].y()), (Keys{4, 7, 0, 1, 2, 3, 5, 6, 8, 9, 10, 11}));
    EXPECT_EQ(keysOf(plain[1].z()), (Keys{5, 8, 0, 1, 2, 3, 4, 6, 7, 9, 10, 11}));
    EXPECT_EQ(keysOf(plain[2].x()), (Keys{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    const auto withT = calculator.calculate(line.parameters, independent(line.inSecondSpan, 50), 2);
    EXPECT_EQ(keysOf(withT[0].y()), (Keys{4, 50, 7, 0, 1, 2, 3, 5, 6, 8, 9, 10, 11}));
    EXPECT_EQ(keysOf(withT[2].x()), (Keys{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

TEST(VrexSplineGradient, WithoutZeroDerivativesOnlyTheSpanIsListed) {
    const Polyline line;
    VrexSplineCalculator3D calculator(*line.spline);
    calculator.setAddZeroDerivatives(false);
    const auto result = calculator.calculate(line.parameters, independent(line.inSecondSpan, 50), 2);
    EXPECT_EQ(keysOf(result[0].x()), (Keys{3, 50, 6}));
    EXPECT_EQ(keysOf(result[1].y()), (Keys{4, 50, 7}));
    EXPECT_EQ(keysOf(result[2].z()), Keys{});
}

TEST(VrexSplineGradient, ParametersBeyondTheControlPointsAreListedToo) {
    Polyline line;
    line.parameters.push_back(independent(3.0, 77));
    const auto result =
        VrexSplineCalculator3D(*line.spline).calculate(line.parameters, VrexVariable(line.inSecondSpan), 1);
    EXPECT_EQ(keysOf(result[1].x()).back(), 77U);
    EXPECT_EQ(result[1].x().derivatives()[77], 0.0);
}

TEST(VrexSplineGradient, TooFewParametersThrow) {
    Polyline line;
    line.parameters.pop_back();
    EXPECT_THROW(VrexSplineCalculator3D(*line.spline).calculate(line.parameters, VrexVariable(0.0), 0),
                 std::invalid_argument);
}

TEST(VrexSplineGradient, ReadsTheParametersAndNotThePoints) {
    const Polyline line;
    for (const auto& controlPoint : line.spline->controlPoints()) {
        controlPoint.point->assign(1e6, 1e6, 1e6);
    }
    const std::vector<VrexVariable> parameters(12, VrexVariable(0.5));
    const auto result =
        VrexSplineCalculator3D(*line.spline).calculate(parameters, VrexVariable(line.inSecondSpan), 1);
    EXPECT_DOUBLE_EQ(result[0].x().value(), 0.5);
    EXPECT_TRUE(result[0].x().derivatives().empty());
}

/// The same evaluation by the operators of the numbers: a t that logs makes it go that way.
std::vector<Vector> calculateByOperators(const VrexSpline3D& spline,
                                         const std::vector<VrexVariable>& parameters, VrexVariable t,
                                         int order) {
    t.enableLog("t");
    return VrexSplineCalculator3D(spline).calculate(parameters, t, order);
}

void expectSame(const std::vector<Vector>& actual, const std::vector<Vector>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t k = 0; k < actual.size(); ++k) {
        for (int component = 0; component < 3; ++component) {
            const VrexVariable& a = actual[k][component];
            const VrexVariable& b = expected[k][component];
            EXPECT_EQ(a.value(), b.value());
            ASSERT_EQ(keysOf(a), keysOf(b)) << "order " << k;
            for (const std::uint64_t key : keysOf(b)) {
                const double derivative = b.derivatives()[key];
                // The operators round a little otherwise.
                EXPECT_NEAR(a.derivatives()[key], derivative, 1e-12 * (1.0 + std::fabs(derivative)));
            }
        }
    }
}

TEST(VrexSplineGradient, GivesWhatTheOperatorsGive) {
    Maker maker(26);
    for (const bool periodic : {false, true}) {
        for (int degree = 0; degree <= 4; ++degree) {
            const auto spline = maker.spline(degree, 7, periodic);
            const auto parameters = variablesOf(coordinatesOf(spline->controlPoints()));
            VrexSplineCalculator3D calculator(*spline);
            // t by itself, by a foreign key, and by one that a control point has too.
            for (const int key : {-1, 500, 10}) {
                const double value = maker.inside(spline->interval());
                const VrexVariable t =
                    key < 0 ? VrexVariable(value) : independent(value, static_cast<std::uint64_t>(key));
                expectSame(calculator.calculate(parameters, t, 5),
                           calculateByOperators(*spline, parameters, t, 5));
            }
        }
    }
}

TEST(VrexSplineGradient, TakesParametersThatDependOnManyVariables) {
    Maker maker(27);
    const auto spline = maker.spline(3, 6);
    VrexSplineCalculator3D calculator(*spline);
    // Lists of differing lengths which share keys, as points of a moving body have them.
    std::vector<VrexVariable> parameters;
    for (const double value : coordinatesOf(spline->controlPoints())) {
        VrexVariable parameter(value);
        const std::size_t count = parameters.size() % 15;
        for (std::size_t i = 0; i < count; ++i) {
            parameter.derivatives().set((parameters.size() * 7 + i * 3) % 40, maker.number(-2.0, 2.0));
        }
        parameters.push_back(parameter);
    }
    for (int i = 0; i < 10; ++i) {
        const VrexVariable t = independent(maker.inside(spline->interval()), 13);
        expectSame(calculator.calculate(parameters, t, 3), calculateByOperators(*spline, parameters, t, 3));
        // The next round has other keys, and another count of them.
        parameters[static_cast<std::size_t>(i)].derivatives().set(100 + static_cast<std::uint64_t>(i), 0.5);
    }
}

TEST(VrexSplineGradient, LoggedParametersLeaveALog) {
    const auto spline = Maker(28).spline(1, 2);
    auto parameters = variablesOf(coordinatesOf(spline->controlPoints()));
    parameters[0].enableLog("x0");
    const auto result = VrexSplineCalculator3D(*spline).calculate(parameters, VrexVariable(0.0), 0);
    EXPECT_FALSE(result[0].y().hasLog());
    EXPECT_EQ(keysOf(result[0].x()), (Keys{0, 3, 1, 2, 4, 5}));
}

TEST(VrexSplineGradient, TheDerivativeStoredInTIsNotMultipliedIn) {
    const Polyline line;
    VrexSplineCalculator3D calculator(*line.spline);
    VrexVariable t = independent(line.inSecondSpan, 50);
    const auto unit = calculator.calculate(line.parameters, t, 1);
    for (const double entry : {7.0, 0.0}) {
        t.derivatives().set(50, entry);
        const auto other = calculator.calculate(line.parameters, t, 1);
        for (int component = 0; component < 3; ++component) {
            EXPECT_NE(unit[0][component].derivatives()[50], 0.0);
            EXPECT_EQ(other[0][component].derivatives()[50], unit[0][component].derivatives()[50]);
            EXPECT_EQ(other[1][component].derivatives()[50], unit[1][component].derivatives()[50]);
        }
    }
}

TEST(VrexSplineGradient, TwoDerivativesInTAreRefusedEvenIfZero) {
    const Polyline line;
    VrexSplineCalculator3D calculator(*line.spline);
    VrexVariable t(line.inSecondSpan);
    t.derivatives().set(1, 0.0);
    t.derivatives().set(2, 0.0);
    for (const bool isLogged : {false, true}) {
        if (isLogged) {
            t.enableLog("t");
        }
        const LogCapture log(1);
        try {
            calculator.calculate(line.parameters, t, 0);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "VrexGeneralCalculator: parameter t has more than one derivatives");
        }
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines()[0].level, 1U);
    }
}

TEST(VrexSplineGradient, OfAPeriodicSplineTheCallersTIsReduced) {
    const auto spline = Maker(29).spline(2, 5, true);
    VrexSplineCalculator3D calculator(*spline);
    const auto parameters = variablesOf(coordinatesOf(spline->controlPoints()));
    const auto [start, end] = spline->interval();
    VrexVariable t = independent(*start + 0.25 + 2.0 * (*end - *start), 50);
    t.derivatives().set(50, 3.0);
    const auto result = calculator.calculate(parameters, t, 0);
    EXPECT_NEAR(t.value(), *start + 0.25, 1e-12);
    EXPECT_EQ(keysOf(t), Keys{50});
    EXPECT_EQ(t.derivatives()[50], 3.0);
    EXPECT_NEAR(result[0].x().value(), calculator.calculate(*start + 0.25, 0)[0].x(), 1e-12);
}

TEST(VrexSplineGradient, OfAnOpenSplineTheCallersTIsLeftAlone) {
    const Polyline line;
    const VrexVariable t = independent(1e3, 50);
    VrexSplineCalculator3D(*line.spline).calculate(line.parameters, t, 0);
    EXPECT_EQ(t.value(), 1e3);
}

} // namespace
