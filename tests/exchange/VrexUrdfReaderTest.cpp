#include <cmath>
#include <numbers>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexConstraint3DPreValidator.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "exchange/ImportedRobot.h"

namespace {

using Vector = VrexVector3DT<double>;
using Frame = VrexTransformation3DT<double>;

constexpr double PI = std::numbers::pi;
constexpr double EXACT = 1e-15; ///< A few roundings of numbers near 1.

MATCHER_P3(IsNear, x, y, z, "") {
    return std::abs(arg.x() - x) < 4 * EXACT && std::abs(arg.y() - y) < 4 * EXACT &&
           std::abs(arg.z() - z) < 4 * EXACT;
}

Vector turned(const Frame& frame, const Vector& direction) {
    return VrexQuaternionT<double>::rotate(direction, frame.getRotation(), false);
}

/// Two links and the joint between them.
std::string pairOf(const std::string& type, const std::string& inside) {
    return "<robot name='r'><link name='base'/><link name='arm'/>"
           "<joint name='j' type='" +
           type +
           "'><parent link='base'/><child link='arm'/><origin xyz='1 2 3' rpy='0 0 1.5707963267948966'/>" +
           inside + "</joint></robot>";
}

/// Where the two connectors of the mate are.
template <class Mate>
std::pair<Frame, Frame> framesOf(const Mate& mate) {
    const auto frame = [&mate](std::size_t i) {
        return std::dynamic_pointer_cast<VrexConnector3D>(mate.getGeometries().at(i))->getTransformation();
    };
    return {frame(0), frame(1)};
}

TEST(VrexUrdfReader, ALinkIsALabelledSetAtItsZeroPose) {
    const ImportedRobot robot =
        importText("<robot name='r'><link name='a'/><link name='b'/><link name='c'/>"
                   "<joint name='ab' type='continuous'><parent link='a'/><child link='b'/>"
                   "<origin xyz='1 0 0' rpy='0 0 1.5707963267948966'/></joint>"
                   "<joint name='bc' type='floating'><parent link='b'/><child link='c'/>"
                   "<origin xyz='2 0 0'/></joint></robot>");
    EXPECT_THAT(robot.link("a")->getOrigin(), IsNear(0.0, 0.0, 0.0));
    EXPECT_THAT(robot.link("b")->getOrigin(), IsNear(1.0, 0.0, 0.0));
    EXPECT_THAT(robot.link("c")->getOrigin(), IsNear(1.0, 2.0, 0.0)); // two along what was X
    EXPECT_THAT(turned(robot.pose("c"), Vector::OX()), IsNear(0.0, 1.0, 0.0));
    EXPECT_EQ(robot.system.linearTolerance(), VrexDefaultToleranceGetter::LINEAR_TOLERANCE);
}

TEST(VrexUrdfReader, RollPitchAndYawTurnAboutFixedAxesInThisOrder) {
    // Roll takes Z to -Y, pitch leaves that, yaw takes it to X.
    const ImportedRobot robot = importText(
        "<robot name='r'><link name='a'/><link name='b'/><joint name='j' type='fixed'>"
        "<parent link='a'/><child link='b'/>"
        "<origin rpy='1.5707963267948966 1.5707963267948966 1.5707963267948966'/></joint></robot>");
    EXPECT_THAT(turned(robot.pose("b"), Vector::OZ()), IsNear(1.0, 0.0, 0.0));
    // Pitch takes X to -Z, which yaw leaves.
    EXPECT_THAT(turned(robot.pose("b"), Vector::OX()), IsNear(0.0, 0.0, -1.0));
}

TEST(VrexUrdfReader, ObjectsAreNumberedInTheirOrderGeometriesFirst) {
    const ImportedRobot robot = importText(pairOf("continuous", ""));
    std::uint64_t id = 0;
    for (const auto& geometry : robot.system.geometries()) {
        EXPECT_EQ(geometry->getID(), ++id);
    }
    for (const auto& constraint : robot.system.constraints()) {
        EXPECT_EQ(constraint->getID(), ++id);
    }
    EXPECT_EQ(id, 6U); // two sets, two connectors, a fixation, a mate
}

TEST(VrexUrdfReader, TheRootIsFixedCompletely) {
    const ImportedRobot robot = importText(pairOf("floating", ""));
    const auto fixations = ImportedRobot::all<VrexFixation3D>(robot.system.constraints(), "");
    ASSERT_EQ(fixations.size(), 1U);
    EXPECT_EQ(fixations[0]->getFixationType(), VrexFixation3DType::Complete3D);
    EXPECT_EQ(fixations[0]->getGeometries().at(0), robot.link("base"));
    EXPECT_EQ(robot.system.constraints().size(), 1U); // a floating joint has no mate
}

TEST(VrexUrdfReader, APrimitiveShapeIsAMemberWhereItIsInSpace) {
    const ImportedRobot robot = importText(
        "<robot name='r'><link name='a'/><link name='b'>"
        "<visual name='ball'><origin xyz='0 0 1'/><geometry><sphere radius='0.5'/></geometry></visual>"
        "<collision><origin rpy='0 1.5707963267948966 0'/>"
        "<geometry><cylinder radius='0.25' length='2'/></geometry></collision></link>"
        "<joint name='j' type='fixed'><parent link='a'/><child link='b'/>"
        "<origin xyz='10 0 0' rpy='0 0 1.5707963267948966'/></joint></robot>");
    ASSERT_EQ(robot.link("b")->geometries().size(), 2U);
    const auto ball = robot.geometry<VrexSphere3D>("ball");
    EXPECT_THAT(ball->getCenter(), IsNear(10.0, 0.0, 1.0));
    EXPECT_EQ(ball->getRadius(), 0.5);
    const auto cylinder = robot.geometry<VrexCylinder3D>("b"); // goes by the link where it has no name
    EXPECT_THAT(cylinder->getOrigin(), IsNear(10.0, 0.0, 0.0));
    EXPECT_THAT(cylinder->getDirection(), IsNear(0.0, 1.0, 0.0));
    EXPECT_EQ(cylinder->getRadius(), 0.25);
}

TEST(VrexUrdfReader, ABoxIsItsSixFaces) {
    const ImportedRobot robot =
        importText("<robot name='r'><link name='a'><visual><origin xyz='1 1 1'/>"
                   "<geometry><box size='2 4 6'/></geometry></visual></link></robot>");
    const auto faces = ImportedRobot::all<VrexPlane3D>(robot.system.geometries(), "a");
    ASSERT_EQ(faces.size(), 6U);
    const double ways[] = {1.0, 1.0, 2.0, 2.0, 3.0, 3.0};
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const Vector outwards = faces[i]->getNormal();
        const double sign = i % 2 == 0 ? 1.0 : -1.0;
        EXPECT_NEAR(outwards[static_cast<int>(i / 2)], sign, EXACT) << i;
        EXPECT_NEAR((faces[i]->getOrigin() - Vector(1.0, 1.0, 1.0)).dotProduct(outwards), ways[i], EXACT)
            << i;
    }
}

TEST(VrexUrdfReader, ConnectorsStandAtTheOriginAndAtTheChildWithTheAxisAsZ) {
    for (const char* const axis : {"1 0 0", "0 1 0", "0 0 1", "0 0 -1", "-1 0 0", "1 2 -2"}) {
        const ImportedRobot robot =
            importText(pairOf("continuous", std::string("<axis xyz='").append(axis).append("'/>")));
        const auto [parent, child] = framesOf(*robot.constraint<VrexRevoluteMate3D>("j"));
        const auto known = robot.geometry<VrexConnector3D>("j");
        EXPECT_EQ(known->getRigidSet(), robot.link("base"));
        Vector direction;
        std::sscanf(axis, "%lf %lf %lf", &direction.x(), &direction.y(), &direction.z());
        direction = direction / direction.magnitude();
        EXPECT_THAT(turned(child, Vector::OZ()), IsNear(direction.x(), direction.y(), direction.z())) << axis;
        EXPECT_THAT(child.getTranslation(), IsNear(0.0, 0.0, 0.0));
        EXPECT_THAT(parent.getTranslation(), IsNear(1.0, 2.0, 3.0));
        // Both stand in one place of space as long as the value is 0.
        const Frame inSpace = robot.pose("arm") * child;
        EXPECT_TRUE(parent.isEqual(inSpace, 1e-14, 1e-14)) << axis;
    }
}

TEST(VrexUrdfReader, AnAxisThatIsLeftOutIsX) {
    const ImportedRobot robot = importText(pairOf("continuous", ""));
    const auto frames = framesOf(*robot.constraint<VrexRevoluteMate3D>("j"));
    EXPECT_THAT(turned(frames.second, Vector::OZ()), IsNear(1.0, 0.0, 0.0));
}

TEST(VrexUrdfReader, AFixedJointIsAFastenedMate) {
    const ImportedRobot robot = importText(pairOf("fixed", "<axis xyz='0 0 0'/>"));
    const auto frames = framesOf(*robot.constraint<VrexFastenedMate3D>("j"));
    EXPECT_THAT(frames.first.getTranslation(), IsNear(1.0, 2.0, 3.0));
    EXPECT_EQ(frames.second.getRotation().scalar(), 1.0);
}

TEST(VrexUrdfReader, ARevoluteJointHasItsLimitsAtTheAngle) {
    const ImportedRobot robot = importText(pairOf("revolute", "<limit lower='-1' upper='2.5'/>"));
    const auto mate = robot.constraint<VrexRevoluteMate3D>("j");
    EXPECT_EQ(mate->getAngle().limits, VrexDimensionLimits(-1.0, 2.5));
    EXPECT_EQ(mate->getAngle().value, 0.0);
    EXPECT_EQ(mate->alignment(), VrexConstraintAlignment::Positive);
}

TEST(VrexUrdfReader, AContinuousJointHasNoLimits) {
    const ImportedRobot robot = importText(pairOf("continuous", "<limit effort='1' velocity='1'/>"));
    EXPECT_EQ(robot.constraint<VrexRevoluteMate3D>("j")->getAngle().limits, VrexDimensionLimits());
}

TEST(VrexUrdfReader, APrismaticJointIsASliderWithItsLimits) {
    const ImportedRobot robot = importText(pairOf("prismatic", "<limit lower='0' upper='0.5'/>"));
    EXPECT_EQ(robot.constraint<VrexSliderMate3D>("j")->getDistance().limits, VrexDimensionLimits(0.0, 0.5));
}

TEST(VrexUrdfReader, APlanarJointIsAPlanarMateAcrossItsAxis) {
    const ImportedRobot robot = importText(pairOf("planar", "<axis xyz='0 1 0'/>"));
    const auto frames = framesOf(*robot.constraint<VrexPlanarMate3D>("j"));
    EXPECT_THAT(turned(frames.second, Vector::OZ()), IsNear(0.0, 1.0, 0.0));
}

TEST(VrexUrdfReader, ABallJointIsABallMateThatSwingsAllTheWay) {
    const ImportedRobot robot = importText(pairOf("ball", ""));
    const auto mate = robot.constraint<VrexBallMate3D>("j");
    EXPECT_EQ(mate->getAngle().limits, VrexDimensionLimits(0.0, VrexBallMate3D::BALL_MATE_HALF_ANGLE_MAX));
    EXPECT_TRUE(mate->checkDimensionLimits(VrexBallMate3D::ANGLE, mate->getAngle().limits));
}

TEST(VrexUrdfReader, AScrewJointIsACylinderMateAndItsThread) {
    const ImportedRobot robot = importText(pairOf("screw", "<screw_thread_pitch value='0.04'/>"));
    const auto mate = robot.constraint<VrexCylinderMate3D>("j");
    const auto thread = robot.constraint<VrexMateRelation3D>("j");
    EXPECT_THAT(thread->getMates(), testing::ElementsAre(mate, mate));
    EXPECT_THAT(thread->getMateParameterIndexs(),
                testing::ElementsAre(VrexCylinderMate3D::DISTANCE, VrexCylinderMate3D::ANGLE));
    EXPECT_DOUBLE_EQ(thread->getRatio(), 0.04 / (2.0 * PI));
}

TEST(VrexUrdfReader, AUniversalJointIsTwoHingesOverAnEmptySet) {
    const ImportedRobot robot = importText(pairOf("universal", ""));
    const auto mates = ImportedRobot::all<VrexRevoluteMate3D>(robot.system.constraints(), "j");
    ASSERT_EQ(mates.size(), 2U);
    const auto cross = robot.link("j");
    EXPECT_TRUE(cross->geometries().empty());
    EXPECT_TRUE(cross->getTransformation().isEqual(robot.pose("arm"), EXACT, EXACT));
    // X first, then the Y that it carries.
    EXPECT_THAT(turned(framesOf(*mates[0]).second, Vector::OZ()), IsNear(1.0, 0.0, 0.0));
    EXPECT_THAT(turned(framesOf(*mates[1]).second, Vector::OZ()), IsNear(0.0, 1.0, 0.0));
    EXPECT_TRUE(framesOf(*mates[1]).first.isEqual(framesOf(*mates[1]).second, EXACT, EXACT));
}

/// Two sliders on a base, the second as told.
std::string twoSliders(const std::string& second) {
    return "<robot name='r'><link name='base'/><link name='a'/><link name='b'/>"
           "<joint name='first' type='prismatic'><parent link='base'/><child link='a'/>"
           "<limit lower='-1' upper='1'/></joint>"
           "<joint name='second' type='prismatic'><parent link='base'/><child link='b'/>" +
           second + "</joint></robot>";
}

TEST(VrexUrdfReader, WhatMimicsIsRelatedByTheMultiplier) {
    const ImportedRobot robot =
        importText(twoSliders("<limit lower='-2' upper='2'/><mimic joint='first' multiplier='-2.5'/>"));
    const auto relation = robot.constraint<VrexMateRelation3D>("second");
    EXPECT_EQ(relation->getRatio(), -2.5);
    EXPECT_THAT(relation->getMates(), testing::ElementsAre(robot.constraint<VrexMate3D>("second"),
                                                           robot.constraint<VrexMate3D>("first")));
    EXPECT_THAT(relation->getMateParameterIndexs(), testing::ElementsAre(0, 0));
}

TEST(VrexUrdfReader, AnOffsetIsMovedIntoTheFollowersFrame) {
    const ImportedRobot robot = importText(twoSliders("<axis xyz='0 0 1'/><limit lower='-2' upper='2'/>"
                                                      "<mimic joint='first' multiplier='1' offset='0.5'/>"));
    const auto mate = robot.constraint<VrexSliderMate3D>("second");
    EXPECT_THAT(framesOf(*mate).first.getTranslation(), IsNear(0.0, 0.0, 0.5));
    EXPECT_EQ(mate->getDistance().value, -0.5);
    EXPECT_EQ(mate->getDistance().limits, VrexDimensionLimits(-2.5, 1.5));
    EXPECT_THAT(robot.link("b")->getOrigin(), IsNear(0.0, 0.0, 0.0)); // the pose is that of the value 0
}

TEST(VrexUrdfReader, ACouplingRelatesTheJointsOfItsLinks) {
    std::string text = twoSliders("<limit lower='-2' upper='2'/>");
    text.insert(text.find("</robot>"), "<coupling name='gear'><predecessor link='a'/><successor link='b'/>"
                                       "<ratio value='6'/></coupling>");
    const ImportedRobot robot = importText(text);
    const auto relation = robot.constraint<VrexMateRelation3D>("gear");
    EXPECT_EQ(relation->getRatio(), 6.0);
    EXPECT_THAT(relation->getMates(), testing::ElementsAre(robot.constraint<VrexMate3D>("second"),
                                                           robot.constraint<VrexMate3D>("first")));
}

/// A base with two links on hinges, and a loop between these.
std::string loopOf(const std::string& type) {
    return "<robot name='r'><link name='base'/><link name='a'/><link name='b'/>"
           "<joint name='ja' type='continuous'><parent link='base'/><child link='a'/><axis xyz='0 0 "
           "1'/></joint>"
           "<joint name='jb' type='continuous'><parent link='base'/><child link='b'/>"
           "<origin xyz='2 0 0'/><axis xyz='0 0 1'/></joint>"
           "<loop name='l' type='" +
           type +
           "'><predecessor link='a'><origin xyz='1 0 0'/></predecessor>"
           "<successor link='b'><origin xyz='-1 0 0'/></successor><axis xyz='0 1 0'/></loop></robot>";
}

TEST(VrexUrdfReader, ALoopIsOneMoreMate) {
    const ImportedRobot robot = importText(loopOf("revolute"));
    const auto [first, second] = framesOf(*robot.constraint<VrexRevoluteMate3D>("l"));
    EXPECT_THAT(first.getTranslation(), IsNear(1.0, 0.0, 0.0));
    EXPECT_THAT(second.getTranslation(), IsNear(-1.0, 0.0, 0.0));
    EXPECT_THAT(turned(first, Vector::OZ()), IsNear(0.0, 1.0, 0.0));
    EXPECT_THAT(turned(second, Vector::OZ()), IsNear(0.0, 1.0, 0.0));
    EXPECT_NE(importText(loopOf("6d")).constraint<VrexFastenedMate3D>("l"), nullptr);
}

TEST(VrexUrdfReader, ALoopOfPointsBindsTwoMembers) {
    const ImportedRobot robot = importText(loopOf("3d"));
    const auto incidence = robot.constraint<VrexIncidence3D>("l");
    EXPECT_EQ(incidence->getGeometries().at(0), robot.link("a")->geometries().at(0));
    EXPECT_EQ(incidence->getGeometries().at(1), robot.link("b")->geometries().at(0));
    for (const auto& point : ImportedRobot::all<VrexPoint3D>(robot.system.geometries(), "l")) {
        EXPECT_THAT(point->getPosition(), IsNear(1.0, 0.0, 0.0));
    }
}

TEST(VrexUrdfReader, ALoopFileNamesFramesByLinkOrJoint) {
    std::string text = loopOf("revolute");
    text.erase(text.find("<loop"), text.find("</loop>") + 7 - text.find("<loop"));
    const ImportedRobot robot = importText(text, true, "closed_loop: [[a, jb]]\ntype: ['6d']\n");
    const auto mate = robot.constraint<VrexFastenedMate3D>("a jb");
    const auto setOf = [&mate](std::size_t i) {
        return std::dynamic_pointer_cast<VrexConnector3D>(mate->getGeometries().at(i))->getRigidSet();
    };
    EXPECT_EQ(setOf(0), robot.link("a"));
    EXPECT_EQ(setOf(1), robot.link("b"));
}

TEST(VrexUrdfReader, EachConstraintIsOneThatMayBeCreated) {
    VrexLogRecorder recorder(1);
    const VrexDefaultToleranceGetter tolerances;
    const VrexConstraint3DPreValidator validator(tolerances, recorder);
    for (const char* const type : {"fixed", "continuous", "planar", "ball", "universal", "screw"}) {
        const std::string thread = std::string(type) == "screw" ? "<screw_thread_pitch value='1'/>" : "";
        const ImportedRobot robot = importText(pairOf(type, thread));
        for (const auto& constraint : robot.system.constraints()) {
            if (const auto* const relation = dynamic_cast<VrexMateRelation3D*>(constraint.get())) {
                EXPECT_TRUE(
                    VrexMateRelation3D::canCreate(relation->getMates(), relation->getMateParameterIndexs()));
                continue;
            }
            VrexConstraint3DPreValidator::Geometries bound;
            for (const auto& geometry : constraint->getGeometries()) {
                bound.push_back(std::dynamic_pointer_cast<VrexGeometry3D>(geometry));
            }
            constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
            const auto* const fixation = dynamic_cast<VrexFixation3D*>(constraint.get());
            EXPECT_TRUE(fixation != nullptr
                            ? validator.preCheckFixation3DType(bound, fixation->getFixationType())
                            : validator.preCheckConstraint3DType(bound, constraint->type(), WHOLE, WHOLE))
                << type;
        }
    }
}

} // namespace
