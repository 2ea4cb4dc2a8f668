#include <array>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "exchange/ImportedRobot.h"

namespace {

using Vector = VrexVector3DT<double>;
using Frame = VrexTransformation3DT<double>;

constexpr double PI = std::numbers::pi;
constexpr double TOLERANCE = 1e-8; ///< Lengths near 1 after a solve to 1e-10.

ImportedRobot load(const std::string& name) {
    const auto result =
        VrexUrdfReader().read(std::filesystem::path(VREX_SOURCE_DIR) / "examples/data" / (name + ".urdf"));
    for (const auto& finding : result.findings) {
        EXPECT_EQ(finding.severity, VrexUrdfSeverity::Note) << finding.message;
    }
    return ImportedRobot(result.system.value());
}

void solved(const ImportedRobot& robot) {
    const auto report = robot.solve();
    EXPECT_TRUE(report.isConverged()) << troublesOf(report);
}

void hold(const ImportedRobot& robot, const std::string& joint, double value) {
    const auto mate = robot.constraint<VrexMate3D>(joint);
    mate->getDimension(0).value = value;
    mate->getDimension(0).setFixed(true);
}

double yawOf(const ImportedRobot& robot, const std::string& link) {
    const auto x = VrexQuaternionT<double>::rotate(Vector::OX(), robot.pose(link).getRotation(), false);
    return std::atan2(x.y(), x.x());
}

TEST(ExampleRobots, AreSolvedFromPerturbedStartsWithTheirMobility) {
    const struct {
        const char* name;
        std::size_t mobility;
    } rows[] = {
        {"six_axis_arm", 6}, {"four_bar", 1}, {"slider_crank", 1}, {"stewart_platform", 6}, {"gearbox", 1}};
    for (const auto& row : rows) {
        std::mt19937 random(11);
        for (int start = 0; start < 20; ++start) {
            SCOPED_TRACE(std::string(row.name).append(" from start ").append(std::to_string(start)));
            const ImportedRobot robot = load(row.name);
            robot.perturb(random, 0.01);
            const auto report = robot.solve();
            EXPECT_TRUE(report.isConverged()) << troublesOf(report);
            EXPECT_EQ(mobilityOf(report), row.mobility);
        }
    }
}

/// The published row of a joint: Rz(angle) Tz(d) Tx(a) Rx(twist), taken to a point.
struct Offsets {
    double d, a, twist;
    Vector carry(double angle, const Vector& p) const {
        const Vector tilted(p.x() + a, std::cos(twist) * p.y() - std::sin(twist) * p.z(),
                            std::sin(twist) * p.y() + std::cos(twist) * p.z() + d);
        return {std::cos(angle) * tilted.x() - std::sin(angle) * tilted.y(),
                std::sin(angle) * tilted.x() + std::cos(angle) * tilted.y(), tilted.z()};
    }
};

TEST(ExampleRobots, TheArmStandsWhereItsPublishedOffsetsSay) {
    const Offsets rows[] = {{0.089159, 0.0, PI / 2.0}, {0.0, -0.425, 0.0},        {0.0, -0.39225, 0.0},
                            {0.10915, 0.0, PI / 2.0},  {0.09465, 0.0, -PI / 2.0}, {0.0823, 0.0, 0.0}};
    const char* const joints[] = {"shoulder_pan", "shoulder_lift", "elbow",
                                  "wrist_1_turn", "wrist_2_turn",  "wrist_3_turn"};
    const ImportedRobot zero = load("six_axis_arm");
    EXPECT_LT((zero.link("tool")->getOrigin() - Vector(-0.81725, -0.19145, -0.005491)).magnitude(), 1e-15);
    std::mt19937 random(3);
    std::uniform_real_distribution<double> turn(-0.8, 0.8);
    for (int pose = 0; pose < 10; ++pose) {
        const ImportedRobot robot = load("six_axis_arm");
        std::array<double, 6> angles{};
        for (std::size_t i = 0; i < angles.size(); ++i) {
            angles[i] = turn(random);
            hold(robot, joints[i], angles[i]);
        }
        solved(robot);
        Vector tip;
        for (std::size_t i = angles.size(); i-- > 0;) {
            tip = rows[i].carry(angles[i], tip);
        }
        EXPECT_LT((robot.link("tool")->getOrigin() - tip).magnitude(), TOLERANCE);
    }
}

TEST(ExampleRobots, TheRockerFollowsTheCrank) {
    constexpr double GROUND = 0.4, CRANK = 0.1, COUPLER = 0.35, ROCKER = 0.25;
    for (const double angle : {-0.7, -0.2, 0.3, 0.9, 1.3}) {
        const ImportedRobot robot = load("four_bar");
        hold(robot, "input", angle);
        solved(robot);
        // The tip is where the circles of coupler and rocker meet, above.
        const Vector knee(CRANK * std::cos(angle), CRANK * std::sin(angle), 0.0);
        const Vector between = Vector(GROUND, 0.0, 0.0) - knee;
        const double d = between.magnitude();
        const double along = (COUPLER * COUPLER - ROCKER * ROCKER + d * d) / (2.0 * d);
        const double up = std::sqrt(COUPLER * COUPLER - along * along);
        const Vector tip = knee + between * (along / d) + Vector(-between.y(), between.x(), 0.0) * (up / d);
        EXPECT_NEAR(yawOf(robot, "rocker"), std::atan2(tip.y(), tip.x() - GROUND), TOLERANCE) << angle;
    }
}

TEST(ExampleRobots, ThePistonIsWhereTheCrankPushesIt) {
    for (const double angle : {0.2, 0.8, 1.2}) {
        const ImportedRobot robot = load("slider_crank");
        hold(robot, "shaft", angle);
        solved(robot);
        const double expected =
            0.1 * std::cos(angle) + std::sqrt(0.09 - 0.01 * std::sin(angle) * std::sin(angle));
        EXPECT_NEAR(robot.link("piston")->getOrigin().x(), expected, TOLERANCE) << angle;
        EXPECT_NEAR(robot.constraint<VrexSliderMate3D>("bore")->getDistance().value, expected - 0.4,
                    TOLERANCE);
    }
}

/// Where a ram ends: on the base, on the plate.
struct Leg {
    Vector foot, head;
};

Leg legOf(int index) {
    const double middle = 2.0 * PI / 3.0 * (index / 2);
    const double sign = index % 2 == 0 ? -1.0 : 1.0;
    const double foot = middle + sign * PI / 12.0;
    const double head = middle + sign * PI / 4.0;
    return {{0.6 * std::cos(foot), 0.6 * std::sin(foot), 0.0},
            {0.3 * std::cos(head), 0.3 * std::sin(head), 0.0}};
}

double ramOf(int index, const Frame& plate) {
    const Leg leg = legOf(index);
    const auto lengthAt = [&leg](const Frame& pose) {
        return (VrexQuaternionT<double>::rotate(leg.head, pose.getRotation(), false) + pose.getTranslation() -
                leg.foot)
            .magnitude();
    };
    return lengthAt(plate) - lengthAt({{0.0, 0.0, 0.6}, VrexQuaternionT<double>::ONE()});
}

const Frame PLATE_POSES[] = {
    {{0.0, 0.0, 0.65}, 0.0, {1.0, 0.0, 0.0}},
    {{0.05, -0.03, 0.62}, 0.2, {1.0, 0.5, 0.3}},
    {{-0.06, 0.04, 0.57}, -0.25, {0.2, 1.0, -0.4}},
};

TEST(ExampleRobots, RamsOfAHeldPlateHaveTheLengthsOfTheClosedForm) {
    for (const Frame& pose : PLATE_POSES) {
        ImportedRobot robot = load("stewart_platform");
        robot.link("plate")->setTransformation(pose);
        auto constraints = robot.system.constraints();
        constraints.push_back(VrexFixation3D::create(robot.link("plate"), VrexFixation3DType::Complete3D));
        constraints.back()->setID(1000);
        robot.system =
            VrexImmutableSystem3D(robot.system.geometries(), {}, constraints, {}, 1e-8, 1e-11, {}, {});
        solved(robot);
        for (int i = 0; i < 6; ++i) {
            const auto ram = robot.constraint<VrexSliderMate3D>("ram_" + std::to_string(i + 1));
            EXPECT_NEAR(ram->getDistance().value, ramOf(i, pose), TOLERANCE) << i;
        }
    }
}

TEST(ExampleRobots, APlateIsPosedByItsRams) {
    for (const Frame& pose : PLATE_POSES) {
        const ImportedRobot robot = load("stewart_platform");
        for (int i = 0; i < 6; ++i) {
            hold(robot, "ram_" + std::to_string(i + 1), ramOf(i, pose));
        }
        const auto report = robot.solve();
        EXPECT_TRUE(report.isConverged()) << troublesOf(report);
        EXPECT_EQ(mobilityOf(report), 0U);
        const Frame found = robot.pose("plate");
        const bool isFlipped = found.getRotation().scalar() * pose.getRotation().scalar() < 0.0;
        const Frame same(found.getTranslation(),
                         isFlipped ? found.getRotation() * -1.0 : found.getRotation());
        EXPECT_TRUE(same.isEqual(pose, 1e-7, 1e-7));
    }
}

TEST(ExampleRobots, TheGearboxTurnsAndSlidesByItsRatios) {
    const ImportedRobot robot = load("gearbox");
    hold(robot, "input_shaft", 2.4);
    solved(robot);
    EXPECT_NEAR(yawOf(robot, "counter"), -1.2, TOLERANCE);
    EXPECT_NEAR(yawOf(robot, "output"), 0.4, TOLERANCE);
    EXPECT_NEAR(robot.link("nut")->getOrigin().z(), 0.1 + 0.005 * 0.4 / (2.0 * PI), TOLERANCE);
}

} // namespace
