#pragma once

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "solver/NearestPoints.h"

/// One entity of each kind that has no shape of its own.
namespace nsFreeForms {

/// An entity and, before it, the parts that it is made of.
struct Built {
    std::vector<std::shared_ptr<VrexGeometry3D>> parts;
    std::shared_ptr<VrexGeometry3D> entity;
};

inline VrexSpline3D::ControlPoint control(Built& built, double x, double y, double z, double weight) {
    auto point = VrexPoint3D::create(x, y, z);
    built.parts.push_back(point);
    return {point, weight};
}

inline std::shared_ptr<VrexSpline3D> makeSpline(Built& built) {
    VrexSpline3D::VrexSplineOptions options{3, false, {0, 0, 0, 0, 1, 2, 2, 2, 2}, {}};
    for (const auto& [x, y, z] :
         {std::array{1.0, 0.0, 0.2}, {1.5, 1.0, 1.0}, {2.5, 1.2, 1.5}, {2.0, 0.1, 2.5}, {1.2, -0.4, 3.0}}) {
        options.controlPoints.push_back(control(built, x, y, z, 1.0 + 0.2 * x));
    }
    return VrexSpline3D::create(options);
}

inline Built spline() {
    Built built;
    built.entity = makeSpline(built);
    return built;
}

inline Built nurbs() {
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

inline Built helix() {
    Built built;
    auto curve = VrexEvaluatedCurve3D::create(
        {0.3, 0.1, -0.2}, VrexQuaternionT<double>::makeFromAngleAndAxis(0.7, {0.6, 0.0, 0.8}, 1e-6), {},
        "2*cos(t)", "2*sin(t)", "0.3*t");
    curve->start() = 0.0;
    curve->end() = 6.0;
    built.entity = curve;
    return built;
}

inline Built saddle() {
    Built built;
    auto surface = VrexEvaluatedSurface3D::create(
        {0.3, 0.1, -0.2}, VrexQuaternionT<double>::makeFromAngleAndAxis(0.4, {0.6, 0.0, 0.8}, 1e-6), {}, "u",
        "v", "0.2*(u*u-v*v)");
    surface->startU() = surface->startV() = -6.0;
    surface->endU() = surface->endV() = 6.0;
    built.entity = surface;
    return built;
}

inline Built spin() {
    Built built;
    const auto profile = makeSpline(built);
    auto line = VrexLine3D::create({0.1, -0.2, 0.0}, {0.0, 0.0, 1.0});
    built.parts.insert(built.parts.end(), {profile, line});
    built.entity = VrexSpinSurface3D::create(profile, line);
    return built;
}

inline Built sweep() {
    Built built;
    auto profile = VrexEllipse3D::create({0.2, 0.1, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 2.0, 1.0);
    auto line = VrexLine3D::create({0.1, -0.2, 0.0}, {0.1, 0.2, 1.0});
    built.parts.insert(built.parts.end(), {profile, line});
    built.entity = VrexSweepSurface3D::create(profile, line, {});
    return built;
}

using Maker = Built (*)();

inline constexpr std::pair<const char*, Maker> MAKERS[] = {{"spline", spline}, {"nurbs", nurbs},
                                                           {"helix", helix},   {"saddle", saddle},
                                                           {"spin", spin},     {"sweep", sweep}};

/// The library's own evaluation, which the paths over the bodies are to agree with. The search may leave the
/// ranges, where a contact within them is the nearest one too.
inline nsNearest::Points pointsOf(VrexGeometry3D& entity) {
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

/// All that a solver has to know of it.
inline std::vector<std::shared_ptr<VrexGeometry3D>> allOf(const Built& built) {
    std::vector<std::shared_ptr<VrexGeometry3D>> result(built.parts);
    result.push_back(built.entity);
    return result;
}

} // namespace nsFreeForms
