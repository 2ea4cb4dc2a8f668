#include "data/geometry/3d/VrexKeptAxisFrame3D.h"

#include <cmath>

#include <gtest/gtest.h>

#include "support/CalculatorChecks.h"

using nsCalculatorChecks::expectNear;

namespace {

using Vector = VrexVector3DT<double>;

TEST(VrexKeptAxisFrame3D, CombinesTheTurnedAxes) {
    const double polar = 0.7;
    const double azimuthal = -2.1;
    const nsCalculatorChecks::Axes axes(
        {std::sin(polar) * std::cos(azimuthal), std::sin(polar) * std::sin(azimuthal), std::cos(polar)});
    VrexKeptAxisFrame3D kept;
    expectNear(kept.at(polar, azimuthal).combine({1.0, 0.0, 0.0}), axes.X);
    expectNear(kept.at(polar, azimuthal).combine({0.0, 1.0, 0.0}), axes.Y);
    expectNear(kept.at(polar, azimuthal).combine({0.0, 0.0, 1.0}), axes.Z);
    expectNear(kept.at(polar, azimuthal).combine({2.0, -3.0, 5.0}),
               axes.X * 2.0 - axes.Y * 3.0 + axes.Z * 5.0);
}

TEST(VrexKeptAxisFrame3D, FirstFrameIsBuiltEvenForZeroAngles) {
    VrexKeptAxisFrame3D kept;
    expectNear(kept.at(0.0, 0.0).combine({2.0, 3.0, 4.0}), {2.0, 3.0, 4.0}, 0.0);
}

TEST(VrexKeptAxisFrame3D, IsBuiltAnewWhenEitherAngleChanges) {
    VrexKeptAxisFrame3D kept;
    const Vector first = kept.at(0.7, 0.2).combine({1.0, 2.0, 3.0});
    expectNear(kept.at(0.8, 0.2).combine({1.0, 2.0, 3.0}),
               VrexAxisFrame3D<double>(0.8, 0.2).combine({1.0, 2.0, 3.0}), 0.0);
    expectNear(kept.at(0.8, 0.3).combine({1.0, 2.0, 3.0}),
               VrexAxisFrame3D<double>(0.8, 0.3).combine({1.0, 2.0, 3.0}), 0.0);
    expectNear(kept.at(0.7, 0.2).combine({1.0, 2.0, 3.0}), first, 0.0);
}

TEST(VrexKeptAxisFrame3D, AnglesAreComparedByTheirBits) {
    // -sin(polar) sin(azimuthal) takes the sign of a zero azimuth, and nothing else in the sum hides it.
    VrexKeptAxisFrame3D kept;
    EXPECT_TRUE(std::signbit(kept.at(0.7, 0.0).combine({0.0, 1.0, -0.0}).z()));
    EXPECT_FALSE(std::signbit(kept.at(0.7, -0.0).combine({-0.0, 1.0, -0.0}).z()));
}

TEST(VrexKeptAxisFrame3D, NaNAnglesSpoilOnlyWhatIsAskedForThem) {
    VrexKeptAxisFrame3D kept;
    EXPECT_TRUE(std::isnan(kept.at(std::nan(""), 0.2).combine({1.0, 2.0, 3.0}).x()));
    EXPECT_TRUE(std::isfinite(kept.at(0.7, 0.2).combine({1.0, 2.0, 3.0}).x()));
}

} // namespace
