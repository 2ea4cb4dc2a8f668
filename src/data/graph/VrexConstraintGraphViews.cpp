// The vertices and edges that a graph makes when somebody looks at them.

#include <algorithm>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexConstraintVertex.h"
#include "data/graph/VrexGeometryVertex.h"

namespace {

template <class Vertex>
using ObjectOf =
    std::conditional_t<std::is_same_v<Vertex, VrexGeometryVertex>, VrexBaseGeometry, VrexBaseConstraint>;

/// Both vertices of an edge lie in one block, which lives as long as either.
template <class First, class Second>
VrexEdge edgeOf(const std::shared_ptr<VrexBaseObject>& first, const std::shared_ptr<VrexBaseObject>& second) {
    struct Vertices {
        Vertices(std::shared_ptr<ObjectOf<First>> firstObject, std::shared_ptr<ObjectOf<Second>> secondObject)
            : one(std::move(firstObject)), two(std::move(secondObject)) {}
        First one;
        Second two;
    };
    auto both = std::make_shared<Vertices>(std::static_pointer_cast<ObjectOf<First>>(first),
                                           std::static_pointer_cast<ObjectOf<Second>>(second));
    Vertices& vertices = *both;
    std::shared_ptr<VrexVertex> one(both, &vertices.one);
    return {std::move(one), std::shared_ptr<VrexVertex>(std::move(both), &vertices.two)};
}

} // namespace

std::shared_ptr<VrexVertex> VrexConstraintGraph::makeVertex(std::uint64_t index) const {
    const auto place = static_cast<std::uint32_t>(index);
    const auto& object = m_objects.object(place);
    if (m_objects.type(place) == VrexVertexType::Geometry) {
        return std::make_shared<VrexGeometryVertex>(std::static_pointer_cast<VrexBaseGeometry>(object));
    }
    return std::make_shared<VrexConstraintVertex>(std::static_pointer_cast<VrexBaseConstraint>(object));
}

VrexEdge VrexConstraintGraph::makeEdge(std::uint32_t edge) const {
    const VrexEdgeIndex::Ends& ends = m_edges.ends(edge);
    const bool isFirstGeometry = m_objects.type(ends.first) == VrexVertexType::Geometry;
    const bool isSecondGeometry = m_objects.type(ends.second) == VrexVertexType::Geometry;
    const auto& first = m_objects.object(ends.first);
    const auto& second = m_objects.object(ends.second);
    if (isFirstGeometry && !isSecondGeometry) {
        return edgeOf<VrexGeometryVertex, VrexConstraintVertex>(first, second);
    }
    return isFirstGeometry ? edgeOf<VrexGeometryVertex, VrexGeometryVertex>(first, second)
                           : edgeOf<VrexConstraintVertex, VrexConstraintVertex>(first, second);
}

std::vector<VrexEdge> VrexConstraintGraph::makeEdges(std::uint64_t index) const {
    std::vector<VrexEdge> edges;
    if (index >= m_objects.size()) {
        return edges;
    }
    const auto vertex = static_cast<std::uint32_t>(index);
    if (!m_edges.hasLayout()) {
        m_edges.layOut(m_objects.size());
    }
    edges.reserve(m_edges.degree(vertex));
    std::uint32_t last = VrexVertexIndex::NONE;
    for (const auto incidences : {m_edges.laidOut(vertex), m_edges.later(vertex)}) {
        for (const VrexEdgeIndex::Incidence& incidence : incidences) {
            // The second time of a loop follows the first.
            const bool isRepeated = incidence.edge == last;
            const VrexEdge* seen = isRepeated ? &edges.back() : seenEdge(incidence);
            edges.push_back(seen != nullptr ? VrexEdge(*seen) : makeEdge(incidence.edge));
            last = incidence.edge;
        }
    }
    return edges;
}

const VrexEdge* VrexConstraintGraph::seenEdge(const VrexEdgeIndex::Incidence& incidence) const {
    const auto list = adjacency().find(incidence.other);
    if (list == adjacency().end()) {
        return nullptr;
    }
    const std::size_t place = m_edges.placeOf(incidence.edge, incidence.other);
    const bool stands = place < list->second.size() && isEdgeOf(list->second[place], incidence.edge);
    return stands ? &list->second[place] : nullptr;
}

bool VrexConstraintGraph::isVertexOf(const std::shared_ptr<VrexVertex>& vertex, std::uint32_t index) const {
    if (vertex == nullptr) {
        return false;
    }
    const VrexVertex& wrapping = *vertex;
    const bool isGeometry = m_objects.type(index) == VrexVertexType::Geometry;
    if (typeid(wrapping) != (isGeometry ? typeid(VrexGeometryVertex) : typeid(VrexConstraintVertex))) {
        return false;
    }
    const VrexBaseObject* object = m_objects.object(index).get();
    return isGeometry ? static_cast<const VrexGeometryVertex&>(wrapping).m_geometry.get() == object
                      : static_cast<const VrexConstraintVertex&>(wrapping).m_constraint.get() == object;
}

bool VrexConstraintGraph::isEdgeOf(const VrexEdge& edge, std::uint32_t number) const {
    const VrexEdgeIndex::Ends& ends = m_edges.ends(number);
    return isVertexOf(edge.getFirst(), ends.first) && isVertexOf(edge.getSecond(), ends.second);
}

bool VrexConstraintGraph::areEdgesOf(const std::vector<VrexEdge>& edges, std::uint32_t index) const {
    const auto incidences = m_edges.laidOut(index);
    return m_edges.isLaidOut(m_objects.size()) &&
           std::equal(edges.begin(), edges.end(), incidences.begin(), incidences.end(),
                      [this](const VrexEdge& edge, const VrexEdgeIndex::Incidence& incidence) {
                          return isEdgeOf(edge, incidence.edge);
                      });
}
