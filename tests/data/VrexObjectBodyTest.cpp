#include "data/VrexObjectBody.h"

#include <memory>
#include <new>
#include <string>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "support/AllocationCounter.h"
#include "support/BodyConstraint.h"

namespace {

constexpr std::uint32_t PARAMETERS = 6;
const std::string LABEL = "a label too long for the short form of a string";

/// Everything that an operation may have lost when it failed.
struct Whole {
    explicit Whole(const std::shared_ptr<BodyConstraint>& constraint)
        : id(constraint->getID()),
          label(constraint->label()),
          dirty(constraint->isDirty()),
          alignment(constraint->alignment()),
          geometries(constraint->getGeometries()),
          parent(constraint->getParent()),
          backup(constraint->getBackup()) {
        for (std::uint32_t i = 0; i < PARAMETERS; ++i) {
            parameters.push_back(VrexVariableDescriptor(constraint, i, "x").getValue());
        }
    }
    bool operator==(const Whole&) const = default;

    std::uint64_t id;
    std::string label;
    bool dirty;
    VrexConstraintAlignment alignment;
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    std::shared_ptr<VrexConstraint> parent;
    std::shared_ptr<VrexBaseObject> backup;
    std::vector<double> parameters;
};

/// A constraint with all its parts, each copied part more than fits inside: label, geometries, parameters.
std::shared_ptr<BodyConstraint> makeConstraint(std::uint64_t id, const std::string& label) {
    auto constraint = BodyConstraint::create(PARAMETERS);
    constraint->setID(id);
    constraint->label() = label;
    constraint->addGeometry(VrexPoint3D::create(1.0, 2.0, static_cast<double>(id)));
    for (std::uint32_t i = 0; i < PARAMETERS; ++i) {
        VrexVariableDescriptor(constraint, i, "x").setValue(static_cast<double>(id * 10 + i));
    }
    return constraint;
}

class VrexObjectBody : public testing::Test {
protected:
    std::shared_ptr<BodyConstraint> m_parent = BodyConstraint::create(0);
    std::shared_ptr<BodyConstraint> m_other = makeConstraint(9, LABEL + " of another");
    std::shared_ptr<BodyConstraint> m_constraint;

    void SetUp() override {
        m_other->alignment() = VrexConstraintAlignment::Positive;
        m_constraint = makeConstraint(4, LABEL);
        m_constraint->setParent(m_parent);
        m_constraint->backup();
        m_constraint->setDirty(false);
        m_constraint->setID(5);
        m_constraint->label() += ", later";
        VrexVariableDescriptor(m_constraint, 0, "x").setValue(77.0);
    }

    /// Lets each allocation of `operation` fail in turn until it gets through: until then it throws and the
    /// constraint is as before. How many could fail.
    template <class Operation>
    std::size_t failEachAllocation(Operation operation) {
        const Whole before(m_constraint);
        for (std::size_t allowed = 0;; ++allowed) {
            try {
                const AllocationLimit limit(allowed);
                operation();
                return allowed;
            } catch (const std::bad_alloc&) {
            }
            EXPECT_TRUE(Whole(m_constraint) == before) << "after allocation " << allowed;
        }
    }
};

TEST_F(VrexObjectBody, CopyThatRunsOutOfMemoryLeavesTheObjectWhole) {
    std::shared_ptr<VrexBaseObject> copy;
    // The object with its counts, the label, the parameters, the list of geometries.
    EXPECT_EQ(failEachAllocation([&] { copy = m_constraint->makeCopy(); }), 4U);
    EXPECT_TRUE(Whole(std::dynamic_pointer_cast<BodyConstraint>(copy)) == Whole(m_constraint));
}

TEST_F(VrexObjectBody, BackupThatRunsOutOfMemoryLeavesTheObjectWhole) {
    const std::shared_ptr<VrexBaseObject> older = m_constraint->getBackup();
    EXPECT_EQ(failEachAllocation([&] { m_constraint->backup(); }), 4U);
    const auto newer = std::dynamic_pointer_cast<BodyConstraint>(m_constraint->getBackup());
    ASSERT_NE(newer, nullptr);
    EXPECT_NE(newer, older);
    EXPECT_EQ(newer->getBackup(), older);
}

TEST_F(VrexObjectBody, RestoreThatRunsOutOfMemoryLeavesTheObjectWhole) {
    EXPECT_EQ(failEachAllocation([&] { m_constraint->restore(); }), 3U);
    EXPECT_EQ(m_constraint->getID(), 5U);
    EXPECT_EQ(m_constraint->label(), LABEL + ", later");
    EXPECT_EQ(VrexVariableDescriptor(m_constraint, 0, "x").getValue(), 40.0);
    EXPECT_EQ(m_constraint->getBackup(), nullptr);
    EXPECT_TRUE(m_constraint->isDirty());
}

TEST_F(VrexObjectBody, UpdateThatRunsOutOfMemoryLeavesTheObjectWhole) {
    const auto geometries = m_constraint->getGeometries();
    EXPECT_EQ(failEachAllocation([&] { m_constraint->updateFrom(m_other); }), 3U);
    EXPECT_EQ(m_constraint->getID(), 5U);
    EXPECT_EQ(m_constraint->label(), LABEL + ", later");
    EXPECT_EQ(m_constraint->getGeometries(), geometries);
    EXPECT_EQ(VrexVariableDescriptor(m_constraint, 0, "x").getValue(), 90.0);
    EXPECT_EQ(m_constraint->alignment(), VrexConstraintAlignment::Positive);
    EXPECT_EQ(m_constraint->getBackup(), nullptr);
}

TEST_F(VrexObjectBody, AssignmentOfTheWholeTakesIdentifierAndLabelToo) {
    m_constraint->restoreFromCopy(*m_other);
    EXPECT_EQ(m_constraint->getID(), 9U);
    EXPECT_EQ(m_constraint->label(), LABEL + " of another");
    EXPECT_EQ(m_constraint->getGeometries(), m_other->getGeometries());
    EXPECT_TRUE(m_constraint->isEqualParameters(*m_other));
    EXPECT_EQ(m_other->label(), LABEL + " of another") << "copied, not moved";
}

TEST_F(VrexObjectBody, RestorePutsIdentifierAndLabelBackAfterTheAssignment) {
    m_constraint->restore();
    EXPECT_EQ(m_constraint->getID(), 5U);
    EXPECT_EQ(m_constraint->label(), LABEL + ", later");
}

TEST_F(VrexObjectBody, AssignmentFromAnotherClassThrowsAndChangesNothing) {
    const Whole before(m_constraint);
    EXPECT_THROW(m_constraint->restoreFromCopy(*VrexPoint3D::create(1.0, 2.0, 3.0)), std::bad_cast);
    EXPECT_TRUE(Whole(m_constraint) == before);
}

TEST_F(VrexObjectBody, ObjectMayBeAssignedFromItsOwnBackup) {
    m_constraint->backup();
    m_constraint->restoreFromCopy(*m_constraint->getBackup());
    ASSERT_NE(m_constraint->getBackup(), nullptr);
    EXPECT_EQ(VrexVariableDescriptor(m_constraint, 0, "x").getValue(), 77.0);
    EXPECT_EQ(VrexVariableDescriptor(m_constraint->getBackup(), 0, "x").getValue(), 40.0);
}

} // namespace
