#include "data/geometry/3d/VrexTorus3D.h"

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

TEST(VrexTorus3D, IsOfItsKindWithItsSlotsInOrder) {
    const auto entity = VrexTorus3D::create({1.0, 2.0, 3.0}, {0.0, 2.0, 0.0}, -4.0, 0.5);
    EXPECT_EQ(entity->type(), VrexGeometry3DType::TORUS);
    EXPECT_EQ(entity->dof(), 7);
    EXPECT_EQ(VrexTorus3D::PARAMETERS_AMOUNT, 7);
    EXPECT_EQ(parametersOf(entity, 7, {}),
              (std::vector<double>{-4.0, 0.5, 1.0, 2.0, 3.0, PI / 2.0, PI / 2.0}));
    EXPECT_EQ(VrexVariableDescriptor(entity, 7, nullptr).getValue(), 0.0) << "there is no such slot";
    EXPECT_TRUE(entity->isParametricSurface());
    EXPECT_FALSE(entity->isParametricCurve());
}

TEST(VrexTorus3D, IndexConstantsNameTheSlots) {
    EXPECT_EQ(VrexTorus3D::MAJOR_RAD, 0);
    EXPECT_EQ(VrexTorus3D::MINOR_RAD, 1);
    EXPECT_EQ(VrexTorus3D::X, 2);
    EXPECT_EQ(VrexTorus3D::Y, 3);
    EXPECT_EQ(VrexTorus3D::Z, 4);
    EXPECT_EQ(VrexTorus3D::POLAR, 5);
    EXPECT_EQ(VrexTorus3D::AZIMUTHAL, 6);
}

TEST(VrexTorus3D, AccessorsReadWhatWasSet) {
    const auto torus = VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0);
    torus->setCenter({5.0, 6.0, 7.0});
    torus->setNormal({0.0, 3.0, 4.0});
    torus->setMajorRadius(8.0);
    torus->setMinorRadius(-9.0);
    expectNear(torus->getCenter(), {5.0, 6.0, 7.0}, 0.0);
    expectNear(torus->getNormal(), {0.0, 0.6, 0.8}, 1e-15);
    EXPECT_EQ(torus->getMajorRadius(), 8.0);
    EXPECT_EQ(torus->getMinorRadius(), -9.0);
}

TEST(VrexTorus3D, RotationTakesTheZAxisToItsNormal) {
    const auto entity = VrexTorus3D::create({1.0, 2.0, 3.0}, {2.0, -1.0, 2.0}, 3.0, 1.0);
    expectNear(VrexTorus3D::canonicalDirection(), {0.0, 0.0, 1.0});
    expectNear(
        VrexQuaternionT<double>::rotate(VrexTorus3D::canonicalDirection(), entity->getRotation(), false),
        entity->getNormal());
    EXPECT_NEAR(entity->getRotation().norm(), 1.0, 1e-15);
}

TEST(VrexTorus3D, AllowRadiusSignChangeIsEmptyAtFirstAndTravels) {
    const auto entity = VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0);
    EXPECT_FALSE(entity->getAllowRadiusSignChange().has_value());
    entity->setAllowRadiusSignChange(false);
    EXPECT_EQ(entity->getAllowRadiusSignChange(), false);
    EXPECT_EQ(std::static_pointer_cast<VrexTorus3D>(entity->makeCopy())->getAllowRadiusSignChange(), false);
    entity->backup();
    entity->setAllowRadiusSignChange(true);
    entity->restore();
    EXPECT_EQ(entity->getAllowRadiusSignChange(), false);
}

TEST(VrexTorus3D, IntervalUIsTheNaturalOneUnlessTrimmed) {
    const auto entity = VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0);
    EXPECT_EQ(entity->intervalU(), Range(0.0, 6.283185307179586));
    entity->startU() = 0.5;
    EXPECT_EQ(entity->intervalU(), Range(0.5, 6.283185307179586));
    entity->endU() = -7.0;
    EXPECT_EQ(entity->intervalU(), Range(0.5, -7.0));
    entity->startU().reset();
    EXPECT_EQ(entity->intervalU(), Range(0.0, -7.0));
}

TEST(VrexTorus3D, IntervalVIsTheNaturalOneUnlessTrimmed) {
    const auto entity = VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0);
    EXPECT_EQ(entity->intervalV(), Range(0.0, 6.283185307179586));
    entity->startV() = 0.5;
    EXPECT_EQ(entity->intervalV(), Range(0.5, 6.283185307179586));
    entity->endV() = -7.0;
    EXPECT_EQ(entity->intervalV(), Range(0.5, -7.0));
    entity->startV().reset();
    EXPECT_EQ(entity->intervalV(), Range(0.0, -7.0));
}

TEST(VrexTorus3D, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0)->checkChanged(0.0, 0.0));
}

TEST(VrexTorus3D, DirectionIsComparedWithTheFirstTolerance) {
    const auto entity = VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0);
    entity->backup();
    entity->setNormal({3.0, 0.0, 4.0}); // (0.6, 0, 0.8) from (0, 0, 1): off by 0.6 at most
    EXPECT_TRUE(entity->checkChanged(0.59, 1e9));
    EXPECT_FALSE(entity->checkChanged(0.61, 0.0));
}

TEST(VrexTorus3D, CentreMovedByExactlyTheToleranceIsUnchanged) {
    const auto entity = VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0);
    entity->backup();
    entity->setCenter({0.0, 3.0, 4.0});
    EXPECT_FALSE(entity->checkChanged(5.0, 0.0));
    EXPECT_TRUE(entity->checkChanged(4.9999, 1e9));
}

TEST(VrexTorus3D, MajorRadiusChangedByMoreThanTheToleranceIsChanged) {
    const auto entity = VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0);
    entity->backup();
    entity->setMajorRadius(2.5);
    EXPECT_FALSE(entity->checkChanged(0.5, 0.0));
    EXPECT_TRUE(entity->checkChanged(0.25, 1e9));
}

TEST(VrexTorus3D, MinorRadiusChangedByMoreThanTheToleranceIsChanged) {
    const auto entity = VrexTorus3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 3.0, 1.0);
    entity->backup();
    entity->setMinorRadius(0.5);
    EXPECT_FALSE(entity->checkChanged(0.5, 0.0));
    EXPECT_TRUE(entity->checkChanged(0.25, 1e9));
}

} // namespace
