#include "data/geometry/3d/VrexRigidSet3D.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/Samples.h"
#include "support/VectorSamples.h"

namespace {

using nsVectorSamples::expectNear;
using nsVectorSamples::INF;
using nsVectorSamples::NOT_A_NUMBER;
using nsVectorSamples::PI;
using nsVectorSamples::Values3;
using nsVectorSamples::Values4;
using nsVectorSamples::valuesOf;
using Quaternion = VrexQuaternionT<double>;
using Transformation = VrexTransformation3DT<double>;
using testing::ElementsAre;

/// A few roundings of trigonometric pairs and of products of quaternions.
constexpr double ROUNDING = 4e-15;

Quaternion quaternion(double w, double i, double j, double k) {
    return Quaternion::makeFromScalarAndVector(w, {i, j, k});
}

Values4 rotationOf(const std::shared_ptr<VrexRigidSet3D>& set) { return valuesOf(set->getRotation()); }

TEST(VrexRigidSet3D, NewSetStandsAtTheOriginNotTurned) {
    const auto point = makeSample<VrexPoint3D>();
    const auto set = VrexRigidSet3D::create({point});
    EXPECT_EQ(set->type(), VrexGeometry3DType::RIGID_SET);
    EXPECT_EQ(set->dof(), 6);
    EXPECT_FALSE(set->isPattern());
    EXPECT_THAT(set->geometries(), ElementsAre(point));
    EXPECT_EQ(valuesOf(set->getOrigin()), (Values3{0.0, 0.0, 0.0}));
    EXPECT_EQ(rotationOf(set), (Values4{1.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(set->getAngle(), 0.0);
    EXPECT_EQ(valuesOf(set->getAxis()), (Values3{1.0, 0.0, 0.0}));
}

TEST(VrexRigidSet3D, SlotsHoldOriginThenQuaternion) {
    const auto set = VrexRigidSet3D::create({});
    set->setOrigin({1.0, 2.0, 3.0});
    ASSERT_TRUE(set->setRotation(quaternion(0.1, 0.3, 0.9, 0.3)));
    const double expected[VrexRigidSet3D::PARAMETERS_AMOUNT] = {1.0, 2.0, 3.0, 0.1, 0.3, 0.9, 0.3};
    for (int slot = 0; slot < VrexRigidSet3D::PARAMETERS_AMOUNT; ++slot) {
        EXPECT_EQ(VrexVariableDescriptor(set, slot, nullptr).getValue(), expected[slot]) << slot;
    }
}

TEST(VrexRigidSet3D, DirectionAndNormalAreTheTurnedXAndZAxes) {
    EXPECT_EQ(valuesOf(VrexRigidSet3D::canonicalDirection()), (Values3{1.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(VrexRigidSet3D::canonicalNormal()), (Values3{0.0, 0.0, 1.0}));
    const auto set = VrexRigidSet3D::create({});
    ASSERT_TRUE(set->setRotation(0.7, {2.0, -1.0, 2.0}));
    const Values3 axis{2.0 / 3.0, -1.0 / 3.0, 2.0 / 3.0};
    expectNear(valuesOf(set->getDirection()), nsVectorSamples::rodrigues({1.0, 0.0, 0.0}, axis, 0.7),
               ROUNDING);
    expectNear(valuesOf(set->getNormal()), nsVectorSamples::rodrigues({0.0, 0.0, 1.0}, axis, 0.7), ROUNDING);
    EXPECT_NEAR(set->getAngle(), 0.7, ROUNDING);
    expectNear(valuesOf(set->getAxis()), axis, ROUNDING);
}

TEST(VrexRigidSet3D, QuaternionThatIsNotOfUnitLengthIsRefused) {
    const auto set = VrexRigidSet3D::create({});
    ASSERT_TRUE(set->setRotation(quaternion(0.6, 0.0, 0.8, 0.0)));
    for (const Quaternion& refused :
         {quaternion(1.0000011, 0.0, 0.0, 0.0), quaternion(0.0, 0.9999989, 0.0, 0.0),
          quaternion(0.0, 0.0, 0.0, 0.0), quaternion(NOT_A_NUMBER, 0.0, 0.0, 1.0),
          quaternion(0.0, INF, 0.0, 0.0)}) {
        EXPECT_FALSE(set->setRotation(refused));
        EXPECT_EQ(rotationOf(set), (Values4{0.6, 0.0, 0.8, 0.0}));
    }
    EXPECT_TRUE(set->setRotation(quaternion(1.0000009, 0.0, 0.0, 0.0)));
    EXPECT_EQ(rotationOf(set), (Values4{1.0000009, 0.0, 0.0, 0.0}));
}

TEST(VrexRigidSet3D, DirectionAndNormalAtARightAngleAreTaken) {
    const auto set = VrexRigidSet3D::create({});
    EXPECT_TRUE(set->setRotation({0.0, 5.0, 0.0}, {0.25, 0.0, 0.0}));
    expectNear(valuesOf(set->getDirection()), {0.0, 1.0, 0.0}, ROUNDING);
    expectNear(valuesOf(set->getNormal()), {1.0, 0.0, 0.0}, ROUNDING);
    EXPECT_TRUE(set->setRotation({1.0, 0.0, 0.0}, {0.9e-6, 0.0, 1.0})) << "almost a right angle";
}

TEST(VrexRigidSet3D, DirectionAndNormalAtAnotherAngleAreRefused) {
    const auto set = VrexRigidSet3D::create({});
    ASSERT_TRUE(set->setRotation(quaternion(0.6, 0.0, 0.8, 0.0)));
    EXPECT_FALSE(set->setRotation({1.0, 0.0, 0.0}, {1.1e-6, 0.0, 1.0}));
    EXPECT_FALSE(set->setRotation({1.0, 0.0, 0.0}, {-1.1e-6, 0.0, 1.0}));
    EXPECT_FALSE(set->setRotation({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}));
    EXPECT_FALSE(set->setRotation({1e-6, 0.0, 0.0}, {0.0, 0.0, 1.0})) << "too short to have an angle";
    EXPECT_FALSE(set->setRotation({1.0, 0.0, 0.0}, {0.0, 0.0, NOT_A_NUMBER}));
    EXPECT_EQ(rotationOf(set), (Values4{0.6, 0.0, 0.8, 0.0}));
}

TEST(VrexRigidSet3D, NoAngleAboutNoAxisIsTaken) {
    const auto set = VrexRigidSet3D::create({});
    ASSERT_TRUE(set->setRotation(quaternion(0.6, 0.0, 0.8, 0.0)));
    EXPECT_TRUE(set->setRotation(0.0, {0.0, 0.0, 0.0}));
    EXPECT_EQ(rotationOf(set), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TEST(VrexRigidSet3D, AngleAboutNoAxisIsRefused) {
    const auto set = VrexRigidSet3D::create({});
    EXPECT_FALSE(set->setRotation(1.1e-6, {0.0, 0.9e-6, 0.0}));
    EXPECT_EQ(rotationOf(set), (Values4{1.0, 0.0, 0.0, 0.0}));
    EXPECT_TRUE(set->setRotation(PI, {0.0, 1.1e-6, 0.0}));
    expectNear(rotationOf(set), {0.0, 0.0, 1.0, 0.0}, ROUNDING);
}

TEST(VrexRigidSet3D, NegativeAngleAboutNoAxisIsStoredAsItComes) {
    const auto set = VrexRigidSet3D::create({});
    EXPECT_TRUE(set->setRotation(-2.0, {0.0, 0.0, 0.0}));
    EXPECT_EQ(rotationOf(set), (Values4{std::cos(1.0), 0.0, 0.0, 0.0}));
}

TEST(VrexRigidSet3D, TransformationIsOriginAndRotation) {
    const auto set = VrexRigidSet3D::create({});
    EXPECT_TRUE(set->setTransformation({{1.0, 2.0, 3.0}, 0.6, 0.0, 0.8, 0.0}));
    EXPECT_EQ(valuesOf(set->getOrigin()), (Values3{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(set->getTransformation().getTranslation()), (Values3{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(set->getTransformation().getRotation()), (Values4{0.6, 0.0, 0.8, 0.0}));
}

TEST(VrexRigidSet3D, RefusedTransformationHasMovedTheOrigin) {
    const auto set = VrexRigidSet3D::create({});
    EXPECT_FALSE(set->setTransformation({{1.0, 2.0, 3.0}, 0.6, 0.0, 0.9, 0.0}));
    EXPECT_EQ(valuesOf(set->getOrigin()), (Values3{1.0, 2.0, 3.0}));
    EXPECT_EQ(rotationOf(set), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TEST(VrexRigidSet3D, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexRigidSet3D::create({})->checkChanged(0.0, 0.0));
}

TEST(VrexRigidSet3D, OriginMovedByExactlyTheToleranceIsChanged) {
    const auto set = VrexRigidSet3D::create({});
    set->backup();
    set->setOrigin({0.0, -0.5, 0.0});
    EXPECT_TRUE(set->checkChanged(0.5, 1.0));
    EXPECT_FALSE(set->checkChanged(0.50001, 1.0));
    set->setOrigin({0.4, 0.4, 0.4});
    EXPECT_FALSE(set->checkChanged(0.5, 1.0)) << "component by component";
}

TEST(VrexRigidSet3D, AngleChangedByExactlyTheSecondToleranceIsChanged) {
    const auto set = VrexRigidSet3D::create({});
    set->backup();
    EXPECT_TRUE(set->checkChanged(1.0, 0.0)) << "a second tolerance of 0 is always reached";
    EXPECT_FALSE(set->checkChanged(1.0, 1e-300));
    ASSERT_TRUE(set->setRotation(quaternion(0.0, 1.0, 0.0, 0.0))); // twice acos(0)
    EXPECT_TRUE(set->checkChanged(10.0, 2.0 * std::acos(0.0)));
    EXPECT_FALSE(set->checkChanged(10.0, 3.2));
}

TEST(VrexRigidSet3D, TurnedAxisCountsFromAnAngleOfTheSecondTolerance) {
    const auto set = VrexRigidSet3D::create({});
    ASSERT_TRUE(set->setRotation(quaternion(0.0, 1.0, 0.0, 0.0)));
    set->backup();
    ASSERT_TRUE(set->setRotation(quaternion(0.0, 0.0, 1.0, 0.0)));
    EXPECT_TRUE(set->checkChanged(0.5, 3.0));
    EXPECT_TRUE(set->checkChanged(0.5, 2.0 * std::acos(0.0)));
    EXPECT_FALSE(set->checkChanged(0.5, 3.2)) << "the angle is smaller than that";
}

TEST(VrexRigidSet3D, MembersPlayNoPartInTheChangeTest) {
    const auto point = makeSample<VrexPoint3D>();
    const auto set = VrexRigidSet3D::create({point});
    point->backup();
    set->backup();
    point->setX(1e6);
    set->geometries().clear();
    ASSERT_TRUE(point->checkChanged(1e-8, 1e-8));
    EXPECT_FALSE(set->checkChanged(1e-8, 1e-8));
}

TEST(VrexRigidSet3D, UpdateKeepsTheMembersAndTakesTheRest) {
    const auto point = makeSample<VrexPoint3D>();
    const auto set = VrexRigidSet3D::create({point});
    const auto other = makeSample<VrexRigidSet3D>();
    set->updateFrom(other);
    EXPECT_THAT(set->geometries(), ElementsAre(point));
    EXPECT_EQ(other->geometries().size(), 2U);
    EXPECT_TRUE(set->isEqualParameters(*other));
}

TEST(VrexRigidSet3D, RestoreBringsTheMembersBack) {
    const auto point = makeSample<VrexPoint3D>();
    const auto set = VrexRigidSet3D::create({point});
    set->backup();
    set->geometries().clear();
    set->restore();
    EXPECT_THAT(set->geometries(), ElementsAre(point));
}

TEST(VrexRigidSet3D, SetThatHoldsItselfIsCopiedTestedAndUpdated) {
    const auto set = VrexRigidSet3D::create({});
    set->geometries().push_back(set);
    set->backup();
    EXPECT_FALSE(set->checkChanged(1.0, 1.0));
    EXPECT_THAT(set->getGeometries(), ElementsAre(set));
    set->updateFrom(set);
    set->clearBackup();
    set->geometries().clear();
    EXPECT_EQ(set.use_count(), 1);
}

} // namespace
