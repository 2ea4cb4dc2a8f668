#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "solver/RandomStarts.h"

namespace {

using Vector = VrexVector3DT<double>;
using Quaternion = VrexQuaternionT<double>;
constexpr double PI = std::numbers::pi;
constexpr double TOLERANCE = 1e-8; ///< Residuals of 1e-10, of mechanisms some units in size.

/// Where a platform stands.
struct Pose {
    Vector shift;
    Quaternion rotation;

    Vector operator()(const Vector& local) const {
        return shift + Quaternion::rotate(local, rotation, false);
    }
};

const Pose REST{{0.1, -0.2, 1.8}, Quaternion::makeFromAngleAndAxis(0.1, {0.0, 1.0, 1.0}, 1e-12)};
const Pose RAISED{{0.3, 0.1, 2.1}, Quaternion::makeFromAngleAndAxis(0.35, {1.0, 2.0, 3.0}, 1e-12)};

/// Joints in pairs on a circle, the pairs at thirds of a turn.
Vector jointAt(double radius, std::size_t leg, double pairAngle) {
    const double side = leg % 2 == 0 ? -1.0 : 1.0;
    const double angle = 2.0 * PI / 3.0 * std::floor(0.5 * static_cast<double>(leg)) + side * pairAngle;
    return {radius * std::cos(angle), radius * std::sin(angle), 0.0};
}
Vector lowerJoint(std::size_t leg) { return jointAt(2.0, leg, 0.2); }
Vector upperJoint(std::size_t leg) { return jointAt(1.2, leg, 0.8); }
/// The closed form of the inverse: how long a leg is at this pose.
double legLength(const Pose& pose, std::size_t leg) {
    return (pose(upperJoint(leg)) - lowerJoint(leg)).magnitude();
}

std::shared_ptr<VrexPoint3D> pointAt(const Vector& place) {
    return VrexPoint3D::create(place.x(), place.y(), place.z());
}

/// A platform on six legs, which are distances between its joints and those of the ground.
struct Stewart : Mechanism {
    Stewart(const Pose& start, const Pose& wanted) {
        const auto base = ground();
        std::vector<std::shared_ptr<VrexGeometry3D>> joints;
        for (std::size_t leg = 0; leg < 6; ++leg) {
            upper.push_back(add(pointAt(start(upperJoint(leg)))));
            lower.push_back(add(pointAt(lowerJoint(leg))));
            base->geometries().push_back(lower.back());
            joints.push_back(upper.back());
        }
        body(joints);
        for (std::size_t leg = 0; leg < 6; ++leg) {
            bind(VrexDistance3D::create(lower[leg], upper[leg], legLength(wanted, leg),
                                        VrexGeometryComponentType::UNKNOWN,
                                        VrexGeometryComponentType::UNKNOWN));
        }
    }
    std::vector<std::shared_ptr<VrexPoint3D>> upper;
    std::vector<std::shared_ptr<VrexPoint3D>> lower;
};

TEST(VrexSolver3DSpatialMechanisms, LegsPoseAStewartPlatform) {
    solveFromRandomStarts(
        0.03, [] { return Stewart(REST, RAISED); },
        [](const Stewart& hexapod, const VrexSolverComponentReport& report) {
            EXPECT_EQ(report.freedom, 0U);
            EXPECT_TRUE(report.overConstrained.empty());
            for (std::size_t leg = 0; leg < 6; ++leg) {
                const Vector away = hexapod.upper[leg]->getPosition() - RAISED(upperJoint(leg));
                EXPECT_NEAR(away.magnitude(), 0.0, TOLERANCE) << leg;
                const Vector moved = hexapod.lower[leg]->getPosition() - lowerJoint(leg);
                EXPECT_EQ(moved.magnitude(), 0.0) << leg;
            }
        });
}

/// The same with legs of two bodies each that slide in each other between ball joints.
struct StewartOfBodies : Mechanism {
    StewartOfBodies(const Pose& start, const Pose& wanted) {
        const auto base = ground();
        platform = body();
        for (std::size_t leg = 0; leg < 6; ++leg) {
            const Vector low = lowerJoint(leg);
            const Vector high = start(upperJoint(leg));
            const auto cylinder = body();
            const auto piston = body();
            const auto along = towards(high - low);
            bind(VrexBallMate3D::create(connector(base, low), connector(cylinder, low), {}));
            const auto slider = bind(
                VrexSliderMate3D::create(connector(cylinder, low, along), connector(piston, low, along), {}));
            bind(VrexBallMate3D::create(connector(piston, high), connector(platform, high), {}));
            slider->getDistance().value = legLength(wanted, leg) - legLength(start, leg);
            slider->getDistance().setFixed(true);
        }
    }
    std::shared_ptr<VrexRigidSet3D> platform;
};

TEST(VrexSolver3DSpatialMechanisms, LegsOfAPlatformSpinFreely) {
    const StewartOfBodies hexapod(REST, RAISED);
    const auto report = solve(hexapod);
    ASSERT_TRUE(report.isConverged);
    EXPECT_TRUE(report.overConstrained.empty());
    EXPECT_EQ(report.freedom, 6U);
    for (const VrexSolverFreedom& entity : report.freedoms) {
        EXPECT_EQ(entity.id == hexapod.platform->getID() ? entity.degrees : 0U, 0U);
    }
    // The platform's own frame began at the origin of space.
    const Vector joint = upperJoint(2);
    const Vector local = REST(joint);
    const Vector now =
        hexapod.platform->getOrigin() + Quaternion::rotate(local, hexapod.platform->getRotation(), false);
    EXPECT_NEAR((now - RAISED(joint)).magnitude(), 0.0, TOLERANCE);
}

/// Four hinges whose axes meet in the origin.
struct SphericalFourBar : Mechanism {
    static constexpr double GROUND = 1.4, CRANK = 0.5, COUPLER = 1.2, ROCKER = 1.0; ///< Arcs.

    explicit SphericalFourBar(double angle) {
        const auto base = ground();
        const auto crank = body();
        const auto coupler = body();
        const auto rocker = body();
        const Vector center{0.0, 0.0, 0.0};
        input = hinge(base, crank, center);
        hinge(crank, coupler, center, towards(crankAxis(angle)));
        hinge(coupler, rocker, center, towards(couplerAxis(angle)));
        output = hinge(base, rocker, center, towards(lastAxis()));
    }
    static Vector lastAxis() { return {std::sin(GROUND), 0.0, std::cos(GROUND)}; }
    static Vector crankAxis(double angle) {
        return {std::sin(CRANK) * std::cos(angle), std::sin(CRANK) * std::sin(angle), std::cos(CRANK)};
    }
    /// Where the cones about the crank's axis and the last one meet, on the left of the arc between them.
    static Vector couplerAxis(double angle) {
        const Vector p = crankAxis(angle);
        const Vector q = lastAxis();
        const double d = p.dotProduct(q);
        const double ofP = (std::cos(COUPLER) - d * std::cos(ROCKER)) / (1.0 - d * d);
        const double ofQ = (std::cos(ROCKER) - d * std::cos(COUPLER)) / (1.0 - d * d);
        const Vector flat = p * ofP + q * ofQ;
        const Vector up = p.crossProduct(q);
        return flat + up * std::sqrt((1.0 - flat.magnitudeSquared()) / up.magnitudeSquared());
    }
    /// How far the rocker turns about the last axis.
    static double rockerTurn(double from, double to) {
        const auto across = [](const Vector& v) { return v - lastAxis() * v.dotProduct(lastAxis()); };
        const Vector before = across(couplerAxis(from));
        const Vector after = across(couplerAxis(to));
        return std::atan2(lastAxis().dotProduct(before.crossProduct(after)), before.dotProduct(after));
    }

    std::shared_ptr<VrexRevoluteMate3D> input;
    std::shared_ptr<VrexRevoluteMate3D> output;
};

TEST(VrexSolver3DSpatialMechanisms, SphericalFourBarHasTheAngleOfItsClosedForm) {
    const auto make = [] {
        SphericalFourBar linkage(0.6);
        linkage.input->getAngle().value = 0.7;
        linkage.input->getAngle().setFixed(true);
        return linkage;
    };
    solveFromRandomStarts(
        0.05, make, [](const SphericalFourBar& linkage, const VrexSolverComponentReport& report) {
            EXPECT_EQ(report.freedom, 0U);
            EXPECT_NEAR(linkage.output->getAngle().value, SphericalFourBar::rockerTurn(0.6, 1.3), TOLERANCE);
        });
}

TEST(VrexSolver3DSpatialMechanisms, SphericalFourBarHasOneDegreeOfFreedom) {
    const SphericalFourBar linkage(0.6);
    EXPECT_EQ(solve(linkage).freedom, 1U);
}

/// Bennett's linkage: opposite links alike, their lengths as the sines of their twists. It moves although its
/// joints leave a ring of four bodies none of the degrees that it has.
struct Bennett : Mechanism {
    static constexpr double TWIST = 0.6, OTHER_TWIST = 1.1, LENGTH = 1.0;

    explicit Bennett(double angle) {
        const double other = secondAngle(angle);
        const std::array<double, 4> angles{angle, other, 2.0 * PI - angle, 2.0 * PI - other};
        std::array<std::shared_ptr<VrexRigidSet3D>, 4> links{ground(), body(), body(), body()};
        Vector place{0.0, 0.0, 0.0};
        Quaternion turn = Quaternion::ONE();
        for (std::size_t i = 0; i < 4; ++i) {
            joints.push_back(hinge(links[i], links[(i + 1) % 4], place, turn));
            const double twist = i % 2 == 0 ? TWIST : OTHER_TWIST;
            const double length = LENGTH * std::sin(twist) / std::sin(TWIST);
            turn = turn * about(Vector::OZ(), angles[i]);
            place += Quaternion::rotate({length, 0.0, 0.0}, turn, false);
            turn = turn * about(Vector::OX(), twist);
        }
        gap = place.magnitude(); // how far the ring is from being closed
    }
    static Quaternion about(const Vector& axis, double angle) {
        return Quaternion::makeFromAngleAndAxis(angle, axis, 1e-12);
    }
    static double secondAngle(double angle) {
        return 2.0 * std::atan(std::sin(0.5 * (OTHER_TWIST + TWIST)) / std::sin(0.5 * (OTHER_TWIST - TWIST)) /
                               std::tan(0.5 * angle));
    }
    double gap = 0.0;
    std::vector<std::shared_ptr<VrexRevoluteMate3D>> joints;
};

TEST(VrexSolver3DSpatialMechanisms, BennettsLinkageMoves) {
    const Bennett linkage(1.0);
    ASSERT_NEAR(linkage.gap, 0.0, 1e-12);
    const auto report = solve(linkage);
    EXPECT_TRUE(report.isConverged);
    EXPECT_EQ(report.freedom, 1U);
    std::vector<std::uint64_t> all;
    for (const auto& joint : linkage.joints) {
        all.push_back(joint->getID());
    }
    ASSERT_EQ(report.overConstrained.size(), 1U);
    EXPECT_EQ(report.overConstrained[0], all);
}

TEST(VrexSolver3DSpatialMechanisms, BennettsLinkageHasTheAngleOfItsClosedForm) {
    const auto make = [] {
        Bennett linkage(1.0);
        linkage.joints[0]->getAngle().value = 0.4;
        linkage.joints[0]->getAngle().setFixed(true);
        return linkage;
    };
    solveFromRandomStarts(0.02, make, [](const Bennett& linkage, const VrexSolverComponentReport& report) {
        EXPECT_EQ(report.freedom, 0U);
        EXPECT_NEAR(linkage.joints[1]->getAngle().value,
                    Bennett::secondAngle(1.4) - Bennett::secondAngle(1.0), TOLERANCE);
    });
}

/// Sarrus' linkage: a table on two folding legs whose hinges run along X and along Y, so that it rises
/// straight.
struct Sarrus : Mechanism {
    explicit Sarrus(double angle) {
        const auto base = ground();
        table = body();
        const double knee = std::sin(angle);
        const double out = std::cos(angle);
        for (const bool isAlongX : {true, false}) {
            const auto axis = towards(isAlongX ? Vector::OX() : Vector::OY());
            const Vector foot = isAlongX ? Vector(0.0, 1.0, 0.0) : Vector(1.0, 0.0, 0.0);
            const auto lower = body();
            const auto upper = body();
            const auto first = hinge(base, lower, foot, axis);
            hinge(lower, upper, foot * (1.0 + out) + Vector(0.0, 0.0, knee), axis);
            hinge(upper, table, foot + Vector(0.0, 0.0, 2.0 * knee), axis);
            input = isAlongX ? first : input;
        }
    }
    std::shared_ptr<VrexRigidSet3D> table;
    std::shared_ptr<VrexRevoluteMate3D> input; ///< Its axis along X, its leg along Y.
};

TEST(VrexSolver3DSpatialMechanisms, SarrusLinkageRisesStraight) {
    const auto make = [] {
        Sarrus linkage(0.5);
        linkage.input->getAngle().value = 0.3;
        linkage.input->getAngle().setFixed(true);
        return linkage;
    };
    solveFromRandomStarts(0.02, make, [](const Sarrus& linkage, const VrexSolverComponentReport& report) {
        const Vector rise{0.0, 0.0, 2.0 * (std::sin(0.8) - std::sin(0.5))};
        EXPECT_EQ(report.freedom, 0U);
        EXPECT_NEAR((linkage.table->getOrigin() - rise).magnitude(), 0.0, TOLERANCE);
        EXPECT_NEAR(linkage.table->getRotation().vector().magnitude(), 0.0, TOLERANCE);
    });
}

} // namespace
