#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "solver/FreeForms.h"
#include "solver/JacobianChecks.h"
#include "solver/Mechanism.h"
#include "solver/NearestPoints.h"
#include "solver/VrexSolver3D.h"

namespace {

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

using nsFreeForms::Built;
using nsFreeForms::MAKERS;
using nsFreeForms::pointsOf;

std::vector<std::shared_ptr<VrexGeometry3D>> partners() {
    return {VrexPoint3D::create(3.0, 2.2, 1.4), VrexLine3D::create({3.5, 2.0, 1.5}, {0.2, -0.5, 0.8}),
            VrexSphere3D::create({3.4, 2.0, 1.5}, 0.5),
            VrexCylinder3D::create({3.5, 2.5, 1.5}, {0.4, -0.5, 0.8}, 0.4)};
}

std::vector<std::shared_ptr<VrexConstraint3D>> constraintsOf(const std::shared_ptr<VrexGeometry3D>& entity,
                                                             const std::shared_ptr<VrexGeometry3D>& partner) {
    std::vector<std::shared_ptr<VrexConstraint3D>> result{
        VrexDistance3D::create(entity, partner, 0.3, WHOLE, WHOLE)};
    if (partner->type() == VrexGeometry3DType::POINT) {
        result.push_back(
            VrexIncidence3D::create(partner, entity, VrexIncidence3DType::Default, WHOLE, WHOLE));
    } else {
        result.push_back(VrexTangency3D::create(partner, entity, WHOLE, WHOLE));
    }
    return result;
}

TEST(VrexParametricPath, DerivativesMatchCentralDifferences) {
    for (const auto& [name, make] : MAKERS) {
        for (const auto& partner : partners()) {
            SCOPED_TRACE(std::string(name) + " " + getEnumeratorText(partner->type()));
            const Built built = make();
            if (partner->type() == VrexGeometry3DType::CYLINDER) {
                continue; // as the line, but for its radius
            }
            for (const auto& constraint : constraintsOf(built.entity, partner)) {
                SolverProbe::Geometries free(built.parts.begin(), built.parts.end());
                free.insert(free.end(), {built.entity, partner});
                SolverProbe(free, {constraint}).expectDerivativesMatch(1e-5);
            }
        }
    }
}

TEST(VrexParametricPath, MovesWithItsRigidSet) {
    for (const auto& [name, make] : MAKERS) {
        SCOPED_TRACE(name);
        const Built built = make();
        const auto set = VrexRigidSet3D::create({built.entity});
        const auto point = partners().front();
        const auto distance = VrexDistance3D::create(built.entity, point, 0.3, WHOLE, WHOLE);
        SolverProbe({set, point}, {distance}).expectDerivativesMatch(1e-5);
    }
}

TEST(VrexParametricPath, ConstraintsHoldBetweenTheNearestPoints) {
    for (const auto& [name, make] : MAKERS) {
        for (std::size_t i = 0; i + 1 < partners().size(); ++i) { // a cylinder also crosses far away
            for (std::size_t which : {0U, 1U}) {
                const auto partner = partners()[i];
                SCOPED_TRACE(std::string(name) + " " + getEnumeratorText(partner->type()));
                const Built built = make();
                const auto constraint = constraintsOf(built.entity, partner)[which];
                Mechanism mechanism;
                for (const auto& part : built.parts) {
                    mechanism.add(part);
                }
                mechanism.add(built.entity);
                mechanism.add(partner);
                mechanism.bind(VrexFixation3D::create(built.entity, VrexFixation3DType::Complete3D));
                mechanism.bind(constraint);
                const auto report = VrexSolver3D().solve({mechanism.component()});
                ASSERT_TRUE(report.components[0].remarks.empty());
                EXPECT_TRUE(report.isConverged());
                const auto nearest = nsNearest::nearest(pointsOf(*built.entity), pointsOf(*partner));
                EXPECT_NEAR(nearest.distance, which == 0 ? 0.3 : 0.0, 1e-5);
            }
        }
    }
}

} // namespace
