#include "data/geometry/3d/VrexEvaluatedSurface3D.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "support/Samples.h"
#include "support/VectorSamples.h"

namespace {

using nsVectorSamples::expectNear;
using nsVectorSamples::PI;
using nsVectorSamples::Values3;
using nsVectorSamples::Values4;
using nsVectorSamples::valuesOf;
using Quaternion = VrexQuaternionT<double>;
using testing::IsEmpty;
using testing::Pair;

Quaternion quaternion(double w, double i, double j, double k) {
    return Quaternion::makeFromScalarAndVector(w, {i, j, k});
}

std::shared_ptr<VrexEvaluatedSurface3D> newSurface() {
    return VrexEvaluatedSurface3D::create({1.0, 2.0, 3.0}, quaternion(0.6, 0.0, 0.8, 0.0));
}

TEST(VrexEvaluatedSurface3D, NewSurfaceHasAFrameAndNoExpressions) {
    const auto surface = newSurface();
    EXPECT_EQ(surface->type(), VrexGeometry3DType::EVAL_SURFACE);
    EXPECT_TRUE(surface->isParametricSurface());
    EXPECT_EQ(surface->dof(), 6);
    EXPECT_EQ(surface->getU(), nullptr);
    EXPECT_EQ(surface->getV(), nullptr);
    EXPECT_EQ(surface->getX() + surface->getY() + surface->getZ(), "");
    const double expected[VrexEvaluatedSurface3D::PARAMETERS_AMOUNT] = {1.0, 2.0, 3.0, 0.6, 0.0, 0.8, 0.0};
    for (int slot = 0; slot < VrexEvaluatedSurface3D::PARAMETERS_AMOUNT; ++slot) {
        EXPECT_EQ(VrexVariableDescriptor(surface, slot, nullptr).getValue(), expected[slot]) << slot;
    }
}

TEST(VrexEvaluatedSurface3D, RefusedRotationLeavesANewSurfaceNotTurned) {
    const auto surface = VrexEvaluatedSurface3D::create({1.0, 2.0, 3.0}, quaternion(2.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(valuesOf(surface->getRotation()), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TEST(VrexEvaluatedSurface3D, CreatedWithExpressionsItEvaluates) {
    const auto surface =
        VrexEvaluatedSurface3D::create({1.0, 2.0, 3.0}, Quaternion::ONE(),
                                       {{VrexGeometryVariable::create(5.0), 0, "r"}}, "u", "v", "u * v * r");
    EXPECT_EQ(valuesOf(surface->evaluate(2.0, 3.0, 0)[0]), (Values3{3.0, 5.0, 33.0}));
}

TEST(VrexEvaluatedSurface3D, CreatedWithAWrongExpressionItIsThereAndTheLogTells) {
    const LogCapture log;
    const auto surface =
        VrexEvaluatedSurface3D::create({1.0, 2.0, 3.0}, Quaternion::ONE(), {}, "u", "t", "v");
    ASSERT_NE(surface, nullptr);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].text, "Expression parse error: undefined parameter \"t\"");
}

TEST(VrexEvaluatedSurface3D, FirstExpressionMakesUThenV) {
    const auto surface = newSurface();
    EXPECT_TRUE(surface->setZ("u * v"));
    EXPECT_TRUE(surface->setX("u"));
    EXPECT_TRUE(surface->setY("v"));
    ASSERT_NE(surface->getU(), nullptr);
    ASSERT_NE(surface->getV(), nullptr);
    EXPECT_EQ(surface->getU()->name, "u");
    EXPECT_EQ(surface->getV()->name, "v");
    for (const VrexExpressionParser* parser :
         {&surface->getXParser(), &surface->getYParser(), &surface->getZParser()}) {
        ASSERT_EQ(parser->getVariables().size(), 2U);
        EXPECT_EQ(parser->getVariables()[0], surface->getU());
        EXPECT_EQ(parser->getVariables()[1], surface->getV());
    }
}

TEST(VrexEvaluatedSurface3D, SetTellsOfTheFirstRefusedExpression) {
    const auto surface = newSurface();
    EXPECT_TRUE(surface->set("u", "v", "w", {{VrexGeometryVariable::create(4.0), 0, "w"}}));
    EXPECT_FALSE(surface->set("u", "w", "1", {}));
    EXPECT_EQ(surface->getZ(), "w") << "not reached";
}

TEST(VrexEvaluatedSurface3D, IntervalsAreTheTrimAsItStands) {
    const auto surface = newSurface();
    EXPECT_THAT(surface->intervalU(), Pair(std::nullopt, std::nullopt));
    EXPECT_THAT(surface->intervalV(), Pair(std::nullopt, std::nullopt));
    surface->startU() = 1.0;
    surface->endV() = 2.0;
    EXPECT_THAT(surface->intervalU(), Pair(1.0, std::nullopt));
    EXPECT_THAT(surface->intervalV(), Pair(std::nullopt, 2.0));
}

TEST(VrexEvaluatedSurface3D, ReportsNothingThatItsDescriptorsName) {
    const auto surface = newSurface();
    surface->setDescriptors(
        {{makeSample<VrexPoint3D>(), 0, "a"}, {makeSample<VrexGeometryVariable>(), 0, "b"}});
    EXPECT_THAT(surface->getGeometries(), IsEmpty());
    EXPECT_THAT(surface->getVariables(), IsEmpty());
}

TEST(VrexEvaluatedSurface3D, RotationIsRefusedUnlessOfUnitLength) {
    const auto surface = newSurface();
    EXPECT_FALSE(surface->setRotation(quaternion(1.0000011, 0.0, 0.0, 0.0)));
    EXPECT_FALSE(surface->setRotation(-1.0, {0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(surface->getRotation()), (Values4{0.6, 0.0, 0.8, 0.0}));
    EXPECT_TRUE(surface->setRotation(PI / 2.0, {0.0, 7.0, 0.0}));
    expectNear(valuesOf(surface->getDirection()), {1.0, 0.0, 0.0}, 4e-15);
    EXPECT_NEAR(surface->getAngle(), PI / 2.0, 4e-15);
    EXPECT_EQ(valuesOf(VrexEvaluatedSurface3D::canonicalDirection()), (Values3{0.0, 0.0, 1.0}));
}

TEST(VrexEvaluatedSurface3D, ChangeTestLooksAtOriginDirectionAndDescriptors) {
    const auto radius = VrexGeometryVariable::create(1.0);
    const auto surface = VrexEvaluatedSurface3D::create({0.0, 0.0, 0.0}, Quaternion::ONE());
    surface->setDescriptors({{radius, 0, "r"}});
    EXPECT_FALSE(surface->checkChanged(0.0, 0.0)) << "without a snapshot";
    surface->backup();
    EXPECT_FALSE(surface->checkChanged(0.5, 0.0)) << "the second tolerance has no meaning";
    surface->setOrigin({0.0, 0.5, 0.0});
    EXPECT_TRUE(surface->checkChanged(0.5, 1.0));
    EXPECT_FALSE(surface->checkChanged(0.50001, 1.0));
    ASSERT_TRUE(surface->setRotation(quaternion(0.0, 1.0, 0.0, 0.0)));
    EXPECT_TRUE(surface->checkChanged(0.9, 100.0));
    surface->restore();
    surface->backup();
    radius->backup();
    radius->setValue(1.5);
    EXPECT_TRUE(surface->checkShapeChanged(0.25));
    EXPECT_TRUE(surface->checkChanged(0.25, 1.0));
    EXPECT_FALSE(surface->checkChanged(0.5, 1.0));
}

TEST(VrexEvaluatedSurface3D, TurnAboutItsDirectionIsNoChange) {
    const auto surface = VrexEvaluatedSurface3D::create({0.0, 0.0, 0.0}, Quaternion::ONE());
    surface->backup();
    ASSERT_TRUE(surface->setRotation(2.0, {0.0, 0.0, 1.0}));
    EXPECT_FALSE(surface->checkChanged(1e-8, 1e-8));
}

TEST(VrexEvaluatedSurface3D, UpdateBindsTheOtherTextsToTheOwnDescriptors) {
    const auto own = VrexGeometryVariable::create(10.0);
    const auto surface =
        VrexEvaluatedSurface3D::create({0.0, 0.0, 0.0}, Quaternion::ONE(), {{own, 0, "r"}}, "u", "v", "u");
    const auto other = makeSample<VrexEvaluatedSurface3D>();
    ASSERT_TRUE(other->set("r * u", "r * v", "r", {{VrexGeometryVariable::create(-1.0), 0, "r"}}));
    ASSERT_TRUE(other->setRotation(Quaternion::ONE()));
    surface->updateFrom(other);
    EXPECT_EQ(surface->descriptors()[0].object(), own);
    EXPECT_EQ(valuesOf(surface->evaluate(2.0, 3.0, 0)[0]), (Values3{21.0, 28.0, 10.5}));
    EXPECT_EQ(surface->startU(), other->startU());
}

TEST(VrexEvaluatedSurface3D, EvaluatingASnapshotLeavesTheSurfaceAlone) {
    const auto surface = makeSample<VrexEvaluatedSurface3D>();
    const auto copy = std::static_pointer_cast<VrexEvaluatedSurface3D>(surface->makeCopy());
    surface->getU()->setValue(123.0);
    EXPECT_EQ(valuesOf(copy->evaluate(0.5, 0.25, 0)[0]),
              valuesOf(makeSample<VrexEvaluatedSurface3D>()->evaluate(0.5, 0.25, 0)[0]));
    EXPECT_EQ(surface->getU()->value(), 123.0);
}

} // namespace
