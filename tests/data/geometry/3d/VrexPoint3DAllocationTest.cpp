#include <cstddef>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "support/AllocationCounter.h"

namespace {

constexpr std::size_t BUDGET = 256;

TEST(VrexPoint3D, IsOneAllocationOfAtMost256Bytes) {
    const AllocationCounter counter;
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    const std::size_t count = counter.count();
    const std::size_t bytes = counter.bytes();
    EXPECT_EQ(count, 1U);
    EXPECT_LE(bytes, BUDGET);
    EXPECT_GE(bytes, sizeof *point) << "the counter sees the whole object";
}

TEST(VrexPoint3D, CopyAndBackupAreOneAllocationEachTooAndRestoreIsNone) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    const AllocationCounter copying;
    const auto copy = point->makeCopy();
    EXPECT_EQ(copying.count(), 1U);
    const AllocationCounter backingUp;
    point->backup();
    EXPECT_EQ(backingUp.count(), 1U);
    EXPECT_LE(backingUp.bytes(), BUDGET);
    const AllocationCounter restoring;
    point->restore();
    EXPECT_EQ(restoring.count(), 0U);
}

} // namespace
