#include "data/constraint/3d/VrexConstraint3DPreValidator.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/VrexConstraint3DPreValidatorTables.h"
#include "support/AllocationCounter.h"
#include "support/AnyGeometry.h"
#include "support/LogCapture.h"

namespace {

using enum VrexConstraint3DType;
using enum VrexErrorCode;
using Component = VrexGeometryComponentType;
using Fixation = VrexFixation3DType;
using Geometries = VrexConstraint3DPreValidator::Geometries;
using Type = VrexGeometry3DType;
using nsPreValidation::Matching;
using nsPreValidation::Rule;
using testing::HasSubstr;

constexpr const char* REPEATED = "Input geometrys ID is repeated.";
constexpr const char* INVALID = "Input geometry is invalid.";
constexpr const char* WRONG_COMPONENT = "Failed to create constraint, constraint component type error.";
constexpr const char* WRONG_SIZE = "Geometry size error.";
constexpr const char* NO_KEY = "invalid map<K, T> key";
constexpr const char* NOT_DISTINCT = "The first geometry cannot be equal to the second geometry,and neither "
                                     "can be equal to the third.";

/// The private check of combinations, for lists that no kind has.
bool checkTypes(const VrexConstraint3DPreValidator& validator, const Geometries& geometries,
                const Rule& rule);

template <auto check>
struct Opened {
    friend bool checkTypes(const VrexConstraint3DPreValidator& validator, const Geometries& geometries,
                           const Rule& rule) {
        return (validator.*check)(geometries, rule, {});
    }
};
// An explicit instantiation may name what is private.
template struct Opened<&VrexConstraint3DPreValidator::checkGeometriesTypes3D>;

/// With the identifiers 1, 2, ...
Geometries make(std::initializer_list<Type> types) {
    Geometries geometries;
    for (const Type type : types) {
        geometries.push_back(AnyGeometry::create(type, geometries.size() + 1));
    }
    return geometries;
}

/// The same geometry in both places.
Geometries twice(Type type) {
    const auto geometry = AnyGeometry::create(type, 5);
    return {geometry, geometry};
}

class VrexConstraint3DPreValidatorTest : public testing::Test {
protected:
    bool check(const Geometries& geometries, VrexConstraint3DType type,
               Component component1 = Component::UNKNOWN, Component component2 = Component::UNKNOWN) {
        m_recorder = VrexLogRecorder(7);
        return m_validator.preCheckConstraint3DType(geometries, type, component1, component2);
    }
    bool checkFixation(const Geometries& geometries, Fixation type) {
        m_recorder = VrexLogRecorder(7);
        return m_validator.preCheckFixation3DType(geometries, type);
    }
    void expectRecorded(VrexErrorCode code, const std::string& text) {
        EXPECT_EQ(m_recorder.getErrorCode(), code);
        EXPECT_THAT(m_recorder.getErrorMessage(), HasSubstr("]: " + text + ", ErrorCode: "));
    }

    VrexDefaultToleranceGetter m_tolerances;
    VrexLogRecorder m_recorder{7};
    VrexConstraint3DPreValidator m_validator{m_tolerances, m_recorder};
};

TEST_F(VrexConstraint3DPreValidatorTest, IsOneReferenceWide) {
    EXPECT_EQ(sizeof(VrexConstraint3DPreValidator), sizeof(VrexLogRecorder*));
}

TEST_F(VrexConstraint3DPreValidatorTest, AxisOfACylinderIsMatchedAsALine) {
    const auto pair = make({Type::CYLINDER, Type::POINT});
    EXPECT_TRUE(check(pair, Distance3D, Component::AXIS, Component::UNKNOWN));
    // A cylinder and an ellipse are never incident, a line and a plane may be.
    const auto planar = make({Type::CYLINDER, Type::ELLIPSE});
    EXPECT_FALSE(check(planar, Incidence3D));
    EXPECT_TRUE(check(planar, Incidence3D, Component::AXIS, Component::PLANE));
}

TEST_F(VrexConstraint3DPreValidatorTest, UnfitComponentsAreNamedByTheTypesOfTheGeometries) {
    // Matched as a line and a point, which are never tangent.
    EXPECT_FALSE(check(make({Type::CYLINDER, Type::POINT}), Tangency3D, Component::AXIS, Component::UNKNOWN));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Do not supported geometry types combination (CYLINDER, POINT)");
    EXPECT_STREQ(
        m_recorder.getErrorMessage(),
        "sid:: 7, tid: , [0x10000005]: Do not supported geometry types combination (CYLINDER, POINT), "
        "ErrorCode: GEOMETRY_TYPE_ERROR.");
}

TEST_F(VrexConstraint3DPreValidatorTest, RadiusOfADistanceIsRefusedBeforeAllElse) {
    for (const auto kind : {Distance3D, Incidence3D, Tangency3D}) {
        for (const Component radius : {Component::MAJOR, Component::MINOR}) {
            EXPECT_FALSE(check({}, kind, radius, Component::UNKNOWN));
            expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_COMPONENT);
            EXPECT_FALSE(check({nullptr, nullptr}, kind, Component::EXTERIOR, radius));
            expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_COMPONENT);
        }
    }
}

TEST_F(VrexConstraint3DPreValidatorTest, EqualRadiiCountTheGeometriesBeforeTheyAskForARadius) {
    EXPECT_FALSE(check(make({Type::ELLIPSE}), EqualRadius3D));
    expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_SIZE);
    EXPECT_FALSE(check(make({Type::ELLIPSE, Type::RIGID_SET}), EqualRadius3D));
    expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_COMPONENT);
    EXPECT_FALSE(check(make({Type::RIGID_SET, Type::TORUS}), EqualRadius3D));
    expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_COMPONENT);
    EXPECT_TRUE(check(make({Type::ELLIPSE, Type::CIRCLE}), EqualRadius3D, Component::MINOR));
}

TEST_F(VrexConstraint3DPreValidatorTest, RepeatedIdentifierIsRefusedExceptBetweenCurveProperties) {
    const Geometries same = twice(Type::SPLINE);
    for (const auto kind : {Distance3D, DirectionDistance3D, Incidence3D, Angle3D, Parallelism3D,
                            Perpendicularity3D, Concentricity3D, Tangency3D, EqualRadius3D, SliderMate3D,
                            FastenedMate3D, CylinderMate3D, RevoluteMate3D, PlanarMate3D, PinSlotMate3D,
                            ParallelMate3D, BallMate3D, SurfaceNormal3D, Instance3D}) {
        EXPECT_FALSE(check(same, kind));
        expectRecorded(CONSTRAINT_ID_ERROR, REPEATED);
    }
    for (const auto kind : {EqualDirection3D, EqualFirstDerivative3D, EqualSecondDerivative3D,
                            EqualCurvature3D, EqualCurvatureDerivative3D}) {
        EXPECT_TRUE(check(same, kind));
        EXPECT_TRUE(m_recorder.isNoError());
    }
}

TEST_F(VrexConstraint3DPreValidatorTest, ComponentsAreLookedAtBeforeIdentifiers) {
    EXPECT_FALSE(check(twice(Type::RIGID_SET), Distance3D));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Unsupported constraint component type: UNKNOWN");
    EXPECT_FALSE(check(twice(Type::TORUS), EqualRadius3D, Component::MAJOR));
    expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_COMPONENT);
    EXPECT_FALSE(check(twice(Type::TORUS), EqualRadius3D, Component::MAJOR, Component::MINOR));
    expectRecorded(CONSTRAINT_ID_ERROR, REPEATED);
}

TEST_F(VrexConstraint3DPreValidatorTest, RepetitionIsFoundBetweenAnyTwoPlaces) {
    for (const auto& places : {std::vector{0, 0, 1}, std::vector{0, 1, 0}, std::vector{1, 0, 0}}) {
        const auto points = make({Type::POINT, Type::POINT});
        Geometries triple;
        for (const int place : places) {
            triple.push_back(points[static_cast<std::size_t>(place)]);
        }
        for (const auto kind : {MidPoint3D, Symmetry3D, ParallelDistance3D, CurveLength3D}) {
            EXPECT_FALSE(check(triple, kind));
            expectRecorded(CONSTRAINT_ID_ERROR, REPEATED);
        }
    }
}

TEST_F(VrexConstraint3DPreValidatorTest, GeometriesWithoutIdentifiersAreTakenForTheSame) {
    const Geometries pair{AnyGeometry::create(Type::POINT, 0), AnyGeometry::create(Type::LINE, 0)};
    EXPECT_FALSE(check(pair, Distance3D));
    expectRecorded(CONSTRAINT_ID_ERROR, REPEATED);
    pair[0]->setID(1);
    EXPECT_TRUE(check(pair, Distance3D));
}

TEST_F(VrexConstraint3DPreValidatorTest, ParallelDistanceIsMatchedByPosition) {
    EXPECT_FALSE(check(make({Type::LINE, Type::POINT, Type::POINT}), ParallelDistance3D));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Do not supported geometry types combination (LINE, POINT, POINT)");
    EXPECT_TRUE(check(make({Type::POINT, Type::POINT, Type::LINE}), ParallelDistance3D));
    EXPECT_FALSE(check(make({Type::POINT, Type::SPLINE, Type::POINT}), CurveLength3D));
    EXPECT_TRUE(check(make({Type::POINT, Type::POINT, Type::SPLINE}), CurveLength3D));
}

TEST_F(VrexConstraint3DPreValidatorTest, OrderOfOtherKindsPlaysNoPart) {
    EXPECT_TRUE(check(make({Type::SPHERE, Type::LINE}), Tangency3D));
    EXPECT_TRUE(check(make({Type::PLANE, Type::POINT, Type::POINT}), Symmetry3D));
    EXPECT_TRUE(check(make({Type::CYLINDER, Type::LINE}), SurfaceNormal3D));
}

TEST_F(VrexConstraint3DPreValidatorTest, PlanarAngleWantsThreePointersThatDiffer) {
    const auto lines = make({Type::LINE, Type::LINE, Type::LINE});
    for (const Geometries& triple :
         {Geometries{lines[0], lines[0], lines[1]}, Geometries{lines[0], lines[1], lines[0]},
          Geometries{lines[1], lines[0], lines[0]}, Geometries{nullptr, lines[0], nullptr}}) {
        const LogCapture log;
        EXPECT_FALSE(check(triple, PlanarAngle3D));
        expectRecorded(CONSTRAINT_ID_ERROR, NOT_DISTINCT);
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines()[0].level, 1U);
        EXPECT_EQ(log.lines()[0].text, m_recorder.getErrorMessage());
    }
    lines[1]->setID(lines[0]->getID());
    EXPECT_TRUE(check(lines, PlanarAngle3D));
}

TEST_F(VrexConstraint3DPreValidatorTest, PlanarAngleLooksAtItsGeometriesInOrder) {
    const auto mixed = make({Type::LINE, Type::POINT});
    const LogCapture log;
    EXPECT_FALSE(check({mixed[0], nullptr, mixed[1]}, PlanarAngle3D));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Input geometry is not 3d geometry.");
    EXPECT_FALSE(check({mixed[1], mixed[0], nullptr}, PlanarAngle3D));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Do not supported geometry types:POINT");
    EXPECT_FALSE(check({mixed[0], mixed[1]}, PlanarAngle3D));
    expectRecorded(CONSTRAINT_PARAM_ERROR, "Geometry number is incorrect.");
    EXPECT_FALSE(check({AnyGeometry::create(static_cast<Type>(21), 3), mixed[0], mixed[1]}, PlanarAngle3D));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Do not supported geometry types:");
    ASSERT_EQ(log.lines().size(), 4U);
    for (const auto& line : log.lines()) {
        EXPECT_EQ(line.level, 1U);
    }
}

TEST_F(VrexConstraint3DPreValidatorTest, NullIsRefusedBeforeItIsLookedInto) {
    const auto point = make({Type::POINT})[0];
    for (const auto kind : {Distance3D, Incidence3D, Tangency3D, EqualRadius3D, Angle3D, EqualDirection3D}) {
        for (const Geometries& pair :
             {Geometries{nullptr, point}, Geometries{point, nullptr}, Geometries{nullptr, nullptr}}) {
            EXPECT_FALSE(check(pair, kind));
            expectRecorded(CONSTRAINT_ID_ERROR, INVALID);
        }
        EXPECT_FALSE(check({nullptr}, kind));
        expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_SIZE);
    }
    EXPECT_FALSE(check({nullptr, nullptr}, Distance3D, Component::EXTERIOR, Component::EXTERIOR));
    expectRecorded(CONSTRAINT_ID_ERROR, INVALID);
    EXPECT_FALSE(check({point, nullptr, point}, ParallelDistance3D));
    expectRecorded(CONSTRAINT_ID_ERROR, INVALID);
    EXPECT_FALSE(checkFixation({nullptr}, Fixation::Complete3D));
    expectRecorded(CONSTRAINT_ID_ERROR, INVALID);
}

TEST_F(VrexConstraint3DPreValidatorTest, ExteriorThrowsWhereComponentsAreMatched) {
    const auto circles = make({Type::CIRCLE, Type::CIRCLE});
    for (const auto kind : {Distance3D, Incidence3D, Tangency3D, EqualRadius3D}) {
        const LogCapture log;
        try {
            check(circles, kind, Component::UNKNOWN, Component::EXTERIOR);
            FAIL() << "accepted";
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), NO_KEY);
        }
        EXPECT_TRUE(m_recorder.isNoError());
        ASSERT_EQ(log.lines().size(), 2U);
        EXPECT_EQ(log.lines()[0].level, 2U);
        EXPECT_EQ(log.lines()[0].text, "Unsupported constraint component type: EXTERIOR");
        EXPECT_EQ(log.lines()[1].level, 1U);
        EXPECT_EQ(log.lines()[1].text,
                  "VrexConstraint3DPreValidator::preCheckConstraintComponent3DType(): invalid map<K, T> key");
    }
}

TEST_F(VrexConstraint3DPreValidatorTest, RefusalOfTheFirstComponentPrecedesAnExteriorSecond) {
    EXPECT_FALSE(check(make({Type::POINT, Type::CIRCLE}), Distance3D, Component::AXIS, Component::EXTERIOR));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Unsupported constraint component type: AXIS");
    EXPECT_THROW(check(make({Type::CIRCLE, Type::POINT}), Distance3D, Component::EXTERIOR, Component::AXIS),
                 std::out_of_range);
}

TEST_F(VrexConstraint3DPreValidatorTest, ComponentWithoutARowThrows) {
    for (const int component : {-1, 8, 9}) {
        EXPECT_THROW(
            m_validator.preCheckConstraintComponent3DType(Type::CIRCLE, static_cast<Component>(component)),
            std::out_of_range);
        EXPECT_TRUE(m_recorder.isNoError());
    }
}

TEST_F(VrexConstraint3DPreValidatorTest, ComponentThatCannotBeConvertedGivesNoKind) {
    const LogCapture log;
    Type out = Type::CIRCLE;
    EXPECT_EQ(
        VrexConstraint3DPreValidator::convertComponentToGeomType(Type::CIRCLE, Component::EXTERIOR, out),
        Type::UNKNOWN);
    EXPECT_EQ(out, Type::UNKNOWN);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, "Unsupported constraint component type: EXTERIOR");
}

TEST_F(VrexConstraint3DPreValidatorTest, SetsHaveNoComponentNotEvenThemselves) {
    for (const Type type : {Type::RIGID_SET, Type::CONNECTOR, Type::PATTERN, Type::ARRAY_PATTERN,
                            Type::EQUAL_DIMENSION_ELEMENT}) {
        EXPECT_FALSE(check(make({Type::POINT, type}), Distance3D));
        expectRecorded(GEOMETRY_TYPE_ERROR, "Unsupported constraint component type: UNKNOWN");
    }
    EXPECT_FALSE(check(make({Type::POINT, Type::EVAL_SURFACE}), Distance3D));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Do not supported geometry types combination (POINT, EVAL_SURFACE)");
}

TEST_F(VrexConstraint3DPreValidatorTest, KindsWithoutCombinationsAreRefusedWhateverTheGeometries) {
    for (const auto kind : {IncidenceToCenter3D, VariableFixation3D, EqualParameter3D,
                            MateDimensionInterval3D, EqualDimension3D, MateRelation3D, Unknown}) {
        for (const Geometries& geometries :
             {Geometries{}, Geometries{nullptr}, make({Type::POINT, Type::CIRCLE})}) {
            EXPECT_FALSE(check(geometries, kind, Component::EXTERIOR, Component::MAJOR));
            expectRecorded(CONSTRAINT_TYPE_ERROR, "Constraint type isn't suppoted.");
        }
    }
}

TEST_F(VrexConstraint3DPreValidatorTest, EarlierErrorOutlivesAnUnfitCombination) {
    m_recorder.recordMessage(ID_EXISTED, "x");
    const std::string earlier = m_recorder.getErrorMessage();
    const LogCapture log;
    EXPECT_FALSE(m_validator.preCheckConstraint3DType(make({Type::POINT, Type::CONNECTOR}), Angle3D,
                                                      Component::UNKNOWN, Component::UNKNOWN));
    EXPECT_EQ(m_recorder.getErrorCode(), ID_EXISTED);
    EXPECT_EQ(m_recorder.getErrorMessage(), earlier);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, "Do not supported geometry types combination (POINT, CONNECTOR)");
}

TEST_F(VrexConstraint3DPreValidatorTest, EveryOtherRefusalReplacesAnEarlierError) {
    m_recorder.recordMessage(ID_EXISTED, "x");
    m_validator.preCheckConstraint3DType(twice(Type::LINE), Angle3D, Component::UNKNOWN, Component::UNKNOWN);
    expectRecorded(CONSTRAINT_ID_ERROR, REPEATED);
    m_validator.preCheckConstraint3DType({nullptr, nullptr}, Angle3D, Component::UNKNOWN, Component::UNKNOWN);
    expectRecorded(CONSTRAINT_ID_ERROR, INVALID);
    m_validator.preCheckFixation3DType(make({Type::CONNECTOR}), Fixation::Complete3D);
    expectRecorded(CONSTRAINT_TYPE_ERROR, "Fixation constraint isn't supported geometry type.");
    m_validator.preCheckConstraintComponent3DType(Type::POINT, Component::SPINE);
    expectRecorded(GEOMETRY_TYPE_ERROR, "Unsupported constraint component type: SPINE");
}

TEST_F(VrexConstraint3DPreValidatorTest, FixationTakesOneGeometry) {
    EXPECT_FALSE(checkFixation({}, Fixation::Complete3D));
    expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_SIZE);
    EXPECT_FALSE(checkFixation(make({Type::POINT, Type::LINE}), Fixation::Unknown));
    expectRecorded(CONSTRAINT_PARAM_ERROR, WRONG_SIZE);
}

TEST_F(VrexConstraint3DPreValidatorTest, ApertureIsNeverHeld) {
    EXPECT_FALSE(checkFixation(make({Type::CONE}), Fixation::Aperture3D));
    expectRecorded(CONSTRAINT_TYPE_ERROR, "The type of Fixation constraint is invalid.");
    EXPECT_FALSE(checkFixation(make({Type::CONNECTOR}), Fixation::Aperture3D));
    expectRecorded(CONSTRAINT_TYPE_ERROR, "The type of Fixation constraint is invalid.");
}

TEST_F(VrexConstraint3DPreValidatorTest, ValueThatIsNoTypeIsLeftOutOfTheText) {
    const Geometries triple{AnyGeometry::create(static_cast<Type>(21), 1),
                            AnyGeometry::create(Type::TYPES_COUNT, 2), AnyGeometry::create(Type::UNKNOWN, 3)};
    EXPECT_FALSE(check(triple, Symmetry3D));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Do not supported geometry types combination (TYPES_COUNT, UNKNOWN)");
    EXPECT_FALSE(check({triple[2], triple[0]}, Angle3D));
    expectRecorded(GEOMETRY_TYPE_ERROR, "Do not supported geometry types combination (UNKNOWN)");
}

TEST_F(VrexConstraint3DPreValidatorTest, EmptyListOfCombinationsAdmitsEverything) {
    const Rule nothing{Distance3D, Matching::AnyOrder, {}};
    EXPECT_TRUE(checkTypes(m_validator, {nullptr}, nothing));
}

TEST_F(VrexConstraint3DPreValidatorTest, CombinationsOfOneListHaveOneSize) {
    const VrexGeometryCombination3D list[] = {
        {Type::POINT, Type::LINE}, {Type::PLANE}, {Type::LINE, Type::LINE}};
    const Rule mixed{Distance3D, Matching::AnyOrder, list};
    EXPECT_TRUE(checkTypes(m_validator, make({Type::LINE, Type::POINT}), mixed));
    EXPECT_TRUE(m_recorder.isNoError());
    EXPECT_FALSE(checkTypes(m_validator, make({Type::LINE, Type::LINE}), mixed));
    expectRecorded(CONSTRAINT_PARAM_ERROR, "Constraint type size error.");
}

TEST_F(VrexConstraint3DPreValidatorTest, WildcardOfAListMatchesEveryType) {
    const VrexGeometryCombination3D list[] = {{Type::POINT, VrexGeometryCombination3D::ANY}};
    for (const Matching matching : {Matching::AnyOrder, Matching::ByPosition}) {
        const Rule rule{Distance3D, matching, list};
        EXPECT_TRUE(checkTypes(m_validator, make({Type::POINT, Type::CONNECTOR}), rule));
        EXPECT_FALSE(checkTypes(m_validator, make({Type::LINE, Type::CONNECTOR}), rule));
    }
}

TEST_F(VrexConstraint3DPreValidatorTest, AcceptsWithoutAllocating) {
    const auto pair = make({Type::LINE, Type::SPHERE});
    const auto triple = make({Type::POINT, Type::POINT, Type::PLANE});
    const auto lines = make({Type::LINE, Type::LINE, Type::LINE});
    const auto cone = make({Type::CONE});
    const AllocationCounter allocations;
    EXPECT_TRUE(
        m_validator.preCheckConstraint3DType(pair, Distance3D, Component::UNKNOWN, Component::CENTER));
    EXPECT_TRUE(
        m_validator.preCheckConstraint3DType(pair, Tangency3D, Component::UNKNOWN, Component::UNKNOWN));
    EXPECT_TRUE(
        m_validator.preCheckConstraint3DType(triple, Symmetry3D, Component::UNKNOWN, Component::UNKNOWN));
    EXPECT_TRUE(
        m_validator.preCheckConstraint3DType(lines, PlanarAngle3D, Component::UNKNOWN, Component::UNKNOWN));
    EXPECT_TRUE(
        m_validator.preCheckConstraint3DType(cone, HalfAngle3D, Component::UNKNOWN, Component::UNKNOWN));
    EXPECT_TRUE(m_validator.preCheckFixation3DType(cone, Fixation::Direction3D));
    EXPECT_EQ(allocations.count(), 0U);
}

} // namespace
