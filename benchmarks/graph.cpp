// Systems of N points and 1.5 N distances: the graph is built, walked and split into components. The peer
// does the same with the Boost Graph Library: identifiers to indices through a hash map, geometries and
// constraints as vertices of an adjacency list, labels of connected components. It gives labels only, and
// shares no object. Beside it stands the peer without vertices for constraints, whose two points it joins
// directly.
//
// "chain" is one chain whose links are doubled every other time, "random" joins any two points. The variants
// "all_edges" ask for the edge list of every vertex before the walk. Times are of a point and its share of
// everything, so that the exponent of growth is 1 where they stay the same; what a cache holds of the small
// systems and not of the large ones lies above that, for the peer as well.

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/graph/adjacency_list.hpp>
#include <boost/graph/connected_components.hpp>

#include "GrowthReport.h"
#include "Workload.h"
#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/graph/VrexBroadFirstSearch.h"
#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"

namespace {

using Points = std::vector<std::shared_ptr<VrexPoint3D>>;

struct System {
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints;
};

void addDistance(System& system, const Points& points, std::size_t from, std::size_t to) {
    auto distance = VrexDistance3D::create(points[from], points[to], 1.0, VrexGeometryComponentType::UNKNOWN,
                                           VrexGeometryComponentType::UNKNOWN);
    distance->setID(points.size() + system.constraints.size() + 1);
    system.constraints.push_back(distance);
}

System makeSystem(std::size_t count, bool isChain) {
    System system;
    Points points;
    for (std::size_t i = 0; i < count; ++i) {
        points.push_back(VrexPoint3D::create(double(i), 0.0, 0.0));
        points.back()->setID(i + 1);
    }
    system.geometries.assign(points.begin(), points.end());
    std::mt19937_64 random(count);
    std::uniform_int_distribution<std::size_t> anyPoint(0, count - 1);
    for (std::size_t i = 0; i + 1 < count && isChain; ++i) {
        addDistance(system, points, i, i + 1);
        if (i % 2 == 0) {
            addDistance(system, points, i, i + 1);
        }
    }
    for (std::size_t i = 0; i < count + count / 2 && !isChain; ++i) {
        addDistance(system, points, anyPoint(random), anyPoint(random));
    }
    return system;
}

using Peer = boost::adjacency_list<boost::vecS, boost::vecS, boost::undirectedS>;

std::size_t componentsOfPeer(const Peer& graph) {
    std::vector<int> labels(boost::num_vertices(graph));
    return static_cast<std::size_t>(boost::connected_components(graph, labels.data()));
}

std::unordered_map<std::uint64_t, std::size_t> indicesOf(const System& system) {
    std::unordered_map<std::uint64_t, std::size_t> indices;
    indices.reserve(system.geometries.size());
    for (const auto& geometry : system.geometries) {
        indices.emplace(geometry->getID(), indices.size());
    }
    return indices;
}

std::size_t runPeer(const System& system) {
    const auto indices = indicesOf(system);
    Peer graph(system.geometries.size() + system.constraints.size());
    std::size_t vertex = system.geometries.size();
    for (const auto& constraint : system.constraints) {
        for (const auto& geometry : constraint->getGeometries()) {
            boost::add_edge(indices.at(geometry->getID()), vertex, graph);
        }
        ++vertex;
    }
    return componentsOfPeer(graph);
}

std::size_t runPeerOnPoints(const System& system) {
    const auto indices = indicesOf(system);
    Peer graph(system.geometries.size());
    for (const auto& constraint : system.constraints) {
        const auto& geometries = constraint->getGeometries();
        boost::add_edge(indices.at(geometries[0]->getID()), indices.at(geometries[1]->getID()), graph);
    }
    return componentsOfPeer(graph);
}

template <class Walk>
std::size_t runGraph(const System& system) {
    VrexConstraintGraph graph(system.geometries, system.constraints);
    VrexComponentGenerator generator;
    Walk().traverse(graph, generator);
    return generator.getComponents().size();
}

std::size_t runWithAllEdges(const System& system) {
    VrexConstraintGraph graph(system.geometries, system.constraints);
    for (std::uint64_t index = 0; index < graph.numVertices(); ++index) {
        benchmark::DoNotOptimize(graph.getAdjacents(index).data());
    }
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    return generator.getComponents().size();
}

std::size_t buildOnly(const System& system) {
    return VrexConstraintGraph(system.geometries, system.constraints).numVertices();
}

/// Made when first asked for: only what is measured takes memory.
const System& systemOf(std::size_t count, bool isChain) {
    static std::map<std::pair<std::size_t, bool>, System> systems;
    const auto found = systems.find({count, isChain});
    return found != systems.end()
               ? found->second
               : systems.emplace(std::pair(count, isChain), makeSystem(count, isChain)).first->second;
}

void add(bool isChain, std::size_t count, const std::string& variant, std::size_t (*run)(const System&)) {
    const std::string shape = isChain ? "chain" : "random";
    const std::string name = shape + "_" + std::to_string(count) + variant + "_" + shape;
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        const System& system = systemOf(count, isChain);
        while (state.KeepRunningBatch(static_cast<benchmark::IterationCount>(count))) {
            expectSameValue(name, double(run(system)));
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    for (const bool isChain : {false, true}) {
        for (const std::size_t count : {10'000U, 100'000U, 1'000'000U}) {
            add(isChain, count, "/peer_boost", runPeer);
            add(isChain, count, "/boost_points_alone", runPeerOnPoints);
            add(isChain, count, "/depth_first", runGraph<VrexDepthFirstSearch>);
            add(isChain, count, "/broad_first", runGraph<VrexBroadFirstSearch>);
            add(isChain, count, "/all_edges", runWithAllEdges);
            add(isChain, count, ", graph/construction", buildOnly);
        }
    }
    return RatioReport::run<GrowthReport>(argc, argv);
}
