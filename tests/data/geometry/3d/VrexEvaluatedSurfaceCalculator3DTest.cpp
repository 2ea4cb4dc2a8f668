#include "data/geometry/3d/VrexEvaluatedSurfaceCalculator3D.h"

#include <cmath>
#include <stdexcept>

#include <gtest/gtest.h>

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
using Sample = VrexSurfaceSample<VrexVector3DT<double>>;
using Vector = VrexVector3DT<double>;

/// Of five-point differences over shapes of the size of a few units.
constexpr double DIFFERENCE = 1e-9;

std::shared_ptr<VrexEvaluatedSurface3D> randomSurface(RandomShapes& random) {
    return VrexEvaluatedSurface3D::create(random.point(), random.rotation(),
                                          {{VrexGeometryVariable::create(random.number(0.5, 2.0)), 0, "r"},
                                           {random.line(), VrexLine3D::Y, "p"}},
                                          "r * cos(u) * cos(v) + p * u * v", "r * sin(u) * cos(v)",
                                          "r * sin(v) + p * u * u * v * v");
}

TEST(VrexEvaluatedSurfaceCalculator3D, PointIsTurnedAndMoved) {
    RandomShapes random;
    for (int round = 0; round < 20; ++round) {
        const auto surface = randomSurface(random);
        const double u = random.number(-2.0, 2.0);
        const double v = random.number(-2.0, 2.0);
        const double r = surface->descriptors()[0].getValue();
        const double p = surface->descriptors()[1].getValue();
        const Values3 local{r * std::cos(u) * std::cos(v) + p * u * v, r * std::sin(u) * std::cos(v),
                            r * std::sin(v) + p * u * u * v * v};
        const Values3 turned = nsVectorSamples::rodrigues(
            local, valuesOf(surface->getRotation().rotationalAxis(1e-10)), surface->getAngle());
        const Sample sample = surface->evaluate(u, v, 0);
        expectNear(sample[0], surface->getOrigin() + Vector(turned[0], turned[1], turned[2]), 1e-13);
        for (std::size_t element = 1; element < Sample::SIZE; ++element) {
            EXPECT_EQ(valuesOf(sample[element]), (Values3{0.0, 0.0, 0.0})) << "behind the order";
        }
    }
}

TEST(VrexEvaluatedSurfaceCalculator3D, FirstIndexOfTheGridCountsUAndTheSecondV) {
    RandomShapes random;
    for (int round = 0; round < 10; ++round) {
        const auto surface = randomSurface(random);
        const double u = random.number(-2.0, 2.0);
        const double v = random.number(-2.0, 2.0);
        const Sample sample = surface->evaluate(u, v, 2);
        for (int i = 0; i <= 2; ++i) {
            for (int j = 0; j <= 2; ++j) {
                if (i + j == 0) {
                    continue;
                }
                SCOPED_TRACE(testing::Message() << "order " << i << " by u, " << j << " by v");
                const std::size_t lower = j > 0 ? Sample::index(i, j - 1) : Sample::index(i - 1, j);
                expectNear(sample[Sample::index(i, j)], slope([&](double step) {
                               return j > 0 ? surface->evaluate(u, v + step, 2)[lower]
                                            : surface->evaluate(u + step, v, 2)[lower];
                           }),
                           DIFFERENCE);
            }
        }
    }
}

TEST(VrexEvaluatedSurfaceCalculator3D, OrderOneFillsTheMixedDerivativeToo) {
    const auto surface =
        VrexEvaluatedSurface3D::create({5.0, 6.0, 7.0}, Quaternion::ONE(), {}, "u", "v", "u * v");
    const Sample sample = surface->evaluate(2.0, 3.0, 1);
    EXPECT_EQ(valuesOf(sample[0]), (Values3{7.0, 9.0, 13.0}));
    EXPECT_EQ(valuesOf(sample[1]), (Values3{0.0, 1.0, 2.0}));
    EXPECT_EQ(valuesOf(sample[3]), (Values3{1.0, 0.0, 3.0}));
    EXPECT_EQ(valuesOf(sample[4]), (Values3{0.0, 0.0, 1.0}));
    for (const std::size_t element : {2U, 5U, 6U, 7U, 8U}) {
        EXPECT_EQ(valuesOf(sample[element]), (Values3{0.0, 0.0, 0.0})) << element;
    }
}

TEST(VrexEvaluatedSurfaceCalculator3D, NormalIsThatOfTheTangents) {
    const auto surface =
        VrexEvaluatedSurface3D::create({5.0, 6.0, 7.0}, Quaternion::ONE(), {}, "u", "v", "u * v");
    VrexEvaluatedSurfaceCalculator3D calculator(*surface);
    EXPECT_EQ(valuesOf(calculator.calculateNormal(2.0, 3.0)), (Values3{-3.0, -2.0, 1.0}));
}

TEST(VrexEvaluatedSurfaceCalculator3D, DifferentiableResultsMatchDifferencesInEveryParameter) {
    RandomShapes random;
    for (int round = 0; round < 3; ++round) {
        const auto surface = randomSurface(random);
        const auto u = VrexGeometryVariable::create(random.number(-2.0, 2.0));
        const auto v = VrexGeometryVariable::create(random.number(-2.0, 2.0));
        auto parameters = parametersOf(surface, VrexEvaluatedSurface3D::PARAMETERS_AMOUNT);
        for (const auto& descriptor : surface->descriptors()) {
            parameters.push_back(descriptor);
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

TEST(VrexEvaluatedSurfaceCalculator3D, EveryParameterAppearsUnlessToldOtherwise) {
    const auto surface =
        VrexEvaluatedSurface3D::create({0.0, 0.0, 0.0}, Quaternion::ONE(),
                                       {{VrexGeometryVariable::create(9.0), 0, "unused"}}, "u", "v", "1");
    std::vector<VrexVariable> parameters{0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 9.0};
    VrexVariable::initializeDerivatives(parameters);
    VrexEvaluatedSurfaceCalculator3D calculator(*surface);
    for (const auto& element : calculator.calculate(parameters, VrexVariable(1.0), VrexVariable(2.0), 1)) {
        EXPECT_EQ(element.y().derivatives().size(), 8U) << "also behind the order";
    }
    calculator.setAddZeroDerivatives(false);
    const auto without = calculator.calculate(parameters, VrexVariable(1.0), VrexVariable(2.0), 1);
    EXPECT_EQ(without[1].y().derivatives().size(), 4U) << "the derivative depends on the quaternion alone";
    EXPECT_EQ(without[8].y().derivatives().size(), 0U);
}

TEST(VrexEvaluatedSurfaceCalculator3D, NegativeOrderFillsNothingAndAHighOneCountsAsTwo) {
    const auto surface = makeSample<VrexEvaluatedSurface3D>();
    for (const Vector& element : surface->evaluate(0.5, 0.25, -1)) {
        EXPECT_EQ(valuesOf(element), (Values3{0.0, 0.0, 0.0}));
    }
    std::vector<VrexVariable> parameters(VrexEvaluatedSurface3D::PARAMETERS_AMOUNT + 1);
    VrexVariable::initializeDerivatives(parameters);
    for (const auto& element : surface->evaluate(parameters, VrexVariable(0.5), VrexVariable(0.25), -1)) {
        EXPECT_EQ(element.x().derivatives().size(), 0U);
    }
    const Sample second = surface->evaluate(0.5, 0.25, 2);
    const Sample high = surface->evaluate(0.5, 0.25, 1'000'000'000);
    for (std::size_t element = 0; element < Sample::SIZE; ++element) {
        EXPECT_EQ(valuesOf(high[element]), valuesOf(second[element]));
    }
}

TEST(VrexEvaluatedSurfaceCalculator3D, TooFewParametersThrow) {
    const auto surface = makeSample<VrexEvaluatedSurface3D>();
    const std::vector<VrexVariable> parameters(VrexEvaluatedSurface3D::PARAMETERS_AMOUNT);
    EXPECT_THROW(static_cast<void>(surface->evaluate(parameters, VrexVariable(), VrexVariable(), 0)),
                 std::invalid_argument);
}

TEST(VrexEvaluatedSurfaceCalculator3D, MissingExpressionThrowsAfterALogLine) {
    const auto surface = VrexEvaluatedSurface3D::create({0.0, 0.0, 0.0}, Quaternion::ONE());
    ASSERT_TRUE(surface->setX("u") && surface->setZ("v"));
    const LogCapture log(1);
    EXPECT_THROW(static_cast<void>(surface->evaluate(0.5, 0.5, 0)), std::runtime_error);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
    EXPECT_EQ(log.lines()[0].text, "VrexExpressionParser::requireTree(): The expression is not parsed.");
}

} // namespace
