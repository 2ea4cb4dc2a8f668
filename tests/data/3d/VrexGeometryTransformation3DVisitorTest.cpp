#include "data/3d/VrexGeometryTransformation3DVisitor.h"

#include <limits>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AllocationCounter.h"
#include "support/AnyGeometry.h"
#include "support/LogCapture.h"
#include "support/Poses.h"
#include "support/SmallStack.h"

namespace {

using nsPoses::expectPose;
using nsPoses::Motion;
using nsPoses::parametersOf;
using nsPoses::Pose;
using nsPoses::poseOf;
using nsPoses::someMotion;
using testing::ThrowsMessage;
using Geometry = std::shared_ptr<VrexGeometry3D>;
using Geometries = std::vector<Geometry>;

VrexGeometryTransformation3DVisitor visitorOf(const Motion& motion, bool skipRigidSetChildren = false) {
    return {motion.transformation(), skipRigidSetChildren};
}

void moveOnce(const Geometry& geometry) {
    auto visitor = visitorOf(someMotion());
    geometry->accept(visitor);
}

Geometry freeConnector() {
    const auto connector = makeSample<VrexConnector3D>();
    connector->setRigidSet(nullptr);
    return connector;
}

/// The kinds that have a place of their own.
Geometries placedShapes() {
    return {makeSample<VrexPoint3D>(),
            makeSample<VrexLine3D>(),
            makeSample<VrexPlane3D>(),
            makeSample<VrexCircle3D>(),
            makeSample<VrexCone3D>(),
            makeSample<VrexCylinder3D>(),
            makeSample<VrexTorus3D>(),
            makeSample<VrexSphere3D>(),
            makeSample<VrexEllipse3D>(),
            makeSample<VrexEvaluatedCurve3D>(),
            makeSample<VrexEvaluatedSurface3D>(),
            makeSample<VrexRigidSet3D>(),
            freeConnector()};
}

/// The kinds that are where their parts are.
Geometries drawnShapes() {
    return {makeSample<VrexSpline3D>(), makeSample<VrexNURBSSurface3D>(), makeSample<VrexSpinSurface3D>(),
            makeSample<VrexSweepSurface3D>()};
}

std::vector<Pose> posesOf(const Geometries& geometries) {
    std::vector<Pose> poses;
    for (const Geometry& geometry : geometries) {
        poses.push_back(poseOf(*geometry));
    }
    return poses;
}

void expectAllMoved(const Geometries& geometries, const std::vector<Pose>& before, const Motion& motion) {
    ASSERT_FALSE(geometries.empty());
    for (std::size_t i = 0; i < geometries.size(); ++i) {
        expectPose(*geometries[i], motion(before[i]));
    }
}

TEST(VrexGeometryTransformation3DVisitor, MovesPositionsAndTurnsDirections) {
    for (const Geometry& geometry : placedShapes()) {
        SCOPED_TRACE(getEnumeratorText(geometry->type()));
        const Pose before = poseOf(*geometry);
        moveOnce(geometry);
        expectPose(*geometry, someMotion()(before));
    }
}

TEST(VrexGeometryTransformation3DVisitor, MovesWhatAShapeIsDrawnBy) {
    for (const Geometry& geometry : drawnShapes()) {
        SCOPED_TRACE(getEnumeratorText(geometry->type()));
        const Geometries parts = std::as_const(*geometry).geometries();
        const auto before = posesOf(parts);
        moveOnce(geometry);
        expectAllMoved(parts, before, someMotion());
    }
}

TEST(VrexGeometryTransformation3DVisitor, LeavesSizesRangesAndStatusesAlone) {
    const auto torus = makeSample<VrexTorus3D>();
    const auto ellipse = makeSample<VrexEllipse3D>();
    const auto cone = makeSample<VrexCone3D>();
    const auto spline = makeSample<VrexSpline3D>();
    for (const Geometry& geometry : Geometries{torus, ellipse, cone, makeSample<VrexCircle3D>(),
                                               makeSample<VrexCylinder3D>(), makeSample<VrexSphere3D>()}) {
        geometry->setDirty(false);
        geometry->status() = VrexGeometryStatus::Welldefined;
        const double first = parametersOf(geometry)[0];
        moveOnce(geometry);
        EXPECT_EQ(parametersOf(geometry)[0], first);
        EXPECT_FALSE(geometry->isDirty());
        EXPECT_EQ(geometry->status(), VrexGeometryStatus::Welldefined);
    }
    moveOnce(spline);
    EXPECT_EQ(torus->getMinorRadius(), 1.25);
    EXPECT_EQ(ellipse->getMinorRadius(), 2.5);
    EXPECT_EQ(cone->endV(), 7.0);
    EXPECT_EQ(spline->start(), 2.25);
    EXPECT_EQ(spline->controlPoints()[0].weight, 1.5);
    EXPECT_EQ(spline->getInterpolatedParameters(), (std::vector<double>{0.25, 0.75}));
}

TEST(VrexGeometryTransformation3DVisitor, PatternsAndSharedValuesStayAsTheyAre) {
    for (const Geometry& geometry : Geometries{makeSample<VrexPattern3D>(), makeSample<VrexArrayPattern3D>(),
                                               makeSample<VrexEqualDimensionElement3D>()}) {
        Geometries all{geometry};
        std::vector<std::vector<double>> before;
        for (std::size_t i = 0; i < all.size(); ++i) {
            const Geometries parts = std::as_const(*all[i]).geometries();
            all.insert(all.end(), parts.begin(), parts.end());
            before.push_back(parametersOf(all[i]));
        }
        moveOnce(geometry);
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_EQ(parametersOf(all[i]), before[i]);
        }
    }
}

TEST(VrexGeometryTransformation3DVisitor, MotionAndItsInverseRestoreEveryParameter) {
    const auto motion = someMotion().transformation();
    for (const Geometry& geometry : placedShapes()) {
        const auto before = parametersOf(geometry);
        const Pose poseBefore = poseOf(*geometry);
        moveOnce(geometry);
        VrexGeometryTransformation3DVisitor back(motion.getInversed(), false);
        geometry->accept(back);
        expectPose(*geometry, poseBefore);
        EXPECT_THAT(parametersOf(geometry), testing::Pointwise(testing::DoubleNear(1e-9), before));
    }
}

TEST(VrexGeometryTransformation3DVisitor, VisitingAPointTwiceMovesItOnce) {
    const auto point = makeSample<VrexPoint3D>();
    const Pose before = poseOf(*point);
    auto visitor = visitorOf(someMotion());
    point->accept(visitor);
    point->accept(visitor);
    expectPose(*point, someMotion()(before));
}

TEST(VrexGeometryTransformation3DVisitor, SetMovesEachMemberOnceThoughItStandsThereTwice) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto inner = VrexRigidSet3D::create({line, point});
    const auto set = VrexRigidSet3D::create({point, nullptr, point, inner, line, inner});
    const Geometries all{set, point, line, inner};
    const auto before = posesOf(all);
    moveOnce(set);
    expectAllMoved(all, before, someMotion());
}

TEST(VrexGeometryTransformation3DVisitor, SetMovesAloneWhereItsMembersAreSkipped) {
    const auto set = makeSample<VrexRigidSet3D>();
    const Pose before = poseOf(*set);
    const auto member = set->geometries()[0];
    const Pose memberBefore = poseOf(*member);
    auto visitor = visitorOf(someMotion(), true);
    set->accept(visitor);
    expectPose(*set, someMotion()(before));
    expectPose(*member, memberBefore);
}

TEST(VrexGeometryTransformation3DVisitor, ConnectorWithAnOwnerIsLeftAloneAndSoIsTheOwner) {
    const auto connector = makeSample<VrexConnector3D>();
    const auto owner = connector->getRigidSet();
    const Pose before = poseOf(*connector);
    const Pose ownerBefore = poseOf(*owner);
    moveOnce(connector);
    expectPose(*connector, before);
    expectPose(*owner, ownerBefore);
}

TEST(VrexGeometryTransformation3DVisitor, SharedPartsOfTwoShapesMoveOnce) {
    const auto circle = makeSample<VrexCircle3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto set = VrexRigidSet3D::create(
        {VrexSpinSurface3D::create(circle, line), VrexSweepSurface3D::create(circle, line, {}), circle});
    const auto before = posesOf({circle, line});
    moveOnce(set);
    expectAllMoved({circle, line}, before, someMotion());
}

TEST(VrexGeometryTransformation3DVisitor, MarkedGeometriesStayWhereTheyAre) {
    const auto marked = makeSample<VrexPoint3D>();
    const auto other = makeSample<VrexPoint3D>();
    const Pose before = poseOf(*marked);
    auto visitor = visitorOf(someMotion());
    visitor.markGeometriesVisited({nullptr, marked});
    VrexRigidSet3D::create({marked, other})->accept(visitor);
    expectPose(*marked, before);
    expectPose(*other, someMotion()(before));
}

TEST(VrexGeometryTransformation3DVisitor, CopyRemembersWhatWasVisited) {
    const auto point = makeSample<VrexPoint3D>();
    const Pose before = poseOf(*point);
    auto visitor = visitorOf(someMotion());
    point->accept(visitor);
    VrexGeometryTransformation3DVisitor copy = visitor;
    point->accept(copy);
    expectPose(*point, someMotion()(before));
}

TEST(VrexGeometryTransformation3DVisitor, MissingPartsArePassedOver) {
    const auto spline = makeSample<VrexSpline3D>();
    spline->controlPoints()[1].point = nullptr;
    spline->setInterpolatedPoints({nullptr});
    for (const Geometry& geometry : Geometries{spline, VrexSpinSurface3D::create(nullptr, nullptr),
                                               VrexSweepSurface3D::create(nullptr, nullptr, {})}) {
        EXPECT_NO_THROW(moveOnce(geometry));
    }
    EXPECT_THAT(parametersOf(spline->controlPoints()[0].point),
                testing::Not(testing::ElementsAreArray(parametersOf(VrexPoint3D::create(1.0, 0.0, 0.5)))));
}

TEST(VrexGeometryTransformation3DVisitor, ThrowsForWhatIsNoneOfTheKinds) {
    const auto variable = makeSample<VrexGeometryVariable>();
    auto visitor = visitorOf(someMotion());
    EXPECT_THAT([&] { variable->accept(visitor); },
                ThrowsMessage<std::runtime_error>("VrexGeometryTransformation3DVisitor : Not implemented"));
    EXPECT_EQ(variable->getValue(), 2.5);
}

TEST(VrexGeometryTransformation3DVisitor, VisitorServesOnAfterAFailureInsideASet) {
    const auto bad = VrexRigidSet3D::create({AnyGeometry::create(VrexGeometry3DType::POINT, 1)});
    const auto outer = VrexRigidSet3D::create({bad, makeSample<VrexPoint3D>()});
    auto visitor = visitorOf(someMotion());
    EXPECT_THROW(outer->accept(visitor), std::runtime_error);
    const auto member = makeSample<VrexPoint3D>();
    const Pose before = poseOf(*member);
    const auto next = VrexRigidSet3D::create({member});
    next->accept(visitor);
    expectPose(*member, someMotion()(before));
    expectPose(*outer->geometries()[1], before);
}

TEST(VrexGeometryTransformation3DVisitor, RotationThatDriftedIsNormalisedAndStored) {
    const Motion motion = someMotion();
    const auto drifted = motion.transformation().getRotation() * 1.01;
    for (const Geometry& geometry :
         Geometries{makeSample<VrexEllipse3D>(), makeSample<VrexEvaluatedCurve3D>(),
                    makeSample<VrexEvaluatedSurface3D>(), makeSample<VrexRigidSet3D>()}) {
        const Pose before = poseOf(*geometry);
        VrexGeometryTransformation3DVisitor visitor({motion.translation, drifted}, true);
        const LogCapture log;
        geometry->accept(visitor);
        expectPose(*geometry, motion(before));
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines()[0].level, 2U);
    }
}

TEST(VrexGeometryTransformation3DVisitor, PositionNeverMovesWithoutItsRotation) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const Geometry& geometry : Geometries{makeSample<VrexEllipse3D>(), makeSample<VrexRigidSet3D>()}) {
        const auto before = parametersOf(geometry);
        VrexGeometryTransformation3DVisitor visitor({{1.0, 2.0, 3.0}, nan, 0.0, 0.0, 0.0}, true);
        geometry->accept(visitor);
        EXPECT_EQ(parametersOf(geometry), before);
    }
}

TEST(VrexGeometryTransformation3DVisitor, RotatesAndTranslatesVectors) {
    const Motion motion = someMotion();
    const auto visitor = visitorOf(motion);
    nsPoses::expectNear(visitor.rotateVector({1.0, 2.0, 3.0}), motion.turn({1.0, 2.0, 3.0}));
    nsPoses::expectNear(visitor.translateVector({1.0, 2.0, 3.0}), {4.0, 1.0, 5.5});
}

TEST(VrexGeometryTransformation3DVisitor, NestedSetsMoveOnASmallStack) {
    const auto point = makeSample<VrexPoint3D>();
    const Pose before = poseOf(*point);
    runOnSmallStack([&point] {
        Geometry nested = point;
        for (int depth = 0; depth < 100'000; ++depth) {
            nested = VrexRigidSet3D::create({nested});
        }
        moveOnce(nested);
    });
    expectPose(*point, someMotion()(before));
}

TEST(VrexGeometryTransformation3DVisitor, SetThatHoldsItselfMovesOnce) {
    const auto set = VrexRigidSet3D::create({});
    set->geometries().push_back(set);
    const Pose before = poseOf(*set);
    moveOnce(set);
    expectPose(*set, someMotion()(before));
    set->geometries().clear();
}

TEST(VrexGeometryTransformation3DVisitor, MembersOfASetCostOneEntryEach) {
    constexpr std::size_t MEMBERS = 100'000;
    Geometries members;
    for (std::size_t i = 0; i < MEMBERS; ++i) {
        members.push_back(VrexPoint3D::create(1.0, 2.0, static_cast<double>(i)));
    }
    const auto set = VrexRigidSet3D::create(members);
    auto visitor = visitorOf(someMotion());
    const AllocationCounter counter;
    set->accept(visitor);
    // The table of the visited grows some twenty times.
    EXPECT_LT(counter.count(), MEMBERS + 40);
}

} // namespace
