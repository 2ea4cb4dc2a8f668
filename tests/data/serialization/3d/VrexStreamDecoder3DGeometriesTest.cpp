#include <cmath>
#include <cstdint>
#include <memory>
#include <numbers>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "data/geometry/3d/VrexTorus3D.h"
#include "support/StreamObjects.h"

namespace nsStreamObjects {
namespace {

using testing::ElementsAre;

/// Directions go through angles, rotations through their axes: a few roundings.
constexpr double ROUNDED = 4e-15;

void expectVector(const VrexVector3DT<double>& vector, double x, double y, double z,
                  double tolerance = ROUNDED) {
    EXPECT_NEAR(vector.x(), x, tolerance);
    EXPECT_NEAR(vector.y(), y, tolerance);
    EXPECT_NEAR(vector.z(), z, tolerance);
}

/// Expects what `common` writes.
void expectCommon(VrexBaseGeometry& geometry, std::uint64_t id) {
    EXPECT_EQ(geometry.getID(), id);
    EXPECT_EQ(geometry.status(), VrexGeometryStatus::Overdefined);
    EXPECT_EQ(geometry.getChangeStatus(), VrexGeometryChangeStatus::Changed);
    EXPECT_EQ(geometry.label(), "mark");
    EXPECT_FALSE(geometry.isDirty());
}

TEST(VrexStreamDecoder3D, ReadsAVariable) {
    const auto read = Reader(variable(7, -2.5)).last<VrexGeometryVariable>();
    EXPECT_EQ(read->getValue(), -2.5);
    expectCommon(*read, 7);
}

TEST(VrexStreamDecoder3D, ReadsAPoint) {
    const auto read = Reader(geometry(0, vector(0.1, -0.0, 1e300), 4)).last<VrexPoint3D>();
    expectVector(read->getPosition(), 0.1, 0.0, 1e300, 0.0);
    EXPECT_TRUE(std::signbit(read->getPosition().y()));
    expectCommon(*read, 4);
}

TEST(VrexStreamDecoder3D, StatusesAreKeptAsNumbers) {
    const Bytes bytes =
        block(join({u32(2), u32(0), vector(0.0, 0.0, 0.0), u64(1), u32(77), u32(-9), string(""), {0x80}}));
    const auto read = Reader(bytes).last<VrexPoint3D>();
    EXPECT_EQ(static_cast<int>(read->status()), 77);
    EXPECT_EQ(static_cast<int>(read->getChangeStatus()), -9);
    EXPECT_TRUE(read->isDirty()) << "every byte but 0 is true";
}

TEST(VrexStreamDecoder3D, ReadsALine) {
    const auto read =
        Reader(geometry(1, join({vector(1.0, 2.0, 3.0), vector(0.0, 3.0, 4.0)}), 5)).last<VrexLine3D>();
    expectVector(read->getOrigin(), 1.0, 2.0, 3.0, 0.0);
    expectVector(read->getDirection(), 0.0, 0.6, 0.8);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsAPlane) {
    const auto read =
        Reader(geometry(2, join({vector(4.0, 5.0, 6.0), vector(0.0, 0.0, -1.0)}), 5)).last<VrexPlane3D>();
    expectVector(read->getOrigin(), 4.0, 5.0, 6.0, 0.0);
    expectVector(read->getNormal(), 0.0, 0.0, -1.0);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsACircleAndItsRange) {
    const Bytes fields = join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0), f64(1.5)});
    const auto trimmed = Reader(geometry(7, join({fields, some(0.25), none()}), 5)).last<VrexCircle3D>();
    expectVector(trimmed->getCenter(), 1.0, 2.0, 3.0, 0.0);
    expectVector(trimmed->getNormal(), 0.0, 0.0, 1.0);
    EXPECT_EQ(trimmed->getRadius(), 1.5);
    EXPECT_EQ(trimmed->start(), 0.25);
    EXPECT_EQ(trimmed->end(), std::nullopt);
    EXPECT_EQ(trimmed->getAllowRadiusSignChange(), std::nullopt);
    expectCommon(*trimmed, 5);
    const auto other = Reader(geometry(7, join({fields, none(), some(-2.0)}), 5)).last<VrexCircle3D>();
    EXPECT_EQ(other->start(), std::nullopt);
    EXPECT_EQ(other->end(), -2.0);
}

TEST(VrexStreamDecoder3D, ReadsAnEllipseWithItsNormalBeforeItsDirection) {
    const Bytes fields = join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0), vector(0.0, 1.0, 0.0), f64(4.0),
                               f64(2.5), some(-0.5), some(2.0)});
    const auto read = Reader(geometry(10, fields, 5)).last<VrexEllipse3D>();
    expectVector(read->getCenter(), 1.0, 2.0, 3.0, 0.0);
    expectVector(read->getNormal(), 0.0, 0.0, 1.0);
    expectVector(read->getDirection(), 0.0, 1.0, 0.0);
    EXPECT_EQ(read->getMajorRadius(), 4.0);
    EXPECT_EQ(read->getMinorRadius(), 2.5);
    EXPECT_EQ(read->start(), -0.5);
    EXPECT_EQ(read->end(), 2.0);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsACylinder) {
    const auto read = Reader(geometry(5, join({vector(1.0, 2.0, 3.0), vector(1.0, 0.0, 0.0), f64(0.75)}), 5))
                          .last<VrexCylinder3D>();
    expectVector(read->getOrigin(), 1.0, 2.0, 3.0, 0.0);
    expectVector(read->getDirection(), 1.0, 0.0, 0.0);
    EXPECT_EQ(read->getRadius(), 0.75);
    EXPECT_EQ(read->startU(), std::nullopt);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsACone) {
    const auto read = Reader(geometry(9, join({vector(1.0, 2.0, 3.0), vector(1.0, 0.0, 0.0), f64(0.5)}), 5))
                          .last<VrexCone3D>();
    expectVector(read->getOrigin(), 1.0, 2.0, 3.0, 0.0);
    expectVector(read->getDirection(), 1.0, 0.0, 0.0);
    EXPECT_EQ(read->getAperture(), 0.5);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsASphere) {
    const auto read = Reader(geometry(6, join({vector(1.0, 2.0, 3.0), f64(-0.75)}), 5)).last<VrexSphere3D>();
    expectVector(read->getCenter(), 1.0, 2.0, 3.0, 0.0);
    EXPECT_EQ(read->getRadius(), -0.75);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsATorus) {
    const auto read =
        Reader(geometry(11, join({vector(1.0, 2.0, 3.0), vector(0.0, 1.0, 0.0), f64(3.0), f64(1.25)}), 5))
            .last<VrexTorus3D>();
    expectVector(read->getCenter(), 1.0, 2.0, 3.0, 0.0);
    expectVector(read->getNormal(), 0.0, 1.0, 0.0);
    EXPECT_EQ(read->getMajorRadius(), 3.0);
    EXPECT_EQ(read->getMinorRadius(), 1.25);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsARigidSetWithItsAxisBeforeItsAngle) {
    Reader reader(join(
        {point(1), point(2),
         geometry(
             3, join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0), f64(std::numbers::pi / 2), ids({2, 1})}),
             5)}));
    const auto first = reader.next();
    const auto second = reader.next();
    const auto read = reader.last<VrexRigidSet3D>();
    expectVector(read->getOrigin(), 1.0, 2.0, 3.0, 0.0);
    expectVector(read->getDirection(), 0.0, 1.0, 0.0);
    expectVector(read->getNormal(), 0.0, 0.0, 1.0);
    EXPECT_THAT(read->geometries(), ElementsAre(second, first));
    expectCommon(*read, 5);
}

/// Moved by (1, 2, 3), half turned about X.
Bytes movedConnector(std::uint64_t id, std::uint64_t set) {
    return geometry(12, join({u64(set), vector(1.0, 2.0, 3.0), vector(1.0, 0.0, 0.0), f64(std::numbers::pi)}),
                    id);
}

TEST(VrexStreamDecoder3D, ReadsAConnector) {
    Reader reader(join({rigidSet(8, {}), movedConnector(5, 8)}));
    const auto set = reader.next();
    const auto read = reader.last<VrexConnector3D>();
    EXPECT_EQ(read->getRigidSet(), set);
    expectVector(read->getOrigin(), 1.0, 2.0, 3.0, 0.0);
    EXPECT_NEAR(read->getRotation().scalar(), 0.0, ROUNDED);
    expectVector(read->getRotation().vector(), 1.0, 0.0, 0.0);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, AConnectorOfTheIdentifierZeroHasNoRigidSet) {
    Reader reader(join({rigidSet(0, {}), connector(5, 0)}));
    EXPECT_EQ(reader.skip(1).last<VrexConnector3D>()->getRigidSet(), nullptr);
}

Bytes controlPoint(std::uint64_t id, double weight) { return join({u64(id), f64(weight)}); }

TEST(VrexStreamDecoder3D, ReadsANURBSSurfaceByRows) {
    const Bytes rows = block(join({block(join({controlPoint(1, 0.5), controlPoint(2, 1.0)})),
                                   block(join({controlPoint(2, 1.5), controlPoint(3, 2.0)})),
                                   block(join({controlPoint(3, 2.5), controlPoint(1, 3.0)}))}));
    Reader reader(
        join({point(1), point(2), point(3),
              geometry(4, join({u32(2), u32(1), numbers({0.0, 1.0, 2.0}), numbers({5.0}), rows}), 5)}));
    const auto first = reader.next();
    const auto read = reader.skip(2).last<VrexNURBSSurface3D>();
    EXPECT_EQ(read->uDegree(), 2);
    EXPECT_EQ(read->vDegree(), 1);
    EXPECT_THAT(read->uKnots(), ElementsAre(0.0, 1.0, 2.0));
    EXPECT_THAT(read->vKnots(), ElementsAre(5.0));
    ASSERT_EQ(read->controlPoints().size(), 3U);
    ASSERT_EQ(read->controlPoints()[2].size(), 2U);
    EXPECT_EQ(read->controlPoints()[2][1].point, first);
    EXPECT_EQ(read->controlPoints()[2][1].weight, 3.0);
    EXPECT_EQ(read->controlPoints()[0][0].weight, 0.5);
    EXPECT_EQ(read->dof(), 18);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsASpline) {
    const Bytes fields = join({u32(2), numbers({0.0, 1.0}), flag(true),
                               block(join({controlPoint(1, 0.5), controlPoint(2, 4.0)})), ids({2, 2}),
                               numbers({0.25}), some(0.125), some(8.0)});
    Reader reader(join({point(1), point(2), geometry(8, fields, 5)}));
    const auto first = reader.next();
    const auto second = reader.next();
    const auto read = reader.last<VrexSpline3D>();
    EXPECT_EQ(read->degree(), 2);
    EXPECT_TRUE(read->periodic());
    EXPECT_THAT(read->knots(), ElementsAre(0.0, 1.0));
    ASSERT_EQ(read->controlPoints().size(), 2U);
    EXPECT_EQ(read->controlPoints()[0].point, first);
    EXPECT_EQ(read->controlPoints()[1].weight, 4.0);
    EXPECT_THAT(read->getInterpolatedPoints(), ElementsAre(second, second));
    EXPECT_THAT(read->getInterpolatedParameters(), ElementsAre(0.25));
    EXPECT_EQ(read->start(), 0.125);
    EXPECT_EQ(read->end(), 8.0);
    EXPECT_EQ(read->dof(), 6);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsASplineWithoutPoints) {
    const auto read =
        Reader(geometry(8, join({u32(3), none(), flag(false), none(), none(), none(), none(), none()}), 5))
            .last<VrexSpline3D>();
    EXPECT_TRUE(read->controlPoints().empty());
    EXPECT_TRUE(read->getInterpolatedPoints().empty());
    EXPECT_FALSE(read->start().has_value());
}

TEST(VrexStreamDecoder3D, ReadsASpinSurfaceWithItsAxisBeforeItsProfile) {
    Reader reader(join({circle(1), line(2), geometry(13, join({u64(2), u64(1)}), 5)}));
    const auto profile = reader.next();
    const auto axis = reader.next();
    const auto read = reader.last<VrexSpinSurface3D>();
    EXPECT_EQ(read->getProfileCurve(), profile);
    EXPECT_EQ(read->getAxisLine(), axis);
    EXPECT_EQ(read->startV(), std::nullopt);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsASweepSurfaceWithItsProfileBeforeItsLine) {
    Reader reader(join({circle(1), line(2), geometry(16, join({u64(1), u64(2), some(-1.0), some(3.0)}), 5)}));
    const auto profile = reader.next();
    const auto trajectory = reader.next();
    const auto read = reader.last<VrexSweepSurface3D>();
    EXPECT_EQ(read->getProfileCurve(), profile);
    EXPECT_EQ(read->getTrajectoryLine(), trajectory);
    EXPECT_EQ(read->startV(), -1.0);
    EXPECT_EQ(read->endV(), 3.0);
    EXPECT_EQ(read->startU(), std::nullopt);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsAnEvaluatedCurveWithItsAngleBeforeItsAxis) {
    const Bytes descriptors = block(join({descriptor(1, 0, "a"), descriptor(2, 2, "b")}));
    const Bytes fields =
        join({vector(1.0, 2.0, 3.0), f64(std::numbers::pi / 2), vector(1.0, 0.0, 0.0), string("a * t"),
              string("b"), string("t + 1"), descriptors, some(0.5), none()});
    Reader reader(join({variable(1, 4.0), point(2), geometry(15, fields, 5)}));
    const auto free = reader.next();
    const auto read = reader.skip(1).last<VrexEvaluatedCurve3D>();
    expectVector(read->getOrigin(), 1.0, 2.0, 3.0, 0.0);
    expectVector(read->getDirection(), 0.0, -1.0, 0.0);
    EXPECT_EQ(read->getX(), "a * t");
    EXPECT_EQ(read->getY(), "b");
    EXPECT_EQ(read->getZ(), "t + 1");
    ASSERT_EQ(read->descriptors().size(), 2U);
    EXPECT_EQ(read->descriptors()[0].object(), free);
    EXPECT_EQ(read->descriptors()[1].index(), 2U);
    EXPECT_EQ(read->descriptors()[1].variableName(), "b");
    EXPECT_EQ(read->start(), 0.5);
    EXPECT_EQ(read->end(), std::nullopt);
    // (4 * 2, 3, 3), turned by a right angle about X, at the origin.
    expectVector(read->evaluate(2.0, 0)[0], 1.0 + 8.0, 2.0 - 3.0, 3.0 + 3.0, 4 * ROUNDED);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsAPattern) {
    Reader reader(join({line(2), geometry(17, join({u32(1), u64(2), f64(0.25)}), 5)}));
    const auto axis = reader.next();
    const auto read = reader.last<VrexPattern3D>();
    EXPECT_EQ(read->getPatternType(), VrexPattern3DType::Circular3D);
    EXPECT_EQ(read->getAxisLine(), axis);
    EXPECT_EQ(read->getValue(), 0.25);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsAnArrayPattern) {
    Reader reader(join({line(1), geometry(17, join({u32(0), u64(1), f64(2.0)}), 2),
                        geometry(17, join({u32(1), u64(1), f64(0.5)}), 3), geometry(18, ids({2, 3}), 5)}));
    reader.skip(1);
    const auto linear = reader.next();
    const auto circular = reader.next();
    const auto read = reader.last<VrexArrayPattern3D>();
    EXPECT_THAT(read->getPatterns(), ElementsAre(linear, circular));
    EXPECT_EQ(read->getCircularPatternIdx(), 1);
    expectCommon(*read, 5);
}

TEST(VrexStreamDecoder3D, ReadsAnEqualDimensionElement) {
    const auto read = Reader(geometry(19, f64(1.5), 5)).last<VrexEqualDimensionElement3D>();
    EXPECT_EQ(read->getValue(), 1.5);
    expectCommon(*read, 5);
}

} // namespace
} // namespace nsStreamObjects
