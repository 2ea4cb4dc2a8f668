#include "data/VrexVariableDescriptor.h"

#include <limits>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/GermanLocale.h"
#include "support/ProbeConstraint.h"
#include "support/ProbeObject.h"

namespace {

/// An object whose snapshots have another number of parameters.
class UnevenProbe : public ProbeObject {
public:
    UnevenProbe(std::uint32_t parameterCount, std::uint32_t snapshotCount)
        : ProbeObject(parameterCount), m_snapshotCount(snapshotCount) {}

    std::shared_ptr<VrexBaseObject> makeCopy() override { return create(m_snapshotCount); }

private:
    std::uint32_t m_snapshotCount;
};

TEST(VrexVariableDescriptor, GeneratedNameIsPrefixIdAndIndex) {
    const auto point = VrexPoint3D::create(0.0, 0.0, 0.0);
    point->setID(17);
    EXPECT_EQ(VrexVariableDescriptor(point, 3, nullptr).variableName(), "p17_3");
    EXPECT_EQ(VrexVariableDescriptor(point, 2, "").variableName(), "p17_2");
}

TEST(VrexVariableDescriptor, GeneratedNameOfAOneParameterObjectHasNoIndex) {
    const auto variable = VrexGeometryVariable::create(1.0);
    variable->setID(4);
    EXPECT_EQ(VrexVariableDescriptor(variable, 0, "").variableName(), "v4");
}

TEST(VrexVariableDescriptor, GeneratedNameOfAnObjectWithoutParametersHasNoIndex) {
    EXPECT_EQ(VrexVariableDescriptor(ProbeObject::create(0), 2, nullptr).variableName(), "probe0");
}

TEST(VrexVariableDescriptor, GeneratedNameWithoutIdEndsInZero) {
    EXPECT_EQ(VrexVariableDescriptor(VrexGeometryVariable::create(1.0), 0, nullptr).variableName(), "v0");
}

TEST(VrexVariableDescriptor, GeneratedNameTakesTheWholeRangeOfIds) {
    const auto variable = VrexGeometryVariable::create(1.0);
    variable->setID(std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(VrexVariableDescriptor(variable, 0, nullptr).variableName(), "v18446744073709551615");
}

TEST(VrexVariableDescriptor, GivenNameStands) {
    const VrexVariableDescriptor descriptor(VrexGeometryVariable::create(1.0), 0, "width");
    EXPECT_EQ(descriptor.variableName(), "width");
    EXPECT_EQ(descriptor.index(), 0U);
}

TEST(VrexVariableDescriptor, ReadsAndWritesTheParameterWithoutTouchingTheDirtyFlag) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    point->setDirty(false);
    VrexVariableDescriptor descriptor(point, VrexPoint3D::Y, nullptr);
    EXPECT_EQ(descriptor.getValue(), 2.0);
    descriptor.setValue(5.0);
    EXPECT_EQ(point->getPosition().y(), 5.0);
    EXPECT_FALSE(point->isDirty());
}

TEST(VrexVariableDescriptor, CopySharesTheObject) {
    const auto variable = VrexGeometryVariable::create(1.0);
    const VrexVariableDescriptor descriptor(variable, 0, nullptr);
    VrexVariableDescriptor copy = descriptor;
    copy.setValue(2.0);
    EXPECT_EQ(descriptor.getValue(), 2.0);
    EXPECT_EQ(copy.object(), variable);
}

TEST(VrexVariableDescriptor, WithoutObjectItIsInvalidNamelessAndZero) {
    VrexVariableDescriptor descriptor(nullptr, 0, nullptr);
    EXPECT_FALSE(descriptor.isValid());
    EXPECT_FALSE(descriptor.hasParameter());
    EXPECT_EQ(descriptor.variableName(), "");
    descriptor.setValue(1.0);
    EXPECT_EQ(descriptor.getValue(), 0.0);
    EXPECT_FALSE(descriptor.checkChanged(0.0));
}

TEST(VrexVariableDescriptor, IndexOutsideTheObjectReadsZeroAndWritesNothing) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    point->backup();
    VrexVariableDescriptor descriptor(point, 3, nullptr);
    EXPECT_TRUE(descriptor.isValid());
    EXPECT_FALSE(descriptor.hasParameter());
    EXPECT_TRUE(VrexVariableDescriptor(point, 2, nullptr).hasParameter());
    descriptor.setValue(9.0);
    EXPECT_EQ(descriptor.getValue(), 0.0);
    EXPECT_FALSE(descriptor.checkChanged(0.0));
}

TEST(VrexVariableDescriptor, ChangeIsMeasuredAgainstTheBackupStrictly) {
    const auto variable = VrexGeometryVariable::create(1.0);
    VrexVariableDescriptor descriptor(variable, 0, nullptr);
    EXPECT_FALSE(descriptor.checkChanged(0.0)) << "no backup";
    variable->backup();
    EXPECT_FALSE(descriptor.checkChanged(0.0));
    variable->setValue(1.5);
    EXPECT_FALSE(descriptor.checkChanged(0.5));
    EXPECT_TRUE(descriptor.checkChanged(0.49));
    variable->setValue(0.25);
    EXPECT_TRUE(descriptor.checkChanged(0.5));
}

TEST(VrexVariableDescriptor, ParameterThatTheBackupLacksIsUnchanged) {
    const auto object = std::make_shared<UnevenProbe>(3, 2);
    object->backup();
    for (std::uint32_t i = 0; i < 3; ++i) {
        object->setParameter(i, 5.0);
    }
    EXPECT_TRUE(VrexVariableDescriptor(object, 1, nullptr).checkChanged(0.0)) << "in both";
    EXPECT_FALSE(VrexVariableDescriptor(object, 2, nullptr).checkChanged(0.0));
    EXPECT_FALSE(VrexVariableDescriptor(object, 3, nullptr).checkChanged(-1.0)) << "in neither";
}

TEST(VrexVariableDescriptor, ParameterThatOnlyTheBackupHasIsUnchanged) {
    const auto object = std::make_shared<UnevenProbe>(2, 3);
    object->backup();
    EXPECT_TRUE(VrexVariableDescriptor(object, 1, nullptr).checkChanged(-1.0)) << "in both";
    EXPECT_FALSE(VrexVariableDescriptor(object, 2, nullptr).checkChanged(-1.0));
}

TEST(VrexVariableDescriptor, GeneratedNameIgnoresTheProcessLocale) {
    const GermanLocale locale;
    ASSERT_TRUE(GermanLocale::isSet());
    const auto point = VrexPoint3D::create(0.0, 0.0, 0.0);
    point->setID(1'234'567'890'123U);
    EXPECT_EQ(VrexVariableDescriptor(point, 1'234'567U, nullptr).variableName(), "p1234567890123_1234567");
}

TEST(VrexVariableDescriptor, ConstraintIsNamedByItsPrefix) {
    const auto constraint = std::make_shared<ProbeConstraint>(2);
    constraint->setID(6);
    EXPECT_EQ(VrexVariableDescriptor(constraint, 1, nullptr).variableName(), "c6_1");
}

} // namespace
