// What the constraints without a value cost in memory, and what they keep when there is none.

#include <utility>

#include <gtest/gtest.h>

#include "support/MemoryChecks.h"
#include "support/SamplesRelations.h"

namespace {

using nsMemoryChecks::allocationsOf;
using nsMemoryChecks::expectKeptWithoutMemory;
using Component = VrexGeometryComponentType;

TEST(VrexConstraint3DRelationsAllocation, ConstraintIsOneAllocationAndItsListAnother) {
    const auto point = makeSample<VrexPoint3D>();
    const auto plane = makeSample<VrexPlane3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto torus = makeSample<VrexTorus3D>();
    const auto variable = makeSample<VrexGeometryVariable>();
    constexpr auto WHOLE = Component::UNKNOWN;
    constexpr auto RADIUS = VrexRadius3DType::Radius3D;
    constexpr auto DEFAULT = VrexIncidence3DType::Default;
    constexpr auto COMPLETE = VrexFixation3DType::Complete3D;
    EXPECT_EQ(allocationsOf([&] { return VrexIncidence3D::create(point, plane, DEFAULT, WHOLE, WHOLE); }),
              2U);
    EXPECT_EQ(allocationsOf([&] { return VrexTangency3D::create(plane, torus, WHOLE, WHOLE); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexFixation3D::create(point, COMPLETE); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexParallelism3D::create(plane, circle); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexPerpendicularity3D::create(plane, circle); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexConcentricity3D::create(point, circle); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexIncidenceToCenter3D::create(point, circle); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexVariableFixation3D::create(variable); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexSymmetry3D::create(point, point, plane); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexMidPoint3D::create(point, point, point); }), 2U);
    EXPECT_EQ(allocationsOf(
                  [&] { return VrexEqualRadius3D::create(circle, RADIUS, circle, RADIUS, WHOLE, WHOLE); }),
              2U);
    EXPECT_EQ(allocationsOf([&] { return VrexSurfaceNormal3D::create(torus, circle); }), 2U);
    EXPECT_EQ(allocationsOf([&] {
                  return VrexEqualCurveProperty3D::create(circle, circle,
                                                          VrexCurveProperty3DType::EqualDirection3D);
              }),
              2U);
}

TEST(VrexConstraint3DRelationsAllocation, ConstraintOfConstraintsAddsNone) {
    const auto length = makeSample<VrexCurveLength3D>();
    const auto element = makeSample<VrexEqualDimensionElement3D>();
    EXPECT_EQ(allocationsOf([&] {
                  return VrexEqualParameter3D::create(length, {6, 7}, length, {8, 9});
              }),
              2U);
    EXPECT_EQ(
        allocationsOf([&] { return VrexEqualParameter3D::create(length->geometry(3), length, length); }), 2U);
    VrexEqualDimension3D::Dimensions dimensions{length};
    EXPECT_EQ(allocationsOf([&] { return VrexEqualDimension3D::create(std::move(dimensions), element); }),
              2U);
}

TEST(VrexConstraint3DRelationsAllocation, CanCreateAllocatesNothing) {
    using enum VrexGeometry3DType;
    const auto length = makeSample<VrexCurveLength3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const VrexEqualDimension3D::Dimensions dimensions{makeSample<VrexDistance3D>()};
    const AllocationCounter counter;
    EXPECT_TRUE(VrexIncidence3D::canCreate(CIRCLE, TORUS, Component::UNKNOWN, Component::UNKNOWN,
                                           VrexIncidence3DType::Default));
    EXPECT_TRUE(VrexTangency3D::canCreate(LINE, SPHERE));
    EXPECT_TRUE(VrexFixation3D::canCreate(CONE, VrexFixation3DType::Aperture3D));
    EXPECT_TRUE(VrexEqualCurveProperty3D::canCreate(circle, circle));
    EXPECT_TRUE(VrexEqualParameter3D::canCreate(length, {6, 7}, length, {8, 9}));
    EXPECT_TRUE(VrexEqualDimension3D::canCreate(dimensions));
    EXPECT_EQ(counter.count(), 0U);
}

TEST(VrexConstraint3DRelationsAllocation, UpdateWithoutMemoryKeepsDimensions) {
    const auto equal = makeSample<VrexEqualDimension3D>();
    const auto geometries = equal->getGeometries();
    const auto dimensions = equal->getDimensions();
    const auto other = makeSample<VrexEqualDimension3D>();
    other->alignment() = VrexConstraintAlignment::Any;
    expectKeptWithoutMemory([&] { equal->updateFrom(other); },
                            [&] {
                                EXPECT_EQ(equal->getGeometries(), geometries);
                                EXPECT_EQ(equal->getDimensions(), dimensions);
                                EXPECT_EQ(equal->alignment(), VrexConstraintAlignment::Positive);
                            });
    EXPECT_EQ(equal->getDimensions(), dimensions);
    EXPECT_EQ(equal->alignment(), VrexConstraintAlignment::Any);
}

TEST(VrexConstraint3DRelationsAllocation, UpdateWithoutMemoryKeepsConstraintsAndPairs) {
    const auto equal = makeSample<VrexEqualParameter3D>();
    const auto geometries = equal->getGeometries();
    const auto constraints = equal->getConstraints();
    const auto indices = equal->getParameterIndices();
    const auto other = makeSample<VrexEqualParameter3D>();
    other->alignment() = VrexConstraintAlignment::Any;
    other->getParameterIndices() = {};
    expectKeptWithoutMemory([&] { equal->updateFrom(other); },
                            [&] {
                                EXPECT_EQ(equal->getGeometries(), geometries);
                                EXPECT_EQ(equal->getParameterIndices(), indices);
                                EXPECT_EQ(equal->alignment(), VrexConstraintAlignment::Positive);
                            });
    EXPECT_EQ(equal->getConstraints(), constraints);
    EXPECT_EQ(equal->getParameterIndices(), indices);
    EXPECT_EQ(equal->alignment(), VrexConstraintAlignment::Any);
}

} // namespace
