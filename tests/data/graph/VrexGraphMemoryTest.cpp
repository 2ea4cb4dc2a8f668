// What a graph takes before anybody looks at its edges.

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

#include <gtest/gtest.h>

#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "support/AllocationCounter.h"
#include "support/GraphSystems.h"

namespace {

std::vector<std::shared_ptr<VrexBaseGeometry>> geometriesOf(std::size_t count) {
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    for (std::size_t i = 0; i < count; ++i) {
        geometries.push_back(PartedGeometry::create(i + 1));
    }
    return geometries;
}

TEST(VrexGraphMemory, VertexTakesAtMost200Bytes) {
    constexpr std::size_t VERTICES = 10'000;
    const auto geometries = geometriesOf(VERTICES);
    const AllocationCounter counter;
    VrexConstraintGraph graph(geometries, {});
    VrexComponentGenerator generator;
    EXPECT_LE(counter.bytes(), 200 * VERTICES);
    EXPECT_EQ(graph.numVertices(), VERTICES);
}

/// A ring of points and constraints of `arguments` neighbours each.
std::vector<std::shared_ptr<VrexBaseConstraint>>
constraintsOf(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries, std::size_t arguments) {
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints;
    for (std::size_t i = 0; i < geometries.size(); ++i) {
        auto constraint = LooseConstraint::create(geometries.size() + i + 1, {});
        for (std::size_t argument = 0; argument < arguments; ++argument) {
            constraint->geometries.push_back(geometries[(i + argument) % geometries.size()]);
        }
        constraints.push_back(constraint);
    }
    return constraints;
}

std::size_t bytesOfGraph(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
                         std::size_t arguments) {
    const auto constraints = constraintsOf(geometries, arguments);
    const AllocationCounter counter;
    VrexConstraintGraph graph(geometries, constraints);
    const std::size_t bytes = counter.bytes();
    EXPECT_EQ(graph.numEdges(), geometries.size() * arguments);
    return bytes;
}

TEST(VrexGraphMemory, EdgeAloneTakesAtMost100Bytes) {
    const auto geometries = geometriesOf(10'000);
    const std::size_t none = bytesOfGraph(geometries, 0);
    for (const std::size_t arguments : {1U, 2U, 3U, 10U}) {
        EXPECT_LE(bytesOfGraph(geometries, arguments), none + geometries.size() * arguments * 100);
    }
}

TEST(VrexGraphMemory, ListThatCouldNotBeMadeIsMadeWhenAskedForAgain) {
    const auto geometries = geometriesOf(3);
    for (std::size_t allowed = 0; allowed < 20; ++allowed) {
        VrexConstraintGraph graph(geometries, constraintsOf(geometries, 2));
        bool isMade = false;
        {
            const AllocationLimit limit(allowed);
            try {
                isMade = graph.getAdjacents(1).size() == 2;
            } catch (const std::bad_alloc&) {
                isMade = false;
            }
        }
        EXPECT_EQ(graph.getAdjacents(1).size(), 2U);
        EXPECT_EQ(graph.getAdjacents(3).size(), 2U);
        if (isMade) {
            EXPECT_GT(allowed, 3U);
            return;
        }
    }
    FAIL() << "an edge list takes more than twenty blocks";
}

TEST(VrexGraphMemory, WalkMakesNoEdge) {
    constexpr std::size_t VERTICES = 10'000;
    constexpr std::size_t ARGUMENTS = 10;
    const auto geometries = geometriesOf(VERTICES);
    const auto constraints = constraintsOf(geometries, ARGUMENTS);
    const AllocationCounter counter;
    VrexConstraintGraph graph(geometries, constraints);
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    // Of the components 16 bytes an object, twice while their vectors grow, and the walk's own arrays.
    EXPECT_LE(counter.bytes(), 2 * VERTICES * 200 + VERTICES * ARGUMENTS * 100);
    EXPECT_LE(counter.count(), 100U);
    EXPECT_EQ(graph.numEdges(), VERTICES * ARGUMENTS);
}

} // namespace
