#include <cmath>
#include <numbers>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "solver/Mechanism.h"
#include "solver/VrexSolver3D.h"
#include "solver/model/VrexSolverNames.h"

namespace {

constexpr double TURN = 2.0 * std::numbers::pi;
constexpr double TOLERANCE = 1e-9;

/// An arm on a hinge about the Z axis, turned by this angle, alone with its mate.
struct Hinge {
    Hinge(const VrexDimensionLimits& limits, double counted, double angle) {
        const auto base = mechanism.ground();
        body = mechanism.body();
        const auto turn = VrexQuaternionT<double>::makeFromAngleAndAxis(angle, {0.0, 0.0, 1.0}, 1e-9);
        const auto first = mechanism.connector(base, {0.0, 0.0, 0.0});
        arm = mechanism.connector(body, {0.0, 0.0, 0.0}, turn);
        mate = mechanism.bind(VrexRevoluteMate3D::create(first, arm, limits));
        mate->getDimension(0).value = counted;
    }
    VrexSolverComponentReport solve() const {
        return VrexSolver3D().solve({mechanism.component()}).components.at(0);
    }
    /// Of the X axes, from -pi to pi.
    double angle() const {
        const auto rotation = (body->getTransformation() * arm->getTransformation()).getRotation();
        const auto x = VrexQuaternionT<double>::rotate({1.0, 0.0, 0.0}, rotation, false);
        return std::atan2(x.y(), x.x());
    }

    Mechanism mechanism;
    std::shared_ptr<VrexRigidSet3D> body;
    std::shared_ptr<VrexConnector3D> arm;
    std::shared_ptr<VrexRevoluteMate3D> mate;
};

TEST(VrexMateLimits, AnglesAreCountedIntoTheLimits) {
    const struct {
        VrexDimensionLimits limits;
        double counted;  ///< Stored in the mate.
        double angle;    ///< Where the arm stands.
        double expected; ///< The mate's value in the end.
    } rows[] = {
        {{0.0, 4.0}, 0.0, 3.9, 3.9},           {{0.0, 4.0}, 0.0, -0.5, 0.0},
        {{0.0, 4.0}, 0.0, 4.2, 4.0},           {{-4.0, 0.0}, 0.0, -3.9, -3.9},
        {{5.0, 7.0}, 0.0, -0.3, TURN - 0.3},   {{5.0, 7.0}, 6.9, 0.6, TURN + 0.6},
        {{5.0, 7.0}, 0.0, 1.0, 7.0},           {{11.0, 12.0}, 0.0, 5.0, TURN + 5.0},
        {{-0.5, 0.5}, 0.0, 0.7, 0.5},          {{-0.5, 0.5}, 20.0, 0.2, 0.2},
        {{-10.0, 10.0}, 3.0, 3.3, 3.3},        {{-10.0, 10.0}, 6.2, 0.1, TURN + 0.1},
        {{0.0, std::nullopt}, 0.1, -0.2, 0.0}, {{0.0, std::nullopt}, 6.2, -0.2, TURN - 0.2},
        {{std::nullopt, 0.0}, 0.0, 0.2, 0.0},  {{std::nullopt, std::nullopt}, 7.0, 0.5, TURN + 0.5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.counted << " at " << row.angle);
        const Hinge hinge(row.limits, row.counted, row.angle);
        EXPECT_TRUE(hinge.solve().isConverged);
        EXPECT_NEAR(hinge.mate->getDimension(0).value, row.expected, TOLERANCE);
        EXPECT_NEAR(std::remainder(hinge.angle() - row.expected, TURN), 0.0, TOLERANCE);
    }
}

TEST(VrexMateLimits, AngleThatIsHeldMayLieAWholeTurnOff) {
    const Hinge hinge({0.0, TURN}, -1.0, 0.3);
    hinge.mate->getDimension(0).setFixed(true);
    EXPECT_TRUE(hinge.solve().isConverged);
    EXPECT_NEAR(hinge.angle(), -1.0, TOLERANCE);
    EXPECT_NEAR(hinge.mate->getDimension(0).value, TURN - 1.0, TOLERANCE);
}

TEST(VrexMateLimits, ValueThatIsHeldOutsideThemNamesTheMate) {
    const Hinge hinge({0.0, 1.0}, 2.0, 0.3);
    hinge.mate->getDimension(0).setFixed(true);
    const std::string name = nsSolverNames::nameOf(*hinge.mate);
    EXPECT_EQ(hinge.solve().refusal, name + " has a value outside its limits.");
    EXPECT_NEAR(hinge.angle(), 0.3, TOLERANCE);
    hinge.mate->getDimension(0).value = std::nan("");
    EXPECT_EQ(hinge.solve().refusal, name + " has a value that is not finite.");
    hinge.mate->getDimension(0).value = 0.5;
    hinge.mate->getDimension(0).limits = {1.0, 0.0};
    EXPECT_EQ(hinge.solve().refusal, name + " has limits that contradict each other.");
}

TEST(VrexMateLimits, ShiftsStopAtThem) {
    for (const auto& [start, expected] : {std::pair{-3.0, -1.0}, std::pair{0.5, 0.5}, std::pair{9.0, 2.0}}) {
        Mechanism mechanism;
        const auto first = mechanism.connector(mechanism.ground(), {0.0, 0.0, 0.0});
        const auto body = mechanism.body();
        const auto second = mechanism.connector(body, {0.0, 0.0, start});
        const auto mate = mechanism.bind(VrexSliderMate3D::create(first, second, {-1.0, 2.0}));
        EXPECT_TRUE(VrexSolver3D().solve({mechanism.component()}).isConverged());
        EXPECT_NEAR(body->getOrigin().z() + start, expected, TOLERANCE);
        EXPECT_NEAR(mate->getDimension(0).value, expected, TOLERANCE);
    }
}

} // namespace
