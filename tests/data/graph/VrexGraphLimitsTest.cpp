// Depth, shared parts and rings: what a recursion by the text would not survive.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/graph/VrexBroadFirstSearch.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "support/GraphRecorder.h"
#include "support/GraphSystems.h"
#include "support/SmallStack.h"

namespace {

using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;
using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;

/// A visitor that is not the library's own, so that the walk goes by callbacks.
class Counter : public VrexGraphVisitor {
public:
    void finishVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>&) override { ++finished; }
    std::size_t finished = 0;
};

TEST(VrexGraphLimits, ChainOfAMillionPointsNeedsNoStack) {
    constexpr std::size_t POINTS = 1'000'000;
    Geometries points;
    Constraints distances;
    std::shared_ptr<VrexPoint3D> last;
    for (std::size_t i = 0; i < POINTS; ++i) {
        auto point = VrexPoint3D::create(double(i), 0.0, 0.0);
        point->setID(2 * i + 1);
        if (last != nullptr) {
            distances.push_back(VrexDistance3D::create(last, point, 1.0, VrexGeometryComponentType::UNKNOWN,
                                                       VrexGeometryComponentType::UNKNOWN));
            distances.back()->setID(2 * i + 2);
        }
        points.push_back(point);
        last = point;
    }
    runOnSmallStack([&] {
        VrexConstraintGraph graph(points, distances);
        VrexComponentGenerator generator;
        VrexDepthFirstSearch().traverse(graph, generator);
        ASSERT_EQ(generator.getComponents().size(), 1U);
        EXPECT_EQ(generator.getComponents()[0]->getScale(), 2 * POINTS - 1);
        Counter counter;
        VrexDepthFirstSearch().traverse(graph, counter);
        EXPECT_EQ(counter.finished, 2 * POINTS - 1);
    });
}

TEST(VrexGraphLimits, ChainOfDependenciesNeedsNoStack) {
    constexpr std::size_t LENGTH = 200'000;
    auto constraint = LooseConstraint::create(1, {});
    std::vector<std::shared_ptr<LooseConstraint>> chain{constraint};
    for (std::size_t i = 1; i < LENGTH; ++i) {
        auto next = LooseConstraint::create(i + 1, {});
        next->dependencies = {chain.back()};
        chain.push_back(next);
    }
    runOnSmallStack([&] {
        VrexConstraintGraph graph;
        graph.addVertex(std::shared_ptr<VrexBaseConstraint>(chain.back()));
        EXPECT_EQ(graph.numVertices(), LENGTH);
        EXPECT_EQ(graph.numEdges(), LENGTH - 1);
        EXPECT_EQ(graph[0]->getID(), LENGTH); // each before what it depends on
        EXPECT_EQ(graph[LENGTH - 1]->getID(), 1U);
    });
    for (auto& link : chain) { // a test's objects are released one by one
        link->dependencies.clear();
    }
}

/// Counts how often it is asked for its parts.
class CountedSet : public PartedGeometry {
public:
    CountedSet(std::uint64_t id, Geometries members, std::size_t& asked)
        : PartedGeometry(id), m_asked(asked) {
        parts = std::move(members);
    }
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override {
        ++m_asked;
        return parts;
    }

private:
    std::size_t& m_asked;
};

/// Fixed sets of two each, with both below shared: 2^levels ways down.
TEST(VrexGraphLimits, LatticeOfFixedSetsIsOpenedOnce) {
    for (const bool isDepthFirst : {true, false}) {
        std::size_t asked = 0;
        Geometries sets;
        Constraints fixations;
        for (std::uint64_t level = 0; level < 30; ++level) {
            const Geometries below(sets.end() - (level == 0 ? 0 : 2), sets.end());
            sets.push_back(std::make_shared<CountedSet>(2 * level + 1, below, asked));
            sets.push_back(std::make_shared<CountedSet>(2 * level + 2, below, asked));
        }
        for (const auto& set : sets) {
            fixations.push_back(LooseConstraint::fix(100 + set->getID(), set));
        }
        VrexConstraintGraph graph(sets, fixations);
        VrexComponentGenerator byIndex;
        GraphRecorder byCallbacks;
        asked = 0;
        if (isDepthFirst) {
            VrexDepthFirstSearch().traverse(graph, byIndex);
            VrexDepthFirstSearch().traverse(graph, byCallbacks);
        } else {
            VrexBroadFirstSearch().traverse(graph, byIndex);
            VrexBroadFirstSearch().traverse(graph, byCallbacks);
        }
        EXPECT_LE(asked, 2 * byIndex.getComponents().size() * sets.size()); // once in each component
        EXPECT_EQ(nsGraphPieces::piecesOf(byIndex), nsGraphPieces::piecesOf(byCallbacks));
        EXPECT_EQ(byIndex.getComponents().back()->getScale(), 2 * (sets.size() - 1));
    }
}

TEST(VrexGraphLimits, DeeplyNestedFixedSetsNeedNoStack) {
    constexpr std::size_t DEPTH = 200'000;
    std::vector<std::shared_ptr<PartedGeometry>> sets{PartedGeometry::create(1)};
    for (std::size_t i = 1; i < DEPTH; ++i) {
        sets.push_back(PartedGeometry::create(i + 1, {sets.back()}));
    }
    runOnSmallStack([&] {
        VrexConstraintGraph graph({sets.back()}, {LooseConstraint::fix(DEPTH + 1, sets.back())});
        VrexComponentGenerator generator;
        VrexDepthFirstSearch().traverse(graph, generator);
        EXPECT_EQ(generator.getComponents()[0]->getScale(), DEPTH + 1);
    });
    for (auto& set : sets) {
        set->parts.clear();
    }
}

TEST(VrexGraphLimits, RingOfFixedSetsEnds) {
    const auto first = PartedGeometry::create(1);
    const auto second = PartedGeometry::create(2, {first});
    const auto third = PartedGeometry::create(3, {second, nullptr});
    first->parts = {third, first};
    VrexConstraintGraph graph({first, second, third}, {LooseConstraint::fix(4, second)});
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    ASSERT_EQ(generator.getComponents().size(), 1U);
    EXPECT_EQ(generator.getComponents()[0]->getScale(), 4U);
    first->parts.clear();
}

TEST(VrexGraphLimits, RingOfDependenciesEnds) {
    const auto first = LooseConstraint::create(1, {});
    const auto second = LooseConstraint::create(2, {});
    first->dependencies = {second};
    second->dependencies = {first};
    VrexConstraintGraph graph;
    graph.addVertex(std::shared_ptr<VrexBaseConstraint>(first));
    EXPECT_EQ(graph.numVertices(), 2U);
    EXPECT_EQ(graph.numEdges(), 2U);
    first->dependencies.clear();
}

} // namespace
