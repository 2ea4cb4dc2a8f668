#include "data/geometry/3d/VrexCircleCalculator3D.h"

#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "support/CalculatorChecks.h"

using nsCalculatorChecks::Axes;
using nsCalculatorChecks::expectNear;

namespace {

using Vector = VrexVector3DT<double>;

std::shared_ptr<VrexCircle3D> makeRandom(nsCalculatorChecks::Random& random, double lowest, double highest) {
    const Vector center = random.vector(-5.0, 5.0);
    const Vector normal = random.vector(-1.0, 1.0);
    return VrexCircle3D::create(center, normal, random.number(lowest, highest));
}

TEST(VrexCircleCalculator3D, PointAndDerivativesAreThoseOfTheClosedForm) {
    const Vector center(1.0, -2.0, 3.0);
    const Vector normal(2.0, -1.0, 2.0);
    const Axes axes(normal);
    const auto circle = VrexCircle3D::create(center, normal, 1.5);
    const double t = 0.7;
    const auto derivatives = VrexCircleCalculator3D(*circle).calculate(t, 5);
    const Vector outwards = axes.X * (1.5 * std::cos(t)) + axes.Y * (1.5 * std::sin(t));
    const Vector along = axes.X * (-1.5 * std::sin(t)) + axes.Y * (1.5 * std::cos(t));
    ASSERT_EQ(derivatives.size(), 6U);
    expectNear(derivatives[0], center + outwards);
    expectNear(derivatives[1], along);
    expectNear(derivatives[2], -outwards);
    expectNear(derivatives[3], -along);
    expectNear(derivatives[4], outwards);
    expectNear(derivatives[5], along);
}

TEST(VrexCircleCalculator3D, NegativeRadiusKeepsThePointAndTurnsItsDerivatives) {
    const Vector center(1.0, -2.0, 3.0);
    const Vector normal(2.0, -1.0, 2.0);
    const Axes axes(normal);
    const auto circle = VrexCircle3D::create(center, normal, -2.0);
    const auto derivatives = circle->evaluate(0.0, 2);
    expectNear(derivatives[0], center + axes.X * 2.0);
    expectNear(derivatives[1], axes.Y * -2.0);
    expectNear(derivatives[2], axes.X * 2.0);

    const auto positive = VrexCircle3D::create(center, normal, 2.0);
    for (const double t : {0.0, 1.0, 4.0}) {
        expectNear(circle->evaluate(t, 0)[0], positive->evaluate(t, 0)[0]);
        expectNear(circle->evaluate(t, 1)[1], -positive->evaluate(t, 1)[1]);
    }
}

TEST(VrexCircleCalculator3D, RadiusZeroLeavesTheCentre) {
    const auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 0.0);
    const auto derivatives = circle->evaluate(0.7, 1);
    expectNear(derivatives[0], {1.0, -2.0, 3.0}, 0.0);
    expectNear(derivatives[1], {0.0, 0.0, 0.0}, 0.0);
}

TEST(VrexCircleCalculator3D, FrameComesFromTheSlotsAndNotFromTheNormal) {
    // At polar angle 0 the normal is Z whatever the azimuth; Z, converted back, would give the azimuth 0.
    const auto circle = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0);
    VrexVariableDescriptor(circle, VrexCircle3D::POLAR, nullptr).setValue(3.0);
    VrexVariableDescriptor(circle, VrexCircle3D::AZIMUTHAL, nullptr).setValue(7.0);
    const double p = 3.0;
    const double a = 7.0;
    expectNear(circle->evaluate(0.0, 0)[0],
               {std::cos(p) * std::cos(a) * std::cos(a) + std::sin(a) * std::sin(a),
                std::cos(p) * std::cos(a) * std::sin(a) - std::cos(a) * std::sin(a),
                -std::sin(p) * std::cos(a)});
}

TEST(VrexCircleCalculator3D, HeldCalculatorFollowsItsCircle) {
    const auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
    VrexCircleCalculator3D calculator(*circle);
    EXPECT_EQ(&calculator.getSpline(), circle.get());
    const Vector before = calculator.calculate(0.7, 0)[0];
    circle->setNormal({0.0, 3.0, 4.0});
    circle->setRadius(2.5);
    circle->setCenter({0.0, 1.0, 0.0});
    expectNear(calculator.calculate(0.7, 0)[0], VrexCircleCalculator3D(*circle).calculate(0.7, 0)[0], 0.0);
    circle->setNormal({2.0, -1.0, 2.0});
    circle->setRadius(1.5);
    circle->setCenter({1.0, -2.0, 3.0});
    expectNear(calculator.calculate(0.7, 0)[0], before, 0.0);
}

TEST(VrexCircleCalculator3D, CopiesEvaluateTheSameCircle) {
    const auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
    VrexCircleCalculator3D calculator(*circle);
    const Vector point = calculator.calculate(0.7, 0)[0];
    VrexCircleCalculator3D copy(calculator);
    EXPECT_EQ(&copy.getSpline(), circle.get());
    expectNear(copy.calculate(0.7, 0)[0], point, 0.0);
}

TEST(VrexCircleCalculator3D, DerivativesAgreeWithDifferences) {
    nsCalculatorChecks::Random random(1);
    for (int i = 0; i < 50; ++i) {
        const auto circle = makeRandom(random, 0.1, 4.0);
        nsCalculatorChecks::expectCurveDerivatives(*circle, random.number(-7.0, 7.0), 4);
        // The first derivative of a negative radius is not that of the point, the others follow from it.
        const auto negative = makeRandom(random, -4.0, -0.1);
        nsCalculatorChecks::expectCurveDerivatives(*negative, random.number(-7.0, 7.0), 4, 2);
    }
}

TEST(VrexCircleCalculator3D, GradientsAgreeWithDifferences) {
    nsCalculatorChecks::Random random(2);
    for (int i = 0; i < 10; ++i) {
        nsCalculatorChecks::expectCurveGradients(makeRandom(random, 0.1, 4.0), random.number(-7.0, 7.0), 2);
        nsCalculatorChecks::expectCurveGradients(makeRandom(random, -4.0, -0.1), random.number(-7.0, 7.0), 2);
    }
}

TEST(VrexCircleCalculator3D, DifferentiableValuesHaveTheBitsOfPlainOnes) {
    nsCalculatorChecks::Random random(3);
    for (int i = 0; i < 200; ++i) {
        nsCalculatorChecks::expectCurveBits(makeRandom(random, -4.0, 4.0), random.number(-50.0, 50.0), 4);
    }
    const auto circle = makeRandom(random, 1.0, 2.0);
    nsCalculatorChecks::expectCurveBits(circle, std::nan(""), 2);
    circle->setRadius(std::numeric_limits<double>::infinity());
    nsCalculatorChecks::expectCurveBits(circle, 1.0, 2);
    circle->setRadius(std::nan(""));
    nsCalculatorChecks::expectCurveBits(circle, 1.0, 2);
}

TEST(VrexCircleCalculator3D, DifferentiableShapeComesFromTheListAlone) {
    const auto circle = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0);
    const auto other = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
    const auto list = nsCalculatorChecks::independent(
        nsCalculatorChecks::parametersOf(other, VrexCircle3D::PARAMETERS_AMOUNT, {}));
    nsCalculatorChecks::expectSameBits(circle->evaluate(list, VrexVariable(0.7), 0)[0],
                                       other->evaluate(0.7, 0)[0]);
}

TEST(VrexCircleCalculator3D, ResultsDependOnTheAxisAndOnNoFurtherParameter) {
    const auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
    auto values = nsCalculatorChecks::parametersOf(circle, VrexCircle3D::PARAMETERS_AMOUNT, {9.0});
    const auto derivatives = circle->evaluate(nsCalculatorChecks::independent(values), VrexVariable(0.7), 2);
    for (const auto& derivative : derivatives) {
        for (int component = 0; component < 3; ++component) {
            const auto entries = nsScalarSamples::entriesOf(derivative[component]);
            EXPECT_TRUE(nsScalarSamples::hasKey(entries, VrexCircle3D::POLAR));
            EXPECT_TRUE(nsScalarSamples::hasKey(entries, VrexCircle3D::AZIMUTHAL));
            EXPECT_FALSE(nsScalarSamples::hasKey(entries, VrexCircle3D::PARAMETERS_AMOUNT));
        }
    }
}

TEST(VrexCircleCalculator3D, NegativeOrderGivesNothing) {
    const auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
    const std::vector<VrexVariable> list(VrexCircle3D::PARAMETERS_AMOUNT);
    for (const int order : {-1, std::numeric_limits<int>::min()}) {
        EXPECT_TRUE(circle->evaluate(0.7, order).empty());
        EXPECT_TRUE(circle->evaluate(list, VrexVariable(0.7), order).empty());
    }
}

TEST(VrexCircleCalculator3D, TooHighAnOrderThrows) {
    const auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
    EXPECT_EQ(circle->evaluate(0.7, 100'000).size(), 100'001U);
    nsCalculatorChecks::expectTooHighOrder(*circle, VrexCircle3D::PARAMETERS_AMOUNT);
}

TEST(VrexCircleCalculator3D, TooFewParametersThrow) {
    const auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
    nsCalculatorChecks::expectTooFewParameters(
        [&](const auto& list) { return circle->evaluate(list, VrexVariable(0.7), 1); },
        VrexCircle3D::PARAMETERS_AMOUNT);
}

} // namespace
