#include <cmath>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "solver/EntityReader.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using Vector = VrexVector3DT<double>;
using enum VrexGeometry3DType;
constexpr double TOLERANCE = 1e-9;

using Entities = std::vector<std::shared_ptr<VrexGeometry3D>>;

bool isPointLike(VrexGeometry3DType type) { return type == POINT || type == SPHERE; }

/// How far a point is from the axis of the entity.
double distanceToAxis(const std::shared_ptr<VrexGeometry3D>& entity, const Vector& point) {
    return directionOf(entity).crossProduct(point - centerOf(entity)).magnitude();
}

void expectSolved(const VrexSolverComponentReport& report) {
    EXPECT_TRUE(report.isConverged) << reasonOf(report);
    EXPECT_EQ(reasonOf(report), "");
    EXPECT_TRUE(report.overConstrained.empty());
}

constexpr VrexGeometry3DType CENTERED[] = {POINT,   SPHERE, LINE,  CYLINDER,    CIRCLE,
                                           ELLIPSE, CONE,   TORUS, SPIN_SURFACE};

TEST(VrexConcentricityResiduals, CentresLieOnEachOtherOrOnTheAxis) {
    RandomShapes random;
    for (const auto first : CENTERED) {
        for (const auto second : CENTERED) {
            SCOPED_TRACE(namesOf({first, second}));
            const Entities pair{makeRandom(first, random), makeRandom(second, random)};
            const auto concentricity = VrexConcentricity3D::create(pair[0], pair[1]);
            expectJacobianMatches(concentricity, withParts(pair), {}, 1e-6);
            expectSolved(solveOne(withParts(pair), {concentricity}));
            const Vector shift = centerOf(pair[1]) - centerOf(pair[0]);
            if (isPointLike(first) && isPointLike(second)) {
                EXPECT_NEAR(shift.magnitude(), 0.0, TOLERANCE);
            } else if (isPointLike(first)) {
                EXPECT_NEAR(distanceToAxis(pair[1], centerOf(pair[0])), 0.0, TOLERANCE);
            } else {
                EXPECT_NEAR(distanceToAxis(pair[0], centerOf(pair[1])), 0.0, TOLERANCE);
            }
            if (!isPointLike(first) && !isPointLike(second)) {
                EXPECT_NEAR(directionOf(pair[0]).crossProduct(directionOf(pair[1])).magnitude(), 0.0,
                            TOLERANCE);
            }
        }
    }
}

TEST(VrexConcentricityResiduals, TakeTheDegreesThatTheKindSays) {
    RandomShapes random;
    const struct {
        VrexGeometry3DType first;
        VrexGeometry3DType second;
        std::size_t freedom;
    } rows[] = {{POINT, SPHERE, 4}, {POINT, CIRCLE, 7}, {CIRCLE, SPHERE, 8}, {CYLINDER, LINE, 5}};
    for (const auto& row : rows) {
        SCOPED_TRACE(namesOf({row.first, row.second}));
        const Entities pair{makeRandom(row.first, random), makeRandom(row.second, random)};
        EXPECT_EQ(solveOne(pair, {VrexConcentricity3D::create(pair[0], pair[1])}).freedom, row.freedom);
    }
}

TEST(VrexConcentricityResiduals, AlignmentChoosesTheWayOfTheAxes) {
    using enum VrexConstraintAlignment;
    for (const auto alignment : {Positive, Negative}) {
        for (const double sense : {1.0, -1.0}) {
            const Entities pair{VrexCylinder3D::create({0, 0, 0}, {0, 0, 1}, 1.0),
                                VrexCircle3D::create({1, 2, 3}, {0, 0, sense}, 1.0)};
            const auto concentricity = VrexConcentricity3D::create(pair[0], pair[1]);
            concentricity->alignment() = alignment;
            expectSolved(solveOne(pair, {concentricity}));
            EXPECT_NEAR(directionOf(pair[0]).dotProduct(directionOf(pair[1])),
                        alignment == Positive ? 1.0 : -1.0, TOLERANCE);
            EXPECT_NEAR(distanceToAxis(pair[0], centerOf(pair[1])), 0.0, TOLERANCE);
        }
    }
}

TEST(VrexConcentricityResiduals, MembersTakeTheirSetsAlong) {
    RandomShapes random;
    for (const auto type : {LINE, CYLINDER, CIRCLE, ELLIPSE, CONE, TORUS}) {
        SCOPED_TRACE(namesOf({type}));
        const Entities members{makeRandom(type, random), makeRandom(CYLINDER, random)};
        const auto first = VrexRigidSet3D::create({members[0]});
        const auto second = VrexRigidSet3D::create({members[1]});
        const auto report = solveOne({first, second, members[0], members[1]},
                                     {VrexConcentricity3D::create(members[0], members[1])});
        expectSolved(report);
        EXPECT_NEAR(distanceToAxis(members[0], centerOf(members[1])), 0.0, TOLERANCE);
        EXPECT_NEAR(directionOf(members[0]).crossProduct(directionOf(members[1])).magnitude(), 0.0,
                    TOLERANCE);
        EXPECT_EQ(report.freedom, 8U);
    }
}

TEST(VrexConcentricityResiduals, PlanesHaveNeitherCentreNorAxis) {
    RandomShapes random;
    const Entities pair{makeRandom(PLANE, random), random.circle()};
    EXPECT_EQ(reasonOf(solveOne(pair, {VrexConcentricity3D::create(pair[0], pair[1])})),
              "What this constraint centres has neither centre nor axis.");
}

TEST(VrexIncidenceToCenterResiduals, CentresCoincide) {
    RandomShapes random;
    for (const auto first : {POINT, SPHERE, CIRCLE, CONE, ELLIPSE, TORUS}) {
        for (const auto second : {POINT, SPHERE, CIRCLE, CONE, ELLIPSE, TORUS}) {
            SCOPED_TRACE(namesOf({first, second}));
            const Entities pair{makeRandom(first, random), makeRandom(second, random)};
            const auto incidence = VrexIncidenceToCenter3D::create(pair[0], pair[1]);
            expectJacobianMatches(incidence, pair);
            const auto report = solveOne(pair, {incidence});
            expectSolved(report);
            EXPECT_NEAR((centerOf(pair[1]) - centerOf(pair[0])).magnitude(), 0.0, TOLERANCE);
            EXPECT_EQ(report.freedom, static_cast<std::size_t>(pair[0]->dof() + pair[1]->dof() - 3));
        }
    }
}

TEST(VrexIncidenceToCenterResiduals, LinesHaveNoCentre) {
    RandomShapes random;
    const Entities pair{random.line(), random.circle()};
    EXPECT_EQ(reasonOf(solveOne(pair, {VrexIncidenceToCenter3D::create(pair[0], pair[1])})),
              "What this constraint joins has no centre.");
}

std::shared_ptr<VrexPoint3D> randomPoint(RandomShapes& random) {
    return std::static_pointer_cast<VrexPoint3D>(makeRandom(POINT, random));
}

TEST(VrexMidPointResiduals, PointHalvesTheWayBetweenPoints) {
    RandomShapes random;
    const auto middle = randomPoint(random);
    const Entities all{makeRandom(POINT, random), makeRandom(POINT, random), middle};
    const auto midPoint = VrexMidPoint3D::create(all[0], all[1], middle);
    expectJacobianMatches(midPoint, all);
    const auto report = solveOne(all, {midPoint});
    expectSolved(report);
    EXPECT_NEAR((centerOf(all[2]) * 2.0 - centerOf(all[0]) - centerOf(all[1])).magnitude(), 0.0, TOLERANCE);
    EXPECT_EQ(report.freedom, 6U);
}

double heightAbove(const std::shared_ptr<VrexGeometry3D>& plane, const std::shared_ptr<VrexPoint3D>& point) {
    return directionOf(plane).dotProduct(point->getPosition() - centerOf(plane));
}

TEST(VrexMidPointResiduals, PointIsAsFarFromEitherPlane) {
    RandomShapes random;
    for (int i = 0; i < 20; ++i) {
        const auto point = randomPoint(random);
        const Entities all{makeRandom(PLANE, random), makeRandom(PLANE, random), point};
        const auto midPoint = VrexMidPoint3D::create(all[0], all[1], point);
        expectJacobianMatches(midPoint, all);
        const auto report = solveOne(all, {midPoint});
        expectSolved(report);
        EXPECT_NEAR(std::abs(heightAbove(all[0], point)), std::abs(heightAbove(all[1], point)), TOLERANCE);
        EXPECT_EQ(report.freedom, 8U);
    }
}

TEST(VrexMidPointResiduals, PointBetweenParallelPlanesWhateverTheirNormals) {
    for (const double sense : {1.0, -1.0}) {
        const auto point = VrexPoint3D::create(0.3, 0.2, 9.0);
        const Entities all{VrexPlane3D::create({0, 0, 1}, {0, 0, 1}),
                           VrexPlane3D::create({5, 0, 4}, {0, 0, sense}), point};
        expectSolved(solveOne(all, {VrexMidPoint3D::create(all[0], all[1], point),
                                    VrexFixation3D::create(all[0], VrexFixation3DType::Complete3D),
                                    VrexFixation3D::create(all[1], VrexFixation3DType::Complete3D)}));
        EXPECT_NEAR(point->getPosition().z(), 2.5, TOLERANCE);
    }
}

TEST(VrexMidPointResiduals, AlignmentChoosesTheBisector) {
    using enum VrexConstraintAlignment;
    for (const auto alignment : {Positive, Negative}) {
        const auto point = VrexPoint3D::create(3.0, 1.0, 0.0);
        const Entities all{VrexPlane3D::create({0, 0, 0}, {1, 0, 0}),
                           VrexPlane3D::create({0, 0, 0}, {0, 1, 0}), point};
        const auto midPoint = VrexMidPoint3D::create(all[0], all[1], point);
        midPoint->alignment() = alignment;
        expectSolved(solveOne(all, {midPoint, VrexFixation3D::create(all[0], VrexFixation3DType::Complete3D),
                                    VrexFixation3D::create(all[1], VrexFixation3DType::Complete3D)}));
        const Vector place = point->getPosition();
        EXPECT_NEAR(place.x(), alignment == Positive ? -place.y() : place.y(), TOLERANCE);
    }
}

TEST(VrexMidPointResiduals, OtherKindsAreRefused) {
    RandomShapes random;
    const auto point = randomPoint(random);
    const Entities all{random.line(), random.line(), point};
    EXPECT_EQ(reasonOf(solveOne(all, {VrexMidPoint3D::create(all[0], all[1], point)})),
              "A middle is that of two points or of two planes.");
}

} // namespace
