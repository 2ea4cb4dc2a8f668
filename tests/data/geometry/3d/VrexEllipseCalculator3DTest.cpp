#include "data/geometry/3d/VrexEllipseCalculator3D.h"

#include <cmath>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexEllipse3D.h"
#include "support/CalculatorChecks.h"

using nsCalculatorChecks::expectNear;

namespace {

using Vector = VrexVector3DT<double>;

std::shared_ptr<VrexEllipse3D> makeRandom(nsCalculatorChecks::Random& random) {
    const Vector center = random.vector(-5.0, 5.0);
    const Vector direction = random.vector(-1.0, 1.0);
    const Vector normal = direction.crossProduct(random.vector(-1.0, 1.0));
    const double major = random.number(-4.0, 4.0);
    return VrexEllipse3D::create(center, direction, normal, major, random.number(-4.0, 4.0));
}

TEST(VrexEllipseCalculator3D, PointAndDerivativesAreThoseOfTheClosedForm) {
    const Vector center(1.0, -2.0, 3.0);
    const Vector along(0.0, 0.6, 0.8);
    const Vector normal(0.0, -0.8, 0.6);
    const Vector across = normal.crossProduct(along);
    // The centre is added whatever the signs of the radii.
    for (const auto& [a, b] :
         {std::pair(4.0, 2.5), std::pair(-4.0, 2.5), std::pair(4.0, -2.5), std::pair(0.0, 0.0)}) {
        const auto ellipse = VrexEllipse3D::create(center, along * 3.0, normal * 5.0, a, b);
        const double t = 0.7;
        const auto derivatives = ellipse->evaluate(t, 5);
        const Vector point = along * (a * std::cos(t)) + across * (b * std::sin(t));
        const Vector tangent = along * (-a * std::sin(t)) + across * (b * std::cos(t));
        ASSERT_EQ(derivatives.size(), 6U);
        expectNear(derivatives[0], center + point);
        expectNear(derivatives[1], tangent);
        expectNear(derivatives[2], -point);
        expectNear(derivatives[3], -tangent);
        expectNear(derivatives[4], point);
        expectNear(derivatives[5], tangent);
    }
}

TEST(VrexEllipseCalculator3D, HeldCalculatorAndItsCopiesFollowTheEllipse) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 2.0, 1.0);
    VrexEllipseCalculator3D calculator(*ellipse);
    VrexEllipseCalculator3D copy(calculator);
    EXPECT_EQ(&calculator.getSpline(), ellipse.get());
    EXPECT_EQ(&copy.getSpline(), ellipse.get());
    expectNear(calculator.calculate(0.0, 0)[0], {2.0, 0.0, 0.0});
    ellipse->setMajorRadius(5.0);
    ASSERT_TRUE(ellipse->setRotation(Vector(0.0, 1.0, 0.0), Vector(0.0, 0.0, 1.0)));
    expectNear(calculator.calculate(0.0, 0)[0], {0.0, 5.0, 0.0});
    expectNear(copy.calculate(0.0, 0)[0], {0.0, 5.0, 0.0});
}

TEST(VrexEllipseCalculator3D, DerivativesAgreeWithDifferences) {
    nsCalculatorChecks::Random random(1);
    for (int i = 0; i < 50; ++i) {
        nsCalculatorChecks::expectCurveDerivatives(*makeRandom(random), random.number(-7.0, 7.0), 4);
    }
}

TEST(VrexEllipseCalculator3D, GradientsAgreeWithDifferences) {
    nsCalculatorChecks::Random random(2);
    for (int i = 0; i < 10; ++i) {
        nsCalculatorChecks::expectCurveGradients(makeRandom(random), random.number(-7.0, 7.0), 2);
    }
}

TEST(VrexEllipseCalculator3D, DifferentiableValuesHaveTheBitsOfPlainOnes) {
    nsCalculatorChecks::Random random(3);
    for (int i = 0; i < 200; ++i) {
        nsCalculatorChecks::expectCurveBits(makeRandom(random), random.number(-50.0, 50.0), 4);
    }
    nsCalculatorChecks::expectCurveBits(makeRandom(random), std::nan(""), 2);
}

TEST(VrexEllipseCalculator3D, ResultsDependOnNoFurtherParameter) {
    nsCalculatorChecks::Random random(4);
    const auto ellipse = makeRandom(random);
    const auto values = nsCalculatorChecks::parametersOf(ellipse, VrexEllipse3D::PARAMETERS_AMOUNT, {9.0});
    const auto derivatives = ellipse->evaluate(nsCalculatorChecks::independent(values), VrexVariable(0.7), 2);
    for (const auto& derivative : derivatives) {
        for (int component = 0; component < 3; ++component) {
            const auto entries = nsScalarSamples::entriesOf(derivative[component]);
            EXPECT_FALSE(nsScalarSamples::hasKey(entries, VrexEllipse3D::PARAMETERS_AMOUNT));
        }
    }
}

TEST(VrexEllipseCalculator3D, NegativeOrderGivesNothing) {
    nsCalculatorChecks::Random random(5);
    const auto ellipse = makeRandom(random);
    const std::vector<VrexVariable> list(VrexEllipse3D::PARAMETERS_AMOUNT);
    EXPECT_TRUE(ellipse->evaluate(0.7, -1).empty());
    EXPECT_TRUE(ellipse->evaluate(list, VrexVariable(0.7), -1).empty());
}

TEST(VrexEllipseCalculator3D, TooHighAnOrderThrows) {
    nsCalculatorChecks::Random random(7);
    const auto ellipse = makeRandom(random);
    EXPECT_EQ(ellipse->evaluate(0.7, 100'000).size(), 100'001U);
    nsCalculatorChecks::expectTooHighOrder(*ellipse, VrexEllipse3D::PARAMETERS_AMOUNT);
}

TEST(VrexEllipseCalculator3D, TooFewParametersThrow) {
    nsCalculatorChecks::Random random(6);
    const auto ellipse = makeRandom(random);
    nsCalculatorChecks::expectTooFewParameters(
        [&](const auto& list) { return ellipse->evaluate(list, VrexVariable(0.7), 1); },
        VrexEllipse3D::PARAMETERS_AMOUNT);
}

} // namespace
