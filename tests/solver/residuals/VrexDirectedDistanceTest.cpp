#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/EntityReader.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using Vector = VrexVector3DT<double>;
using enum VrexGeometry3DType;
using Orientation = VrexConstraintOrientation;
constexpr double TOLERANCE = 1e-9;

std::shared_ptr<VrexPoint3D> pointAt(const Vector& place) {
    return VrexPoint3D::create(place.x(), place.y(), place.z());
}

/// What the value counts, on the side that the orientation asks for; else the one where the points stand.
double sideOf(Orientation orientation, double start) {
    return orientation == Orientation::Positive   ? 1.0
           : orientation == Orientation::Negative ? -1.0
           : start < 0.0                          ? -1.0
                                                  : 1.0;
}

constexpr Orientation ORIENTATIONS[] = {Orientation::Current, Orientation::Positive, Orientation::Negative,
                                        Orientation::Any};

TEST(VrexDirectionDistance, IsTheAdvanceAlongTheDirection) {
    RandomShapes random;
    for (const auto orientation : ORIENTATIONS) {
        for (int i = 0; i < 4; ++i) {
            const auto first = pointAt(random.point());
            const auto second = pointAt(random.point());
            const Vector direction = random.direction();
            const double value = random.number(-1.0, 2.0);
            const auto distance =
                VrexDirectionDistance3D::create(first, second, direction * random.number(0.1, 9.0), value);
            distance->orientation() = orientation;
            expectJacobianMatches(distance, {first, second});
            const double start = direction.dotProduct(second->getPosition() - first->getPosition());
            const auto report = solveOne({first, second}, {distance});
            ASSERT_TRUE(report.isConverged);
            EXPECT_EQ(report.freedom, 5U);
            EXPECT_NEAR(direction.dotProduct(second->getPosition() - first->getPosition()),
                        sideOf(orientation, start) * value, TOLERANCE);
        }
    }
}

TEST(VrexDirectionDistance, DirectionWithoutLengthRefusesTheComponent) {
    const auto first = pointAt({0, 0, 0});
    const auto second = pointAt({1, 0, 0});
    EXPECT_EQ(
        solveOne({first, second}, {VrexDirectionDistance3D::create(first, second, Vector(), 1.0)}).refusal,
        "DirectionDistance3D 3 has a direction without length.");
}

TEST(VrexParallelDistance, IsTheAdvanceAlongTheDirectionOfTheEntity) {
    RandomShapes random;
    for (const auto type :
         {LINE, CYLINDER, CONE, SPIN_SURFACE, PLANE, CIRCLE, ELLIPSE, TORUS, SWEEP_SURFACE}) {
        for (const auto orientation : ORIENTATIONS) {
            SCOPED_TRACE(namesOf({type}));
            const auto first = pointAt(random.point());
            const auto second = pointAt(random.point());
            const auto entity = makeRandom(type, random);
            const double value = random.number(0.2, 2.0);
            const auto distance = VrexParallelDistance3D::create(first, second, entity, value);
            distance->orientation() = orientation;
            const auto all = withParts({first, second, entity});
            expectJacobianMatches(distance, all);
            const double start = directionOf(entity).dotProduct(second->getPosition() - first->getPosition());
            const auto report = solveOne(all, {distance});
            ASSERT_EQ(reasonOf(report), "");
            ASSERT_TRUE(report.isConverged);
            EXPECT_NEAR(directionOf(entity).dotProduct(second->getPosition() - first->getPosition()),
                        sideOf(orientation, start) * value, TOLERANCE);
        }
    }
}

TEST(VrexParallelDistance, EntityWithoutDirectionIsNotSolved) {
    const auto first = pointAt({0, 0, 0});
    const auto second = pointAt({1, 0, 0});
    const auto sphere = VrexSphere3D::create({0, 0, 0}, 1.0);
    const auto distance = VrexParallelDistance3D::create(first, second, sphere, 1.0);
    const auto report = solveOne({first, second, sphere}, {distance});
    ASSERT_EQ(report.remarks.size(), 1U);
    EXPECT_EQ(report.remarks[0].id, distance->getID());
    EXPECT_EQ(report.remarks[0].kind, "ParallelDistance3D");
    EXPECT_EQ(distance->status(), VrexConstraintStatus::NotSolved);
}

/// Two points on the X axis, the first one fixed, and a distance with a variable.
struct Bound {
    Bound(double place, double value)
        : first(pointAt({0, 0, 0})),
          second(pointAt({place, 0, 0})),
          variable(VrexGeometryVariable::create(value)),
          distance(VrexDistance3D::create(first, second, value, VrexGeometryComponentType::UNKNOWN,
                                          VrexGeometryComponentType::UNKNOWN)) {
        distance->bindVariable(variable);
    }
    VrexSolverComponentReport solve(bool isSecondFixed) {
        std::vector<std::shared_ptr<VrexBaseConstraint>> constraints{
            distance, VrexFixation3D::create(first, VrexFixation3DType::Complete3D)};
        if (isSecondFixed) {
            constraints.push_back(VrexFixation3D::create(second, VrexFixation3DType::Complete3D));
        }
        return solveOne({first, second}, constraints, {variable});
    }
    double measured() const { return (second->getPosition() - first->getPosition()).magnitude(); }

    std::shared_ptr<VrexPoint3D> first;
    std::shared_ptr<VrexPoint3D> second;
    std::shared_ptr<VrexGeometryVariable> variable;
    std::shared_ptr<VrexDistance3D> distance;
};

TEST(VrexBoundDimension, VariableFollowsWhatIsFixed) {
    Bound bound(3.0, 1.0);
    EXPECT_TRUE(bound.solve(true).isConverged);
    EXPECT_NEAR(bound.variable->getValue(), 3.0, TOLERANCE);
    EXPECT_NEAR(bound.distance->value(), 3.0, TOLERANCE);
}

TEST(VrexBoundDimension, DerivativesMatchCentralDifferences) {
    const Bound bound(3.0, 1.0);
    expectJacobianMatches(bound.distance, {bound.first, bound.second}, {bound.variable});
}

TEST(VrexBoundDimension, RigidDimensionHoldsItsVariable) {
    Bound bound(3.0, 1.0);
    bound.distance->setRigid(true);
    EXPECT_TRUE(bound.solve(false).isConverged);
    EXPECT_NEAR(bound.variable->getValue(), 1.0, TOLERANCE);
    EXPECT_NEAR(bound.measured(), 1.0, TOLERANCE);
    Bound contradiction(3.0, 1.0);
    contradiction.distance->setRigid(true);
    EXPECT_FALSE(contradiction.solve(true).isConverged);
}

TEST(VrexBoundDimension, LimitsHoldTheVariableAndWhatFollowsIt) {
    for (const auto& [place, expected] : {std::pair{3.0, 2.0}, std::pair{1.7, 1.7}, std::pair{0.2, 1.5}}) {
        Bound bound(place, place);
        bound.distance->setLimits({1.5, 2.0});
        EXPECT_TRUE(bound.solve(false).isConverged);
        EXPECT_NEAR(bound.variable->getValue(), expected, TOLERANCE);
        EXPECT_NEAR(bound.measured(), expected, TOLERANCE);
    }
    Bound contradiction(3.0, 1.7);
    contradiction.distance->setLimits({1.5, 2.0});
    EXPECT_FALSE(contradiction.solve(true).isConverged);
}

TEST(VrexBoundDimension, NumberOutsideItsLimitsNamesTheDimension) {
    const auto first = pointAt({0, 0, 0});
    const auto second = pointAt({1, 0, 0});
    const auto distance = VrexDistance3D::create(first, second, 2.5, VrexGeometryComponentType::UNKNOWN,
                                                 VrexGeometryComponentType::UNKNOWN);
    for (const VrexDimensionLimits& limits :
         {VrexDimensionLimits{0.0, 2.0}, VrexDimensionLimits{3.0, std::nullopt}}) {
        distance->setLimits(limits);
        EXPECT_EQ(solveOne({first, second}, {distance}).refusal,
                  "Distance3D 3 has a value outside its limits.");
    }
}

} // namespace
