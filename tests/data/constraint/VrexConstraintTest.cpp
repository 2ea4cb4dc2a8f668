#include "data/constraint/VrexConstraint.h"

#include <memory>
#include <typeinfo>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/VrexGeometry.h"
#include "support/ProbeConstraint.h"
#include "support/RecordingVisitor.h"
#include "support/Samples.h"
#include "support/SmallStack.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A geometry that owns a constraint.
class OwningGeometry : public VrexGeometry {
public:
    explicit OwningGeometry(std::shared_ptr<VrexConstraint> constraint)
        : m_constraint(std::move(constraint)) {}

    std::shared_ptr<VrexBaseObject> makeCopy() override {
        return std::make_shared<OwningGeometry>(m_constraint);
    }
    const char* getNamePrefix() const override { return "owner"; }
    int dof() const override { return 0; }

private:
    void restoreFromCopy(const VrexBaseObject& copy) override {
        m_constraint = dynamic_cast<const OwningGeometry&>(copy).m_constraint;
    }

    std::shared_ptr<VrexConstraint> m_constraint;
};

TEST(VrexConstraint, NewConstraintIsBlankWithItsBranchesOpen) {
    ProbeConstraint constraint(2);
    EXPECT_EQ(constraint.baseType(), VrexObjectType::Constraint);
    EXPECT_STREQ(constraint.getNamePrefix(), "c");
    EXPECT_STREQ(constraint.VrexBaseConstraint::getNamePrefix(), "d");
    EXPECT_EQ(constraint.getParameterSize(), 2U);
    EXPECT_EQ(constraint.status(), VrexConstraintStatus::Unknown);
    EXPECT_EQ(constraint.satisfiedStatus(), VrexConstraintSatisfiedStatus::Unknown);
    EXPECT_EQ(constraint.solveMethodStatus(), VrexSolveMethodStatus::Unknown);
    EXPECT_EQ(constraint.alignment(), VrexConstraintAlignment::Current);
    EXPECT_EQ(constraint.orientation(), VrexConstraintOrientation::Current);
    EXPECT_FALSE(constraint.areGeometriesChanged());
    EXPECT_THAT(constraint.getGeometries(), IsEmpty());
    EXPECT_EQ(constraint.getParent(), nullptr);
}

TEST(VrexConstraint, DefaultsOfTheVirtualOperations) {
    ProbeConstraint constraint;
    EXPECT_FALSE(constraint.isCompleteFixed());
    EXPECT_THAT(constraint.getConstraints(), IsEmpty());
    EXPECT_FALSE(constraint.isRigid());
    constraint.setRigid(true);
    EXPECT_FALSE(constraint.isRigid());
    EXPECT_FALSE(constraint.isHelpPointSupported());
    EXPECT_FALSE(constraint.isHelpParameterSupported());
    EXPECT_NO_THROW(constraint.satisfy());
}

TEST(VrexConstraint, AddAndEraseChangeTheListAndTheFlag) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    ProbeConstraint constraint;
    constraint.initGeometry(2);
    EXPECT_GE(constraint.geometries().capacity(), 2U);
    EXPECT_FALSE(constraint.areGeometriesChanged());
    constraint.addGeometry(point);
    constraint.addGeometry(line);
    EXPECT_TRUE(constraint.areGeometriesChanged());
    EXPECT_THAT(constraint.getGeometries(), ElementsAre(point, line));

    ProbeConstraint erased(constraint);
    erased.eraseGeometry();
    EXPECT_THAT(erased.getGeometries(), ElementsAre(point));
    EXPECT_TRUE(erased.areGeometriesChanged());
}

TEST(VrexConstraint, EraseSetsTheFlagOfAnUnchangedList) {
    ProbeConstraint constraint;
    constraint.geometries().push_back(makeSample<VrexPoint3D>());
    EXPECT_FALSE(constraint.areGeometriesChanged());
    constraint.eraseGeometry();
    EXPECT_TRUE(constraint.areGeometriesChanged());
}

TEST(VrexConstraint, EraseFromAnEmptyListSetsTheFlagAlone) {
    ProbeConstraint constraint;
    constraint.eraseGeometry();
    EXPECT_THAT(constraint.getGeometries(), IsEmpty());
    EXPECT_TRUE(constraint.areGeometriesChanged());
}

TEST(VrexConstraint, GeomArgumentsAreTheEntitiesInOrderWithoutVariables) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    ProbeConstraint constraint;
    constraint.addGeometry(point);
    constraint.addGeometry(makeSample<VrexGeometryVariable>());
    constraint.addGeometry(nullptr);
    constraint.addGeometry(line);
    EXPECT_THAT(constraint.geomArguments(), ElementsAre(point, line));
}

TEST(VrexConstraint, UpdateKeepsTheGeometriesAndSetsTheFlag) {
    const auto point = makeSample<VrexPoint3D>();
    auto constraint = std::make_shared<ProbeConstraint>();
    constraint->geometries().push_back(point);
    const auto other = std::make_shared<ProbeConstraint>();
    other->geometries().push_back(makeSample<VrexLine3D>());
    other->alignment() = VrexConstraintAlignment::Positive;
    other->orientation() = VrexConstraintOrientation::Negative;
    other->status() = VrexConstraintStatus::Regular;
    other->satisfiedStatus() = VrexConstraintSatisfiedStatus::Satisfied;
    other->solveMethodStatus() = VrexSolveMethodStatus::Analytical;

    constraint->updateFrom(other);

    EXPECT_THAT(constraint->getGeometries(), ElementsAre(point));
    EXPECT_TRUE(constraint->areGeometriesChanged());
    EXPECT_EQ(constraint->alignment(), VrexConstraintAlignment::Positive);
    EXPECT_EQ(constraint->orientation(), VrexConstraintOrientation::Negative);
    EXPECT_EQ(constraint->status(), VrexConstraintStatus::Regular);
    EXPECT_EQ(constraint->satisfiedStatus(), VrexConstraintSatisfiedStatus::Satisfied);
    EXPECT_EQ(constraint->solveMethodStatus(), VrexSolveMethodStatus::Analytical);
}

TEST(VrexConstraint, UpdateTakesTheParentAndKeepsIdentifierAndLabel) {
    const auto parent = std::make_shared<ProbeConstraint>();
    const auto other = std::make_shared<ProbeConstraint>();
    other->setParent(parent);
    const auto constraint = std::make_shared<ProbeConstraint>();
    constraint->setID(4);
    constraint->label() = "four";
    constraint->updateFrom(other);
    EXPECT_EQ(constraint->getParent(), parent);
    EXPECT_EQ(constraint->getID(), 4U);
    EXPECT_EQ(constraint->label(), "four");
    constraint->updateFrom(constraint);
    EXPECT_EQ(constraint->getID(), 4U);
    EXPECT_EQ(constraint->label(), "four");
}

TEST(VrexConstraint, BaseLevelAcceptsAsItself) {
    ProbeConstraint constraint;
    RecordingVisitor visitor;
    constraint.VrexBaseConstraint::accept(visitor);
    EXPECT_THAT(visitor.visits, ElementsAre("visitBaseConstraint", "visitBaseObject"));
}

TEST(VrexConstraint, FailedUpdateKeepsTheGeometriesAndTheFlag) {
    const auto point = makeSample<VrexPoint3D>();
    auto constraint = std::make_shared<ProbeConstraint>();
    constraint->geometries().push_back(point);
    EXPECT_THROW(constraint->updateFrom(point), std::bad_cast);
    EXPECT_THAT(constraint->getGeometries(), ElementsAre(point));
    EXPECT_FALSE(constraint->areGeometriesChanged());
}

TEST(VrexConstraint, RestoreBringsBackTheGeometriesToo) {
    const auto point = makeSample<VrexPoint3D>();
    auto constraint = std::make_shared<ProbeConstraint>();
    constraint->addGeometry(point);
    constraint->backup();
    constraint->addGeometry(makeSample<VrexLine3D>());
    constraint->restore();
    EXPECT_THAT(constraint->getGeometries(), ElementsAre(point));
}

TEST(VrexConstraint, CopySharesGeometriesAndParent) {
    const auto point = makeSample<VrexPoint3D>();
    auto parent = std::make_shared<ProbeConstraint>();
    auto constraint = std::make_shared<ProbeConstraint>();
    constraint->addGeometry(point);
    constraint->setParent(parent);
    const auto copy = std::static_pointer_cast<ProbeConstraint>(constraint->makeCopy());
    EXPECT_THAT(copy->getGeometries(), ElementsAre(point));
    EXPECT_EQ(copy->getParent(), parent);
}

TEST(VrexConstraint, ChainOfTwoMillionOwnersIsReleasedOnASmallStack) {
    std::weak_ptr<VrexBaseObject> innermost;
    runOnSmallStack([&innermost] {
        auto chain = std::make_shared<ProbeConstraint>();
        innermost = chain;
        for (int owners = 0; owners < 2'000'000; owners += 2) {
            auto next = std::make_shared<ProbeConstraint>();
            next->addGeometry(std::make_shared<OwningGeometry>(std::move(chain)));
            chain = std::move(next);
        }
        chain.reset();
    });
    EXPECT_TRUE(innermost.expired());
}

TEST(VrexConstraint, ChainOfTwoMillionBackupsIsReleasedOnASmallStack) {
    const auto point = makeSample<VrexPoint3D>();
    runOnSmallStack([&point] {
        auto constraint = std::make_shared<ProbeConstraint>();
        constraint->addGeometry(point);
        for (int level = 0; level < 2'000'000; ++level) {
            constraint->backup();
        }
        constraint.reset();
    });
    EXPECT_EQ(point.use_count(), 1);
}

TEST(VrexConstraint, ParentIsHeldWeakly) {
    auto parent = std::make_shared<ProbeConstraint>();
    auto constraint = std::make_shared<ProbeConstraint>();
    constraint->setParent(parent);
    parent.reset();
    EXPECT_EQ(constraint->getParent(), nullptr);
}

} // namespace
