#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/EntityReader.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using Vector = VrexVector3DT<double>;
constexpr double PI = std::numbers::pi;
constexpr double TOLERANCE = 1e-9;

void expectSolved(const VrexSolverComponentReport& report) {
    EXPECT_TRUE(report.isConverged) << reasonOf(report);
    EXPECT_EQ(reasonOf(report), "");
    EXPECT_TRUE(report.overConstrained.empty());
}

/// Two wheels and a slide on the ground. The wheels turn about Z, the slide moves along Z.
struct Gearing : Mechanism {
    Gearing() {
        const auto base = ground();
        firstWheel = body();
        secondWheel = body();
        slide = body();
        first = hinge(base, firstWheel, {0, 0, 0});
        second = hinge(base, secondWheel, {3, 0, 0});
        slider = bind(VrexSliderMate3D::create(connector(base, {0, 5, 0}), connector(slide, {0, 5, 0}), {}));
    }
    /// How far the body has turned about Z of space.
    static double turnOf(const std::shared_ptr<VrexRigidSet3D>& body) {
        const Vector x = body->getDirection();
        return std::atan2(x.y(), x.x());
    }
    std::shared_ptr<VrexRigidSet3D> firstWheel;
    std::shared_ptr<VrexRigidSet3D> secondWheel;
    std::shared_ptr<VrexRigidSet3D> slide;
    std::shared_ptr<VrexRevoluteMate3D> first;
    std::shared_ptr<VrexRevoluteMate3D> second;
    std::shared_ptr<VrexSliderMate3D> slider;
};

TEST(VrexMateRelationResiduals, FirstDimensionIsTheRatioTimesTheSecond) {
    Gearing gears;
    gears.bind(VrexMateRelation3D::create({gears.first, gears.second}, {0, 0}, -0.5));
    gears.second->getAngle().value = 1.0;
    gears.second->getAngle().setFixed(true);
    const auto report = solve(gears);
    expectSolved(report);
    EXPECT_NEAR(Gearing::turnOf(gears.firstWheel), -0.5, TOLERANCE);
    EXPECT_NEAR(Gearing::turnOf(gears.secondWheel), 1.0, TOLERANCE);
    EXPECT_NEAR(gears.first->getAngle().value, -0.5, TOLERANCE);
    EXPECT_EQ(report.freedom, 1U); // the slide
}

TEST(VrexMateRelationResiduals, TurnsAreCountedBeyondTheHalfTurn) {
    Gearing gears;
    gears.bind(VrexMateRelation3D::create({gears.first, gears.second}, {0, 0}, 10.0));
    gears.second->getAngle().value = 1.0;
    gears.second->getAngle().setFixed(true);
    expectSolved(solve(gears));
    EXPECT_NEAR(gears.first->getAngle().value, 10.0, TOLERANCE);
    EXPECT_NEAR(std::remainder(Gearing::turnOf(gears.firstWheel) - 10.0, 2.0 * PI), 0.0, TOLERANCE);
}

TEST(VrexMateRelationResiduals, RackFollowsItsPinion) {
    Gearing gears;
    gears.bind(VrexMateRelation3D::create({gears.slider, gears.first}, {0, 0}, 2.5));
    gears.first->getAngle().value = 0.8;
    gears.first->getAngle().setFixed(true);
    const auto report = solve(gears);
    expectSolved(report);
    EXPECT_NEAR(gears.slide->getOrigin().z(), 2.0, TOLERANCE);
    EXPECT_NEAR(gears.slider->getDistance().value, 2.0, TOLERANCE);
    EXPECT_EQ(report.freedom, 1U); // the second wheel
}

TEST(VrexMateRelationResiduals, HasOneDegreeLessAndMatchesDifferences) {
    Gearing gears;
    gears.bind(VrexMateRelation3D::create({gears.first, gears.second}, {0, 0}, 3.0));
    gears.bind(VrexMateRelation3D::create({gears.slider, gears.second}, {0, 0}, 0.7));
    SolverProbe probe(gears.geometries, gears.constraints);
    probe.system().move(Eigen::VectorXd::LinSpaced(probe.system().unknownCount(), -0.2, 0.3));
    probe.expectDerivativesMatch();
    EXPECT_EQ(solve(gears).freedom, 1U);
}

TEST(VrexMateRelationResiduals, DimensionThatIsNotThereIsRefused) {
    Gearing gears;
    const auto relation = gears.bind(VrexMateRelation3D::create({gears.first, gears.second}, {0, 1}, 3.0));
    EXPECT_EQ(reasonOf(solve(gears)), "A relation needs a dimension of each of two mates.");
    EXPECT_EQ(relation->status(), VrexConstraintStatus::NotSolved);
    relation->setMateParameterIndexs({0, 0});
    relation->setRatio(std::nan(""));
    EXPECT_EQ(solve(gears).refusal.substr(1), // behind the prefix
              std::to_string(relation->getID()) + " has a ratio that is not finite.");
}

TEST(VrexMateIntervalResiduals, VariableIsTheDimensionOfTheParentWithinLimits) {
    Gearing gears;
    const auto variable = gears.add(VrexGeometryVariable::create(0.0));
    const auto interval = gears.bind(VrexMateDimensionInterval3D::create(
        variable, {1.5, 2.0}, 0, VrexMateDimensionInterval3DType::LinearDimension3D));
    interval->setParent(gears.slider);
    const auto report = solve(gears);
    expectSolved(report);
    EXPECT_NEAR(variable->getValue(), 1.5, TOLERANCE);
    EXPECT_NEAR(gears.slide->getOrigin().z(), 1.5, TOLERANCE);
}

TEST(VrexMateIntervalResiduals, AngleOfTheParentMayPassTheHalfTurn) {
    Gearing gears;
    const auto variable = gears.add(VrexGeometryVariable::create(0.0));
    const auto interval = gears.bind(VrexMateDimensionInterval3D::create(
        variable, {4.0, std::nullopt}, 0, VrexMateDimensionInterval3DType::AngleDimension3D));
    interval->setParent(gears.first);
    SolverProbe(gears.geometries, gears.constraints).expectDerivativesMatch();
    expectSolved(solve(gears));
    EXPECT_NEAR(variable->getValue(), 4.0, TOLERANCE);
    EXPECT_NEAR(gears.first->getAngle().value, 4.0, TOLERANCE);
    EXPECT_NEAR(Gearing::turnOf(gears.firstWheel), 4.0 - 2.0 * PI, TOLERANCE);
}

TEST(VrexMateIntervalResiduals, WithoutAParentTheVariableAloneIsBounded) {
    for (const double start : {-3.0, 0.5, 3.0}) {
        const auto variable = VrexGeometryVariable::create(start);
        const auto interval = VrexMateDimensionInterval3D::create(
            variable, {-1.0, 1.0}, 0, VrexMateDimensionInterval3DType::AngleDimension3D);
        expectSolved(solveOne({}, {interval}, {variable}));
        EXPECT_NEAR(variable->getValue(), std::clamp(start, -1.0, 1.0), TOLERANCE);
    }
}

TEST(VrexMateIntervalResiduals, ParentWithoutTheDimensionIsRefused) {
    Gearing gears;
    const auto variable = gears.add(VrexGeometryVariable::create(0.0));
    const auto interval = gears.bind(VrexMateDimensionInterval3D::create(
        variable, {1.5, 2.0}, 1, VrexMateDimensionInterval3DType::LinearDimension3D));
    interval->setParent(gears.slider);
    EXPECT_EQ(reasonOf(solve(gears)), "The parent of this interval has no such dimension.");
}

/// Three points in a row, each held to the next by a distance, and the element that the distances share.
struct Row : Mechanism {
    Row(double firstDistance, double secondDistance)
        : points{add(VrexPoint3D::create(0, 0, 0)), add(VrexPoint3D::create(1, 0.1, 0)),
                 add(VrexPoint3D::create(4, 0, 0.2))},
          element(add(VrexEqualDimensionElement3D::create(9.0))),
          distances{bind(distance(0, firstDistance)), bind(distance(1, secondDistance))} {}

    std::shared_ptr<VrexDistance3D> distance(std::size_t i, double value) const {
        return VrexDistance3D::create(points[i], points[i + 1], value, VrexGeometryComponentType::UNKNOWN,
                                      VrexGeometryComponentType::UNKNOWN);
    }
    std::shared_ptr<VrexEqualDimension3D> equal() {
        return bind(VrexEqualDimension3D::create({distances[0], distances[1]}, element));
    }
    double length(std::size_t i) const {
        return (points[i + 1]->getPosition() - points[i]->getPosition()).magnitude();
    }

    std::vector<std::shared_ptr<VrexPoint3D>> points;
    std::shared_ptr<VrexEqualDimensionElement3D> element;
    std::vector<std::shared_ptr<VrexDistance3D>> distances;
};

TEST(VrexEqualDimensionResiduals, DimensionsShareTheValueOfTheElement) {
    Row row(1.0, 3.0);
    row.equal();
    SolverProbe(row.geometries, row.constraints).expectDerivativesMatch();
    const auto report = solve(row);
    expectSolved(report);
    EXPECT_NEAR(row.length(0), row.length(1), TOLERANCE);
    EXPECT_NEAR(row.element->getValue(), row.length(0), TOLERANCE);
    EXPECT_NEAR(row.distances[0]->value(), row.length(0), TOLERANCE);
    EXPECT_NEAR(row.distances[1]->value(), row.length(1), TOLERANCE);
    EXPECT_EQ(report.freedom, 9U - 1U);
}

TEST(VrexEqualDimensionResiduals, ValueOfTheElementSetsThemAll) {
    Row row(1.0, 3.0);
    row.equal();
    row.bind(VrexEqualDimensionValue3D::create(row.element, 2.5));
    expectSolved(solve(row));
    EXPECT_NEAR(row.length(0), 2.5, TOLERANCE);
    EXPECT_NEAR(row.length(1), 2.5, TOLERANCE);
}

TEST(VrexEqualDimensionResiduals, RigidDimensionSetsTheOthers) {
    Row row(1.25, 3.0);
    row.distances[0]->setRigid(true);
    row.equal();
    expectSolved(solve(row));
    EXPECT_NEAR(row.length(1), 1.25, TOLERANCE);
    EXPECT_NEAR(row.element->getValue(), 1.25, TOLERANCE);
}

TEST(VrexEqualDimensionResiduals, LimitsOfADimensionBoundThemAll) {
    Row row(1.0, 3.0);
    row.distances[0]->setLimits({std::nullopt, 1.0});
    row.equal();
    row.bind(VrexEqualDimensionValue3D::create(row.element, 0.75));
    expectSolved(solve(row));
    EXPECT_NEAR(row.length(1), 0.75, TOLERANCE);
}

TEST(VrexEqualDimensionResiduals, DimensionOutsideTheComponentIsRefused) {
    Row row(1.0, 3.0);
    row.equal();
    row.constraints.erase(row.constraints.begin());
    EXPECT_EQ(reasonOf(solve(row)), "The element or a dimension of this equality is missing.");
}

} // namespace
