// The vertices and edges that a graph makes when somebody looks at them.

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexPrefetch.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexConstraintVertex.h"
#include "data/graph/VrexGeometryVertex.h"

namespace {

template <class Vertex>
using ObjectOf =
    std::conditional_t<std::is_same_v<Vertex, VrexGeometryVertex>, VrexBaseGeometry, VrexBaseConstraint>;

/// Both vertices of an edge lie in one block, which lives as long as either.
template <class First, class Second>
VrexEdge edgeOf(VrexBlockPool& pool, const std::shared_ptr<VrexBaseObject>& first,
                const std::shared_ptr<VrexBaseObject>& second) {
    struct Vertices {
        Vertices(std::shared_ptr<ObjectOf<First>> firstObject, std::shared_ptr<ObjectOf<Second>> secondObject)
            : one(std::move(firstObject)), two(std::move(secondObject)) {}
        First one;
        Second two;
    };
    auto both = std::allocate_shared<Vertices>(pool.allocator<Vertices>(),
                                               std::static_pointer_cast<ObjectOf<First>>(first),
                                               std::static_pointer_cast<ObjectOf<Second>>(second));
    Vertices& vertices = *both;
    std::shared_ptr<VrexVertex> one(both, &vertices.one);
    return {std::move(one), std::shared_ptr<VrexVertex>(std::move(both), &vertices.two)};
}

} // namespace

std::shared_ptr<VrexVertex> VrexConstraintGraph::makeVertex(std::uint64_t index) const {
    if (index >= m_objects.size()) { // of a vertex that was added past this class
        return nullptr;
    }
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
        return edgeOf<VrexGeometryVertex, VrexConstraintVertex>(m_edgeVertices, first, second);
    }
    return isFirstGeometry
               ? edgeOf<VrexGeometryVertex, VrexGeometryVertex>(m_edgeVertices, first, second)
               : edgeOf<VrexConstraintVertex, VrexConstraintVertex>(m_edgeVertices, first, second);
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
    prefetchEdges(index + nsPrefetch::STEPS); // who looks at all does so in order
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

void VrexConstraintGraph::prefetchEdges(std::uint64_t index) const {
    constexpr std::size_t MOST = 4;
    if (index < m_objects.size()) {
        const auto vertex = static_cast<std::uint32_t>(index);
        nsPrefetch::counters(m_objects.object(vertex).get());
        const auto incidences = m_edges.laidOut(vertex);
        for (const auto& incidence : incidences.first(std::min(incidences.size(), MOST))) {
            nsPrefetch::counters(m_objects.object(incidence.other).get());
        }
    }
}

void VrexConstraintGraph::dropEdges() {
    const std::uint64_t count = adjacency().empty() ? 0 : m_objects.size();
    for (std::uint64_t index = 0; index < count; ++index) { // in the order of the objects
        if (std::vector<VrexEdge>* ahead = seenList(index + nsPrefetch::STEPS)) {
            prefetchEdges(index + nsPrefetch::STEPS);
            nsPrefetch::line(ahead->data());
        }
        if (std::vector<VrexEdge>* list = seenList(index)) {
            list->clear();
        }
    }
}

const VrexEdge* VrexConstraintGraph::seenEdge(const VrexEdgeIndex::Incidence& incidence) const {
    const std::vector<VrexEdge>* list = seenList(incidence.other);
    if (list == nullptr) {
        return nullptr;
    }
    const std::size_t place = m_edges.placeOf(incidence.edge, incidence.other);
    const bool stands = place < list->size() && isEdgeOf((*list)[place], incidence.edge);
    return stands ? &(*list)[place] : nullptr;
}

bool VrexConstraintGraph::isVertexOf(const VrexVertex* vertex, std::uint32_t index) const {
    if (vertex == nullptr) {
        return false;
    }
    const bool isGeometry = m_objects.type(index) == VrexVertexType::Geometry;
    const std::type_info& type = typeid(*vertex);
    const std::type_info& expected = isGeometry ? typeid(VrexGeometryVertex) : typeid(VrexConstraintVertex);
    if (&type != &expected && type != expected) {
        return false;
    }
    const VrexBaseObject* object = m_objects.object(index).get();
    return isGeometry ? static_cast<const VrexGeometryVertex&>(*vertex).m_geometry.get() == object
                      : static_cast<const VrexConstraintVertex&>(*vertex).m_constraint.get() == object;
}

bool VrexConstraintGraph::isEdgeOf(const VrexEdge& edge, std::uint32_t number) const {
    const VrexEdgeIndex::Ends& ends = m_edges.ends(number);
    return isVertexOf(edge.getFirst().get(), ends.first) && isVertexOf(edge.getSecond().get(), ends.second);
}

bool VrexConstraintGraph::areEdgesOf(const std::vector<VrexEdge>& edges, std::uint32_t index) const {
    const auto incidences = m_edges.laidOut(index);
    return std::equal(edges.begin(), edges.end(), incidences.begin(), incidences.end(),
                      [this](const VrexEdge& edge, const VrexEdgeIndex::Incidence& incidence) {
                          return isEdgeOf(edge, incidence.edge);
                      });
}

bool VrexConstraintGraph::areAllEdges() const {
    const std::uint32_t count = adjacency().empty() ? 0 : m_objects.size();
    for (std::uint32_t index = 0; index < count; ++index) {
        if (const std::vector<VrexEdge>* ahead = seenList(std::uint64_t(index) + nsPrefetch::STEPS)) {
            nsPrefetch::line(ahead->data());
        }
        const std::vector<VrexEdge>* edges = seenList(index);
        if (edges != nullptr && !areEdgesOf(*edges, index)) {
            return false;
        }
    }
    return true;
}
