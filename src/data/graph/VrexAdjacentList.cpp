#include "data/graph/VrexAdjacentList.h"

#include "data/VrexLog.h"

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList() = default;

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList(
    const VertexList& vertices)
    : m_vertices(vertices) {}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList(
    const VertexList& vertices, const std::vector<std::pair<std::uint64_t, std::uint64_t>>& edges)
    : m_vertices(vertices) {
    for (const auto& indices : edges) {
        join(indices);
    }
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList(
    const VrexAdjacentList&) = default;

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::VrexAdjacentList(
    VrexAdjacentList&&) noexcept = default;

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>&
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::operator=(const VrexAdjacentList&) =
    default;

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>&
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::operator=(
    VrexAdjacentList&&) noexcept = default;

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::~VrexAdjacentList() = default;

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
void VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::addVertex(
    const VertexPtr& vertex) {
    m_vertices.push_back(vertex);
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
void VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::addEdge(
    std::pair<std::uint64_t, std::uint64_t> indices) {
    countEdge(); // Kept: before the indices are looked at.
    join(indices);
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
void VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::clear() {
    m_adjacency.clear();
    m_vertices.clear();
    m_edgeCount = 0;
}

template <class VertexPtr, class Edge, class EdgeList, class VertexList, class AdjacencyTable>
EdgeList&
VrexAdjacentList<VertexPtr, Edge, EdgeList, VertexList, AdjacencyTable>::getAdjacents(std::uint64_t index) {
    const auto found = m_adjacency.find(index);
    return found != m_adjacency.end() ? found->second
                                      : m_adjacency.emplace(index, makeEdges(index)).first->second;
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
    if (indices.first >= m_vertices.size()) {
        VREX_LOG(nsLog::FAILURE, "\"The geometry id is not belong to edge\"");
        return;
    }
    if (indices.second >= m_vertices.size()) {
        VREX_LOG(nsLog::FAILURE, "\"The constraint id is not belong to edge\"");
        return;
    }
    append(indices.first, indices.second, Edge(vertexAt(indices.first), vertexAt(indices.second)));
}

template class VrexAdjacentList<std::shared_ptr<VrexVertex>, VrexEdge, std::vector<VrexEdge>,
                                std::vector<std::shared_ptr<VrexVertex>>,
                                std::unordered_map<std::uint64_t, std::vector<VrexEdge>>>;
