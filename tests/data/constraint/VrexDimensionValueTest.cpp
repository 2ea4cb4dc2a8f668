#include "data/constraint/VrexDimensionValue.h"

#include <limits>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "data/geometry/VrexGeometryVariable.h"

namespace {

static_assert(!std::is_polymorphic_v<VrexDimensionValue>);
static_assert(std::is_nothrow_move_constructible_v<VrexDimensionValue>);
static_assert(std::is_nothrow_move_assignable_v<VrexDimensionValue>);

TEST(VrexDimensionValue, NewValueIsTheNumberAloneAndUnlimited) {
    const VrexDimensionValue value(2.5);
    EXPECT_EQ(value.get(), 2.5);
    EXPECT_EQ(value.variable(), nullptr);
    EXPECT_FALSE(value.isRigid());
    EXPECT_EQ(value.getLimits(), VrexDimensionLimits(std::nullopt, std::nullopt));
}

TEST(VrexDimensionValue, WithoutVariableTheStoredNumberIsReadAndWritten) {
    VrexDimensionValue value(2.5);
    value.set(-1.0);
    EXPECT_EQ(value.get(), -1.0);
}

TEST(VrexDimensionValue, LiveVariableTakesThePlaceOfTheStoredNumber) {
    const auto variable = VrexGeometryVariable::create(7.0);
    VrexDimensionValue value(2.5);
    value.bindVariable(variable);
    EXPECT_EQ(value.variable(), variable);
    EXPECT_EQ(value.get(), 7.0);
    EXPECT_EQ(variable->getValue(), 7.0) << "binding changes no number";
    value.set(8.0);
    EXPECT_EQ(variable->getValue(), 8.0);
    value.bindVariable(nullptr);
    EXPECT_EQ(value.variable(), nullptr);
    EXPECT_EQ(value.get(), 2.5) << "the stored number stood still";
}

TEST(VrexDimensionValue, ExpiredVariableFallsBackToTheStoredNumber) {
    auto variable = VrexGeometryVariable::create(7.0);
    VrexDimensionValue value(2.5);
    value.bindVariable(variable);
    variable.reset();
    EXPECT_EQ(value.variable(), nullptr);
    EXPECT_EQ(value.get(), 2.5);
    value.set(3.5);
    EXPECT_EQ(value.get(), 3.5);
}

TEST(VrexDimensionValue, VariableIsHeldWeakly) {
    auto variable = VrexGeometryVariable::create(7.0);
    VrexDimensionValue value(2.5);
    value.bindVariable(variable);
    EXPECT_EQ(variable.use_count(), 1);
}

TEST(VrexDimensionValue, BindingKeepsRigidAndLimits) {
    VrexDimensionValue value(2.5);
    value.setRigid(true);
    value.setLimits({1.0, 4.0});
    value.bindVariable(VrexGeometryVariable::create(7.0));
    EXPECT_TRUE(value.isRigid());
    EXPECT_EQ(value.getLimits(), VrexDimensionLimits(1.0, 4.0));
}

TEST(VrexDimensionValue, LimitsAreStoredAsGiven) {
    VrexDimensionValue value(2.5);
    for (const VrexDimensionLimits& limits :
         {VrexDimensionLimits{5.0, 1.0}, VrexDimensionLimits{std::nullopt, 1.0},
          VrexDimensionLimits{3.0, std::nullopt}, VrexDimensionLimits{}}) {
        value.setLimits(limits);
        EXPECT_EQ(value.getLimits(), limits);
        EXPECT_EQ(value.get(), 2.5) << "outside the limits or not";
    }
    value.setLimits({std::numeric_limits<double>::quiet_NaN(), 1.0});
    EXPECT_NE(value.getLimits().first, value.getLimits().first);
}

TEST(VrexDimensionValue, CopyIsBoundToTheSameVariable) {
    const auto variable = VrexGeometryVariable::create(7.0);
    VrexDimensionValue value(2.5);
    value.bindVariable(variable);
    value.setRigid(true);
    value.setLimits({1.0, 4.0});
    VrexDimensionValue copy(0.0);
    copy = value;
    EXPECT_EQ(VrexDimensionValue(value).variable(), variable);
    EXPECT_EQ(copy.variable(), variable);
    EXPECT_TRUE(copy.isRigid());
    EXPECT_EQ(copy.getLimits(), VrexDimensionLimits(1.0, 4.0));
    copy.bindVariable(nullptr);
    EXPECT_EQ(copy.get(), 2.5);
    EXPECT_EQ(value.variable(), variable);
}

TEST(VrexDimensionValue, MoveLeavesTheSourceUnboundAndReadable) {
    const auto variable = VrexGeometryVariable::create(7.0);
    VrexDimensionValue value(2.5);
    value.bindVariable(variable);
    value.setRigid(true);
    const VrexDimensionValue moved(std::move(value));
    EXPECT_EQ(moved.variable(), variable);
    EXPECT_EQ(value.variable(), nullptr); // NOLINT(bugprone-use-after-move): what is left is defined
    EXPECT_EQ(value.get(), 2.5);
    EXPECT_TRUE(value.isRigid());

    VrexDimensionValue source(1.0);
    source.bindVariable(variable);
    VrexDimensionValue target(0.0);
    target = std::move(source);
    EXPECT_EQ(target.variable(), variable);
    EXPECT_EQ(source.variable(), nullptr); // NOLINT(bugprone-use-after-move): as above
    EXPECT_EQ(source.get(), 1.0);
}

} // namespace
