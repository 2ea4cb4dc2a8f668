// Curves: a helix given by expressions, whose pitch another object holds, and a spline through given points.

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <numbers>
#include <vector>

#include "data/VrexQuaternionT.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexCacheParametricCurveCalculator3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexInterpolatedSplineCalculator3D.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

using Vector = VrexVector3DT<double>;

constexpr double RADIUS = 2.0;
constexpr double PITCH = 3.0; ///< Height of one turn.
constexpr double EXACT = 1e-12;

void print(const char* what, const Vector& vector) {
    std::printf("  %-12s (%9.5f, %9.5f, %9.5f)\n", what, vector.x(), vector.y(), vector.z());
}

/// A quarter turn at a time, with two derivatives; the curvature of a helix is the same everywhere.
bool sampleHelix(const VrexEvaluatedCurve3D& helix) {
    const VrexCacheParametricCurveCalculator3D cache(VrexParametricCurveCalculator3D::create(helix));
    const double rise = PITCH / (2.0 * std::numbers::pi);
    const double curvature = RADIUS / (RADIUS * RADIUS + rise * rise);
    bool isHelix = true;
    for (int quarter = 0; quarter <= 4; ++quarter) {
        const double t = quarter * std::numbers::pi / 2.0;
        const auto& derivatives = cache.calculate(t, 2);
        std::printf("helix at t = %.4f, curvature %.6f\n", t, cache.curvature(t));
        print("point", derivatives[0]);
        print("d/dt", derivatives[1]);
        print("d2/dt2", derivatives[2]);
        isHelix = isHelix && std::fabs(cache.curvature(t) - curvature) < EXACT;
    }
    return isHelix;
}

/// How the end of the first turn moves with each number that the helix depends on.
bool differentiateHelix(const VrexEvaluatedCurve3D& helix, const VrexGeometryVariable& pitch) {
    const Vector origin = helix.getOrigin();
    const auto rotation = helix.getRotation();
    // The slots of the curve in order, then a value a descriptor.
    std::vector<VrexVariable> numbers{origin.x(),   origin.y(),   origin.z(),   rotation.scalar(),
                                      rotation.i(), rotation.j(), rotation.k(), pitch.getValue()};
    VrexVariable::initializeDerivatives(numbers);
    const auto point = helix.evaluate(numbers, 2.0 * std::numbers::pi, 0).front();
    const double byPitch = point.z().derivatives()[numbers.size() - 1];
    std::printf("one turn up: z = %.5f, dz/dpitch = %.5f\n\n", point.z().value(), byPitch);
    return std::fabs(byPitch - 1.0) < EXACT;
}

bool showHelix() {
    const auto pitch = VrexGeometryVariable::create(PITCH);
    const auto helix = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, VrexQuaternionT<double>::ONE());
    if (!helix->set("2 * cos(t)", "2 * sin(t)", "pitch * t / (2 * pi)", {{pitch, 0, "pitch"}})) {
        return false;
    }
    return sampleHelix(*helix) && differentiateHelix(*helix, *pitch);
}

/// The spline of degree 3 through the points, as an entity with point objects of its own.
std::shared_ptr<VrexSpline3D> interpolate(const std::vector<Vector>& points,
                                          std::vector<double>& parameters) {
    VrexSpline3D::VrexSplineOptions options{3, false, {}, {}};
    std::vector<Vector> controls;
    VrexInterpolatedSplineCalculator3D::calculate(points, options.knots, controls, parameters,
                                                  static_cast<std::size_t>(options.degree), options.periodic,
                                                  true);
    for (const Vector& control : controls) {
        options.controlPoints.push_back({VrexPoint3D::create(control.x(), control.y(), control.z()), 1.0});
    }
    return VrexSpline3D::create(options);
}

bool showSpline() {
    const std::vector<Vector> points{{0.0, 0.0, 0.0}, {1.0, 2.0, 0.0},  {3.0, 2.5, 1.0},
                                     {4.0, 0.0, 2.0}, {6.0, -1.0, 1.0}, {7.0, 1.0, 0.0}};
    std::vector<double> parameters;
    const auto spline = interpolate(points, parameters);
    const auto calculator = VrexParametricCurveCalculator3D::create(*spline);
    double farthest = 0.0;
    std::printf("spline of degree %d with %zu control points\n", spline->degree(),
                spline->controlPoints().size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto derivatives = calculator->calculate(parameters[i], 1);
        std::printf(" at t = %.4f\n", parameters[i]);
        print("point", derivatives[0]);
        print("d/dt", derivatives[1]);
        farthest = std::fmax(farthest, derivatives[0].distanceTo(points[i]));
    }
    std::printf("farthest from the given points: %.1e\n", farthest);
    return farthest < EXACT;
}

} // namespace

int main() { return showHelix() && showSpline() ? 0 : 1; }
