#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexIncidence3D.h"
#include "solver/JacobianChecks.h"
#include "solver/Mechanism.h"
#include "solver/NearestPoints.h"
#include "solver/RandomEntities.h"
#include "solver/VrexSolver3D.h"

namespace {

using enum VrexGeometry3DType;

/// What lies in what, and the degrees of freedom that this takes.
struct Row {
    VrexGeometry3DType inner;
    VrexGeometry3DType outer;
    int degrees;
};

constexpr Row ROWS[] = {
    {POINT, POINT, 3},     {POINT, LINE, 2},        {POINT, CIRCLE, 2},   {POINT, ELLIPSE, 2},
    {POINT, PLANE, 1},     {POINT, SPHERE, 1},      {POINT, CYLINDER, 1}, {POINT, CONE, 1},
    {POINT, TORUS, 1},     {LINE, LINE, 4},         {LINE, PLANE, 2},     {LINE, CYLINDER, 3},
    {LINE, CONE, 3},       {CIRCLE, CIRCLE, 6},     {CIRCLE, PLANE, 3},   {CIRCLE, SPHERE, 3},
    {CIRCLE, CYLINDER, 5}, {CIRCLE, CONE, 5},       {CIRCLE, TORUS, 5},   {PLANE, PLANE, 3},
    {ELLIPSE, PLANE, 3},   {CYLINDER, CYLINDER, 5}, {CONE, CONE, 6},      {TORUS, TORUS, 7},
    {SPHERE, SPHERE, 4},   {ELLIPSE, ELLIPSE, 8},
};

std::shared_ptr<VrexIncidence3D> incidenceOf(const std::shared_ptr<VrexGeometry3D>& first,
                                             const std::shared_ptr<VrexGeometry3D>& second) {
    return VrexIncidence3D::create(first, second, VrexIncidence3DType::Default,
                                   VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN);
}

template <class Check>
void forEachRow(const Check& check) {
    RandomShapes random;
    for (const Row& row : ROWS) {
        for (int i = 0; i < 4; ++i) {
            SCOPED_TRACE(std::string(getEnumeratorText(row.inner)) + " " + getEnumeratorText(row.outer));
            const auto inner = nsRandomEntities::make(row.inner, random);
            const auto outer = nsRandomEntities::make(row.outer, random);
            check(row, inner, outer, i % 2 == 0 ? incidenceOf(inner, outer) : incidenceOf(outer, inner));
        }
    }
}

bool isBehindApex(const nsNearest::Vector& point, const VrexGeometry3D& outer) {
    const auto* const cone = dynamic_cast<const VrexCone3D*>(&outer);
    return cone != nullptr && cone->getDirection().dotProduct(point - cone->getOrigin()) < 0.0;
}

/// Points spread over the inner one all lie on the outer one.
void expectInside(VrexGeometry3D& inner, VrexGeometry3D& outer) {
    const nsNearest::Points points = nsNearest::pointsOf(inner);
    for (int i = 0; i < 5; ++i) {
        const double parameters[] = {0.3 + 1.1 * i, 0.2 + 0.7 * i};
        if (isBehindApex(points.at(parameters), outer)) {
            continue; // the cone ends there, a line does not
        }
        const nsNearest::Points one{[p = points.at(parameters)](const double*) { return p; }, {}};
        EXPECT_LT(nsNearest::nearest(one, nsNearest::pointsOf(outer)).distance, 1e-7);
    }
}

TEST(VrexIncidenceResiduals, DerivativesMatchCentralDifferences) {
    forEachRow([](const Row&, const auto& inner, const auto& outer, const auto& incidence) {
        expectJacobianMatches(incidence, {inner, outer}, {}, 1e-6);
    });
}

TEST(VrexIncidenceResiduals, LaysTheOneIntoTheOther) {
    forEachRow([](const Row& row, const auto& inner, const auto& outer, const auto& incidence) {
        Mechanism mechanism;
        mechanism.add(inner);
        mechanism.add(outer);
        mechanism.bind(incidence);
        const auto report = VrexSolver3D().solve({mechanism.component()});
        ASSERT_TRUE(report.components[0].remarks.empty());
        ASSERT_TRUE(report.isConverged());
        expectInside(*inner, *outer);
        const int unknowns = inner->dof() + outer->dof();
        EXPECT_TRUE(report.components[0].overConstrained.empty());
        EXPECT_EQ(unknowns - static_cast<int>(report.components[0].freedom), row.degrees);
    });
}

} // namespace
