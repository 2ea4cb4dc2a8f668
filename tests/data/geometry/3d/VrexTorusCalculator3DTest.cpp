#include "data/geometry/3d/VrexTorusCalculator3D.h"

#include <cmath>
#include <cstddef>
#include <memory>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexTorus3D.h"
#include "support/CalculatorChecks.h"

using nsCalculatorChecks::Axes;
using nsCalculatorChecks::expectNear;

namespace {

using Vector = VrexVector3DT<double>;

std::shared_ptr<VrexTorus3D> makeRandom(nsCalculatorChecks::Random& random) {
    const Vector center = random.vector(-5.0, 5.0);
    const Vector normal = random.vector(-1.0, 1.0);
    const double major = random.number(-4.0, 4.0);
    return VrexTorus3D::create(center, normal, major, random.number(-4.0, 4.0));
}

TEST(VrexTorusCalculator3D, PointAtZeroIsBothRadiiAlongX) {
    const Vector center(1.0, -2.0, 3.0);
    const Vector normal(2.0, -1.0, 2.0);
    const auto torus = VrexTorus3D::create(center, normal, 3.0, 1.25);
    expectNear(torus->evaluate(0.0, 0.0, 0)[0], center + Axes(normal).X * 4.25);
}

TEST(VrexTorusCalculator3D, PointAndDerivativesAreThoseOfTheClosedForm) {
    const Vector center(1.0, -2.0, 3.0);
    const Vector normal(2.0, -1.0, 2.0);
    const Axes axes(normal);
    const double R = 3.0;
    const double r = 1.25;
    const double u = 0.7;
    const double v = 2.1;
    const auto sample = VrexTorus3D::create(center, normal, R, r)->evaluate(u, v, 2);
    const Vector outwards = axes.X * std::cos(u) + axes.Y * std::sin(u);
    const Vector around = axes.X * -std::sin(u) + axes.Y * std::cos(u);
    const double c = std::cos(v);
    const double s = std::sin(v);
    expectNear(sample[0], center + outwards * (R + r * c) + axes.Z * (r * s));
    expectNear(sample[1], outwards * (-r * s) + axes.Z * (r * c));
    expectNear(sample[2], outwards * (-r * c) - axes.Z * (r * s));
    expectNear(sample[3], around * (R + r * c));
    expectNear(sample[4], around * (-r * s));
    expectNear(sample[5], around * (-r * c));
    expectNear(sample[6], outwards * -(R + r * c));
    expectNear(sample[7], outwards * (r * s));
    expectNear(sample[8], outwards * (r * c));
}

TEST(VrexTorusCalculator3D, NormalIsTheCrossProductOfTheTangents) {
    const Vector normal(2.0, -1.0, 2.0);
    const Axes axes(normal);
    const double u = 0.7;
    const double v = 2.1;
    const auto torus = VrexTorus3D::create({1.0, -2.0, 3.0}, normal, 3.0, 1.25);
    // Outwards of the tube, as long as the two tangents, which stand at a right angle.
    const Vector outwards =
        (axes.X * std::cos(u) + axes.Y * std::sin(u)) * std::cos(v) + axes.Z * std::sin(v);
    expectNear(VrexTorusCalculator3D(*torus).calculateNormal(u, v),
               outwards * ((3.0 + 1.25 * std::cos(v)) * 1.25));
}

TEST(VrexTorusCalculator3D, LowOrdersFillWhatTheyReach) {
    nsCalculatorChecks::Random random(7);
    const auto torus = makeRandom(random);
    const auto second = torus->evaluate(0.7, -2.5, 2);
    const auto first = torus->evaluate(0.7, -2.5, 1);
    const auto point = torus->evaluate(0.7, -2.5, 0);
    for (std::size_t element = 0; element < 9; ++element) {
        const bool inFirst = element == 0 || element == 1 || element == 3 || element == 4;
        expectNear(first[element], inFirst ? second[element] : Vector(), 0.0);
        expectNear(point[element], element == 0 ? second[element] : Vector(), 0.0);
    }
}

TEST(VrexTorusCalculator3D, OrdersOutsideTheGridAreLimited) {
    nsCalculatorChecks::Random random(8);
    nsCalculatorChecks::expectOrderLimits(makeRandom(random));
}

TEST(VrexTorusCalculator3D, HeldCalculatorAndItsCopiesFollowTheTorus) {
    nsCalculatorChecks::Random random(9);
    const auto torus = makeRandom(random);
    VrexTorusCalculator3D calculator(*torus);
    VrexTorusCalculator3D copy(calculator);
    static_cast<void>(calculator.calculate(0.7, 2.0, 0));
    torus->setNormal({0.0, 3.0, 4.0});
    const Vector expected = torus->evaluate(0.7, 2.0, 0)[0];
    expectNear(calculator.calculate(0.7, 2.0, 0)[0], expected, 0.0);
    expectNear(copy.calculate(0.7, 2.0, 0)[0], expected, 0.0);
}

TEST(VrexTorusCalculator3D, DerivativesAgreeWithDifferences) {
    nsCalculatorChecks::Random random(1);
    for (int i = 0; i < 50; ++i) {
        nsCalculatorChecks::expectSurfaceDerivatives(*makeRandom(random), random.number(-7.0, 7.0),
                                                     random.number(-7.0, 7.0), {1, 2, 3, 4, 5, 6, 7, 8});
    }
}

TEST(VrexTorusCalculator3D, GradientsAgreeWithDifferences) {
    nsCalculatorChecks::Random random(2);
    for (int i = 0; i < 10; ++i) {
        nsCalculatorChecks::expectSurfaceGradients(makeRandom(random), random.number(-3.0, 3.0),
                                                   random.number(-3.0, 3.0));
    }
}

TEST(VrexTorusCalculator3D, DifferentiableValuesHaveTheBitsOfPlainOnes) {
    nsCalculatorChecks::Random random(3);
    for (int i = 0; i < 200; ++i) {
        nsCalculatorChecks::expectSurfaceBits(makeRandom(random), random.number(-50.0, 50.0),
                                              random.number(-50.0, 50.0), i % 3);
    }
    nsCalculatorChecks::expectSurfaceBits(makeRandom(random), std::nan(""), 1.0, 2);
}

TEST(VrexTorusCalculator3D, ResultsDependOnNoFurtherParameter) {
    nsCalculatorChecks::Random random(4);
    nsCalculatorChecks::expectNoFurtherParameter(makeRandom(random));
}

TEST(VrexTorusCalculator3D, TooFewParametersThrow) {
    nsCalculatorChecks::Random random(6);
    const auto torus = makeRandom(random);
    VrexTorusCalculator3D calculator(*torus);
    const VrexVariable at(0.7);
    nsCalculatorChecks::expectTooFewParameters(
        [&](const auto& list) { return calculator.calculate(list, at, at, 1); },
        VrexTorus3D::PARAMETERS_AMOUNT);
    nsCalculatorChecks::expectTooFewParameters(
        [&](const auto& list) { return calculator.calculateNormal(list, at, at); },
        VrexTorus3D::PARAMETERS_AMOUNT);
}

} // namespace
