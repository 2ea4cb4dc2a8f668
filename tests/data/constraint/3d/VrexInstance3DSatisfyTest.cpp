// How an instance places the second geometry.

#include <numbers>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "support/MemoryChecks.h"
#include "support/Poses.h"
#include "support/SamplesRelations.h"
#include "support/SmallStack.h"

namespace {

using nsPoses::expectNear;
using nsPoses::expectPose;
using nsPoses::Motion;
using nsPoses::parametersOf;
using nsPoses::Pose;
using nsPoses::poseOf;
using nsPoses::Vector;
using testing::ThrowsMessage;
using Geometry = std::shared_ptr<VrexGeometry3D>;
using Geometries = std::vector<Geometry>;
using Parameters = std::vector<std::vector<double>>;

/// The motion of the patterns below: two steps of 1.5 along X, then a third of a turn about the Z axis.
Motion placing() {
    const Motion turn{Vector::ZERO(), 2.0 * std::numbers::pi / 3.0, Vector::OZ()};
    return {turn.turn({3.0, 0.0, 0.0}), turn.angle, turn.axis};
}

std::shared_ptr<VrexInstance3D> instanceOf(const Geometry& first, const Geometry& second) {
    const auto along = VrexLine3D::create({9.0, 9.0, 9.0}, {1.0, 0.0, 0.0});
    const auto about = VrexLine3D::create({0.0, 0.0, 5.0}, {0.0, 0.0, 1.0});
    return VrexInstance3D::create(
        first, second,
        VrexArrayPattern3D::create(
            {VrexPattern3D::create(VrexPattern3DType::Linear3D, along, 1.5),
             VrexPattern3D::create(VrexPattern3DType::Circular3D, about, 2.0 * std::numbers::pi / 3.0)}),
        {2, 1});
}

/// The geometry and what it is built on.
Geometries wholeOf(const Geometry& geometry) {
    Geometries whole{geometry};
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const auto parts = static_cast<const VrexGeometry3D&>(*whole[i]).geometries();
        whole.insert(whole.end(), parts.begin(), parts.end());
    }
    return whole;
}

Parameters parametersOfWhole(const Geometry& geometry) {
    Parameters parameters;
    for (const Geometry& part : wholeOf(geometry)) {
        parameters.push_back(parametersOf(part));
    }
    return parameters;
}

template <class Shape>
std::shared_ptr<Shape> makeMoved() {
    auto moved = makeSample<Shape>();
    VrexGeometryTransformation3DVisitor visitor(nsPoses::someMotion().transformation(), false);
    moved->accept(visitor);
    return moved;
}

template <class Shape>
std::shared_ptr<Shape> makeSecond(const std::shared_ptr<Shape>&) {
    return makeMoved<Shape>();
}

/// Of evaluated curves, one over the same descriptors.
template <>
std::shared_ptr<VrexEvaluatedCurve3D> makeSecond(const std::shared_ptr<VrexEvaluatedCurve3D>& first) {
    auto second = makeMoved<VrexEvaluatedCurve3D>();
    second->setDescriptors(first->descriptors());
    return second;
}

template <class Shape>
class VrexInstance3DSatisfy : public testing::Test {};
using Shapes =
    testing::Types<VrexPoint3D, VrexLine3D, VrexPlane3D, VrexRigidSet3D, VrexNURBSSurface3D, VrexCylinder3D,
                   VrexSphere3D, VrexCircle3D, VrexSpline3D, VrexCone3D, VrexEllipse3D, VrexTorus3D,
                   VrexSpinSurface3D, VrexSweepSurface3D, VrexEvaluatedCurve3D>;
TYPED_TEST_SUITE(VrexInstance3DSatisfy, Shapes);

TYPED_TEST(VrexInstance3DSatisfy, PlacesTheSecondAndAllItIsBuiltOn) {
    const auto first = makeSample<TypeParam>();
    const auto second = makeSecond(first);
    const Geometries from = wholeOf(first);
    const Geometries to = wholeOf(second);
    instanceOf(first, second)->satisfy();
    ASSERT_EQ(from.size(), to.size());
    for (std::size_t i = 0; i < from.size(); ++i) {
        // What a descriptor names is the same for both, and stays.
        if (from[i] != to[i] && nsPoses::findPose(*to[i]).has_value()) {
            expectPose(*to[i], placing()(poseOf(*from[i])));
        }
    }
}

TYPED_TEST(VrexInstance3DSatisfy, TwiceIsAsOnce) {
    const auto first = makeSample<TypeParam>();
    const auto second = makeSecond(first);
    const auto instance = instanceOf(first, second);
    instance->satisfy();
    const Parameters once = parametersOfWhole(second);
    instance->satisfy();
    EXPECT_EQ(parametersOfWhole(second), once);
}

TYPED_TEST(VrexInstance3DSatisfy, FirstAndPatternsStayAsTheyAre) {
    const auto first = makeSample<TypeParam>();
    const auto instance = instanceOf(first, makeSecond(first));
    const Parameters before = parametersOfWhole(first);
    const Parameters patternsBefore = parametersOfWhole(instance->getArrayPattern());
    instance->satisfy();
    EXPECT_EQ(parametersOfWhole(first), before);
    EXPECT_EQ(parametersOfWhole(instance->getArrayPattern()), patternsBefore);
}

TEST(VrexInstance3D, SatisfyPlacesAPointSixFromTheFirst) {
    const auto first = VrexPoint3D::create(1.0, 2.0, 3.0);
    const auto second = makeSample<VrexPoint3D>();
    const auto axis = VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    const auto instance = VrexInstance3D::create(
        first, second,
        VrexArrayPattern3D::create({VrexPattern3D::create(VrexPattern3DType::Linear3D, axis, 2.0)}), {3});
    expectNear(VrexTransformation3DT<double>(instance->getInstanceTransform()).getTranslation(),
               {6.0, 0.0, 0.0});
    instance->satisfy();
    expectNear(second->getPosition(), {7.0, 2.0, 3.0});
    expectNear(first->getPosition(), {1.0, 2.0, 3.0});
}

TEST(VrexInstance3D, SatisfyTakesSizesAndStatusOver) {
    const auto first = makeSample<VrexCircle3D>();
    first->status() = VrexGeometryStatus::Welldefined;
    const auto second = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 99.0);
    instanceOf(first, second)->satisfy();
    EXPECT_EQ(second->getRadius(), first->getRadius());
    EXPECT_EQ(second->status(), VrexGeometryStatus::Welldefined);
}

TEST(VrexInstance3D, SatisfyMovesAFreeConnectorAndLeavesAnOwnedOneWithItsOwner) {
    const auto connectorIn = [](const std::shared_ptr<VrexRigidSet3D>& owner, double x) {
        auto connector = VrexConnector3D::create(owner);
        connector->setTransformation({{x, 2.0, 3.0}, VrexQuaternionT<double>::ONE()});
        return connector;
    };
    const auto freeFirst = connectorIn(nullptr, 1.0);
    const auto freeSecond = connectorIn(nullptr, 5.0);
    const auto instance = instanceOf(freeFirst, freeSecond);
    instance->satisfy();
    instance->satisfy();
    expectPose(*freeSecond, placing()(poseOf(*freeFirst)));

    const auto ownedFirst = connectorIn(makeSample<VrexRigidSet3D>(), 1.0);
    const auto ownedSecond = connectorIn(makeSample<VrexRigidSet3D>(), 5.0);
    instanceOf(ownedFirst, ownedSecond)->satisfy();
    expectPose(*ownedSecond, poseOf(*ownedFirst));
}

TEST(VrexInstance3D, SatisfyFailsForEvaluatedSurfaces) {
    const auto first = makeSample<VrexEvaluatedSurface3D>();
    const auto second = makeSample<VrexEvaluatedSurface3D>();
    second->setDescriptors(first->descriptors());
    const auto instance = instanceOf(first, second);
    ASSERT_NE(instance, nullptr);
    EXPECT_THAT([&] { instance->satisfy(); },
                ThrowsMessage<std::runtime_error>("VrexAssigner3DImpl : Not implemented"));
}

TEST(VrexInstance3D, PartsOfBothAreNeitherWrittenNorMoved) {
    const auto axis = makeSample<VrexLine3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto point = makeSample<VrexPoint3D>();
    const auto first = VrexRigidSet3D::create({VrexSpinSurface3D::create(circle, axis), axis, point});
    // The line stands where the second set has another one, and the point where it has one of its own.
    const auto ownCircle = makeMoved<VrexCircle3D>();
    const auto second = VrexRigidSet3D::create(
        {VrexSpinSurface3D::create(ownCircle, axis), makeMoved<VrexLine3D>(), makeMoved<VrexPoint3D>()});
    const auto crossed =
        VrexRigidSet3D::create({VrexSpinSurface3D::create(ownCircle, axis), axis, makeMoved<VrexPoint3D>()});
    const Parameters before = parametersOfWhole(first);
    for (const auto& target : {second, crossed}) {
        instanceOf(first, target)->satisfy();
        EXPECT_EQ(parametersOfWhole(first), before);
        expectPose(*ownCircle, placing()(poseOf(*circle)));
        expectPose(*target->geometries()[2], placing()(poseOf(*point)));
    }
}

TEST(VrexInstance3D, MembersInAnotherPlaceOfTheSecondStayThoseOfTheFirst) {
    const auto a = VrexPoint3D::create(1.0, 0.0, 0.0);
    const auto b = VrexPoint3D::create(0.0, 1.0, 0.0);
    instanceOf(VrexRigidSet3D::create({a, b}), VrexRigidSet3D::create({b, a}))->satisfy();
    expectNear(a->getPosition(), {1.0, 0.0, 0.0});
    expectNear(b->getPosition(), {0.0, 1.0, 0.0});
}

TEST(VrexInstance3D, ControlPointsOfBothAreNeitherWrittenNorMoved) {
    const auto first = makeSample<VrexSpline3D>();
    const auto second = makeMoved<VrexSpline3D>();
    const auto shared = first->controlPoints()[3].point;
    second->controlPoints()[0].point = shared; // the end of the one is the start of the other
    const Parameters before = parametersOfWhole(first);
    instanceOf(first, second)->satisfy();
    EXPECT_EQ(parametersOfWhole(first), before);
    EXPECT_EQ(second->controlPoints()[0].point, shared);
    EXPECT_EQ(second->controlPoints()[0].weight, first->controlPoints()[0].weight);
    expectPose(*second->controlPoints()[1].point, placing()(poseOf(*first->controlPoints()[1].point)));

    const auto net = makeSample<VrexNURBSSurface3D>();
    const auto neighbour = makeMoved<VrexNURBSSurface3D>();
    neighbour->controlPoints()[0] = net->controlPoints()[2];
    const Parameters netBefore = parametersOfWhole(net);
    instanceOf(net, neighbour)->satisfy();
    EXPECT_EQ(parametersOfWhole(net), netBefore);
    expectPose(*neighbour->controlPoints()[1][1].point, placing()(poseOf(*net->controlPoints()[1][1].point)));
}

TEST(VrexInstance3D, SharedPointsComeBackWhenAssigningFails) {
    const auto first = makeSample<VrexNURBSSurface3D>();
    const auto second = makeMoved<VrexNURBSSurface3D>();
    const auto shared = first->controlPoints()[0][0].point;
    second->controlPoints()[2][2].point = shared;
    first->controlPoints()[1].pop_back(); // a row shorter than the second's: compatible, not assignable
    const auto instance = instanceOf(first, second);
    ASSERT_NE(instance, nullptr);
    EXPECT_THROW(instance->satisfy(), std::out_of_range);
    EXPECT_EQ(second->controlPoints()[2][2].point, shared);
}

TEST(VrexInstance3D, PartsWithoutACounterpartStay) {
    const auto plain = makeSample<VrexSpline3D>();
    plain->setInterpolatedPoints({plain->getInterpolatedPoints()[0]});
    const auto fitted = makeMoved<VrexSpline3D>();
    const auto left = fitted->getInterpolatedPoints()[1];
    const Pose before = poseOf(*left);
    instanceOf(plain, fitted)->satisfy();
    expectPose(*left, before);
    expectPose(*fitted->getInterpolatedPoints()[0], placing()(poseOf(*plain->getInterpolatedPoints()[0])));

    const auto axis = makeSample<VrexLine3D>();
    const auto otherAxis = makeMoved<VrexLine3D>();
    const Pose axisBefore = poseOf(*otherAxis);
    const auto spin = [](const std::shared_ptr<VrexLine3D>& line) {
        return VrexSpinSurface3D::create(makeMoved<VrexCircle3D>(), line);
    };
    instanceOf(spin(nullptr), spin(otherAxis))->satisfy();
    expectPose(*otherAxis, axisBefore);
    // As a member it has one.
    instanceOf(VrexRigidSet3D::create({spin(nullptr), axis}),
               VrexRigidSet3D::create({spin(otherAxis), otherAxis}))
        ->satisfy();
    expectPose(*otherAxis, placing()(poseOf(*axis)));
}

/// The positions of control points; none for one that is missing.
std::vector<std::vector<double>> placesOf(const std::vector<VrexSpline3D::ControlPoint>& row) {
    std::vector<std::vector<double>> places;
    for (const auto& controlPoint : row) {
        places.push_back(controlPoint.point == nullptr ? std::vector<double>()
                                                       : parametersOf(controlPoint.point));
    }
    return places;
}

TEST(VrexInstance3D, ControlPointsWithoutACounterpartStay) {
    const auto first = makeSample<VrexSpline3D>();
    const auto second = makeMoved<VrexSpline3D>();
    first->controlPoints()[1].point = nullptr;
    const Pose before = poseOf(*second->controlPoints()[1].point);
    const auto instance = instanceOf(first, second);
    instance->satisfy();
    expectPose(*second->controlPoints()[1].point, before);
    expectPose(*second->controlPoints()[2].point, placing()(poseOf(*first->controlPoints()[2].point)));
    const auto once = placesOf(second->controlPoints());
    instance->satisfy();
    EXPECT_EQ(placesOf(second->controlPoints()), once);

    // One that stands elsewhere too, with a counterpart there.
    second->controlPoints()[3].point = second->controlPoints()[1].point;
    instance->satisfy();
    expectPose(*second->controlPoints()[1].point, placing()(poseOf(*first->controlPoints()[3].point)));

    const auto net = makeSample<VrexNURBSSurface3D>();
    const auto copy = makeMoved<VrexNURBSSurface3D>();
    net->controlPoints()[2][0].point = nullptr;
    net->controlPoints()[0].emplace_back(); // a longer row lays its first points onto the other's
    const Pose left = poseOf(*copy->controlPoints()[2][0].point);
    instanceOf(VrexRigidSet3D::create({net}), VrexRigidSet3D::create({copy}))->satisfy();
    expectPose(*copy->controlPoints()[2][0].point, left);
    expectPose(*copy->controlPoints()[2][1].point, placing()(poseOf(*net->controlPoints()[2][1].point)));
}

TEST(VrexInstance3D, WithoutMemoryControlPointsOfBothStayInTheSecond) {
    const auto first = makeSample<VrexSpline3D>();
    const auto second = makeMoved<VrexSpline3D>();
    second->controlPoints()[0].point = first->controlPoints()[3].point;
    second->controlPoints()[1].point = first->controlPoints()[2].point;
    const auto instance = instanceOf(first, second);
    const auto points = second->getGeometries();
    const Parameters before = parametersOfWhole(first);
    nsMemoryChecks::expectKeptWithoutMemory([&] { instance->satisfy(); },
                                            [&] {
                                                EXPECT_EQ(second->getGeometries(), points);
                                                EXPECT_EQ(parametersOfWhole(first), before);
                                            });
    EXPECT_EQ(second->getGeometries(), points);
    expectPose(*second->controlPoints()[2].point, placing()(poseOf(*first->controlPoints()[2].point)));
}

TEST(VrexInstance3D, GeometryAsItsOwnInstanceStays) {
    const auto point = makeSample<VrexPoint3D>();
    const auto before = parametersOf(point);
    instanceOf(point, point)->satisfy();
    EXPECT_EQ(parametersOf(point), before);
}

TEST(VrexInstance3D, DeepSetsAreSatisfiedOnASmallStack) {
    const auto bottom1 = VrexPoint3D::create(1.0, 2.0, 3.0);
    const auto bottom2 = makeSample<VrexPoint3D>();
    runOnSmallStack([&] {
        Geometry first = bottom1;
        Geometry second = bottom2;
        for (int depth = 0; depth < 100'000; ++depth) {
            first = VrexRigidSet3D::create({first});
            second = VrexRigidSet3D::create({second});
        }
        instanceOf(first, second)->satisfy();
    });
    expectPose(*bottom2, placing()(poseOf(*bottom1)));
}

TEST(VrexInstance3D, RingsAndSharedSetsAreSatisfiedOnce) {
    const auto makeRing = [](const Geometry& point) {
        auto ring = VrexRigidSet3D::create({point});
        Geometry shared = ring;
        for (int depth = 0; depth < 64; ++depth) {
            shared = VrexRigidSet3D::create({shared, shared});
        }
        ring->geometries().push_back(shared);
        return ring;
    };
    const auto point = makeSample<VrexPoint3D>();
    const auto copy = makeMoved<VrexPoint3D>();
    const auto first = makeRing(point);
    const auto second = makeRing(copy);
    instanceOf(first, second)->satisfy();
    expectPose(*copy, placing()(poseOf(*point)));
    first->geometries().clear();
    second->geometries().clear();
}

} // namespace
