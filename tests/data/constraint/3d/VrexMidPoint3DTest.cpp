#include "data/constraint/3d/VrexMidPoint3D.h"

#include <gtest/gtest.h>

#include "support/SamplesRelations.h"
#include "support/TypeChecks.h"

namespace {

TEST(VrexMidPoint3D, CanCreateBetweenTwoPointsOrTwoPlanes) {
    const auto middle = makeSample<VrexPoint3D>();
    nsTypeChecks::expectAdmits(
        [&middle](VrexGeometry3DType first, VrexGeometry3DType second) {
            return VrexMidPoint3D::canCreate(AnyGeometry::create(first, 0), AnyGeometry::create(second, 0),
                                             middle);
        },
        [](int first, int second) { return (first == 0 && second == 0) || (first == 2 && second == 2); });
}

TEST(VrexMidPoint3D, CanCreateNeedsAllThree) {
    const auto point = makeSample<VrexPoint3D>();
    EXPECT_TRUE(VrexMidPoint3D::canCreate(point, point, point));
    EXPECT_FALSE(VrexMidPoint3D::canCreate(nullptr, point, point));
    EXPECT_FALSE(VrexMidPoint3D::canCreate(point, nullptr, point));
    EXPECT_FALSE(VrexMidPoint3D::canCreate(point, point, nullptr));
    EXPECT_FALSE(VrexMidPoint3D::canCreate(nullptr, nullptr, point));
}

TEST(VrexMidPoint3D, PointIsTheThirdElement) {
    const auto end = makeSample<VrexPoint3D>();
    const auto middle = makeSample<VrexPoint3D>();
    EXPECT_EQ(VrexMidPoint3D::create(end, end, middle)->midPoint(), middle);
    EXPECT_EQ(VrexMidPoint3D::create(end, end, nullptr)->midPoint(), nullptr);
}

} // namespace
