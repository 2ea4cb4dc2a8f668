#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"

/// Points of B-spline curves and surfaces by de Boor's repeated interpolation of homogeneous control points,
/// which has nothing in common with sums of basis functions.
namespace nsDeBoor {

using Homogeneous = std::array<double, 4>;

inline Homogeneous toHomogeneous(const VrexSpline3D::ControlPoint& controlPoint) {
    const auto position = controlPoint.point->getPosition() * controlPoint.weight;
    return {position.x(), position.y(), position.z(), controlPoint.weight};
}

inline VrexVector3DT<double> project(const Homogeneous& h) { return {h[0] / h[3], h[1] / h[3], h[2] / h[3]}; }

/// `control` has as many elements as there are knots, less the degree and one.
inline Homogeneous evaluate(const std::vector<double>& U, std::size_t p,
                            const std::vector<Homogeneous>& control, double t) {
    std::size_t s = p;
    for (std::size_t i = p; i < control.size(); ++i) {
        if (U[i] <= t && U[i] < U[i + 1]) {
            s = i;
        }
    }
    std::vector<Homogeneous> d(control.begin() + static_cast<std::ptrdiff_t>(s - p),
                               control.begin() + static_cast<std::ptrdiff_t>(s) + 1);
    for (std::size_t r = 1; r <= p; ++r) {
        for (std::size_t j = p; j >= r; --j) {
            const std::size_t i = s - p + j;
            const double share = (t - U[i]) / (U[i + p - r + 1] - U[i]);
            for (std::size_t c = 0; c < 4; ++c) {
                d[j][c] = (1.0 - share) * d[j - 1][c] + share * d[j][c];
            }
        }
    }
    return d[p];
}

/// `t` lies in the range of the knots.
inline VrexVector3DT<double> evaluate(const VrexSpline3D& spline, double t) {
    std::vector<Homogeneous> control;
    for (const auto& controlPoint : spline.controlPoints()) {
        control.push_back(toHomogeneous(controlPoint));
    }
    for (int i = 0; spline.periodic() && i < spline.degree(); ++i) {
        control.push_back(control[static_cast<std::size_t>(i)]);
    }
    return project(evaluate(spline.knots(), static_cast<std::size_t>(spline.degree()), control, t));
}

inline VrexVector3DT<double> evaluate(const VrexNURBSSurface3D& surface, double u, double v) {
    std::vector<Homogeneous> column;
    for (const auto& row : surface.controlPoints()) {
        std::vector<Homogeneous> control;
        for (const auto& controlPoint : row) {
            control.push_back(toHomogeneous(controlPoint));
        }
        column.push_back(evaluate(surface.vKnots(), static_cast<std::size_t>(surface.vDegree()), control, v));
    }
    return project(evaluate(surface.uKnots(), static_cast<std::size_t>(surface.uDegree()), column, u));
}

} // namespace nsDeBoor
