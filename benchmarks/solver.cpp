// The solver: a chain of bodies closed into a loop, many small linkages, and sketches beside libslvs.
//
// "loop_N" is one component of N bodies with hinges, per body. "linkages" is 10,000 components, each a
// four-bar whose crank turns; "loop" is the loop of 500 bodies; their peers are the seconds that each may
// take. "truss_N" and "zigzag_N" are sketches of N coordinates, per coordinate, both solvers from the same
// start; the lines of ours are unknowns besides. Times are those of the calls that solve, which make the
// equations, solve them and tell the freedom that is left; "objects" is the call that besides copies the
// system, splits it into components and lays the results back. The peer is a program of its own that tells
// its times.
// "contact" is a point at a distance from a free-form surface; its peer evaluates the surface at as many
// places as are tried for a start.
// --weigh tells how the memory of a loop grows.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "GrowthReport.h"
#include "Linkages.h"
#include "PeakMemory.h"
#include "Sketch.h"
#include "SketchObjects.h"
#include "SurfaceContact.h"
#include "solver/VrexSolver3D.h"

namespace {

constexpr std::size_t LINKAGES = 10'000;
constexpr std::size_t LOOP = 500;
/// So near all solvers have to come to the same pose.
constexpr double AGREEMENT = 1e-6;

using Components = std::vector<std::shared_ptr<VrexConnectedComponent>>;

[[noreturn]] void fail(const std::string& name) {
    std::fprintf(stderr, "%s was not solved\n", name.c_str());
    std::exit(1);
}

/// Times so long that one run of each is enough; each repetition begins anew.
void measure(const std::string& name, const std::function<double()>& seconds) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [seconds](benchmark::State& state) {
                                     for ([[maybe_unused]] auto step : state) {
                                         state.SetIterationTime(seconds());
                                     }
                                 })
        ->UseManualTime()
        ->Iterations(1);
}

double solve(const std::string& name, const Components& components) {
    const double start = RatioReport::threadSeconds();
    const VrexSolverReport report = VrexSolver3D().solve(components);
    const double time = RatioReport::threadSeconds() - start;
    if (!report.isConverged()) {
        fail(name);
    }
    return time;
}

double medianOf(std::size_t count, const std::function<double()>& seconds) {
    std::vector<double> times(count);
    std::generate(times.begin(), times.end(), seconds);
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(count / 2), times.end());
    return times[count / 2];
}

void addLoops() {
    for (const std::size_t bodies : {50U, 100U, 200U, 500U, 1'000U, 2'000U, 5'000U}) {
        const std::string name = "loop_" + std::to_string(bodies);
        measure(name + "/solve", [name, bodies] {
            return solve(name, {Linkage::loop(bodies).component()}) / static_cast<double>(bodies);
        });
    }
    measure("loop/peer_second", [] { return 1.0; });
    measure("loop/500_bodies", [] { return solve("loop", {Linkage::loop(LOOP).component()}); });
}

void addLinkages() {
    measure("linkages/peer_5_seconds", [] { return 5.0; });
    measure("linkages/10000_components", [] {
        Components components;
        for (std::size_t i = 0; i < LINKAGES; ++i) {
            components.push_back(Linkage::fourBar().component());
        }
        return solve("linkages", components);
    });
}

/// What two scans of a surface look at, once for a start and once for whether that was the nearest place.
double evaluateOnGrid() {
    constexpr int scans = 2;
    constexpr int side = 32;
    const SurfaceContact contact;
    const double start = RatioReport::threadSeconds();
    double sum = 0.0;
    for (int i = 0; i < scans * side * side; ++i) {
        const double u = 5.0 * (i / side % side + 0.5) / side;
        const double v = 5.0 * (i % side + 0.5) / side;
        sum += contact.surface().evaluate(u, v, 1)[0].z();
    }
    benchmark::DoNotOptimize(sum);
    return RatioReport::threadSeconds() - start;
}

void addContact() {
    measure("contact/peer_evaluations", evaluateOnGrid);
    measure("contact/solve_once", [] { return solve("contact", {SurfaceContact().component()}); });
}

#ifdef VREX_SLVS_PEER
/// Runs the peer, checks where its points came to rest, and returns its time.
double runPeer(const Sketch& sketch, const std::string& arguments) {
    const std::string command = std::string(VREX_SLVS_PEER).append(" ").append(arguments);
    std::FILE* const answer = popen(command.c_str(), "r");
    double time = -1.0;
    if (answer == nullptr || std::fscanf(answer, "%lf", &time) != 1 || time < 0.0) {
        fail(command);
    }
    std::vector<Sketch::Place> places(sketch.points().size());
    for (Sketch::Place& place : places) {
        if (std::fscanf(answer, "%lf %lf %lf", &place[0], &place[1], &place[2]) != 3) {
            fail(command);
        }
    }
    if (pclose(answer) != 0 || !(sketch.error(places) <= AGREEMENT)) {
        fail(command);
    }
    return time;
}
#endif

void addSketch(const std::string& kind, const std::function<Sketch(std::size_t)>& make, std::size_t points) {
    const std::size_t unknowns = 3 * points;
    const std::size_t repetitions = std::max<std::size_t>(3, 1'000 / unknowns);
    const std::string name = kind + "_" + std::to_string(unknowns);
    const auto count = static_cast<double>(unknowns);
    const auto sketch = std::make_shared<const Sketch>(make(points));
#ifdef VREX_SLVS_PEER
    const std::string arguments = kind + " " + std::to_string(points) + " " + std::to_string(repetitions);
    measure(name + "/peer_slvs_" + kind, [=] { return runPeer(*sketch, arguments) / count; });
#endif
    const auto objects = std::make_shared<SketchObjects>(*sketch);
    const auto run = [=](const std::function<VrexSolverReport()>& call) {
        return medianOf(repetitions, [&] {
            objects->reset();
            const double start = RatioReport::threadSeconds();
            const VrexSolverReport report = call();
            const double time = RatioReport::threadSeconds() - start;
            if (!report.isConverged() || !(sketch->error(objects->places()) <= AGREEMENT)) {
                fail(name);
            }
            return time / count;
        });
    };
    measure(name + "/solve_" + kind,
            [=] { return run([=] { return VrexSolver3D().solve({objects->component()}); }); });
    measure(name + "/objects_" + kind, [=] {
        return run([=] { return VrexSolver3D().solve(objects->geometries(), objects->constraints()); });
    });
}

int weigh() {
    for (const std::size_t bodies : {500U, 5'000U, 50'000U}) {
        const Components components{Linkage::loop(bodies).component()};
        const PeakMemory memory;
        solve("loop", components);
        std::printf("A loop of %zu bodies takes %.1f KiB a body.\n", bodies,
                    memory.bytes() / 1024.0 / static_cast<double>(bodies));
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--weigh") {
        return weigh();
    }
    addLoops();
    addLinkages();
    addContact();
    for (const std::size_t points : {17U, 34U, 67U, 166U}) {
        addSketch("truss", Sketch::truss, points);
        addSketch("zigzag", Sketch::zigzag, points);
    }
    return RatioReport::run<GrowthReport>(argc, argv);
}
