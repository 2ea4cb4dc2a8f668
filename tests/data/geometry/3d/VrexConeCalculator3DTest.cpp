#include "data/geometry/3d/VrexConeCalculator3D.h"

#include <cmath>
#include <cstddef>
#include <memory>
#include <numbers>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "support/CalculatorChecks.h"

using nsCalculatorChecks::Axes;
using nsCalculatorChecks::expectNear;

namespace {

using Vector = VrexVector3DT<double>;
constexpr double PI = std::numbers::pi;

std::shared_ptr<VrexCone3D> makeRandom(nsCalculatorChecks::Random& random) {
    const Vector origin = random.vector(-5.0, 5.0);
    const Vector direction = random.vector(-1.0, 1.0);
    // Off 0, where the reflection begins, by more than the differences reach.
    const double size = random.number(0.1, 3.0);
    return VrexCone3D::create(origin, direction, random.number(-1.0, 1.0) < 0.0 ? -size : size);
}

TEST(VrexConeCalculator3D, PointAndDerivativesAreThoseOfTheClosedForm) {
    const Vector apex(1.0, -2.0, 3.0);
    const Vector direction(2.0, -1.0, 2.0);
    const Axes axes(direction);
    const double u = 0.7;
    const double v = -2.5;
    for (const double alpha : {0.6, 2.0}) {
        const auto cone = VrexCone3D::create(apex, direction, alpha);
        const auto sample = cone->evaluate(u, v, 2);
        const Vector outwards = axes.X * std::cos(u) + axes.Y * std::sin(u);
        const Vector around = axes.X * -std::sin(u) + axes.Y * std::cos(u);
        const double s = std::sin(alpha);
        expectNear(sample[0], apex + outwards * (v * s) + axes.Z * (v * std::cos(alpha)));
        expectNear(sample[1], outwards * s + axes.Z * std::cos(alpha));
        expectNear(sample[2], {0.0, 0.0, 0.0}, 0.0);
        expectNear(sample[3], around * (v * s));
        expectNear(sample[4], around * s);
        expectNear(sample[6], outwards * (-v * s));
        for (const std::size_t element : {5U, 7U, 8U}) {
            expectNear(sample[element], {0.0, 0.0, 0.0}, 0.0);
        }
    }
}

TEST(VrexConeCalculator3D, NegativeApertureIsReflectedThroughTheApex) {
    const Vector apex(1.0, -2.0, 3.0);
    const Vector direction(2.0, -1.0, 2.0);
    const Axes axes(direction);
    const double u = 0.7;
    const double v = 2.5;
    for (const double alpha : {-0.6, -2.0, -1e-3}) {
        const auto cone = VrexCone3D::create(apex, direction, alpha);
        const auto sample = cone->evaluate(u, v, 2);
        const Vector outwards = axes.X * std::cos(u) + axes.Y * std::sin(u);
        const Vector plain = outwards * std::sin(alpha) + axes.Z * std::cos(alpha);
        expectNear(sample[0], apex - plain * v);
        expectNear(sample[1], -plain);
        expectNear(sample[6], outwards * (v * std::sin(alpha)));
    }
}

TEST(VrexConeCalculator3D, NormalIsNeitherReflectedNorDependsOnV) {
    const Vector direction(2.0, -1.0, 2.0);
    const Axes axes(direction);
    const double u = 0.7;
    for (const double alpha : {0.6, 2.0, -0.6, -2.0}) {
        const auto cone = VrexCone3D::create({1.0, -2.0, 3.0}, direction, alpha);
        VrexConeCalculator3D calculator(*cone);
        const Vector expected =
            (axes.X * std::cos(u) + axes.Y * std::sin(u)) * std::cos(alpha) - axes.Z * std::sin(alpha);
        expectNear(calculator.calculateNormal(u, 0.0), expected);
        expectNear(calculator.calculateNormal(u, 0.0), calculator.calculateNormal(u, 1e9), 0.0);
    }
}

TEST(VrexConeCalculator3D, DegenerateConeHasNoNormal) {
    const auto cone = VrexCone3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 0.5);
    VrexConeCalculator3D calculator(*cone);
    const auto lengthAt = [&](double aperture) {
        // By its slot: the setter would take whole turns off.
        VrexVariableDescriptor(cone, VrexCone3D::ALPHA, nullptr).setValue(aperture);
        const auto list = nsCalculatorChecks::independent(
            nsCalculatorChecks::parametersOf(cone, VrexCone3D::PARAMETERS_AMOUNT, {}));
        nsCalculatorChecks::expectSameBits(
            calculator.calculateNormal(list, VrexVariable(0.7), VrexVariable(5.0)),
            calculator.calculateNormal(0.7, 5.0));
        return calculator.calculateNormal(0.7, 5.0).magnitude();
    };
    for (const double sign : {-1.0, 1.0}) {
        EXPECT_EQ(lengthAt(sign * 0.0), 0.0);
        EXPECT_EQ(lengthAt(sign * 0.99e-12), 0.0);
        EXPECT_NEAR(lengthAt(sign * 1e-12), 1.0, 1e-15) << "exactly the limit";
        EXPECT_EQ(lengthAt(sign * PI), 0.0);
        EXPECT_EQ(lengthAt(sign * (PI - 0.99e-12)), 0.0);
        EXPECT_EQ(lengthAt(sign * (PI + 0.99e-12)), 0.0);
        EXPECT_NEAR(lengthAt(sign * (PI - 1.01e-12)), 1.0, 1e-15);
        EXPECT_NEAR(lengthAt(sign * (PI + 1.01e-12)), 1.0, 1e-15);
    }
}

TEST(VrexConeCalculator3D, LowOrdersFillWhatTheyReach) {
    nsCalculatorChecks::Random random(7);
    const auto cone = makeRandom(random);
    const auto second = cone->evaluate(0.7, -2.5, 2);
    const auto first = cone->evaluate(0.7, -2.5, 1);
    const auto point = cone->evaluate(0.7, -2.5, 0);
    for (std::size_t element = 0; element < 9; ++element) {
        const bool inFirst = element == 0 || element == 1 || element == 3;
        expectNear(first[element], inFirst ? second[element] : Vector(), 0.0);
        expectNear(point[element], element == 0 ? second[element] : Vector(), 0.0);
    }
}

TEST(VrexConeCalculator3D, OrdersOutsideTheGridAreLimited) {
    nsCalculatorChecks::Random random(8);
    nsCalculatorChecks::expectOrderLimits(makeRandom(random));
}

TEST(VrexConeCalculator3D, HeldCalculatorAndItsCopiesFollowTheCone) {
    nsCalculatorChecks::Random random(9);
    const auto cone = makeRandom(random);
    VrexConeCalculator3D calculator(*cone);
    VrexConeCalculator3D copy(calculator);
    static_cast<void>(calculator.calculate(0.7, 2.0, 0));
    cone->setDirection({0.0, 3.0, 4.0});
    cone->setAperture(0.25);
    const Vector expected = cone->evaluate(0.7, 2.0, 0)[0];
    expectNear(calculator.calculate(0.7, 2.0, 0)[0], expected, 0.0);
    expectNear(copy.calculate(0.7, 2.0, 0)[0], expected, 0.0);
}

TEST(VrexConeCalculator3D, DerivativesAgreeWithDifferences) {
    nsCalculatorChecks::Random random(1);
    for (int i = 0; i < 50; ++i) {
        nsCalculatorChecks::expectSurfaceDerivatives(*makeRandom(random), random.number(-7.0, 7.0),
                                                     random.number(-20.0, 20.0), {1, 2, 3, 4, 6});
    }
}

TEST(VrexConeCalculator3D, GradientsAgreeWithDifferences) {
    nsCalculatorChecks::Random random(2);
    for (int i = 0; i < 10; ++i) {
        nsCalculatorChecks::expectSurfaceGradients(makeRandom(random), random.number(-7.0, 7.0),
                                                   random.number(-20.0, 20.0));
    }
}

TEST(VrexConeCalculator3D, DifferentiableValuesHaveTheBitsOfPlainOnes) {
    nsCalculatorChecks::Random random(3);
    for (int i = 0; i < 200; ++i) {
        nsCalculatorChecks::expectSurfaceBits(makeRandom(random), random.number(-50.0, 50.0),
                                              random.number(-500.0, 500.0), i % 3);
    }
    nsCalculatorChecks::expectSurfaceBits(makeRandom(random), std::nan(""), 1.0, 2);
}

TEST(VrexConeCalculator3D, ResultsDependOnNoFurtherParameter) {
    nsCalculatorChecks::Random random(4);
    nsCalculatorChecks::expectNoFurtherParameter(makeRandom(random));
}

TEST(VrexConeCalculator3D, TooFewParametersThrow) {
    nsCalculatorChecks::Random random(6);
    const auto cone = makeRandom(random);
    VrexConeCalculator3D calculator(*cone);
    const VrexVariable at(0.7);
    nsCalculatorChecks::expectTooFewParameters(
        [&](const auto& list) { return calculator.calculate(list, at, at, 1); },
        VrexCone3D::PARAMETERS_AMOUNT);
    nsCalculatorChecks::expectTooFewParameters(
        [&](const auto& list) { return calculator.calculateNormal(list, at, at); },
        VrexCone3D::PARAMETERS_AMOUNT);
}

} // namespace
