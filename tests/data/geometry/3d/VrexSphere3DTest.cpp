#include "data/geometry/3d/VrexSphere3D.h"

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"

namespace {

TEST(VrexSphere3D, IsASphereOfFourFreedomsWithItsRadiusFirst) {
    const auto sphere = VrexSphere3D::create({1.0, 2.0, 3.0}, 4.0);
    EXPECT_EQ(sphere->type(), VrexGeometry3DType::SPHERE);
    EXPECT_EQ(sphere->dof(), 4);
    EXPECT_EQ(VrexSphere3D::PARAMETERS_AMOUNT, 4);
    for (int slot = 0; slot < 4; ++slot) {
        const double expected[] = {4.0, 1.0, 2.0, 3.0};
        EXPECT_EQ(VrexVariableDescriptor(sphere, slot, nullptr).getValue(), expected[slot]);
    }
    EXPECT_EQ(VrexSphere3D::RADIUS, 0);
    EXPECT_EQ(VrexSphere3D::X, 1);
    EXPECT_EQ(VrexSphere3D::Y, 2);
    EXPECT_EQ(VrexSphere3D::Z, 3);
}

TEST(VrexSphere3D, AccessorsReadWhatWasSet) {
    const auto sphere = VrexSphere3D::create({1.0, 2.0, 3.0}, 4.0);
    sphere->setCenter({5.0, 6.0, 7.0});
    sphere->setRadius(-8.0);
    EXPECT_EQ(sphere->getCenter().x(), 5.0);
    EXPECT_EQ(sphere->getCenter().y(), 6.0);
    EXPECT_EQ(sphere->getCenter().z(), 7.0);
    EXPECT_EQ(sphere->getRadius(), -8.0);
}

TEST(VrexSphere3D, AllowRadiusSignChangeIsEmptyAtFirstAndTravels) {
    const auto sphere = VrexSphere3D::create({1.0, 2.0, 3.0}, 4.0);
    EXPECT_FALSE(sphere->getAllowRadiusSignChange().has_value());
    sphere->setAllowRadiusSignChange(false);
    EXPECT_EQ(sphere->getAllowRadiusSignChange(), false);
    EXPECT_EQ(std::static_pointer_cast<VrexSphere3D>(sphere->makeCopy())->getAllowRadiusSignChange(), false);
    sphere->backup();
    sphere->setAllowRadiusSignChange(true);
    sphere->restore();
    EXPECT_EQ(sphere->getAllowRadiusSignChange(), false);
    sphere->updateFrom(VrexSphere3D::create({0.0, 0.0, 0.0}, 1.0));
    EXPECT_FALSE(sphere->getAllowRadiusSignChange().has_value());
}

TEST(VrexSphere3D, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexSphere3D::create({1.0, 2.0, 3.0}, 4.0)->checkChanged(0.0, 0.0));
}

TEST(VrexSphere3D, CentreMovedByExactlyTheToleranceIsUnchanged) {
    const auto sphere = VrexSphere3D::create({0.0, 0.0, 0.0}, 1.0);
    sphere->backup();
    EXPECT_FALSE(sphere->checkChanged(0.0, 0.0));
    sphere->setCenter({0.0, 3.0, 4.0});
    EXPECT_FALSE(sphere->checkChanged(5.0, 0.0));
    EXPECT_TRUE(sphere->checkChanged(4.9999, 0.0));
}

TEST(VrexSphere3D, RadiusChangedByMoreThanTheToleranceIsChanged) {
    const auto sphere = VrexSphere3D::create({0.0, 0.0, 0.0}, 1.0);
    sphere->backup();
    sphere->setRadius(0.5);
    EXPECT_FALSE(sphere->checkChanged(0.5, 0.0));
    EXPECT_TRUE(sphere->checkChanged(0.25, 1e9)) << "the second tolerance has no meaning";
}

} // namespace
