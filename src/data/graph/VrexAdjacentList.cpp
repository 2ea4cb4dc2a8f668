#include "data/graph/VrexAdjacentList.h"

#include <utility>

#include "data/VrexLog.h"

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList() = default;

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList(
    const VertexList& vertices)
    : m_vertices(vertices), m_vertexCount(vertices.size()) {}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList(
    const VertexList& vertices, const std::vector<std::pair<std::uint64_t, std::uint64_t>>& edges)
    : m_vertices(vertices), m_vertexCount(vertices.size()) {
    for (const auto& indices : edges) {
        join(indices);
    }
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList(
    const VrexAdjacentList& other)
    : m_adjacency(other.m_adjacency),
      m_vertices(other.m_vertices),
      m_edgeCount(other.m_edgeCount),
      m_vertexCount(other.m_vertexCount) {
    for (auto& [index, list] : m_adjacency) {
        m_places.note(index, m_vertexCount, list);
    }
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList(
    VrexAdjacentList&& other) noexcept
    : m_adjacency(std::move(other.m_adjacency)),
      m_vertices(std::move(other.m_vertices)),
      m_edgeCount(std::exchange(other.m_edgeCount, 0)),
      m_vertexCount(std::exchange(other.m_vertexCount, 0)),
      m_places(std::move(other.m_places)) {}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>&
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::operator=(
    const VrexAdjacentList& other) {
    return *this = VrexAdjacentList(other);
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>&
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::operator=(
    VrexAdjacentList&& other) noexcept {
    VrexAdjacentList moved(std::move(other));
    std::swap(m_adjacency, moved.m_adjacency);
    std::swap(m_vertices, moved.m_vertices);
    m_edgeCount = moved.m_edgeCount;
    m_vertexCount = moved.m_vertexCount;
    m_places = std::move(moved.m_places);
    return *this;
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::~VrexAdjacentList() = default;

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
void VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::addVertex(
    const VertexPtr& vertex) {
    m_vertices.resize(m_vertexCount);
    m_vertices.push_back(vertex);
    ++m_vertexCount;
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
void VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::addEdge(
    std::pair<std::uint64_t, std::uint64_t> indices) {
    countEdges(1); // Kept: before the indices are looked at.
    join(indices);
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
void VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::clear() {
    m_places.clear();
    m_adjacency.clear();
    m_vertices.clear();
    m_edgeCount = 0;
    m_vertexCount = 0;
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
EdgeList&
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::enterList(std::uint64_t index) {
    if (m_adjacency.size() == m_vertexCount / 8) { // who asks for so many will ask for more
        m_adjacency.reserve(m_vertexCount);
    }
    const auto [entry, isNew] = m_adjacency.try_emplace(index);
    try {
        m_places.note(index, m_vertexCount, entry->second);
        if (isNew) {
            entry->second = makeEdges(index);
        }
    } catch (...) {
        if (isNew) {
            m_places.forget(index);
            m_adjacency.erase(entry);
        }
        throw;
    }
    return entry->second;
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
EdgeList* VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::unplacedList(
    std::uint64_t index) const {
    const auto found = m_adjacency.find(index);
    return found != m_adjacency.end() ? &found->second : nullptr;
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VertexPtr
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::makeVertex(std::uint64_t) const {
    return nullptr;
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
EdgeList
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::makeEdges(std::uint64_t) const {
    return {};
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
void VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::append(std::uint64_t first,
                                                                                     std::uint64_t second,
                                                                                     const Edge& edge) {
    getAdjacents(first).push_back(edge);
    getAdjacents(second).push_back(edge);
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
void VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::join(
    std::pair<std::uint64_t, std::uint64_t> indices) {
    if (indices.first >= m_vertexCount) {
        VREX_LOG(nsLog::FAILURE, "\"The geometry id is not belong to edge\"");
        return;
    }
    if (indices.second >= m_vertexCount) {
        VREX_LOG(nsLog::FAILURE, "\"The constraint id is not belong to edge\"");
        return;
    }
    append(indices.first, indices.second, Edge(vertexAt(indices.first), vertexAt(indices.second)));
}

template class VrexAdjacentList<std::shared_ptr<VrexVertex>, VrexEdge, std::vector<VrexEdge>,
                                std::vector<std::shared_ptr<VrexVertex>>,
                                std::unordered_map<std::uint64_t, std::vector<VrexEdge>>>;
