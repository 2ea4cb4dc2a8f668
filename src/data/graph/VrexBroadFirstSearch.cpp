#include "data/graph/VrexBroadFirstSearch.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexGraphVisitor.h"

namespace {

class Search {
public:
    Search(VrexConstraintGraph& graph, VrexGraphVisitor& visitor, VrexGraphColorMap& colors)
        : m_graph(graph), m_visitor(visitor), m_colors(colors) {}

    void run(const std::shared_ptr<VrexVertex>& vertex) {
        m_queue.push_back(vertex);
        colorOf(*vertex) = VrexGraphVertexColor::Gray; // Kept: also a fixed one's.
        for (std::size_t head = 0; head < m_queue.size() && !m_visitor.isStopped(); ++head) {
            std::shared_ptr<VrexVertex> next = m_queue[head];
            m_visitor.discoverVertex(m_graph, next);
            if (!isFixedColor(colorOf(*next))) {
                expand(next);
            }
        }
    }

private:
    VrexGraphVertexColor& colorOf(const VrexVertex& vertex) { return m_colors[vertex.getID()]; }

    void expand(std::shared_ptr<VrexVertex>& vertex) {
        colorOf(*vertex) = VrexGraphVertexColor::Black;
        m_graph.getAdjacents(vertex); // throws for a vertex that the graph does not know
        const std::uint64_t index = m_graph.getIndex(vertex);
        for (std::size_t i = 0; index < m_graph.numVertices() && i < m_graph.getAdjacents(index).size();
             ++i) {
            pass(vertex, index, i);
        }
        m_visitor.finishVertex(m_graph, vertex);
    }
    void pass(const std::shared_ptr<VrexVertex>& vertex, std::uint64_t index, std::size_t i) {
        m_visitor.examineEdge(m_graph, m_graph.getAdjacents(index)[i]);
        const std::shared_ptr<VrexVertex> other = m_graph.getAdjacents(index)[i].getAnother(vertex);
        if (other != nullptr && !isVisitedColor(colorOf(*other)) && !m_visitor.isStopped()) {
            m_queue.push_back(other);
        }
        m_visitor.finishEdge(m_graph, m_graph.getAdjacents(index)[i]);
        // Kept: behind the test, and for finished vertices too.
        if (other != nullptr && !isFixedColor(colorOf(*other))) {
            colorOf(*other) = VrexGraphVertexColor::Gray;
        }
    }

    VrexConstraintGraph& m_graph;
    VrexGraphVisitor& m_visitor;
    VrexGraphColorMap& m_colors;
    std::vector<std::shared_ptr<VrexVertex>> m_queue; ///< Shares: lists may move while a visitor adds.
};

} // namespace

void VrexBroadFirstSearch::search(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex,
                                  VrexGraphVisitor& visitor) {
    if (vertex != nullptr) {
        Search(graph, visitor, colorMap()).run(vertex);
    }
}
