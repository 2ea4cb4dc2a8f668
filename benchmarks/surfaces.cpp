// Surfaces by a held calculator: the point and the first and second partial derivatives at changing
// parameters.
//
// OpenCASCADE is the peer where it is installed. The sample of a calculator holds nine derivatives, the
// peer's six.

#include <array>
#include <cstddef>
#include <string>

#include <benchmark/benchmark.h>
#ifdef VREX_HAS_OPENCASCADE
#include <Geom_CylindricalSurface.hxx>
#include <Geom_ToroidalSurface.hxx>
#include <gp_Ax3.hxx>
#endif

#include "RatioReport.h"
#include "Workload.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexTorus3D.h"

namespace {

constexpr double TURN = 6.283185307179586;

/// Parameters in [0, 1) that never come in a regular order.
double next(double parameter) {
    constexpr double goldenRatio = 0.6180339887498949;
    parameter += goldenRatio;
    return parameter < 1.0 ? parameter : parameter - 1.0;
}

/// `evaluate(u, v)` returns something that holds point and derivatives, and `sum` adds up the components of
/// those that both sides have. u and v run from 0 to `length`.
template <typename Evaluate, typename Sum>
void measure(const std::string& name, double length, Evaluate evaluate, Sum sum) {
    expectSameValue(name, sum(evaluate(0.3 * length, 0.4 * length)));
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        double parameter = 0.0;
        for (auto _ : state) {
            parameter = next(parameter);
            auto result = evaluate(parameter * length, (1.0 - parameter) * length);
            benchmark::DoNotOptimize(&result);
            benchmark::ClobberMemory();
        }
    });
}

void measureOwn(const std::string& workload, const VrexParametricSurface3D& surface, double length) {
    const auto calculator = VrexParametricSurfaceCalculator3D::create(surface);
    measure(
        workload + "/calculator", length, [=](double u, double v) { return calculator->calculate(u, v, 2); },
        [](const VrexSurfaceSample<VrexVector3DT<double>>& sample) {
            double sum = 0.0;
            for (const std::size_t element : {0U, 1U, 2U, 3U, 4U, 6U}) {
                sum += sample[element].x() + sample[element].y() + sample[element].z();
            }
            return sum;
        });
}

#ifdef VREX_HAS_OPENCASCADE
struct PeerPoint {
    gp_Pnt point;
    std::array<gp_Vec, 5> derivatives;
};

void measurePeer(const std::string& workload, const Handle(Geom_Surface) & surface, double length) {
    measure(
        workload + "/peer_opencascade", length,
        [=](double u, double v) {
            PeerPoint result;
            auto& [byU, byV, byUU, byVV, byUV] = result.derivatives;
            surface->D2(u, v, result.point, byU, byV, byUU, byVV, byUV);
            return result;
        },
        [](const PeerPoint& result) {
            gp_XYZ sum = result.point.XYZ();
            for (const gp_Vec& derivative : result.derivatives) {
                sum += derivative.XYZ();
            }
            return sum.X() + sum.Y() + sum.Z();
        });
}

/// The frame of an entity at the origin; the X axis is where the surface begins, so that both sides start at
/// the same point.
gp_Ax3 frameOf(const VrexVector3DT<double>& axis, const VrexVector3DT<double>& start) {
    return {gp_Pnt(1.0, -2.0, 3.0), gp_Dir(axis.x(), axis.y(), axis.z()),
            gp_Dir(start.x(), start.y(), start.z())};
}
#endif

void registerCylinder() {
    const auto cylinder = VrexCylinder3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
#ifdef VREX_HAS_OPENCASCADE
    const auto start = cylinder->evaluate(0.0, 0.0, 0)[0] - cylinder->getOrigin();
    measurePeer("cylinder", new Geom_CylindricalSurface(frameOf(cylinder->getDirection(), start), 1.5), TURN);
#endif
    measureOwn("cylinder", *cylinder, TURN);
}

void registerTorus() {
    const auto torus = VrexTorus3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 3.0, 1.25);
#ifdef VREX_HAS_OPENCASCADE
    const auto start = torus->evaluate(0.0, 0.0, 0)[0] - torus->getCenter();
    measurePeer("torus", new Geom_ToroidalSurface(frameOf(torus->getNormal(), start), 3.0, 1.25), TURN);
#endif
    measureOwn("torus", *torus, TURN);
}

} // namespace

int main(int argc, char** argv) {
    registerCylinder();
    registerTorus();
    return RatioReport::run(argc, argv);
}
