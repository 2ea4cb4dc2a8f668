#include "data/constraint/3d/VrexDimension3D.h"

#include <limits>
#include <string>
#include <typeinfo>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/RecordingVisitor.h"
#include "support/SamplesConstraints.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

using Arguments = std::vector<std::shared_ptr<VrexBaseGeometry>>;

struct Case {
    std::shared_ptr<VrexDimension3D> dimension;
    VrexConstraint3DType kind;
    int doc;
    bool helpPoint;
    bool helpParameter;
    Arguments arguments;
};

std::shared_ptr<VrexDistance3D> distanceOf(double value) {
    return VrexDistance3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(), value,
                                  VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN);
}

/// One dimension of each class, radius of each type, with the value 2.5.
std::vector<Case> allDimensions() {
    using enum VrexConstraint3DType;
    const auto p = makeSample<VrexPoint3D>();
    const auto q = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto torus = makeSample<VrexTorus3D>();
    const auto cone = makeSample<VrexCone3D>();
    const auto pattern = makeSample<VrexPattern3D>();
    const auto element = makeSample<VrexEqualDimensionElement3D>();
    const auto radius = [&](VrexRadius3DType type) { return VrexRadius3D::create(torus, 2.5, type); };
    return {
        {VrexDistance3D::create(p, torus, 2.5, VrexGeometryComponentType::UNKNOWN,
                                VrexGeometryComponentType::AXIS),
         Distance3D,
         1,
         true,
         true,
         {p, torus}},
        {VrexDirectionDistance3D::create(p, q, {0.0, 0.0, 1.0}, 2.5),
         DirectionDistance3D,
         1,
         true,
         true,
         {p, q}},
        {VrexParallelDistance3D::create(p, q, line, 2.5), ParallelDistance3D, 1, true, true, {p, q, line}},
        {VrexAngle3D::create(line, circle, 2.5), Angle3D, 2, false, false, {line, circle}},
        {VrexPlanarAngle3D::create(line, circle, torus, 2.5),
         PlanarAngle3D,
         1,
         false,
         false,
         {line, circle, torus}},
        {radius(VrexRadius3DType::Radius3D), Radius3D, 1, false, false, {torus}},
        {radius(VrexRadius3DType::MajorRadius3D), MajorRadius3D, 1, false, false, {torus}},
        {radius(VrexRadius3DType::MinorRadius3D), MinorRadius3D, 1, false, false, {torus}},
        {VrexHalfAngle3D::create(cone, 2.5), HalfAngle3D, 1, false, false, {cone}},
        {VrexPatternValue3D::create(pattern, 2.5), PatternValue3D, 1, false, false, {pattern}},
        {VrexCurveLength3D::create(p, q, circle, 2.5), CurveLength3D, 0, false, true, {p, q, circle}},
        {VrexEqualDimensionValue3D::create(element, 2.5), EqualDimensionValue3D, 1, false, false, {element}},
    };
}

TEST(VrexDimension3D, TableOfTheClasses) {
    for (const Case& row : allDimensions()) {
        SCOPED_TRACE(nsEnum::toText(row.kind));
        EXPECT_EQ(row.dimension->type(), row.kind);
        EXPECT_EQ(row.dimension->doc(), row.doc);
        EXPECT_EQ(row.dimension->isHelpPointSupported(), row.helpPoint);
        EXPECT_EQ(row.dimension->isHelpParameterSupported(), row.helpParameter);
        EXPECT_FALSE(row.dimension->isCompleteFixed());
    }
}

TEST(VrexDimension3D, NewDimensionHoldsItsArgumentsAndItsValue) {
    for (const Case& row : allDimensions()) {
        SCOPED_TRACE(nsEnum::toText(row.kind));
        EXPECT_THAT(row.dimension->getGeometries(), ElementsAreArray(row.arguments));
        EXPECT_EQ(row.dimension->getGeometries().capacity(), row.arguments.size());
        EXPECT_TRUE(row.dimension->areGeometriesChanged());
        EXPECT_EQ(row.dimension->value(), 2.5);
        EXPECT_EQ(row.dimension->getVariable(), nullptr);
        EXPECT_FALSE(row.dimension->isRigid());
        EXPECT_EQ(row.dimension->getLimits(), VrexDimensionLimits());
        EXPECT_EQ(row.dimension->getGeomComponentType(1), VrexGeometryComponentType::UNKNOWN);
        const bool isDistance = row.kind == VrexConstraint3DType::Distance3D;
        EXPECT_EQ(row.dimension->getGeomComponentType(2),
                  isDistance ? VrexGeometryComponentType::AXIS : VrexGeometryComponentType::UNKNOWN);
    }
}

TEST(VrexDimension3D, NullGeometriesAreStored) {
    using Geometry = std::shared_ptr<VrexGeometry3D>;
    const std::vector<std::pair<std::shared_ptr<VrexDimension3D>, std::size_t>> rows{
        {VrexDistance3D::create(nullptr, nullptr, 1.0, VrexGeometryComponentType::UNKNOWN,
                                VrexGeometryComponentType::UNKNOWN),
         2},
        {VrexDirectionDistance3D::create(nullptr, nullptr, {}, 1.0), 2},
        {VrexParallelDistance3D::create(nullptr, nullptr, nullptr, 1.0), 3},
        {VrexAngle3D::create(nullptr, Geometry(), 1.0), 2},
        {VrexPlanarAngle3D::create(nullptr, nullptr, nullptr, 1.0), 3},
        {VrexRadius3D::create(nullptr, 1.0, VrexRadius3DType::Radius3D), 1},
        {VrexHalfAngle3D::create(nullptr, 1.0), 1},
        {VrexPatternValue3D::create(nullptr, 1.0), 1},
        {VrexCurveLength3D::create(nullptr, nullptr, nullptr, 1.0), 3},
        {VrexEqualDimensionValue3D::create(nullptr, 1.0), 1},
    };
    for (const auto& [dimension, count] : rows) {
        SCOPED_TRACE(nsEnum::toText(dimension->type()));
        EXPECT_EQ(dimension->getGeometries(), Arguments(count));
        EXPECT_EQ(dimension->getGeometries3DCount(), 0U);
        EXPECT_EQ(dimension->getGeometryByParameterIndex(VrexConstraint3D::HPARAMU1), nullptr);
        EXPECT_EQ(dimension->value(), 1.0);
    }
}

TEST(VrexDimension3D, BoundVariableIsTheLastGeometryOfEveryClass) {
    for (const Case& row : allDimensions()) {
        SCOPED_TRACE(nsEnum::toText(row.kind));
        const auto variable = VrexGeometryVariable::create(8.0);
        Arguments bound = row.arguments;
        bound.push_back(variable);
        row.dimension->bindVariable(variable);
        EXPECT_THAT(row.dimension->getGeometries(), ElementsAreArray(bound));
        EXPECT_EQ(row.dimension->getVariable(), variable);
        EXPECT_EQ(row.dimension->value(), 8.0);
        EXPECT_EQ(row.dimension->getGeometries3DCount(), row.arguments.size());
        row.dimension->bindVariable(nullptr);
        EXPECT_THAT(row.dimension->getGeometries(), ElementsAreArray(row.arguments));
        EXPECT_EQ(row.dimension->value(), 2.5);
    }
}

TEST(VrexDimension3D, BindingNothingLeavesTheListOneShorter) {
    const auto distance = distanceOf(2.5);
    distance->bindVariable(VrexGeometryVariable::create(8.0));
    ASSERT_EQ(distance->getGeometries().size(), 3U);
    distance->bindVariable(nullptr);
    EXPECT_EQ(distance->getGeometries().size(), 2U);
    EXPECT_EQ(distance->getVariable(), nullptr);
    distance->bindVariable(nullptr);
    EXPECT_EQ(distance->getGeometries().size(), 2U) << "no geometry is taken for the variable";
}

TEST(VrexDimension3D, BindingAnotherVariableReplacesTheLastGeometry) {
    const auto distance = distanceOf(2.5);
    const Arguments arguments = distance->getGeometries();
    const auto first = VrexGeometryVariable::create(8.0);
    const auto second = VrexGeometryVariable::create(9.0);
    distance->bindVariable(first);
    distance->bindVariable(second);
    EXPECT_THAT(distance->getGeometries(), ElementsAre(arguments[0], arguments[1], second));
    EXPECT_EQ(distance->value(), 9.0);
    distance->bindVariable(second);
    EXPECT_THAT(distance->getGeometries(), ElementsAre(arguments[0], arguments[1], second));
    distance->bindVariable(first);
    EXPECT_THAT(distance->getGeometries(), ElementsAre(arguments[0], arguments[1], first));
    EXPECT_EQ(second.use_count(), 1);
}

TEST(VrexDimension3D, ListKeepsTheVariableAlive) {
    const auto distance = distanceOf(2.5);
    distance->bindVariable(VrexGeometryVariable::create(8.0));
    EXPECT_EQ(distance->value(), 8.0);
    const std::weak_ptr<VrexGeometryVariable> variable = distance->getVariable();
    distance->bindVariable(nullptr);
    EXPECT_TRUE(variable.expired());
}

TEST(VrexDimension3D, ValueGoesToTheVariableAndTheStoredNumberStandsStill) {
    const auto variable = VrexGeometryVariable::create(8.0);
    const auto distance = distanceOf(2.5);
    distance->setValue(3.0);
    distance->bindVariable(variable);
    distance->setValue(4.0);
    EXPECT_EQ(variable->getValue(), 4.0);
    variable->setValue(5.0);
    EXPECT_EQ(distance->value(), 5.0);
    distance->bindVariable(nullptr);
    EXPECT_EQ(distance->value(), 3.0);
    EXPECT_EQ(variable->getValue(), 5.0);
}

TEST(VrexDimension3D, TwoDimensionsShareAVariable) {
    const auto variable = VrexGeometryVariable::create(8.0);
    const auto first = distanceOf(1.0);
    const auto second = makeSample<VrexAngle3D>();
    first->bindVariable(variable);
    second->bindVariable(variable);
    first->setValue(6.0);
    EXPECT_EQ(second->value(), 6.0);
}

TEST(VrexDimension3D, RigidFlagIsStoredInTheValue) {
    const auto distance = distanceOf(2.5);
    VrexConstraint& constraint = *distance;
    constraint.setRigid(true);
    EXPECT_TRUE(constraint.isRigid());
    distance->bindVariable(VrexGeometryVariable::create(8.0));
    EXPECT_TRUE(distance->isRigid());
    constraint.setRigid(false);
    EXPECT_FALSE(distance->isRigid());
}

TEST(VrexDimension3D, LimitsAreStoredAsGiven) {
    const auto distance = distanceOf(2.5);
    distance->setLimits({9.0, -9.0});
    EXPECT_EQ(distance->getLimits(), VrexDimensionLimits(9.0, -9.0));
    distance->setValue(100.0);
    EXPECT_EQ(distance->value(), 100.0);
    distance->setLimits({std::numeric_limits<double>::quiet_NaN(), std::nullopt});
    ASSERT_TRUE(distance->getLimits().first.has_value());
    EXPECT_NE(*distance->getLimits().first, *distance->getLimits().first);
    EXPECT_FALSE(distance->getLimits().second.has_value());
}

TEST(VrexDimension3D, SettersLeaveTheDirtyFlagAlone) {
    const auto distance = distanceOf(2.5);
    distance->setDirty(false);
    distance->setValue(1.0);
    distance->setLimits({1.0, 2.0});
    distance->setRigid(true);
    distance->bindVariable(VrexGeometryVariable::create(8.0));
    EXPECT_FALSE(distance->isDirty());
}

TEST(VrexDimension3D, UpdateTakesTheNumberAndKeepsBindingRigidFlagAndLimits) {
    const auto own = VrexGeometryVariable::create(8.0);
    const auto distance = distanceOf(2.5);
    distance->bindVariable(own);
    distance->setRigid(true);
    distance->setLimits({1.0, 2.0});
    const Arguments before = distance->getGeometries();
    const auto foreign = VrexGeometryVariable::create(-4.0);
    const auto other = distanceOf(7.0);
    other->bindVariable(foreign);
    other->setLimits({5.0, 6.0});
    other->alignment() = VrexConstraintAlignment::Negative;

    distance->updateFrom(other);

    EXPECT_EQ(distance->getVariable(), own);
    EXPECT_EQ(own->getValue(), -4.0) << "the number travels into the bound variable";
    EXPECT_EQ(foreign->getValue(), -4.0);
    EXPECT_EQ(distance->getGeometries(), before);
    EXPECT_TRUE(distance->isRigid());
    EXPECT_EQ(distance->getLimits(), VrexDimensionLimits(1.0, 2.0));
    EXPECT_EQ(distance->alignment(), VrexConstraintAlignment::Negative);
    distance->bindVariable(nullptr);
    EXPECT_EQ(distance->value(), 2.5) << "the stored number stood still";
}

TEST(VrexDimension3D, UpdateOfAnUnboundDimensionStoresTheNumber) {
    const auto distance = distanceOf(2.5);
    const auto other = distanceOf(7.0);
    other->bindVariable(VrexGeometryVariable::create(-4.0));
    distance->updateFrom(other);
    EXPECT_EQ(distance->value(), -4.0);
    EXPECT_EQ(distance->getVariable(), nullptr);
    EXPECT_EQ(distance->getGeometries().size(), 2U);
}

TEST(VrexDimension3D, UpdatesOnOneVariableLeaveTheLaterNumber) {
    const auto variable = VrexGeometryVariable::create(8.0);
    const auto first = distanceOf(1.0);
    const auto second = distanceOf(2.0);
    first->bindVariable(variable);
    second->bindVariable(variable);
    first->updateFrom(distanceOf(30.0));
    second->updateFrom(distanceOf(40.0));
    EXPECT_EQ(variable->getValue(), 40.0);
    EXPECT_EQ(first->value(), 40.0);
    second->updateFrom(first);
    EXPECT_EQ(variable->getValue(), 40.0);
}

TEST(VrexDimension3D, UpdateFromItselfKeepsTheValue) {
    const auto distance = distanceOf(2.5);
    distance->updateFrom(distance);
    EXPECT_EQ(distance->value(), 2.5);
    distance->bindVariable(VrexGeometryVariable::create(8.0));
    distance->updateFrom(distance);
    EXPECT_EQ(distance->value(), 8.0);
    EXPECT_EQ(distance->getGeometries().size(), 3U);
}

TEST(VrexDimension3D, FailedUpdateChangesNothing) {
    for (const Case& row : allDimensions()) {
        SCOPED_TRACE(nsEnum::toText(row.kind));
        const auto variable = VrexGeometryVariable::create(8.0);
        row.dimension->bindVariable(variable);
        row.dimension->setLimits({1.0, 2.0});
        const Arguments before = row.dimension->getGeometries();
        const bool isAngle = row.kind == VrexConstraint3DType::Angle3D;
        const std::shared_ptr<VrexDimension3D> other =
            isAngle ? std::static_pointer_cast<VrexDimension3D>(makeSample<VrexDistance3D>())
                    : makeSample<VrexAngle3D>();
        EXPECT_THROW(row.dimension->updateFrom(other), std::bad_cast);
        EXPECT_THROW(row.dimension->updateFrom(makeSample<VrexSliderMate3D>()), std::bad_cast);
        EXPECT_THROW(row.dimension->updateFrom(variable), std::bad_cast);
        EXPECT_EQ(row.dimension->getGeometries(), before);
        EXPECT_EQ(row.dimension->getVariable(), variable);
        EXPECT_EQ(row.dimension->value(), 8.0);
        EXPECT_EQ(row.dimension->getLimits(), VrexDimensionLimits(1.0, 2.0));
    }
}

TEST(VrexDimension3D, RestoreBringsBackBindingListAndStoredNumberButNotTheVariables) {
    const auto variable = VrexGeometryVariable::create(8.0);
    const auto distance = distanceOf(2.5);
    distance->bindVariable(variable);
    distance->setLimits({1.0, 2.0});
    distance->backup();
    distance->setValue(11.0);
    distance->bindVariable(nullptr);
    distance->setValue(12.0);
    distance->setLimits({});
    distance->restore();
    EXPECT_EQ(distance->getVariable(), variable);
    EXPECT_EQ(distance->getGeometries().size(), 3U);
    EXPECT_EQ(distance->getLimits(), VrexDimensionLimits(1.0, 2.0));
    EXPECT_EQ(distance->value(), 11.0) << "a variable has snapshots of its own";
    distance->bindVariable(nullptr);
    EXPECT_EQ(distance->value(), 2.5);
}

TEST(VrexDimension3D, CopyIsBoundToTheSameVariable) {
    const auto distance = makeSample<VrexDistance3D>();
    const auto copy = std::static_pointer_cast<VrexDistance3D>(distance->makeCopy());
    EXPECT_EQ(copy->getVariable(), distance->getVariable());
    EXPECT_EQ(copy->getGeometries(), distance->getGeometries());
    EXPECT_TRUE(copy->isRigid());
    EXPECT_EQ(copy->getLimits(), VrexDimensionLimits(-1.5, 9.5));
    copy->bindVariable(nullptr);
    EXPECT_NE(distance->getVariable(), nullptr);
    EXPECT_EQ(copy->value(), 4.5);
}

TEST(VrexDimension3D, EveryClassClimbsThroughTheBase) {
    for (const Case& row : allDimensions()) {
        RecordingVisitor visitor;
        row.dimension->accept(visitor);
        ASSERT_EQ(visitor.visits.size(), 6U) << nsEnum::toText(row.kind);
        EXPECT_EQ(visitor.visits[1], "visitDimension3D");
        EXPECT_EQ(visitor.visits[2], "visitConstraint3D");
    }
    RecordingVisitor visitor;
    const auto distance = distanceOf(1.0);
    distance->VrexDimension3D::accept(visitor);
    EXPECT_EQ(visitor.visits.front(), "visitDimension3D");
}

} // namespace
