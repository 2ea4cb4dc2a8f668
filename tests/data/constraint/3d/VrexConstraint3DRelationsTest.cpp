// What the constraints without a value have in common, one row for each class and kind.

#include <memory>
#include <typeinfo>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "support/SamplesRelations.h"
#include "support/TypeChecks.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using Arguments = std::vector<std::shared_ptr<VrexBaseGeometry>>;
using Component = VrexGeometryComponentType;

struct Case {
    std::shared_ptr<VrexConstraint3D> constraint;
    VrexConstraint3DType type;
    int doc;
    Arguments arguments;
    bool helpPoint = false;
    bool helpParameter = false;
    Component component1 = Component::UNKNOWN;
    Component component2 = Component::UNKNOWN;
};

/// The relations of two geometries and no third.
std::vector<Case> pairCases() {
    using enum VrexConstraint3DType;
    const auto point = makeSample<VrexPoint3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto torus = makeSample<VrexTorus3D>();
    constexpr auto AXIS = Component::AXIS;
    constexpr auto SPINE = Component::SPINE;
    return {
        {VrexIncidence3D::create(circle, torus, VrexIncidence3DType::Default, AXIS, SPINE),
         Incidence3D,
         1,
         {circle, torus},
         true,
         true,
         AXIS,
         SPINE},
        {VrexTangency3D::create(torus, circle, SPINE, AXIS),
         Tangency3D,
         1,
         {torus, circle},
         true,
         true,
         SPINE,
         AXIS},
        {VrexParallelism3D::create(circle, torus), Parallelism3D, 2, {circle, torus}},
        {VrexPerpendicularity3D::create(circle, torus), Perpendicularity3D, 1, {circle, torus}},
        {VrexConcentricity3D::create(point, torus), Concentricity3D, 2, {point, torus}},
        {VrexIncidenceToCenter3D::create(point, torus), IncidenceToCenter3D, 3, {point, torus}},
        {VrexEqualRadius3D::create(circle, VrexRadius3DType::Radius3D, torus, VrexRadius3DType::MajorRadius3D,
                                   Component::UNKNOWN, Component::MAJOR),
         EqualRadius3D,
         1,
         {circle, torus},
         false,
         false,
         Component::UNKNOWN,
         Component::MAJOR},
        {VrexSurfaceNormal3D::create(torus, circle), SurfaceNormal3D, 1, {torus, circle}},
    };
}

/// Those of one, of three or of none.
std::vector<Case> otherCases() {
    using enum VrexConstraint3DType;
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto plane = makeSample<VrexPlane3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto element = makeSample<VrexEqualDimensionElement3D>();
    const auto length = VrexCurveLength3D::create(point, point, circle, 1.0);
    return {
        {VrexFixation3D::create(line, VrexFixation3DType::Direction3D), Fixation3D, 2, {line}},
        {VrexVariableFixation3D::create(variable), VariableFixation3D, 1, {variable}},
        {VrexSymmetry3D::create(line, point, plane), Symmetry3D, 4, {line, point, plane}},
        {VrexMidPoint3D::create(plane, plane, point), MidPoint3D, 1, {plane, plane, point}},
        {VrexEqualParameter3D::create(length, {6, 7}, length, {8, 9}), EqualParameter3D, 1, {circle}},
        {VrexEqualDimension3D::create({length}, element), EqualDimension3D, 1, {element}},
    };
}

std::vector<Case> curvePropertyCases() {
    using enum VrexConstraint3DType;
    using Property = VrexCurveProperty3DType;
    const auto line = makeSample<VrexLine3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto row = [&](Property property, VrexConstraint3DType type) {
        return Case{
            VrexEqualCurveProperty3D::create(line, circle, property), type, 1, {line, circle}, false, true};
    };
    return {
        row(Property::EqualDirection3D, EqualDirection3D),
        row(Property::EqualFirstDerivative3D, EqualFirstDerivative3D),
        row(Property::EqualSecondDerivative3D, EqualSecondDerivative3D),
        row(Property::EqualCurvature3D, EqualCurvature3D),
        row(Property::EqualCurvatureDerivative3D, EqualCurvatureDerivative3D),
    };
}

std::vector<Case> allCases() {
    auto cases = pairCases();
    for (const auto& more : {otherCases(), curvePropertyCases()}) {
        cases.insert(cases.end(), more.begin(), more.end());
    }
    return cases;
}

TEST(VrexConstraint3DRelations, TableOfTheClasses) {
    for (const Case& row : allCases()) {
        SCOPED_TRACE(nsEnum::toText(row.type));
        EXPECT_EQ(row.constraint->type(), row.type);
        EXPECT_EQ(row.constraint->doc(), row.doc);
        EXPECT_EQ(row.constraint->isHelpPointSupported(), row.helpPoint);
        EXPECT_EQ(row.constraint->isHelpParameterSupported(), row.helpParameter);
        EXPECT_EQ(row.constraint->getGeomComponentType(1), row.component1);
        EXPECT_EQ(row.constraint->getGeomComponentType(2), row.component2);
        EXPECT_FALSE(row.constraint->isCompleteFixed());
    }
}

TEST(VrexConstraint3DRelations, ConstantDegreesOverAllTypes) {
    constexpr auto WHOLE = Component::UNKNOWN;
    constexpr auto RADIUS = VrexRadius3DType::Radius3D;
    const auto point = makeSample<VrexPoint3D>();
    const auto torus = makeSample<VrexTorus3D>();
    nsTypeChecks::forAllPairs([&](int first, int second) {
        const auto one = nsTypeChecks::FreedomByType::create(first);
        const auto two = nsTypeChecks::FreedomByType::create(second);
        EXPECT_EQ(VrexParallelism3D::create(one, two)->doc(), 2);
        EXPECT_EQ(VrexPerpendicularity3D::create(one, two)->doc(), 1);
        EXPECT_EQ(VrexIncidenceToCenter3D::create(one, two)->doc(), 3);
        EXPECT_EQ(VrexMidPoint3D::create(one, two, point)->doc(), 1);
        EXPECT_EQ(VrexEqualRadius3D::create(one, RADIUS, two, RADIUS, WHOLE, WHOLE)->doc(), 1);
        EXPECT_EQ(VrexSurfaceNormal3D::create(torus, two)->doc(), 1);
        for (int property = 0; property < 5; ++property) {
            EXPECT_EQ(VrexEqualCurveProperty3D::create(one, two, VrexCurveProperty3DType{property})->doc(),
                      1);
        }
    });
}

TEST(VrexConstraint3DRelations, NewConstraintHoldsItsArgumentsInOrder) {
    for (const Case& row : allCases()) {
        SCOPED_TRACE(nsEnum::toText(row.type));
        EXPECT_THAT(row.constraint->getGeometries(), ElementsAreArray(row.arguments));
        EXPECT_EQ(row.constraint->getGeometries().capacity(), row.arguments.size());
        EXPECT_TRUE(row.constraint->areGeometriesChanged());
        EXPECT_EQ(row.constraint->getID(), 0U);
        EXPECT_EQ(row.constraint->getParent(), nullptr);
        EXPECT_EQ(row.constraint->alignment(), VrexConstraintAlignment::Current);
        EXPECT_EQ(row.constraint->orientation(), VrexConstraintOrientation::Current);
    }
}

TEST(VrexConstraint3DRelations, OnlyThoseOfConstraintsHaveConstraints) {
    for (const Case& row : allCases()) {
        SCOPED_TRACE(nsEnum::toText(row.type));
        const std::size_t expected = row.type == VrexConstraint3DType::EqualParameter3D   ? 2
                                     : row.type == VrexConstraint3DType::EqualDimension3D ? 1
                                                                                          : 0;
        EXPECT_EQ(row.constraint->getConstraints().size(), expected);
    }
}

TEST(VrexConstraint3DRelations, RigidIsNotStored) {
    for (const Case& row : allCases()) {
        SCOPED_TRACE(nsEnum::toText(row.type));
        row.constraint->setRigid(true);
        EXPECT_FALSE(row.constraint->isRigid());
    }
}

TEST(VrexConstraint3DRelations, SatisfyMovesNothing) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    const auto plane = VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    const auto incidence = VrexIncidence3D::create(point, plane, VrexIncidence3DType::Default,
                                                   Component::UNKNOWN, Component::UNKNOWN);
    incidence->satisfy();
    EXPECT_EQ(point->getPosition().z(), 3.0);
    EXPECT_EQ(plane->getOrigin().z(), 0.0);
}

TEST(VrexConstraint3DRelations, NullGeometriesAreStoredAndReadWithoutALine) {
    constexpr auto WHOLE = Component::UNKNOWN;
    constexpr auto RADIUS = VrexRadius3DType::Radius3D;
    struct Row {
        std::shared_ptr<VrexConstraint3D> constraint;
        std::size_t count;
        int doc;
    };
    const Row rows[] = {
        {VrexIncidence3D::create(nullptr, nullptr, VrexIncidence3DType::Default, WHOLE, WHOLE), 2, 0},
        {VrexTangency3D::create(nullptr, nullptr, WHOLE, WHOLE), 2, 0},
        {VrexFixation3D::create(nullptr, VrexFixation3DType::Complete3D), 1, 0},
        {VrexParallelism3D::create(nullptr, nullptr), 2, 2},
        {VrexPerpendicularity3D::create(nullptr, nullptr), 2, 1},
        {VrexConcentricity3D::create(nullptr, nullptr), 2, 4},
        {VrexIncidenceToCenter3D::create(nullptr, nullptr), 2, 3},
        {VrexSymmetry3D::create(nullptr, nullptr, nullptr), 3, 0},
        {VrexMidPoint3D::create(nullptr, nullptr, nullptr), 3, 1},
        {VrexEqualRadius3D::create(nullptr, RADIUS, nullptr, RADIUS, WHOLE, WHOLE), 2, 1},
        {VrexEqualParameter3D::create(nullptr, nullptr, nullptr), 1, 1},
        {VrexEqualCurveProperty3D::create(nullptr, nullptr, VrexCurveProperty3DType::EqualDirection3D), 2, 1},
        {VrexSurfaceNormal3D::create(nullptr, nullptr), 2, 1},
        {VrexEqualDimension3D::create({}, nullptr), 1, 1},
    };
    const LogCapture log;
    for (const Row& row : rows) {
        SCOPED_TRACE(nsEnum::toText(row.constraint->type()));
        EXPECT_EQ(row.constraint->getGeometries(), Arguments(row.count));
        EXPECT_EQ(row.constraint->doc(), row.doc);
        EXPECT_EQ(row.constraint->getGeometries3DCount(), 0U);
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(VrexConstraint3DRelations, UpdateKeepsTheArgumentsAndTakesTheRest) {
    for (const Case& row : allCases()) {
        SCOPED_TRACE(nsEnum::toText(row.type));
        const auto other = std::dynamic_pointer_cast<VrexConstraint3D>(row.constraint->makeCopy());
        other->setID(77);
        other->alignment() = VrexConstraintAlignment::Any;
        other->setHelpPoint2({4.0, 5.0, 6.0});
        row.constraint->setID(5);
        row.constraint->updateFrom(other);
        EXPECT_EQ(row.constraint->getID(), 5U);
        EXPECT_EQ(row.constraint->alignment(), VrexConstraintAlignment::Any);
        ASSERT_TRUE(row.constraint->helpPoint2().has_value());
        EXPECT_EQ(row.constraint->helpPoint2()->z(), 6.0);
        EXPECT_THAT(row.constraint->getGeometries(), ElementsAreArray(row.arguments));
    }
}

TEST(VrexConstraint3DRelations, UpdateFromAnotherClassThrowsAndChangesNothing) {
    const auto angle = makeSample<VrexAngle3D>();
    for (const Case& row : allCases()) {
        SCOPED_TRACE(nsEnum::toText(row.type));
        EXPECT_THROW(row.constraint->updateFrom(angle), std::bad_cast);
        EXPECT_EQ(row.constraint->type(), row.type);
        EXPECT_EQ(row.constraint->alignment(), VrexConstraintAlignment::Current);
        EXPECT_THAT(row.constraint->getGeometries(), ElementsAreArray(row.arguments));
    }
}

} // namespace
