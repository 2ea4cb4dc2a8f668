#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexCircleCalculator3D.h"
#include "data/geometry/3d/VrexEllipseCalculator3D.h"
#include "data/geometry/3d/VrexEvaluatedCurveCalculator3D.h"
#include "data/geometry/3d/VrexSplineCalculator3D.h"
#include "support/LogCapture.h"
#include "support/ProbeShapes.h"
#include "support/Samples.h"
#include "support/ScalarSamples.h"

namespace {

template <class Calculator>
bool isOf(const VrexParametricCurve3D& curve) {
    return dynamic_cast<Calculator*>(VrexParametricCurveCalculator3D::create(curve).get()) != nullptr;
}

TEST(VrexParametricCurveCalculator3D, EachClassHasItsOwn) {
    EXPECT_TRUE(isOf<VrexCircleCalculator3D>(*makeSample<VrexCircle3D>()));
    EXPECT_TRUE(isOf<VrexEllipseCalculator3D>(*makeSample<VrexEllipse3D>()));
    EXPECT_TRUE(isOf<VrexSplineCalculator3D>(*makeSample<VrexSpline3D>()));
    EXPECT_TRUE(isOf<VrexEvaluatedCurveCalculator3D>(*makeSample<VrexEvaluatedCurve3D>()));
}

TEST(VrexParametricCurveCalculator3D, UnknownClassThrows) {
    const ProbeCurve unknown;
    const LogCapture log;
    const auto expectThrow = [](const auto& call) {
        EXPECT_THAT(call, testing::ThrowsMessage<std::runtime_error>("This curve type is unsupported"));
    };
    expectThrow([&] { static_cast<void>(VrexParametricCurveCalculator3D::create(unknown)); });
    expectThrow([&] { static_cast<void>(unknown.evaluate(0.5, 0)); });
    expectThrow([&] { static_cast<void>(unknown.evaluate({}, VrexVariable(0.5), 0)); });
    ASSERT_EQ(log.lines().size(), 3U);
    EXPECT_EQ(log.lines().front().level, 1U);
    EXPECT_THAT(log.lines().front().text, testing::EndsWith("(): This curve type is unsupported"));
}

/// Lets no visitor know what it is.
class SilentCurve : public ProbeCurve {
public:
    void accept(VrexVisitor3D& /*visitor*/) override {}
};

TEST(VrexParametricCurveCalculator3D, ClassThatIsNotVisitedAtAllThrows) {
    const SilentCurve silent;
    EXPECT_THAT([&] { static_cast<void>(VrexParametricCurveCalculator3D::create(silent)); },
                testing::ThrowsMessage<std::runtime_error>("This curve type is unsupported"));
}

TEST(VrexParametricCurveCalculator3D, KeepsACurveOfSharedPointersAlive) {
    auto circle = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 2.0);
    auto calculator = VrexParametricCurveCalculator3D::create(*circle);
    const std::weak_ptr<VrexCircle3D> watch = circle;
    circle.reset();
    EXPECT_EQ(calculator->calculate(0.0, 0)[0].x(), 2.0);
    EXPECT_FALSE(watch.expired());
    calculator.reset();
    EXPECT_TRUE(watch.expired());
}

TEST(VrexParametricCurveCalculator3D, ZeroDerivativesListEveryParameter) {
    const std::vector<VrexVariable> parameters{nsScalarSamples::make(3.0, {{7, 2.0}}),
                                               nsScalarSamples::make(-4.0, {{2, 1.0}, {7, 5.0}}),
                                               VrexVariable(9.0), nsScalarSamples::make(5.0, {{1, 1.0}})};
    std::vector<VrexVector3DT<VrexVariable>> result(2);
    result[0].x() = nsScalarSamples::make(1.5, {{2, 0.5}, {8, 4.0}});
    ProbeCurveCalculator::addZeroDerivatives(parameters, result);
    EXPECT_TRUE(nsScalarSamples::sameResult(result[0].x(), 1.5, {{2, 0.5}, {8, 4.0}, {7, 0.0}, {1, 0.0}}));
    for (const VrexVariable& other :
         {result[0].y(), result[0].z(), result[1].x(), result[1].y(), result[1].z()}) {
        EXPECT_TRUE(nsScalarSamples::sameResult(other, 0.0, {{7, 0.0}, {2, 0.0}, {1, 0.0}}));
    }
}

TEST(VrexParametricCurveCalculator3D, ZeroDerivativesListRepeatedParametersOnce) {
    // Five keys at a time, most of them known: past the few that are looked through one by one.
    for (const std::size_t count : {3U, 10U, 11U, 12U, 40U}) {
        std::vector<VrexVariable> parameters;
        nsScalarSamples::Entries expected;
        for (std::size_t i = 0; i < count; ++i) {
            nsScalarSamples::Entries entries;
            for (std::size_t key = i < 4 ? 0 : i - 4; key <= i; ++key) {
                entries.push_back({key, 1.0});
            }
            parameters.push_back(nsScalarSamples::make(2.0, entries));
            expected.push_back({i, 0.0});
        }
        std::vector<VrexVector3DT<VrexVariable>> result(1);
        ProbeCurveCalculator::addZeroDerivatives(parameters, result);
        EXPECT_TRUE(nsScalarSamples::sameResult(result[0].x(), 0.0, expected)) << count;
    }
}

TEST(VrexParametricCurveCalculator3D, ZeroDerivativesOfNoParametersChangeNothing) {
    std::vector<VrexVector3DT<VrexVariable>> result(1);
    result[0].x() = nsScalarSamples::make(1.5, {{2, 0.5}});
    ProbeCurveCalculator::addZeroDerivatives({}, result);
    EXPECT_TRUE(nsScalarSamples::sameResult(result[0].x(), 1.5, {{2, 0.5}}));
    std::vector<VrexVector3DT<VrexVariable>> nothing;
    ProbeCurveCalculator::addZeroDerivatives({VrexVariable(1.0)}, nothing);
    EXPECT_TRUE(nothing.empty());
}

TEST(VrexParametricCurveCalculator3D, ParameterThatIsNotFiniteSpoilsNoZero) {
    const std::vector<VrexVariable> parameters{nsScalarSamples::make(std::nan(""), {{0, 1.0}}),
                                               nsScalarSamples::make(INFINITY, {{1, 1.0}})};
    std::vector<VrexVector3DT<VrexVariable>> result(1);
    ProbeCurveCalculator::addZeroDerivatives(parameters, result);
    EXPECT_TRUE(nsScalarSamples::sameResult(result[0].y(), 0.0, {{0, 0.0}, {1, 0.0}}));
}

TEST(VrexParametricCurveCalculator3D, ZeroDerivativesOfManyParametersTakeLinearTime) {
    // A product over the list, key by key, would take more than 10^10 steps.
    std::vector<VrexVariable> parameters(200'000);
    VrexVariable::initializeDerivatives(parameters);
    std::vector<VrexVector3DT<VrexVariable>> result(1);
    ProbeCurveCalculator::addZeroDerivatives(parameters, result);
    EXPECT_EQ(result[0].z().derivatives().size(), 200'000U);
}

} // namespace
