#include "data/geometry/3d/VrexEvaluatedCurve3D.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "support/Samples.h"
#include "support/SmallStack.h"
#include "support/VectorSamples.h"

namespace {

using nsVectorSamples::expectNear;
using nsVectorSamples::NOT_A_NUMBER;
using nsVectorSamples::PI;
using nsVectorSamples::Values3;
using nsVectorSamples::Values4;
using nsVectorSamples::valuesOf;
using Quaternion = VrexQuaternionT<double>;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// A few roundings of trigonometric pairs and of products of quaternions.
constexpr double ROUNDING = 4e-15;

Quaternion quaternion(double w, double i, double j, double k) {
    return Quaternion::makeFromScalarAndVector(w, {i, j, k});
}

std::shared_ptr<VrexEvaluatedCurve3D> newCurve() {
    return VrexEvaluatedCurve3D::create({1.0, 2.0, 3.0}, quaternion(0.6, 0.0, 0.8, 0.0));
}

TEST(VrexEvaluatedCurve3D, NewCurveHasAFrameAndNoExpressions) {
    const auto curve = newCurve();
    EXPECT_EQ(curve->type(), VrexGeometry3DType::EVAL_CURVE);
    EXPECT_TRUE(curve->isParametricCurve());
    EXPECT_EQ(curve->dof(), 6);
    EXPECT_EQ(curve->getT(), nullptr);
    EXPECT_EQ(curve->getX(), "");
    EXPECT_THAT(curve->descriptors(), IsEmpty());
    const double expected[VrexEvaluatedCurve3D::PARAMETERS_AMOUNT] = {1.0, 2.0, 3.0, 0.6, 0.0, 0.8, 0.0};
    for (int slot = 0; slot < VrexEvaluatedCurve3D::PARAMETERS_AMOUNT; ++slot) {
        EXPECT_EQ(VrexVariableDescriptor(curve, slot, nullptr).getValue(), expected[slot]) << slot;
    }
    EXPECT_EQ(valuesOf(curve->getOrigin()), (Values3{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(curve->getRotation()), (Values4{0.6, 0.0, 0.8, 0.0}));
}

TEST(VrexEvaluatedCurve3D, RefusedRotationLeavesANewCurveNotTurned) {
    const auto curve = VrexEvaluatedCurve3D::create({1.0, 2.0, 3.0}, quaternion(0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(valuesOf(curve->getRotation()), (Values4{1.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(curve->getOrigin()), (Values3{1.0, 2.0, 3.0}));
}

TEST(VrexEvaluatedCurve3D, CreatedWithExpressionsItEvaluates) {
    const auto curve = VrexEvaluatedCurve3D::create(
        {1.0, 2.0, 3.0}, Quaternion::ONE(), {{VrexGeometryVariable::create(5.0), 0, "r"}}, "t", "r", "t * r");
    EXPECT_EQ(valuesOf(curve->evaluate(2.0, 0)[0]), (Values3{3.0, 7.0, 13.0}));
}

TEST(VrexEvaluatedCurve3D, CreatedWithAWrongExpressionItIsThereAndTheLogTells) {
    const LogCapture log;
    const auto curve =
        VrexEvaluatedCurve3D::create({1.0, 2.0, 3.0}, Quaternion::ONE(), {}, "t +", "t", "unknown");
    ASSERT_NE(curve, nullptr);
    EXPECT_EQ(curve->getX(), "t +");
    EXPECT_EQ(curve->getY(), "t");
    ASSERT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[1].text, "Expression parse error: undefined parameter \"unknown\"");
}

TEST(VrexEvaluatedCurve3D, SetXOnANewCurveMakesT) {
    const auto curve = newCurve();
    EXPECT_TRUE(curve->setX("t * t"));
    ASSERT_NE(curve->getT(), nullptr);
    EXPECT_EQ(curve->getT()->name, "t");
    EXPECT_EQ(curve->getX(), "t * t");
    EXPECT_EQ(curve->getXParser().getVariables()[0], curve->getT());
}

TEST(VrexEvaluatedCurve3D, EachExpressionHasItsOwnSetter) {
    const auto curve = newCurve();
    EXPECT_TRUE(curve->setX("1"));
    EXPECT_TRUE(curve->setY("2"));
    EXPECT_TRUE(curve->setZ("3"));
    EXPECT_FALSE(curve->setZ("sin("));
    EXPECT_EQ(curve->getX(), "1");
    EXPECT_EQ(curve->getY(), "2");
    EXPECT_EQ(curve->getZ(), "sin(");
    EXPECT_EQ(curve->getYParser().getExpression(), "2");
    EXPECT_EQ(curve->getZParser().getExpression(), "sin(");
}

TEST(VrexEvaluatedCurve3D, DescriptorsSetAfterTheExpressionsAreKnownToThem) {
    const auto curve = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, Quaternion::ONE());
    EXPECT_FALSE(curve->setX("t + w"));
    ASSERT_TRUE(curve->setY("0"));
    ASSERT_TRUE(curve->setZ("0"));
    VrexVariableDescriptorInterface& described = *curve;
    described.setDescriptors({{VrexGeometryVariable::create(40.0), 0, "w"}});
    EXPECT_EQ(described.descriptors().size(), 1U);
    EXPECT_EQ(curve->evaluate(2.0, 0)[0].x(), 42.0);
}

TEST(VrexEvaluatedCurve3D, SetTellsOfTheFirstRefusedExpression) {
    const auto curve = newCurve();
    EXPECT_TRUE(curve->set("t", "2 * t", "w", {{VrexGeometryVariable::create(4.0), 0, "w"}}));
    EXPECT_FALSE(curve->set("t", "w", "1", {}));
    EXPECT_EQ(curve->getZ(), "w") << "not reached";
}

TEST(VrexEvaluatedCurve3D, IntervalIsTheTrimAsItStands) {
    const auto curve = newCurve();
    EXPECT_THAT(curve->interval(), Pair(std::nullopt, std::nullopt));
    curve->end() = 2.0;
    EXPECT_THAT(curve->interval(), Pair(std::nullopt, 2.0));
}

TEST(VrexEvaluatedCurve3D, GeometriesAndVariablesAreThoseOfTheDescriptorsOnceInOrderOfFirstUse) {
    const auto curve = newCurve();
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto first = VrexGeometryVariable::create(1.0);
    const auto second = VrexGeometryVariable::create(2.0);
    curve->setDescriptors({{line, 0, "a"},
                           {second, 0, "b"},
                           {point, 2, "c"},
                           {line, 1, "d"},
                           {nullptr, 0, "e"},
                           {first, 0, "f"},
                           {second, 0, "g"}});
    EXPECT_THAT(curve->getGeometries(), ElementsAre(line, point));
    EXPECT_THAT(curve->getVariables(), ElementsAre(second, first));
}

TEST(VrexEvaluatedCurve3D, RotationIsRefusedUnlessOfUnitLength) {
    const auto curve = newCurve();
    EXPECT_FALSE(curve->setRotation(quaternion(1.0000011, 0.0, 0.0, 0.0)));
    EXPECT_FALSE(curve->setRotation(quaternion(NOT_A_NUMBER, 0.0, 0.0, 0.0)));
    EXPECT_FALSE(curve->setRotation(1.0, {0.0, 0.0, 0.0})) << "an angle about no axis";
    EXPECT_EQ(valuesOf(curve->getRotation()), (Values4{0.6, 0.0, 0.8, 0.0}));
    EXPECT_TRUE(curve->setRotation(0.0, {0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(curve->getRotation()), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TEST(VrexEvaluatedCurve3D, DirectionIsTheTurnedZAxis) {
    EXPECT_EQ(valuesOf(VrexEvaluatedCurve3D::canonicalDirection()), (Values3{0.0, 0.0, 1.0}));
    const auto curve = newCurve();
    ASSERT_TRUE(curve->setRotation(PI / 2.0, {0.0, 7.0, 0.0}));
    expectNear(valuesOf(curve->getDirection()), {1.0, 0.0, 0.0}, ROUNDING);
    EXPECT_NEAR(curve->getAngle(), PI / 2.0, ROUNDING);
}

TEST(VrexEvaluatedCurve3D, ChangeTestLooksAtOriginDirectionAngleAxisAndDescriptors) {
    struct Case {
        Values3 origin;
        Quaternion rotation;
        double linear, angular;
        bool changed;
    };
    const Quaternion halfAboutZ = quaternion(0.0, 0.0, 0.0, 1.0);
    const Quaternion halfAboutX = quaternion(0.0, 1.0, 0.0, 0.0);
    const Case cases[] = {
        {{0.5, 0.0, 0.0}, halfAboutZ, 0.5, 1.0, true},
        {{0.5, 0.0, 0.0}, halfAboutZ, 0.50001, 1.0, false},
        {{0.0, 0.0, 0.0}, halfAboutZ, 0.5, 0.0, true},   // differs by 0 or more
        {{0.0, 0.0, 0.0}, halfAboutX, 0.5, 100.0, true}, // another direction
        {{0.0, 0.0, 0.0}, Quaternion::ONE(), 0.5, 3.0, true},
        {{0.0, 0.0, 0.0}, Quaternion::ONE(), 0.5, 3.2, false},
        {{0.0, 0.0, 0.0}, quaternion(0.0, 0.0, 0.0, -1.0), 0.5, 3.0, true}, // the axis turned over
        {{0.0, 0.0, 0.0}, quaternion(0.0, 0.0, 0.0, -1.0), 0.5, 3.2, false},
    };
    for (const Case& test : cases) {
        const auto curve = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, halfAboutZ);
        EXPECT_FALSE(curve->checkChanged(0.0, 0.0)) << "without a snapshot";
        curve->backup();
        curve->setOrigin({test.origin[0], test.origin[1], test.origin[2]});
        ASSERT_TRUE(curve->setRotation(test.rotation));
        EXPECT_EQ(curve->checkChanged(test.linear, test.angular), test.changed) << &test - cases;
    }
}

TEST(VrexEvaluatedCurve3D, ChangedDescriptorChangesTheShape) {
    const auto radius = VrexGeometryVariable::create(1.0);
    const auto curve = newCurve();
    curve->setDescriptors({{radius, 0, "r"}});
    curve->backup();
    radius->backup();
    radius->setValue(1.5);
    EXPECT_TRUE(curve->checkShapeChanged(0.25));
    EXPECT_FALSE(curve->checkShapeChanged(0.5));
    EXPECT_TRUE(curve->checkChanged(0.25, 1.0));
    EXPECT_FALSE(curve->checkChanged(0.5, 1.0));
}

TEST(VrexEvaluatedCurve3D, ChangedTextAloneIsNoChange) {
    const auto curve = makeSample<VrexEvaluatedCurve3D>();
    curve->backup();
    ASSERT_TRUE(curve->setX("1000 * t"));
    EXPECT_FALSE(curve->checkChanged(1e-8, 1e-8));
}

TEST(VrexEvaluatedCurve3D, EvaluatingASnapshotLeavesTheCurveAlone) {
    const auto curve = makeSample<VrexEvaluatedCurve3D>();
    const auto copy = std::static_pointer_cast<VrexEvaluatedCurve3D>(curve->makeCopy());
    curve->getT()->setValue(123.0);
    EXPECT_EQ(valuesOf(copy->evaluate(0.5, 1)[1]),
              valuesOf(makeSample<VrexEvaluatedCurve3D>()->evaluate(0.5, 1)[1]));
    EXPECT_EQ(curve->getT()->value(), 123.0);
    EXPECT_EQ(copy->descriptors().size(), curve->descriptors().size());
    EXPECT_EQ(copy->start(), curve->start());
}

TEST(VrexEvaluatedCurve3D, RestoredCurveEvaluatesAsBefore) {
    const auto curve = makeSample<VrexEvaluatedCurve3D>();
    const Values3 before = valuesOf(curve->evaluate(0.5, 0)[0]);
    curve->backup();
    ASSERT_TRUE(curve->set("1", "2", "3", {}));
    curve->restore();
    EXPECT_EQ(valuesOf(curve->evaluate(0.5, 0)[0]), before);
    EXPECT_EQ(curve->getXParser().getVariables()[0], curve->getT());
}

TEST(VrexEvaluatedCurve3D, UpdateBindsTheOtherTextsToTheOwnDescriptors) {
    const auto own = VrexGeometryVariable::create(10.0);
    const auto curve = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, Quaternion::ONE(),
                                                    {{own, 0, "r"}, {own, 0, "s"}}, "t", "t", "t");
    const auto other =
        VrexEvaluatedCurve3D::create({1.0, 2.0, 3.0}, Quaternion::ONE(),
                                     {{VrexGeometryVariable::create(-1.0), 0, "r"}}, "r", "2 * r", "r * t");
    curve->updateFrom(other);
    ASSERT_EQ(curve->descriptors().size(), 2U);
    EXPECT_EQ(curve->descriptors()[0].object(), own);
    EXPECT_EQ(curve->getY(), "2 * r");
    EXPECT_EQ(valuesOf(curve->evaluate(3.0, 0)[0]), (Values3{11.0, 22.0, 33.0}));
    EXPECT_NE(curve->getT(), other->getT());
    EXPECT_EQ(valuesOf(other->evaluate(3.0, 0)[0]), (Values3{0.0, 0.0, 0.0}));
}

TEST(VrexEvaluatedCurve3D, LongChainOfDescribedCurvesIsReleasedOnASmallStack) {
    const auto point = makeSample<VrexPoint3D>();
    runOnSmallStack([&point] {
        std::shared_ptr<VrexBaseObject> inner = point;
        for (int depth = 0; depth < 100'000; ++depth) {
            const auto curve = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, Quaternion::ONE());
            curve->setDescriptors({{std::move(inner), 0, "p"}});
            inner = curve;
        }
        EXPECT_EQ(point.use_count(), 2);
    });
    EXPECT_EQ(point.use_count(), 1);
}

} // namespace
