#include "data/geometry/VrexGeometryVariable.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

TEST(VrexGeometryVariable, IsOneFreeScalarOfItsOwnKind) {
    const auto variable = VrexGeometryVariable::create(2.5);
    EXPECT_EQ(variable->baseType(), VrexObjectType::Variable);
    EXPECT_EQ(VrexGeometryVariable::V, 0);
    EXPECT_EQ(VrexGeometryVariable::PARAMETERS_AMOUNT, 1);
    EXPECT_EQ(variable->dof(), 1);
    EXPECT_EQ(variable->getValue(), 2.5);
    EXPECT_TRUE(variable->getGeometries().empty());
    EXPECT_TRUE(variable->getVariables().empty());
    EXPECT_FALSE(variable->isPattern());
    EXPECT_EQ(variable->status(), VrexGeometryStatus::Unknown);
    EXPECT_EQ(variable->getChangeStatus(), VrexGeometryChangeStatus::NotChanged);
}

TEST(VrexGeometryVariable, SetValueLeavesTheDirtyFlagAlone) {
    const auto variable = VrexGeometryVariable::create(1.0);
    variable->setDirty(false);
    variable->setValue(2.0);
    EXPECT_EQ(variable->getValue(), 2.0);
    EXPECT_FALSE(variable->isDirty());
}

TEST(VrexGeometryVariable, WithoutBackupItIsNeverChanged) {
    EXPECT_FALSE(VrexGeometryVariable::create(1.0)->checkChanged(-1.0, 0.0));
}

TEST(VrexGeometryVariable, MovedByExactlyTheToleranceIsUnchanged) {
    const auto variable = VrexGeometryVariable::create(1.0);
    variable->backup();
    EXPECT_FALSE(variable->checkChanged(0.0, 0.0));
    variable->setValue(1.25);
    EXPECT_FALSE(variable->checkChanged(0.25, 0.0));
    EXPECT_TRUE(variable->checkChanged(0.2, 1.0)) << "the second tolerance has no meaning";
    variable->setValue(0.5);
    EXPECT_TRUE(variable->checkChanged(0.25, 1.0));
}

TEST(VrexGeometryVariable, NotANumberIsStoredAndNoChange) {
    const auto variable = VrexGeometryVariable::create(1.0);
    variable->backup();
    variable->setValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_NE(variable->getValue(), variable->getValue());
    EXPECT_FALSE(variable->checkChanged(0.0, 0.0));
}

TEST(VrexGeometryVariable, StatusesTravelWithAnUpdate) {
    const auto variable = VrexGeometryVariable::create(1.0);
    const auto other = VrexGeometryVariable::create(1.0);
    other->status() = VrexGeometryStatus::Overdefined;
    other->setChangeStatus(VrexGeometryChangeStatus::Fixed);
    variable->updateFrom(other);
    EXPECT_EQ(variable->status(), VrexGeometryStatus::Overdefined);
    EXPECT_EQ(variable->getChangeStatus(), VrexGeometryChangeStatus::Fixed);
}

} // namespace
