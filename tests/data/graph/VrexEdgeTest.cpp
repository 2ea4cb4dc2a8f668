#include "data/graph/VrexEdge.h"

#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include "data/graph/VrexBasicEdge.h"
#include "data/graph/VrexConstraintVertex.h"
#include "data/graph/VrexGeometryVertex.h"
#include "support/GraphSystems.h"

namespace {

using Geometry = std::shared_ptr<VrexBaseGeometry>;
using Constraint = std::shared_ptr<VrexBaseConstraint>;
using Vertex = std::shared_ptr<VrexVertex>;

Vertex vertexOf(const Geometry& geometry) { return std::make_shared<VrexGeometryVertex>(geometry); }
Vertex vertexOf(const Constraint& constraint) { return std::make_shared<VrexConstraintVertex>(constraint); }

TEST(VrexVertex, WrapsOneObjectOfItsKind) {
    const Geometry geometry = PartedGeometry::create(7);
    const Constraint constraint = LooseConstraint::create(8, {});
    const Vertex ofGeometry = vertexOf(geometry);
    const Vertex ofConstraint = vertexOf(constraint);
    EXPECT_EQ(ofGeometry->getVertexType(), VrexVertexType::Geometry);
    EXPECT_EQ(ofGeometry->getGeometryPtr(), geometry);
    EXPECT_EQ(ofGeometry->getConstraintPtr(), nullptr);
    EXPECT_EQ(ofGeometry->getID(), 7U);
    EXPECT_EQ(ofConstraint->getVertexType(), VrexVertexType::Constraint);
    EXPECT_EQ(ofConstraint->getGeometryPtr(), nullptr);
    EXPECT_EQ(ofConstraint->getConstraintPtr(), constraint);
    EXPECT_EQ(ofConstraint->getID(), 8U);
    geometry->setID(9);
    EXPECT_EQ(ofGeometry->getID(), 9U);
}

TEST(VrexVertex, OfNullHasIdentifierZero) {
    const Vertex ofGeometry = vertexOf(Geometry());
    const Vertex ofConstraint = vertexOf(Constraint());
    EXPECT_EQ(ofGeometry->getID(), 0U);
    EXPECT_EQ(ofConstraint->getID(), 0U);
    EXPECT_FALSE(*ofGeometry == *ofConstraint);
    const VrexEdge edge(Geometry(), LooseConstraint::create(2, {}));
    EXPECT_EQ(edge.getAnother(edge.getSecond()), edge.getFirst());
    EXPECT_EQ(edge.getAnother(ofGeometry), edge.getSecond());
}

TEST(VrexVertex, EqualityIsByKindAndIdentifier) {
    const Vertex first = vertexOf(Geometry(PartedGeometry::create(1)));
    EXPECT_TRUE(*first == *vertexOf(Geometry(PartedGeometry::create(1))));
    EXPECT_FALSE(*first == *vertexOf(Geometry(PartedGeometry::create(2))));
    EXPECT_FALSE(*first == *vertexOf(Constraint(LooseConstraint::create(1, {}))));
}

TEST(VrexEdge, WrapsObjectsInVerticesOfItsOwn) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint constraint = LooseConstraint::create(2, {});
    const VrexEdge one(geometry, constraint);
    const VrexEdge other(geometry, constraint);
    EXPECT_EQ(one.getGeometryEnd()->getGeometryPtr(), geometry);
    EXPECT_EQ(one.getConstraintEnd()->getConstraintPtr(), constraint);
    EXPECT_NE(one.getFirst(), other.getFirst());
    EXPECT_TRUE(*one.getFirst() == *other.getFirst());
}

TEST(VrexEdge, EndsOfOneKindKeepTheirOrder) {
    const Geometry geometry1 = PartedGeometry::create(1);
    const Geometry geometry2 = PartedGeometry::create(2);
    const VrexEdge geometries(geometry1, geometry2);
    EXPECT_EQ(geometries.getFirst()->getGeometryPtr(), geometry1);
    EXPECT_EQ(geometries.getConstraintEnd()->getGeometryPtr(), geometry2);
    const Constraint constraint1 = LooseConstraint::create(3, {});
    const Constraint constraint2 = LooseConstraint::create(4, {});
    const VrexEdge constraints(constraint1, constraint2);
    EXPECT_EQ(constraints.getGeometryEnd()->getConstraintPtr(), constraint1);
    EXPECT_EQ(constraints.getSecond()->getConstraintPtr(), constraint2);
}

TEST(VrexEdge, GeometryAndConstraintOfOneIdentifierAreUnequalEnds) {
    const VrexEdge edge(PartedGeometry::create(5), LooseConstraint::create(5, {}));
    EXPECT_FALSE(*edge.getFirst() == *edge.getSecond());
    EXPECT_EQ(edge.getAnother(edge.getSecond()), edge.getFirst());
}

TEST(VrexEdge, OtherEndIsFoundByEqualityAndOtherwiseTheFirst) {
    const VrexEdge edge(PartedGeometry::create(1), LooseConstraint::create(2, {}));
    EXPECT_EQ(edge.getAnother(vertexOf(Geometry(PartedGeometry::create(1)))), edge.getSecond());
    EXPECT_EQ(edge.getAnother(edge.getSecond()), edge.getFirst());
    EXPECT_EQ(edge.getAnother(vertexOf(Geometry(PartedGeometry::create(99)))), edge.getFirst());
    EXPECT_EQ(edge.getAnother(nullptr), edge.getFirst());
}

TEST(VrexBasicEdge, OtherEndIsFoundByAddress) {
    const Vertex first = vertexOf(Geometry(PartedGeometry::create(1)));
    const Vertex second = vertexOf(Geometry(PartedGeometry::create(2)));
    const VrexBasicEdge<Vertex> edge(std::pair(first, second));
    EXPECT_EQ(edge.getAnother(first), second);
    EXPECT_EQ(edge.getAnother(second), first);
    EXPECT_EQ(edge.getAnother(vertexOf(first->getGeometryPtr())), first); // equal, but no end
}

} // namespace
