// A rigid set of points moved as a whole, and placed as an instance of another set. The peer moves the same
// points in a plain loop that remembers each in a set of addresses, as moving every part once needs.

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "RatioReport.h"
#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"

namespace {

const VrexTransformation3DT<double> MOTION({1e-3, -1e-3, 2e-3}, 1e-3, {0.0, 0.6, 0.8});

std::shared_ptr<VrexRigidSet3D> makeSet(std::size_t count) {
    std::vector<std::shared_ptr<VrexGeometry3D>> members;
    for (std::size_t i = 0; i < count; ++i) {
        members.push_back(VrexPoint3D::create(static_cast<double>(i), 2.0, 3.0));
    }
    return VrexRigidSet3D::create(std::move(members));
}

void peerLoop(benchmark::State& state, std::size_t count) {
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    for (std::size_t i = 0; i < count; ++i) {
        points.push_back(VrexPoint3D::create(static_cast<double>(i), 2.0, 3.0));
    }
    for ([[maybe_unused]] auto step : state) {
        std::unordered_set<const VrexPoint3D*> visited;
        for (const auto& point : points) {
            if (visited.insert(point.get()).second) {
                point->setPosition(
                    VrexQuaternionT<double>::rotate(point->getPosition(), MOTION.getRotation(), true) +
                    MOTION.getTranslation());
            }
        }
    }
}

void moveSet(benchmark::State& state, std::size_t count) {
    const auto set = makeSet(count);
    for ([[maybe_unused]] auto step : state) {
        VrexGeometryTransformation3DVisitor visitor(MOTION, false);
        set->accept(visitor);
    }
}

void satisfyInstance(benchmark::State& state, std::size_t count) {
    const auto axis = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.6, 0.8});
    const auto instance = VrexInstance3D::create(
        makeSet(count), makeSet(count),
        VrexArrayPattern3D::create({VrexPattern3D::create(VrexPattern3DType::Linear3D, axis, 0.5)}), {3});
    for ([[maybe_unused]] auto step : state) {
        instance->satisfy();
    }
}

} // namespace

int main(int argc, char** argv) {
    std::puts("Per set.");
    for (const std::size_t count : {1'000U, 10'000U, 100'000U, 1'000'000U}) {
        const std::string workload = "set_of_" + std::to_string(count);
        const std::pair<const char*, void (*)(benchmark::State&, std::size_t)> variants[] = {
            {"/peer_loop", peerLoop}, {"/move", moveSet}, {"/satisfy", satisfyInstance}};
        for (const auto& [variant, function] : variants) {
            benchmark::RegisterBenchmark(
                (workload + variant).c_str(),
                [function = function, count](benchmark::State& state) { function(state, count); });
        }
    }
    return RatioReport::run(argc, argv);
}
