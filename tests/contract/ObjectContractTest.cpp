// What every concrete object class has to do, whatever else it is.

#include <map>
#include <string>
#include <typeinfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/BodyConstraint.h"
#include "support/ObjectClasses.h"
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

template <class Object>
class ObjectContract : public testing::Test {
protected:
    std::shared_ptr<VrexBaseObject> m_object = makeSample<Object>();

    VrexVariableDescriptor firstParameter() const { return {m_object, 0, nullptr}; }
};

TYPED_TEST_SUITE(ObjectContract, ConcreteObjectClasses<BodyConstraint>);

TYPED_TEST(ObjectContract, CopyIsAnEqualObjectOfTheSameClass) {
    this->m_object->setID(17);
    this->m_object->label() = "seventeen";
    this->m_object->setDirty(false);
    this->m_object->backup();

    const auto copy = this->m_object->makeCopy();

    ASSERT_NE(copy, this->m_object);
    const VrexBaseObject& copied = *copy;
    EXPECT_EQ(typeid(copied), typeid(TypeParam));
    EXPECT_TRUE(copied.isEqualParameters(*this->m_object));
    EXPECT_EQ(copied.baseType(), this->m_object->baseType());
    EXPECT_EQ(copied.getID(), 17U);
    EXPECT_EQ(copied.label(), "seventeen");
    EXPECT_FALSE(copied.isDirty());
    EXPECT_EQ(copy->shared_from_this(), copy);
}

TYPED_TEST(ObjectContract, CopySharesNoParameters) {
    const auto copy = this->m_object->makeCopy();
    VrexVariableDescriptor parameter(copy, 0, nullptr);
    const double before = this->firstParameter().getValue();
    parameter.setValue(before + 1.0);
    EXPECT_EQ(this->firstParameter().getValue(), before);
}

TYPED_TEST(ObjectContract, CopySharesTheBackup) {
    const double before = this->firstParameter().getValue();
    this->m_object->backup();
    this->firstParameter().setValue(before + 1.0);
    const auto copy = this->m_object->makeCopy();
    copy->restore();
    EXPECT_EQ(VrexVariableDescriptor(copy, 0, nullptr).getValue(), before);
    EXPECT_EQ(this->firstParameter().getValue(), before + 1.0);
    this->m_object->restore();
    EXPECT_EQ(this->firstParameter().getValue(), before);
}

TYPED_TEST(ObjectContract, RestoreWalksBackTheBackupChainAndStops) {
    auto parameter = this->firstParameter();
    for (const double value : {10.0, 20.0, 30.0}) {
        parameter.setValue(value);
        this->m_object->backup();
    }
    parameter.setValue(40.0);
    for (const double expected : {30.0, 20.0, 10.0, 10.0}) {
        this->m_object->restore();
        EXPECT_EQ(parameter.getValue(), expected);
    }
}

TYPED_TEST(ObjectContract, RestoreKeepsIdentifierAndLabel) {
    this->m_object->setID(1);
    this->m_object->label() = "old";
    this->m_object->backup();
    this->m_object->setID(2);
    this->m_object->label() = "new";
    this->m_object->restore();
    EXPECT_EQ(this->m_object->getID(), 2U);
    EXPECT_EQ(this->m_object->label(), "new");
}

TYPED_TEST(ObjectContract, RestoreAndUpdateLeaveTheOwner) {
    const auto other = this->m_object->makeCopy();
    this->m_object->backup();
    const long owners = this->m_object.use_count();

    this->m_object->restore();
    EXPECT_EQ(this->m_object->shared_from_this(), this->m_object);
    this->m_object->updateFrom(other);
    EXPECT_EQ(this->m_object->shared_from_this(), this->m_object);
    EXPECT_EQ(other->shared_from_this(), other);

    EXPECT_EQ(this->m_object.use_count(), owners);
    const auto again = this->m_object->shared_from_this();
    EXPECT_FALSE(again.owner_before(this->m_object) || this->m_object.owner_before(again));
}

TYPED_TEST(ObjectContract, UpdateTakesParametersAndKeepsIdentifierAndLabel) {
    const auto other = this->m_object->makeCopy();
    other->setID(99);
    other->label() = "other";
    VrexVariableDescriptor(other, 0, nullptr).setValue(123.0);
    this->m_object->setID(5);
    this->m_object->label() = "mine";

    this->m_object->updateFrom(other);

    EXPECT_TRUE(this->m_object->isEqualParameters(*other));
    EXPECT_EQ(this->m_object->getID(), 5U);
    EXPECT_EQ(this->m_object->label(), "mine");
}

TYPED_TEST(ObjectContract, UpdateFromItselfChangesNothing) {
    const auto before = this->m_object->makeCopy();
    this->m_object->setID(5);
    this->m_object->label() = "mine";
    this->m_object->updateFrom(this->m_object);
    EXPECT_TRUE(this->m_object->isEqualParameters(*before));
    EXPECT_EQ(this->m_object->getID(), 5U);
    EXPECT_EQ(this->m_object->label(), "mine");
}

TYPED_TEST(ObjectContract, UpdateFromAnotherClassThrowsAndChangesNothing) {
    const auto before = this->m_object->makeCopy();
    this->m_object->setID(5);
    this->m_object->label() = "mine";
    EXPECT_THROW(this->m_object->updateFrom(ProbeObject::create(3)), std::bad_cast);
    EXPECT_TRUE(this->m_object->isEqualParameters(*before));
    EXPECT_EQ(this->m_object->getID(), 5U);
    EXPECT_EQ(this->m_object->label(), "mine");
}

TYPED_TEST(ObjectContract, AcceptCallsTheVisitOfItsOwnClassFirst) {
    RecordingVisitor visitor;
    this->m_object->accept(visitor);
    ASSERT_FALSE(visitor.visits.empty());
    EXPECT_EQ(visitor.visits.front(), ObjectClass<TypeParam>::VISIT_NAME);
    EXPECT_EQ(visitor.visits.back(), "visitBaseObject");
}

TYPED_TEST(ObjectContract, NamePrefixIsThatOfTheClass) {
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
    const auto expected = prefixes.find(ObjectClass<TypeParam>::NAME);
    if (expected != prefixes.end()) {
        EXPECT_EQ(this->m_object->getNamePrefix(), expected->second);
    } else if (this->m_object->baseType() == VrexObjectType::Equation) {
        EXPECT_STREQ(this->m_object->getNamePrefix(), "eq");
    } else {
        ASSERT_EQ(this->m_object->baseType(), VrexObjectType::Constraint);
        EXPECT_STREQ(this->m_object->getNamePrefix(), "c");
    }
}

TYPED_TEST(ObjectContract, LongBackupChainIsReleasedOnASmallStack) {
    std::weak_ptr<VrexBaseObject> gone = this->m_object;
    runOnSmallStack([this] {
        for (int level = 0; level < 20'000; ++level) {
            this->m_object->backup();
        }
        this->m_object.reset();
    });
    EXPECT_TRUE(gone.expired());
}

} // namespace
