#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "solver/FreeForms.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using Vector = VrexVector3DT<double>;
using nsFreeForms::Built;
using Entity = std::shared_ptr<VrexGeometry3D>;
constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
constexpr double TOLERANCE = 1e-8;

Built ellipse() {
    return {{}, VrexEllipse3D::create({0.1, 0.2, 0.3}, {1.0, 2.0, 0.5}, {0.3, -0.1, 1.0}, 2.0, 1.0)};
}

std::vector<std::pair<const char*, nsFreeForms::Maker>> makers() {
    std::vector<std::pair<const char*, nsFreeForms::Maker>> result(std::begin(nsFreeForms::MAKERS),
                                                                   std::end(nsFreeForms::MAKERS));
    result.emplace_back("ellipse", ellipse);
    return result;
}

/// The point of the entity by the library's own evaluation.
Vector pointAt(const Entity& entity, const VrexVector2DT<double>& parameter) {
    const double parameters[] = {parameter.x(), parameter.y()};
    if (const auto curve = std::dynamic_pointer_cast<VrexEllipse3D>(entity)) {
        return curve->evaluate(parameters[0], 0)[0];
    }
    return nsFreeForms::pointsOf(*entity).at(parameters);
}

std::shared_ptr<VrexIncidence3D> incidenceOf(const Entity& first, const Entity& second) {
    return VrexIncidence3D::create(first, second, VrexIncidence3DType::Default, WHOLE, WHOLE);
}

/// The entity stands still, the point moves.
VrexSolverComponentReport solveOn(const Built& built, const Entity& point,
                                  const std::shared_ptr<VrexBaseConstraint>& constraint) {
    auto all = nsFreeForms::allOf(built);
    all.push_back(point);
    return solveOne(all, {constraint, VrexFixation3D::create(built.entity, VrexFixation3DType::Complete3D)});
}

TEST(VrexContactHelp, HeldParameterIsWhereTheContactIs) {
    const VrexVector2DT<double> parameter(0.4, 0.7);
    for (const auto& [name, make] : makers()) {
        for (const bool isSecond : {false, true}) {
            SCOPED_TRACE(name);
            const Built built = make();
            const auto point = VrexPoint3D::create(1.0, 1.1, 1.2);
            const auto incidence =
                isSecond ? incidenceOf(point, built.entity) : incidenceOf(built.entity, point);
            (isSecond ? incidence->helpParam2() : incidence->helpParam1()) = parameter;
            isSecond ? incidence->fixHelpParameter2(true) : incidence->fixHelpParameter1(true);
            const auto report = solveOn(built, point, incidence);
            ASSERT_EQ(reasonOf(report), "");
            ASSERT_TRUE(report.isConverged);
            EXPECT_EQ(report.freedom, 0U);
            EXPECT_LT((point->getPosition() - pointAt(built.entity, parameter)).magnitude(), TOLERANCE);
            EXPECT_EQ((isSecond ? incidence->helpParam2() : incidence->helpParam1())->x(), 0.4);
        }
    }
}

TEST(VrexContactHelp, SolvedParameterIsWrittenBack) {
    for (const auto& [name, make] : makers()) {
        SCOPED_TRACE(name);
        const Built built = make();
        const auto point = VrexPoint3D::create(1.0, 1.1, 1.2);
        const auto incidence = incidenceOf(point, built.entity);
        incidence->setHelpParam2({0.4, 0.7});
        ASSERT_TRUE(solveOn(built, point, incidence).isConverged);
        const auto solved = incidence->helpParam2().value();
        EXPECT_LT((point->getPosition() - pointAt(built.entity, solved)).magnitude(), TOLERANCE);
        // Solved again nothing changes.
        EXPECT_EQ(solveOn(built, point, incidence).iterations, 0);
        EXPECT_EQ(incidence->helpParam2()->x(), solved.x());
        EXPECT_EQ(incidence->helpParam2()->y(), solved.y());
    }
}

TEST(VrexContactHelp, ParameterThatHasNoOriginCannotBeHeld) {
    const auto line = VrexLine3D::create({0, 0, 0}, {0, 0, 1});
    const auto circle = VrexCircle3D::create({3, 0, 0}, {0, 1, 0}, 1.0);
    const auto surface = VrexSpinSurface3D::create(circle, line);
    const auto point = VrexPoint3D::create(1.0, 1.1, 1.2);
    const auto incidence = incidenceOf(point, surface);
    incidence->setHelpParam2({0.4, 0.7});
    incidence->fixHelpParameter2(true);
    EXPECT_EQ(reasonOf(solveOne({line, circle, surface, point}, {incidence})),
              "A help parameter that is held is not supported.");
}

/// Two free forms apart from each other, the second one shifted.
struct Couple {
    Couple(nsFreeForms::Maker makeFirst, nsFreeForms::Maker makeSecond, const Vector& shift, double angle)
        : first(makeFirst()), second(makeSecond()) {
        set = VrexRigidSet3D::create({second.entity});
        all = nsFreeForms::allOf(first);
        for (const auto& entity : nsFreeForms::allOf(second)) {
            all.push_back(entity);
        }
        all.push_back(set);
        const auto turn = VrexQuaternionT<double>::makeFromAngleAndAxis(angle, {1.0, 0.0, 0.1}, 1e-6);
        VrexGeometryTransformation3DVisitor visitor(VrexTransformation3DT<double>(shift, turn), false);
        set->accept(visitor);
    }
    Built first;
    Built second;
    std::shared_ptr<VrexRigidSet3D> set;
    std::vector<Entity> all;
};

std::vector<std::shared_ptr<VrexConstraint3D>> constraintsOf(const Couple& couple) {
    return {VrexDistance3D::create(couple.first.entity, couple.second.entity, 0.3, WHOLE, WHOLE),
            VrexTangency3D::create(couple.first.entity, couple.second.entity, WHOLE, WHOLE)};
}

/// The second one turned and shifted so that they face each other inside their ranges.
const struct {
    nsFreeForms::Maker first;
    nsFreeForms::Maker second;
    Vector shift;
    double angle;
} COUPLES[] = {
    {nsFreeForms::spline, nsFreeForms::nurbs, {4.0, 2.0, 6.0}, 0.5},
    {nsFreeForms::helix, nsFreeForms::sweep, {4.0, 2.0, 6.0}, 0.5},
    {nsFreeForms::nurbs, nsFreeForms::nurbs, {0.1, 3.7, 3.0}, 3.0},
    {nsFreeForms::spin, nsFreeForms::sweep, {4.0, 2.0, 6.0}, 0.5},
};

TEST(VrexContactHelp, DerivativesBetweenTwoFreeFormsMatchCentralDifferences) {
    for (const auto& [makeFirst, makeSecond, shift, angle] : COUPLES) {
        for (const std::size_t which : {0U, 1U}) {
            const Couple couple(makeFirst, makeSecond, shift, angle);
            SCOPED_TRACE(std::string(getEnumeratorText(couple.first.entity->type())) + " " +
                         getEnumeratorText(couple.second.entity->type()) + " " + std::to_string(which));
            SolverProbe({couple.all.begin(), couple.all.end()}, {constraintsOf(couple)[which]})
                .expectDerivativesMatch(1e-4);
        }
    }
}

TEST(VrexContactHelp, TwoFreeFormsComeAsNearAsTheConstraintSays) {
    for (const auto& [makeFirst, makeSecond, shift, angle] : COUPLES) {
        for (const std::size_t which : {0U, 1U}) {
            const Couple couple(makeFirst, makeSecond, shift, angle);
            SCOPED_TRACE(std::string(getEnumeratorText(couple.first.entity->type())) + " " +
                         getEnumeratorText(couple.second.entity->type()) + " " + std::to_string(which));
            const auto report = solveOne(
                couple.all, {constraintsOf(couple)[which],
                             VrexFixation3D::create(couple.first.entity, VrexFixation3DType::Complete3D)});
            ASSERT_EQ(reasonOf(report), "");
            EXPECT_TRUE(report.isConverged);
            if (which == 0 && report.isConverged) {
                const auto nearest = nsNearest::nearest(nsFreeForms::pointsOf(*couple.first.entity),
                                                        nsFreeForms::pointsOf(*couple.second.entity));
                EXPECT_NEAR(nearest.distance, 0.3, 1e-4);
            }
        }
    }
}

} // namespace
