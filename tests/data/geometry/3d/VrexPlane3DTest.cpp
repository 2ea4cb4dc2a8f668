#include "data/geometry/3d/VrexPlane3D.h"

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"

namespace {

using Vector = VrexVector3DT<double>;

/// A few roundings of trigonometric pairs at coordinates below ten.
constexpr double ROUNDING = 1e-14;

double distanceOf(const std::shared_ptr<VrexPlane3D>& plane) {
    return VrexVariableDescriptor(plane, VrexPlane3D::DIST, nullptr).getValue();
}

void expectEqual(const Vector& actual, const Vector& expected) {
    EXPECT_EQ(actual.x(), expected.x());
    EXPECT_EQ(actual.y(), expected.y());
    EXPECT_EQ(actual.z(), expected.z());
}

TEST(VrexPlane3D, IsAPlaneOfThreeFreedoms) {
    const auto plane = VrexPlane3D::create({1.0, 2.0, 3.0}, {0.0, 0.0, 1.0});
    EXPECT_EQ(plane->type(), VrexGeometry3DType::PLANE);
    EXPECT_EQ(plane->dof(), 3);
    EXPECT_EQ(VrexPlane3D::PARAMETERS_AMOUNT, 3);
    EXPECT_EQ(VrexPlane3D::DIST, 0);
    EXPECT_EQ(VrexPlane3D::POLAR, 1);
    EXPECT_EQ(VrexPlane3D::AZIMUTHAL, 2);
}

TEST(VrexPlane3D, CreatedPlaneKeepsItsOriginAndItsDistance) {
    const auto plane = VrexPlane3D::create({1.0, 2.0, 3.0}, {0.0, 0.0, 7.0});
    expectEqual(plane->getOrigin(), {1.0, 2.0, 3.0});
    EXPECT_NEAR(distanceOf(plane), 3.0, ROUNDING);
    EXPECT_NEAR(plane->getNormal().z(), 1.0, ROUNDING);
}

TEST(VrexPlane3D, SetOriginSetsTheDistanceToTheNormalTimesTheOrigin) {
    const auto plane = VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 3.0, 4.0});
    plane->setOrigin({5.0, 1.0, 2.0});
    EXPECT_NEAR(distanceOf(plane), 0.6 + 1.6, ROUNDING);
    expectEqual(plane->getOrigin(), {5.0, 1.0, 2.0});
}

TEST(VrexPlane3D, SetNormalAfterSetOriginSetsTheDistanceAndKeepsTheOrigin) {
    const auto plane = VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    plane->setOrigin({5.0, 1.0, 2.0});
    plane->setNormal({2.0, 0.0, 0.0});
    EXPECT_NEAR(distanceOf(plane), 5.0, ROUNDING);
    EXPECT_EQ(distanceOf(plane), plane->getNormal().dotProduct({5.0, 1.0, 2.0}));
    expectEqual(plane->getOrigin(), {5.0, 1.0, 2.0});
}

TEST(VrexPlane3D, WrittenDistanceMovesNeitherTheOriginNorTheChangeTest) {
    const auto plane = VrexPlane3D::create({0.0, 0.0, 1.0}, {0.0, 0.0, 1.0});
    plane->backup();
    VrexVariableDescriptor(plane, VrexPlane3D::DIST, nullptr).setValue(100.0);
    expectEqual(plane->getOrigin(), {0.0, 0.0, 1.0});
    EXPECT_FALSE(plane->checkChanged(1e-8, 0.0));
}

TEST(VrexPlane3D, CopyRestoreAndUpdateCarryTheOrigin) {
    const auto plane = VrexPlane3D::create({1.0, 2.0, 3.0}, {0.0, 0.0, 1.0});
    expectEqual(std::static_pointer_cast<VrexPlane3D>(plane->makeCopy())->getOrigin(), {1.0, 2.0, 3.0});
    plane->backup();
    plane->setOrigin({7.0, 8.0, 9.0});
    plane->restore();
    expectEqual(plane->getOrigin(), {1.0, 2.0, 3.0});
    plane->updateFrom(VrexPlane3D::create({4.0, 5.0, 6.0}, {0.0, 0.0, 1.0}));
    expectEqual(plane->getOrigin(), {4.0, 5.0, 6.0});
}

TEST(VrexPlane3D, RotationTakesTheCanonicalDirectionToTheNormal) {
    const auto plane = VrexPlane3D::create({0.0, 0.0, 0.0}, {2.0, -1.0, 2.0});
    const auto turned =
        VrexQuaternionT<double>::rotate(VrexPlane3D::canonicalDirection(), plane->getRotation(), false);
    EXPECT_NEAR(turned.x(), 2.0 / 3.0, ROUNDING);
    EXPECT_NEAR(turned.y(), -1.0 / 3.0, ROUNDING);
    EXPECT_NEAR(turned.z(), 2.0 / 3.0, ROUNDING);
}

TEST(VrexPlane3D, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexPlane3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0})->checkChanged(0.0, 0.0));
}

TEST(VrexPlane3D, MovedInsideItselfIsUnchanged) {
    const auto plane = VrexPlane3D::create({0.0, 0.0, 1.0}, {0.0, 0.0, 1.0});
    plane->backup();
    plane->setOrigin({1e5, -3.0, 1.0});
    EXPECT_FALSE(plane->checkChanged(1e-8, 0.0));
}

TEST(VrexPlane3D, MovedAlongItsNormalIsChangedBeyondTheTolerance) {
    const auto plane = VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    plane->backup();
    plane->setOrigin({0.0, 0.0, 2e-8});
    EXPECT_TRUE(plane->checkChanged(1e-8, 0.0));
    plane->setOrigin({0.0, 0.0, 0.5e-8});
    EXPECT_FALSE(plane->checkChanged(1e-8, 0.0));
    plane->setOrigin({0.0, 0.0, -1.0});
    EXPECT_TRUE(plane->checkChanged(1e-8, 0.0)) << "either side counts";
}

TEST(VrexPlane3D, TurnedByMoreThanTheToleranceIsChanged) {
    const auto plane = VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    plane->backup();
    plane->setNormal({0.01, 0.0, 1.0});
    EXPECT_TRUE(plane->checkChanged(0.005, 0.0));
    EXPECT_FALSE(plane->checkChanged(0.02, 0.0));
}

} // namespace
