#include "data/constraint/3d/VrexMateDimension3D.h"

#include <gtest/gtest.h>

namespace {

TEST(VrexMateDimension3D, NewDimensionIsZeroUnlimitedAndFree) {
    const VrexMateDimension3D dimension;
    EXPECT_EQ(dimension.value, 0.0);
    EXPECT_EQ(dimension.limits, VrexDimensionLimits(std::nullopt, std::nullopt));
    EXPECT_FALSE(dimension.fixed());
}

TEST(VrexMateDimension3D, EveryFieldCountsForEquality) {
    VrexMateDimension3D dimension;
    dimension.value = 1.5;
    dimension.limits = {1.0, 2.0};
    dimension.setFixed(true);
    EXPECT_TRUE(dimension.fixed());
    VrexMateDimension3D other = dimension;
    EXPECT_EQ(other, dimension);
    other.setFixed(false);
    EXPECT_NE(other, dimension);
    other = dimension;
    other.value = 2.5;
    EXPECT_NE(other, dimension);
    other = dimension;
    other.limits.second.reset();
    EXPECT_NE(other, dimension);
}

} // namespace
