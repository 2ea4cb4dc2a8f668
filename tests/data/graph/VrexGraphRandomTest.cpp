// Random systems against a model of the graph and its walks that is written by nested calls, and the
// properties of a partition.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/graph/VrexBroadFirstSearch.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "support/GraphModel.h"
#include "support/GraphRecorder.h"
#include "support/GraphSystems.h"
#include "support/RandomTurns.h"

namespace {

using Ends = std::vector<std::pair<std::uint64_t, std::uint64_t>>;
using nsGraphPieces::fixationsOf;
using nsGraphPieces::idsOf;
using nsGraphPieces::piecesOf;

constexpr int SYSTEMS = randomTurns(20'000);
constexpr std::size_t LARGEST = 200;

/// Small ones more often: they are where a difference is understood.
std::size_t scaleOf(RandomGraphSystems& random) { return 1 + random.below(1 + random.below(LARGEST)); }

std::unique_ptr<VrexGraphTraverser> makeWalk(bool isDepthFirst) {
    if (isDepthFirst) {
        return std::make_unique<VrexDepthFirstSearch>();
    }
    return std::make_unique<VrexBroadFirstSearch>();
}

Ends endsOf(const std::vector<VrexEdge>& edges) {
    Ends ends;
    for (const VrexEdge& edge : edges) {
        ends.emplace_back(edge.getFirst()->getID(), edge.getSecond()->getID());
    }
    return ends;
}

void expectSameGraph(VrexConstraintGraph& graph, const GraphModel& model) {
    ASSERT_EQ(graph.numVertices(), model.order.size());
    EXPECT_EQ(graph.numEdges(), model.edgeCount);
    std::size_t incidences = 0;
    for (std::uint64_t index = 0; index < graph.numVertices(); ++index) {
        const GraphModel::Vertex& vertex = model.vertices.at(model.order[index]);
        ASSERT_EQ(graph[index]->getID(), model.order[index]);
        ASSERT_EQ(graph[index]->getGeometryPtr(), vertex.geometry);
        ASSERT_EQ(graph[index]->getConstraintPtr(), vertex.constraint);
        ASSERT_EQ(endsOf(graph.getAdjacents(index)), vertex.edges);
        incidences += vertex.edges.size();
    }
    EXPECT_EQ(incidences, 2 * graph.numEdges());
    std::map<std::uint64_t, std::shared_ptr<VrexBaseConstraint>> fixed(graph.getFixedMap().begin(),
                                                                       graph.getFixedMap().end());
    EXPECT_EQ(fixed, model.fixed);
}

void expectSameColors(VrexComponentGenerator& generator, const GraphModelWalk& walk) {
    for (const auto& [id, color] : walk.colors()) {
        ASSERT_EQ(static_cast<int>(generator.vertexColor(id)), color) << id;
    }
}

/// What a generator finds before anybody looked at the graph, and what callbacks find.
void expectSameWalk(const GraphSystem& system, VrexConstraintGraph& graph, const GraphModel& model,
                    bool isDepthFirst) {
    const GraphModelWalk expected(model, isDepthFirst, 0);
    VrexConstraintGraph unseen(system.geometries, system.constraints);
    VrexComponentGenerator generator;
    const auto walk = makeWalk(isDepthFirst);
    walk->traverse(unseen, generator);
    ASSERT_EQ(piecesOf(generator), expected.pieces());
    ASSERT_EQ(fixationsOf(generator), expected.fixations());
    expectSameColors(generator, expected);
    GraphRecorder recorder;
    makeWalk(isDepthFirst)->traverse(graph, recorder);
    ASSERT_EQ(recorder.steps(), expected.steps());
    ASSERT_EQ(piecesOf(recorder), expected.pieces());
    ASSERT_EQ(fixationsOf(recorder), expected.fixations());
    VrexComponentGenerator afterwards; // when all was looked at
    makeWalk(isDepthFirst)->traverse(graph, afterwards);
    ASSERT_EQ(piecesOf(afterwards), expected.pieces());
}

TEST(VrexGraphRandom, WalksAreThoseOfNestedCalls) {
    RandomGraphSystems random(11);
    for (int round = 0; round < SYSTEMS; ++round) {
        const GraphSystem system = random.make(scaleOf(random));
        const GraphModel model(system);
        VrexConstraintGraph graph(system.geometries, system.constraints);
        expectSameWalk(system, graph, model, true);
        expectSameGraph(graph, model);
        expectSameWalk(system, graph, model, false);
        ASSERT_FALSE(HasFatalFailure()) << round;
    }
}

TEST(VrexGraphRandom, AStopAtAnyStepIsThatOfNestedCalls) {
    RandomGraphSystems random(12);
    for (int round = 0; round < SYSTEMS / 4; ++round) {
        const GraphSystem system = random.make(1 + random.below(60));
        const GraphModel model(system);
        const bool isDepthFirst = round % 2 == 0;
        const std::size_t steps = GraphModelWalk(model, isDepthFirst, 0).steps().size();
        const std::size_t stopAt = 1 + random.below(steps + 1);
        const GraphModelWalk expected(model, isDepthFirst, stopAt);
        VrexConstraintGraph graph(system.geometries, system.constraints);
        GraphRecorder recorder(stopAt);
        makeWalk(isDepthFirst)->traverse(graph, recorder);
        ASSERT_EQ(recorder.steps(), expected.steps()) << round << ", stopped at " << stopAt;
        ASSERT_EQ(piecesOf(recorder), expected.pieces()) << round;
        ASSERT_EQ(recorder.isStopped(), stopAt <= steps);
    }
}

TEST(VrexGraphRandom, WalksOfAGrowingGraphAgreeWithTheirCallbacks) {
    RandomGraphSystems random(13);
    for (int round = 0; round < 2000; ++round) {
        const GraphSystem system = random.make(1 + random.below(40));
        VrexConstraintGraph grown(system.geometries, {});
        std::size_t step = 0;
        for (const auto& constraint : system.constraints) {
            grown.addVertex(constraint);
            if (++step % 3 == 0) { // walks and looks in between
                VrexComponentGenerator generator;
                VrexDepthFirstSearch().traverse(grown, generator);
                grown.getAdjacents(random.below(grown.numVertices()));
            }
        }
        std::size_t incidences = 0;
        for (std::uint64_t index = 0; index < grown.numVertices(); ++index) {
            incidences += grown.getAdjacents(index).size();
        }
        EXPECT_EQ(incidences, 2 * grown.numEdges());
        VrexComponentGenerator flat;
        GraphRecorder called;
        VrexDepthFirstSearch().traverse(grown, flat);
        VrexDepthFirstSearch().traverse(grown, called);
        ASSERT_EQ(piecesOf(flat), piecesOf(called)) << round;
    }
}

/// Fixed geometries and all their parts, at every depth.
void addWithParts(const std::shared_ptr<VrexBaseGeometry>& geometry, std::set<std::uint64_t>& ids) {
    ids.insert(geometry->getID());
    for (const auto& part : geometry->getGeometries()) {
        addWithParts(part, ids);
    }
}

TEST(VrexGraphRandom, ComponentsArePartsOfOneWhole) {
    RandomGraphSystems random(14);
    for (int round = 0; round < SYSTEMS / 4; ++round) {
        const GraphSystem system = random.make(scaleOf(random));
        VrexConstraintGraph graph(system.geometries, system.constraints);
        VrexComponentGenerator generator;
        VrexDepthFirstSearch().traverse(graph, generator);
        std::map<std::uint64_t, int> timesGeometry;
        std::map<std::uint64_t, int> timesConstraint;
        std::set<std::uint64_t> fixedByMap;
        std::set<std::uint64_t> shared;
        for (const auto& [id, fixation] : graph.getFixedMap()) {
            fixedByMap.insert(fixation->getID());
            addWithParts(fixation->getGeometries()[0], shared);
        }
        for (const auto& component : generator.getComponents()) {
            for (const auto& geometry : component->getGeometries()) {
                ++timesGeometry[geometry->getID()];
                const auto fixation = graph.getFixedMap().find(geometry->getID());
                if (fixation != graph.getFixedMap().end() && graph.hasGeometry(geometry)) {
                    ASSERT_TRUE(component->hasConstraint(fixation->second));
                    std::set<std::uint64_t> parts;
                    addWithParts(geometry, parts);
                    const auto held = idsOf(component->getGeometries());
                    const std::set<std::uint64_t> ids(held.begin(), held.end());
                    ASSERT_TRUE(std::includes(ids.begin(), ids.end(), parts.begin(), parts.end()));
                }
            }
            for (const auto& constraint : component->getConstraints()) {
                ++timesConstraint[constraint->getID()];
            }
        }
        for (const auto& geometry : graph.getGeometries()) {
            ASSERT_GE(timesGeometry[geometry->getID()], 1) << round;
            ASSERT_TRUE(timesGeometry[geometry->getID()] == 1 || shared.contains(geometry->getID())) << round;
        }
        for (const auto& constraint : graph.getConstraints()) {
            if (!fixedByMap.contains(constraint->getID())) {
                ASSERT_EQ(timesConstraint[constraint->getID()], 1) << round;
            }
        }
    }
}

using Sets = std::set<std::pair<std::set<std::uint64_t>, std::set<std::uint64_t>>>;

std::vector<std::pair<std::set<std::uint64_t>, std::set<std::uint64_t>>>
setsOf(const VrexComponentGenerator& generator) {
    std::vector<std::pair<std::set<std::uint64_t>, std::set<std::uint64_t>>> sets;
    for (const GraphPiece& piece : piecesOf(generator)) {
        sets.push_back({{piece.geometries.begin(), piece.geometries.end()},
                        {piece.constraints.begin(), piece.constraints.end()}});
    }
    return sets;
}

TEST(VrexGraphRandom, BothSearchesFindTheSameComponentsInTheSameOrder) {
    RandomGraphSystems random(15);
    for (int round = 0; round < SYSTEMS / 4; ++round) {
        const GraphSystem system = random.make(scaleOf(random));
        VrexConstraintGraph graph(system.geometries, system.constraints);
        VrexComponentGenerator depth;
        VrexComponentGenerator breadth;
        VrexDepthFirstSearch().traverse(graph, depth);
        VrexBroadFirstSearch().traverse(graph, breadth);
        ASSERT_EQ(setsOf(depth), setsOf(breadth)) << round;
    }
}

/// The components that hold more than fixed geometries, their parts and the fixations of the map.
Sets movableSets(const GraphSystem& system) {
    VrexConstraintGraph graph(system.geometries, system.constraints);
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    std::set<std::uint64_t> fixed;
    for (const auto& [id, fixation] : graph.getFixedMap()) {
        addWithParts(fixation->getGeometries()[0], fixed);
        fixed.insert(fixation->getID());
    }
    Sets sets;
    for (const auto& set : setsOf(generator)) {
        std::set<std::uint64_t> ids = set.first;
        ids.insert(set.second.begin(), set.second.end());
        if (!std::includes(fixed.begin(), fixed.end(), ids.begin(), ids.end())) {
            sets.insert(set);
        }
    }
    return sets;
}

TEST(VrexGraphRandom, OrderOfTheListsDoesNotMatterToWhatCanMove) {
    RandomGraphSystems random(16);
    for (int round = 0; round < SYSTEMS / 4; ++round) {
        GraphSystem system = random.make(scaleOf(random), true);
        std::set<std::uint64_t> held; // one fixation a geometry
        std::erase_if(system.constraints, [&](const auto& constraint) {
            return constraint->isCompleteFixed() &&
                   !held.insert(constraint->getGeometries()[0]->getID()).second;
        });
        const Sets before = movableSets(system);
        random.shuffle(system);
        ASSERT_EQ(movableSets(system), before) << round;
    }
}

TEST(VrexGraphRandom, EachFreeVertexIsDiscoveredAndFinishedOnce) {
    RandomGraphSystems random(17);
    for (int round = 0; round < 2000; ++round) {
        const GraphSystem system = random.make(scaleOf(random));
        VrexConstraintGraph graph(system.geometries, system.constraints);
        GraphRecorder recorder;
        makeWalk(round % 2 == 0)->traverse(graph, recorder);
        std::map<std::string_view, int> calls;
        std::map<std::pair<std::string_view, std::uint64_t>, int> callsAt;
        for (const GraphStep& step : recorder.steps()) {
            ++calls[step.what];
            ++callsAt[{step.what, step.first}];
        }
        ASSERT_EQ(calls["examine"], calls["finishEdge"]);
        for (std::uint64_t index = 0; index < graph.numVertices(); ++index) {
            const std::uint64_t id = graph[index]->getID();
            const bool isFixed = graph.getFixedMap().contains(id);
            const bool isMet = callsAt[{"discover", id}] > 0; // parts of fixed geometries may not be
            ASSERT_EQ((callsAt[{"finish", id}]), !isFixed && isMet ? 1 : 0) << round;
            ASSERT_TRUE(isFixed || callsAt[std::make_pair(std::string_view("discover"), id)] <= 1) << round;
        }
    }
}

} // namespace
