#include "data/geometry/3d/VrexSweepSurfaceCalculator3D.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "support/ExpectShapeDerivatives.h"
#include "support/LogCapture.h"
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
constexpr Values3 ZERO{0.0, 0.0, 0.0};

std::shared_ptr<VrexSweepSurface3D> randomSweep(RandomShapes& random) {
    return VrexSweepSurface3D::create(random.circle(), random.line(), {});
}

TEST(VrexSweepSurfaceCalculator3D, PointIsTheProfileMovedAlongTheDirection) {
    RandomShapes random;
    for (int round = 0; round < 50; ++round) {
        const auto surface = randomSweep(random);
        const double u = random.number(-4.0, 4.0);
        const double v = random.number(-4.0, 4.0);
        const Vector expected =
            surface->getProfileCurve()->evaluate(u, 0)[0] + surface->getTrajectoryLine()->getDirection() * v;
        const Sample sample = surface->evaluate(u, v, 0);
        EXPECT_EQ(valuesOf(sample[0]), valuesOf(expected));
        for (std::size_t element = 1; element < Sample::SIZE; ++element) {
            EXPECT_EQ(valuesOf(sample[element]), ZERO) << "behind the order";
        }
    }
}

TEST(VrexSweepSurfaceCalculator3D, AtZeroItLiesOnTheProfileWhereverTheLineIs) {
    RandomShapes random;
    const auto surface = randomSweep(random);
    for (int round = 0; round < 10; ++round) {
        surface->getTrajectoryLine()->setOrigin(random.point() * 1e3);
        const double u = random.number(-4.0, 4.0);
        EXPECT_EQ(valuesOf(surface->evaluate(u, 0.0, 2)[0]),
                  valuesOf(surface->getProfileCurve()->evaluate(u, 0)[0]));
    }
}

TEST(VrexSweepSurfaceCalculator3D, DerivativesByUAndOnceByVMatchDifferences) {
    RandomShapes random;
    for (int round = 0; round < 20; ++round) {
        const auto surface = randomSweep(random);
        const double u = random.number(-4.0, 4.0);
        const double v = random.number(-4.0, 4.0);
        const Sample sample = surface->evaluate(u, v, 2);
        for (int i = 1; i <= 2; ++i) {
            expectNear(sample[Sample::index(i, 0)], slope([&](double step) {
                           return surface->evaluate(u + step, v, 2)[Sample::index(i - 1, 0)];
                       }),
                       DIFFERENCE);
        }
        expectNear(sample[Sample::index(0, 1)],
                   slope([&](double step) { return surface->evaluate(u, v + step, 0)[0]; }), DIFFERENCE);
    }
}

TEST(VrexSweepSurfaceCalculator3D, FirstOrderByVIsTheDirectionInEveryOrderByU) {
    RandomShapes random;
    const auto surface = randomSweep(random);
    const Sample sample = surface->evaluate(0.3, 0.4, 2);
    const Values3 direction = valuesOf(surface->getTrajectoryLine()->getDirection());
    for (int i = 0; i <= 2; ++i) {
        EXPECT_EQ(valuesOf(sample[Sample::index(i, 1)]), direction) << i;
        EXPECT_EQ(valuesOf(sample[Sample::index(i, 2)]), ZERO) << i;
    }
}

TEST(VrexSweepSurfaceCalculator3D, NormalIsThatOfTheTangents) {
    RandomShapes random;
    const auto surface = randomSweep(random);
    VrexSweepSurfaceCalculator3D calculator(*surface);
    const Vector tangent = surface->getProfileCurve()->evaluate(0.3, 1)[1];
    EXPECT_EQ(valuesOf(calculator.calculateNormal(0.3, 0.4)),
              valuesOf(tangent.crossProduct(surface->getTrajectoryLine()->getDirection())));
}

TEST(VrexSweepSurfaceCalculator3D, DifferentiableResultsMatchDifferencesInEveryParameter) {
    RandomShapes random;
    for (int round = 0; round < 5; ++round) {
        const auto surface = randomSweep(random);
        const auto u = VrexGeometryVariable::create(random.number(-4.0, 4.0));
        const auto v = VrexGeometryVariable::create(random.number(-4.0, 4.0));
        auto parameters = parametersOf(surface->getProfileCurve(), VrexCircle3D::PARAMETERS_AMOUNT);
        for (const auto& parameter :
             parametersOf(surface->getTrajectoryLine(), VrexLine3D::PARAMETERS_AMOUNT)) {
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

TEST(VrexSweepSurfaceCalculator3D, ReadsOnlyTheAnglesOfTheLine) {
    const auto surface = makeSample<VrexSweepSurface3D>();
    auto parameters = parametersOf(surface->getProfileCurve(), VrexCircle3D::PARAMETERS_AMOUNT);
    for (const auto& parameter : parametersOf(surface->getTrajectoryLine(), VrexLine3D::PARAMETERS_AMOUNT)) {
        parameters.push_back(parameter);
    }
    const auto result = surface->evaluate(nsShapeDerivatives::variablesOf(parameters), VrexVariable(0.3),
                                          VrexVariable(0.4), 2);
    for (const auto& element : result) {
        for (int component = 0; component < 3; ++component) {
            for (const auto& entry : element[component].derivatives()) {
                EXPECT_TRUE(entry.key < 6 || entry.key >= 9) << "no zeros are added, and no origin is read";
            }
        }
    }
}

TEST(VrexSweepSurfaceCalculator3D, ProfileThatAddsZeroDerivativesAddsThemForTheWholeList) {
    const auto curve =
        VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, VrexQuaternionT<double>::ONE(), {}, "t", "t * t", "1");
    const auto surface = VrexSweepSurface3D::create(curve, makeSample<VrexLine3D>(), {});
    std::vector<VrexVariable> variables(VrexEvaluatedCurve3D::PARAMETERS_AMOUNT +
                                        VrexLine3D::PARAMETERS_AMOUNT);
    VrexVariable::initializeDerivatives(variables);
    const auto result = surface->evaluate(variables, VrexVariable(0.3), VrexVariable(0.4), 0);
    EXPECT_EQ(result[0].x().derivatives().size(), variables.size());
}

TEST(VrexSweepSurfaceCalculator3D, NegativeOrderFillsNothingAndAHighOneCountsAsTwo) {
    const auto surface = makeSample<VrexSweepSurface3D>();
    VrexSweepSurfaceCalculator3D calculator(*surface);
    for (const Vector& element : calculator.calculate(0.3, 0.4, -1)) {
        EXPECT_EQ(valuesOf(element), ZERO);
    }
    const Sample second = calculator.calculate(0.3, 0.4, 2);
    const Sample high = calculator.calculate(0.3, 0.4, 1'000'000'000);
    for (std::size_t element = 0; element < Sample::SIZE; ++element) {
        EXPECT_EQ(valuesOf(high[element]), valuesOf(second[element]));
    }
}

TEST(VrexSweepSurfaceCalculator3D, TooFewParametersThrow) {
    const auto surface = makeSample<VrexSweepSurface3D>();
    const std::vector<VrexVariable> four(4);
    EXPECT_THROW(static_cast<void>(surface->evaluate(four, VrexVariable(), VrexVariable(), 0)),
                 std::invalid_argument);
    const std::vector<VrexVariable> five(5);
    EXPECT_THROW(static_cast<void>(surface->evaluate(five, VrexVariable(), VrexVariable(), 0)),
                 std::invalid_argument);
}

TEST(VrexSweepSurfaceCalculator3D, ProfileAndLineShareNoParameters) {
    const auto line = makeSample<VrexLine3D>();
    for (const auto& [profile, count] : makeProfiles()) {
        const auto surface = VrexSweepSurface3D::create(profile, line, {});
        std::vector<VrexVariable> parameters(count + 5, VrexVariable(0.5));
        EXPECT_NO_THROW(static_cast<void>(surface->evaluate(parameters, VrexVariable(), VrexVariable(), 0)));
        parameters.pop_back();
        EXPECT_THROW(static_cast<void>(surface->evaluate(parameters, VrexVariable(), VrexVariable(), 0)),
                     std::invalid_argument)
            << count;
    }
}

TEST(VrexSweepSurfaceCalculator3D, MissingProfileOrLineThrows) {
    for (const auto& surface : {VrexSweepSurface3D::create(nullptr, makeSample<VrexLine3D>(), {}),
                                VrexSweepSurface3D::create(makeSample<VrexCircle3D>(), nullptr, {})}) {
        const LogCapture log;
        EXPECT_THROW(static_cast<void>(surface->evaluate(0.0, 0.0, 0)), std::invalid_argument);
        const std::vector<VrexVariable> parameters(11);
        EXPECT_THROW(static_cast<void>(surface->evaluate(parameters, VrexVariable(), VrexVariable(), 0)),
                     std::invalid_argument);
        ASSERT_EQ(log.lines().size(), 2U);
        EXPECT_EQ(log.lines()[1].text,
                  "VrexSweepSurfaceCalculator3D::requireCurves(): The sweep surface lacks "
                  "its profile curve or its trajectory line.");
    }
}

} // namespace
