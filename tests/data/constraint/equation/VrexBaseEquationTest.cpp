#include "data/constraint/equation/VrexBaseEquation.h"

#include <memory>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/ProbeConstraint.h"
#include "support/ProbeObject.h"
#include "support/SmallStack.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum VrexEquationConditionType;
using Descriptors = std::vector<VrexVariableDescriptor>;

std::shared_ptr<VrexCallbackEquation> makeEquation(Descriptors descriptors) {
    return VrexCallbackEquation::create(std::move(descriptors), equalToZero,
                                        VrexLinearEquationCallback({}, 1.0));
}

std::shared_ptr<VrexPoint3D> makePoint(std::uint64_t id) {
    auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    point->setID(id);
    return point;
}

std::shared_ptr<VrexGeometryVariable> makeVariable(std::uint64_t id) {
    auto variable = VrexGeometryVariable::create(2.5);
    variable->setID(id);
    return variable;
}

TEST(VrexBaseEquation, OnlyEqualityTakesADegreeOfFreedomAway) {
    const std::pair<VrexEquationConditionType, int> rows[] = {
        {unknown, 0},         {equalToZero, 1},      {lessThanZero, 0},   {lessEqualZero, 0},
        {greaterThanZero, 0}, {greaterEqualZero, 0}, {dragTowardsZero, 0}};
    for (const auto& [condition, doc] : rows) {
        EXPECT_EQ(VrexExpressionEquation::create(condition)->doc(), doc);
        EXPECT_EQ(VrexCallbackEquation::create(condition, {})->doc(), doc);
    }
}

TEST(VrexBaseEquation, DefaultsOfTheHierarchy) {
    const auto equation = VrexExpressionEquation::create(dragTowardsZero);
    EXPECT_EQ(equation->baseType(), VrexObjectType::Equation);
    EXPECT_STREQ(equation->getNamePrefix(), "eq");
    EXPECT_EQ(equation->conditionType(), dragTowardsZero);
    EXPECT_THAT(equation->descriptors(), IsEmpty());
    EXPECT_THAT(equation->getGeometries(), IsEmpty());
    EXPECT_THAT(equation->getConstraints(), IsEmpty());
    EXPECT_FALSE(equation->isCompleteFixed());
}

TEST(VrexBaseEquation, ListsEachGeometryOnceInTheOrderOfFirstUse) {
    const auto first = makePoint(9);
    const auto second = makePoint(4);
    const auto equation =
        makeEquation({{first, 0, "a"}, {second, 0, "b"}, {first, 1, "c"}, {second, 2, "d"}});
    EXPECT_THAT(equation->getGeometries(), ElementsAre(first, second));
}

TEST(VrexBaseEquation, FreeScalarsAreAmongTheGeometries) {
    const auto point = makePoint(1);
    const auto variable = makeVariable(2);
    const auto equation = makeEquation({{variable, 0, "v"}, {point, 0, "p"}, {variable, 0, "w"}});
    EXPECT_THAT(equation->getGeometries(), ElementsAre(variable, point));
}

TEST(VrexBaseEquation, SharesItsVariablesWithTheConstraintsThatAreBoundToThem) {
    const auto length1 = makeVariable(1);
    const auto length2 = makeVariable(2);
    ProbeConstraint dimension1;
    dimension1.addGeometry(makePoint(3));
    dimension1.addGeometry(length1);
    ProbeConstraint dimension2;
    dimension2.addGeometry(makePoint(4));
    dimension2.addGeometry(length2);

    const auto equation =
        VrexExpressionEquation::create({{length1, 0, "d1"}, {length2, 0, "d2"}}, equalToZero, "d1 - 2 * d2");

    ASSERT_NE(equation, nullptr);
    EXPECT_THAT(equation->getGeometries(),
                ElementsAre(dimension1.getGeometries()[1], dimension2.getGeometries()[1]));
}

TEST(VrexBaseEquation, ObjectsThatAreNoGeometryAreLeftOut) {
    const auto point = makePoint(1);
    const auto equation = makeEquation({{ProbeObject::create(3), 0, "probe"},
                                        {nullptr, 0, "nothing"},
                                        {makeEquation({}), 0, "equation"},
                                        {point, 0, "x"}});
    EXPECT_THAT(equation->getGeometries(), ElementsAre(point));
}

TEST(VrexBaseEquation, GeometriesWithoutIdentifierCollapseIntoTheFirst) {
    const auto first = makePoint(0);
    const auto equation = makeEquation({{first, 0, "a"}, {makePoint(0), 0, "b"}});
    EXPECT_THAT(equation->getGeometries(), ElementsAre(first));
}

TEST(VrexBaseEquation, ListIsMadeOnceUntilTheDescriptorsChange) {
    const auto first = makePoint(1);
    const auto second = makePoint(2);
    const auto equation = makeEquation({{first, 0, "a"}, {second, 0, "b"}});
    EXPECT_THAT(equation->getGeometries(), ElementsAre(first, second));
    second->setID(1);
    EXPECT_THAT(equation->getGeometries(), ElementsAre(first, second));
    equation->setDescriptors(equation->descriptors());
    EXPECT_THAT(equation->getGeometries(), ElementsAre(first));
}

TEST(VrexBaseEquation, EmptyListIsMadeAnew) {
    const auto point = makePoint(1);
    const auto equation = makeEquation({});
    EXPECT_THAT(equation->getGeometries(), IsEmpty());
    equation->setDescriptors({{point, 0, "x"}});
    EXPECT_THAT(equation->getGeometries(), ElementsAre(point));
    equation->setDescriptors({});
    EXPECT_THAT(equation->getGeometries(), IsEmpty());
}

TEST(VrexBaseEquation, SetDescriptorsOfAnExpressionChangesTheListToo) {
    const auto first = makePoint(1);
    const auto second = makePoint(2);
    const auto equation = VrexExpressionEquation::create({{first, 0, "x"}}, equalToZero, "x");
    EXPECT_THAT(equation->getGeometries(), ElementsAre(first));
    equation->setDescriptors({{second, 0, "x"}});
    EXPECT_THAT(equation->getGeometries(), ElementsAre(second));
}

TEST(VrexBaseEquation, UpdateKeepsTheDescriptorsAndTakesTheCondition) {
    const auto mine = makePoint(1);
    const auto equation = makeEquation({{mine, 2, "z"}});
    EXPECT_THAT(equation->getGeometries(), ElementsAre(mine));
    equation->setID(7);
    const auto other = VrexCallbackEquation::create({{makePoint(2), 0, "x"}, {makePoint(3), 1, "y"}},
                                                    dragTowardsZero, VrexLinearEquationCallback({1.0}, 0.0));
    other->getGeometries();
    other->status() = VrexConstraintStatus::Regular;

    equation->updateFrom(other);

    EXPECT_EQ(equation->getID(), 7U);
    EXPECT_EQ(equation->conditionType(), dragTowardsZero);
    EXPECT_EQ(equation->status(), VrexConstraintStatus::Regular);
    ASSERT_EQ(equation->descriptors().size(), 1U);
    EXPECT_EQ(equation->descriptors()[0].object(), mine);
    EXPECT_EQ(equation->descriptors()[0].index(), 2U);
    EXPECT_EQ(equation->descriptors()[0].variableName(), "z");
    EXPECT_THAT(equation->getGeometries(), ElementsAre(mine));
}

TEST(VrexBaseEquation, UpdateFromAnotherKindOfEquationThrowsAndChangesNothing) {
    const auto mine = makePoint(1);
    const auto equation = makeEquation({{mine, 0, "x"}});
    EXPECT_THROW(equation->updateFrom(VrexExpressionEquation::create(lessThanZero)), std::bad_cast);
    EXPECT_EQ(equation->conditionType(), equalToZero);
    ASSERT_EQ(equation->descriptors().size(), 1U);
    EXPECT_EQ(equation->descriptors()[0].object(), mine);
    EXPECT_DOUBLE_EQ(makeEquation({})->evaluate({}).value(), 1.0);
}

TEST(VrexBaseEquation, RestoreBringsTheDescriptorsBack) {
    const auto before = makePoint(1);
    const auto equation = makeEquation({{before, 1, "y"}});
    equation->backup();
    equation->setDescriptors({{makePoint(2), 0, "x"}});
    equation->getGeometries();
    equation->restore();
    ASSERT_EQ(equation->descriptors().size(), 1U);
    EXPECT_EQ(equation->descriptors()[0].object(), before);
    EXPECT_EQ(equation->descriptors()[0].index(), 1U);
    EXPECT_THAT(equation->getGeometries(), ElementsAre(before));
}

/// An object whose prefix is that of equations, with parameters, which equations have none of.
class PrefixedObject : public ProbeObject {
public:
    using ProbeObject::ProbeObject;
    const char* getNamePrefix() const override { return "eq"; }
};

TEST(VrexBaseEquation, GeneratedNameHasPrefixIdentifierAndForSeveralParametersTheIndex) {
    const auto single = std::make_shared<PrefixedObject>(1);
    single->setID(7);
    EXPECT_EQ(VrexVariableDescriptor(single, 0, "").variableName(), "eq7");
    const auto several = std::make_shared<PrefixedObject>(3);
    several->setID(7);
    EXPECT_EQ(VrexVariableDescriptor(several, 2, "").variableName(), "eq7_2");
    EXPECT_EQ(VrexVariableDescriptor(makeEquation({}), 0, nullptr).variableName(), "eq0");
}

TEST(VrexBaseEquation, LongChainOfEquationsIsReleasedOnASmallStack) {
    std::weak_ptr<VrexBaseObject> gone;
    runOnSmallStack([&gone] {
        std::shared_ptr<VrexBaseObject> last = makePoint(1);
        gone = last;
        for (int link = 0; link < 20'000; ++link) {
            last = makeEquation({{last, 0, "x"}});
        }
    });
    EXPECT_TRUE(gone.expired());
}

} // namespace
