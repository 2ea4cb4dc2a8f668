#include "data/geometry/3d/VrexEllipse3D.h"

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
using Vector = VrexVector3DT<double>;
using Range = std::pair<std::optional<double>, std::optional<double>>;

TEST(VrexEllipse3D, IsOfItsKindWithItsSlotsInOrder) {
    const auto entity = VrexEllipse3D::create({1.0, 2.0, 3.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, -4.0, 5.0);
    EXPECT_EQ(entity->type(), VrexGeometry3DType::ELLIPSE);
    EXPECT_EQ(entity->dof(), 8);
    EXPECT_EQ(VrexEllipse3D::PARAMETERS_AMOUNT, 9);
    EXPECT_EQ(parametersOf(entity, 9, {}),
              (std::vector<double>{-4.0, 5.0, 1.0, 2.0, 3.0, 1.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(VrexVariableDescriptor(entity, 9, nullptr).getValue(), 0.0) << "there is no such slot";
    EXPECT_TRUE(entity->isParametricCurve());
    EXPECT_FALSE(entity->isParametricSurface());
}

TEST(VrexEllipse3D, IndexConstantsNameTheSlots) {
    EXPECT_EQ(VrexEllipse3D::R1, 0);
    EXPECT_EQ(VrexEllipse3D::R2, 1);
    EXPECT_EQ(VrexEllipse3D::X, 2);
    EXPECT_EQ(VrexEllipse3D::Y, 3);
    EXPECT_EQ(VrexEllipse3D::Z, 4);
    EXPECT_EQ(VrexEllipse3D::SCALAR, 5);
    EXPECT_EQ(VrexEllipse3D::I, 6);
    EXPECT_EQ(VrexEllipse3D::J, 7);
    EXPECT_EQ(VrexEllipse3D::K, 8);
}

TEST(VrexEllipse3D, AccessorsReadWhatWasSet) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    ellipse->setCenter({5.0, 6.0, 7.0});
    ellipse->setMajorRadius(8.0);
    ellipse->setMinorRadius(-9.0);
    expectNear(ellipse->getCenter(), {5.0, 6.0, 7.0}, 0.0);
    EXPECT_EQ(ellipse->getMajorRadius(), 8.0);
    EXPECT_EQ(ellipse->getMinorRadius(), -9.0);
}

TEST(VrexEllipse3D, CreateTakesDirectionThenNormalOfAnyLength) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {0.0, 3.0, 4.0}, {0.0, -8.0, 6.0}, 2.0, 1.0);
    expectNear(ellipse->getDirection(), {0.0, 0.6, 0.8}, 1e-15);
    expectNear(ellipse->getNormal(), {0.0, -0.8, 0.6}, 1e-15);
    EXPECT_NEAR(ellipse->getRotation().norm(), 1.0, 1e-15);
    expectNear(VrexEllipse3D::canonicalDirection(), {1.0, 0.0, 0.0});
    expectNear(VrexEllipse3D::canonicalNormal(), {0.0, 0.0, 1.0});
}

TEST(VrexEllipse3D, CreateDoesNotAskForARightAngle) {
    // The direction gets where it should and the normal is turned about nothing but a normal of the turned
    // one: the second turn takes X off the direction.
    const auto skew = VrexEllipse3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {1.0, 0.0, 1.0}, 2.0, 1.0);
    const double half = std::sqrt(0.5);
    expectNear(skew->getNormal(), {half, 0.0, half}, 1e-15);
    expectNear(skew->getDirection(), {half, 0.0, -half}, 1e-15);
    const auto nothing = VrexEllipse3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, 2.0, 1.0);
    EXPECT_EQ(parametersOf(nothing, 9, {}),
              (std::vector<double>{2.0, 1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0}));
}

/// Expects that the call was refused and the frame is still that of space.
void expectRefused(const std::shared_ptr<VrexEllipse3D>& ellipse, bool result) {
    EXPECT_FALSE(result);
    EXPECT_EQ(parametersOf(ellipse, 9, {}),
              (std::vector<double>{2.0, 1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0}));
}

VrexQuaternionT<double> quaternion(double w, double i, double j, double k) {
    return VrexQuaternionT<double>::makeFromScalarAndVector(w, {i, j, k});
}

TEST(VrexEllipse3D, UnitQuaternionIsStoredAsItIs) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    EXPECT_TRUE(ellipse->setRotation(quaternion(0.5, -0.5, 0.5, -0.5)));
    EXPECT_EQ(parametersOf(ellipse, 9, {}),
              (std::vector<double>{2.0, 1.0, 0.0, 0.0, 0.0, 0.5, -0.5, 0.5, -0.5}));
    EXPECT_EQ(ellipse->getRotation().scalar(), 0.5);
    EXPECT_EQ(ellipse->getRotation().k(), -0.5);
    // A third of a turn about (-1, 1, -1): X to -Y, and Z to X.
    expectNear(ellipse->getDirection(), {0.0, -1.0, 0.0});
    expectNear(ellipse->getNormal(), {1.0, 0.0, 0.0});
    EXPECT_TRUE(ellipse->setRotation(quaternion(1.0000009, 0.0, 0.0, 0.0)));
    EXPECT_EQ(ellipse->getRotation().scalar(), 1.0000009) << "not normalised";
}

TEST(VrexEllipse3D, QuaternionOffUnitLengthIsRefused) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    expectRefused(ellipse, ellipse->setRotation(quaternion(1.0000011, 0.0, 0.0, 0.0)));
    expectRefused(ellipse, ellipse->setRotation(quaternion(0.0, 0.0, 0.9999989, 0.0)));
    expectRefused(ellipse, ellipse->setRotation(quaternion(0.0, 0.0, 0.0, 0.0)));
    expectRefused(ellipse, ellipse->setRotation(quaternion(std::nan(""), 0.0, 0.0, 0.0)));
}

TEST(VrexEllipse3D, DirectionAndNormalAtARightAngleAreTaken) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    EXPECT_TRUE(ellipse->setRotation(Vector(0.0, 3.0, 4.0), Vector(0.0, -8.0, 6.0)));
    expectNear(ellipse->getDirection(), {0.0, 0.6, 0.8}, 1e-15);
    expectNear(ellipse->getNormal(), {0.0, -0.8, 0.6}, 1e-15);
    EXPECT_TRUE(ellipse->setRotation(Vector(1.0, 0.0, 0.0), Vector(9e-7, 0.0, 1.0)));
}

TEST(VrexEllipse3D, DirectionAndNormalOffARightAngleAreRefused) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    expectRefused(ellipse, ellipse->setRotation(Vector(1.0, 0.0, 0.0), Vector(1.1e-6, 0.0, 1.0)));
    expectRefused(ellipse, ellipse->setRotation(Vector(1.0, 0.0, 0.0), Vector(0.0, 0.0, 0.0)));
    expectRefused(ellipse, ellipse->setRotation(Vector(1.0, 0.0, 0.0), Vector(0.0, 0.0, std::nan(""))));
}

TEST(VrexEllipse3D, AllowRadiusSignChangeIsEmptyAtFirstAndTravels) {
    const auto entity = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    EXPECT_FALSE(entity->getAllowRadiusSignChange().has_value());
    entity->setAllowRadiusSignChange(false);
    EXPECT_EQ(entity->getAllowRadiusSignChange(), false);
    EXPECT_EQ(std::static_pointer_cast<VrexEllipse3D>(entity->makeCopy())->getAllowRadiusSignChange(), false);
    entity->backup();
    entity->setAllowRadiusSignChange(true);
    entity->restore();
    EXPECT_EQ(entity->getAllowRadiusSignChange(), false);
}

TEST(VrexEllipse3D, IntervalIsTheNaturalOneUnlessTrimmed) {
    const auto entity = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    EXPECT_EQ(entity->interval(), Range(0.0, 6.283185307179586));
    entity->start() = 0.5;
    EXPECT_EQ(entity->interval(), Range(0.5, 6.283185307179586));
    entity->end() = -7.0;
    EXPECT_EQ(entity->interval(), Range(0.5, -7.0));
    entity->start().reset();
    EXPECT_EQ(entity->interval(), Range(0.0, -7.0));
}

TEST(VrexEllipse3D, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0)
                     ->checkChanged(0.0, 0.0));
}

TEST(VrexEllipse3D, DirectionsAreComparedWithTheSecondTolerance) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    ellipse->backup();
    // Turned about its normal: the direction moves by 0.8 at most, the normal stays.
    ASSERT_TRUE(ellipse->setRotation(Vector(0.6, 0.8, 0.0), Vector(0.0, 0.0, 1.0)));
    EXPECT_TRUE(ellipse->checkChanged(1e-6, 0.79));
    EXPECT_FALSE(ellipse->checkChanged(1e-6, 0.81));
    // Turned about its direction.
    ASSERT_TRUE(ellipse->setRotation(Vector(1.0, 0.0, 0.0), Vector(0.0, 0.8, 0.6)));
    EXPECT_TRUE(ellipse->checkChanged(1e-6, 0.79));
    EXPECT_FALSE(ellipse->checkChanged(1e-6, 0.81));
}

TEST(VrexEllipse3D, DirectionsNoLongerThanTheFirstToleranceCountAsZero) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    ellipse->backup();
    ASSERT_TRUE(ellipse->setRotation(Vector(0.0, 1.0, 0.0), Vector(0.0, 0.0, 1.0)));
    EXPECT_TRUE(ellipse->checkChanged(0.99, 0.5));
    EXPECT_FALSE(ellipse->checkChanged(1.01, 0.5));
}

TEST(VrexEllipse3D, SecondToleranceOfZeroIsAlwaysAChange) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    ellipse->backup();
    EXPECT_TRUE(ellipse->checkChanged(1.0, 0.0)) << "no difference is below zero";
    EXPECT_FALSE(ellipse->checkChanged(0.0, 1e-12));
}

TEST(VrexEllipse3D, CentreAndRadiiAreComparedWithTheFirstTolerance) {
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 0.0, 3.0}, 2.0, 1.0);
    ellipse->backup();
    ellipse->setCenter({0.0, 3.0, 4.0});
    EXPECT_FALSE(ellipse->checkChanged(5.0, 1e-3));
    EXPECT_TRUE(ellipse->checkChanged(4.9999, 1e9));
    ellipse->restore();
    ellipse->backup();
    ellipse->setMajorRadius(2.5);
    EXPECT_FALSE(ellipse->checkChanged(0.5, 1e-3));
    EXPECT_TRUE(ellipse->checkChanged(0.25, 1e9));
    ellipse->restore();
    ellipse->backup();
    ellipse->setMinorRadius(0.5);
    EXPECT_FALSE(ellipse->checkChanged(0.5, 1e-3));
    EXPECT_TRUE(ellipse->checkChanged(0.25, 1e9));
}

} // namespace
