#include "data/graph/VrexConstraintGraph.h"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/graph/VrexConstraintVertex.h"
#include "data/graph/VrexGeometryVertex.h"
#include "support/GraphRecorder.h"
#include "support/GraphSystems.h"
#include "support/LogCapture.h"

namespace {

using Geometry = std::shared_ptr<VrexBaseGeometry>;
using Constraint = std::shared_ptr<VrexBaseConstraint>;
using Ids = std::vector<std::uint64_t>;
using nsGraphPieces::idsOf;

constexpr std::uint64_t ALL_ONES = ~std::uint64_t(0);

/// Reaches a private member of a class by its address, which an explicit instantiation may name.
template <auto RELATED_MAP, auto IS_RELATED>
struct Opened {
    friend const auto& relatedMapOf(const VrexConstraintGraph& graph) { return graph.*RELATED_MAP; }
    friend bool isRelated(const VrexConstraintGraph& graph, std::uint64_t id) {
        return (graph.*IS_RELATED)(id);
    }
};
const auto& relatedMapOf(const VrexConstraintGraph& graph);
bool isRelated(const VrexConstraintGraph& graph, std::uint64_t id);
template struct Opened<&VrexConstraintGraph::m_relatedMap, &VrexConstraintGraph::isRelated>;

template <class Object>
std::shared_ptr<Object> numbered(std::shared_ptr<Object> object, std::uint64_t id) {
    object->setID(id);
    return object;
}

std::shared_ptr<VrexPoint3D> pointOf(std::uint64_t id) {
    return numbered(VrexPoint3D::create(0.0, 0.0, 0.0), id);
}

std::shared_ptr<VrexFixation3D> fixationOf(std::uint64_t id,
                                           const std::shared_ptr<VrexGeometry3D>& geometry) {
    return numbered(VrexFixation3D::create(geometry, VrexFixation3DType::Complete3D), id);
}

std::shared_ptr<VrexVertex> vertexOf(const Geometry& geometry) {
    return std::make_shared<VrexGeometryVertex>(geometry);
}

Ids vertexIDs(const VrexConstraintGraph& graph) {
    Ids ids;
    for (std::uint64_t index = 0; index < graph.numVertices(); ++index) {
        ids.push_back(graph[index]->getID());
    }
    return ids;
}

TEST(VrexConstraintGraph, CompleteFixationGetsNoVertex) {
    const auto first = pointOf(1);
    const auto second = pointOf(2);
    const auto fixation = fixationOf(3, first);
    VrexConstraintGraph graph({first, second}, {fixation});
    EXPECT_EQ(graph.numVertices(), 2U);
    EXPECT_EQ(graph.getFixedMap(), (VrexConstraintGraph::FixedMap{{1, fixation}}));
    EXPECT_TRUE(graph.getConstraints().empty());
    EXPECT_FALSE(graph.hasConstraint(fixation));
}

TEST(VrexConstraintGraph, SecondCompleteFixationIsAVertex) {
    const auto point = pointOf(1);
    const auto first = fixationOf(3, point);
    const auto second = fixationOf(2, point);
    VrexConstraintGraph graph({point}, {first, second});
    EXPECT_EQ(graph.getFixedMap(), (VrexConstraintGraph::FixedMap{{1, first}}));
    EXPECT_EQ(graph.getConstraints(), std::vector<Constraint>{second});
    EXPECT_EQ(graph.getAdjacentConstraints(point), std::vector<Constraint>{second});
    EXPECT_EQ(graph.getAdjacentGeometries(second), std::vector<Geometry>{point});
}

TEST(VrexConstraintGraph, FixationOfAPatternIsAVertex) {
    const auto pattern = numbered(VrexPattern3D::create(VrexPattern3DType{0}, nullptr, 1.0), 1);
    const auto fixation = fixationOf(2, pattern);
    VrexConstraintGraph graph({pattern}, {fixation});
    EXPECT_TRUE(graph.getFixedMap().empty());
    EXPECT_EQ(vertexIDs(graph), (Ids{1, 2}));
    EXPECT_EQ(graph.getAdjacentConstraints(pattern), std::vector<Constraint>{fixation});
}

TEST(VrexConstraintGraph, UnlistedGeometryComesLast) {
    const auto listed = pointOf(1);
    const auto unlisted = pointOf(2);
    const auto distance =
        numbered(VrexDistance3D::create(listed, unlisted, 1.0, VrexGeometryComponentType::UNKNOWN,
                                        VrexGeometryComponentType::UNKNOWN),
                 3);
    VrexConstraintGraph graph({listed}, {distance});
    EXPECT_EQ(vertexIDs(graph), (Ids{1, 3, 2}));
    EXPECT_EQ(graph.numEdges(), 2U);
}

TEST(VrexConstraintGraph, UnlistedGeometryFixedTwicePullsItsFirstFixationIn) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint first = LooseConstraint::fix(2, geometry);
    const Constraint second = LooseConstraint::fix(3, geometry);
    VrexConstraintGraph graph({}, {first, second});
    EXPECT_EQ(vertexIDs(graph), (Ids{3, 1, 2}));
    EXPECT_EQ(graph.getAdjacentConstraints(geometry), (std::vector<Constraint>{first, second}));
}

TEST(VrexConstraintGraph, FixationOfAnUnlistedGeometryStaysInTheMap) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint fixation = LooseConstraint::fix(2, geometry);
    VrexConstraintGraph graph({}, {fixation});
    EXPECT_EQ(graph.numVertices(), 0U);
    EXPECT_EQ(graph.getFixedMap().size(), 1U);
    graph.addVertex(geometry);
    EXPECT_EQ(vertexIDs(graph), (Ids{1, 2}));
}

TEST(VrexConstraintGraph, MembersOfASetAreJoinedToIt) {
    const auto first = pointOf(1);
    const auto second = pointOf(2);
    const auto set = numbered(VrexRigidSet3D::create({first, second}), 3);
    VrexConstraintGraph graph({first, second, set}, {});
    EXPECT_EQ(graph.numEdges(), 2U);
    EXPECT_EQ(graph.getAdjacents(2).size(), 2U);
    EXPECT_EQ(graph.getAdjacents(0)[0].getSecond()->getGeometryPtr(), set);
    for (const std::uint64_t id : {1U, 2U}) {
        ASSERT_TRUE(isRelated(graph, id));
        EXPECT_EQ(relatedMapOf(graph).at(id)->getGeometryPtr(), set);
    }
    EXPECT_FALSE(isRelated(graph, 3));
}

TEST(VrexConstraintGraph, FirstOwnerWinsAndClearKeepsIt) {
    const Geometry part = PartedGeometry::create(1);
    const Geometry first = PartedGeometry::create(2, {part});
    const Geometry second = PartedGeometry::create(3, {part});
    VrexConstraintGraph graph({first, second}, {});
    EXPECT_EQ(relatedMapOf(graph).at(1)->getGeometryPtr(), first);
    graph.clear();
    EXPECT_TRUE(isRelated(graph, 1));
    EXPECT_EQ(graph.numVertices(), 0U);
    EXPECT_EQ(graph.numEdges(), 0U);
    EXPECT_FALSE(graph.hasGeometry(part));
    EXPECT_TRUE(graph.getAdjacents(0).empty());
}

TEST(VrexConstraintGraph, UnknownObjectHasNoIndexAndNoList) {
    VrexConstraintGraph graph({PartedGeometry::create(1)}, {});
    const auto unknown = vertexOf(PartedGeometry::create(2));
    EXPECT_EQ(graph.getIndex(unknown), ALL_ONES);
    EXPECT_EQ(graph.getIndex(std::make_shared<VrexConstraintVertex>(LooseConstraint::create(1, {}))),
              ALL_ONES);
    EXPECT_EQ(graph.getIndex(nullptr), ALL_ONES);
    EXPECT_EQ(graph.getIndex(vertexOf(nullptr)), ALL_ONES);
    try {
        graph.getAdjacents(unknown);
        FAIL();
    } catch (const std::out_of_range& failure) {
        EXPECT_STREQ(failure.what(), "invalid unordered_map<K, T> key");
    }
    EXPECT_TRUE(graph.getAdjacentConstraints(PartedGeometry::create(2)).empty());
    EXPECT_TRUE(graph.getAdjacentGeometries(LooseConstraint::create(2, {})).empty());
}

/// A vertex of a kind that no graph knows.
class StrangeVertex : public VrexVertex {
public:
    VrexVertexType getVertexType() override { return VrexVertexType{7}; }
    std::shared_ptr<VrexBaseGeometry> getGeometryPtr() override { return PartedGeometry::create(1); }
    std::shared_ptr<VrexBaseConstraint> getConstraintPtr() override { return nullptr; }
    std::uint64_t getID() const override { return 1; }
};

TEST(VrexConstraintGraph, VertexOfAStrangeKindHasNoEdges) {
    VrexConstraintGraph graph({PartedGeometry::create(1)}, {});
    const auto strange = std::make_shared<StrangeVertex>();
    graph.addVertex(strange);
    EXPECT_EQ(graph.numVertices(), 1U);
    EXPECT_EQ(graph.getIndex(strange), ALL_ONES);
    const LogCapture log;
    auto& edges = graph.getAdjacents(strange);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
    EXPECT_EQ(log.lines()[0].text, "The VrexVertexType cannot be found");
    edges.emplace_back(strange, strange);
    EXPECT_TRUE(graph.getAdjacents(strange).empty()); // whatever a caller wrote to it
}

TEST(VrexConstraintGraph, ObjectsAreListedRisingByIdentifier) {
    const Geometry first = PartedGeometry::create(30);
    const Geometry second = PartedGeometry::create(20);
    const Geometry third = PartedGeometry::create(10);
    const Constraint late = LooseConstraint::create(50, {first});
    const Constraint early = LooseConstraint::create(40, {first});
    VrexConstraintGraph graph({first, second, third}, {late, early});
    EXPECT_EQ(graph.getGeometries(), (std::vector<Geometry>{third, second, first}));
    EXPECT_EQ(graph.getConstraints(), (std::vector<Constraint>{early, late}));
}

TEST(VrexConstraintGraph, ReplacedVertexIsListedInItsPlace) {
    const Constraint constraint = LooseConstraint::create(2, {});
    const Constraint other = LooseConstraint::create(3, {});
    const Geometry geometry = PartedGeometry::create(4);
    VrexConstraintGraph graph({PartedGeometry::create(1)}, {constraint});
    graph[0] = vertexOf(geometry);
    graph[1] = std::make_shared<VrexConstraintVertex>(other);
    EXPECT_EQ(graph.getGeometries(), std::vector<Geometry>{geometry});
    EXPECT_EQ(graph.getConstraints(), std::vector<Constraint>{other});
    graph[0] = graph[1];
    EXPECT_EQ(graph.getGeometries(), std::vector<Geometry>{nullptr});
}

TEST(VrexConstraintGraph, NeighboursOfTheOtherSortAreNullInPlace) {
    const Geometry part = PartedGeometry::create(1);
    const Geometry set = PartedGeometry::create(2, {part});
    const auto first = LooseConstraint::create(3, {part});
    const auto second = LooseConstraint::create(4, {part});
    second->dependencies = {first};
    VrexConstraintGraph graph({part, set}, {first, second});
    EXPECT_EQ(graph.getAdjacentConstraints(part), (std::vector<Constraint>{nullptr, first, second}));
    EXPECT_EQ(graph.getAdjacentConstraints(set), std::vector<Constraint>{nullptr});
    EXPECT_EQ(graph.getAdjacentGeometries(first), (std::vector<Geometry>{part, nullptr}));
    EXPECT_EQ(graph.getAdjacentGeometries(second), (std::vector<Geometry>{part, nullptr}));
}

TEST(VrexConstraintGraph, EndThatACallerTookAwayIsNullInPlace) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint constraint = LooseConstraint::create(2, {geometry});
    VrexConstraintGraph graph({geometry}, {constraint});
    graph.getAdjacents(0)[0].getSecond() = nullptr;
    graph.getAdjacents(1)[0].getFirst() = nullptr;
    EXPECT_EQ(graph.getAdjacentConstraints(geometry), std::vector<Constraint>{nullptr});
    EXPECT_EQ(graph.getAdjacentGeometries(constraint), std::vector<Geometry>{nullptr});
}

TEST(VrexConstraintGraph, InheritedOperationsAreNotHidden) {
    VrexConstraintGraph graph({PartedGeometry::create(1), PartedGeometry::create(2)}, {});
    graph.addEdge({0, 1});
    EXPECT_EQ(graph.numEdges(), 1U);
    ASSERT_EQ(graph.getAdjacents(0).size(), 1U);
    EXPECT_EQ(graph.getAdjacents(0)[0].getSecond(), graph[1]); // not a vertex of its own
    EXPECT_EQ(graph.getAdjacents(1).size(), 1U);
}

TEST(VrexConstraintGraph, EachEdgeIsAddedAgainAndHasVerticesOfItsOwn) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint constraint = LooseConstraint::create(2, {});
    VrexConstraintGraph graph;
    graph.addEdge(geometry, constraint);
    graph.addEdge(geometry, constraint);
    EXPECT_EQ(graph.numEdges(), 2U);
    EXPECT_EQ(vertexIDs(graph), (Ids{1, 2}));
    const auto& edges = graph.getAdjacents(0);
    ASSERT_EQ(edges.size(), 2U);
    EXPECT_NE(edges[0].getFirst(), edges[1].getFirst());
    EXPECT_NE(edges[0].getFirst(), graph[0]);
    const auto& others = graph.getAdjacents(1);
    EXPECT_EQ(others[0].getFirst(), edges[0].getFirst()); // one edge in two lists
    EXPECT_EQ(others[1].getSecond(), edges[1].getSecond());
}

TEST(VrexConstraintGraph, ListsThatWereSeenGrow) {
    const Geometry first = PartedGeometry::create(1);
    const Geometry second = PartedGeometry::create(2);
    VrexConstraintGraph graph({first, second}, {});
    auto& edges = graph.getAdjacents(0);
    graph.addEdge(first, second);
    graph.addEdge(first, first);
    ASSERT_EQ(edges.size(), 3U);
    EXPECT_EQ(edges[1].getFirst(), edges[2].getFirst());
    ASSERT_EQ(graph.getAdjacents(1).size(), 1U);
    EXPECT_EQ(graph.getAdjacents(1)[0].getFirst(), edges[0].getFirst());
}

TEST(VrexConstraintGraph, VertexHandedInIsWrappedAnew) {
    const Geometry geometry = PartedGeometry::create(1);
    const auto vertex = vertexOf(geometry);
    VrexConstraintGraph graph;
    graph.addVertex(vertex);
    graph.addVertex(vertex);
    graph.addVertex(std::make_shared<VrexConstraintVertex>(LooseConstraint::create(2, {geometry})));
    EXPECT_EQ(vertexIDs(graph), (Ids{1, 2}));
    EXPECT_NE(graph[0], vertex);
    EXPECT_EQ(graph[0]->getGeometryPtr(), geometry);
    EXPECT_EQ(graph.getIndex(vertex), 0U);
}

TEST(VrexConstraintGraph, EdgeOfTwoGeometriesIsCountedAndNotAdded) {
    const Geometry geometry = PartedGeometry::create(1);
    VrexConstraintGraph graph;
    const LogCapture log;
    graph.addEdge(VrexEdge(geometry, geometry));
    graph.addEdge(geometry, Geometry());
    graph.addEdge(Constraint(), LooseConstraint::create(2, {}));
    EXPECT_EQ(graph.numEdges(), 3U);
    EXPECT_EQ(graph.numVertices(), 0U);
    ASSERT_EQ(log.lines().size(), 3U);
    EXPECT_EQ(log.lines()[2].level, 1U);
    graph.addEdge(VrexEdge(geometry, LooseConstraint::create(2, {})));
    EXPECT_EQ(graph.numVertices(), 2U);
}

TEST(VrexConstraintGraph, NullsArePassedOver) {
    const Geometry geometry = PartedGeometry::create(1, {nullptr});
    const auto constraint = LooseConstraint::create(2, {nullptr, geometry});
    constraint->dependencies = {nullptr};
    const LogCapture log(2);
    VrexConstraintGraph graph({nullptr, geometry}, {nullptr, constraint, LooseConstraint::fix(3, nullptr)});
    EXPECT_EQ(vertexIDs(graph), (Ids{1, 2}));
    EXPECT_EQ(graph.numEdges(), 1U);
    ASSERT_EQ(log.lines().size(), 1U); // the fixation of nothing
    EXPECT_EQ(log.lines()[0].level, 1U);
    graph.addVertex(Geometry());
    graph.addVertex(Constraint());
    graph.addVertex(std::shared_ptr<VrexVertex>());
    EXPECT_FALSE(graph.hasGeometry(nullptr));
    EXPECT_FALSE(graph.hasConstraint(nullptr));
    EXPECT_EQ(graph.numVertices(), 2U);
}

TEST(VrexConstraintGraph, SameIdentifierTwiceFindsTheLater) {
    const Geometry first = PartedGeometry::create(1);
    const Geometry second = PartedGeometry::create(1);
    const Constraint constraint = LooseConstraint::create(2, {first});
    VrexConstraintGraph graph({first, second, second}, {constraint});
    EXPECT_EQ(graph.numVertices(), 4U);
    EXPECT_EQ(graph.getIndex(vertexOf(first)), 2U);
    EXPECT_EQ(graph.getGeometries(), std::vector<Geometry>{second});
    EXPECT_TRUE(graph.getAdjacents(0).empty());
    ASSERT_EQ(graph.getAdjacents(2).size(), 1U);
    EXPECT_EQ(graph.getAdjacents(2)[0].getFirst()->getGeometryPtr(), first); // the edge's own object
}

TEST(VrexConstraintGraph, EdgesOfOneIdentifierBelongToTheLatestConstraint) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint first = LooseConstraint::create(2, {geometry});
    const Constraint second = LooseConstraint::create(2, {geometry});
    VrexConstraintGraph graph({geometry}, {first, second});
    EXPECT_EQ(graph.numEdges(), 2U);
    EXPECT_EQ(graph.getAdjacentConstraints(geometry), (std::vector<Constraint>{first, second}));
    EXPECT_TRUE(graph.getAdjacents(1).empty());
    ASSERT_EQ(graph.getAdjacents(2).size(), 2U);
    EXPECT_EQ(graph.getAdjacents(2)[0].getSecond()->getConstraintPtr(), first);
    EXPECT_EQ(graph.getAdjacents(2)[1].getSecond()->getConstraintPtr(), second);
}

TEST(VrexConstraintGraph, NamesakesOfBothKindsAreFoundByTheLatestOfEach) {
    VrexConstraintGraph graph;
    EXPECT_FALSE(graph.hasGeometry(PartedGeometry::create(0)));
    std::vector<Geometry> geometries;
    std::vector<Constraint> constraints;
    for (int i = 0; i < 3; ++i) {
        geometries.push_back(PartedGeometry::create(0));
        constraints.push_back(LooseConstraint::create(0, {}));
    }
    const auto ofConstraint = std::make_shared<VrexConstraintVertex>(constraints[0]);
    graph = VrexConstraintGraph(geometries, {});
    EXPECT_EQ(graph.getIndex(vertexOf(geometries[0])), 2U);
    EXPECT_EQ(graph.getIndex(ofConstraint), ALL_ONES);
    graph = VrexConstraintGraph(geometries, constraints);
    EXPECT_EQ(graph.getIndex(vertexOf(geometries[0])), 2U);
    EXPECT_EQ(graph.getIndex(ofConstraint), 5U);
    const VrexConstraintGraph copy(graph);
    EXPECT_TRUE(copy.hasGeometry(geometries[1]));
    EXPECT_TRUE(copy.hasConstraint(constraints[1]));
    EXPECT_EQ(graph.getGeometries(), std::vector<Geometry>{geometries[2]});
    EXPECT_EQ(graph.getConstraints(), std::vector<Constraint>{constraints[2]});
    graph.clear();
    EXPECT_FALSE(graph.hasGeometry(geometries[0]));
    EXPECT_FALSE(graph.hasConstraint(constraints[0]));
}

TEST(VrexConstraintGraph, ListAskedForBeforeItsVertexCameGetsItsEdges) {
    const Geometry geometry = PartedGeometry::create(1);
    VrexConstraintGraph graph;
    const auto& edges = graph.getAdjacents(1);
    EXPECT_TRUE(edges.empty());
    graph.addEdge(geometry, LooseConstraint::create(2, {}));
    ASSERT_EQ(edges.size(), 1U);
    EXPECT_EQ(edges[0].getFirst()->getGeometryPtr(), geometry);
    EXPECT_EQ(&graph.getAdjacents(1), &edges);
    ASSERT_EQ(graph.getAdjacents(0).size(), 1U);
    EXPECT_EQ(graph.getAdjacents(0)[0].getFirst(), edges[0].getFirst()); // one edge in two lists
}

TEST(VrexConstraintGraph, MovingLeavesListsInPlaceAndNothingBehind) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint constraint = LooseConstraint::create(2, {geometry});
    VrexConstraintGraph graph({geometry}, {constraint});
    const auto& edges = graph.getAdjacents(0);
    VrexConstraintGraph moved(std::move(graph));
    moved.addEdge(geometry, constraint);
    EXPECT_EQ(edges.size(), 2U);
    VrexConstraintGraph assigned({PartedGeometry::create(9)}, {});
    assigned.getAdjacents(0);
    assigned = std::move(moved);
    assigned.addEdge(geometry, constraint);
    EXPECT_EQ(edges.size(), 3U);
    EXPECT_EQ(assigned.numVertices(), 2U);
    EXPECT_EQ(graph.numVertices(), 0U); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(moved.numVertices(), 0U); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(moved.getAdjacents(0).empty());
}

TEST(VrexConstraintGraph, MovedFromGraphStartsAnew) {
    const Geometry geometry = PartedGeometry::create(1);
    VrexConstraintGraph graph({geometry}, {LooseConstraint::create(2, {geometry})});
    EXPECT_EQ(graph.getAdjacents(0).size(), 1U);
    VrexConstraintGraph moved(std::move(graph));
    EXPECT_EQ(graph.numEdges(), 0U);            // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(graph.getAdjacents(0).empty()); // NOLINT(bugprone-use-after-move)
    graph.addEdge(geometry, LooseConstraint::create(3, {}));
    EXPECT_EQ(graph.numEdges(), 1U);
    EXPECT_EQ(graph.getAdjacents(0).size(), 1U);
    EXPECT_EQ(moved.getAdjacents(0).size(), 1U);
    EXPECT_EQ(moved.numEdges(), 1U);
}

TEST(VrexConstraintGraph, AssignedToItselfItStays) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint constraint = LooseConstraint::create(2, {geometry});
    VrexConstraintGraph graph({geometry}, {constraint});
    VrexConstraintGraph& same = graph;
    graph = same;
    graph = std::move(same);
    EXPECT_EQ(vertexIDs(graph), (Ids{1, 2}));
    EXPECT_EQ(graph.getAdjacentConstraints(geometry), std::vector<Constraint>{constraint});
    EXPECT_TRUE(graph.hasConstraint(constraint));
}

TEST(VrexConstraintGraph, VertexAddedPastTheGraphIsNotMadeUp) {
    VrexConstraintGraph graph({PartedGeometry::create(1)}, {});
    graph.VrexVertexAdjacency::addVertex(nullptr);
    EXPECT_EQ(graph.numVertices(), 2U);
    EXPECT_EQ(graph[1], nullptr);
    EXPECT_EQ(graph[0]->getID(), 1U);
}

TEST(VrexConstraintGraph, EdgeThatIsKeptHoldsItsOwnObjectsAlone) {
    std::shared_ptr<VrexVertex> kept;
    std::vector<std::weak_ptr<VrexBaseConstraint>> constraints;
    {
        const Geometry geometry = PartedGeometry::create(1);
        std::vector<Constraint> all;
        for (std::uint64_t id = 2; id < 5; ++id) {
            all.push_back(LooseConstraint::create(id, {geometry}));
        }
        constraints.assign(all.begin(), all.end());
        VrexConstraintGraph graph({geometry}, all);
        kept = graph.getAdjacents(0)[1].getSecond();
    }
    EXPECT_TRUE(constraints[0].expired());
    EXPECT_EQ(kept->getConstraintPtr(), constraints[1].lock());
    EXPECT_TRUE(constraints[2].expired());
}

TEST(VrexConstraintGraph, CopyStandsByItself) {
    const Geometry first = PartedGeometry::create(1);
    const Constraint constraint = LooseConstraint::create(2, {first});
    VrexConstraintGraph graph({first}, {constraint});
    graph.getAdjacents(0);
    VrexConstraintGraph copy(graph);
    copy.addEdge(first, constraint);
    EXPECT_EQ(graph.getAdjacents(0).size(), 1U);
    EXPECT_EQ(copy.getAdjacents(0).size(), 2U);
    EXPECT_EQ(copy.getAdjacents(1).size(), 2U);
    const VrexConstraintGraph moved(std::move(copy));
    EXPECT_EQ(moved.numVertices(), 2U);
}

} // namespace
