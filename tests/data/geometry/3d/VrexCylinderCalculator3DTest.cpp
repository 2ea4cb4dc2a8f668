#include "data/geometry/3d/VrexCylinderCalculator3D.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexCylinder3D.h"
#include "support/CalculatorChecks.h"

using nsCalculatorChecks::Axes;
using nsCalculatorChecks::expectNear;

namespace {

using Vector = VrexVector3DT<double>;

std::shared_ptr<VrexCylinder3D> makeRandom(nsCalculatorChecks::Random& random) {
    const Vector origin = random.vector(-5.0, 5.0);
    const Vector direction = random.vector(-1.0, 1.0);
    return VrexCylinder3D::create(origin, direction, random.number(-4.0, 4.0));
}

TEST(VrexCylinderCalculator3D, PointAndDerivativesAreThoseOfTheClosedForm) {
    const Vector origin(1.0, -2.0, 3.0);
    const Vector direction(2.0, -1.0, 2.0);
    const Axes axes(direction);
    const auto cylinder = VrexCylinder3D::create(origin, direction, 1.5);
    const double u = 0.7;
    const auto sample = cylinder->evaluate(u, -2.5, 2);
    const Vector outwards = axes.X * (1.5 * std::cos(u)) + axes.Y * (1.5 * std::sin(u));
    expectNear(sample[0], origin + outwards + axes.Z * -2.5);
    expectNear(sample[1], axes.Z);
    expectNear(sample[3], axes.X * (-1.5 * std::sin(u)) + axes.Y * (1.5 * std::cos(u)));
    expectNear(sample[6], -outwards);
    for (const std::size_t element : {2U, 4U, 5U, 7U, 8U}) {
        expectNear(sample[element], {0.0, 0.0, 0.0}, 0.0);
    }
}

TEST(VrexCylinderCalculator3D, NegativeRadiusIsOnTheOtherSideAndItsNormalPointsThere) {
    const Vector origin(1.0, -2.0, 3.0);
    const Vector direction(2.0, -1.0, 2.0);
    const Axes axes(direction);
    const auto cylinder = VrexCylinder3D::create(origin, direction, -1.0);
    const double u = 0.7;
    const Vector outwards = axes.X * std::cos(u) + axes.Y * std::sin(u);
    expectNear(cylinder->evaluate(u, 0.0, 0)[0], origin - outwards);
    expectNear(VrexCylinderCalculator3D(*cylinder).calculateNormal(u, 0.0), -outwards);
    for (const double radius : {1.0, 1e-08}) {
        const auto positive = VrexCylinder3D::create(origin, direction, radius);
        expectNear(positive->evaluate(u, 0.0, 0)[0], origin + outwards * radius);
        expectNear(VrexCylinderCalculator3D(*positive).calculateNormal(u, 0.0), outwards);
    }
}

TEST(VrexCylinderCalculator3D, NormalIsOfUnitLengthAndVanishesWithTheRadius) {
    const auto cylinder = VrexCylinder3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.0);
    VrexCylinderCalculator3D calculator(*cylinder);
    const auto lengthAt = [&](double radius) {
        cylinder->setRadius(radius);
        const auto list = nsCalculatorChecks::independent(
            nsCalculatorChecks::parametersOf(cylinder, VrexCylinder3D::PARAMETERS_AMOUNT, {}));
        nsCalculatorChecks::expectSameBits(
            calculator.calculateNormal(list, VrexVariable(0.7), VrexVariable(5.0)),
            calculator.calculateNormal(0.7, 5.0));
        return calculator.calculateNormal(0.7, 5.0).magnitude();
    };
    EXPECT_NEAR(lengthAt(100.0), 1.0, 1e-15);
    EXPECT_NEAR(lengthAt(1e-08), 1.0, 1e-15) << "exactly the limit";
    EXPECT_NEAR(lengthAt(-1e-08), 1.0, 1e-15);
    EXPECT_EQ(lengthAt(0.99e-08), 0.0);
    EXPECT_EQ(lengthAt(-0.99e-08), 0.0);
    EXPECT_EQ(lengthAt(0.0), 0.0);
}

TEST(VrexCylinderCalculator3D, LowOrdersFillWhatTheyReach) {
    nsCalculatorChecks::Random random(7);
    const auto cylinder = makeRandom(random);
    const auto second = cylinder->evaluate(0.7, -2.5, 2);
    const auto first = cylinder->evaluate(0.7, -2.5, 1);
    const auto point = cylinder->evaluate(0.7, -2.5, 0);
    for (std::size_t element = 0; element < 9; ++element) {
        const bool inFirst = element == 0 || element == 1 || element == 3;
        expectNear(first[element], inFirst ? second[element] : Vector(), 0.0);
        expectNear(point[element], element == 0 ? second[element] : Vector(), 0.0);
    }
}

TEST(VrexCylinderCalculator3D, OrdersOutsideTheGridAreLimited) {
    nsCalculatorChecks::Random random(8);
    nsCalculatorChecks::expectOrderLimits(makeRandom(random));
}

TEST(VrexCylinderCalculator3D, HeldCalculatorAndItsCopiesFollowTheCylinder) {
    nsCalculatorChecks::Random random(9);
    const auto cylinder = makeRandom(random);
    VrexCylinderCalculator3D calculator(*cylinder);
    VrexCylinderCalculator3D copy(calculator);
    static_cast<void>(calculator.calculate(0.7, 2.0, 0));
    cylinder->setDirection({0.0, 3.0, 4.0});
    const Vector expected = cylinder->evaluate(0.7, 2.0, 0)[0];
    expectNear(calculator.calculate(0.7, 2.0, 0)[0], expected, 0.0);
    expectNear(copy.calculate(0.7, 2.0, 0)[0], expected, 0.0);
}

TEST(VrexCylinderCalculator3D, DerivativesAgreeWithDifferences) {
    nsCalculatorChecks::Random random(1);
    for (int i = 0; i < 50; ++i) {
        nsCalculatorChecks::expectSurfaceDerivatives(*makeRandom(random), random.number(-7.0, 7.0),
                                                     random.number(-20.0, 20.0), {1, 2, 3, 4, 5, 6, 7, 8});
    }
}

TEST(VrexCylinderCalculator3D, GradientsAgreeWithDifferences) {
    nsCalculatorChecks::Random random(2);
    for (int i = 0; i < 10; ++i) {
        nsCalculatorChecks::expectSurfaceGradients(makeRandom(random), random.number(-7.0, 7.0),
                                                   random.number(-20.0, 20.0));
    }
}

TEST(VrexCylinderCalculator3D, DifferentiableValuesHaveTheBitsOfPlainOnes) {
    nsCalculatorChecks::Random random(3);
    for (int i = 0; i < 200; ++i) {
        nsCalculatorChecks::expectSurfaceBits(makeRandom(random), random.number(-50.0, 50.0),
                                              random.number(-500.0, 500.0), i % 3);
    }
    const auto cylinder = makeRandom(random);
    nsCalculatorChecks::expectSurfaceBits(cylinder, std::nan(""), 1.0, 2);
    nsCalculatorChecks::expectSurfaceBits(cylinder, 1.0, std::numeric_limits<double>::infinity(), 2);
}

TEST(VrexCylinderCalculator3D, EveryParameterAppearsInEveryElementUnlessSwitchedOff) {
    nsCalculatorChecks::Random random(4);
    const auto cylinder = makeRandom(random);
    constexpr int count = VrexCylinder3D::PARAMETERS_AMOUNT;
    // One more parameter than the cylinder has: it too is listed.
    const auto list =
        nsCalculatorChecks::independent(nsCalculatorChecks::parametersOf(cylinder, count, {9.0}));
    VrexCylinderCalculator3D calculator(*cylinder);
    const auto keysOf = [&](std::size_t element, int component) {
        const auto sample = calculator.calculate(list, VrexVariable(0.7), VrexVariable(2.0), 1);
        return nsScalarSamples::entriesOf(sample[element][component]).size();
    };
    for (std::size_t element = 0; element < 9; ++element) {
        for (int component = 0; component < 3; ++component) {
            EXPECT_EQ(keysOf(element, component), static_cast<std::size_t>(count) + 1);
        }
    }
    calculator.setAddZeroDerivatives(false);
    EXPECT_EQ(keysOf(8, 0), 0U) << "not evaluated at all";
    EXPECT_EQ(keysOf(1, 0), 2U) << "the two angles of the axis";
    EXPECT_EQ(keysOf(3, 0), 3U) << "the radius as well";
    EXPECT_EQ(keysOf(0, 0), 4U) << "the origin's own component as well";
}

TEST(VrexCylinderCalculator3D, DerivativesThatVanishDependOnTheAxisAllTheSame) {
    nsCalculatorChecks::Random random(7);
    const auto cylinder = makeRandom(random);
    VrexCylinderCalculator3D calculator(*cylinder);
    calculator.setAddZeroDerivatives(false);
    const auto list = nsCalculatorChecks::independent(
        nsCalculatorChecks::parametersOf(cylinder, VrexCylinder3D::PARAMETERS_AMOUNT, {}));
    const auto sample = calculator.calculate(list, VrexVariable(0.7), VrexVariable(2.0), 2);
    for (const std::size_t element : {2U, 4U, 5U, 7U, 8U}) {
        for (int component = 0; component < 3; ++component) {
            EXPECT_EQ(sample[element][component].value(), 0.0);
            EXPECT_EQ(sample[element][component].derivatives().size(), 2U) << element << " " << component;
        }
    }
}

TEST(VrexCylinderCalculator3D, NormalNeverGetsFurtherParameters) {
    nsCalculatorChecks::Random random(5);
    const auto cylinder = makeRandom(random);
    const auto list = nsCalculatorChecks::independent(
        nsCalculatorChecks::parametersOf(cylinder, VrexCylinder3D::PARAMETERS_AMOUNT, {9.0}));
    const auto normal =
        VrexCylinderCalculator3D(*cylinder).calculateNormal(list, VrexVariable(0.7), VrexVariable(2.0));
    EXPECT_EQ(normal.x().derivatives().size(), 2U) << "the two angles of the axis";
}

TEST(VrexCylinderCalculator3D, TooFewParametersThrow) {
    nsCalculatorChecks::Random random(6);
    const auto cylinder = makeRandom(random);
    VrexCylinderCalculator3D calculator(*cylinder);
    const VrexVariable at(0.7);
    nsCalculatorChecks::expectTooFewParameters(
        [&](const auto& list) { return calculator.calculate(list, at, at, 1); },
        VrexCylinder3D::PARAMETERS_AMOUNT);
    nsCalculatorChecks::expectTooFewParameters(
        [&](const auto& list) { return calculator.calculateNormal(list, at, at); },
        VrexCylinder3D::PARAMETERS_AMOUNT);
}

} // namespace
