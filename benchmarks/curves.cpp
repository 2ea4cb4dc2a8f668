// Curves by a held calculator: the point and the first two derivatives at changing parameters.
//
// OpenCASCADE is the peer where it is installed.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#ifdef VREX_HAS_OPENCASCADE
#include <Geom_Circle.hxx>
#include <gp_Ax2.hxx>
#endif

#include "RatioReport.h"
#include "Workload.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

namespace {

/// Parameters in [0, 1) that never come in a regular order.
double next(double parameter) {
    constexpr double goldenRatio = 0.6180339887498949;
    parameter += goldenRatio;
    return parameter < 1.0 ? parameter : parameter - 1.0;
}

/// `evaluate(t)` returns something that holds point and derivatives, and `sum` adds up their components.
template <typename Evaluate, typename Sum>
void measure(const std::string& name, double length, Evaluate evaluate, Sum sum) {
    expectSameValue(name, sum(evaluate(0.3 * length)));
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        double parameter = 0.0;
        for (auto _ : state) {
            parameter = next(parameter);
            auto result = evaluate(parameter * length);
            benchmark::DoNotOptimize(&result);
            benchmark::ClobberMemory();
        }
    });
}

void measureOwn(const std::string& workload, const VrexParametricCurve3D& curve, double length) {
    const auto calculator = VrexParametricCurveCalculator3D::create(curve);
    measure(
        workload + "/calculator", length, [=](double t) { return calculator->calculate(t, 2); },
        [](const auto& derivatives) {
            double sum = 0.0;
            for (const auto& derivative : derivatives) {
                sum += derivative.x() + derivative.y() + derivative.z();
            }
            return sum;
        });
}

#ifdef VREX_HAS_OPENCASCADE
struct PeerPoint {
    gp_Pnt point;
    gp_Vec first;
    gp_Vec second;
};

void measurePeer(const std::string& workload, const Handle(Geom_Curve) & curve, double length) {
    measure(
        workload + "/peer_opencascade", length,
        [=](double t) {
            PeerPoint result;
            curve->D2(t, result.point, result.first, result.second);
            return result;
        },
        [](const PeerPoint& result) {
            const gp_XYZ sum = result.point.XYZ() + result.first.XYZ() + result.second.XYZ();
            return sum.X() + sum.Y() + sum.Z();
        });
}
#endif

#ifdef VREX_HAS_OPENCASCADE
/// What the peer takes when it has to hand its result out in a vector too, as the calculators' interface
/// wants.
void measurePeerWithVector(const std::string& workload, const Handle(Geom_Curve) & curve, double length) {
    measure(
        workload + "/opencascade_vector", length,
        [=](double t) {
            gp_Pnt point;
            std::vector<gp_Vec> result(3);
            curve->D2(t, point, result[1], result[2]);
            result[0].SetXYZ(point.XYZ());
            return result;
        },
        [](const std::vector<gp_Vec>& result) {
            const gp_XYZ sum = result[0].XYZ() + result[1].XYZ() + result[2].XYZ();
            return sum.X() + sum.Y() + sum.Z();
        });
}
#endif

void registerCircle() {
    constexpr double turn = 6.283185307179586;
    const auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
#ifdef VREX_HAS_OPENCASCADE
    // The X axis of the frame, so that both start at the same point.
    const auto start = (circle->evaluate(0.0, 0)[0] - circle->getCenter()) / circle->getRadius();
    const Handle(Geom_Curve) peer = new Geom_Circle(
        gp_Ax2(gp_Pnt(1.0, -2.0, 3.0), gp_Dir(2.0, -1.0, 2.0), gp_Dir(start.x(), start.y(), start.z())), 1.5);
    measurePeer("circle", peer, turn);
    measurePeerWithVector("circle", peer, turn);
#endif
    measureOwn("circle", *circle, turn);
}

} // namespace

int main(int argc, char** argv) {
    registerCircle();
    return RatioReport::run(argc, argv);
}
