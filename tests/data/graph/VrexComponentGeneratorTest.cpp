#include "data/graph/VrexComponentGenerator.h"

#include <memory>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "data/graph/VrexGeometryVertex.h"
#include "support/GraphRecorder.h"
#include "support/GraphSystems.h"

namespace {

using Pieces = std::vector<GraphPiece>;
using nsGraphPieces::piecesOf;

/// Walks by index and by callbacks.
Pieces split(const GraphSystem& system) {
    VrexConstraintGraph graph(system.geometries, system.constraints);
    VrexComponentGenerator generator;
    GraphRecorder recorder;
    VrexDepthFirstSearch().traverse(graph, generator);
    VrexDepthFirstSearch().traverse(graph, recorder);
    EXPECT_EQ(piecesOf(generator), piecesOf(recorder));
    return piecesOf(generator);
}

std::shared_ptr<VrexPoint3D> pointOf(std::uint64_t id) {
    auto point = VrexPoint3D::create(0.0, 0.0, 0.0);
    point->setID(id);
    return point;
}

std::shared_ptr<VrexDistance3D> distanceOf(std::uint64_t id, const std::shared_ptr<VrexGeometry3D>& first,
                                           const std::shared_ptr<VrexGeometry3D>& second) {
    auto distance = VrexDistance3D::create(first, second, 1.0, VrexGeometryComponentType::UNKNOWN,
                                           VrexGeometryComponentType::UNKNOWN);
    distance->setID(id);
    return distance;
}

std::shared_ptr<VrexFixation3D> fixationOf(std::uint64_t id,
                                           const std::shared_ptr<VrexGeometry3D>& geometry) {
    auto fixation = VrexFixation3D::create(geometry, VrexFixation3DType::Complete3D);
    fixation->setID(id);
    return fixation;
}

TEST(VrexComponentGenerator, EmptyGraphHasNoComponent) { EXPECT_TRUE(split({}).empty()); }

TEST(VrexComponentGenerator, FreeGeometryIsAComponent) {
    EXPECT_EQ(split({{pointOf(1)}, {}}), (Pieces{{{1}, {}}}));
}

TEST(VrexComponentGenerator, FixedGeometryAloneIsAComponentWithItsFixation) {
    const auto point = pointOf(1);
    EXPECT_EQ(split({{point}, {fixationOf(2, point)}}), (Pieces{{{1}, {2}}}));
}

TEST(VrexComponentGenerator, FixedPointBelongsToBothSides) {
    const auto fixed = pointOf(1);
    const auto left = pointOf(2);
    const auto right = pointOf(3);
    const auto fixation = fixationOf(4, fixed);
    VrexConstraintGraph graph({fixed, left, right},
                              {fixation, distanceOf(5, fixed, left), distanceOf(6, fixed, right)});
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    EXPECT_EQ(piecesOf(generator), (Pieces{{{1, 2}, {5, 4}}, {{1, 3}, {6, 4}}}));
    for (const auto& component : generator.getComponents()) {
        EXPECT_EQ(component->getCompleteFixation(fixed), fixation);
        EXPECT_EQ(component->getID(), 0U);
    }
}

TEST(VrexComponentGenerator, FixedSetComesWithAllItsMembers) {
    const auto member = pointOf(1);
    const auto other = pointOf(2);
    const auto free = pointOf(3);
    const auto set = VrexRigidSet3D::create({member, other});
    set->setID(4);
    const auto fixation = fixationOf(5, set);
    EXPECT_EQ(split({{member, other, free, set}, {fixation, distanceOf(6, member, free)}}),
              (Pieces{{{1, 4, 2, 3}, {6, 5}}}));
}

TEST(VrexComponentGenerator, EquationJoinsTheDimensionsWhoseVariablesItNames) {
    GraphSystem system;
    std::vector<VrexVariableDescriptor> descriptors;
    for (const std::uint64_t id : {10U, 20U}) {
        const auto first = pointOf(id);
        const auto second = pointOf(id + 1);
        const auto variable = VrexGeometryVariable::create(1.0);
        variable->setID(id + 2);
        const auto distance = distanceOf(id + 3, first, second);
        distance->bindVariable(variable);
        system.geometries.insert(system.geometries.end(), {first, second, variable});
        system.constraints.push_back(distance);
        descriptors.emplace_back(variable, 0, id == 10 ? "d1" : "d2");
    }
    EXPECT_EQ(split(system), (Pieces{{{10, 11, 12}, {13}}, {{20, 21, 22}, {23}}}));

    const auto equation =
        VrexExpressionEquation::create(descriptors, VrexEquationConditionType::equalToZero, "d1 - 2 * d2");
    equation->setID(30);
    system.constraints.push_back(equation);
    EXPECT_EQ(split(system), (Pieces{{{10, 11, 12, 22, 20, 21}, {13, 30, 23}}}));
}

TEST(VrexComponentGenerator, PartsOfAFixedSetSeedNothing) {
    const auto member = pointOf(2);
    const auto set = VrexRigidSet3D::create({member});
    set->setID(1);
    EXPECT_EQ(split({{set, member}, {fixationOf(3, set)}}), (Pieces{{{1, 2}, {3}}}));
}

TEST(VrexComponentGenerator, FixedMemberOfAFixedSetBringsItsFixation) {
    const auto member = pointOf(1);
    const auto set = VrexRigidSet3D::create({member});
    set->setID(2);
    EXPECT_EQ(split({{set, member}, {fixationOf(3, member), fixationOf(4, set)}}),
              (Pieces{{{2, 1}, {4, 3}}}));
}

TEST(VrexComponentGenerator, ComponentsAccumulate) {
    VrexConstraintGraph graph({pointOf(1)}, {});
    VrexComponentGenerator generator;
    VrexDepthFirstSearch walk;
    walk.traverse(graph, generator);
    walk.traverse(graph, generator);
    EXPECT_EQ(generator.getComponents().size(), 2U);
}

TEST(VrexComponentGenerator, DiscoveryWithoutStartOpensAComponent) {
    const auto fixed = pointOf(1);
    VrexConstraintGraph graph({fixed}, {fixationOf(2, fixed)});
    VrexComponentGenerator generator;
    std::shared_ptr<VrexVertex> vertex = graph[0];
    generator.discoverVertex(graph, vertex); // without colours, too
    EXPECT_EQ(piecesOf(generator), (Pieces{{{1}, {2}}}));
}

TEST(VrexComponentGenerator, CopiesOpenFixedGeometriesEachForItself) {
    const auto set = PartedGeometry::create(1, {PartedGeometry::create(2)});
    VrexConstraintGraph graph({set}, {LooseConstraint::fix(3, set)});
    std::shared_ptr<VrexVertex> vertex = graph[0];
    VrexComponentGenerator generator;
    generator.startVertex(graph, vertex);
    VrexComponentGenerator copy(generator);
    VrexComponentGenerator assigned;
    assigned = generator;
    for (VrexComponentGenerator* one : {&copy, &assigned, &generator}) {
        one->startVertex(graph, vertex);
    }
    for (VrexComponentGenerator* one : {&copy, &assigned, &generator}) {
        one->discoverVertex(graph, vertex);
        EXPECT_EQ(piecesOf(*one), (Pieces{{{}, {}}, {{1, 2}, {3}}}));
    }
}

/// Throws instead of naming its parts, once.
class Thrower : public PartedGeometry {
public:
    using PartedGeometry::PartedGeometry;
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override {
        if (isThrowing) {
            throw std::runtime_error("no parts");
        }
        return {};
    }
    bool isThrowing = false;
};

TEST(VrexComponentGenerator, ComponentBehindOneThatFailedIsWhole) {
    const auto thrower = std::make_shared<Thrower>(1);
    const auto set = PartedGeometry::create(2, {thrower, PartedGeometry::create(3)});
    const auto other = PartedGeometry::create(4, {PartedGeometry::create(5)});
    VrexConstraintGraph graph({set, other}, {LooseConstraint::fix(6, set), LooseConstraint::fix(7, other)});
    thrower->isThrowing = true;
    VrexComponentGenerator generator;
    EXPECT_THROW(VrexDepthFirstSearch().traverse(graph, generator), std::runtime_error);
    std::shared_ptr<VrexVertex> vertex = graph[1];
    generator.startVertex(graph, vertex);
    generator.discoverVertex(graph, vertex);
    EXPECT_EQ(piecesOf(generator).back(), (GraphPiece{{4, 5}, {7}}));
}

TEST(VrexComponentGenerator, ColorsAreThereAfterTheWalk) {
    const auto fixed = pointOf(1);
    const auto member = pointOf(4);
    const auto set = VrexRigidSet3D::create({member});
    set->setID(5);
    VrexConstraintGraph graph({fixed, set},
                              {fixationOf(2, fixed), distanceOf(3, fixed, pointOf(6)), fixationOf(7, set)});
    VrexComponentGenerator generator;
    VrexDepthFirstSearch walk;
    walk.traverse(graph, generator);
    EXPECT_EQ(generator.vertexColor(1), VrexGraphVertexColor::FixedVisited);
    EXPECT_EQ(generator.vertexColor(3), VrexGraphVertexColor::Black);
    EXPECT_EQ(generator.vertexColor(4), VrexGraphVertexColor::PartOfFixed);
    EXPECT_EQ(generator.vertexColor(6), VrexGraphVertexColor::Black);
    EXPECT_EQ(generator.vertexColor(99), VrexGraphVertexColor::White);
    generator.setFixGeometryColor(99, VrexGraphVertexColor::Gray);
    EXPECT_EQ(generator.vertexColor(99), VrexGraphVertexColor::Gray);
}

TEST(VrexComponentGenerator, PartWithoutVertexIsColouredToo) {
    const auto set = PartedGeometry::create(1);
    VrexConstraintGraph graph({set}, {LooseConstraint::fix(2, set)});
    set->parts = {PartedGeometry::create(3)}; // since the graph was built
    VrexComponentGenerator generator;
    VrexDepthFirstSearch walk;
    walk.traverse(graph, generator);
    EXPECT_EQ(piecesOf(generator), (Pieces{{{1, 3}, {2}}}));
    EXPECT_EQ(generator.vertexColor(3), VrexGraphVertexColor::PartOfFixed);
}

} // namespace
