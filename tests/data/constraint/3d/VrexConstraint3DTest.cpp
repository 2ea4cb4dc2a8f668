#include "data/constraint/3d/VrexConstraint3D.h"

#include <array>
#include <limits>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AnyGeometry.h"
#include "support/LogCapture.h"
#include "support/ProbeConstraint3D.h"
#include "support/RecordingVisitor.h"
#include "support/SamplesConstraints.h"
#include "support/VectorSamples.h"

namespace {

using nsVectorSamples::Values2;
using nsVectorSamples::Values3;
using nsVectorSamples::valuesOf;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto ABSENT = std::numeric_limits<std::uint64_t>::max();

std::shared_ptr<AnyGeometry> any(VrexGeometry3DType type) { return AnyGeometry::create(type, 0); }

/// The one line that `action` writes: refusals, level 2 of channel 1.
template <class Action>
std::string refusalOf(const Action& action) {
    const LogCapture log;
    action();
    if (log.lines().size() != 1) {
        return std::to_string(log.lines().size()) + " lines";
    }
    EXPECT_EQ(log.lines().front().channel, 1U);
    EXPECT_EQ(log.lines().front().level, 2U);
    return log.lines().front().text;
}

/// The text of the `std::out_of_range` that `action` throws.
template <class Action>
std::string outOfRangeOf(const Action& action) {
    try {
        action();
    } catch (const std::out_of_range& failure) {
        return failure.what();
    }
    return "nothing thrown";
}

TEST(VrexConstraint3D, NewConstraintHasItsKindAndComponentsAndNothingElse) {
    const ProbeConstraint3D constraint(VrexConstraint3DType::Incidence3D, VrexGeometryComponentType::AXIS,
                                       VrexGeometryComponentType::CENTER);
    EXPECT_EQ(constraint.baseType(), VrexObjectType::Constraint);
    EXPECT_STREQ(constraint.getNamePrefix(), "c");
    EXPECT_EQ(constraint.type(), VrexConstraint3DType::Incidence3D);
    EXPECT_EQ(constraint.getGeomComponentType(1), VrexGeometryComponentType::AXIS);
    EXPECT_EQ(constraint.getGeomComponentType(2), VrexGeometryComponentType::CENTER);
    EXPECT_FALSE(constraint.helpPoint1().has_value() || constraint.helpPoint2().has_value());
    EXPECT_FALSE(constraint.helpParam1().has_value() || constraint.helpParam2().has_value());
    EXPECT_FALSE(constraint.biasData().has_value());
    EXPECT_FALSE(constraint.fixHelpParameter1() || constraint.fixHelpParameter2());
    EXPECT_FALSE(constraint.areGeometriesChanged());
    EXPECT_FALSE(constraint.isHelpPointSupported() || constraint.isHelpParameterSupported());
    EXPECT_THAT(constraint.getGeometries(), IsEmpty());
}

TEST(VrexConstraint3D, IndicesOfTheHelpValues) {
    EXPECT_THAT((std::array{VrexConstraint3D::HP1X, VrexConstraint3D::HP1Y, VrexConstraint3D::HP1Z,
                            VrexConstraint3D::HP2X, VrexConstraint3D::HP2Y, VrexConstraint3D::HP2Z,
                            VrexConstraint3D::HPARAMU1, VrexConstraint3D::HPARAMV1,
                            VrexConstraint3D::HPARAMU2, VrexConstraint3D::HPARAMV2}),
                ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_EQ(VrexConstraint3D::CONSTRAINT_HELP_POINT_INDICES_AMOUNT, 6);
    EXPECT_EQ(VrexConstraint3D::PARAMETERS_AMOUNT, 10);
}

TEST(VrexConstraint3D, ArgumentsAreAppendedInOrderWithNullsAndSetTheFlag) {
    const auto point = makeSample<VrexPoint3D>();
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto constraint = ProbeConstraint3D::of(point, std::shared_ptr<VrexLine3D>(), variable);
    EXPECT_THAT(constraint->getGeometries(), ElementsAre(point, nullptr, variable));
    EXPECT_EQ(constraint->getGeometries().capacity(), 3U);
    EXPECT_TRUE(constraint->areGeometriesChanged());
}

TEST(VrexConstraint3D, AddAndEraseSetTheFlag) {
    ProbeConstraint3D added;
    added.addGeometry(makeSample<VrexPoint3D>());
    EXPECT_TRUE(added.areGeometriesChanged());
    ProbeConstraint3D untouched;
    EXPECT_FALSE(untouched.areGeometriesChanged());
    added.eraseGeometry();
    EXPECT_THAT(added.getGeometries(), IsEmpty());
    EXPECT_TRUE(added.areGeometriesChanged());
}

TEST(VrexConstraint3D, GeometriesAreNumberedFromOne) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const LogCapture log;
    const auto constraint = ProbeConstraint3D::of(point, line);
    EXPECT_EQ(constraint->geometry(1), point);
    EXPECT_EQ(constraint->geometry(2), line);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(VrexConstraint3D, NumberZeroIsRefused) {
    for (const auto& constraint :
         {ProbeConstraint3D::of(makeSample<VrexPoint3D>()), ProbeConstraint3D::of()}) {
        EXPECT_EQ(refusalOf([&] { EXPECT_EQ(constraint->geometry(0), nullptr); }),
                  "Begin with parameter 1, not 0!");
    }
}

TEST(VrexConstraint3D, NumberBeyondTheListIsRefused) {
    const auto constraint = ProbeConstraint3D::of(makeSample<VrexPoint3D>(), makeSample<VrexLine3D>());
    constraint->setID(18446744073709551615U);
    EXPECT_EQ(refusalOf([&] { EXPECT_EQ(constraint->geometry(3), nullptr); }),
              "Constraint(18446744073709551615) ONLY has 2 geometries, num(3) invalid!");
    EXPECT_EQ(refusalOf([&] { EXPECT_EQ(constraint->geometry(4294967295U), nullptr); }),
              "Constraint(18446744073709551615) ONLY has 2 geometries, num(4294967295) invalid!");
    EXPECT_EQ(refusalOf([] { EXPECT_EQ(ProbeConstraint3D::of()->geometry(1), nullptr); }),
              "Constraint(0) ONLY has 0 geometries, num(1) invalid!");
}

TEST(VrexConstraint3D, BoundVariableIsNoGeometry) {
    const auto distance =
        VrexDistance3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(), 1.0,
                               VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN);
    distance->bindVariable(makeSample<VrexGeometryVariable>());
    EXPECT_EQ(refusalOf([&] { EXPECT_EQ(distance->geometry(3), nullptr); }), "The geometry is a variable!");
    EXPECT_EQ(distance->getGeometries().size(), 3U);
    EXPECT_EQ(distance->getGeometries3DCount(), 2U);
    EXPECT_EQ(refusalOf([&] { EXPECT_EQ(distance->geometry(4), nullptr); }),
              "Constraint(0) ONLY has 3 geometries, num(4) invalid!")
        << "the size counts the variable";
}

TEST(VrexConstraint3D, NullElementIsNullWithoutALine) {
    const auto constraint = ProbeConstraint3D::of(std::shared_ptr<VrexPoint3D>());
    const LogCapture log;
    EXPECT_EQ(constraint->geometry(1), nullptr);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(VrexConstraint3D, ListsAreTheEntitiesInOrder) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto line2 = makeSample<VrexLine3D>();
    const auto constraint = ProbeConstraint3D::of(line, makeSample<VrexGeometryVariable>(), point,
                                                  std::shared_ptr<VrexPoint3D>(), line2);
    EXPECT_THAT(constraint->getGeometries3D(), ElementsAre(line, point, line2));
    EXPECT_THAT(constraint->geomArguments(), ElementsAre(line, point, line2));
    EXPECT_EQ(constraint->getGeometries3DCount(), 3U);
    EXPECT_EQ(constraint->getGeometryByType(VrexGeometry3DType::LINE), line);
    EXPECT_EQ(constraint->getGeometryByType(VrexGeometry3DType::POINT), point);
    EXPECT_EQ(constraint->getGeometryByType(VrexGeometry3DType::PLANE), nullptr);
    EXPECT_THAT(constraint->getGeometriesByType(VrexGeometry3DType::LINE), ElementsAre(line, line2));
    EXPECT_THAT(constraint->getGeometriesByType(VrexGeometry3DType::PLANE), IsEmpty());
}

TEST(VrexConstraint3D, HelpValueBelongsToItsGeometry) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto constraint = ProbeConstraint3D::of(point, line, makeSample<VrexPlane3D>());
    for (const std::uint64_t index : {0, 1, 2, 6, 7}) {
        EXPECT_EQ(constraint->getGeometryByParameterIndex(index), point) << index;
    }
    for (const std::uint64_t index : {3, 4, 5, 8, 9}) {
        EXPECT_EQ(constraint->getGeometryByParameterIndex(index), line) << index;
    }
    const LogCapture log;
    for (const std::uint64_t index : {std::uint64_t{10}, std::uint64_t{11}, ABSENT}) {
        EXPECT_EQ(constraint->getGeometryByParameterIndex(index), nullptr) << index;
    }
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_EQ(refusalOf([] { ProbeConstraint3D::of()->getGeometryByParameterIndex(9); }),
              "Constraint(0) ONLY has 0 geometries, num(2) invalid!");
}

TEST(VrexConstraint3D, ComponentOfAnotherNumberThrows) {
    const auto constraint = ProbeConstraint3D::of(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(),
                                                  makeSample<VrexPoint3D>());
    for (const std::uint32_t number : {0U, 3U, 4294967295U}) {
        const LogCapture log;
        EXPECT_EQ(outOfRangeOf([&] { static_cast<void>(constraint->getGeomComponentType(number)); }),
                  "invalid array<T, N> subscript");
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines().front().level, 1U);
        EXPECT_EQ(log.lines().front().text,
                  "VrexConstraint3D::getGeomComponentType(): invalid array<T, N> subscript");
    }
}

TEST(VrexConstraint3D, SupportedComponentIsStored) {
    const auto constraint = ProbeConstraint3D::of(makeSample<VrexTorus3D>(), makeSample<VrexCone3D>());
    constraint->setGeomComponentType(1, VrexGeometryComponentType::SPINE);
    constraint->setGeomComponentType(2, VrexGeometryComponentType::APEX);
    EXPECT_EQ(constraint->getGeomComponentType(1), VrexGeometryComponentType::SPINE);
    EXPECT_EQ(constraint->getGeomComponentType(2), VrexGeometryComponentType::APEX);
}

TEST(VrexConstraint3D, SpineOfACircleIsNotStored) {
    const auto constraint = ProbeConstraint3D::of(makeSample<VrexCircle3D>(), makeSample<VrexPoint3D>());
    constraint->setGeomComponentType(1, VrexGeometryComponentType::PLANE);
    constraint->setGeomComponentType(1, VrexGeometryComponentType::SPINE);
    EXPECT_EQ(constraint->getGeomComponentType(1), VrexGeometryComponentType::PLANE);
}

TEST(VrexConstraint3D, ComponentOfAMissingGeometryIsNotStored) {
    const auto constraint = ProbeConstraint3D::of(std::shared_ptr<VrexPoint3D>());
    constraint->setGeomComponentType(1, VrexGeometryComponentType::MAJOR);
    EXPECT_EQ(refusalOf([&] { constraint->setGeomComponentType(2, VrexGeometryComponentType::MAJOR); }),
              "Constraint(0) ONLY has 1 geometries, num(2) invalid!");
    EXPECT_EQ(refusalOf([&] { constraint->setGeomComponentType(0, VrexGeometryComponentType::MAJOR); }),
              "Begin with parameter 1, not 0!");
    EXPECT_EQ(constraint->getGeomComponentType(1), VrexGeometryComponentType::UNKNOWN);
    EXPECT_EQ(constraint->getGeomComponentType(2), VrexGeometryComponentType::UNKNOWN);
}

TEST(VrexConstraint3D, ComponentOfAThirdGeometryThrowsAndStoresNothing) {
    const auto constraint = ProbeConstraint3D::of(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(),
                                                  makeSample<VrexTorus3D>());
    // One that the torus has, and one that it has not.
    for (const auto component : {VrexGeometryComponentType::SPINE, VrexGeometryComponentType::APEX}) {
        const LogCapture log;
        EXPECT_EQ(outOfRangeOf([&] { constraint->setGeomComponentType(3, component); }),
                  "invalid array<T, N> subscript");
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines().front().level, 1U);
        EXPECT_EQ(log.lines().front().text,
                  "VrexConstraint3D::setGeomComponentType(): invalid array<T, N> subscript");
    }
    EXPECT_EQ(constraint->getGeomComponentType(1), VrexGeometryComponentType::UNKNOWN);
    EXPECT_EQ(constraint->getGeomComponentType(2), VrexGeometryComponentType::UNKNOWN);
}

TEST(VrexConstraint3D, ComponentTableOverAllKindsAndComponents) {
    using enum VrexGeometryComponentType;
    // Kinds by their numbers: 5 cylinder, 6 sphere, 7 circle, 9 cone, 10 ellipse, 11 torus.
    const std::map<VrexGeometryComponentType, std::set<int>> restricted{{CENTER, {6, 7, 10, 11}},
                                                                        {AXIS, {5, 7, 9, 10, 11}},
                                                                        {PLANE, {7, 10, 11}},
                                                                        {SPINE, {11}},
                                                                        {APEX, {9}}};
    for (int kind = -1; kind <= 20; ++kind) {
        for (int component = 0; component <= 9; ++component) {
            const auto row = restricted.find(VrexGeometryComponentType{component});
            const bool expected = row == restricted.end() || row->second.contains(kind);
            EXPECT_EQ(ProbeConstraint3D::supportedGeomTypeForComponentType(
                          VrexGeometry3DType{kind}, VrexGeometryComponentType{component}),
                      expected)
                << "kind " << kind << ", component " << component;
        }
    }
}

TEST(VrexConstraint3D, HelpParametersOfFourKindsCannotBeFixed) {
    const std::set<int> refused{5, 7, 9, 11};
    for (int kind = 0; kind < 20; ++kind) {
        const auto type = VrexGeometry3DType{kind};
        const bool expected = !refused.contains(kind);
        EXPECT_EQ(VrexConstraint3D::notSupportFixHelpParameterType(type), !expected) << kind;
        const auto constraint = ProbeConstraint3D::of(any(type), any(type));
        constraint->fixHelpParameter1(true);
        EXPECT_EQ(constraint->fixHelpParameter1(), expected) << kind;
        EXPECT_FALSE(constraint->fixHelpParameter2()) << kind;
        constraint->fixHelpParameter2(true);
        EXPECT_EQ(constraint->fixHelpParameter2(), expected) << kind;
    }
}

TEST(VrexConstraint3D, HelpParameterOfACylinderStaysAsItWas) {
    const auto plane = ProbeConstraint3D::of(makeSample<VrexPlane3D>(), makeSample<VrexPlane3D>());
    plane->fixHelpParameter1(true);
    plane->fixHelpParameter2(true);
    const auto cylinder = ProbeConstraint3D::of(makeSample<VrexCylinder3D>(), makeSample<VrexCylinder3D>());
    cylinder->updateFrom(plane);
    cylinder->fixHelpParameter1(false);
    cylinder->fixHelpParameter2(false);
    EXPECT_TRUE(cylinder->fixHelpParameter1());
    EXPECT_TRUE(cylinder->fixHelpParameter2());
    plane->fixHelpParameter1(false);
    EXPECT_FALSE(plane->fixHelpParameter1());
}

TEST(VrexConstraint3D, HelpParameterOfAMissingGeometryIsNotFixed) {
    const auto constraint = ProbeConstraint3D::of(makeSample<VrexPoint3D>());
    EXPECT_EQ(refusalOf([&] { constraint->fixHelpParameter2(true); }),
              "Constraint(0) ONLY has 1 geometries, num(2) invalid!");
    EXPECT_FALSE(constraint->fixHelpParameter2());
}

TEST(VrexConstraint3D, SettersOfHelpValuesFillThemAndLeaveTheDirtyFlagAlone) {
    const auto constraint = ProbeConstraint3D::of(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>());
    constraint->setDirty(false);
    nsSamples::filled(constraint);
    constraint->fixHelpParameter1(true);
    constraint->setGeomComponentType(1, VrexGeometryComponentType::MAJOR);
    EXPECT_FALSE(constraint->isDirty());
    const VrexConstraint3D& read = *constraint;
    EXPECT_EQ(valuesOf(read.helpPoint1().value()), (Values3{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(read.helpPoint2().value()), (Values3{-1.0, -2.0, -3.0}));
    EXPECT_EQ(valuesOf(read.helpParam1().value()), (Values2{0.25, 0.5}));
    EXPECT_EQ(valuesOf(read.helpParam2().value()), (Values2{-0.25, -0.5}));
    constraint->helpPoint1().reset();
    EXPECT_FALSE(read.helpPoint1().has_value());
}

TEST(VrexConstraint3D, EveryFieldTravelsWithCopyRestoreAndUpdateButTheGeometries) {
    const auto point = makeSample<VrexPoint3D>();
    const auto constraint = ProbeConstraint3D::of(point, makeSample<VrexTorus3D>());
    nsSamples::filled(constraint);
    constraint->fixHelpParameter1(true);
    constraint->setGeomComponentType(2, VrexGeometryComponentType::SPINE);
    const auto expectFilled = [](const VrexConstraint3D& other) {
        EXPECT_EQ(valuesOf(other.helpPoint1().value()), (Values3{1.0, 2.0, 3.0}));
        EXPECT_EQ(valuesOf(other.helpPoint2().value()), (Values3{-1.0, -2.0, -3.0}));
        EXPECT_EQ(valuesOf(other.helpParam1().value()), (Values2{0.25, 0.5}));
        EXPECT_EQ(valuesOf(other.helpParam2().value()), (Values2{-0.25, -0.5}));
        EXPECT_EQ(other.biasData().value(),
                  (VrexConstraintBiasData3D{{{7, 0.125}}, {{8, 0.25}, {9, 0.375}}}));
        EXPECT_TRUE(other.fixHelpParameter1());
        EXPECT_FALSE(other.fixHelpParameter2());
        EXPECT_EQ(other.getGeomComponentType(2), VrexGeometryComponentType::SPINE);
        EXPECT_EQ(other.alignment(), VrexConstraintAlignment::Positive);
        EXPECT_EQ(other.orientation(), VrexConstraintOrientation::Negative);
        EXPECT_EQ(other.status(), VrexConstraintStatus::Regular);
    };
    const auto copy = std::static_pointer_cast<ProbeConstraint3D>(constraint->makeCopy());
    expectFilled(*copy);
    EXPECT_EQ(copy->geometry(1), point);

    const auto updated = ProbeConstraint3D::of(makeSample<VrexLine3D>());
    updated->updateFrom(constraint);
    expectFilled(*updated);
    EXPECT_EQ(updated->getGeometries3DCount(), 1U);

    copy->updateFrom(ProbeConstraint3D::of(point));
    EXPECT_FALSE(copy->helpPoint1().has_value());

    constraint->backup();
    constraint->helpPoint1().reset();
    constraint->biasData().reset();
    constraint->alignment() = VrexConstraintAlignment::Any;
    constraint->restore();
    expectFilled(*constraint);
}

TEST(VrexConstraint3D, FailedUpdateChangesNothing) {
    const auto point = makeSample<VrexPoint3D>();
    const auto constraint = ProbeConstraint3D::of(point);
    nsSamples::filled(constraint);
    EXPECT_THROW(constraint->updateFrom(point), std::bad_cast);
    EXPECT_THROW(constraint->updateFrom(makeSample<VrexDistance3D>()), std::bad_cast);
    EXPECT_THAT(constraint->getGeometries(), ElementsAre(point));
    EXPECT_TRUE(constraint->helpPoint1().has_value());
}

TEST(VrexConstraint3D, AcceptsAsItself) {
    ProbeConstraint3D constraint;
    RecordingVisitor visitor;
    constraint.accept(visitor);
    EXPECT_THAT(visitor.visits, ElementsAre("visitConstraint3D", "visitConstraint", "visitBaseConstraint",
                                            "visitBaseObject"));
}

} // namespace
