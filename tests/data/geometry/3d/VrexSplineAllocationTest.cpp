// How often held calculators of splines and surfaces allocate.

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexNURBSSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexSplineCalculator3D.h"
#include "support/AllocationCounter.h"
#include "support/SplineSamples.h"

namespace {

using nsSplineSamples::Maker;

TEST(VrexSplineCalculator3D, HeldItAllocatesOnlyItsResult) {
    for (const bool periodic : {false, true}) {
        const auto spline = Maker(1).spline(3, 20, periodic);
        VrexSplineCalculator3D calculator(*spline);
        const double t = *spline->interval().first + 0.1;
        (void)calculator.calculate(t, 5);
        const AllocationCounter counter;
        const auto first = calculator.calculate(t, 2);
        const auto second = calculator.calculate(t + 1.0, 5);
        EXPECT_EQ(counter.count(), 2U);
    }
}

TEST(VrexSplineCalculator3D, HeldItAllocatesOnlyADifferentiableResult) {
    const auto spline = Maker(2).spline(3, 20);
    VrexSplineCalculator3D calculator(*spline);
    const auto parameters =
        nsSplineSamples::variablesOf(nsSplineSamples::coordinatesOf(spline->controlPoints()));
    const VrexVariable t(*spline->interval().first + 0.1);
    (void)calculator.calculate(parameters, t, 2);
    const AllocationCounter counter;
    const auto result = calculator.calculate(parameters, t, 2);
    EXPECT_EQ(counter.count(), 1U + 9U) << "the list, and one store a component";
}

TEST(VrexNURBSSurfaceCalculator3D, AllocatesNothing) {
    const auto surface = Maker(3).surface(3, 3, 10, 10);
    VrexNURBSSurfaceCalculator3D calculator(*surface);
    const AllocationCounter counter;
    const auto sample = calculator.calculate(-0.5, -0.25, 2);
    const auto normal = calculator.calculateNormal(-0.5, -0.25);
    EXPECT_EQ(counter.count(), 0U);
    EXPECT_GT(normal.magnitude() + sample[0].magnitude(), 0.0);
}

} // namespace
