#include "data/graph/VrexGraphTraverser.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/graph/VrexBroadFirstSearch.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "data/graph/VrexGeometryVertex.h"
#include "support/GraphRecorder.h"
#include "support/GraphSystems.h"
#include "support/LogCapture.h"

namespace {

using Color = VrexGraphVertexColor;
using Pieces = std::vector<GraphPiece>;
using Steps = std::vector<GraphStep>;
using nsGraphPieces::piecesOf;

/// Two points, and a constraint that joins them.
struct Pair {
    std::shared_ptr<PartedGeometry> first = PartedGeometry::create(1);
    std::shared_ptr<PartedGeometry> second = PartedGeometry::create(2);
    std::shared_ptr<LooseConstraint> constraint = LooseConstraint::create(3, {first, second});

    VrexConstraintGraph graph() const { return {{first, second}, {constraint}}; }
};

TEST(VrexDepthFirstSearch, StepsAreThoseOfARecursion) {
    VrexConstraintGraph graph = Pair().graph();
    GraphRecorder recorder;
    VrexDepthFirstSearch().traverse(graph, recorder);
    EXPECT_EQ(recorder.steps(), (Steps{{"initialize", 1},
                                       {"initialize", 2},
                                       {"initialize", 3},
                                       {"start", 3},
                                       {"discover", 3},
                                       {"examine", 1, 3},
                                       {"discover", 1},
                                       {"examine", 1, 3},
                                       {"finishEdge", 1, 3},
                                       {"finish", 1},
                                       {"finishEdge", 1, 3},
                                       {"examine", 2, 3},
                                       {"discover", 2},
                                       {"examine", 2, 3},
                                       {"finishEdge", 2, 3},
                                       {"finish", 2},
                                       {"finishEdge", 2, 3},
                                       {"finish", 3}}));
}

TEST(VrexBroadFirstSearch, NeighboursAreDiscoveredAfterTheirVertexIsFinished) {
    VrexConstraintGraph graph = Pair().graph();
    GraphRecorder recorder;
    VrexBroadFirstSearch walk;
    walk.traverse(graph, recorder);
    EXPECT_EQ(recorder.steps(), (Steps{{"initialize", 1},
                                       {"initialize", 2},
                                       {"initialize", 3},
                                       {"start", 3},
                                       {"discover", 3},
                                       {"examine", 1, 3},
                                       {"finishEdge", 1, 3},
                                       {"examine", 2, 3},
                                       {"finishEdge", 2, 3},
                                       {"finish", 3},
                                       {"discover", 1},
                                       {"examine", 1, 3},
                                       {"finishEdge", 1, 3},
                                       {"finish", 1},
                                       {"discover", 2},
                                       {"examine", 2, 3},
                                       {"finishEdge", 2, 3},
                                       {"finish", 2}}));
    EXPECT_EQ(recorder.vertexColor(3), Color::Gray); // from black, by its neighbours
    EXPECT_EQ(recorder.vertexColor(2), Color::Black);
}

TEST(VrexDepthFirstSearch, StopInDiscoveryEndsTheWalkAtItsNextTest) {
    VrexConstraintGraph graph = Pair().graph();
    GraphRecorder recorder(7); // the discovery of vertex 1
    VrexDepthFirstSearch().traverse(graph, recorder);
    EXPECT_EQ(Steps(recorder.steps().begin() + 6, recorder.steps().end()),
              (Steps{{"discover", 1}, {"finishEdge", 1, 3}}));
}

TEST(VrexDepthFirstSearch, FrameWithoutFurtherEdgeFinishesAfterAStop) {
    Pair pair;
    pair.constraint->geometries.pop_back();
    VrexConstraintGraph graph = pair.graph();
    GraphRecorder recorder(7);
    VrexDepthFirstSearch().traverse(graph, recorder);
    EXPECT_EQ(Steps(recorder.steps().begin() + 6, recorder.steps().end()),
              (Steps{{"discover", 1}, {"finishEdge", 1, 3}, {"finish", 3}}));
    EXPECT_EQ(recorder.getComponents().size(), 1U); // no further seed
}

TEST(VrexGraphTraverser, StopInStartStillDiscoversDepthFirstOnly) {
    const auto stepsBehindStart = [](VrexGraphTraverser&& walk) {
        VrexConstraintGraph graph = Pair().graph();
        GraphRecorder recorder(4);
        walk.traverse(graph, recorder);
        return Steps(recorder.steps().begin() + 4, recorder.steps().end());
    };
    EXPECT_EQ(stepsBehindStart(VrexDepthFirstSearch()), (Steps{{"discover", 3}}));
    EXPECT_EQ(stepsBehindStart(VrexBroadFirstSearch()), Steps());
}

/// Stops at once.
class Stopper : public VrexComponentGenerator {
public:
    void initializeVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>&) override { stop(); }
};

TEST(VrexGraphTraverser, GeneratorThatWasStoppedBeforeWalksNothing) {
    VrexConstraintGraph graph = Pair().graph();
    Stopper stopper;
    VrexDepthFirstSearch().traverse(graph, stopper);
    VrexComponentGenerator generator(stopper);
    VrexDepthFirstSearch().traverse(graph, generator);
    EXPECT_TRUE(generator.isStopped());
    EXPECT_TRUE(generator.getComponents().empty());
}

/// Does not colour fixed geometries.
class Watcher : public VrexGraphVisitor {
public:
    void discoverVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>& vertex) override {
        met.push_back(vertex->getID());
    }
    std::vector<std::uint64_t> met;
};

TEST(VrexBroadFirstSearch, FixedSeedConductsUnlessTheVisitorColoursIt) {
    const auto part = PartedGeometry::create(2);
    const auto set = PartedGeometry::create(1, {part});
    VrexConstraintGraph graph({set, part}, {LooseConstraint::fix(3, set)});
    Watcher breadth;
    VrexBroadFirstSearch().traverse(graph, breadth);
    EXPECT_EQ(breadth.met, (std::vector<std::uint64_t>{1, 2}));
    Watcher depth;
    VrexDepthFirstSearch().traverse(graph, depth); // two seeds: the set keeps its colour, the part meets it
    EXPECT_EQ(depth.met, (std::vector<std::uint64_t>{1, 2, 1}));
}

TEST(VrexGraphVisitor, WithoutColoursReadsWhiteAndWritesNothing) {
    VrexGraphVisitor visitor;
    visitor.setFixGeometryColor(1, Color::Black);
    EXPECT_EQ(visitor.vertexColor(1), Color::White);
    EXPECT_FALSE(visitor.isStopped());
    VrexGraphColorMap colors;
    visitor.setColorMap(&colors);
    EXPECT_EQ(visitor.vertexColor(1), Color::White);
    EXPECT_TRUE(colors.contains(1));
    visitor.setFixGeometryColor(2, Color::PartOfFixed);
    EXPECT_EQ(colors.at(2), Color::PartOfFixed);
}

TEST(VrexGraphTraverser, ColoursOfAFormerGraphAreForgotten) {
    Pair pair;
    VrexConstraintGraph first = pair.graph();
    VrexConstraintGraph second({PartedGeometry::create(9)}, {});
    for (const bool isByIndex : {true, false}) {
        VrexDepthFirstSearch walk;
        VrexComponentGenerator generator;
        GraphRecorder recorder;
        VrexComponentGenerator& visitor = isByIndex ? generator : recorder;
        walk.traverse(first, visitor);
        EXPECT_EQ(visitor.vertexColor(1), Color::Black);
        walk.traverse(second, visitor);
        EXPECT_EQ(visitor.vertexColor(1), Color::White);
        EXPECT_EQ(visitor.vertexColor(9), Color::Black);
    }
}

TEST(VrexGraphTraverser, SearchBehindAWalkGoesOnFromItsColours) {
    VrexConstraintGraph graph = Pair().graph();
    std::shared_ptr<VrexVertex> vertex = graph[2];
    const auto metBehindAWalk = [&](auto walk) {
        VrexComponentGenerator generator;
        walk.traverse(graph, generator);
        auto copy = walk;
        Watcher watcher;
        copy.search(graph, vertex, watcher);
        walk.search(graph, vertex, watcher);
        return watcher.met;
    };
    // All neighbours were visited.
    EXPECT_EQ(metBehindAWalk(VrexDepthFirstSearch()), (std::vector<std::uint64_t>{3, 3}));
    EXPECT_EQ(metBehindAWalk(VrexBroadFirstSearch()), (std::vector<std::uint64_t>{3, 3}));
}

TEST(VrexGraphTraverser, SearchWithoutAWalkBeforeFindsAllThatIsReached) {
    VrexConstraintGraph graph = Pair().graph();
    std::shared_ptr<VrexVertex> vertex = graph[0];
    Watcher watcher;
    VrexDepthFirstSearch().search(graph, vertex, watcher);
    EXPECT_EQ(watcher.met, (std::vector<std::uint64_t>{1, 3, 2}));
}

TEST(VrexGraphTraverser, SearchFromNullVisitsNothing) {
    VrexConstraintGraph graph = Pair().graph();
    std::shared_ptr<VrexVertex> none;
    GraphRecorder recorder;
    VrexDepthFirstSearch().search(graph, none, recorder);
    VrexBroadFirstSearch().search(graph, none, recorder);
    EXPECT_EQ(recorder.steps(), Steps());
}

/// Colours the last vertex as finished before that is initialized; without effect while there are no colours.
class Meddler : public Watcher {
public:
    void initializeVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>& vertex) override {
        if (vertex->getID() == 1) {
            setFixGeometryColor(3, Color::Black);
        }
    }
};

TEST(VrexGraphTraverser, ColourOfAVertexIsSetWhenItIsInitialized) {
    VrexConstraintGraph graph = Pair().graph();
    VrexDepthFirstSearch walk;
    Meddler meddler;
    walk.traverse(graph, meddler);
    walk.traverse(graph, meddler); // with the colours of the walk before, as long as these are set anew
    EXPECT_EQ(meddler.met, (std::vector<std::uint64_t>{3, 1, 2, 3, 1, 2}));
}

TEST(VrexGraphTraverser, ObjectThatChangedItsIdentifierIsNotFound) {
    Pair pair;
    VrexConstraintGraph graph = pair.graph();
    pair.second->setID(77);
    VrexComponentGenerator generator;
    EXPECT_THROW(VrexDepthFirstSearch().traverse(graph, generator), std::out_of_range);
    EXPECT_THROW(VrexBroadFirstSearch().traverse(graph, generator), std::out_of_range);
}

TEST(VrexGraphTraverser, WalkThatCannotGoOnLeavesFormerComponents) {
    Pair pair;
    VrexConstraintGraph graph = pair.graph();
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    const auto former = generator.getComponents();
    pair.second->setID(77);
    EXPECT_THROW(VrexDepthFirstSearch().traverse(graph, generator), std::out_of_range);
    ASSERT_EQ(generator.getComponents().size(), 2U);
    EXPECT_EQ(generator.getComponents()[0], former[0]);
    EXPECT_EQ(piecesOf(generator)[1], (GraphPiece{{1, 77}, {3}})); // as far as it came
}

TEST(VrexGraphTraverser, PartWithAnIdentifierOfLaterIsColouredByIt) {
    const auto part = PartedGeometry::create(2);
    const auto set = PartedGeometry::create(1, {part});
    for (const bool isByIndex : {true, false}) {
        part->setID(2);
        VrexConstraintGraph graph({set, part}, {LooseConstraint::fix(3, set)});
        part->setID(77);
        VrexDepthFirstSearch walk;
        VrexComponentGenerator generator;
        GraphRecorder recorder;
        VrexComponentGenerator& visitor = isByIndex ? generator : recorder;
        walk.traverse(graph, visitor);
        EXPECT_EQ(piecesOf(visitor), (Pieces{{{1, 77}, {3}}}));
        EXPECT_EQ(visitor.vertexColor(77), Color::PartOfFixed);
        EXPECT_EQ(visitor.vertexColor(2), Color::White);
    }
}

TEST(VrexGraphTraverser, SharedIdentifierSharesItsColourWithOneAdvice) {
    const auto geometry = PartedGeometry::create(1);
    VrexConstraintGraph graph({geometry, PartedGeometry::create(1)}, {LooseConstraint::create(1, {})});
    VrexComponentGenerator generator;
    const LogCapture log(2);
    VrexDepthFirstSearch().traverse(graph, generator);
    EXPECT_EQ(piecesOf(generator), (Pieces{{{}, {1}}})); // the geometries are taken for visited
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
}

TEST(VrexGraphTraverser, SameObjectTwiceIsWalkedOnceWithoutAdvice) {
    const auto geometry = PartedGeometry::create(1);
    VrexConstraintGraph graph({geometry, geometry}, {});
    VrexComponentGenerator generator;
    const LogCapture log(2);
    VrexDepthFirstSearch().traverse(graph, generator);
    EXPECT_EQ(piecesOf(generator), (Pieces{{{1}, {}}}));
    EXPECT_TRUE(log.lines().empty());
}

TEST(VrexGraphTraverser, WalkFollowsListsAsCallersLeftThem) {
    Pair pair;
    VrexConstraintGraph graph = pair.graph();
    graph.getAdjacents(2).pop_back(); // from the constraint to the second point
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    EXPECT_EQ(piecesOf(generator), (Pieces{{{1}, {3}}, {{2}, {}}}));
}

TEST(VrexGraphTraverser, WalkFollowsVerticesAsCallersLeftThem) {
    Pair pair;
    VrexConstraintGraph graph = pair.graph();
    graph[1] = std::make_shared<VrexGeometryVertex>(PartedGeometry::create(50));
    VrexComponentGenerator generator;
    EXPECT_THROW(VrexDepthFirstSearch().traverse(graph, generator), std::out_of_range);
    graph[1] = nullptr;
    VrexComponentGenerator other;
    VrexDepthFirstSearch().traverse(graph, other);
    EXPECT_EQ(piecesOf(other), (Pieces{{{1, 2}, {3}}}));
}

/// Adds a constraint at each point that it meets for the first time.
class Adder : public Watcher {
public:
    void examineEdge(VrexConstraintGraph& graph, VrexEdge& edge) override {
        if (graph.numVertices() < 300) {
            const auto geometry = edge.getFirst()->getGeometryPtr();
            graph.addVertex(LooseConstraint::create(1000 + graph.numVertices(), {geometry}));
        }
    }
};

TEST(VrexGraphTraverser, VisitorMayAddToTheGraph) {
    for (const bool isDepthFirst : {true, false}) {
        VrexConstraintGraph graph = Pair().graph();
        Adder adder;
        if (isDepthFirst) {
            VrexDepthFirstSearch().traverse(graph, adder);
        } else {
            VrexBroadFirstSearch().traverse(graph, adder);
        }
        EXPECT_EQ(graph.numVertices(), 300U);
        EXPECT_EQ(adder.met.size(), 300U);
    }
}

/// Has the traverser walk once more where it meets the first vertex.
class Nester : public Watcher {
public:
    explicit Nester(VrexGraphTraverser& walk) : m_walk(walk) {}
    void discoverVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex) override {
        Watcher::discoverVertex(graph, vertex);
        if (met.size() == 1) {
            m_walk.traverse(graph, inner);
        }
    }
    VrexComponentGenerator inner;

private:
    VrexGraphTraverser& m_walk;
};

TEST(VrexGraphTraverser, WalkWithinAWalkLeavesItsColours) {
    VrexConstraintGraph graph = Pair().graph();
    VrexDepthFirstSearch walk;
    for (int round = 0; round < 2; ++round) {
        Nester nester(walk);
        walk.traverse(graph, nester);
        EXPECT_EQ(nester.met, std::vector<std::uint64_t>{3}); // all others were visited
        EXPECT_EQ(piecesOf(nester.inner), (Pieces{{{1, 2}, {3}}}));
    }
}

/// Clears the graph when it examines, or finishes, an edge.
class Clearer : public Watcher {
public:
    explicit Clearer(bool isLate) : m_isLate(isLate) {}
    void examineEdge(VrexConstraintGraph& graph, VrexEdge&) override { m_isLate ? void() : graph.clear(); }
    void finishEdge(VrexConstraintGraph& graph, VrexEdge&) override { graph.clear(); }

private:
    bool m_isLate;
};

TEST(VrexGraphTraverser, WalkEndsWhereAVisitorClearsTheGraph) {
    const auto metUntil = [](bool isLate, VrexGraphTraverser&& walk) {
        VrexConstraintGraph graph = Pair().graph();
        Clearer clearer(isLate);
        walk.traverse(graph, clearer);
        EXPECT_EQ(graph.numVertices(), 0U);
        return clearer.met;
    };
    EXPECT_EQ(metUntil(false, VrexDepthFirstSearch()), (std::vector<std::uint64_t>{3}));
    EXPECT_EQ(metUntil(false, VrexBroadFirstSearch()), (std::vector<std::uint64_t>{3}));
    EXPECT_EQ(metUntil(true, VrexDepthFirstSearch()), (std::vector<std::uint64_t>{3, 1}));
    // A neighbour is queued already, which the graph no longer knows.
    EXPECT_THROW(metUntil(true, VrexBroadFirstSearch()), std::out_of_range);
}

TEST(VrexGraphTraverser, TimeIsADiagnostic) {
    VrexConstraintGraph graph = Pair().graph();
    const LogCapture log;
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 4U);
    EXPECT_EQ(log.lines()[0].text.rfind("VrexGraphTraverser::traverse: ", 0), 0U);
}

} // namespace
