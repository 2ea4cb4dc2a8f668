#include <cmath>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/EntityReader.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using enum VrexGeometry3DType;
constexpr double TOLERANCE = 1e-9;

using Entity = std::shared_ptr<VrexGeometry3D>;

void expectSolved(const VrexSolverComponentReport& report) {
    EXPECT_TRUE(report.isConverged) << reasonOf(report);
    EXPECT_EQ(reasonOf(report), "");
    EXPECT_TRUE(report.overConstrained.empty());
}

struct RadiusOf {
    VrexGeometry3DType type;
    VrexRadius3DType radius;
    std::size_t index;
};
constexpr RadiusOf RADII[] = {
    {CIRCLE, VrexRadius3DType::Radius3D, 0},       {SPHERE, VrexRadius3DType::Radius3D, 0},
    {CYLINDER, VrexRadius3DType::Radius3D, 0},     {ELLIPSE, VrexRadius3DType::MajorRadius3D, 0},
    {ELLIPSE, VrexRadius3DType::MinorRadius3D, 1}, {TORUS, VrexRadius3DType::MajorRadius3D, 0},
    {TORUS, VrexRadius3DType::MinorRadius3D, 1},
};

double sizeOf(const Entity& entity, std::size_t index) { return EntityReader(entity).sizes.at(index); }

TEST(VrexRadiusResiduals, RadiusTakesTheValue) {
    RandomShapes random;
    for (const RadiusOf& row : RADII) {
        SCOPED_TRACE(namesOf({row.type}));
        const Entity entity = makeRandom(row.type, random);
        const auto radius = VrexRadius3D::create(entity, 3.25, row.radius);
        SolverProbe({entity}, {radius}).expectDerivativesMatch();
        const auto report = solveOne({entity}, {radius});
        expectSolved(report);
        EXPECT_NEAR(sizeOf(entity, row.index), 3.25, TOLERANCE);
        EXPECT_EQ(report.freedom, static_cast<std::size_t>(entity->dof() - 1));
    }
}

TEST(VrexRadiusResiduals, NegativeRadiusStaysNegativeUnlessTheValueIs) {
    for (const double value : {2.0, -2.0}) {
        const auto circle = VrexCircle3D::create({0, 0, 0}, {0, 0, 1}, -1.0);
        expectSolved(solveOne({circle}, {VrexRadius3D::create(circle, value, VrexRadius3DType::Radius3D)}));
        EXPECT_NEAR(circle->getRadius(), -2.0, TOLERANCE);
    }
    const auto circle = VrexCircle3D::create({0, 0, 0}, {0, 0, 1}, 1.0);
    expectSolved(solveOne({circle}, {VrexRadius3D::create(circle, -2.0, VrexRadius3DType::Radius3D)}));
    EXPECT_NEAR(circle->getRadius(), -2.0, TOLERANCE);
}

TEST(VrexRadiusResiduals, RadiusThatTheEntityLacksIsRefused) {
    RandomShapes random;
    const struct {
        VrexGeometry3DType type;
        VrexRadius3DType radius;
    } rows[] = {{CIRCLE, VrexRadius3DType::MajorRadius3D},
                {TORUS, VrexRadius3DType::Radius3D},
                {CONE, VrexRadius3DType::Radius3D},
                {PLANE, VrexRadius3DType::Radius3D}};
    for (const auto& row : rows) {
        const Entity entity = makeRandom(row.type, random);
        EXPECT_EQ(reasonOf(solveOne({entity}, {VrexRadius3D::create(entity, 1.0, row.radius)})),
                  "The entity has no such radius.");
    }
}

TEST(VrexRadiusResiduals, MemberOfASetKeepsItsRadius) {
    const auto circle = VrexCircle3D::create({0, 0, 0}, {0, 0, 1}, 1.0);
    const auto set = VrexRigidSet3D::create({circle});
    EXPECT_TRUE(
        solveOne({set, circle}, {VrexRadius3D::create(circle, 1.0, VrexRadius3DType::Radius3D)}).isConverged);
    const auto radius = VrexRadius3D::create(circle, 2.0, VrexRadius3DType::Radius3D);
    EXPECT_FALSE(solveOne({set, circle}, {radius}).isConverged);
    EXPECT_EQ(circle->getRadius(), 1.0);
    EXPECT_EQ(radius->satisfiedStatus(), VrexConstraintSatisfiedStatus::NotSatisfied);
}

TEST(VrexRadiusResiduals, VariableTiesTwoRadii) {
    const auto circle = VrexCircle3D::create({0, 0, 0}, {0, 0, 1}, 1.0);
    const auto sphere = VrexSphere3D::create({5, 0, 0}, 3.0);
    const auto variable = VrexGeometryVariable::create(7.0);
    const auto first = VrexRadius3D::create(circle, 0.0, VrexRadius3DType::Radius3D);
    const auto second = VrexRadius3D::create(sphere, 0.0, VrexRadius3DType::Radius3D);
    first->bindVariable(variable);
    second->bindVariable(variable);
    SolverProbe({circle, sphere, variable}, {first, second}).expectDerivativesMatch();
    const auto report = solveOne({circle, sphere}, {first, second}, {variable});
    expectSolved(report);
    EXPECT_NEAR(circle->getRadius(), variable->getValue(), TOLERANCE);
    EXPECT_NEAR(sphere->getRadius(), variable->getValue(), TOLERANCE);
    EXPECT_EQ(report.freedom, 6U + 4U + 1U - 2U);
}

TEST(VrexEqualRadiusResiduals, RadiiAgreeInEveryPair) {
    RandomShapes random;
    for (const RadiusOf& one : RADII) {
        for (const RadiusOf& other : RADII) {
            SCOPED_TRACE(namesOf({one.type, other.type}));
            const Entity first = makeRandom(one.type, random);
            const Entity second = makeRandom(other.type, random);
            const auto equality = VrexEqualRadius3D::create(first, one.radius, second, other.radius,
                                                            VrexGeometryComponentType::UNKNOWN,
                                                            VrexGeometryComponentType::UNKNOWN);
            SolverProbe({first, second}, {equality}).expectDerivativesMatch();
            const auto report = solveOne({first, second}, {equality});
            expectSolved(report);
            EXPECT_NEAR(sizeOf(first, one.index), sizeOf(second, other.index), TOLERANCE);
            EXPECT_EQ(report.freedom, static_cast<std::size_t>(first->dof() + second->dof() - 1));
        }
    }
}

TEST(VrexEqualRadiusResiduals, ComponentNamesTheRadius) {
    RandomShapes random;
    const Entity torus = makeRandom(TORUS, random);
    const Entity circle = makeRandom(CIRCLE, random);
    expectSolved(solveOne(
        {torus, circle},
        {VrexEqualRadius3D::create(torus, VrexRadius3DType::Radius3D, circle, VrexRadius3DType::Radius3D,
                                   VrexGeometryComponentType::MINOR, VrexGeometryComponentType::UNKNOWN)}));
    EXPECT_NEAR(sizeOf(torus, 1), sizeOf(circle, 0), TOLERANCE);
}

TEST(VrexEqualRadiusResiduals, RadiiKeepTheirSigns) {
    const auto first = VrexCircle3D::create({0, 0, 0}, {0, 0, 1}, -2.0);
    const auto second = VrexCircle3D::create({0, 0, 0}, {0, 0, 1}, 1.0);
    expectSolved(solveOne(
        {first, second},
        {VrexEqualRadius3D::create(first, VrexRadius3DType::Radius3D, second, VrexRadius3DType::Radius3D,
                                   VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN)}));
    EXPECT_NEAR(first->getRadius(), -second->getRadius(), TOLERANCE);
    EXPECT_LT(first->getRadius(), 0.0);
}

TEST(VrexHalfAngleResiduals, ConeOpensByTheValue) {
    for (const double start : {0.3, -0.3}) {
        const auto cone = VrexCone3D::create({1, 2, 3}, {1, 0, 1}, start);
        const auto halfAngle = VrexHalfAngle3D::create(cone, 0.7);
        SolverProbe({cone}, {halfAngle}).expectDerivativesMatch();
        const auto report = solveOne({cone}, {halfAngle});
        expectSolved(report);
        EXPECT_NEAR(cone->getAperture(), std::copysign(0.7, start), TOLERANCE);
        EXPECT_EQ(report.freedom, 5U);
    }
}

TEST(VrexPatternValueResiduals, StepTakesTheValue) {
    for (const auto type : {VrexPattern3DType::Linear3D, VrexPattern3DType::Circular3D}) {
        const auto axis = VrexLine3D::create({0, 0, 0}, {0, 0, 1});
        const auto pattern = VrexPattern3D::create(type, axis, 0.5);
        const auto value = VrexPatternValue3D::create(pattern, 1.25);
        SolverProbe({axis, pattern}, {value}).expectDerivativesMatch();
        expectSolved(solveOne({axis, pattern}, {value}));
        EXPECT_NEAR(pattern->getValue(), 1.25, TOLERANCE);
    }
}

TEST(VrexEqualDimensionValueResiduals, ElementTakesTheValue) {
    const auto element = VrexEqualDimensionElement3D::create(0.5);
    const auto value = VrexEqualDimensionValue3D::create(element, 1.25);
    SolverProbe({element}, {value}).expectDerivativesMatch();
    expectSolved(solveOne({element}, {value}));
    EXPECT_NEAR(element->getValue(), 1.25, TOLERANCE);
}

TEST(VrexVariableFixationResiduals, VariableStaysToTheLastDigitAndTheOtherMoves) {
    for (const double start : {5.0, -17.3, 0.1, 1e3, 2.1}) {
        const auto held = VrexGeometryVariable::create(2.1);
        const auto free = VrexGeometryVariable::create(start);
        const auto equation = VrexExpressionEquation::create(
            {{held, 0, "a"}, {free, 0, "b"}}, VrexEquationConditionType::equalToZero, "a * a - a * b");
        const auto fixation = VrexVariableFixation3D::create(held);
        SolverProbe({held, free}, {fixation, equation}).expectDerivativesMatch();
        const auto report = solveOne({}, {fixation, equation}, {held, free});
        expectSolved(report);
        EXPECT_EQ(held->getValue(), 2.1);
        EXPECT_NEAR(free->getValue(), 2.1, TOLERANCE) << start;
        EXPECT_EQ(report.freedom, 0U);
    }
}

} // namespace
