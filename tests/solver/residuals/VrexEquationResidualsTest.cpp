#include <cmath>
#include <cstdint>
#include <numbers>
#include <stdexcept>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/EntityReader.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using enum VrexGeometry3DType;
using enum VrexEquationConditionType;
constexpr double TOLERANCE = 1e-9;

void expectSolved(const VrexSolverComponentReport& report) {
    EXPECT_TRUE(report.isConverged) << reasonOf(report);
    EXPECT_EQ(reasonOf(report), "");
    EXPECT_TRUE(report.overConstrained.empty());
}

/// Parameters of each kind that an equation can follow.
struct Slots {
    VrexGeometry3DType type;
    std::uint32_t count;
};
constexpr Slots SLOTS[] = {
    {POINT, VrexPoint3D::PARAMETERS_AMOUNT},   {LINE, VrexLine3D::PARAMETERS_AMOUNT},
    {PLANE, VrexPlane3D::PARAMETERS_AMOUNT},   {SPHERE, VrexSphere3D::PARAMETERS_AMOUNT},
    {CIRCLE, VrexCircle3D::PARAMETERS_AMOUNT}, {CYLINDER, VrexCylinder3D::PARAMETERS_AMOUNT},
    {CONE, VrexCone3D::PARAMETERS_AMOUNT},     {TORUS, VrexTorus3D::PARAMETERS_AMOUNT},
    {ELLIPSE, VrexEllipse3D::SCALAR},
};

TEST(VrexEquationResiduals, FollowEveryParameterOfEveryKind) {
    RandomShapes random;
    for (const Slots& row : SLOTS) {
        for (std::uint32_t slot = 0; slot < row.count; ++slot) {
            SCOPED_TRACE(namesOf({row.type}) + " slot " + std::to_string(slot));
            const auto entity = makeRandom(row.type, random);
            const VrexVariableDescriptor parameter(entity, slot, "x");
            const auto equation = VrexExpressionEquation::create({parameter}, equalToZero, "x * x + x - 0.8");
            expectJacobianMatches(equation, {entity}, {}, 1e-7);
            expectSolved(solveOne({entity}, {equation}));
            const double x = parameter.getValue();
            EXPECT_NEAR(x * x + x - 0.8, 0.0, TOLERANCE);
        }
    }
}

TEST(VrexEquationResiduals, FollowPlainNumbersAndPlacesOfSets) {
    const auto pattern =
        VrexPattern3D::create(VrexPattern3DType::Linear3D, VrexLine3D::create({0, 0, 0}, {1, 0, 0}), 3.0);
    const auto element = VrexEqualDimensionElement3D::create(4.0);
    const auto variable = VrexGeometryVariable::create(5.0);
    const auto set = VrexRigidSet3D::create({});
    const auto equation = VrexExpressionEquation::create(
        {{pattern, 0, "a"}, {element, 0, "b"}, {variable, 0, "c"}, {set, VrexRigidSet3D::Y, "y"}},
        equalToZero, "a * b - c * c + sin(y)");
    SolverProbe({pattern, element, variable, set}, {equation}).expectDerivativesMatch();
    expectSolved(solveOne({pattern, pattern->getAxisLine(), element, set}, {equation}, {variable}));
    EXPECT_NEAR(pattern->getValue() * element->getValue() - std::pow(variable->getValue(), 2) +
                    std::sin(set->getOrigin().y()),
                0.0, TOLERANCE);
}

TEST(VrexEquationResiduals, PlaneIsWhereItsDistanceSays) {
    const auto plane = VrexPlane3D::create({5, 6, 1}, {0, 0, 1});
    VrexVariableDescriptor distance(plane, VrexPlane3D::DIST, "d");
    distance.setValue(4.0); // leaves the stored origin behind
    const auto point = VrexPoint3D::create(0, 0, 0);
    const auto equation =
        VrexExpressionEquation::create({distance, {point, VrexPoint3D::Z, "z"}}, equalToZero, "d - z");
    expectSolved(
        solveOne({plane, point}, {equation, VrexFixation3D::create(plane, VrexFixation3DType::Complete3D)}));
    EXPECT_NEAR(point->getPosition().z(), 4.0, TOLERANCE);
    EXPECT_EQ(plane->getOrigin().z(), 1.0);
}

TEST(VrexEquationResiduals, DirectionAtThePoleIsNoReasonForNaN) {
    const auto line = VrexLine3D::create({0, 0, 0}, {0, 0, 1});
    for (const int slot : {VrexLine3D::POLAR, VrexLine3D::AZIMUTHAL}) {
        const auto equation = VrexExpressionEquation::create({{line, static_cast<std::uint32_t>(slot), "x"}},
                                                             equalToZero, "x - 0.3");
        SolverProbe probe({line}, {equation});
        EXPECT_TRUE(probe.values().allFinite());
        expectSolved(solveOne({line}, {equation}));
    }
}

/// The variable where `x - 1` meets the condition, from a start on either side.
double solvedFrom(double start, VrexEquationConditionType condition) {
    const auto variable = VrexGeometryVariable::create(start);
    const auto equation = VrexExpressionEquation::create({{variable, 0, "x"}}, condition, "x - 1");
    expectSolved(solveOne({}, {equation}, {variable}));
    EXPECT_EQ(equation->satisfiedStatus(), VrexConstraintSatisfiedStatus::Satisfied);
    return variable->getValue();
}

TEST(VrexEquationResiduals, InequalitiesHoldFromEitherSide) {
    const struct {
        VrexEquationConditionType condition;
        double kept;
        double moved;
    } rows[] = {
        {lessEqualZero, 0.25, 1.75},
        {lessThanZero, 0.25, 1.75},
        {greaterEqualZero, 1.75, 0.25},
        {greaterThanZero, 1.75, 0.25},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(solvedFrom(row.kept, row.condition), row.kept);
        EXPECT_NEAR(solvedFrom(row.moved, row.condition), 1.0, 1e-8);
    }
    EXPECT_LT(solvedFrom(1.75, lessThanZero), 1.0);
    EXPECT_LT(solvedFrom(1.0, lessThanZero), 1.0);
    EXPECT_GT(solvedFrom(0.25, greaterThanZero), 1.0);
    EXPECT_GT(solvedFrom(1.0, greaterThanZero), 1.0);
    EXPECT_EQ(solvedFrom(1.0, lessEqualZero), 1.0);
}

TEST(VrexEquationResiduals, DragAsksForNothing) {
    const auto variable = VrexGeometryVariable::create(5.0);
    const auto drag = VrexExpressionEquation::create({{variable, 0, "x"}}, dragTowardsZero, "x - 1");
    const auto report = solveOne({}, {drag}, {variable});
    expectSolved(report);
    EXPECT_EQ(report.freedom, 1U);
    SolverProbe({variable}, {drag}).expectDerivativesMatch();
}

TEST(VrexEquationResiduals, DragPullsAsFarAsConstraintsAllow) {
    const auto hub = VrexPoint3D::create(0, 0, 0);
    const auto tip = VrexPoint3D::create(1, 0.1, 0);
    const auto hold = VrexFixation3D::create(hub, VrexFixation3DType::Complete3D);
    const auto arm = VrexDistance3D::create(hub, tip, 2.0, VrexGeometryComponentType::UNKNOWN,
                                            VrexGeometryComponentType::UNKNOWN);
    const auto drag = VrexExpressionEquation::create({{tip, VrexPoint3D::Y, "y"}}, dragTowardsZero, "y - 1");
    const auto report = solveOne({hub, tip}, {hold, arm, drag});
    expectSolved(report);
    EXPECT_NEAR(tip->getPosition().magnitude(), 2.0, TOLERANCE);
    EXPECT_NEAR(tip->getPosition().y(), 1.0, 1e-3);
    EXPECT_EQ(report.freedom, 2U);
}

TEST(VrexEquationResiduals, LinearCallbackTiesPlaces) {
    const auto first = VrexPoint3D::create(1, 2, 3);
    const auto second = VrexPoint3D::create(-1, 0, 2);
    const auto equation =
        VrexCallbackEquation::create({{first, VrexPoint3D::X, "a"}, {second, VrexPoint3D::Z, "b"}},
                                     equalToZero, VrexLinearEquationCallback({2.0, -1.0}, 0.5));
    expectJacobianMatches(equation, {first, second});
    const auto report = solveOne({first, second}, {equation});
    expectSolved(report);
    EXPECT_NEAR(2.0 * first->getPosition().x() - second->getPosition().z() + 0.5, 0.0, TOLERANCE);
    EXPECT_EQ(report.freedom, 5U);
}

/// A callback that brings its own gradient sees each argument as one unknown, while a place on a turning body
/// depends on six.
TEST(VrexEquationResiduals, CallbackWithAGradientActsOnMembersOfSets) {
    const auto point = VrexPoint3D::create(1, 2, 3);
    const auto equation = VrexCallbackEquation::create(
        {{point, VrexPoint3D::X, "x"}, {point, VrexPoint3D::Y, "y"}}, equalToZero,
        VrexEquationCallback([](const double* values, unsigned int /*count*/, double* gradient) {
            gradient[0] = values[1];
            gradient[1] = values[0];
            return values[0] * values[1] - 7.0;
        }));
    expectJacobianMatches(equation, {point});
    const auto set = VrexRigidSet3D::create({point});
    expectSolved(solveOne({set, point}, {equation}));
    EXPECT_NEAR(point->getPosition().x() * point->getPosition().y(), 7.0, TOLERANCE);
}

TEST(VrexEquationResiduals, LevelStartOfASteepFunctionConverges) {
    const auto variable = VrexGeometryVariable::create(1e-9);
    expectSolved(solveOne(
        {}, {VrexExpressionEquation::create({{variable, 0, "x"}}, equalToZero, "x * x - 4")}, {variable}));
    EXPECT_NEAR(std::abs(variable->getValue()), 2.0, TOLERANCE);
}

TEST(VrexEquationResiduals, SmallGradientCountsAsADistance) {
    const auto variable = VrexGeometryVariable::create(3.0);
    expectSolved(
        solveOne({}, {VrexExpressionEquation::create({{variable, 0, "x"}}, equalToZero, "(x - 1) / 500")},
                 {variable}));
    EXPECT_NEAR(variable->getValue(), 1.0, TOLERANCE);
}

TEST(VrexEquationResiduals, WhatACallbackThrowsEndsThatComponentOnly) {
    const auto broken = VrexGeometryVariable::create(1.0);
    const auto odd = VrexGeometryVariable::create(1.0);
    const auto sound = VrexGeometryVariable::create(1.0);
    const auto throwing = VrexCallbackEquation::create(
        {{broken, 0, "x"}}, equalToZero, [](const std::vector<VrexVariable>& /*args*/) -> VrexVariable {
            throw std::runtime_error("no data");
        });
    const auto throwingInt = VrexCallbackEquation::create(
        {{odd, 0, "x"}}, equalToZero,
        [](const std::vector<VrexVariable>& /*args*/) -> VrexVariable { throw 7; });
    const auto equation = VrexExpressionEquation::create({{sound, 0, "x"}}, equalToZero, "x - 3");
    throwing->setID(11);
    throwingInt->setID(12);
    using Component = VrexConnectedComponent;
    const auto report = VrexSolver3D().solve(
        {std::make_shared<Component>(Component::Geometries{broken}, Component::Constraints{throwing}),
         std::make_shared<Component>(Component::Geometries{odd}, Component::Constraints{throwingInt}),
         std::make_shared<Component>(Component::Geometries{sound}, Component::Constraints{equation})});
    ASSERT_EQ(report.components.size(), 3U);
    EXPECT_EQ(report.components[0].refusal, "eq11 failed: no data");
    EXPECT_EQ(report.components[1].refusal, "eq12 failed.");
    EXPECT_FALSE(report.components[0].isConverged);
    EXPECT_TRUE(report.components[2].isConverged);
    EXPECT_EQ(broken->getValue(), 1.0);
    EXPECT_NEAR(sound->getValue(), 3.0, TOLERANCE);
}

TEST(VrexEquationResiduals, EmptyCallbackEndsTheComponent) {
    const auto variable = VrexGeometryVariable::create(1.0);
    const auto equation = VrexCallbackEquation::create({{variable, 0, "x"}}, equalToZero, nullptr);
    EXPECT_EQ(solveOne({}, {equation}, {variable}).refusal.substr(0, 10), "eq2 failed");
}

TEST(VrexEquationResiduals, CallbackThatAnswersNaNLeavesEverythingInPlace) {
    const auto variable = VrexGeometryVariable::create(1.0);
    const auto equation = VrexCallbackEquation::create(
        {{variable, 0, "x"}}, equalToZero,
        [](const std::vector<VrexVariable>& args) { return args[0] * std::nan(""); });
    const auto report = solveOne({}, {equation}, {variable});
    EXPECT_FALSE(report.isConverged);
    EXPECT_EQ(variable->getValue(), 1.0);
    EXPECT_NE(equation->satisfiedStatus(), VrexConstraintSatisfiedStatus::Satisfied);
}

TEST(VrexEquationResiduals, WhatCannotBeFollowedIsRefusedByName) {
    RandomShapes random;
    const auto ellipse = makeRandom(ELLIPSE, random);
    const auto turn =
        VrexExpressionEquation::create({{ellipse, VrexEllipse3D::SCALAR, "turn"}}, equalToZero, "turn - 1");
    EXPECT_EQ(reasonOf(solveOne({ellipse}, {turn})), "The parameter turn cannot be followed.");
    const auto beyond = VrexExpressionEquation::create({{ellipse, 9, "beyond"}}, equalToZero, "beyond - 1");
    EXPECT_EQ(reasonOf(solveOne({ellipse}, {beyond})), "The parameter beyond cannot be followed.");
    const auto nothing =
        VrexExpressionEquation::create({{nullptr, 0, "nothing"}}, equalToZero, "nothing - 1");
    EXPECT_EQ(reasonOf(solveOne({ellipse}, {nothing})), "The parameter nothing cannot be followed.");
    const auto variable = VrexGeometryVariable::create(1.0);
    const auto odd = VrexExpressionEquation::create({{variable, 0, "x"}}, unknown, "x - 1");
    EXPECT_EQ(reasonOf(solveOne({}, {odd}, {variable})), "The condition of this equation is unknown.");
    EXPECT_EQ(odd->status(), VrexConstraintStatus::NotSolved);
}

} // namespace
