#include <cstdint>
#include <limits>
#include <memory>
#include <numbers>
#include <string>

#include <gtest/gtest.h>

#include "data/VrexInvalidArgumentException.h"
#include "data/serialization/3d/VrexObjectEncoder3D.h"
#include "support/LogCapture.h"
#include "support/Numbered.h"
#include "support/ProbeShapes.h"
#include "support/Samples.h"
#include "support/StreamEncoding.h"
#include "support/StreamObjects.h"

namespace nsStreamObjects {
namespace {

using nsStreamEncoding::encoded;
using nsStreamEncoding::isEncoded;
using nsStreamEncoding::marked;

constexpr double PI = std::numbers::pi;
/// Written without rounding, as is no other direction.
const VrexVector3DT<double> UP(0.0, 0.0, 1.0);

std::shared_ptr<VrexPoint3D> point(std::uint64_t id) {
    return numbered(VrexPoint3D::create(1.0, -2.0, 3.5), id);
}
std::shared_ptr<VrexLine3D> line(std::uint64_t id) { return numbered(VrexLine3D::create({}, UP), id); }
std::shared_ptr<VrexCircle3D> circle(std::uint64_t id) {
    return numbered(VrexCircle3D::create({}, UP, 1.5), id);
}
/// A half turn about the Z axis.
VrexQuaternionT<double> halfTurn() { return VrexQuaternionT<double>::makeFromScalarAndVector(0.0, UP); }

TEST(VrexObjectEncoder3D, APointByteForByte) {
    const auto point = VrexPoint3D::create(1.0, -2.0, 0.5);
    point->setID(0x0102030405060708);
    point->label() = "ab";
    point->setDirty(true);
    point->status() = VrexGeometryStatus::Unknown;
    point->setChangeStatus(VrexGeometryChangeStatus::NotChanged);
    const Bytes expected{
        0x30, 56,   0,    0,    0,                    // block
        2,    0,    0,    0,                          // geometry
        0,    0,    0,    0,                          // point
        0,    0,    0,    0,    0,   0,   0xF0, 0x3F, // x
        0,    0,    0,    0,    0,   0,   0,    0xC0, // y
        0,    0,    0,    0,    0,   0,   0xE0, 0x3F, // z
        8,    7,    6,    5,    4,   3,   2,    1,    // identifier
        0xFF, 0xFF, 0xFF, 0xFF,                       // status
        2,    0,    0,    0,                          // change status
        3,    0,    0,    0,    'a', 'b', 0,          // label
        1                                             // dirty
    };
    EXPECT_EQ(encoded(point), expected);
}

TEST(VrexObjectEncoder3D, AVariable) {
    EXPECT_EQ(encoded(marked(VrexGeometryVariable::create(2.5), 7)), nsStreamObjects::variable(7, 2.5));
}

TEST(VrexObjectEncoder3D, ALineIsOriginThenDirection) {
    EXPECT_EQ(encoded(marked(VrexLine3D::create({1.0, 2.0, 3.0}, UP), 7)),
              geometry(1, join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0)}), 7));
}

TEST(VrexObjectEncoder3D, ADirectionIsWhatTheAnglesGive) {
    const auto line = marked(VrexLine3D::create({1.0, 2.0, 3.0}, {0.0, 3.0, 4.0}), 7);
    const auto direction = line->getDirection();
    EXPECT_NEAR(direction.y(), 0.6, 1e-15);
    EXPECT_EQ(
        encoded(line),
        geometry(1, join({vector(1.0, 2.0, 3.0), vector(direction.x(), direction.y(), direction.z())}), 7));
}

/// The distance is left out: a solver that moves the plane by it alone is not heard.
TEST(VrexObjectEncoder3D, APlaneIsItsStoredOriginThenNormal) {
    EXPECT_EQ(encoded(marked(VrexPlane3D::create({1.0, 2.0, 3.0}, UP), 7)),
              geometry(2, join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0)}), 7));
}

TEST(VrexObjectEncoder3D, ACircleHasItsRange) {
    const auto circle = marked(VrexCircle3D::create({1.0, 2.0, 3.0}, UP, 4.0), 7);
    const Bytes shape = join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0), f64(4.0)});
    EXPECT_EQ(encoded(circle), geometry(7, join({shape, none(), none()}), 7));
    circle->start() = 0.25;
    EXPECT_EQ(encoded(circle), geometry(7, join({shape, some(0.25), none()}), 7));
    circle->end() = 1.5;
    // Left out.
    circle->setAllowRadiusSignChange(true);
    EXPECT_EQ(encoded(circle), geometry(7, join({shape, some(0.25), some(1.5)}), 7));
}

TEST(VrexObjectEncoder3D, AnEllipseIsNormalBeforeDirection) {
    const auto ellipse = marked(VrexEllipse3D::create({1.0, 2.0, 3.0}, {1.0, 0.0, 0.0}, UP, 5.0, 4.0), 7);
    ellipse->end() = 2.0;
    EXPECT_EQ(encoded(ellipse), geometry(10,
                                         join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0),
                                               vector(1.0, 0.0, 0.0), f64(5.0), f64(4.0), none(), some(2.0)}),
                                         7));
}

TEST(VrexObjectEncoder3D, SurfacesOfRevolutionLeaveTheirRangesOut) {
    const Bytes frame = join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0)});
    const auto cylinder = marked(VrexCylinder3D::create({1.0, 2.0, 3.0}, UP, 0.75), 7);
    const auto cone = marked(VrexCone3D::create({1.0, 2.0, 3.0}, UP, 0.625), 8);
    const auto torus = marked(VrexTorus3D::create({1.0, 2.0, 3.0}, UP, 3.0, 1.25), 9);
    for (VrexParametricSurface3D* surface :
         std::initializer_list<VrexParametricSurface3D*>{cylinder.get(), cone.get(), torus.get()}) {
        trim(*surface);
    }
    EXPECT_EQ(encoded(cylinder), geometry(5, join({frame, f64(0.75)}), 7));
    EXPECT_EQ(encoded(cone), geometry(9, join({frame, f64(0.625)}), 8));
    EXPECT_EQ(encoded(torus), geometry(11, join({frame, f64(3.0), f64(1.25)}), 9));
}

TEST(VrexObjectEncoder3D, ASphereIsCentreThenRadius) {
    EXPECT_EQ(encoded(marked(VrexSphere3D::create({1.0, 2.0, 3.0}, 0.5), 7)),
              geometry(6, join({vector(1.0, 2.0, 3.0), f64(0.5)}), 7));
}

TEST(VrexObjectEncoder3D, ARigidSetIsOriginAxisAngleMembers) {
    const auto set = marked(VrexRigidSet3D::create({point(3), nullptr, line(5)}), 7);
    set->setOrigin({1.0, 2.0, 3.0});
    // Without a rotation the axis is that of X.
    EXPECT_EQ(encoded(set),
              geometry(3, join({vector(1.0, 2.0, 3.0), vector(1.0, 0.0, 0.0), f64(0.0), ids({3, 5})}), 7));
    set->geometries().clear();
    ASSERT_TRUE(set->setRotation(halfTurn()));
    EXPECT_EQ(encoded(set),
              geometry(3, join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0), f64(PI), none()}), 7));
}

TEST(VrexObjectEncoder3D, ARotationAsSmallAs1e10HasAnAxis) {
    const auto set = marked(VrexRigidSet3D::create({}), 7);
    const auto half = [](double sine) {
        return VrexQuaternionT<double>::makeFromScalarAndVector(1.0, {0.0, 0.0, sine});
    };
    ASSERT_TRUE(set->setRotation(half(2e-10)));
    EXPECT_EQ(
        encoded(set),
        geometry(3, join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0), f64(set->getAngle()), none()}), 7));
    ASSERT_TRUE(set->setRotation(half(1e-11)));
    EXPECT_EQ(
        encoded(set),
        geometry(3, join({vector(0.0, 0.0, 0.0), vector(1.0, 0.0, 0.0), f64(set->getAngle()), none()}), 7));
}

TEST(VrexObjectEncoder3D, AConnectorWithoutASetNamesNone) {
    const auto connector = marked(VrexConnector3D::create(numbered(VrexRigidSet3D::create({}), 3)), 7);
    connector->setTransformation({{1.0, 2.0, 3.0}, halfTurn()});
    const Bytes frame = join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0), f64(PI)});
    EXPECT_EQ(encoded(connector), geometry(12, join({u64(3), frame}), 7));
    connector->setRigidSet(nullptr);
    EXPECT_EQ(encoded(connector), geometry(12, join({u64(0), frame}), 7));
}

TEST(VrexObjectEncoder3D, ANurbsSurfaceIsABlockOfRows) {
    const auto surface =
        marked(VrexNURBSSurface3D::create(
                   {1, 2, {0.0, 0.5, 1.0}, {}, {{{point(2), 1.0}, {point(3), 0.5}}, {}, {{point(4), 2.0}}}}),
               7);
    trim(*surface);
    const Bytes rows = block(
        join({block(join({u64(2), f64(1.0), u64(3), f64(0.5)})), none(), block(join({u64(4), f64(2.0)}))}));
    EXPECT_EQ(encoded(surface),
              geometry(4, join({u32(1), u32(2), numbers({0.0, 0.5, 1.0}), none(), rows}), 7));
    surface->controlPoints().clear();
    EXPECT_EQ(encoded(surface),
              geometry(4, join({u32(1), u32(2), numbers({0.0, 0.5, 1.0}), none(), none()}), 7));
}

TEST(VrexObjectEncoder3D, ASplineIsDegreeKnotsPeriodicPoints) {
    const auto spline =
        marked(VrexSpline3D::create({2, true, {0.0, 1.5}, {{point(2), 1.0}, {point(3), 0.5}}}), 7);
    const Bytes head =
        join({u32(2), numbers({0.0, 1.5}), flag(true), block(join({u64(2), f64(1.0), u64(3), f64(0.5)}))});
    // Without interpolated points there are two empty blocks.
    EXPECT_EQ(encoded(spline), geometry(8, join({head, none(), none(), none(), none()}), 7));
    spline->setInterpolatedPoints({point(4), nullptr, point(5)});
    spline->setInterpolatedParameters({0.25, 0.75});
    spline->start() = 0.5;
    EXPECT_EQ(encoded(spline),
              geometry(8, join({head, ids({4, 5}), numbers({0.25, 0.75}), some(0.5), none()}), 7));
}

TEST(VrexObjectEncoder3D, ASpinSurfaceIsAxisBeforeProfile) {
    const auto surface = marked(VrexSpinSurface3D::create(circle(2), line(3)), 7);
    trim(*surface);
    EXPECT_EQ(encoded(surface), geometry(13, join({u64(3), u64(2)}), 7));
}

TEST(VrexObjectEncoder3D, ASweepSurfaceIsProfileBeforeLineAndHasTheLimitsOfV) {
    const auto surface = marked(VrexSweepSurface3D::create(circle(2), line(3), {}), 7);
    EXPECT_EQ(encoded(surface), geometry(16, join({u64(2), u64(3), none(), none()}), 7));
    trim(*surface);
    EXPECT_EQ(encoded(surface), geometry(16, join({u64(2), u64(3), some(-2.0), some(7.0)}), 7));
}

TEST(VrexObjectEncoder3D, AnEvaluatedCurveIsAngleBeforeAxis) {
    const auto radius = numbered(VrexGeometryVariable::create(2.0), 2);
    const auto curve =
        marked(VrexEvaluatedCurve3D::create({1.0, 2.0, 3.0}, halfTurn(),
                                            {{radius, 0, "r"}, {circle(3), 1, "x"}}, "r * t", "x", "t"),
               7);
    curve->start() = -1.0;
    const Bytes descriptors = block(join({descriptor(2, 0, "r"), descriptor(3, 1, "x")}));
    EXPECT_EQ(encoded(curve),
              geometry(15,
                       join({vector(1.0, 2.0, 3.0), f64(PI), vector(0.0, 0.0, 1.0), string("r * t"),
                             string("x"), string("t"), descriptors, some(-1.0), none()}),
                       7));
}

TEST(VrexObjectEncoder3D, APatternIsTypeLineValue) {
    EXPECT_EQ(encoded(marked(VrexPattern3D::create(VrexPattern3DType::Circular3D, line(3), 0.25), 7)),
              geometry(17, join({u32(1), u64(3), f64(0.25)}), 7));
}

TEST(VrexObjectEncoder3D, AnArrayPatternIsItsPatterns) {
    const auto pattern = [](std::uint64_t id) {
        return numbered(VrexPattern3D::create(VrexPattern3DType::Linear3D, line(3), 0.25), id);
    };
    EXPECT_EQ(encoded(marked(VrexArrayPattern3D::create({pattern(4), pattern(5)}), 7)),
              geometry(18, ids({4, 5}), 7));
    EXPECT_EQ(encoded(marked(VrexArrayPattern3D::create({}), 7)), geometry(18, none(), 7));
}

TEST(VrexObjectEncoder3D, AnEqualDimensionElementIsItsValue) {
    EXPECT_EQ(encoded(marked(VrexEqualDimensionElement3D::create(1.5), 7)), geometry(19, f64(1.5), 7));
}

TEST(VrexObjectEncoder3D, NumbersAreCopiedBitByBit) {
    const double quiet = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(encoded(marked(VrexPoint3D::create(quiet, -infinite, -0.0), 7)),
              geometry(0, vector(quiet, -infinite, -0.0), 7));
}

TEST(VrexObjectEncoder3D, AnEvaluatedSurfaceThrows) {
    const LogCapture log;
    try {
        isEncoded(makeSample<VrexEvaluatedSurface3D>());
        FAIL();
    } catch (const VrexInvalidArgumentException& error) {
        EXPECT_STREQ(error.what(), "Not supported object type.");
    }
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
}

TEST(VrexObjectEncoder3D, AClassOfTheApplicationThrows) {
    EXPECT_THROW(isEncoded(std::make_shared<ProbeCurve>()), VrexInvalidArgumentException);
}

TEST(VrexObjectEncoder3D, AMissingPartFails) {
    EXPECT_FALSE(isEncoded(nullptr));
    EXPECT_FALSE(isEncoded(VrexPattern3D::create(VrexPattern3DType::Linear3D, nullptr, 1.0)));
    EXPECT_FALSE(isEncoded(VrexSpinSurface3D::create(nullptr, line(3))));
    EXPECT_FALSE(isEncoded(VrexSpinSurface3D::create(circle(2), nullptr)));
    EXPECT_FALSE(isEncoded(VrexSweepSurface3D::create(nullptr, line(3), {})));
    EXPECT_FALSE(isEncoded(VrexSweepSurface3D::create(circle(2), nullptr, {})));
    EXPECT_FALSE(isEncoded(VrexSpline3D::create({1, false, {}, {{nullptr, 1.0}}})));
    EXPECT_FALSE(isEncoded(VrexNURBSSurface3D::create({1, 1, {}, {}, {{{point(1), 1.0}, {nullptr, 1.0}}}})));
}

TEST(VrexObjectEncoder3D, ALabelWithAZeroByteFails) {
    const auto labelled = point(7);
    labelled->label() = std::string("a\0b", 3);
    EXPECT_FALSE(isEncoded(labelled));
}

/// Measured and written objects alike leave the encoder ready for the next.
TEST(VrexObjectEncoder3D, AFailureLeavesNothingBehind) {
    const auto unfit = VrexPattern3D::create(VrexPattern3DType::Linear3D, nullptr, 1.0);
    const Bytes expected = encoded(point(7));
    Bytes bytes(expected.size());
    VrexOutputMemory memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    VrexStreamEncoder3D encoder(&memory);
    EXPECT_FALSE(encoder.encodeObject(unfit));
    EXPECT_THROW((void)encoder.encodeObject(makeSample<VrexEvaluatedSurface3D>()),
                 VrexInvalidArgumentException);
    EXPECT_EQ(encoder.openBlocks(), 0U);
    EXPECT_TRUE(encoder.encodeObject(point(7)));
    EXPECT_EQ(bytes, expected);
}

TEST(VrexObjectEncoder3D, IsDoneAfterAVisitThatSucceeds) {
    VrexOutputLength length;
    VrexStreamEncoder3D stream(&length);
    VrexObjectEncoder3D encoder(&stream);
    EXPECT_FALSE(encoder.isDone());
    point(7)->accept(encoder);
    EXPECT_TRUE(encoder.isDone());
    VrexPattern3D::create(VrexPattern3DType::Linear3D, nullptr, 1.0)->accept(encoder);
    EXPECT_FALSE(encoder.isDone());
}

} // namespace
} // namespace nsStreamObjects
