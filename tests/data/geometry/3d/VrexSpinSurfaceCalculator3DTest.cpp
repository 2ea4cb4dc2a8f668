#include "data/geometry/3d/VrexSpinSurfaceCalculator3D.h"

#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ExpectShapeDerivatives.h"
#include "support/LogCapture.h"
#include "support/ProbeShapes.h"
#include "support/ProfileSamples.h"
#include "support/RandomShapes.h"
#include "support/Samples.h"
#include "support/VectorSamples.h"

namespace {

using nsShapeDerivatives::expectNear;
using nsShapeDerivatives::parametersOf;
using nsShapeDerivatives::slope;
using nsVectorSamples::Values3;
using nsVectorSamples::valuesOf;
using Sample = VrexSurfaceSample<VrexVector3DT<double>>;
using Vector = VrexVector3DT<double>;

/// Of five-point differences over shapes of the size of a few units.
constexpr double DIFFERENCE = 1e-9;
/// Of a few roundings at that size.
constexpr double ROUNDING = 1e-14;

Vector rotateAbout(const VrexLine3D& line, const Vector& point, double angle) {
    const Values3 turned =
        nsVectorSamples::rodrigues(valuesOf(point - line.getOrigin()), valuesOf(line.getDirection()), angle);
    return line.getOrigin() + Vector(turned[0], turned[1], turned[2]);
}

TEST(VrexSpinSurfaceCalculator3D, PointIsTheProfileTurnedAboutTheLine) {
    RandomShapes random;
    for (int round = 0; round < 50; ++round) {
        const auto circle = random.circle();
        const auto line = random.line();
        const double u = random.number(-4.0, 4.0);
        const double v = random.number(-4.0, 4.0);
        const Sample sample = VrexSpinSurface3D::create(circle, line)->evaluate(u, v, 0);
        expectNear(sample[0], rotateAbout(*line, circle->evaluate(u, 0)[0], v), ROUNDING);
        for (std::size_t element = 1; element < Sample::SIZE; ++element) {
            EXPECT_EQ(valuesOf(sample[element]), (Values3{0.0, 0.0, 0.0})) << "behind the order";
        }
    }
}

TEST(VrexSpinSurfaceCalculator3D, FirstIndexOfTheGridCountsTheAngleWithTheSecondOrderNegated) {
    RandomShapes random;
    for (int round = 0; round < 20; ++round) {
        const auto surface = VrexSpinSurface3D::create(random.circle(), random.line());
        const double u = random.number(-4.0, 4.0);
        const double v = random.number(-4.0, 4.0);
        const Sample sample = surface->evaluate(u, v, 2);
        for (int i = 0; i <= 2; ++i) {
            for (int j = 0; j <= 2; ++j) {
                if (i + j == 0) {
                    continue;
                }
                SCOPED_TRACE(testing::Message() << "order " << i << " by the angle, " << j << " by u");
                const std::size_t lower = j > 0 ? Sample::index(i, j - 1) : Sample::index(i - 1, j);
                const Vector expected = slope([&](double step) {
                    return j > 0 ? surface->evaluate(u + step, v, 2)[lower]
                                 : surface->evaluate(u, v + step, 2)[lower];
                });
                const double sign = i == 2 && j == 0 ? -1.0 : 1.0;
                expectNear(sample[Sample::index(i, j)], expected * sign, DIFFERENCE);
            }
        }
    }
}

TEST(VrexSpinSurfaceCalculator3D, ClosedFormOfATurnedPoint) {
    // The unit circle in the plane of X and Y about the Y axis, at u = 0, so from (1, 0, 0) with the tangent
    // (0, 1, 0) and the second derivative (-1, 0, 0), turned by 90 degrees: X goes to -Z.
    const auto surface =
        VrexSpinSurface3D::create(VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0),
                                  VrexLine3D::create({0.0, 5.0, 0.0}, {0.0, 1.0, 0.0}));
    const Sample sample = surface->evaluate(0.0, nsVectorSamples::PI / 2.0, 2);
    const Vector expected[Sample::SIZE] = {
        {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, // w by u
        {-1.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, // a x w
        {0.0, 0.0, -1.0}, {0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, // -(a (a . w) - w)
    };
    for (std::size_t element = 0; element < Sample::SIZE; ++element) {
        SCOPED_TRACE(element);
        expectNear(sample[element], expected[element], ROUNDING);
    }
}

TEST(VrexSpinSurfaceCalculator3D, CircleAboutALineThroughItsCentreGivesASphere) {
    const Vector center(1.0, -2.0, 3.0);
    const auto surface =
        VrexSpinSurface3D::create(VrexCircle3D::create(center, {1.0, 0.0, 0.0}, 2.5),
                                  VrexLine3D::create(center + Vector(0.0, 0.0, 7.0), {0.0, 0.0, 1.0}));
    for (double u = 0.1; u < 6.0; u += 0.7) {
        for (double v = 0.0; v < 6.0; v += 0.9) {
            const Sample sample = surface->evaluate(u, v, 1);
            EXPECT_NEAR(sample[0].distanceTo(center), 2.5, ROUNDING);
            const Vector alongParallel = sample[Sample::index(1, 0)];
            EXPECT_NEAR(alongParallel.z(), 0.0, ROUNDING) << "tangent to a parallel";
            EXPECT_NEAR(alongParallel.dotProduct(sample[0] - center), 0.0, ROUNDING * 10.0);
        }
    }
}

TEST(VrexSpinSurfaceCalculator3D, NormalTakesTheDerivativeByTheAngleFirst) {
    const auto surface = makeSample<VrexSpinSurface3D>();
    VrexSpinSurfaceCalculator3D calculator(*surface);
    const Vector byAngle = slope([&](double step) { return surface->evaluate(0.3, 0.4 + step, 0)[0]; });
    const Vector byU = slope([&](double step) { return surface->evaluate(0.3 + step, 0.4, 0)[0]; });
    expectNear(calculator.calculateNormal(0.3, 0.4), byAngle.crossProduct(byU), DIFFERENCE);
}

TEST(VrexSpinSurfaceCalculator3D, DifferentiableResultsMatchDifferencesInEveryParameter) {
    RandomShapes random;
    for (int round = 0; round < 5; ++round) {
        const auto circle = random.circle();
        const auto line = random.line();
        const auto u = VrexGeometryVariable::create(random.number(-4.0, 4.0));
        const auto v = VrexGeometryVariable::create(random.number(-4.0, 4.0));
        const auto surface = VrexSpinSurface3D::create(circle, line);
        auto parameters = parametersOf(circle, VrexCircle3D::PARAMETERS_AMOUNT);
        for (const auto& parameter : parametersOf(line, VrexLine3D::PARAMETERS_AMOUNT)) {
            parameters.push_back(parameter);
        }
        parameters.emplace_back(u, 0, nullptr);
        parameters.emplace_back(v, 0, nullptr);
        nsShapeDerivatives::expectParameterDerivativesMatch(
            parameters, [&] { return surface->evaluate(u->getValue(), v->getValue(), 2); },
            [&](std::vector<VrexVariable> variables) {
                const VrexVariable variableV = variables.back();
                variables.pop_back();
                const VrexVariable variableU = variables.back();
                variables.pop_back();
                return surface->evaluate(variables, variableU, variableV, 2);
            },
            DIFFERENCE);
    }
}

TEST(VrexSpinSurfaceCalculator3D, LineIsReadFromTheEndOfTheList) {
    const auto surface = makeSample<VrexSpinSurface3D>();
    auto parameters = parametersOf(surface->getProfileCurve(), VrexCircle3D::PARAMETERS_AMOUNT);
    const auto lineParameters = parametersOf(surface->getAxisLine(), VrexLine3D::PARAMETERS_AMOUNT);
    auto variables = nsShapeDerivatives::variablesOf(parameters);
    variables.resize(20, VrexVariable(1e6));
    for (const auto& parameter : lineParameters) {
        variables.emplace_back(parameter.getValue());
    }
    const auto result = surface->evaluate(variables, VrexVariable(0.3), VrexVariable(0.4), 0);
    EXPECT_EQ(valuesOf(result[0]), valuesOf(surface->evaluate(0.3, 0.4, 0)[0]));
}

TEST(VrexSpinSurfaceCalculator3D, NegativeOrderFillsNothingAndAHighOneCountsAsTwo) {
    const auto surface = makeSample<VrexSpinSurface3D>();
    VrexSpinSurfaceCalculator3D calculator(*surface);
    for (const Vector& element : calculator.calculate(0.3, 0.4, -1)) {
        EXPECT_EQ(valuesOf(element), (Values3{0.0, 0.0, 0.0}));
    }
    const Sample second = calculator.calculate(0.3, 0.4, 2);
    const Sample high = calculator.calculate(0.3, 0.4, 1'000'000'000);
    for (std::size_t element = 0; element < Sample::SIZE; ++element) {
        EXPECT_EQ(valuesOf(high[element]), valuesOf(second[element]));
    }
}

TEST(VrexSpinSurfaceCalculator3D, TooFewParametersThrow) {
    const auto surface = makeSample<VrexSpinSurface3D>();
    const std::vector<VrexVariable> four(4);
    EXPECT_THROW(static_cast<void>(surface->evaluate(four, VrexVariable(), VrexVariable(), 0)),
                 std::invalid_argument);
    const std::vector<VrexVariable> five(5);
    EXPECT_THROW(static_cast<void>(surface->evaluate(five, VrexVariable(), VrexVariable(), 0)),
                 std::invalid_argument);
}

TEST(VrexSpinSurfaceCalculator3D, ProfileAndLineShareNoParameters) {
    const auto line = makeSample<VrexLine3D>();
    for (const auto& [profile, count] : makeProfiles()) {
        const auto surface = VrexSpinSurface3D::create(profile, line);
        std::vector<VrexVariable> parameters(count + 5, VrexVariable(0.5));
        EXPECT_NO_THROW(static_cast<void>(surface->evaluate(parameters, VrexVariable(), VrexVariable(), 0)));
        parameters.pop_back();
        EXPECT_THROW(static_cast<void>(surface->evaluate(parameters, VrexVariable(), VrexVariable(), 0)),
                     std::invalid_argument)
            << count;
    }
}

TEST(VrexSpinSurfaceCalculator3D, ProfileWithoutACalculatorThrowsAsByItself) {
    const auto surface = VrexSpinSurface3D::create(std::make_shared<ProbeCurve>(), makeSample<VrexLine3D>());
    EXPECT_THAT([&] { static_cast<void>(surface->evaluate(0.0, 0.0, 0)); },
                testing::ThrowsMessage<std::runtime_error>("This curve type is unsupported"));
    const std::vector<VrexVariable> line(5);
    EXPECT_THAT([&] { static_cast<void>(surface->evaluate(line, VrexVariable(), VrexVariable(), 0)); },
                testing::ThrowsMessage<std::runtime_error>("This curve type is unsupported"));
}

TEST(VrexSpinSurfaceCalculator3D, MissingProfileOrLineThrows) {
    for (const auto& surface : {VrexSpinSurface3D::create(nullptr, makeSample<VrexLine3D>()),
                                VrexSpinSurface3D::create(makeSample<VrexCircle3D>(), nullptr)}) {
        const LogCapture log;
        EXPECT_THROW(static_cast<void>(surface->evaluate(0.0, 0.0, 0)), std::invalid_argument);
        const std::vector<VrexVariable> parameters(11);
        EXPECT_THROW(static_cast<void>(surface->evaluate(parameters, VrexVariable(), VrexVariable(), 0)),
                     std::invalid_argument);
        ASSERT_EQ(log.lines().size(), 2U);
        EXPECT_EQ(log.lines()[0].level, 1U);
        EXPECT_EQ(log.lines()[0].text,
                  "VrexSpinSurfaceCalculator3D::requireCurves(): The spin surface lacks its "
                  "profile curve or its axis line.");
    }
}

} // namespace
