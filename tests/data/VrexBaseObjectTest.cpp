#include "data/VrexBaseObject.h"

#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <typeinfo>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/ProbeObject.h"
#include "support/RecordingVisitor.h"
#include "support/SmallStack.h"

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(VrexBaseObject, NewObjectIsDirtyAndBlank) {
    const auto object = ProbeObject::create(3);
    EXPECT_EQ(object->baseType(), VrexObjectType::Geometry);
    EXPECT_EQ(object->getID(), 0U);
    EXPECT_EQ(object->label(), "");
    EXPECT_TRUE(object->isDirty());
    EXPECT_EQ(object->getBackup(), nullptr);
    ASSERT_EQ(object->getParameterSize(), 3U);
    for (std::uint32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(object->getParameter(i), 0.0);
    }
}

TEST(VrexBaseObject, BaseKindsHaveTheirNumbers) {
    static_assert(sizeof(VrexObjectType) == 8);
    EXPECT_EQ(static_cast<std::uint64_t>(VrexObjectType::Constraint), 0U);
    EXPECT_EQ(static_cast<std::uint64_t>(VrexObjectType::Equation), 1U);
    EXPECT_EQ(static_cast<std::uint64_t>(VrexObjectType::Geometry), 2U);
    EXPECT_EQ(static_cast<std::uint64_t>(VrexObjectType::Variable), 3U);
}

TEST(VrexBaseObject, SettersLeaveTheDirtyFlagAlone) {
    const auto object = ProbeObject::create(1);
    object->setDirty(false);
    object->setParameter(0, 5.0);
    object->setID(7);
    object->label() = "seven";
    EXPECT_FALSE(object->isDirty());
    object->setDirty(true);
    EXPECT_TRUE(object->isDirty());
}

TEST(VrexBaseObject, RestoreWithoutBackupLeavesTheObjectUnchanged) {
    const auto object = ProbeObject::create(1);
    object->setParameter(0, 5.0);
    object->setDirty(false);
    object->restore();
    EXPECT_EQ(object->getParameter(0), 5.0);
    EXPECT_FALSE(object->isDirty());
}

TEST(VrexBaseObject, TwoBackupsAndTwoRestoresBringBackTheOldestStateAndAThirdDoesNothing) {
    const auto object = ProbeObject::create(1);
    object->setParameter(0, 1.0);
    object->backup();
    object->setParameter(0, 2.0);
    object->backup();
    object->setParameter(0, 3.0);
    object->restore();
    EXPECT_EQ(object->getParameter(0), 2.0);
    object->restore();
    EXPECT_EQ(object->getParameter(0), 1.0);
    object->setParameter(0, 4.0);
    object->restore();
    EXPECT_EQ(object->getParameter(0), 4.0);
}

TEST(VrexBaseObject, RestoreKeepsIdAndLabelSetAfterTheBackupAndDropsParameters) {
    const auto object = ProbeObject::create(1);
    object->backup();
    object->setID(8);
    object->label() = "late";
    object->setParameter(0, 9.0);
    object->restore();
    EXPECT_EQ(object->getID(), 8U);
    EXPECT_EQ(object->label(), "late");
    EXPECT_EQ(object->getParameter(0), 0.0);
}

TEST(VrexBaseObject, RestoreBringsBackTheDirtyFlag) {
    const auto object = ProbeObject::create(1);
    object->setDirty(false);
    object->backup();
    object->setDirty(true);
    object->restore();
    EXPECT_FALSE(object->isDirty());
}

TEST(VrexBaseObject, ClearBackupReleasesTheWholeChainAndNothingElse) {
    const auto object = ProbeObject::create(1);
    object->backup();
    const std::weak_ptr<VrexBaseObject> oldest = object->getBackup();
    object->backup();
    object->setParameter(0, 6.0);
    object->clearBackup();
    EXPECT_TRUE(oldest.expired());
    EXPECT_EQ(object->getBackup(), nullptr);
    EXPECT_EQ(object->getParameter(0), 6.0);
    object->clearBackup();
    object->restore();
    EXPECT_EQ(object->getParameter(0), 6.0);
}

TEST(VrexBaseObject, UpdateFromNullDoesNothing) {
    const auto object = ProbeObject::create(1);
    object->setParameter(0, 1.5);
    object->updateFrom(nullptr);
    EXPECT_EQ(object->getParameter(0), 1.5);
}

TEST(VrexBaseObject, UpdateReplacesTheBackupChainByTheOthersAlsoByNone) {
    const auto object = ProbeObject::create(1);
    const auto other = ProbeObject::create(1);
    object->backup();
    object->updateFrom(other);
    EXPECT_EQ(object->getBackup(), nullptr);

    other->setParameter(0, 3.0);
    other->backup();
    other->setParameter(0, 4.0);
    other->setDirty(false);
    object->updateFrom(other);
    EXPECT_EQ(object->getBackup(), other->getBackup());
    EXPECT_FALSE(object->isDirty());
    object->restore();
    EXPECT_EQ(object->getParameter(0), 3.0);
}

TEST(VrexBaseObject, UpdateMayTakeTheObjectsOwnBackup) {
    const auto object = ProbeObject::create(1);
    object->setParameter(0, 1.0);
    object->backup();
    object->setParameter(0, 2.0);
    object->updateFrom(object->getBackup());
    EXPECT_EQ(object->getParameter(0), 1.0);
    EXPECT_EQ(object->getBackup(), nullptr);
}

TEST(VrexBaseObject, UpdateFromAnotherClassThrowsBadCast) {
    const auto object = ProbeObject::create(1);
    EXPECT_THROW(object->updateFrom(VrexGeometryVariable::create(1.0)), std::bad_cast);
}

TEST(VrexBaseObject, FailedRestoreKeepsIdLabelAndBackup) {
    const auto object = ProbeObject::create(1);
    object->backup();
    object->setID(8);
    object->label() = "mine";
    object->failure = std::make_exception_ptr(std::bad_alloc());
    EXPECT_THROW(object->restore(), std::bad_alloc);
    EXPECT_EQ(object->getID(), 8U);
    EXPECT_EQ(object->label(), "mine");
    EXPECT_NE(object->getBackup(), nullptr);
}

TEST(VrexBaseObject, CopyAndMoveLeaveTheSelfReferenceBehind) {
    const auto object = ProbeObject::create(8);
    object->setParameter(7, 7.0);
    const auto copy = std::make_shared<ProbeObject>(*object);
    EXPECT_EQ(copy->shared_from_this(), copy);
    const auto moved = std::make_shared<ProbeObject>(std::move(*copy));
    EXPECT_EQ(moved->shared_from_this(), moved);
    EXPECT_EQ(moved->getParameter(7), 7.0);
    EXPECT_EQ(copy->shared_from_this(), copy);
}

TEST(VrexBaseObject, ParametersOfDifferentCountDiffer) {
    EXPECT_FALSE(ProbeObject::create(1)->isEqualParameters(*ProbeObject::create(2)));
}

TEST(VrexBaseObject, EmptyParametersAreEqual) {
    EXPECT_TRUE(ProbeObject::create(0)->isEqualParameters(*ProbeObject::create(0)));
}

TEST(VrexBaseObject, NegativeZeroEqualsZero) {
    const auto object = ProbeObject::create(1);
    const auto other = ProbeObject::create(1);
    object->setParameter(0, -0.0);
    EXPECT_TRUE(object->isEqualParameters(*other));
}

TEST(VrexBaseObject, NotANumberDiffersFromItself) {
    const auto object = ProbeObject::create(2);
    object->setParameter(1, NOT_A_NUMBER);
    EXPECT_FALSE(object->isEqualParameters(*object));
    const auto other = ProbeObject::create(2);
    other->setParameter(1, NOT_A_NUMBER);
    EXPECT_FALSE(object->isEqualParameters(*other));
}

TEST(VrexBaseObject, SmallestDifferenceOfOneParameterCounts) {
    const auto object = ProbeObject::create(2);
    const auto other = ProbeObject::create(2);
    other->setParameter(1, std::numeric_limits<double>::denorm_min());
    EXPECT_FALSE(object->isEqualParameters(*other));
}

TEST(VrexBaseObject, DescriptorOfAnUnownedObjectFails) {
    ProbeObject unowned(1);
    EXPECT_THROW(unowned.makeVariableDescriptor(0, nullptr), std::bad_weak_ptr);
}

TEST(VrexBaseObject, DescriptorNamesThisObject) {
    const auto object = ProbeObject::create(2);
    object->setID(3);
    const VrexVariableDescriptor descriptor = object->makeVariableDescriptor(1, nullptr);
    EXPECT_EQ(descriptor.object(), object);
    EXPECT_EQ(descriptor.variableName(), "probe3_1");
    EXPECT_EQ(object->makeVariableDescriptor(1, "width").variableName(), "width");
}

TEST(VrexBaseObject, AcceptsAsTheRootWithoutAVisitOfItsOwn) {
    RecordingVisitor visitor;
    ProbeObject::create(0)->accept(visitor);
    EXPECT_EQ(visitor.visits, std::vector<std::string>{"visitBaseObject"});
}

TEST(VrexBaseObject, TwoMillionBackupsAreReleasedOnASmallStack) {
    std::weak_ptr<VrexBaseObject> oldest;
    runOnSmallStack([&oldest] {
        auto object = ProbeObject::create(1);
        object->backup();
        oldest = object->getBackup();
        for (int level = 1; level < 2'000'000; ++level) {
            object->backup();
        }
        object.reset();
    });
    EXPECT_TRUE(oldest.expired());
}

TEST(VrexBaseObject, LongChainDroppedByAssignmentIsReleasedOnASmallStack) {
    const auto object = ProbeObject::create(1);
    runOnSmallStack([&object] {
        for (int level = 0; level < 100'000; ++level) {
            object->backup();
        }
        object->updateFrom(ProbeObject::create(1));
        for (int level = 0; level < 100'000; ++level) {
            object->backup();
        }
        object->clearBackup();
    });
    EXPECT_EQ(object->getBackup(), nullptr);
}

} // namespace
