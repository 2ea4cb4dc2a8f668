#include <cmath>
#include <cstdint>
#include <numbers>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "solver/EntityReader.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using Vector = VrexVector3DT<double>;
using enum VrexGeometry3DType;
constexpr double TOLERANCE = 1e-9;

using Entity = std::shared_ptr<VrexGeometry3D>;
using Entities = std::vector<Entity>;

constexpr VrexGeometry3DType KINDS[] = {POINT, LINE, PLANE, CYLINDER, SPHERE, CIRCLE, CONE, TORUS, ELLIPSE};

void expectSolved(const VrexSolverComponentReport& report) {
    EXPECT_TRUE(report.isConverged) << reasonOf(report);
    EXPECT_EQ(reasonOf(report), "");
    EXPECT_TRUE(report.overConstrained.empty());
}

bool hasDirection(const Entity& entity) { return entity->type() != POINT && entity->type() != SPHERE; }

/// What keeps `place` from being a place of the entity: along a line and inside a plane there is none.
double missing(const Entity& entity, const Vector& place) {
    const Vector shift = place - centerOf(entity);
    const Vector direction = directionOf(entity);
    switch (entity->type()) {
    case PLANE:
        return std::abs(shift.dotProduct(direction));
    case LINE:
    case CYLINDER:
        return shift.crossProduct(direction).magnitude();
    default:
        return shift.magnitude();
    }
}

/// Sine of the angle between the major axes, if there are any.
double missingTurn(const Entity& image, const Vector& majorAxis) {
    const auto ellipse = std::dynamic_pointer_cast<VrexEllipse3D>(image);
    return ellipse != nullptr ? ellipse->getDirection().crossProduct(majorAxis).magnitude() : 0.0;
}

Vector majorAxisOf(const Entity& entity) {
    const auto ellipse = std::dynamic_pointer_cast<VrexEllipse3D>(entity);
    return ellipse != nullptr ? ellipse->getDirection() : Vector();
}

void expectSameSizes(const Entity& first, const Entity& second) {
    const auto sizes = EntityReader(first).sizes;
    const auto otherSizes = EntityReader(second).sizes;
    ASSERT_EQ(sizes.size(), otherSizes.size());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        EXPECT_NEAR(sizes[i], otherSizes[i], TOLERANCE);
    }
}

struct Mirror {
    Vector origin;
    Vector normal;

    Vector direction(const Vector& v) const { return v - normal * (2.0 * normal.dotProduct(v)); }
    Vector point(const Vector& p) const { return origin + direction(p - origin); }
};

TEST(VrexSymmetryResiduals, SecondEntityMirrorsTheFirst) {
    RandomShapes random;
    for (const auto type : KINDS) {
        for (int i = 0; i < 5; ++i) {
            SCOPED_TRACE(namesOf({type}));
            const auto plane = VrexPlane3D::create(random.point(), random.direction());
            const Entities all{makeRandom(type, random), makeRandom(type, random), plane};
            const auto symmetry = VrexSymmetry3D::create(all[0], all[1], plane);
            // Nearly opposite directions are steep.
            expectJacobianMatches(symmetry, all, {}, 1e-5);
            const auto report = solveOne(all, {symmetry});
            expectSolved(report);
            const Mirror mirror{plane->getOrigin(), plane->getNormal()};
            EXPECT_NEAR(missing(all[1], mirror.point(centerOf(all[0]))), 0.0, TOLERANCE);
            const Vector image = mirror.direction(directionOf(all[0]));
            EXPECT_NEAR(image.crossProduct(directionOf(all[1])).magnitude(), 0.0, TOLERANCE);
            EXPECT_NEAR(missingTurn(all[1], mirror.direction(majorAxisOf(all[0]))), 0.0, TOLERANCE);
            expectSameSizes(all[0], all[1]);
            EXPECT_EQ(report.freedom, static_cast<std::size_t>(all[0]->dof() + 3)) << symmetry->doc();
        }
    }
}

TEST(VrexSymmetryResiduals, ConesOpenTheMirroredWay) {
    const auto plane = VrexPlane3D::create({0, 0, 0}, {1, 0, 0});
    for (const double sense : {1.0, -1.0}) {
        const Entities all{VrexCone3D::create({1, 0, 0}, {1, 0.2, 0}, 0.4),
                           VrexCone3D::create({-1, 0, 0}, Vector(-1, 0.3, 0) * sense, 0.4), plane};
        expectSolved(solveOne(all, {VrexSymmetry3D::create(all[0], all[1], plane)}));
        const Mirror mirror{plane->getOrigin(), plane->getNormal()};
        EXPECT_NEAR(mirror.direction(directionOf(all[0])).dotProduct(directionOf(all[1])), 1.0, TOLERANCE);
    }
}

TEST(VrexSymmetryResiduals, AlignmentChoosesTheWayOfLines) {
    using enum VrexConstraintAlignment;
    for (const auto alignment : {Positive, Negative}) {
        const auto plane = VrexPlane3D::create({0, 0, 0}, {1, 0, 0});
        const Entities all{VrexLine3D::create({1, 0, 0}, {0.2, 1, 0}),
                           VrexLine3D::create({-1, 0, 0}, {-0.1, 1, 0}), plane};
        const auto symmetry = VrexSymmetry3D::create(all[0], all[1], plane);
        symmetry->alignment() = alignment;
        expectSolved(solveOne(all, {symmetry}));
        const Mirror mirror{plane->getOrigin(), plane->getNormal()};
        EXPECT_NEAR(mirror.direction(directionOf(all[0])).dotProduct(directionOf(all[1])),
                    alignment == Positive ? 1.0 : -1.0, TOLERANCE);
    }
}

TEST(VrexSymmetryResiduals, DifferentKindsAreRefused) {
    RandomShapes random;
    const auto plane = VrexPlane3D::create({0, 0, 0}, {1, 0, 0});
    const Entities all{random.line(), random.circle(), plane};
    EXPECT_EQ(reasonOf(solveOne(all, {VrexSymmetry3D::create(all[0], all[1], plane)})),
              "A mirror image is supported between two entities of the same make only.");
}

/// A row of steps along one line and a turn about another.
struct Array {
    explicit Array(RandomShapes& random)
        : along(random.line()),
          about(random.line()),
          linear(VrexPattern3D::create(VrexPattern3DType::Linear3D, along, random.number(0.3, 1.0))),
          circular(VrexPattern3D::create(VrexPattern3DType::Circular3D, about, random.number(0.3, 1.0))),
          both(VrexArrayPattern3D::create({linear, circular})) {}

    Entities entities() const { return {along, about, linear, circular, both}; }

    /// First the steps, then the turn, by the rotation's own formula.
    Vector direction(const Vector& v, int turns) const {
        return VrexQuaternionT<double>::rotate(
            v,
            VrexQuaternionT<double>::makeFromAngleAndAxis(turns * circular->getValue(), about->getDirection(),
                                                          1e-14),
            false);
    }
    Vector point(const Vector& p, int steps, int turns) const {
        const Vector moved = p + along->getDirection() * (steps * linear->getValue());
        return about->getOrigin() + direction(moved - about->getOrigin(), turns);
    }

    std::shared_ptr<VrexLine3D> along;
    std::shared_ptr<VrexLine3D> about;
    std::shared_ptr<VrexPattern3D> linear;
    std::shared_ptr<VrexPattern3D> circular;
    std::shared_ptr<VrexArrayPattern3D> both;
};

TEST(VrexInstanceResiduals, SecondEntityIsTheFirstMovedByTheSteps) {
    RandomShapes random;
    constexpr int steps = 2;
    constexpr int turns = -3;
    for (const auto type : KINDS) {
        for (int i = 0; i < 5; ++i) {
            SCOPED_TRACE(namesOf({type}));
            const Array array(random);
            Entities all{makeRandom(type, random), makeRandom(type, random)};
            const auto instance =
                VrexInstance3D::create(all[0], all[1], array.both, std::vector<std::int32_t>{steps, turns});
            for (const Entity& entity : array.entities()) {
                all.push_back(entity);
            }
            SolverProbe(SolverProbe::Geometries(all.begin(), all.end()), {instance})
                .expectDerivativesMatch(1e-5);
            const auto report = solveOne(all, {instance});
            expectSolved(report);
            EXPECT_NEAR(missing(all[1], array.point(centerOf(all[0]), steps, turns)), 0.0, TOLERANCE);
            if (hasDirection(all[0])) {
                EXPECT_NEAR(array.direction(directionOf(all[0]), turns).dotProduct(directionOf(all[1])), 1.0,
                            TOLERANCE);
            }
            EXPECT_NEAR(missingTurn(all[1], array.direction(majorAxisOf(all[0]), turns)), 0.0, TOLERANCE);
            expectSameSizes(all[0], all[1]);
            EXPECT_EQ(report.freedom, static_cast<std::size_t>(all[0]->dof() + 4 + 4 + 1 + 1));
        }
    }
}

TEST(VrexInstanceResiduals, AgreesWithTheInstanceThatSatisfiesItself) {
    RandomShapes random;
    const Array array(random);
    // The circular pattern first, so that both patterns share a coefficient.
    const auto patterns = VrexArrayPattern3D::create({array.circular, array.linear});
    for (const auto type : KINDS) {
        SCOPED_TRACE(namesOf({type}));
        const Entity first = makeRandom(type, random);
        const Entity second = makeRandom(type, random);
        const auto instance =
            VrexInstance3D::create(first, second, patterns, std::vector<std::int32_t>{2, 5});
        instance->satisfy();
        SolverProbe probe({first, second, patterns, array.linear, array.circular, array.along, array.about},
                          {instance});
        EXPECT_EQ(probe.refusals(), "");
        EXPECT_LT(probe.values().cwiseAbs().maxCoeff(), 1e-12);
    }
}

TEST(VrexInstanceResiduals, StepFollowsFromFixedEnds) {
    const auto along = VrexLine3D::create({0, 0, 0}, {1, 0, 0});
    const auto pattern = VrexPattern3D::create(VrexPattern3DType::Linear3D, along, 1.0);
    const auto array = VrexArrayPattern3D::create({pattern});
    const Entities all{VrexPoint3D::create(0, 0, 0), VrexPoint3D::create(6, 0, 0), along, pattern, array};
    const auto complete = VrexFixation3DType::Complete3D;
    expectSolved(
        solveOne(all, {VrexInstance3D::create(all[0], all[1], array, {3}),
                       VrexFixation3D::create(all[0], complete), VrexFixation3D::create(all[1], complete),
                       VrexFixation3D::create(all[2], VrexFixation3DType::Location3D)}));
    EXPECT_NEAR(pattern->getValue(), 2.0, TOLERANCE);
}

} // namespace
