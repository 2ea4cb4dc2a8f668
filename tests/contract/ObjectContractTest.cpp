// What every concrete object class has to do, whatever else it is.

#include <map>
#include <string>
#include <typeinfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/BodyConstraint.h"
#include "support/ObjectClasses.h"
#include "support/ObjectMark.h"
#include "support/ProbeObject.h"
#include "support/RecordingVisitor.h"
#include "support/Samples.h"
#include "support/SmallStack.h"

// A constraint stands in for those that are not there: it has no row of its own.
template <>
struct ObjectClass<BodyConstraint> {
    static constexpr const char* NAME = "BodyConstraint";
    static constexpr const char* VISIT_NAME = "visitConstraint";
};

template <>
std::shared_ptr<BodyConstraint> makeSample() {
    auto constraint = BodyConstraint::create(5);
    constraint->addGeometry(makeSample<VrexPoint3D>());
    constraint->addGeometry(makeSample<VrexLine3D>());
    constraint->alignment() = VrexConstraintAlignment::Positive;
    constraint->orientation() = VrexConstraintOrientation::Negative;
    constraint->status() = VrexConstraintStatus::Regular;
    return constraint;
}

namespace {

class ObjectContract : public testing::TestWithParam<ObjectKind> {
protected:
    std::shared_ptr<VrexBaseObject> m_object = GetParam().makeSample();

    ObjectMark mark() const { return ObjectMark(m_object); }
};

INSTANTIATE_TEST_SUITE_P(Kinds, ObjectContract,
                         testing::ValuesIn(concreteObjectKinds<VrexBaseObject, BodyConstraint>()),
                         nameOfKind);

TEST_P(ObjectContract, CopyIsAnEqualObjectOfTheSameClass) {
    m_object->setID(17);
    m_object->label() = "seventeen";
    m_object->setDirty(false);
    m_object->backup();

    const auto copy = m_object->makeCopy();

    ASSERT_NE(copy, m_object);
    const VrexBaseObject& copied = *copy;
    EXPECT_EQ(typeid(copied), *GetParam().type);
    EXPECT_TRUE(copied.isEqualParameters(*m_object));
    EXPECT_EQ(copied.baseType(), m_object->baseType());
    EXPECT_EQ(copied.getID(), 17U);
    EXPECT_EQ(copied.label(), "seventeen");
    EXPECT_FALSE(copied.isDirty());
    EXPECT_EQ(copy->shared_from_this(), copy);
}

TEST_P(ObjectContract, CopySharesNoValues) {
    const double before = mark().get();
    ObjectMark(m_object->makeCopy()).set(before + 1.0);
    EXPECT_EQ(mark().get(), before);
}

TEST_P(ObjectContract, CopySharesTheBackup) {
    const double before = mark().get();
    m_object->backup();
    mark().set(before + 1.0);
    const auto copy = m_object->makeCopy();
    copy->restore();
    EXPECT_EQ(ObjectMark(copy).get(), before);
    EXPECT_EQ(mark().get(), before + 1.0);
    m_object->restore();
    EXPECT_EQ(mark().get(), before);
}

TEST_P(ObjectContract, RestoreWalksBackTheBackupChainAndStops) {
    for (const double value : {10.0, 20.0, 30.0}) {
        mark().set(value);
        m_object->backup();
    }
    mark().set(40.0);
    for (const double expected : {30.0, 20.0, 10.0, 10.0}) {
        m_object->restore();
        EXPECT_EQ(mark().get(), expected);
    }
}

TEST_P(ObjectContract, RestoreKeepsIdentifierAndLabel) {
    m_object->setID(1);
    m_object->label() = "old";
    m_object->backup();
    m_object->setID(2);
    m_object->label() = "new";
    m_object->restore();
    EXPECT_EQ(m_object->getID(), 2U);
    EXPECT_EQ(m_object->label(), "new");
}

TEST_P(ObjectContract, RestoreAndUpdateLeaveTheOwner) {
    const auto other = m_object->makeCopy();
    m_object->backup();
    const long owners = m_object.use_count();

    m_object->restore();
    EXPECT_EQ(m_object->shared_from_this(), m_object);
    m_object->updateFrom(other);
    EXPECT_EQ(m_object->shared_from_this(), m_object);
    EXPECT_EQ(other->shared_from_this(), other);

    EXPECT_EQ(m_object.use_count(), owners);
    const auto again = m_object->shared_from_this();
    EXPECT_FALSE(again.owner_before(m_object) || m_object.owner_before(again));
}

TEST_P(ObjectContract, UpdateTakesValuesAndKeepsIdentifierAndLabel) {
    const auto other = m_object->makeCopy();
    other->setID(99);
    other->label() = "other";
    ObjectMark(other).set(123.0);
    m_object->setID(5);
    m_object->label() = "mine";

    m_object->updateFrom(other);

    EXPECT_EQ(mark().get(), 123.0);
    EXPECT_TRUE(m_object->isEqualParameters(*other));
    EXPECT_EQ(m_object->getID(), 5U);
    EXPECT_EQ(m_object->label(), "mine");
}

TEST_P(ObjectContract, UpdateFromItselfChangesNothing) {
    const auto before = m_object->makeCopy();
    m_object->setID(5);
    m_object->label() = "mine";
    m_object->updateFrom(m_object);
    EXPECT_TRUE(m_object->isEqualParameters(*before));
    EXPECT_EQ(m_object->getID(), 5U);
    EXPECT_EQ(m_object->label(), "mine");
}

TEST_P(ObjectContract, UpdateFromAnotherClassThrowsAndChangesNothing) {
    const auto before = m_object->makeCopy();
    m_object->setID(5);
    m_object->label() = "mine";
    EXPECT_THROW(m_object->updateFrom(ProbeObject::create(3)), std::bad_cast);
    EXPECT_TRUE(m_object->isEqualParameters(*before));
    EXPECT_EQ(m_object->getID(), 5U);
    EXPECT_EQ(m_object->label(), "mine");
}

TEST_P(ObjectContract, AcceptCallsTheVisitOfItsOwnClassFirst) {
    RecordingVisitor visitor;
    m_object->accept(visitor);
    ASSERT_FALSE(visitor.visits.empty());
    EXPECT_EQ(visitor.visits.front(), GetParam().visitName);
    EXPECT_EQ(visitor.visits.back(), "visitBaseObject");
}

TEST_P(ObjectContract, NamePrefixIsThatOfTheClass) {
    static const std::map<std::string, std::string> prefixes{{"VrexPoint3D", "p"},
                                                             {"VrexTorus3D", "tor"},
                                                             {"VrexLine3D", "l"},
                                                             {"VrexConnector3D", "mt"},
                                                             {"VrexPlane3D", "pl"},
                                                             {"VrexRigidSet3D", "rs"},
                                                             {"VrexCircle3D", "r"},
                                                             {"VrexNURBSSurface3D", "nurbs"},
                                                             {"VrexEllipse3D", "el"},
                                                             {"VrexEvaluatedCurve3D", "evac_3d"},
                                                             {"VrexSphere3D", "s"},
                                                             {"VrexEvaluatedSurface3D", "eval_surf_3d"},
                                                             {"VrexSpline3D", "s"},
                                                             {"VrexSpinSurface3D", "spin"},
                                                             {"VrexCylinder3D", "cyl"},
                                                             {"VrexSweepSurface3D", "sweep"},
                                                             {"VrexCone3D", "cone"},
                                                             {"VrexPattern3D", "pat"},
                                                             {"VrexArrayPattern3D", "a_pat"},
                                                             {"VrexEqualDimensionElement3D", "eq_d_ele"},
                                                             {"VrexGeometryVariable", "v"}};
    const auto expected = prefixes.find(GetParam().name);
    if (expected != prefixes.end()) {
        EXPECT_EQ(m_object->getNamePrefix(), expected->second);
    } else if (m_object->baseType() == VrexObjectType::Equation) {
        EXPECT_STREQ(m_object->getNamePrefix(), "eq");
    } else {
        ASSERT_EQ(m_object->baseType(), VrexObjectType::Constraint);
        EXPECT_STREQ(m_object->getNamePrefix(), "c");
    }
}

TEST_P(ObjectContract, LongBackupChainIsReleasedOnASmallStack) {
    std::weak_ptr<VrexBaseObject> gone = m_object;
    runOnSmallStack([this] {
        for (int level = 0; level < 20'000; ++level) {
            m_object->backup();
        }
        m_object.reset();
    });
    EXPECT_TRUE(gone.expired());
}

} // namespace
