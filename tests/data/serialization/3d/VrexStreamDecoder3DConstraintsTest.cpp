#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "support/SamplesRelations.h"
#include "support/StreamObjects.h"

namespace nsStreamObjects {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;

/// Expects what `common` writes.
void expectCommon(VrexBaseConstraint& constraint, std::uint64_t id) {
    EXPECT_EQ(constraint.getID(), id);
    EXPECT_EQ(constraint.status(), VrexConstraintStatus::BetweenSetMembers);
    EXPECT_EQ(constraint.satisfiedStatus(), VrexConstraintSatisfiedStatus::NotSatisfied);
    EXPECT_EQ(constraint.solveMethodStatus(), VrexSolveMethodStatus::Unknown);
    EXPECT_EQ(constraint.label(), "mark");
    EXPECT_FALSE(constraint.isDirty());
}

/// Reads what the constraint refers to, then the constraint. Expects its class, its type, and these arguments
/// among those objects.
template <class Constraint>
std::shared_ptr<Constraint> readConstraint(const std::vector<Bytes>& before, VrexConstraint3DType type,
                                           const std::vector<std::uint64_t>& arguments, const Bytes& bytes) {
    Bytes all;
    for (const Bytes& each : before) {
        nsStreamProbe::append(all, each);
    }
    nsStreamProbe::append(all, bytes);
    Reader reader(all);
    reader.skip(static_cast<int>(before.size()));
    auto read = reader.last<Constraint>();
    if (read == nullptr) {
        return nullptr;
    }
    EXPECT_EQ(read->type(), type);
    Geometries expected;
    for (const std::uint64_t id : arguments) {
        expected.push_back(reader.decoder().findGeometry(id));
    }
    EXPECT_THAT(read->getGeometries(), testing::ContainerEq(expected));
    EXPECT_EQ(read->alignment(), VrexConstraintAlignment::Any);
    EXPECT_EQ(read->orientation(), VrexConstraintOrientation::Negative);
    expectCommon(*read, 5);
    return read;
}

template <class Constraint>
void expectPair(VrexConstraint3DType type) {
    readConstraint<Constraint>({line(1), plane(2)}, type, {2, 1},
                               constraint({static_cast<int>(type), ids({2, 1})}, {}, 5));
}

TEST(VrexStreamDecoder3D, ReadsTheKindsOfTwoGeometriesWithoutFields) {
    using enum VrexConstraint3DType;
    expectPair<VrexParallelism3D>(Parallelism3D);
    expectPair<VrexPerpendicularity3D>(Perpendicularity3D);
    expectPair<VrexConcentricity3D>(Concentricity3D);
    expectPair<VrexIncidenceToCenter3D>(IncidenceToCenter3D);
    expectPair<VrexTangency3D>(Tangency3D);
}

TEST(VrexStreamDecoder3D, TheCurvePropertyFollowsFromTheType) {
    using enum VrexConstraint3DType;
    using Property = VrexCurveProperty3DType;
    const std::pair<VrexConstraint3DType, Property> rows[] = {
        {EqualDirection3D, Property::EqualDirection3D},
        {EqualFirstDerivative3D, Property::EqualFirstDerivative3D},
        {EqualSecondDerivative3D, Property::EqualSecondDerivative3D},
        {EqualCurvature3D, Property::EqualCurvature3D},
        {EqualCurvatureDerivative3D, Property::EqualCurvatureDerivative3D},
    };
    for (const auto& [type, property] : rows) {
        const auto read = readConstraint<VrexEqualCurveProperty3D>(
            {line(1), circle(2)}, type, {1, 2}, constraint({static_cast<int>(type), ids({1, 2})}, {}, 5));
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(read->getCurveProperty(), property);
    }
}

TEST(VrexStreamDecoder3D, ReadsTheKindsOfThreeGeometriesWithoutFields) {
    using enum VrexConstraint3DType;
    readConstraint<VrexSymmetry3D>({point(1), point(2), plane(3)}, Symmetry3D, {1, 2, 3},
                                   constraint({13, ids({1, 2, 3})}, {}, 5));
    readConstraint<VrexMidPoint3D>({line(1), line(2), point(3)}, MidPoint3D, {1, 2, 3},
                                   constraint({14, ids({1, 2, 3})}, {}, 5));
}

TEST(VrexStreamDecoder3D, ReadsASurfaceNormal) {
    const Bytes cylinder = geometry(5, join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0), f64(1.0)}), 1);
    readConstraint<VrexSurfaceNormal3D>({cylinder, line(2)}, VrexConstraint3DType::SurfaceNormal3D, {1, 2},
                                        constraint({30, ids({1, 2})}, {}, 5));
}

TEST(VrexStreamDecoder3D, ReadsComponentsAndHelpData) {
    const Bytes data = join({block(vector(1.0, 2.0, 3.0)), none(), block(join({f64(0.25), f64(0.5)})), none(),
                             flag(true), flag(false)});
    const auto read =
        readConstraint<VrexTangency3D>({circle(1), circle(2)}, VrexConstraint3DType::Tangency3D, {1, 2},
                                       constraint({11, ids({1, 2}), 3, 8}, {}, 5, {}, data));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getGeomComponentType(1), VrexGeometryComponentType::PLANE);
    EXPECT_EQ(read->getGeomComponentType(2), VrexGeometryComponentType::EXTERIOR);
    ASSERT_TRUE(read->helpPoint1().has_value());
    EXPECT_EQ(read->helpPoint1()->z(), 3.0);
    EXPECT_FALSE(read->helpPoint2().has_value());
    ASSERT_TRUE(read->helpParam1().has_value());
    EXPECT_EQ(read->helpParam1()->y(), 0.5);
    EXPECT_FALSE(read->helpParam2().has_value());
}

TEST(VrexStreamDecoder3D, ReadsTheFlagsOfHelpParameters) {
    const Bytes ellipse = geometry(10,
                                   join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0), vector(1.0, 0.0, 0.0),
                                         f64(2.0), f64(1.0), none(), none()}),
                                   1);
    for (const bool isFirst : {true, false}) {
        const Bytes data = join({none(), none(), none(), none(), flag(isFirst), flag(!isFirst)});
        const auto read =
            readConstraint<VrexTangency3D>({ellipse, point(2)}, VrexConstraint3DType::Tangency3D, {1, 1},
                                           constraint({11, ids({1, 1})}, {}, 5, {}, data));
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(read->fixHelpParameter1(), isFirst);
        EXPECT_EQ(read->fixHelpParameter2(), !isFirst);
    }
}

TEST(VrexStreamDecoder3D, KindsThatAreCreatedWithoutComponentsGetThem) {
    const auto read =
        readConstraint<VrexParallelism3D>({circle(1), line(2)}, VrexConstraint3DType::Parallelism3D, {1, 2},
                                          constraint({7, ids({1, 2}), 2, 0}, {}, 5));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getGeomComponentType(1), VrexGeometryComponentType::AXIS);
    EXPECT_EQ(read->getGeomComponentType(2), VrexGeometryComponentType::UNKNOWN);
}

TEST(VrexStreamDecoder3D, ComponentsThatASetterWouldRefuseSurvive) {
    const auto read =
        readConstraint<VrexParallelism3D>({line(1), line(2)}, VrexConstraint3DType::Parallelism3D, {1, 2},
                                          constraint({7, ids({1, 2}), 1, 4}, {}, 5));
    ASSERT_NE(read, nullptr);
    read->setGeomComponentType(1, VrexGeometryComponentType::SPINE); // a line has none
    EXPECT_EQ(read->getGeomComponentType(1), VrexGeometryComponentType::CENTER);
    EXPECT_EQ(read->getGeomComponentType(2), VrexGeometryComponentType::SPINE);
}

TEST(VrexStreamDecoder3D, ReadsAnIncidence) {
    const auto read =
        readConstraint<VrexIncidence3D>({point(1), circle(2)}, VrexConstraint3DType::Incidence3D, {1, 2},
                                        constraint({3, ids({1, 2}), 0, 4}, u32(-1), 5));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getIncidenceType(), VrexIncidence3DType::Default);
    EXPECT_EQ(read->getGeomComponentType(2), VrexGeometryComponentType::SPINE);
}

TEST(VrexStreamDecoder3D, ReadsAFixation) {
    const auto read = readConstraint<VrexFixation3D>({line(1)}, VrexConstraint3DType::Fixation3D, {1},
                                                     constraint({4, ids({1})}, u32(7), 5));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getFixationType(), VrexFixation3DType::EllipseDirection3D);
}

TEST(VrexStreamDecoder3D, ReadsEqualRadii) {
    const auto read =
        readConstraint<VrexEqualRadius3D>({circle(1), circle(2)}, VrexConstraint3DType::EqualRadius3D, {1, 2},
                                          constraint({18, ids({1, 2}), 6, 7}, join({u32(2), u32(1)}), 5));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getRadiusType(0), VrexRadius3DType::MinorRadius3D);
    EXPECT_EQ(read->getRadiusType(1), VrexRadius3DType::MajorRadius3D);
    EXPECT_EQ(read->getGeomComponentType(1), VrexGeometryComponentType::MAJOR);
    EXPECT_EQ(read->getGeomComponentType(2), VrexGeometryComponentType::MINOR);
}

TEST(VrexStreamDecoder3D, ReadsTheFixationOfAVariable) {
    readConstraint<VrexVariableFixation3D>({variable(1, 2.0)}, VrexConstraint3DType::VariableFixation3D, {1},
                                           constraint({12, ids({1})}, {}, 5));
}

TEST(VrexStreamDecoder3D, ReadsAnIntervalWithAndWithoutVariable) {
    using enum VrexConstraint3DType;
    const auto read = readConstraint<VrexMateDimensionInterval3D>({variable(1, 2.0)}, MateDimensionInterval3D,
                                                                  {1}, constraint({20, ids({1})}, {}, 5));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->variable()->getValue(), 2.0);
    EXPECT_EQ(read->limit(), VrexDimensionLimits());
    const auto without = readConstraint<VrexMateDimensionInterval3D>({}, MateDimensionInterval3D, {},
                                                                     constraint({20, none()}, {}, 5));
    ASSERT_NE(without, nullptr);
    EXPECT_EQ(without->variable(), nullptr);
}

template <class Dimension>
std::shared_ptr<Dimension> expectDimension(const std::vector<Bytes>& before, std::int64_t type,
                                           const std::vector<std::uint64_t>& arguments,
                                           const Bytes& fields = {}) {
    Bytes list;
    for (const std::uint64_t id : arguments) {
        nsStreamProbe::append(list, u64(id));
    }
    const auto read =
        readConstraint<Dimension>(before, static_cast<VrexConstraint3DType>(type), arguments,
                                  constraint({type, block(list)}, fields, 5, dimensionTail(-2.5)));
    if (read != nullptr) {
        EXPECT_EQ(read->value(), -2.5);
        EXPECT_TRUE(read->isRigid());
        EXPECT_EQ(read->getVariable(), nullptr);
        EXPECT_EQ(read->getLimits(), VrexDimensionLimits());
    }
    return read;
}

TEST(VrexStreamDecoder3D, ReadsTheDimensions) {
    const Bytes cone = geometry(9, join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0), f64(0.5)}), 1);
    const Bytes pattern = geometry(17, join({u32(0), u64(1), f64(2.0)}), 2);
    expectDimension<VrexDistance3D>({point(1), line(2)}, 0, {2, 1});
    expectDimension<VrexParallelDistance3D>({point(1), point(2), line(3)}, 2, {1, 2, 3});
    expectDimension<VrexAngle3D>({line(1), plane(2)}, 5, {1, 2});
    expectDimension<VrexPlanarAngle3D>({line(1), line(2), plane(3)}, 6, {1, 2, 3});
    expectDimension<VrexHalfAngle3D>({cone}, 29, {1});
    expectDimension<VrexPatternValue3D>({line(1), pattern}, 32, {2});
    expectDimension<VrexCurveLength3D>({point(1), point(2), circle(3)}, 33, {1, 2, 3});
    expectDimension<VrexEqualDimensionValue3D>({geometry(19, f64(1.5), 1)}, 40, {1});
}

TEST(VrexStreamDecoder3D, ReadsADirectionDistance) {
    const auto read =
        expectDimension<VrexDirectionDistance3D>({point(1), point(2)}, 1, {1, 2}, vector(0.0, 3.0, 4.0));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getDirectionVector().y(), 3.0);
    EXPECT_EQ(read->getDirectionVector().z(), 4.0);
}

TEST(VrexStreamDecoder3D, TheKindOfARadiusFollowsFromTheType) {
    const auto radius = expectDimension<VrexRadius3D>({circle(1)}, 15, {1});
    const auto major = expectDimension<VrexRadius3D>({circle(1)}, 16, {1});
    const auto minor = expectDimension<VrexRadius3D>({circle(1)}, 17, {1});
    ASSERT_TRUE(radius != nullptr && major != nullptr && minor != nullptr);
    EXPECT_EQ(radius->getRadiusType(), VrexRadius3DType::Radius3D);
    EXPECT_EQ(major->getRadiusType(), VrexRadius3DType::MajorRadius3D);
    EXPECT_EQ(minor->getRadiusType(), VrexRadius3DType::MinorRadius3D);
}

TEST(VrexStreamDecoder3D, ReadsTheComponentsOfADistance) {
    const auto read =
        readConstraint<VrexDistance3D>({circle(1), point(2)}, VrexConstraint3DType::Distance3D, {1, 2},
                                       constraint({0, ids({1, 2}), 1, 8}, {}, 5, dimensionTail(1.0)));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getGeomComponentType(1), VrexGeometryComponentType::CENTER);
    EXPECT_EQ(read->getGeomComponentType(2), VrexGeometryComponentType::EXTERIOR);
}

TEST(VrexStreamDecoder3D, ABoundVariableIsTheValueAndTheNumberStaysBehind) {
    const Bytes tail = join({f64(4.5), flag(false), ids({3}), some(-1.5), some(9.5)});
    const auto read = readConstraint<VrexDistance3D>({point(1), point(2), variable(3, 8.0)},
                                                     VrexConstraint3DType::Distance3D, {1, 2, 3},
                                                     constraint({0, ids({1, 2})}, {}, 5, tail));
    ASSERT_NE(read, nullptr);
    ASSERT_NE(read->getVariable(), nullptr);
    EXPECT_EQ(read->getVariable()->getID(), 3U);
    EXPECT_EQ(read->value(), 8.0);
    EXPECT_FALSE(read->isRigid());
    EXPECT_EQ(read->getLimits(), VrexDimensionLimits(-1.5, 9.5));
    read->bindVariable(nullptr);
    EXPECT_EQ(read->value(), 4.5);
}

template <class Mate>
void expectMate(std::int64_t type, std::initializer_list<double> values) {
    const auto read = readConstraint<Mate>({rigidSet(1, {}), connector(2, 1), connector(3, 0)},
                                           static_cast<VrexConstraint3DType>(type), {2, 3},
                                           constraint({type, ids({2, 3})}, {}, 5, mateTail(values)));
    ASSERT_NE(read, nullptr);
    ASSERT_EQ(read->getDimensionSize(), values.size());
    for (std::uint64_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(read->getDimension(i).value, values.begin()[i]);
        EXPECT_TRUE(read->getDimension(i).fixed());
        EXPECT_EQ(read->getDimension(i).limits, VrexDimensionLimits());
    }
}

TEST(VrexStreamDecoder3D, ReadsTheMates) {
    expectMate<VrexSliderMate3D>(21, {0.5});
    expectMate<VrexFastenedMate3D>(22, {});
    expectMate<VrexCylinderMate3D>(23, {0.5, 1.5});
    expectMate<VrexRevoluteMate3D>(24, {0.5});
    expectMate<VrexPlanarMate3D>(25, {0.5, 1.5, 2.5});
    expectMate<VrexPinSlotMate3D>(26, {0.5, 1.5});
    expectMate<VrexParallelMate3D>(27, {0.5, 1.5, 2.5, 3.5});
    expectMate<VrexBallMate3D>(28, {0.5});
}

TEST(VrexStreamDecoder3D, TheLimitsOfAMateStandBeforeItsValue) {
    const Bytes record = block(join({some(-1.0), some(2.0), f64(0.5), flag(false)}));
    const auto read = readConstraint<VrexSliderMate3D>(
        {connector(2, 0), connector(3, 0)}, VrexConstraint3DType::SliderMate3D, {2, 3},
        constraint({21, ids({2, 3})}, {}, 5, join({block(record), none()})));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getDistance().limits, VrexDimensionLimits(-1.0, 2.0));
    EXPECT_EQ(read->getDistance().value, 0.5);
    EXPECT_FALSE(read->getDistance().fixed());
}

TEST(VrexStreamDecoder3D, ReadsAnInstance) {
    const std::vector<Bytes> before{point(1), point(2), line(3),
                                    geometry(17, join({u32(0), u64(3), f64(2.0)}), 4),
                                    geometry(18, ids({4, 4}), 6)};
    const auto read =
        readConstraint<VrexInstance3D>(before, VrexConstraint3DType::Instance3D, {1, 2, 6},
                                       constraint({31, ids({1, 2, 6})}, block(join({u32(3), u32(-2)})), 5));
    ASSERT_NE(read, nullptr);
    EXPECT_THAT(read->getCoefficients(), ElementsAre(3, -2));
}

/// A distance between the points 1 and 2 that stand before it.
Bytes distance(std::uint64_t id) { return constraint({0, ids({1, 2})}, {}, id, dimensionTail(1.0)); }

TEST(VrexStreamDecoder3D, ReadsEqualDimensions) {
    Reader reader(join({point(1), point(2), geometry(19, f64(1.5), 3), distance(3), distance(4),
                        constraint({39, ids({3})}, ids({4, 3}), 5)}));
    reader.skip(2);
    const auto element = reader.next();
    const auto first = reader.next();
    const auto second = reader.next();
    const auto read = reader.last<VrexEqualDimension3D>();
    EXPECT_EQ(read->getElement(), element) << "the geometry of the identifier, not the constraint";
    EXPECT_THAT(read->getDimensions(), ElementsAre(second, first));
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsEqualParameters) {
    const Bytes pairs = join({u32(8), u32(9), u32(6), u32(7)});
    Reader reader(join({point(1), point(2), circle(3), distance(6), distance(7),
                        constraint({19, ids({3})}, join({ids({7, 6}), pairs}), 5)}));
    const auto curve = reader.skip(2).next();
    const auto first = reader.next();
    const auto second = reader.next();
    const auto read = reader.last<VrexEqualParameter3D>();
    EXPECT_THAT(read->getGeometries(), ElementsAre(curve));
    EXPECT_THAT(read->getConstraints(), ElementsAre(second, first));
    EXPECT_THAT(read->getParameterIndices(), ElementsAre(std::pair(8, 9), std::pair(6, 7)));
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsAMateRelation) {
    const auto mate = [](std::uint64_t id, std::int64_t type, std::initializer_list<double> values) {
        return constraint({type, ids({2, 3})}, {}, id, mateTail(values));
    };
    Reader reader(join({connector(2, 0), connector(3, 0), mate(6, 23, {0.5, 1.5}), mate(7, 21, {0.5}),
                        constraint({41, none()}, join({ids({6, 7}), u64(1), u64(0), f64(-2.5)}), 5)}));
    const auto first = reader.skip(2).next();
    const auto second = reader.next();
    const auto read = reader.last<VrexMateRelation3D>();
    EXPECT_THAT(read->getMates(), ElementsAre(first, second));
    EXPECT_THAT(read->getMateParameterIndexs(), ElementsAre(1, 0));
    EXPECT_EQ(read->getRatio(), -2.5);
    EXPECT_THAT(read->getGeometries(), IsEmpty());
    expectCommon(*read, 5);
}

double twice(const double* values, unsigned int /*count*/, double* gradient) {
    gradient[0] = 2.0;
    return 2.0 * values[0];
}

TEST(VrexStreamDecoder3D, ReadsACallbackEquation) {
    const auto address = reinterpret_cast<std::uint64_t>(&twice);
    Reader reader(join({variable(1, 4.0), callbackEquation(2, block(descriptor(1, 0, "d")), address, 5)}));
    const auto free = reader.next();
    const auto read = reader.last<VrexCallbackEquation>();
    EXPECT_EQ(read->conditionType(), VrexEquationConditionType::lessEqualZero);
    ASSERT_EQ(read->descriptors().size(), 1U);
    EXPECT_EQ(read->descriptors()[0].object(), free);
    const auto* const callback = read->callback().target<VrexEquationCallback>();
    ASSERT_NE(callback, nullptr);
    const auto* const function = callback->callback().target<VrexEquationCallback::Function>();
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(*function, &twice);
    EXPECT_EQ(read->evaluate({VrexVariable(4.0)}).value(), 8.0);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, TheAddressZeroIsAnEmptyFunction) {
    const auto read = Reader(callbackEquation(0, none(), 0, 5)).last<VrexCallbackEquation>();
    const auto* const callback = read->callback().target<VrexEquationCallback>();
    ASSERT_NE(callback, nullptr);
    EXPECT_EQ(callback->callback(), nullptr);
}

TEST(VrexStreamDecoder3D, CallbacksAreRefusedOnDemand) {
    Reader reader(join({callbackEquation(0, none(), 0, 5), expressionEquation(0, none(), "1", 6)}));
    EXPECT_TRUE(reader.decoder().areCallbacksAllowed());
    reader.decoder().setCallbacksAllowed(false);
    EXPECT_EQ(reader.next(), nullptr);
    EXPECT_EQ(reader.decoder().position(), 0U);
    reader.decoder().setCallbacksAllowed(true);
    EXPECT_NE(reader.next(), nullptr);
    reader.decoder().setCallbacksAllowed(false);
    EXPECT_NE(reader.next(), nullptr) << "an expression calls nobody";
}

TEST(VrexStreamDecoder3D, ReadsAnExpressionEquation) {
    const Bytes descriptors = block(join({descriptor(1, 1, "y"), descriptor(2, 2, "c")}));
    Reader reader(join({point(1), point(2), distance(2), expressionEquation(3, descriptors, "y + 1", 5)}));
    const auto free = reader.next();
    const auto other = reader.next();
    const auto read = reader.skip(1).last<VrexExpressionEquation>();
    EXPECT_EQ(read->expression(), "y + 1");
    EXPECT_EQ(read->conditionType(), VrexEquationConditionType::greaterThanZero);
    ASSERT_EQ(read->descriptors().size(), 2U);
    EXPECT_EQ(read->descriptors()[0].object(), free);
    EXPECT_EQ(read->descriptors()[1].object(), other) << "the geometry of the identifier, not the constraint";
    EXPECT_EQ(read->evaluate({VrexVariable(2.0)}).value(), 3.0);
    expectCommon(*read, 5);
}

} // namespace
} // namespace nsStreamObjects
