#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

#include <memory>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexConeCalculator3D.h"
#include "data/geometry/3d/VrexCylinderCalculator3D.h"
#include "data/geometry/3d/VrexEvaluatedSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexNURBSSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexSpinSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexSweepSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexTorusCalculator3D.h"
#include "support/LogCapture.h"
#include "support/ProbeShapes.h"
#include "support/Samples.h"
#include "support/ScalarSamples.h"

namespace {

template <class Calculator>
bool isOf(const VrexParametricSurface3D& surface) {
    return dynamic_cast<Calculator*>(VrexParametricSurfaceCalculator3D::create(surface).get()) != nullptr;
}

TEST(VrexParametricSurfaceCalculator3D, EachClassHasItsOwn) {
    EXPECT_TRUE(isOf<VrexConeCalculator3D>(*makeSample<VrexCone3D>()));
    EXPECT_TRUE(isOf<VrexCylinderCalculator3D>(*makeSample<VrexCylinder3D>()));
    EXPECT_TRUE(isOf<VrexTorusCalculator3D>(*makeSample<VrexTorus3D>()));
    EXPECT_TRUE(isOf<VrexNURBSSurfaceCalculator3D>(*makeSample<VrexNURBSSurface3D>()));
    EXPECT_TRUE(isOf<VrexEvaluatedSurfaceCalculator3D>(*makeSample<VrexEvaluatedSurface3D>()));
    EXPECT_TRUE(isOf<VrexSpinSurfaceCalculator3D>(*makeSample<VrexSpinSurface3D>()));
    EXPECT_TRUE(isOf<VrexSweepSurfaceCalculator3D>(*makeSample<VrexSweepSurface3D>()));
}

TEST(VrexParametricSurfaceCalculator3D, UnknownClassThrows) {
    const ProbeSurface unknown;
    const LogCapture log;
    const auto expectThrow = [](const auto& call) {
        EXPECT_THAT(call, testing::ThrowsMessage<std::runtime_error>("This surface type is unsupported"));
    };
    expectThrow([&] { static_cast<void>(VrexParametricSurfaceCalculator3D::create(unknown)); });
    expectThrow([&] { static_cast<void>(unknown.evaluate(0.5, 0.5, 0)); });
    expectThrow([&] { static_cast<void>(unknown.evaluate({}, VrexVariable(0.5), VrexVariable(0.5), 0)); });
    ASSERT_EQ(log.lines().size(), 3U);
    EXPECT_EQ(log.lines().front().level, 1U);
    EXPECT_THAT(log.lines().front().text, testing::EndsWith("(): This surface type is unsupported"));
}

/// Lets no visitor know what it is.
class SilentSurface : public ProbeSurface {
public:
    void accept(VrexVisitor3D& /*visitor*/) override {}
};

TEST(VrexParametricSurfaceCalculator3D, ClassThatIsNotVisitedAtAllThrows) {
    const SilentSurface silent;
    EXPECT_THAT([&] { static_cast<void>(VrexParametricSurfaceCalculator3D::create(silent)); },
                testing::ThrowsMessage<std::runtime_error>("This surface type is unsupported"));
}

TEST(VrexParametricSurfaceCalculator3D, KeepsASurfaceOfSharedPointersAlive) {
    auto cylinder = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 2.0);
    auto calculator = VrexParametricSurfaceCalculator3D::create(*cylinder);
    const std::weak_ptr<VrexCylinder3D> watch = cylinder;
    cylinder.reset();
    EXPECT_EQ(calculator->calculate(0.0, 0.0, 0)[0].x(), 2.0);
    EXPECT_FALSE(watch.expired());
    calculator.reset();
    EXPECT_TRUE(watch.expired());
}

TEST(VrexParametricSurfaceCalculator3D, NormalOfTheBaseIsByUTimesByV) {
    ProbeSurfaceCalculator calculator;
    // Elements 3 and 1 of the first sample: (2, 5, 103) x (2, 5, 101).
    const auto normal = calculator.calculateNormal(2.0, 5.0);
    EXPECT_EQ(normal.x(), 5.0 * 101.0 - 5.0 * 103.0);
    EXPECT_EQ(normal.y(), 2.0 * 103.0 - 2.0 * 101.0);
    EXPECT_EQ(normal.z(), 0.0);
    EXPECT_EQ(calculator.lastOrder, 1);

    // The second: (u, v, 203) x (u, v, 201), that is (-2 v, 2 u, 0).
    const auto differentiable = calculator.calculateNormal({}, nsScalarSamples::make(2.0, {{0, 1.0}}),
                                                           nsScalarSamples::make(5.0, {{1, 1.0}}));
    EXPECT_EQ(differentiable.x().value(), -10.0);
    EXPECT_EQ(nsScalarSamples::valueOf(nsScalarSamples::entriesOf(differentiable.x()), 1), -2.0);
    EXPECT_EQ(nsScalarSamples::valueOf(nsScalarSamples::entriesOf(differentiable.y()), 0), 2.0);
    EXPECT_EQ(calculator.lastOrder, 1);
}

TEST(VrexParametricSurfaceCalculator3D, ZeroDerivativesListEveryParameterInAllNineElements) {
    const std::vector<VrexVariable> parameters{nsScalarSamples::make(3.0, {{7, 2.0}}),
                                               nsScalarSamples::make(-4.0, {{2, 1.0}, {7, 5.0}})};
    VrexSurfaceSample<VrexVector3DT<VrexVariable>> sample;
    ProbeSurfaceCalculator::addZeroDerivatives(parameters, sample);
    for (const auto& vector : sample) {
        for (int component = 0; component < 3; ++component) {
            EXPECT_TRUE(nsScalarSamples::sameResult(vector[component], 0.0, {{7, 0.0}, {2, 0.0}}));
        }
    }
}

TEST(VrexParametricSurfaceCalculator3D, SampleIsIndexedByTheOrderInUThenInV) {
    using Sample = VrexSurfaceSample<VrexVector3DT<double>>;
    EXPECT_EQ(Sample::index(0, 0), 0U);
    EXPECT_EQ(Sample::index(0, 1), 1U);
    EXPECT_EQ(Sample::index(0, 2), 2U);
    EXPECT_EQ(Sample::index(1, 0), 3U);
    EXPECT_EQ(Sample::index(1, 1), 4U);
    EXPECT_EQ(Sample::index(2, 0), 6U);
    EXPECT_EQ(Sample::index(2, 2), 8U);
    const Sample sample;
    ASSERT_EQ(sample.size(), 9U);
    for (const auto& vector : sample) {
        EXPECT_EQ(vector.magnitude(), 0.0);
    }
}

} // namespace
