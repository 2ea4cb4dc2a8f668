// A system copied with all its links: half points, the rest lines, circles, sets, distances and incidences.
// The peer is the floor, a bare copy of each of the same objects, whose links stay where they were.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "GrowthReport.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"

namespace {

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

/// A part of ten objects: five points, a line, a circle, a set of these two and three of the points, a
/// distance and an incidence.
constexpr std::size_t PART = 10;

struct Lists {
    std::vector<std::shared_ptr<VrexGeometry3D>> geometries;
    std::vector<std::shared_ptr<VrexConstraint3D>> constraints;
    std::uint64_t lastId = 0;

    template <class Object>
    std::shared_ptr<Object> numbered(std::shared_ptr<Object> object) {
        object->setID(++lastId);
        return object;
    }
    template <class Geometry>
    std::shared_ptr<Geometry> add(std::shared_ptr<Geometry> geometry) {
        geometries.push_back(numbered(geometry));
        return geometry;
    }

    void addPart() {
        const double x = static_cast<double>(lastId);
        std::vector<std::shared_ptr<VrexPoint3D>> points;
        for (std::size_t i = 0; i < PART / 2; ++i) {
            points.push_back(add(VrexPoint3D::create(x, static_cast<double>(i), 1.0)));
        }
        const auto line = add(VrexLine3D::create({x, 0.0, 0.0}, {1.0, 2.0, 2.0}));
        const auto circle = add(VrexCircle3D::create({x, 1.0, 0.0}, {0.0, 3.0, 4.0}, 2.0));
        add(VrexRigidSet3D::create({line, circle, points[0], points[1], points[2]}));
        constraints.push_back(numbered(VrexDistance3D::create(points[3], points[4], 1.0, WHOLE, WHOLE)));
        constraints.push_back(
            numbered(VrexIncidence3D::create(points[3], line, VrexIncidence3DType::Default, WHOLE, WHOLE)));
    }
};

VrexImmutableSystem3D makeSystem(std::size_t count) {
    Lists lists;
    for (std::size_t i = 0; i < count / PART; ++i) {
        lists.addPart();
    }
    return {lists.geometries, {}, lists.constraints, {}, 1e-6, 1e-8, {}, {}};
}

struct Floor {
    std::vector<std::shared_ptr<VrexBaseObject>> copies;

    explicit Floor(const VrexImmutableSystem3D& system) {
        copies.reserve(system.geometries().size() + system.constraints().size());
        for (const auto& geometry : system.geometries()) {
            copies.push_back(geometry->makeCopy());
        }
        for (const auto& constraint : system.constraints()) {
            copies.push_back(constraint->makeCopy());
        }
    }
    std::size_t count() const { return copies.size(); }
};

struct DeepCopy {
    VrexImmutableSystem3D copy;

    explicit DeepCopy(const VrexImmutableSystem3D& system) : copy(system.deepCopy()) {}
    std::size_t count() const { return copy.geometries().size() + copy.constraints().size(); }
};

/// Times the copying, and not the release of the copy.
template <class Copy>
void run(benchmark::State& state, std::size_t count) {
    const auto system = makeSystem(count);
    for ([[maybe_unused]] auto step : state) {
        const double start = RatioReport::threadSeconds();
        const Copy copy(system);
        state.SetIterationTime((RatioReport::threadSeconds() - start) / static_cast<double>(count));
        if (copy.count() != count) {
            std::fprintf(stderr, "%zu copies of %zu objects\n", copy.count(), count);
            std::exit(1);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    // Memory that is given back to the kernel comes again page by page, zeroed: a cost of the first use of
    // memory, and of large systems alone.
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_MMAP_MAX, 0);
    std::puts("Per object.");
    for (const std::size_t count : {1'000U, 10'000U, 100'000U, 1'000'000U}) {
        const std::string workload = "system_of_" + std::to_string(count);
        const std::pair<const char*, void (*)(benchmark::State&, std::size_t)> variants[] = {
            {"/peer_makeCopy", run<Floor>}, {"/deepCopy", run<DeepCopy>}};
        for (const auto& [variant, function] : variants) {
            benchmark::RegisterBenchmark(
                (workload + variant).c_str(),
                [function = function, count](benchmark::State& state) { function(state, count); })
                ->UseManualTime()
                ->Iterations(
                    static_cast<benchmark::IterationCount>(count < 1'000'000 ? 1'000'000 / count : 1));
        }
    }
    return RatioReport::run<GrowthReport>(argc, argv);
}
