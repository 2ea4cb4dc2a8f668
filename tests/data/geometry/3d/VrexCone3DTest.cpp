#include "data/geometry/3d/VrexCone3D.h"

#include <cmath>
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

TEST(VrexCone3D, IsOfItsKindWithItsSlotsInOrder) {
    const auto entity = VrexCone3D::create({1.0, 2.0, 3.0}, {0.0, 2.0, 0.0}, -0.75);
    EXPECT_EQ(entity->type(), VrexGeometry3DType::CONE);
    EXPECT_EQ(entity->dof(), 6);
    EXPECT_EQ(VrexCone3D::PARAMETERS_AMOUNT, 6);
    EXPECT_EQ(parametersOf(entity, 6, {}), (std::vector<double>{-0.75, 1.0, 2.0, 3.0, PI / 2.0, PI / 2.0}));
    EXPECT_EQ(VrexVariableDescriptor(entity, 6, nullptr).getValue(), 0.0) << "there is no such slot";
    EXPECT_TRUE(entity->isParametricSurface());
    EXPECT_FALSE(entity->isParametricCurve());
}

TEST(VrexCone3D, IndexConstantsNameTheSlots) {
    EXPECT_EQ(VrexCone3D::ALPHA, 0);
    EXPECT_EQ(VrexCone3D::X, 1);
    EXPECT_EQ(VrexCone3D::Y, 2);
    EXPECT_EQ(VrexCone3D::Z, 3);
    EXPECT_EQ(VrexCone3D::POLAR, 4);
    EXPECT_EQ(VrexCone3D::AZIMUTHAL, 5);
}

TEST(VrexCone3D, AccessorsReadWhatWasSet) {
    const auto cone = VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 0.5);
    cone->setOrigin({5.0, 6.0, 7.0});
    cone->setDirection({0.0, 3.0, 4.0});
    cone->setAperture(0.25);
    expectNear(cone->getOrigin(), {5.0, 6.0, 7.0}, 0.0);
    expectNear(cone->getDirection(), {0.0, 0.6, 0.8}, 1e-15);
    EXPECT_EQ(cone->getAperture(), 0.25);
}

TEST(VrexCone3D, ApertureIsStoredLessWholeTurns) {
    const auto cone = VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 0.5);
    const auto stored = [&](double aperture) {
        cone->setAperture(aperture);
        return cone->getAperture();
    };
    EXPECT_EQ(stored(PI), -PI) << "the upper end belongs to the next turn";
    EXPECT_EQ(stored(-PI), -PI);
    EXPECT_EQ(stored(0.0), 0.0);
    EXPECT_NEAR(stored(3.0 * PI / 2.0), -PI / 2.0, 1e-15);
    EXPECT_NEAR(stored(-3.0 * PI / 2.0), PI / 2.0, 1e-15);
    EXPECT_NEAR(stored(1.0 + 20.0 * PI), 1.0, 1e-13); // 64 has steps of 1.4e-14
    EXPECT_NEAR(stored(1.0 - 20.0 * PI), 1.0, 1e-13);
    EXPECT_TRUE(std::isnan(stored(std::nan(""))));
}

TEST(VrexCone3D, CreateStoresTheApertureLessWholeTurns) {
    EXPECT_EQ((VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, PI)->getAperture()), -PI);
}

TEST(VrexCone3D, RotationTakesTheZAxisToItsDirection) {
    const auto entity = VrexCone3D::create({1.0, 2.0, 3.0}, {2.0, -1.0, 2.0}, 1.0);
    expectNear(VrexCone3D::canonicalDirection(), {0.0, 0.0, 1.0});
    expectNear(
        VrexQuaternionT<double>::rotate(VrexCone3D::canonicalDirection(), entity->getRotation(), false),
        entity->getDirection());
    EXPECT_NEAR(entity->getRotation().norm(), 1.0, 1e-15);
}

TEST(VrexCone3D, IntervalUIsTheNaturalOneUnlessTrimmed) {
    const auto entity = VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 0.5);
    EXPECT_EQ(entity->intervalU(), Range(0.0, 6.283185307179586));
    entity->startU() = 0.5;
    EXPECT_EQ(entity->intervalU(), Range(0.5, 6.283185307179586));
    entity->endU() = -7.0;
    EXPECT_EQ(entity->intervalU(), Range(0.5, -7.0));
    entity->startU().reset();
    EXPECT_EQ(entity->intervalU(), Range(0.0, -7.0));
}

TEST(VrexCone3D, IntervalVStartsAtTheApexWhateverItsStart) {
    const auto cone = VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 0.5);
    cone->startV() = -3.0;
    EXPECT_EQ(cone->intervalV(), Range(0.0, std::nullopt)) << "there is no natural end";
    cone->endV() = 8.0;
    EXPECT_EQ(cone->intervalV(), Range(0.0, 8.0));
    cone->endV() = -8.0;
    EXPECT_EQ(cone->intervalV(), Range(0.0, -8.0));
}

TEST(VrexCone3D, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 0.5)->checkChanged(0.0, 0.0));
}

TEST(VrexCone3D, DirectionIsComparedWithTheFirstTolerance) {
    const auto entity = VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 0.5);
    entity->backup();
    entity->setDirection({3.0, 0.0, 4.0}); // (0.6, 0, 0.8) from (0, 0, 1): off by 0.6 at most
    EXPECT_TRUE(entity->checkChanged(0.59, 1e9));
    EXPECT_FALSE(entity->checkChanged(0.61, 0.0));
}

TEST(VrexCone3D, ApexMovedByExactlyTheToleranceIsUnchanged) {
    const auto entity = VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 0.5);
    entity->backup();
    entity->setOrigin({0.0, 3.0, 4.0});
    EXPECT_FALSE(entity->checkChanged(5.0, 0.0));
    EXPECT_TRUE(entity->checkChanged(4.9999, 1e9));
}

TEST(VrexCone3D, ApertureChangedByMoreThanTheToleranceIsChanged) {
    const auto entity = VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, 0.5);
    entity->backup();
    entity->setAperture(0.25);
    EXPECT_FALSE(entity->checkChanged(0.0625, 0.25));
    // The length may change by as much as it likes, the angle not.
    EXPECT_TRUE(entity->checkChanged(1e9, 0.125));
}

} // namespace
