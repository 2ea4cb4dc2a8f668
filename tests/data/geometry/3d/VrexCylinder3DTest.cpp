#include "data/geometry/3d/VrexCylinder3D.h"

#include <numbers>
#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/CalculatorChecks.h"

using nsCalculatorChecks::expectNear;
using nsCalculatorChecks::parametersOf;

namespace {

constexpr double PI = std::numbers::pi;

using Range = std::pair<std::optional<double>, std::optional<double>>;

TEST(VrexCylinder3D, IsOfItsKindWithItsSlotsInOrder) {
    const auto entity = VrexCylinder3D::create({1.0, 2.0, 3.0}, {0.0, 2.0, 0.0}, -4.0);
    EXPECT_EQ(entity->type(), VrexGeometry3DType::CYLINDER);
    EXPECT_EQ(entity->dof(), 5);
    EXPECT_EQ(VrexCylinder3D::PARAMETERS_AMOUNT, 6);
    EXPECT_EQ(parametersOf(entity, 6, {}), (std::vector<double>{-4.0, 1.0, 2.0, 3.0, PI / 2.0, PI / 2.0}));
    EXPECT_EQ(VrexVariableDescriptor(entity, 6, nullptr).getValue(), 0.0) << "there is no such slot";
    EXPECT_TRUE(entity->isParametricSurface());
    EXPECT_FALSE(entity->isParametricCurve());
}

TEST(VrexCylinder3D, IndexConstantsNameTheSlots) {
    EXPECT_EQ(VrexCylinder3D::RADIUS, 0);
    EXPECT_EQ(VrexCylinder3D::X, 1);
    EXPECT_EQ(VrexCylinder3D::Y, 2);
    EXPECT_EQ(VrexCylinder3D::Z, 3);
    EXPECT_EQ(VrexCylinder3D::POLAR, 4);
    EXPECT_EQ(VrexCylinder3D::AZIMUTHAL, 5);
}

TEST(VrexCylinder3D, AccessorsReadWhatWasSet) {
    const auto cylinder = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    cylinder->setOrigin({5.0, 6.0, 7.0});
    cylinder->setDirection({0.0, 3.0, 4.0});
    cylinder->setRadius(-8.0);
    expectNear(cylinder->getOrigin(), {5.0, 6.0, 7.0}, 0.0);
    expectNear(cylinder->getDirection(), {0.0, 0.6, 0.8}, 1e-15);
    EXPECT_EQ(cylinder->getRadius(), -8.0);
}

TEST(VrexCylinder3D, RotationTakesTheZAxisToItsDirection) {
    const auto entity = VrexCylinder3D::create({1.0, 2.0, 3.0}, {2.0, -1.0, 2.0}, 1.0);
    expectNear(VrexCylinder3D::canonicalDirection(), {0.0, 0.0, 1.0});
    expectNear(
        VrexQuaternionT<double>::rotate(VrexCylinder3D::canonicalDirection(), entity->getRotation(), false),
        entity->getDirection());
    EXPECT_NEAR(entity->getRotation().norm(), 1.0, 1e-15);
}

TEST(VrexCylinder3D, AllowRadiusSignChangeIsEmptyAtFirstAndTravels) {
    const auto entity = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    EXPECT_FALSE(entity->getAllowRadiusSignChange().has_value());
    entity->setAllowRadiusSignChange(false);
    EXPECT_EQ(entity->getAllowRadiusSignChange(), false);
    EXPECT_EQ(std::static_pointer_cast<VrexCylinder3D>(entity->makeCopy())->getAllowRadiusSignChange(),
              false);
    entity->backup();
    entity->setAllowRadiusSignChange(true);
    entity->restore();
    EXPECT_EQ(entity->getAllowRadiusSignChange(), false);
}

TEST(VrexCylinder3D, IntervalUIsTheNaturalOneUnlessTrimmed) {
    const auto entity = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    EXPECT_EQ(entity->intervalU(), Range(0.0, 6.283185307179586));
    entity->startU() = 0.5;
    EXPECT_EQ(entity->intervalU(), Range(0.5, 6.283185307179586));
    entity->endU() = -7.0;
    EXPECT_EQ(entity->intervalU(), Range(0.5, -7.0));
    entity->startU().reset();
    EXPECT_EQ(entity->intervalU(), Range(0.0, -7.0));
}

TEST(VrexCylinder3D, IntervalVIsTheNaturalOneUnlessTrimmed) {
    const auto entity = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    EXPECT_EQ(entity->intervalV(), Range(-500.0, 500.0));
    entity->startV() = 0.5;
    EXPECT_EQ(entity->intervalV(), Range(0.5, 500.0));
    entity->endV() = -7.0;
    EXPECT_EQ(entity->intervalV(), Range(0.5, -7.0));
    entity->startV().reset();
    EXPECT_EQ(entity->intervalV(), Range(-500.0, -7.0));
}

TEST(VrexCylinder3D, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0)->checkChanged(0.0, 0.0));
}

TEST(VrexCylinder3D, DirectionIsComparedWithTheFirstTolerance) {
    const auto entity = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    entity->backup();
    entity->setDirection({3.0, 0.0, 4.0}); // (0.6, 0, 0.8) from (0, 0, 1): off by 0.6 at most
    EXPECT_TRUE(entity->checkChanged(0.59, 1e9));
    EXPECT_FALSE(entity->checkChanged(0.61, 0.0));
}

TEST(VrexCylinder3D, OriginMovedAlongTheAxisIsUnchanged) {
    const auto cylinder = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    cylinder->backup();
    cylinder->setOrigin({0.0, 0.0, 1000.0});
    EXPECT_FALSE(cylinder->checkChanged(1e-9, 0.0));
}

TEST(VrexCylinder3D, OriginMovedAcrossTheAxisCountsByItsLength) {
    const auto cylinder = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    cylinder->backup();
    cylinder->setOrigin({0.03, 0.04, 1000.0});
    EXPECT_FALSE(cylinder->checkChanged(0.051, 0.0));
    EXPECT_TRUE(cylinder->checkChanged(0.049, 1e9));
    cylinder->setOrigin({3.0, 4.0, 0.0});
    EXPECT_FALSE(cylinder->checkChanged(5.0, 0.0)) << "exactly the tolerance";
    EXPECT_TRUE(cylinder->checkChanged(4.9999, 0.0)) << "a unit direction is not taken for zero";
}

TEST(VrexCylinder3D, RadiusChangedByMoreThanTheToleranceIsChanged) {
    const auto entity = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    entity->backup();
    entity->setRadius(0.5);
    EXPECT_FALSE(entity->checkChanged(0.5, 0.0));
    EXPECT_TRUE(entity->checkChanged(0.25, 1e9));
}

} // namespace
