#include "data/geometry/3d/VrexEvaluatedCurveCalculator3D.h"

#include <cmath>
#include <stdexcept>

#include <gtest/gtest.h>

#include "support/CalculatorChecks.h"
#include "support/ExpectShapeDerivatives.h"
#include "support/LogCapture.h"
#include "support/RandomShapes.h"
#include "support/Samples.h"
#include "support/VectorSamples.h"

namespace {

using nsShapeDerivatives::expectNear;
using nsShapeDerivatives::parametersOf;
using nsShapeDerivatives::slope;
using nsVectorSamples::Values3;
using nsVectorSamples::valuesOf;
using Quaternion = VrexQuaternionT<double>;
using Vector = VrexVector3DT<double>;

/// Of five-point differences over shapes of the size of a few units.
constexpr double DIFFERENCE = 1e-9;
constexpr double ROUNDING = 1e-14;

/// A helix of radius r and pitch p, bent along X, in a frame of its own.
std::shared_ptr<VrexEvaluatedCurve3D> randomHelix(RandomShapes& random) {
    const auto line = random.line();
    return VrexEvaluatedCurve3D::create(
        random.point(), random.rotation(),
        {{VrexGeometryVariable::create(random.number(0.5, 2.0)), 0, "r"}, {line, VrexLine3D::Y, "p"}},
        "r * cos(t) + p * t * t", "r * sin(t)", "p * t");
}

Vector turned(const VrexEvaluatedCurve3D& curve, const Values3& point) {
    const Vector axis = curve.getRotation().rotationalAxis(1e-10);
    const Values3 result = nsVectorSamples::rodrigues(point, valuesOf(axis), curve.getAngle());
    return {result[0], result[1], result[2]};
}

TEST(VrexEvaluatedCurveCalculator3D, HelixHasItsClosedForm) {
    RandomShapes random;
    for (int round = 0; round < 30; ++round) {
        const auto curve = randomHelix(random);
        const double t = random.number(-4.0, 4.0);
        const double r = curve->descriptors()[0].getValue();
        const double p = curve->descriptors()[1].getValue();
        const auto result = curve->evaluate(t, 3);
        ASSERT_EQ(result.size(), 4U);
        const double c = std::cos(t);
        const double s = std::sin(t);
        expectNear(result[0], curve->getOrigin() + turned(*curve, {r * c + p * t * t, r * s, p * t}),
                   ROUNDING);
        expectNear(result[1], turned(*curve, {-r * s + 2.0 * p * t, r * c, p}), ROUNDING);
        expectNear(result[2], turned(*curve, {-r * c + 2.0 * p, -r * s, 0.0}), ROUNDING);
        expectNear(result[3], turned(*curve, {r * s, -r * c, 0.0}), ROUNDING);
    }
}

TEST(VrexEvaluatedCurveCalculator3D, DerivativesMatchDifferences) {
    RandomShapes random;
    for (int round = 0; round < 10; ++round) {
        const auto curve = randomHelix(random);
        const double t = random.number(-4.0, 4.0);
        const auto result = curve->evaluate(t, 2);
        for (std::size_t k = 1; k <= 2; ++k) {
            expectNear(result[k], slope([&](double step) { return curve->evaluate(t + step, 2)[k - 1]; }),
                       DIFFERENCE);
        }
    }
}

TEST(VrexEvaluatedCurveCalculator3D, DifferentiableResultsMatchDifferencesInEveryParameter) {
    RandomShapes random;
    for (int round = 0; round < 5; ++round) {
        const auto curve = randomHelix(random);
        const auto t = VrexGeometryVariable::create(random.number(-4.0, 4.0));
        auto parameters = parametersOf(curve, VrexEvaluatedCurve3D::PARAMETERS_AMOUNT);
        for (const auto& descriptor : curve->descriptors()) {
            parameters.push_back(descriptor);
        }
        parameters.emplace_back(t, 0, nullptr);
        nsShapeDerivatives::expectParameterDerivativesMatch(
            parameters, [&] { return curve->evaluate(t->getValue(), 2); },
            [&](std::vector<VrexVariable> variables) {
                const VrexVariable variableT = variables.back();
                variables.pop_back();
                return curve->evaluate(variables, variableT, 2);
            },
            DIFFERENCE);
    }
}

TEST(VrexEvaluatedCurveCalculator3D, ShapeIsReadFromTheListAndNotFromTheCurve) {
    const auto curve = VrexEvaluatedCurve3D::create(
        {9.0, 9.0, 9.0}, Quaternion::ONE(), {{VrexGeometryVariable::create(9.0), 0, "r"}}, "r", "t", "1");
    // A half turn about X, after the origin and before the one descriptor.
    const std::vector<VrexVariable> parameters{1.0, 2.0, 3.0, 0.0, 1.0, 0.0, 0.0, 5.0};
    const auto result = curve->evaluate(parameters, VrexVariable(4.0), 0);
    EXPECT_EQ(valuesOf(result[0]), (Values3{6.0, -2.0, 2.0}));
}

TEST(VrexEvaluatedCurveCalculator3D, EveryParameterAppearsUnlessToldOtherwise) {
    const auto curve =
        VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, Quaternion::ONE(),
                                     {{VrexGeometryVariable::create(9.0), 0, "unused"}}, "t", "t", "t");
    std::vector<VrexVariable> parameters{0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 9.0};
    VrexVariable::initializeDerivatives(parameters);
    VrexEvaluatedCurveCalculator3D calculator(*curve);
    EXPECT_EQ(&calculator.getCurve(), curve.get());
    for (const auto& element : calculator.calculate(parameters, VrexVariable(1.0), 1)) {
        EXPECT_EQ(element.x().derivatives().size(), 8U);
        EXPECT_EQ(element.z().derivatives().size(), 8U);
    }
    calculator.setAddZeroDerivatives(false);
    EXPECT_EQ(calculator.calculate(parameters, VrexVariable(1.0), 1)[1].x().derivatives().size(), 4U)
        << "the derivative depends on the quaternion alone";
}

TEST(VrexEvaluatedCurveCalculator3D, NegativeOrderGivesNothing) {
    const auto curve = makeSample<VrexEvaluatedCurve3D>();
    EXPECT_TRUE(curve->evaluate(0.5, -1).empty());
    const std::vector<VrexVariable> parameters(9);
    EXPECT_TRUE(curve->evaluate(parameters, VrexVariable(0.5), -7).empty());
}

TEST(VrexEvaluatedCurveCalculator3D, TooHighAnOrderThrows) {
    const auto curve = makeSample<VrexEvaluatedCurve3D>();
    nsCalculatorChecks::expectTooHighOrder(*curve, VrexEvaluatedCurve3D::PARAMETERS_AMOUNT +
                                                       curve->descriptors().size());
}

TEST(VrexEvaluatedCurveCalculator3D, TooFewParametersThrow) {
    const auto curve = makeSample<VrexEvaluatedCurve3D>();
    const std::vector<VrexVariable> parameters(VrexEvaluatedCurve3D::PARAMETERS_AMOUNT + 1);
    EXPECT_THROW(static_cast<void>(curve->evaluate(parameters, VrexVariable(0.5), 0)), std::invalid_argument);
}

TEST(VrexEvaluatedCurveCalculator3D, MissingOrWrongExpressionThrowsAfterALogLine) {
    const auto curve = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, Quaternion::ONE());
    try {
        static_cast<void>(curve->evaluate(0.5, 0));
        ADD_FAILURE() << "no expressions";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "The expression is not parsed.");
    }
    ASSERT_TRUE(curve->setX("t") && curve->setY("t"));
    EXPECT_THROW(static_cast<void>(curve->evaluate(0.5, 0)), std::runtime_error) << "no third expression";
    ASSERT_FALSE(curve->setZ("t +"));
    const LogCapture log(1);
    const std::vector<VrexVariable> parameters(VrexEvaluatedCurve3D::PARAMETERS_AMOUNT);
    EXPECT_THROW(static_cast<void>(curve->evaluate(0.5, 0)), std::runtime_error) << "no tree";
    EXPECT_THROW(static_cast<void>(curve->evaluate(parameters, VrexVariable(0.5), 0)), std::runtime_error);
    ASSERT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(log.lines()[0].level, 1U);
}

TEST(VrexEvaluatedCurveCalculator3D, ExpressionBoundToFormerDescriptorsThrows) {
    const auto value = VrexGeometryVariable::create(1.0);
    for (const std::size_t former : {0U, 2U}) {
        const auto curve = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, Quaternion::ONE());
        const std::vector<VrexVariableDescriptor> descriptors(former, {value, 0, "a"});
        ASSERT_TRUE(curve->set("t", "t", "t", descriptors));
        ASSERT_FALSE(curve->set("t +", "t", "t", {{value, 0, "b"}}));
        ASSERT_TRUE(curve->setX("t"));
        const LogCapture log;
        EXPECT_THROW(static_cast<void>(curve->evaluate(0.5, 1)), std::runtime_error);
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines()[0].level, 1U);
        EXPECT_EQ(log.lines()[0].text, "nsEvaluated::requireBound(): The expression has " +
                                           std::to_string(former + 1) + " variables, and the shape has 2.");
    }
}

TEST(VrexEvaluatedCurveCalculator3D, UndefinedNameCountsAsZero) {
    const auto curve = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, Quaternion::ONE());
    EXPECT_FALSE(curve->setX("t + unknown"));
    ASSERT_TRUE(curve->setY("0") && curve->setZ("0"));
    EXPECT_EQ(curve->evaluate(2.0, 0)[0].x(), 2.0);
}

} // namespace
