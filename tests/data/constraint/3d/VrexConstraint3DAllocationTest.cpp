// What constraints cost in memory, and what they keep when there is none.

#include <memory>
#include <new>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/AllocationCounter.h"
#include "support/MemoryChecks.h"
#include "support/SamplesConstraints.h"

namespace {

using nsMemoryChecks::allocationsOf;
using nsMemoryChecks::expectKeptWithoutMemory;

TEST(VrexConstraint3DAllocation, DimensionIsOneAllocationAndItsListAnother) {
    const auto p = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto cone = makeSample<VrexCone3D>();
    const auto pattern = makeSample<VrexPattern3D>();
    const auto element = makeSample<VrexEqualDimensionElement3D>();
    constexpr auto UNKNOWN = VrexGeometryComponentType::UNKNOWN;
    EXPECT_EQ(allocationsOf([&] { return VrexDistance3D::create(p, line, 1.0, UNKNOWN, UNKNOWN); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexDirectionDistance3D::create(p, p, {1.0, 0.0, 0.0}, 1.0); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexParallelDistance3D::create(p, p, line, 1.0); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexAngle3D::create(line, line, 1.0); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexPlanarAngle3D::create(line, line, circle, 1.0); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexRadius3D::create(circle, 1.0, VrexRadius3DType::Radius3D); }),
              2U);
    EXPECT_EQ(allocationsOf([&] { return VrexHalfAngle3D::create(cone, 1.0); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexPatternValue3D::create(pattern, 1.0); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexCurveLength3D::create(p, p, circle, 1.0); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexEqualDimensionValue3D::create(element, 1.0); }), 2U);
}

TEST(VrexConstraint3DAllocation, MateHasItsDimensionsBesides) {
    const auto connector = makeSample<VrexConnector3D>();
    EXPECT_EQ(allocationsOf([&] { return VrexFastenedMate3D::create(connector, connector); }), 2U);
    EXPECT_EQ(allocationsOf([&] { return VrexParallelMate3D::create(connector, connector, {}, {}, {}, {}); }),
              3U);
    const auto variable = makeSample<VrexGeometryVariable>();
    EXPECT_EQ(allocationsOf([&] {
                  return VrexMateDimensionInterval3D::create(
                      variable, {}, 0, VrexMateDimensionInterval3DType::AngleDimension3D);
              }),
              2U);
    std::vector<std::shared_ptr<VrexMate3D>> mates{makeSample<VrexSliderMate3D>(),
                                                   makeSample<VrexBallMate3D>()};
    std::vector<std::uint64_t> indices{0, 0};
    EXPECT_EQ(
        allocationsOf([&] { return VrexMateRelation3D::create(std::move(mates), std::move(indices), 1.0); }),
        1U);
}

TEST(VrexConstraint3DAllocation, RebindingAllocatesNothing) {
    const auto distance = makeSample<VrexDistance3D>();
    const auto first = makeSample<VrexGeometryVariable>();
    const auto second = makeSample<VrexGeometryVariable>();
    const AllocationCounter counter;
    distance->bindVariable(first);
    distance->bindVariable(second);
    distance->bindVariable(nullptr);
    distance->bindVariable(first);
    EXPECT_EQ(counter.count(), 0U);
}

TEST(VrexConstraint3DAllocation, BindingWithoutMemoryChangesNothing) {
    const auto line = makeSample<VrexLine3D>();
    const auto angle = VrexAngle3D::create(line, line, 1.0);
    const auto variable = makeSample<VrexGeometryVariable>();
    {
        const AllocationLimit none(0);
        EXPECT_THROW(angle->bindVariable(variable), std::bad_alloc);
    }
    EXPECT_EQ(angle->getVariable(), nullptr);
    EXPECT_EQ(angle->getGeometries().size(), 2U);
    angle->bindVariable(variable);
    EXPECT_EQ(angle->getGeometries().size(), 3U);
    EXPECT_EQ(angle->getVariable(), variable);
}

TEST(VrexConstraint3DAllocation, UpdateWithoutMemoryKeepsGeometriesAndValue) {
    const auto distance = makeSample<VrexDistance3D>();
    const auto geometries = distance->getGeometries();
    const auto variable = distance->getVariable();
    const auto other = makeSample<VrexDistance3D>();
    other->setValue(100.0);
    other->alignment() = VrexConstraintAlignment::Negative;
    expectKeptWithoutMemory([&] { distance->updateFrom(other); },
                            [&] {
                                EXPECT_EQ(distance->getGeometries(), geometries);
                                EXPECT_EQ(distance->getVariable(), variable);
                                EXPECT_EQ(distance->value(), 2.5);
                                EXPECT_TRUE(distance->isRigid());
                                EXPECT_EQ(distance->getLimits(), VrexDimensionLimits(-1.5, 9.5));
                                EXPECT_EQ(distance->alignment(), VrexConstraintAlignment::Positive);
                            });
    EXPECT_EQ(variable->getValue(), 100.0);
}

TEST(VrexConstraint3DAllocation, UpdateWithoutMemoryKeepsConnectorsAndDimensions) {
    const auto mate = makeSample<VrexCylinderMate3D>();
    const auto geometries = mate->getGeometries();
    const auto dimension = mate->getDistance();
    const auto other = makeSample<VrexCylinderMate3D>();
    other->getDistance().value = 100.0;
    expectKeptWithoutMemory([&] { mate->updateFrom(other); },
                            [&] {
                                EXPECT_EQ(mate->getGeometries(), geometries);
                                EXPECT_EQ(mate->getDistance(), dimension);
                            });
    EXPECT_EQ(mate->getDistance().value, 100.0);
}

TEST(VrexConstraint3DAllocation, UpdateWithoutMemoryKeepsMatesIndicesAndRatio) {
    const auto relation = makeSample<VrexMateRelation3D>();
    const auto mates = relation->getMates();
    const auto other = makeSample<VrexMateRelation3D>();
    other->setMateParameterIndexs({5, 6, 7});
    other->setRatio(100.0);
    expectKeptWithoutMemory([&] { relation->updateFrom(other); },
                            [&] {
                                EXPECT_EQ(relation->getMates(), mates);
                                EXPECT_EQ(relation->getMateParameterIndexs().size(), 2U);
                                EXPECT_EQ(relation->getRatio(), -2.5);
                                EXPECT_FALSE(relation->areGeometriesChanged());
                            });
    EXPECT_EQ(relation->getMates(), mates);
    EXPECT_EQ(relation->getRatio(), 100.0);
}

} // namespace
