#include <vector>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexCacheParametricCurveCalculator3D.h"
#include "data/geometry/3d/VrexCacheParametricSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"
#include "support/AllocationCounter.h"
#include "support/CalculatorChecks.h"
#include "support/Samples.h"

namespace {

template <class Curve>
class VrexCurveCalculatorsAllocation : public testing::Test {};
using Curves = testing::Types<VrexCircle3D, VrexEllipse3D>;
TYPED_TEST_SUITE(VrexCurveCalculatorsAllocation, Curves);

template <class Surface>
class VrexSurfaceCalculatorsAllocation : public testing::Test {};
using Surfaces = testing::Types<VrexCylinder3D, VrexCone3D, VrexTorus3D>;
TYPED_TEST_SUITE(VrexSurfaceCalculatorsAllocation, Surfaces);

TYPED_TEST(VrexCurveCalculatorsAllocation, HeldCalculatorAllocatesItsResultAlone) {
    const auto curve = makeSample<TypeParam>();
    const auto calculator = VrexParametricCurveCalculator3D::create(*curve);
    // Nine derivatives, and t: they fit into a differentiable number.
    const auto variables = nsCalculatorChecks::independent(
        nsCalculatorChecks::parametersOf(curve, TypeParam::PARAMETERS_AMOUNT, {0.7}));
    for (const int order : {0, 2, 7}) {
        const AllocationCounter counter;
        static_cast<void>(calculator->calculate(0.7, order));
        EXPECT_EQ(counter.count(), 1U);
        static_cast<void>(calculator->calculate(variables, variables.back(), order));
        EXPECT_EQ(counter.count(), 2U);
    }
}

TYPED_TEST(VrexSurfaceCalculatorsAllocation, HeldCalculatorAllocatesNothing) {
    const auto surface = makeSample<TypeParam>();
    const auto calculator = VrexParametricSurfaceCalculator3D::create(*surface);
    const auto variables = nsCalculatorChecks::independent(
        nsCalculatorChecks::parametersOf(surface, TypeParam::PARAMETERS_AMOUNT, {0.7, 2.0}));
    const VrexVariable& u = variables[TypeParam::PARAMETERS_AMOUNT];
    const AllocationCounter counter;
    static_cast<void>(calculator->calculate(0.7, 2.0, 2));
    static_cast<void>(calculator->calculateNormal(0.7, 2.0));
    EXPECT_EQ(counter.count(), 0U);
    for (const bool addZeroDerivatives : {true, false}) {
        calculator->setAddZeroDerivatives(addZeroDerivatives);
        static_cast<void>(calculator->calculate(variables, u, variables.back(), 2));
        static_cast<void>(calculator->calculateNormal(variables, u, variables.back()));
        EXPECT_EQ(counter.count(), 0U) << addZeroDerivatives;
    }
}

TEST(VrexCachesAllocation, AHitAllocatesNothing) {
    const auto circle = makeSample<VrexCircle3D>();
    const auto torus = makeSample<VrexTorus3D>();
    const VrexCacheParametricCurveCalculator3D curves(VrexParametricCurveCalculator3D::create(*circle));
    const VrexCacheParametricSurfaceCalculator3D surfaces(VrexParametricSurfaceCalculator3D::create(*torus),
                                                          1e-6);
    static_cast<void>(curves.calculate(0.7, 2));
    static_cast<void>(surfaces.calculate(0.7, 2.0, 2));
    static_cast<void>(surfaces.calculateNormal(0.7, 2.0));
    const AllocationCounter counter;
    static_cast<void>(curves.calculate(0.7, 2));
    static_cast<void>(curves.calculate(0.7, 0));
    static_cast<void>(curves.curvature(0.7));
    static_cast<void>(surfaces.calculate(0.7, 2.0, 2));
    static_cast<void>(surfaces.calculateNormal(0.7, 2.0));
    EXPECT_EQ(counter.count(), 0U);
    static_cast<void>(curves.calculate(0.8, 0));
    EXPECT_GT(counter.count(), 0U) << "the counter sees a miss";
}

} // namespace
