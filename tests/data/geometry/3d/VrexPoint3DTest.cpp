#include "data/geometry/3d/VrexPoint3D.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

TEST(VrexPoint3D, IsAPointOfThreeFreedoms) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    EXPECT_EQ(point->type(), VrexGeometry3DType::POINT);
    EXPECT_EQ(point->dof(), 3);
    EXPECT_EQ(VrexPoint3D::PARAMETERS_AMOUNT, 3);
    EXPECT_EQ(VrexPoint3D::X, 0);
    EXPECT_EQ(VrexPoint3D::Y, 1);
    EXPECT_EQ(VrexPoint3D::Z, 2);
}

TEST(VrexPoint3D, SettersWriteTheirCoordinateAndLeaveTheDirtyFlagAlone) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    point->setDirty(false);
    point->setX(10.0);
    point->setY(20.0);
    point->setZ(30.0);
    EXPECT_EQ(point->getPosition().x(), 10.0);
    EXPECT_EQ(point->getPosition().y(), 20.0);
    EXPECT_EQ(point->getPosition().z(), 30.0);
    point->setPosition({4.0, 5.0, 6.0});
    EXPECT_EQ(point->getPosition().z(), 6.0);
    point->assign(7.0, 8.0, 9.0);
    EXPECT_EQ(point->getPosition().x(), 7.0);
    EXPECT_EQ(point->getPosition().y(), 8.0);
    EXPECT_EQ(point->getPosition().z(), 9.0);
    EXPECT_FALSE(point->isDirty());
}

TEST(VrexPoint3D, WithoutBackupItIsNeverChanged) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    for (const double tolerance : {0.0, 1e-8, 1e9}) {
        EXPECT_FALSE(point->checkChanged(tolerance, tolerance));
    }
}

TEST(VrexPoint3D, MovedByExactlyTheToleranceIsChanged) {
    const auto point = VrexPoint3D::create(0.0, 0.0, 0.0);
    point->backup();
    point->assign(0.0, 3.0, 4.0);
    EXPECT_TRUE(point->checkChanged(5.0, 0.0));
    EXPECT_FALSE(point->checkChanged(5.0000001, 0.0));
}

TEST(VrexPoint3D, ToleranceZeroMakesEveryPointChanged) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    point->backup();
    EXPECT_TRUE(point->checkChanged(0.0, 0.0));
    EXPECT_FALSE(point->checkChanged(1e-8, 0.0));
}

TEST(VrexPoint3D, SquaresAreCompared) {
    const auto point = VrexPoint3D::create(0.0, 0.0, 0.0);
    point->backup();
    EXPECT_TRUE(point->checkChanged(1e-200, 0.0)) << "its square is zero";
    point->setX(3.0);
    EXPECT_FALSE(point->checkChanged(-5.0, 0.0));
}

TEST(VrexPoint3D, NotANumberIsStoredAsGiven) {
    const auto point = VrexPoint3D::create(std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0);
    EXPECT_NE(point->getPosition().x(), point->getPosition().x());
}

} // namespace
