#include "data/geometry/3d/VrexCircle3D.h"

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

TEST(VrexCircle3D, IsOfItsKindWithItsSlotsInOrder) {
    const auto entity = VrexCircle3D::create({1.0, 2.0, 3.0}, {0.0, 2.0, 0.0}, -4.0);
    EXPECT_EQ(entity->type(), VrexGeometry3DType::CIRCLE);
    EXPECT_EQ(entity->dof(), 6);
    EXPECT_EQ(VrexCircle3D::PARAMETERS_AMOUNT, 6);
    EXPECT_EQ(parametersOf(entity, 6, {}), (std::vector<double>{-4.0, 1.0, 2.0, 3.0, PI / 2.0, PI / 2.0}));
    EXPECT_EQ(VrexVariableDescriptor(entity, 6, nullptr).getValue(), 0.0) << "there is no such slot";
    EXPECT_TRUE(entity->isParametricCurve());
    EXPECT_FALSE(entity->isParametricSurface());
}

TEST(VrexCircle3D, IndexConstantsNameTheSlots) {
    EXPECT_EQ(VrexCircle3D::RADIUS, 0);
    EXPECT_EQ(VrexCircle3D::X, 1);
    EXPECT_EQ(VrexCircle3D::Y, 2);
    EXPECT_EQ(VrexCircle3D::Z, 3);
    EXPECT_EQ(VrexCircle3D::POLAR, 4);
    EXPECT_EQ(VrexCircle3D::AZIMUTHAL, 5);
}

TEST(VrexCircle3D, AccessorsReadWhatWasSet) {
    const auto circle = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    circle->setCenter({5.0, 6.0, 7.0});
    circle->setNormal({0.0, 3.0, 4.0});
    circle->setRadius(-8.0);
    expectNear(circle->getCenter(), {5.0, 6.0, 7.0}, 0.0);
    expectNear(circle->getNormal(), {0.0, 0.6, 0.8}, 1e-15);
    EXPECT_EQ(circle->getRadius(), -8.0);
}

TEST(VrexCircle3D, RotationTakesTheZAxisToItsNormal) {
    const auto entity = VrexCircle3D::create({1.0, 2.0, 3.0}, {2.0, -1.0, 2.0}, 1.0);
    expectNear(VrexCircle3D::canonicalDirection(), {0.0, 0.0, 1.0});
    expectNear(
        VrexQuaternionT<double>::rotate(VrexCircle3D::canonicalDirection(), entity->getRotation(), false),
        entity->getNormal());
    EXPECT_NEAR(entity->getRotation().norm(), 1.0, 1e-15);
}

TEST(VrexCircle3D, AllowRadiusSignChangeIsEmptyAtFirstAndTravels) {
    const auto entity = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    EXPECT_FALSE(entity->getAllowRadiusSignChange().has_value());
    entity->setAllowRadiusSignChange(false);
    EXPECT_EQ(entity->getAllowRadiusSignChange(), false);
    EXPECT_EQ(std::static_pointer_cast<VrexCircle3D>(entity->makeCopy())->getAllowRadiusSignChange(), false);
    entity->backup();
    entity->setAllowRadiusSignChange(true);
    entity->restore();
    EXPECT_EQ(entity->getAllowRadiusSignChange(), false);
}

TEST(VrexCircle3D, IntervalIsTheNaturalOneUnlessTrimmed) {
    const auto entity = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    EXPECT_EQ(entity->interval(), Range(0.0, 6.283185307179586));
    entity->start() = 0.5;
    EXPECT_EQ(entity->interval(), Range(0.5, 6.283185307179586));
    entity->end() = -7.0;
    EXPECT_EQ(entity->interval(), Range(0.5, -7.0));
    entity->start().reset();
    EXPECT_EQ(entity->interval(), Range(0.0, -7.0));
}

TEST(VrexCircle3D, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0)->checkChanged(0.0, 0.0));
}

TEST(VrexCircle3D, DirectionIsComparedWithTheFirstTolerance) {
    const auto entity = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    entity->backup();
    entity->setNormal({3.0, 0.0, 4.0}); // (0.6, 0, 0.8) from (0, 0, 1): off by 0.6 at most
    EXPECT_TRUE(entity->checkChanged(0.59, 1e9));
    EXPECT_FALSE(entity->checkChanged(0.61, 0.0));
}

TEST(VrexCircle3D, CentreMovedByExactlyTheToleranceIsUnchanged) {
    const auto entity = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    entity->backup();
    entity->setCenter({0.0, 3.0, 4.0});
    EXPECT_FALSE(entity->checkChanged(5.0, 0.0));
    EXPECT_TRUE(entity->checkChanged(4.9999, 1e9));
}

TEST(VrexCircle3D, RadiusChangedByMoreThanTheToleranceIsChanged) {
    const auto entity = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 1.0);
    entity->backup();
    entity->setRadius(0.5);
    EXPECT_FALSE(entity->checkChanged(0.5, 0.0));
    EXPECT_TRUE(entity->checkChanged(0.25, 1e9));
}

} // namespace
