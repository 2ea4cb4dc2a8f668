#include <cmath>
#include <functional>
#include <numbers>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/EntityReader.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using Vector = VrexVector3DT<double>;
using enum VrexGeometry3DType;
constexpr double PI = std::numbers::pi;
/// Directions are of unit length to about 1e-16, and residuals are solved to 1e-10 or better.
constexpr double TOLERANCE = 1e-9;

constexpr VrexGeometry3DType DIRECTED[] = {LINE, PLANE, CIRCLE,       ELLIPSE,      CYLINDER,
                                           CONE, TORUS, SPIN_SURFACE, SWEEP_SURFACE};

using Entities = std::vector<std::shared_ptr<VrexGeometry3D>>;

/// Calls for each pair of kinds that has directions, in both orders.
void forEachPair(const std::function<void(const Entities&)>& check) {
    RandomShapes random;
    for (const auto first : DIRECTED) {
        for (const auto second : DIRECTED) {
            SCOPED_TRACE(namesOf({first, second}));
            check({makeRandom(first, random), makeRandom(second, random)});
        }
    }
}

/// Whether the one is a plane and the other runs straight.
bool isCrossed(const Entities& entities) {
    const auto runsStraight = [](const auto& entity) {
        const auto type = entity->type();
        return type == LINE || type == CYLINDER || type == CONE || type == SPIN_SURFACE ||
               type == SWEEP_SURFACE;
    };
    return (entities[0]->type() == PLANE && runsStraight(entities[1])) ||
           (entities[1]->type() == PLANE && runsStraight(entities[0]));
}

double cosineOf(const Entities& entities) {
    return directionOf(entities[0]).dotProduct(directionOf(entities[1]));
}

void expectSolved(const VrexSolverComponentReport& report) {
    EXPECT_TRUE(report.isConverged) << reasonOf(report);
    EXPECT_EQ(reasonOf(report), "");
    EXPECT_TRUE(report.overConstrained.empty());
}

std::size_t freedomOf(const Entities& entities) {
    std::size_t freedom = 0;
    for (const auto& entity : withParts(entities)) {
        // Surfaces that are made of others have the freedom of their parts.
        freedom += entity->getGeometries().empty() ? static_cast<std::size_t>(entity->dof()) : 0;
    }
    return freedom;
}

/// The directions are solved from where the entities stand, which is anywhere.
TEST(VrexAngleResiduals, HoldTheAngleBetweenDirections) {
    double value = 0.1;
    forEachPair([&value](const Entities& pair) {
        if (isCrossed(pair)) {
            return;
        }
        value = value > 2.9 ? 0.1 : value + 0.23;
        const auto angle = VrexAngle3D::create(pair[0], pair[1], value);
        expectJacobianMatches(angle, withParts(pair));
        const auto report = solveOne(withParts(pair), {angle});
        expectSolved(report);
        EXPECT_NEAR(std::acos(cosineOf(pair)), value, TOLERANCE);
        EXPECT_EQ(report.freedom, freedomOf(pair) - 1);
    });
}

TEST(VrexAngleResiduals, StraightAndPlaneAreMeasuredFromThePlane) {
    RandomShapes random;
    for (const auto type : {LINE, CYLINDER, CONE, SPIN_SURFACE, SWEEP_SURFACE}) {
        for (const double value : {-1.2, -0.3, 0.0, 0.4, 1.5}) {
            for (const bool isPlaneFirst : {true, false}) {
                SCOPED_TRACE(namesOf({PLANE, type}));
                const auto plane = makeRandom(PLANE, random);
                const auto straight = makeRandom(type, random);
                const Entities pair = isPlaneFirst ? Entities{plane, straight} : Entities{straight, plane};
                const auto angle = VrexAngle3D::create(pair[0], pair[1], value);
                expectJacobianMatches(angle, withParts(pair));
                const auto report = solveOne(withParts(pair), {angle});
                expectSolved(report);
                EXPECT_NEAR(std::asin(cosineOf(pair)), value, TOLERANCE);
                EXPECT_EQ(report.freedom, freedomOf(pair) - 1);
            }
        }
    }
}

TEST(VrexAngleResiduals, LineAtARightAngleToAPlaneIsNormalToIt) {
    RandomShapes random;
    for (const double value : {0.5 * PI, -0.5 * PI}) {
        const Entities pair{random.line(), makeRandom(PLANE, random)};
        const auto report = solveOne(pair, {VrexAngle3D::create(pair[0], pair[1], value)});
        expectSolved(report);
        EXPECT_NEAR(cosineOf(pair), std::copysign(1.0, value), TOLERANCE);
        EXPECT_EQ(report.freedom, freedomOf(pair) - 2);
    }
}

TEST(VrexAngleResiduals, NegativeAlignmentTakesTheSecondDirectionReversed) {
    RandomShapes random;
    for (int i = 0; i < 20; ++i) {
        const Entities pair{random.line(), random.line()};
        const auto angle = VrexAngle3D::create(pair[0], pair[1], 0.4);
        angle->alignment() = VrexConstraintAlignment::Negative;
        expectJacobianMatches(angle, pair);
        expectSolved(solveOne(pair, {angle}));
        EXPECT_NEAR(std::acos(cosineOf(pair)), PI - 0.4, TOLERANCE);
    }
}

TEST(VrexAngleResiduals, AnyAlignmentTakesTheNearerOfBothWays) {
    for (const double start : {0.3, 2.7}) {
        const Entities pair{VrexLine3D::create({0, 0, 0}, {1, 0, 0}),
                            VrexLine3D::create({0, 0, 1}, {std::cos(start), std::sin(start), 0})};
        const auto angle = VrexAngle3D::create(pair[0], pair[1], 0.5);
        angle->alignment() = VrexConstraintAlignment::Any;
        expectSolved(solveOne(pair, {angle}));
        EXPECT_NEAR(std::acos(cosineOf(pair)), start < 1.0 ? 0.5 : PI - 0.5, TOLERANCE);
    }
}

TEST(VrexAngleResiduals, ValuesBeyondAHalfTurnMeanTheAngleThatLooksTheSame) {
    const struct {
        double value;
        double expected;
    } rows[] = {{-0.5, 0.5}, {0.5 + 2.0 * PI, 0.5}, {2.0 * PI - 0.5, 0.5}, {PI + 0.25, PI - 0.25}};
    RandomShapes random;
    for (const auto& row : rows) {
        const Entities pair{random.line(), random.line()};
        const auto angle = VrexAngle3D::create(pair[0], pair[1], row.value);
        angle->setLimits({row.value - 0.1, row.value + 0.1});
        expectJacobianMatches(angle, pair);
        expectSolved(solveOne(pair, {angle}));
        EXPECT_NEAR(std::acos(cosineOf(pair)), row.expected, TOLERANCE) << row.value;
    }
}

TEST(VrexAngleResiduals, ZeroAndAHalfTurnTakeTwoDegreesOfFreedom) {
    RandomShapes random;
    for (const double value : {0.0, PI}) {
        const Entities pair{random.line(), random.line()};
        const auto angle = VrexAngle3D::create(pair[0], pair[1], value);
        expectJacobianMatches(angle, pair, {}, 1e-6);
        const auto report = solveOne(pair, {angle});
        expectSolved(report);
        EXPECT_NEAR(cosineOf(pair), std::cos(value), TOLERANCE);
        EXPECT_EQ(report.freedom, 6U);
    }
}

TEST(VrexAngleResiduals, ParallelDirectionsLeaveForTheAngle) {
    for (const double sense : {1.0, -1.0}) {
        const Entities pair{VrexLine3D::create({0, 0, 0}, {1, 2, 3}),
                            VrexLine3D::create({1, 0, 0}, Vector(1, 2, 3) * sense)};
        expectSolved(solveOne(pair, {VrexAngle3D::create(pair[0], pair[1], 1.0)}));
        EXPECT_NEAR(std::acos(cosineOf(pair)), 1.0, TOLERANCE);
    }
}

TEST(VrexAngleResiduals, BoundVariableFollowsWhatIsFixed) {
    const Entities pair{VrexLine3D::create({0, 0, 0}, {1, 0, 0}), VrexLine3D::create({0, 0, 0}, {1, 1, 0})};
    const auto variable = VrexGeometryVariable::create(0.2);
    const auto angle = VrexAngle3D::create(pair[0], pair[1], 0.2);
    angle->bindVariable(variable);
    expectJacobianMatches(angle, pair, {variable});
    expectSolved(solveOne(pair,
                          {angle, VrexFixation3D::create(pair[0], VrexFixation3DType::Complete3D),
                           VrexFixation3D::create(pair[1], VrexFixation3DType::Complete3D)},
                          {variable}));
    EXPECT_NEAR(variable->getValue(), 0.25 * PI, TOLERANCE);
}

TEST(VrexAngleResiduals, RigidDimensionHoldsItsVariable) {
    const Entities pair{VrexLine3D::create({0, 0, 0}, {1, 0, 0}), VrexLine3D::create({0, 0, 0}, {1, 1, 0})};
    const auto variable = VrexGeometryVariable::create(0.2);
    const auto angle = VrexAngle3D::create(pair[0], pair[1], 0.2);
    angle->bindVariable(variable);
    angle->setRigid(true);
    expectSolved(solveOne(pair, {angle}, {variable}));
    EXPECT_NEAR(variable->getValue(), 0.2, TOLERANCE);
    EXPECT_NEAR(std::acos(cosineOf(pair)), 0.2, TOLERANCE);
}

TEST(VrexAngleResiduals, LimitsStopTheVariable) {
    const Entities pair{VrexLine3D::create({0, 0, 0}, {1, 0, 0}), VrexLine3D::create({0, 0, 0}, {1, 1, 0})};
    const auto variable = VrexGeometryVariable::create(0.25 * PI);
    const auto angle = VrexAngle3D::create(pair[0], pair[1], 0.25 * PI);
    angle->bindVariable(variable);
    angle->setLimits({1.0, 1.2});
    expectSolved(solveOne(pair, {angle}, {variable}));
    EXPECT_NEAR(variable->getValue(), 1.0, TOLERANCE);
    EXPECT_NEAR(std::acos(cosineOf(pair)), 1.0, TOLERANCE);
}

TEST(VrexAngleResiduals, WhatHasNoDirectionIsRefused) {
    RandomShapes random;
    for (const auto type : {POINT, SPHERE}) {
        const Entities pair{makeRandom(type, random), random.line()};
        const auto report = solveOne(pair, {VrexAngle3D::create(pair[0], pair[1], 1.0)});
        EXPECT_EQ(reasonOf(report), "What this constraint compares has no direction.");
    }
}

TEST(VrexAngleResiduals, UnsoundNumbersNameTheDimension) {
    RandomShapes random;
    const Entities pair{random.line(), random.line()};
    const auto angle = VrexAngle3D::create(pair[0], pair[1], 1.0);
    for (const double value : {1.0, 0.0}) {
        angle->setValue(value);
        angle->setLimits({1.5, 0.5});
        EXPECT_EQ(solveOne(pair, {angle}).refusal, "Angle3D 3 has a lower limit above the upper one.");
        angle->setLimits({std::nan(""), std::nullopt});
        EXPECT_EQ(solveOne(pair, {angle}).refusal, "Angle3D 3 has a limit that is no number.");
        angle->setLimits({1.1, std::nullopt});
        EXPECT_EQ(solveOne(pair, {angle}).refusal, "Angle3D 3 has a value outside its limits.");
    }
    angle->setValue(std::nan(""));
    EXPECT_EQ(solveOne(pair, {angle}).refusal, "Angle3D 3 has a value that is not finite.");
}

/// Expects directions that agree in the way of the alignment, at a cost of two degrees of freedom.
void expectParallel(const Entities& pair, const std::shared_ptr<VrexConstraint3D>& constraint) {
    using enum VrexConstraintAlignment;
    const double before = cosineOf(pair);
    // Nearly opposite directions are steep.
    expectJacobianMatches(constraint, withParts(pair), {}, 1e-5);
    const auto report = solveOne(withParts(pair), {constraint});
    expectSolved(report);
    const double expected = constraint->alignment() == Positive   ? 1.0
                            : constraint->alignment() == Negative ? -1.0
                                                                  : std::copysign(1.0, before);
    EXPECT_NEAR(directionOf(pair[0]).crossProduct(directionOf(pair[1])).magnitude(), 0.0, TOLERANCE);
    EXPECT_NEAR(cosineOf(pair), expected, TOLERANCE);
    EXPECT_EQ(report.freedom, freedomOf(pair) - 2);
}

/// Expects directions at a right angle, at a cost of one degree of freedom.
void expectPerpendicular(const Entities& pair, const std::shared_ptr<VrexConstraint3D>& constraint) {
    expectJacobianMatches(constraint, withParts(pair));
    const auto report = solveOne(withParts(pair), {constraint});
    expectSolved(report);
    EXPECT_NEAR(cosineOf(pair), 0.0, TOLERANCE);
    EXPECT_EQ(report.freedom, freedomOf(pair) - 1);
}

TEST(VrexParallelismResiduals, DirectionsEndUpAsTheAlignmentSays) {
    using enum VrexConstraintAlignment;
    for (const auto alignment : {Current, Positive, Negative, Any}) {
        forEachPair([alignment](const Entities& pair) {
            const auto parallelism = VrexParallelism3D::create(pair[0], pair[1]);
            parallelism->alignment() = alignment;
            isCrossed(pair) ? expectPerpendicular(pair, parallelism) : expectParallel(pair, parallelism);
        });
    }
}

TEST(VrexParallelismResiduals, ExactlyOppositeDirectionsAreTurned) {
    for (const Vector& direction : {Vector(1, 0, 0), Vector(0, 0, 1), Vector(-1, 2, 0.5)}) {
        const Entities pair{VrexLine3D::create({0, 0, 0}, direction),
                            VrexLine3D::create({1, 0, 0}, -direction)};
        const auto parallelism = VrexParallelism3D::create(pair[0], pair[1]);
        parallelism->alignment() = VrexConstraintAlignment::Positive;
        expectSolved(solveOne(pair, {parallelism}));
        EXPECT_NEAR(cosineOf(pair), 1.0, TOLERANCE);
    }
}

TEST(VrexParallelismResiduals, MembersTurnTheirSets) {
    RandomShapes random;
    for (const auto first : {LINE, PLANE, CIRCLE, ELLIPSE, CYLINDER, CONE, TORUS}) {
        SCOPED_TRACE(namesOf({first}));
        const Entities members{makeRandom(first, random), random.circle(), random.line()};
        const auto set = VrexRigidSet3D::create({members[0], members[2]});
        const auto other = VrexRigidSet3D::create({members[1]});
        const double before = directionOf(members[0]).dotProduct(directionOf(members[2]));
        const auto parallelism = VrexParallelism3D::create(members[0], members[1]);
        const auto report = solveOne({set, other, members[0], members[1], members[2]}, {parallelism});
        expectSolved(report);
        EXPECT_NEAR(std::abs(cosineOf(members)), 1.0, TOLERANCE);
        // What the member takes along keeps its angle to it.
        EXPECT_NEAR(directionOf(members[0]).dotProduct(directionOf(members[2])), before, TOLERANCE);
        EXPECT_EQ(report.freedom, 10U);
    }
}

TEST(VrexParallelismResiduals, SolvedAgainNothingMoves) {
    RandomShapes random;
    const Entities pair{random.line(), random.line()};
    const auto parallelism = VrexParallelism3D::create(pair[0], pair[1]);
    expectSolved(solveOne(pair, {parallelism}));
    const Vector before = directionOf(pair[0]);
    const auto report = solveOne(pair, {parallelism});
    EXPECT_EQ(report.iterations, 0);
    EXPECT_EQ(directionOf(pair[0]).x(), before.x());
    EXPECT_EQ(directionOf(pair[0]).y(), before.y());
    EXPECT_EQ(directionOf(pair[0]).z(), before.z());
}

TEST(VrexPerpendicularityResiduals, DirectionsEndUpAtARightAngle) {
    forEachPair([](const Entities& pair) {
        const auto perpendicularity = VrexPerpendicularity3D::create(pair[0], pair[1]);
        isCrossed(pair) ? expectParallel(pair, perpendicularity)
                        : expectPerpendicular(pair, perpendicularity);
    });
}

TEST(VrexPerpendicularityResiduals, ParallelDirectionsLeaveTheSaddle) {
    const Entities pair{VrexLine3D::create({0, 0, 0}, {0, 0, 1}), VrexLine3D::create({1, 0, 0}, {0, 0, 1})};
    expectSolved(solveOne(pair, {VrexPerpendicularity3D::create(pair[0], pair[1])}));
    EXPECT_NEAR(cosineOf(pair), 0.0, TOLERANCE);
}

/// The angle from the first direction to the second about the third, by projecting on the plane across it.
double angleAbout(const Entities& entities) {
    const Vector axis = directionOf(entities[2]);
    const Vector from = directionOf(entities[0]) - axis * axis.dotProduct(directionOf(entities[0]));
    const Vector to = directionOf(entities[1]) - axis * axis.dotProduct(directionOf(entities[1]));
    return std::atan2(from.crossProduct(to).dotProduct(axis), from.dotProduct(to));
}

TEST(VrexPlanarAngleResiduals, FirstDirectionTurnsIntoTheSecondAboutTheThird) {
    RandomShapes random;
    for (const auto first : DIRECTED) {
        for (const auto third : DIRECTED) {
            SCOPED_TRACE(namesOf({first, third}));
            const Entities triple{makeRandom(first, random), random.line(), makeRandom(third, random)};
            const double value = random.number(-2.8, 2.8);
            const auto angle = VrexPlanarAngle3D::create(triple[0], triple[1], triple[2], value);
            angle->orientation() = VrexConstraintOrientation::Positive;
            // Directions near the axis make the angle steep.
            expectJacobianMatches(angle, withParts(triple), {}, 1e-5);
            const auto report = solveOne(withParts(triple), {angle});
            expectSolved(report);
            EXPECT_NEAR(angleAbout(triple), value, TOLERANCE);
            EXPECT_EQ(report.freedom, freedomOf(triple) - 1);
        }
    }
}

/// Three lines, the first two in the plane across the third.
Entities linesAt(double angle) {
    return {VrexLine3D::create({0, 0, 0}, {1, 0, 0}),
            VrexLine3D::create({0, 0, 0}, {std::cos(angle), std::sin(angle), 0}),
            VrexPlane3D::create({0, 0, 0}, {0, 0, 1})};
}

TEST(VrexPlanarAngleResiduals, OrientationChoosesTheWayOfCounting) {
    using enum VrexConstraintOrientation;
    const struct {
        VrexConstraintOrientation orientation;
        double start;
        double expected;
    } rows[] = {{Positive, -0.5, 0.7}, {Negative, 0.5, -0.7}, {Current, 0.5, 0.7},
                {Current, -0.5, -0.7}, {Any, 0.5, 0.7},       {Any, -0.5, -0.7}};
    for (const auto& row : rows) {
        const Entities lines = linesAt(row.start);
        const auto angle = VrexPlanarAngle3D::create(lines[0], lines[1], lines[2], 0.7);
        angle->orientation() = row.orientation;
        expectSolved(solveOne(lines, {angle}));
        EXPECT_NEAR(angleAbout(lines), row.expected, TOLERANCE) << row.start;
    }
}

TEST(VrexPlanarAngleResiduals, PassesTheHalfTurn) {
    for (const double value : {PI, -PI, 3.0, 3.3, 7.0}) {
        const Entities lines = linesAt(2.9);
        const auto angle = VrexPlanarAngle3D::create(lines[0], lines[1], lines[2], value);
        angle->orientation() = VrexConstraintOrientation::Positive;
        expectSolved(solveOne(lines, {angle}));
        EXPECT_NEAR(std::remainder(angleAbout(lines) - value, 2.0 * PI), 0.0, TOLERANCE) << value;
    }
}

TEST(VrexPlanarAngleResiduals, DirectionAlongTheAxisIsNoReasonForNaN) {
    const Entities lines{VrexLine3D::create({0, 0, 0}, {0, 0, 1}), VrexLine3D::create({0, 0, 0}, {1, 0, 0}),
                         VrexPlane3D::create({0, 0, 0}, {0, 0, 1})};
    const auto angle = VrexPlanarAngle3D::create(lines[0], lines[1], lines[2], 0.7);
    SolverProbe probe({lines[0], lines[1], lines[2]}, {angle});
    EXPECT_TRUE(probe.values().allFinite());
    expectSolved(solveOne(lines, {angle}));
    EXPECT_NEAR(std::abs(angleAbout(lines)), 0.7, TOLERANCE);
}

} // namespace
