// What the assigner takes over of constraints, over every class of them.

#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/3d/VrexAssigner3D.h"
#include "support/LogCapture.h"
#include "support/ObjectClasses.h"

namespace {

using testing::IsEmpty;

const VrexAssigner3D assign;

/// How many dimensions of a mate are taken over, and nothing else with them; -1 for other classes.
template <class Constraint>
constexpr int ASSIGNED_DIMENSIONS = -1;
template <>
constexpr int ASSIGNED_DIMENSIONS<VrexSliderMate3D> = 1;
template <>
constexpr int ASSIGNED_DIMENSIONS<VrexRevoluteMate3D> = 1;
template <>
constexpr int ASSIGNED_DIMENSIONS<VrexBallMate3D> = 1;
template <>
constexpr int ASSIGNED_DIMENSIONS<VrexCylinderMate3D> = 2;
template <>
constexpr int ASSIGNED_DIMENSIONS<VrexPlanarMate3D> = 3;
template <>
constexpr int ASSIGNED_DIMENSIONS<VrexParallelMate3D> = 4;

/// A sample with other values in every field that is not part of its identity.
template <class Constraint>
std::shared_ptr<Constraint> makeOther() {
    auto other = makeSample<Constraint>();
    other->status() = VrexConstraintStatus::Overdefined;
    other->satisfiedStatus() = VrexConstraintSatisfiedStatus::NotSatisfied;
    other->solveMethodStatus() = VrexSolveMethodStatus::Unknown;
    other->alignment() = VrexConstraintAlignment::Negative;
    other->orientation() = VrexConstraintOrientation::Positive;
    other->setHelpPoint1({9.0, 8.0, 7.0});
    other->helpPoint2().reset();
    other->helpParam1().reset();
    other->setHelpParam2({0.75, 1.75});
    other->biasData().reset();
    if constexpr (std::is_base_of_v<VrexMate3D, Constraint>) {
        for (std::uint64_t i = 0; i < other->getDimensionSize(); ++i) {
            other->getDimension(i).value = 20.0 + static_cast<double>(i);
            other->getDimension(i).limits = {-20.0, {}};
            other->getDimension(i).setFixed(false);
        }
    }
    if constexpr (std::is_base_of_v<VrexDimension3D, Constraint>) {
        other->setLimits({});
        other->setRigid(false);
        other->bindVariable(nullptr);
    }
    return other;
}

void expectHelpValues(const VrexConstraint3D& actual, const VrexConstraint3D& expected) {
    const auto isSame = [](const auto& a, const auto& b) {
        return a.has_value() == b.has_value() && (!a.has_value() || a->isEqual(*b, 1e-300));
    };
    EXPECT_TRUE(isSame(actual.helpPoint1(), expected.helpPoint1()));
    EXPECT_TRUE(isSame(actual.helpPoint2(), expected.helpPoint2()));
    EXPECT_TRUE(isSame(actual.helpParam1(), expected.helpParam1()));
    EXPECT_TRUE(isSame(actual.helpParam2(), expected.helpParam2()));
}

void expectStatuses(const VrexConstraint3D& actual, const VrexConstraint3D& status,
                    const VrexConstraint3D& satisfied) {
    EXPECT_EQ(actual.status(), status.status());
    EXPECT_EQ(actual.satisfiedStatus(), satisfied.satisfiedStatus());
}

/// What no row takes over, against a sample.
template <class Constraint>
void expectRestOfSample(Constraint& target) {
    const auto sample = makeSample<Constraint>();
    EXPECT_EQ(target.solveMethodStatus(), sample->solveMethodStatus());
    EXPECT_EQ(target.alignment(), sample->alignment());
    EXPECT_EQ(target.orientation(), sample->orientation());
    EXPECT_TRUE(target.biasData().has_value());
    EXPECT_TRUE(target.isEqualParameters(*sample));
    if constexpr (std::is_base_of_v<VrexDimension3D, Constraint>) {
        EXPECT_EQ(target.getLimits(), sample->getLimits());
        EXPECT_EQ(target.isRigid(), sample->isRigid());
        EXPECT_EQ(target.value(), sample->value());
    }
}

template <class Constraint>
void expectDimensions(const Constraint& target, const VrexMate3D& expected) {
    for (std::uint64_t i = 0; i < target.getDimensionSize(); ++i) {
        EXPECT_EQ(target.getDimension(i), expected.getDimension(i));
    }
}

template <class Object>
class VrexAssigner3DConstraints : public testing::Test {};
TYPED_TEST_SUITE(VrexAssigner3DConstraints, ConcreteObjectClasses<>);

TYPED_TEST(VrexAssigner3DConstraints, TakesTheRowOfTheClassAndNothingElse) {
    if constexpr (std::is_base_of_v<VrexConstraint3D, TypeParam>) {
        const auto sample = makeSample<TypeParam>();
        const auto source = makeOther<TypeParam>();
        const auto target = makeSample<TypeParam>();
        target->setID(17);
        target->label() = "target";
        target->setDirty(false);
        const auto arguments = target->getGeometries();
        const LogCapture log;

        assign(*source, *target);

        constexpr int DIMENSIONS = ASSIGNED_DIMENSIONS<TypeParam>;
        constexpr bool FASTENED = std::is_same_v<TypeParam, VrexFastenedMate3D>;
        if constexpr (DIMENSIONS > 0) {
            EXPECT_EQ(target->getDimensionSize(), static_cast<std::uint64_t>(DIMENSIONS));
            expectDimensions(*target, *source);
            expectHelpValues(*target, *sample);
            expectStatuses(*target, *sample, *sample);
        } else if constexpr (FASTENED) {
            expectHelpValues(*target, *sample);
            expectStatuses(*target, *source, *sample);
        } else {
            expectHelpValues(*target, *source);
            expectStatuses(*target, *source, *source);
            if constexpr (std::is_base_of_v<VrexMate3D, TypeParam>) {
                expectDimensions(*target, *sample);
            }
        }
        expectRestOfSample(*target);
        EXPECT_EQ(target->getID(), 17U);
        EXPECT_EQ(target->label(), "target");
        EXPECT_FALSE(target->isDirty());
        EXPECT_EQ(target->getGeometries(), arguments);
        EXPECT_THAT(log.lines(), IsEmpty());
    }
}

TEST(VrexAssigner3D, DimensionTakesHelpPointsAndStatusButNotItsValue) {
    const auto source = makeOther<VrexDistance3D>();
    source->setValue(77.0);
    const auto target = makeSample<VrexDistance3D>();
    const double before = target->value();
    assign(*source, *target);
    EXPECT_EQ(target->value(), before);
    expectHelpValues(*target, *source);
    EXPECT_EQ(target->status(), VrexConstraintStatus::Overdefined);
}

TEST(VrexAssigner3D, SliderMateTakesItsDimensionButNotItsStatus) {
    const auto source = makeOther<VrexSliderMate3D>();
    const auto target = makeSample<VrexSliderMate3D>();
    assign(*source, *target);
    EXPECT_EQ(target->getDistance(), source->getDistance());
    EXPECT_EQ(target->status(), VrexConstraintStatus::Regular);
}

TEST(VrexAssigner3D, ComponentsAndHeldParametersAreTakenOver) {
    using enum VrexGeometryComponentType;
    const auto source =
        VrexTangency3D::create(makeSample<VrexEllipse3D>(), makeSample<VrexTorus3D>(), AXIS, SPINE);
    source->fixHelpParameter1(true);
    const auto target =
        VrexTangency3D::create(makeSample<VrexEllipse3D>(), makeSample<VrexSphere3D>(), UNKNOWN, EXTERIOR);
    target->fixHelpParameter2(true);
    assign(*source, *target);
    EXPECT_EQ(target->getGeomComponentType(1), AXIS);
    EXPECT_EQ(target->getGeomComponentType(2), SPINE); // as it stands, though a sphere has none
    EXPECT_TRUE(target->fixHelpParameter1());
    EXPECT_FALSE(target->fixHelpParameter2());
}

TEST(VrexAssigner3D, ParameterThatTheGeometryCannotHoldStaysFree) {
    constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
    const auto source =
        VrexTangency3D::create(makeSample<VrexEllipse3D>(), makeSample<VrexEllipse3D>(), WHOLE, WHOLE);
    source->fixHelpParameter1(true);
    const auto target =
        VrexTangency3D::create(makeSample<VrexCircle3D>(), makeSample<VrexEllipse3D>(), WHOLE, WHOLE);
    assign(*source, *target);
    EXPECT_FALSE(target->fixHelpParameter1());
}

TEST(VrexAssigner3D, ConstraintsOfTwoKindsAreLeftAndTheLogTells) {
    const auto target = makeSample<VrexParallelism3D>();
    const LogCapture log;
    assign(*makeOther<VrexPerpendicularity3D>(), *target);
    EXPECT_EQ(target->status(), VrexConstraintStatus::Regular);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].text, "VrexAssigner3D : types should be the same!");
}

} // namespace
