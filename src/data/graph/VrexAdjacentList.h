#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/graph/VrexEdge.h"
#include "data/graph/VrexListPlacesT.h"
#include "data/graph/VrexVertex.h"

/// An undirected multigraph: vertices in the order of their addition, and for each vertex the edges at it.
///
/// The place of a vertex in the list is its index. An edge stands in the list of each end, a loop twice in
/// the same list, and nothing removes duplicates. A subclass that knows its graph by other means may leave
/// vertices null and edge lists missing: they are asked for when somebody looks. For that reason reading,
/// too, belongs to one thread at a time.
template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
class VrexAdjacentList {
public:
    VrexAdjacentList();
    explicit VrexAdjacentList(const VertexList& vertices);
    /// With an edge for each pair of indices; a pair that names no vertex is left out, with a line in the
    /// log. Kept: these edges are not counted.
    VrexAdjacentList(const VertexList& vertices,
                     const std::vector<std::pair<std::uint64_t, std::uint64_t>>& edges);
    VrexAdjacentList(const VrexAdjacentList&);
    VrexAdjacentList(VrexAdjacentList&&) noexcept;
    VrexAdjacentList& operator=(const VrexAdjacentList&);
    VrexAdjacentList& operator=(VrexAdjacentList&&) noexcept;
    virtual ~VrexAdjacentList();

    /// Appends, without a test for duplicates.
    virtual void addVertex(const VertexPtr& vertex);
    /// Joins two vertices by their indices. An index that names no vertex is told in the log, and no edge is
    /// added. Kept: it is counted all the same.
    virtual void addEdge(std::pair<std::uint64_t, std::uint64_t> indices);
    virtual void clear();

    /// Unchecked.
    VertexPtr& operator[](std::uint64_t index) { return vertexAt(index); }
    const VertexPtr& operator[](std::uint64_t index) const { return vertexAt(index); }
    /// The edges at a vertex, empty for an index without one. The list stays where it is until the graph is
    /// cleared or assigned.
    EdgeList& getAdjacents(std::uint64_t index) {
        EdgeList* list = m_places.find(index);
        return list != nullptr ? *list : enterList(index);
    }
    /// How often `addEdge` was called.
    std::uint64_t numEdges() const { return m_edgeCount; }
    std::uint64_t numVertices() const { return m_vertexCount; }

protected:
    /// Makes the vertex that stands null at `index`; leaves it null by default.
    virtual VertexPtr makeVertex(std::uint64_t index) const;
    /// Makes the edges of a vertex whose list was never asked for; none by default.
    virtual EdgeList makeEdges(std::uint64_t index) const;

    /// Appends to the lists of both ends, which are made if need be.
    void append(std::uint64_t first, std::uint64_t second, const Edge& edge);
    void countEdges(std::uint64_t count) { m_edgeCount += count; }
    /// Appends a vertex that is made when somebody looks.
    void countVertex() { ++m_vertexCount; }
    /// Null, or beyond the end, where nobody looked yet.
    const VertexList& vertices() const { return m_vertices; }
    /// The list of a vertex if somebody looked at it, otherwise null.
    EdgeList* seenList(std::uint64_t index) const {
        EdgeList* list = m_places.find(index);
        return list != nullptr || m_places.size() == m_adjacency.size() ? list : unplacedList(index);
    }
    /// The lists that somebody looked at.
    AdjacencyTable& adjacency() { return m_adjacency; }
    const AdjacencyTable& adjacency() const { return m_adjacency; }

private:
    VertexPtr& vertexAt(std::uint64_t index) const {
        if (m_vertices.size() < m_vertexCount) {
            m_vertices.resize(m_vertexCount);
        }
        VertexPtr& vertex = m_vertices[index];
        if (vertex == nullptr) {
            vertex = makeVertex(index);
        }
        return vertex;
    }
    EdgeList& enterList(std::uint64_t index);
    EdgeList* unplacedList(std::uint64_t index) const;
    void join(std::pair<std::uint64_t, std::uint64_t> indices);

    mutable AdjacencyTable m_adjacency;
    mutable VertexList m_vertices;
    std::uint64_t m_edgeCount = 0;
    std::uint64_t m_vertexCount = 0;
    VrexListPlacesT<EdgeList> m_places; ///< Of the lists in the table, most of them.
};

/// The one instance: of what constraint graphs are made of.
using VrexVertexAdjacency = VrexAdjacentList<std::shared_ptr<VrexVertex>, VrexEdge, std::vector<VrexEdge>,
                                             std::vector<std::shared_ptr<VrexVertex>>,
                                             std::unordered_map<std::uint64_t, std::vector<VrexEdge>>>;

extern template class VREX_DATA_EXPORT VrexAdjacentList<
    std::shared_ptr<VrexVertex>, VrexEdge, std::vector<VrexEdge>, std::vector<std::shared_ptr<VrexVertex>>,
    std::unordered_map<std::uint64_t, std::vector<VrexEdge>>>;
