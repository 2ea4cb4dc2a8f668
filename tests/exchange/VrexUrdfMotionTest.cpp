#include <cmath>
#include <numbers>
#include <string>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "exchange/ImportedRobot.h"

namespace {

using Vector = VrexVector3DT<double>;

constexpr double PI = std::numbers::pi;
constexpr double TOLERANCE = 1e-9; ///< What a solve to 1e-10 leaves.

/// Solves with the joint's mate held at `value`.
void move(const ImportedRobot& robot, const std::string& joint, double value) {
    const auto mate = robot.constraint<VrexMate3D>(joint);
    mate->getDimension(0).value = value;
    mate->getDimension(0).setFixed(true);
    const auto report = robot.solve();
    EXPECT_TRUE(report.isConverged()) << troublesOf(report);
}

/// The angle by which a link is turned about Z.
double yawOf(const ImportedRobot& robot, const std::string& link) {
    const auto x = VrexQuaternionT<double>::rotate(Vector::OX(), robot.pose(link).getRotation(), false);
    return std::atan2(x.y(), x.x());
}

std::string hinge(const std::string& name, const std::string& child, const std::string& inside = {}) {
    return "<link name='" + child + "'/><joint name='" + name +
           "' type='continuous'><parent link='base'/><child link='" + child + "'/><axis xyz='0 0 1'/>" +
           inside + "</joint>";
}

std::string robotOf(const std::string& inside) {
    return "<robot name='r'><link name='base'/>" + inside + "</robot>";
}

TEST(VrexUrdfMotion, ARevoluteJointTurnsAboutItsAxisBothHaveThePositiveSense) {
    const ImportedRobot robot = importText(robotOf(hinge("j", "a")));
    move(robot, "j", 0.7);
    EXPECT_NEAR(yawOf(robot, "a"), 0.7, TOLERANCE);
}

TEST(VrexUrdfMotion, APrismaticJointSlidesAlongItsAxis) {
    const ImportedRobot robot =
        importText(robotOf("<link name='a'/><joint name='j' type='prismatic'><parent link='base'/>"
                           "<child link='a'/><axis xyz='0 -1 0'/><limit lower='-1' upper='1'/></joint>"));
    move(robot, "j", 0.25);
    EXPECT_NEAR((robot.link("a")->getOrigin() - Vector(0.0, -0.25, 0.0)).magnitude(), 0.0, TOLERANCE);
}

TEST(VrexUrdfMotion, AFollowerHasTheMultipleAndTheOffset) {
    const ImportedRobot robot = importText(robotOf(
        hinge("lead", "a") + hinge("follow", "b", "<mimic joint='lead' multiplier='2' offset='0.3'/>") +
        hinge("second", "c", "<mimic joint='follow' multiplier='-1' offset='0.1'/>")));
    move(robot, "lead", 0.4);
    EXPECT_NEAR(yawOf(robot, "a"), 0.4, TOLERANCE);
    EXPECT_NEAR(yawOf(robot, "b"), 2.0 * 0.4 + 0.3, TOLERANCE);
    EXPECT_NEAR(yawOf(robot, "c"), -(2.0 * 0.4 + 0.3) + 0.1, TOLERANCE);
}

TEST(VrexUrdfMotion, AnOffsetOfMoreThanATurnIsKept) {
    const ImportedRobot robot = importText(robotOf(
        hinge("lead", "a") + hinge("follow", "b", "<mimic joint='lead' multiplier='1' offset='4.56'/>")));
    move(robot, "lead", 0.1);
    EXPECT_NEAR(yawOf(robot, "b"), 0.1 + 4.56 - 2.0 * PI, TOLERANCE);
    EXPECT_NEAR(robot.constraint<VrexRevoluteMate3D>("follow")->getAngle().value, 0.1, TOLERANCE);
}

TEST(VrexUrdfMotion, ACouplingTurnsTheSuccessorByTheRatio) {
    const ImportedRobot robot = importText(robotOf(
        hinge("ja", "a") + hinge("jb", "b") +
        "<coupling name='g'><predecessor link='a'/><successor link='b'/><ratio value='6'/></coupling>"));
    move(robot, "ja", 0.1);
    EXPECT_NEAR(yawOf(robot, "b"), 0.6, TOLERANCE);
}

TEST(VrexUrdfMotion, AScrewAdvancesByItsPitchInATurn) {
    const ImportedRobot robot = importText(
        robotOf("<link name='a'/><joint name='j' type='screw'><parent link='base'/><child link='a'/>"
                "<axis xyz='0 0 1'/><screw_thread_pitch value='0.04'/></joint>"));
    EXPECT_EQ(mobilityOf(robot.solve()), 1U);
    const auto mate = robot.constraint<VrexCylinderMate3D>("j");
    mate->getAngle().value = PI / 2.0;
    mate->getAngle().setFixed(true);
    EXPECT_TRUE(robot.solve().isConverged());
    EXPECT_NEAR(robot.link("a")->getOrigin().z(), 0.01, TOLERANCE);
    EXPECT_NEAR(yawOf(robot, "a"), PI / 2.0, TOLERANCE);
}

TEST(VrexUrdfMotion, AScrewThatFollowsWithAnOffsetIsOnItsThread) {
    const ImportedRobot robot = importText(
        robotOf(hinge("lead", "a") +
                "<link name='b'/><joint name='j' type='screw'><parent link='base'/><child link='b'/>"
                "<axis xyz='0 0 1'/><screw_thread_pitch value='0.04'/>"
                "<mimic joint='lead' multiplier='1' offset='0.5'/></joint>"));
    move(robot, "lead", 0.25);
    EXPECT_NEAR(yawOf(robot, "b"), 0.75, TOLERANCE);
    EXPECT_NEAR(robot.link("b")->getOrigin().z(), 0.04 * 0.75 / (2.0 * PI), TOLERANCE);
}

TEST(VrexUrdfMotion, JointsLeaveTheDegreesOfFreedomOfTheirKind) {
    const struct {
        const char* type;
        std::size_t mobility;
    } rows[] = {{"fixed", 0},  {"continuous", 1}, {"universal", 2},
                {"planar", 3}, {"ball", 3},       {"floating", 6}};
    for (const auto& row : rows) {
        std::mt19937 random(7);
        const ImportedRobot robot =
            importText(robotOf(std::string("<link name='a'/><joint name='j' type='")
                                   .append(row.type)
                                   .append("'><parent link='base'/><child link='a'/></joint>")));
        robot.perturb(random, 0.1);
        const auto report = robot.solve();
        EXPECT_TRUE(report.isConverged()) << row.type << troublesOf(report);
        EXPECT_EQ(mobilityOf(report), row.mobility) << row.type;
    }
}

TEST(VrexUrdfMotion, LimitsAreHeld) {
    // The zero configuration is outside.
    const ImportedRobot robot = importText(
        robotOf("<link name='a'/><joint name='j' type='revolute'><parent link='base'/><child link='a'/>"
                "<axis xyz='0 0 1'/><limit lower='0.5' upper='2'/></joint>"));
    const auto report = robot.solve();
    EXPECT_TRUE(report.isConverged()) << troublesOf(report);
    EXPECT_GE(yawOf(robot, "a"), 0.5 - TOLERANCE);
    EXPECT_LE(yawOf(robot, "a"), 2.0 + TOLERANCE);
}

} // namespace
