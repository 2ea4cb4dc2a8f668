#include "data/geometry/3d/VrexLine3D.h"

#include <cmath>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"

namespace {

using Vector = VrexVector3DT<double>;

/// Two roundings of a trigonometric pair.
constexpr double ROUNDING = 1e-15;

void expectNear(const Vector& actual, const Vector& expected) {
    EXPECT_NEAR(actual.x(), expected.x(), ROUNDING);
    EXPECT_NEAR(actual.y(), expected.y(), ROUNDING);
    EXPECT_NEAR(actual.z(), expected.z(), ROUNDING);
}

TEST(VrexLine3D, IsALineOfFourFreedomsInFiveSlots) {
    const auto line = VrexLine3D::create({1.0, 2.0, 3.0}, {0.0, 1.0, 0.0});
    EXPECT_EQ(line->type(), VrexGeometry3DType::LINE);
    EXPECT_EQ(line->dof(), 4);
    EXPECT_EQ(VrexLine3D::PARAMETERS_AMOUNT, 5);
    EXPECT_EQ(VrexLine3D::X, 0);
    EXPECT_EQ(VrexLine3D::Y, 1);
    EXPECT_EQ(VrexLine3D::Z, 2);
    EXPECT_EQ(VrexLine3D::POLAR, 3);
    EXPECT_EQ(VrexLine3D::AZIMUTHAL, 4);
}

TEST(VrexLine3D, DirectionIsStoredAsTwoAngles) {
    const auto line = VrexLine3D::create({1.0, 2.0, 3.0}, {0.0, 5.0, 0.0});
    EXPECT_EQ(VrexVariableDescriptor(line, VrexLine3D::POLAR, nullptr).getValue(), std::acos(0.0));
    EXPECT_EQ(VrexVariableDescriptor(line, VrexLine3D::AZIMUTHAL, nullptr).getValue(), std::acos(0.0));
    expectNear(line->getDirection(), {0.0, 1.0, 0.0});
    EXPECT_EQ(line->getOrigin().y(), 2.0);
}

TEST(VrexLine3D, DirectionOfAnyLengthComesBackAsAUnitVector) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, -30.0, 40.0});
    expectNear(line->getDirection(), {0.0, -0.6, 0.8});
    line->setDirection({1e-9, 0.0, 0.0});
    expectNear(line->getDirection(), {1.0, 0.0, 0.0});
}

TEST(VrexLine3D, ZeroDirectionGivesTheZAxis) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    expectNear(line->getDirection(), {0.0, 0.0, 1.0});
}

TEST(VrexLine3D, RotationTakesTheCanonicalDirectionToTheDirection) {
    for (const Vector& direction : {Vector(1.0, 2.0, -2.0), Vector(0.0, 0.0, 1.0), Vector(0.0, 0.0, -1.0)}) {
        const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, direction);
        expectNear(VrexLine3D::canonicalDirection(), {0.0, 0.0, 1.0});
        expectNear(
            VrexQuaternionT<double>::rotate(VrexLine3D::canonicalDirection(), line->getRotation(), false),
            line->getDirection());
    }
}

TEST(VrexLine3D, HalfTurnGoesAboutTheXAxis) {
    const auto rotation = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, -1.0})->getRotation();
    EXPECT_NEAR(std::fabs(rotation.i()), 1.0, ROUNDING);
}

TEST(VrexLine3D, NearlyHalfATurnIsStillAboutTheAxisOfTheTilt) {
    // The tilt of 1e-7 is far above the tolerance of the rotation, which so turns about the Y axis.
    const auto rotation = VrexLine3D::create({0.0, 0.0, 0.0}, {1e-7, 0.0, -1.0})->getRotation();
    EXPECT_NEAR(rotation.j(), std::cos(5e-8), ROUNDING);
    EXPECT_NEAR(rotation.scalar(), std::sin(5e-8), ROUNDING);
}

TEST(VrexLine3D, BackupDirectionIsThatOfTheLatestSnapshot) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 3.0, 4.0});
    EXPECT_FALSE(line->getBackupDirection().has_value());
    line->backup();
    line->setDirection({1.0, 0.0, 0.0});
    ASSERT_TRUE(line->getBackupDirection().has_value());
    EXPECT_NEAR(line->getBackupDirection()->y(), 0.6, 1e-15);
    EXPECT_NEAR(line->getBackupDirection()->z(), 0.8, 1e-15);
}

TEST(VrexLine3D, WithoutBackupItIsNeverChanged) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    EXPECT_FALSE(line->checkChanged(0.0, 0.0));
}

TEST(VrexLine3D, MovedAlongItselfIsUnchanged) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    line->backup();
    for (const double distance : {1e-9, 1.0, 1e6}) {
        line->setOrigin({0.0, 0.0, distance});
        EXPECT_FALSE(line->checkChanged(1e-8, 0.0)) << distance;
    }
}

TEST(VrexLine3D, MovedAcrossItselfByTwiceTheToleranceIsChanged) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    line->backup();
    line->setOrigin({2e-8, 0.0, 0.0});
    EXPECT_TRUE(line->checkChanged(1e-8, 0.0));
    line->setOrigin({0.5e-8, 0.0, 0.0});
    EXPECT_FALSE(line->checkChanged(1e-8, 0.0)) << "a shift inside the tolerance counts as none";
}

TEST(VrexLine3D, ShiftIsMeasuredByItsDirectionNotItsLength) {
    // A long shift at a small slope: the sine counts, so it stays unchanged below the tolerance.
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    line->backup();
    line->setOrigin({0.1, 0.0, 100.0});
    EXPECT_FALSE(line->checkChanged(0.01, 0.0));
    EXPECT_TRUE(line->checkChanged(0.0005, 0.0));
}

TEST(VrexLine3D, TurnedByMoreThanTheToleranceIsChanged) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    line->backup();
    line->setDirection({0.01, 0.0, 1.0});
    EXPECT_TRUE(line->checkChanged(0.005, 0.0));
    EXPECT_FALSE(line->checkChanged(0.02, 0.0));
}

TEST(VrexLine3D, ToleranceZeroMakesEveryLineChanged) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    line->backup();
    EXPECT_TRUE(line->checkChanged(0.0, 0.0));
}

} // namespace
