#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "solver/JacobianChecks.h"
#include "solver/Mechanism.h"
#include "solver/NearestPoints.h"
#include "solver/VrexSolver3D.h"

namespace {

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

/// An entity and, before it, the parts that it is made of.
struct Built {
    std::vector<std::shared_ptr<VrexGeometry3D>> parts;
    std::shared_ptr<VrexGeometry3D> entity;
};

using Maker = Built (*)();

VrexSpline3D::ControlPoint control(Built& built, double x, double y, double z, double weight) {
    auto point = VrexPoint3D::create(x, y, z);
    built.parts.push_back(point);
    return {point, weight};
}

std::shared_ptr<VrexSpline3D> makeSpline(Built& built) {
    VrexSpline3D::VrexSplineOptions options{3, false, {0, 0, 0, 0, 1, 2, 2, 2, 2}, {}};
    for (const auto& [x, y, z] :
         {std::array{1.0, 0.0, 0.2}, {1.5, 1.0, 1.0}, {2.5, 1.2, 1.5}, {2.0, 0.1, 2.5}, {1.2, -0.4, 3.0}}) {
        options.controlPoints.push_back(control(built, x, y, z, 1.0 + 0.2 * x));
    }
    return VrexSpline3D::create(options);
}

Built spline() {
    Built built;
    built.entity = makeSpline(built);
    return built;
}

Built nurbs() {
    Built built;
    VrexNURBSSurface3D::VrexNURBSOptions options{2, 2, {0, 0, 0, 1, 1, 1}, {0, 0, 0, 1, 1, 1}, {}};
    for (int i = 0; i < 3; ++i) {
        auto& row = options.controlPoints.emplace_back();
        for (int j = 0; j < 3; ++j) {
            row.push_back(control(built, 2.0 * i, 1.8 * j, i == 1 && j == 1 ? 1.5 : 0.1 * i, 1.0));
        }
    }
    built.entity = VrexNURBSSurface3D::create(options);
    return built;
}

Built helix() {
    Built built;
    auto curve = VrexEvaluatedCurve3D::create(
        {0.3, 0.1, -0.2}, VrexQuaternionT<double>::makeFromAngleAndAxis(0.7, {0.6, 0.0, 0.8}, 1e-6), {},
        "2*cos(t)", "2*sin(t)", "0.3*t");
    curve->start() = 0.0;
    curve->end() = 6.0;
    built.entity = curve;
    return built;
}

Built saddle() {
    Built built;
    auto surface = VrexEvaluatedSurface3D::create(
        {0.3, 0.1, -0.2}, VrexQuaternionT<double>::makeFromAngleAndAxis(0.4, {0.6, 0.0, 0.8}, 1e-6), {}, "u",
        "v", "0.2*(u*u-v*v)");
    surface->startU() = surface->startV() = -6.0;
    surface->endU() = surface->endV() = 6.0;
    built.entity = surface;
    return built;
}

Built spin() {
    Built built;
    const auto profile = makeSpline(built);
    auto line = VrexLine3D::create({0.1, -0.2, 0.0}, {0.0, 0.0, 1.0});
    built.parts.insert(built.parts.end(), {profile, line});
    built.entity = VrexSpinSurface3D::create(profile, line);
    return built;
}

Built sweep() {
    Built built;
    auto profile = VrexEllipse3D::create({0.2, 0.1, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 2.0, 1.0);
    auto line = VrexLine3D::create({0.1, -0.2, 0.0}, {0.1, 0.2, 1.0});
    built.parts.insert(built.parts.end(), {profile, line});
    built.entity = VrexSweepSurface3D::create(profile, line, {});
    return built;
}

const std::pair<const char*, Maker> MAKERS[] = {{"spline", spline}, {"nurbs", nurbs}, {"helix", helix},
                                                {"saddle", saddle}, {"spin", spin},   {"sweep", sweep}};

/// The library's own evaluation, which the paths over the bodies are to agree with. The search may leave the
/// ranges, where a contact within them is the nearest one too.
nsNearest::Points pointsOf(VrexGeometry3D& entity) {
    if (auto* const curve = dynamic_cast<VrexParametricCurve3D*>(&entity)) {
        const auto [low, high] = curve->interval();
        return {[curve](const double* t) { return curve->evaluate(t[0], 0)[0]; }, {{*low, *high}}};
    }
    if (auto* const surface = dynamic_cast<VrexParametricSurface3D*>(&entity)) {
        const auto [lowU, highU] = surface->intervalU();
        const auto [lowV, highV] = surface->intervalV();
        return {[surface](const double* t) { return surface->evaluate(t[0], t[1], 0)[0]; },
                {{*lowU, *highU}, {lowV.value_or(-8.0), highV.value_or(8.0)}}};
    }
    return nsNearest::pointsOf(entity);
}

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
