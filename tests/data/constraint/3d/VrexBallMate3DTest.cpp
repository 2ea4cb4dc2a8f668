#include "data/constraint/3d/VrexBallMate3D.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "support/SamplesConstraints.h"

namespace {

TEST(VrexBallMate3D, HalfAngleRunsFromZeroToPi) {
    EXPECT_EQ(VrexBallMate3D::BALL_MATE_HALF_ANGLE_MIN, 0.0);
    EXPECT_EQ(VrexBallMate3D::BALL_MATE_HALF_ANGLE_MAX, 3.141592653589793);
}

TEST(VrexBallMate3D, LimitsAreCheckedForIndexZeroAlone) {
    constexpr double PI = 3.141592653589793;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct Row {
        VrexDimensionLimits limits;
        bool accepted;
    };
    const Row rows[] = {
        {{0.0, PI}, true},
        {{0.1, 0.1}, true},
        {{-0.0, 0.0}, true},
        {{PI, PI}, true},
        {{0.0, 3.2}, false},
        {{0.0, std::nextafter(PI, 4.0)}, false},
        {{-std::numeric_limits<double>::denorm_min(), 1.0}, false},
        {{0.5, 0.25}, false},
        {{std::nullopt, 1.0}, false},
        {{1.0, std::nullopt}, false},
        {{std::nullopt, std::nullopt}, false},
        {{nan, 1.0}, false},
        {{0.5, nan}, false},
        {{0.0, std::numeric_limits<double>::infinity()}, false},
    };
    const auto mate = makeSample<VrexBallMate3D>();
    for (const Row& row : rows) {
        EXPECT_EQ(mate->checkDimensionLimits(VrexBallMate3D::ANGLE, row.limits), row.accepted)
            << row.limits.first.value_or(-1.0) << ", " << row.limits.second.value_or(-1.0);
        EXPECT_FALSE(mate->checkDimensionLimits(1, row.limits));
        EXPECT_FALSE(mate->checkDimensionLimits(std::numeric_limits<std::uint64_t>::max(), row.limits));
    }
}

TEST(VrexBallMate3D, CreateStoresLimitsThatTheCheckRefuses) {
    const VrexDimensionLimits limits{5.0, std::nullopt};
    const auto mate =
        VrexBallMate3D::create(makeSample<VrexConnector3D>(), makeSample<VrexConnector3D>(), limits);
    EXPECT_EQ(mate->getAngle().limits, limits);
    EXPECT_FALSE(mate->checkDimensionLimits(VrexBallMate3D::ANGLE, limits));
}

} // namespace
