#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Numbered.h"
#include "support/ProbeConstraint3D.h"
#include "support/SamplesRelations.h"
#include "support/StreamEncoding.h"
#include "support/StreamObjects.h"

namespace {

using nsStreamEncoding::encoded;
using nsStreamEncoding::isEncoded;
using nsStreamObjects::block;
using nsStreamObjects::Bytes;
using nsStreamObjects::constraint;
using nsStreamObjects::dimensionTail;
using nsStreamObjects::f64;
using nsStreamObjects::flag;
using nsStreamObjects::ids;
using nsStreamObjects::join;
using nsStreamObjects::mateTail;
using nsStreamObjects::none;
using nsStreamObjects::some;
using nsStreamObjects::u32;
using nsStreamObjects::u64;
using nsStreamObjects::vector;

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
const VrexVector3DT<double> UP(0.0, 0.0, 1.0);

std::shared_ptr<VrexPoint3D> point(std::uint64_t id) { return numbered(VrexPoint3D::create(0, 0, 0), id); }
std::shared_ptr<VrexLine3D> line(std::uint64_t id) { return numbered(VrexLine3D::create({}, UP), id); }
std::shared_ptr<VrexPlane3D> plane(std::uint64_t id) { return numbered(VrexPlane3D::create({}, UP), id); }
std::shared_ptr<VrexCircle3D> circle(std::uint64_t id) {
    return numbered(VrexCircle3D::create({}, UP, 1.5), id);
}
std::shared_ptr<VrexGeometryVariable> variable(std::uint64_t id) {
    return numbered(VrexGeometryVariable::create(2.5), id);
}
std::shared_ptr<VrexConnector3D> connector(std::uint64_t id) {
    return numbered(VrexConnector3D::create(nullptr), id);
}

/// With the state that `nsStreamObjects::constraint` writes.
template <class Constraint>
std::shared_ptr<Constraint> marked(std::shared_ptr<Constraint> object, std::uint64_t id) {
    object->alignment() = VrexConstraintAlignment::Any;
    object->orientation() = VrexConstraintOrientation::Negative;
    // Left out.
    object->solveMethodStatus() = VrexSolveMethodStatus::Analytical;
    return nsStreamEncoding::marked(object, id);
}

template <class Dimension>
std::shared_ptr<Dimension> markedDimension(std::shared_ptr<Dimension> dimension, std::uint64_t id) {
    dimension->setRigid(true);
    return marked(dimension, id);
}

/// Expects the bytes of a constraint without fields of its own on these arguments.
void expectPlain(const std::shared_ptr<VrexConstraint3D>& object, std::int64_t type, const Bytes& arguments) {
    EXPECT_EQ(encoded(marked(object, 9)), constraint({type, arguments}, {}, 9)) << type;
}

void expectDimension(const std::shared_ptr<VrexDimension3D>& object, std::int64_t type,
                     const Bytes& arguments) {
    object->setValue(4.5);
    EXPECT_EQ(encoded(markedDimension(object, 9)), constraint({type, arguments}, {}, 9, dimensionTail(4.5)))
        << type;
}

TEST(VrexObjectEncoder3D, AParallelismByteForByte) {
    const auto parallelism = VrexParallelism3D::create(line(1), line(2));
    parallelism->setID(9);
    parallelism->label() = "p";
    parallelism->setDirty(false);
    parallelism->satisfiedStatus() = VrexConstraintSatisfiedStatus::Satisfied;
    parallelism->alignment() = VrexConstraintAlignment::Negative;
    parallelism->setHelpParam2({1.0, -2.0});
    const Bytes expected{
        0x30, 106,  0,    0,    0,                                                // block
        0,    0,    0,    0,                                                      // constraint
        7,    0,    0,    0,                                                      // parallelism
        0x30, 16,   0,    0,    0,                                                // arguments
        1,    0,    0,    0,    0,   0,    0,    0,    2, 0, 0, 0, 0, 0, 0, 0,    //
        0,    0,    0,    0,    0,   0,    0,    0,                               // components
        9,    0,    0,    0,    0,   0,    0,    0,                               // identifier
        0xFF, 0xFF, 0xFF, 0xFF,                                                   // status
        0,    0,    0,    0,                                                      // satisfied status
        2,    0,    0,    0,    'p', 0,                                           // label
        0,                                                                        // dirty
        2,    0,    0,    0,                                                      // alignment
        0,    0,    0,    0,                                                      // orientation
        0x30, 0,    0,    0,    0,   0x30, 0,    0,    0, 0,                      // no help points
        0x30, 0,    0,    0,    0,                                                // no help parameter 1
        0x30, 16,   0,    0,    0,                                                // help parameter 2
        0,    0,    0,    0,    0,   0,    0xF0, 0x3F, 0, 0, 0, 0, 0, 0, 0, 0xC0, //
        0,    0                                                                   // neither is fixed
    };
    EXPECT_EQ(encoded(parallelism), expected);
}

TEST(VrexObjectEncoder3D, ConstraintsWithoutFieldsOfTheirOwn) {
    expectPlain(VrexParallelism3D::create(line(1), line(2)), 7, ids({1, 2}));
    expectPlain(VrexPerpendicularity3D::create(line(1), plane(2)), 8, ids({1, 2}));
    expectPlain(VrexConcentricity3D::create(circle(1), circle(2)), 9, ids({1, 2}));
    expectPlain(VrexIncidenceToCenter3D::create(point(1), circle(2)), 10, ids({1, 2}));
    expectPlain(VrexTangency3D::create(line(1), circle(2), WHOLE, WHOLE), 11, ids({1, 2}));
    expectPlain(VrexSymmetry3D::create(point(1), point(2), plane(3)), 13, ids({1, 2, 3}));
    expectPlain(VrexMidPoint3D::create(point(1), point(2), point(3)), 14, ids({1, 2, 3}));
    expectPlain(VrexSurfaceNormal3D::create(numbered(VrexCylinder3D::create({}, UP, 1.0), 1), line(2)), 30,
                ids({1, 2}));
}

TEST(VrexObjectEncoder3D, EqualCurvePropertiesTravelByTheirType) {
    using enum VrexCurveProperty3DType;
    const auto equal = [](VrexCurveProperty3DType property) {
        return VrexEqualCurveProperty3D::create(circle(1), circle(2), property);
    };
    expectPlain(equal(EqualDirection3D), 34, ids({1, 2}));
    expectPlain(equal(EqualFirstDerivative3D), 35, ids({1, 2}));
    expectPlain(equal(EqualSecondDerivative3D), 36, ids({1, 2}));
    expectPlain(equal(EqualCurvature3D), 37, ids({1, 2}));
    expectPlain(equal(EqualCurvatureDerivative3D), 38, ids({1, 2}));
}

TEST(VrexObjectEncoder3D, DimensionsWithoutFieldsOfTheirOwn) {
    using enum VrexRadius3DType;
    const auto ellipse = numbered(VrexEllipse3D::create({}, {1.0, 0.0, 0.0}, UP, 2.0, 1.0), 2);
    expectDimension(VrexDistance3D::create(point(1), plane(2), 0.0, WHOLE, WHOLE), 0, ids({1, 2}));
    expectDimension(VrexParallelDistance3D::create(point(1), point(2), line(3), 0.0), 2, ids({1, 2, 3}));
    expectDimension(VrexAngle3D::create(line(1), line(2), 0.0), 5, ids({1, 2}));
    expectDimension(VrexPlanarAngle3D::create(line(1), line(2), plane(3), 0.0), 6, ids({1, 2, 3}));
    expectDimension(VrexRadius3D::create(circle(1), 0.0, Radius3D), 15, ids({1}));
    expectDimension(VrexRadius3D::create(ellipse, 0.0, MajorRadius3D), 16, ids({2}));
    expectDimension(VrexRadius3D::create(ellipse, 0.0, MinorRadius3D), 17, ids({2}));
    expectDimension(VrexHalfAngle3D::create(numbered(VrexCone3D::create({}, UP, 0.5), 1), 0.0), 29, ids({1}));
    expectDimension(VrexPatternValue3D::create(
                        numbered(VrexPattern3D::create(VrexPattern3DType::Linear3D, line(2), 1.0), 1), 0.0),
                    32, ids({1}));
    expectDimension(
        VrexEqualDimensionValue3D::create(numbered(VrexEqualDimensionElement3D::create(1.0), 1), 0.0), 40,
        ids({1}));
}

/// Its winding angle is left out.
TEST(VrexObjectEncoder3D, ACurveLengthIsADimensionLikeOthers) {
    const auto length = VrexCurveLength3D::create(point(1), point(2), circle(3), 0.0);
    length->setWindingAngle(7.0);
    expectDimension(length, 33, ids({1, 2, 3}));
}

TEST(VrexObjectEncoder3D, ADimensionEndsWithValueVariableAndLimits) {
    const auto distance =
        marked(VrexDistance3D::create(point(1), plane(2), 4.5, VrexGeometryComponentType::CENTER,
                                      VrexGeometryComponentType::EXTERIOR),
               9);
    distance->setLimits({std::nullopt, 9.5});
    const nsStreamObjects::Head head{0, ids({1, 2}), 1, 8};
    EXPECT_EQ(encoded(distance),
              constraint(head, {}, 9, join({f64(4.5), flag(false), none(), none(), some(9.5)})));
    // The variable is no argument, and its value is that of the dimension.
    const auto bound = variable(3);
    distance->bindVariable(bound);
    distance->setLimits({-1.5, std::nullopt});
    EXPECT_EQ(encoded(distance),
              constraint(head, {}, 9, join({f64(2.5), flag(false), ids({3}), some(-1.5), none()})));
}

TEST(VrexObjectEncoder3D, ADirectionDistanceHasItsDirectionAsGiven) {
    const auto distance =
        markedDimension(VrexDirectionDistance3D::create(point(1), point(2), {3.0, -4.0, 0.0}, 4.5), 9);
    EXPECT_EQ(encoded(distance), constraint({1, ids({1, 2})}, vector(3.0, -4.0, 0.0), 9, dimensionTail(4.5)));
}

TEST(VrexObjectEncoder3D, TypesStandBehindTheComponents) {
    using enum VrexGeometryComponentType;
    EXPECT_EQ(
        encoded(marked(
            VrexIncidence3D::create(point(1), circle(2), VrexIncidence3DType::ToSpine, UNKNOWN, CENTER), 9)),
        constraint({3, ids({1, 2}), 0, 1}, u32(1), 9));
    EXPECT_EQ(
        encoded(marked(
            VrexIncidence3D::create(point(1), circle(2), VrexIncidence3DType::Default, UNKNOWN, UNKNOWN), 9)),
        constraint({3, ids({1, 2})}, u32(-1), 9));
    EXPECT_EQ(encoded(marked(VrexFixation3D::create(circle(1), VrexFixation3DType::Radius3D), 9)),
              constraint({4, ids({1})}, u32(3), 9));
    EXPECT_EQ(encoded(marked(VrexEqualRadius3D::create(circle(1), VrexRadius3DType::Radius3D, circle(2),
                                                       VrexRadius3DType::MinorRadius3D, MAJOR, MINOR),
                             9)),
              constraint({18, ids({1, 2}), 6, 7}, join({u32(0), u32(2)}), 9));
}

TEST(VrexObjectEncoder3D, AnInstanceHasABlockOfCoefficients) {
    const auto pattern = numbered(VrexPattern3D::create(VrexPattern3DType::Linear3D, line(5), 1.0), 4);
    const auto patterns = numbered(VrexArrayPattern3D::create({pattern}), 3);
    const auto instance = marked(VrexInstance3D::create(point(1), point(2), patterns, {-2}), 9);
    EXPECT_EQ(encoded(instance), constraint({31, ids({1, 2, 3})}, block(u32(-2)), 9));
    instance->setCoefficients({1, 2, 3});
    EXPECT_EQ(encoded(instance), constraint({31, ids({1, 2, 3})}, block(join({u32(1), u32(2), u32(3)})), 9));
    instance->setCoefficients({});
    EXPECT_EQ(encoded(instance), constraint({31, ids({1, 2, 3})}, none(), 9));
}

TEST(VrexObjectEncoder3D, AnEqualDimensionNamesItsDimensions) {
    const auto distance = [](std::uint64_t id) {
        return numbered(VrexDistance3D::create(point(1), point(2), 1.0, WHOLE, WHOLE), id);
    };
    const auto element = numbered(VrexEqualDimensionElement3D::create(1.5), 3);
    EXPECT_EQ(encoded(marked(VrexEqualDimension3D::create({distance(5), nullptr, distance(6)}, element), 9)),
              constraint({39, ids({3})}, ids({5, 6}), 9));
    EXPECT_EQ(encoded(marked(VrexEqualDimension3D::create({}, nullptr), 9)),
              constraint({39, none()}, none(), 9));
}

TEST(VrexObjectEncoder3D, AnEqualParameterNamesItsConstraintsAndPairs) {
    const auto shared = circle(1);
    const auto first =
        numbered(VrexIncidence3D::create(point(2), shared, VrexIncidence3DType::Default, WHOLE, WHOLE), 5);
    const auto second = numbered(VrexDistance3D::create(shared, point(3), 1.0, WHOLE, WHOLE), 6);
    EXPECT_EQ(encoded(marked(VrexEqualParameter3D::create(first, {8, 9}, second, {6, 7}), 9)),
              constraint({19, ids({1})}, join({ids({5, 6}), u32(8), u32(9), u32(6), u32(7)}), 9));
}

TEST(VrexObjectEncoder3D, AMateRelationHasTwoIndicesAndTheRatio) {
    const auto mate = [](std::uint64_t id) {
        return numbered(VrexSliderMate3D::create(connector(1), connector(2), {}), id);
    };
    const auto relation = marked(VrexMateRelation3D::create({mate(5), mate(6)}, {1, 0}, -2.5), 9);
    EXPECT_EQ(encoded(relation), constraint({41, none()}, join({ids({5, 6}), u64(1), u64(0), f64(-2.5)}), 9));
    relation->setMateParameterIndexs({1});
    EXPECT_FALSE(isEncoded(relation));
    relation->setMateParameterIndexs({1, 0, 2});
    EXPECT_FALSE(isEncoded(relation));
}

/// The variable stands where the arguments of others do.
TEST(VrexObjectEncoder3D, BindingsNameTheirVariable) {
    EXPECT_EQ(encoded(marked(VrexVariableFixation3D::create(variable(3)), 9)),
              constraint({12, ids({3})}, {}, 9));
    EXPECT_EQ(encoded(marked(VrexVariableFixation3D::create(nullptr), 9)), constraint({12, none()}, {}, 9));
    // Limits, index and type are left out.
    const auto interval = [](const std::shared_ptr<VrexGeometryVariable>& bound) {
        return marked(VrexMateDimensionInterval3D::create(bound, {-2.0, 3.0}, 1,
                                                          VrexMateDimensionInterval3DType::LinearDimension3D),
                      9);
    };
    EXPECT_EQ(encoded(interval(variable(3))), constraint({20, ids({3})}, {}, 9));
    EXPECT_EQ(encoded(interval(nullptr)), constraint({20, none()}, {}, 9));
}

/// One record a degree, then the empty block; a mate without degrees has two empty blocks.
template <class Mate>
void expectMate(const std::shared_ptr<Mate>& mate, std::int64_t type, std::initializer_list<double> values) {
    std::uint64_t index = 0;
    ASSERT_EQ(mate->getDimensionSize(), values.size());
    for (const double value : values) {
        mate->getDimension(index).value = value;
        mate->getDimension(index).limits = {};
        mate->getDimension(index++).setFixed(true);
    }
    EXPECT_EQ(encoded(marked(mate, 9)), constraint({type, ids({1, 2})}, {}, 9, mateTail(values))) << type;
}

TEST(VrexObjectEncoder3D, MatesHaveARecordADegree) {
    const auto a = connector(1);
    const auto b = connector(2);
    expectMate(VrexSliderMate3D::create(a, b, {}), 21, {1.5});
    expectMate(VrexFastenedMate3D::create(a, b), 22, {});
    expectMate(VrexCylinderMate3D::create(a, b, {}, {}), 23, {1.5, 2.5});
    expectMate(VrexRevoluteMate3D::create(a, b, {}), 24, {1.5});
    expectMate(VrexPlanarMate3D::create(a, b, {}, {}, {}), 25, {1.5, 2.5, 3.5});
    expectMate(VrexPinSlotMate3D::create(a, b, {}, {}), 26, {1.5, 2.5});
    expectMate(VrexParallelMate3D::create(a, b, {}, {}, {}, {}), 27, {1.5, 2.5, 3.5, 4.5});
    expectMate(VrexBallMate3D::create(a, b, {}), 28, {1.5});
}

TEST(VrexObjectEncoder3D, TheLimitsOfAMateStandBeforeItsValue) {
    const auto mate = marked(VrexSliderMate3D::create(connector(1), connector(2), {-1.0, 2.0}), 9);
    mate->getDimension(0).value = 0.5;
    const Bytes record = block(join({some(-1.0), some(2.0), f64(0.5), flag(false)}));
    EXPECT_EQ(encoded(mate), constraint({21, ids({1, 2})}, {}, 9, join({block(record), none()})));
}

TEST(VrexObjectEncoder3D, HelpValuesAreOptions) {
    const auto incidence = marked(VrexIncidence3D::create(point(1), numbered(makeSample<VrexEllipse3D>(), 2),
                                                          VrexIncidence3DType::Default, WHOLE, WHOLE),
                                  9);
    incidence->setHelpPoint1({1.0, 2.0, 3.0});
    incidence->setHelpParam1({0.25, 0.5});
    incidence->fixHelpParameter2(true);
    const Bytes help = join({block(vector(1.0, 2.0, 3.0)), none(), block(join({f64(0.25), f64(0.5)})), none(),
                             flag(false), flag(true)});
    EXPECT_EQ(encoded(incidence), constraint({3, ids({1, 2})}, u32(-1), 9, {}, help));
}

TEST(VrexObjectEncoder3D, AMissingArgumentIsLeftOut) {
    expectPlain(VrexParallelism3D::create(line(1), nullptr), 7, ids({1}));
    expectPlain(VrexParallelism3D::create(nullptr, nullptr), 7, none());
}

/// A class of the application is written as what it derives from.
TEST(VrexObjectEncoder3D, ADerivedConstraintIsWrittenByItsType) {
    expectPlain(ProbeConstraint3D::of(point(1), line(2)), 0, ids({1, 2}));
}

} // namespace
