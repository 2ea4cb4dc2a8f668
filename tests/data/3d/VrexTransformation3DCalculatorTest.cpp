#include "data/3d/VrexTransformation3DCalculator.h"

#include <numbers>
#include <stdexcept>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "support/AnyGeometry.h"
#include "support/Poses.h"
#include "support/RandomShapes.h"

namespace {

using nsPoses::expectNear;
using nsPoses::Quaternion;
using nsPoses::Vector;
using testing::ThrowsMessage;
using Geometry = std::shared_ptr<VrexGeometry3D>;
using Geometries = std::vector<Geometry>;

constexpr double TOLERANCE = 1e-9;
const VrexTransformation3DCalculator calculate;

void expectRotation(const VrexTransformation3DT<double>& motion, const Quaternion& expected) {
    EXPECT_NEAR(motion.getRotation().scalar(), expected.scalar(), nsPoses::TOLERANCE);
    expectNear(motion.getRotation().vector(), expected.vector());
}

void expectNoMotion(const VrexTransformation3DT<double>& motion) {
    expectRotation(motion, Quaternion::ONE());
    expectNear(motion.getTranslation(), Vector::ZERO());
}

TEST(VrexTransformation3DCalculator, LinesOfOneDirectionAndOriginNeedNoMotion) {
    const auto a = VrexLine3D::create({1.0, 2.0, 3.0}, {0.0, 3.0, 4.0});
    const auto b = VrexLine3D::create({1.0, 2.0, 3.0}, {0.0, 6.0, 8.0});
    expectNoMotion(calculate(*a, *b, TOLERANCE));
}

TEST(VrexTransformation3DCalculator, OppositeLinesTakeAHalfTurn) {
    const auto a = VrexLine3D::create({0.0, 2.0, 3.0}, {0.0, 0.0, 1.0});
    const auto b = VrexLine3D::create({0.0, 0.0, 1.0}, {0.0, 0.0, -1.0});
    const auto motion = calculate(*a, *b, TOLERANCE);
    expectRotation(motion, Quaternion::makeFromScalarAndVector(0.0, Vector::OX()));
    // The half turn about X takes the origin (0, 2, 3) to (0, -2, -3).
    expectNear(motion.getTranslation(), {0.0, 2.0, 4.0});
}

TEST(VrexTransformation3DCalculator, DirectionsGiveTheShortestRotation) {
    const auto a = VrexLine3D::create({1.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    const auto b = VrexLine3D::create({0.0, 0.0, 5.0}, {0.0, 1.0, 0.0});
    const auto motion = calculate(*a, *b, TOLERANCE);
    const double half = std::numbers::sqrt2 / 2.0;
    expectRotation(motion, Quaternion::makeFromScalarAndVector(half, {0.0, 0.0, half}));
    expectNear(motion.getTranslation(), {0.0, -1.0, 5.0});
}

TEST(VrexTransformation3DCalculator, FramesGiveTheirWholeRotation) {
    // Both normals are the Z axis, the directions a quarter turn apart.
    const auto a = VrexEllipse3D::create({1.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 3.0, 2.0);
    const auto b = VrexEllipse3D::create({5.0, 5.0, 5.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, 9.0, 8.0);
    const auto motion = calculate(*a, *b, TOLERANCE);
    const double half = std::numbers::sqrt2 / 2.0;
    expectRotation(motion, Quaternion::makeFromScalarAndVector(half, {0.0, 0.0, half}));
    expectNear(motion.getTranslation(), {5.0, 4.0, 5.0});
}

TEST(VrexTransformation3DCalculator, PointsAndSpheresAreOnlyTranslated) {
    const auto a = VrexPoint3D::create(1.0, 2.0, 3.0);
    const auto b = VrexPoint3D::create(-1.0, 5.0, 3.5);
    const auto ofPoints = calculate(*a, *b, TOLERANCE);
    EXPECT_TRUE(ofPoints.isEqual({{-2.0, 3.0, 0.5}, Quaternion::ONE()}, 1e-300, 1e-300));

    const auto ofSpheres = calculate(*VrexSphere3D::create({1.0, 2.0, 3.0}, 1.0),
                                     *VrexSphere3D::create({-1.0, 5.0, 3.5}, 7.0), TOLERANCE);
    EXPECT_TRUE(ofSpheres.isEqual(ofPoints, 1e-300, 1e-300));
}

TEST(VrexTransformation3DCalculator, ShapesOfOtherEntitiesNeedNoMotionEvenIfTheyDiffer) {
    const auto motion = nsPoses::someMotion().transformation();
    for (const auto& [a, b] : std::vector<std::pair<Geometry, Geometry>>{
             {makeSample<VrexNURBSSurface3D>(), makeSample<VrexNURBSSurface3D>()},
             {makeSample<VrexSpline3D>(), makeSample<VrexSpline3D>()},
             {makeSample<VrexSpinSurface3D>(), makeSample<VrexSpinSurface3D>()},
             {makeSample<VrexSweepSurface3D>(), makeSample<VrexSweepSurface3D>()}}) {
        VrexGeometryTransformation3DVisitor visitor(motion, false);
        b->accept(visitor);
        const auto result = calculate(*a, *b, TOLERANCE);
        EXPECT_TRUE(result.isEqual(VrexTransformation3DT<double>(), 1e-300, 1e-300));
    }
}

/// An entity of each kind that has a motion, at random.
Geometries randomShapes(RandomShapes& random) {
    const auto frame = [&random] { return Vector(random.direction()); };
    const auto ellipse = VrexEllipse3D::create(random.point(), Vector::OX(), Vector::OZ(), 3.0, 2.0);
    EXPECT_TRUE(ellipse->setRotation(random.rotation()));
    const auto connector = VrexConnector3D::create(nullptr);
    connector->setTransformation({random.point(), random.rotation()});
    return {VrexCircle3D::create(random.point(), frame(), 2.0),
            VrexCone3D::create(random.point(), frame(), 0.5),
            VrexCylinder3D::create(random.point(), frame(), 2.0),
            VrexLine3D::create(random.point(), frame()),
            VrexPlane3D::create(random.point(), frame()),
            VrexTorus3D::create(random.point(), frame(), 3.0, 1.0),
            connector,
            ellipse,
            VrexEvaluatedCurve3D::create(random.point(), random.rotation()),
            VrexEvaluatedSurface3D::create(random.point(), random.rotation()),
            VrexPoint3D::create(random.number(-9.0, 9.0), 2.0, 3.0),
            VrexSphere3D::create(random.point(), 2.0)};
}

TEST(VrexTransformation3DCalculator, MotionMovesTheOneOntoTheOtherForEveryKind) {
    RandomShapes random;
    for (int round = 0; round < 200; ++round) {
        const Geometries from = randomShapes(random);
        const Geometries to = randomShapes(random);
        for (std::size_t i = 0; i < from.size(); ++i) {
            SCOPED_TRACE(getEnumeratorText(from[i]->type()));
            VrexGeometryTransformation3DVisitor visitor(calculate(*from[i], *to[i], TOLERANCE), false);
            from[i]->accept(visitor);
            nsPoses::expectPose(*from[i], nsPoses::poseOf(*to[i]));
        }
    }
}

TEST(VrexTransformation3DCalculator, ThrowsForWhatHasNoMotion) {
    for (const Geometry& geometry : Geometries{
             makeSample<VrexRigidSet3D>(), makeSample<VrexPattern3D>(), makeSample<VrexArrayPattern3D>(),
             makeSample<VrexEqualDimensionElement3D>(), AnyGeometry::create(VrexGeometry3DType::POINT, 1)}) {
        EXPECT_THAT(
            [&] { static_cast<void>(calculate(*geometry, *geometry, TOLERANCE)); },
            ThrowsMessage<std::runtime_error>("VrexTransformation3DCalculatorVisitor: geometry not handled"));
    }
}

TEST(VrexTransformation3DCalculator, ThrowsForTwoKinds) {
    RandomShapes random;
    const Geometries shapes = randomShapes(random);
    for (const Geometry& a : shapes) {
        for (const Geometry& b : shapes) {
            if (a->type() != b->type()) {
                EXPECT_THAT([&] { static_cast<void>(calculate(*a, *b, TOLERANCE)); },
                            ThrowsMessage<std::runtime_error>(
                                "VrexTransformation3DCalculatorVisitor: geometry not handled"));
            }
        }
    }
}

} // namespace
