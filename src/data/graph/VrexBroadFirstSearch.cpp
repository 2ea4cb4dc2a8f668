#include "data/graph/VrexBroadFirstSearch.h"

#include <cstddef>
#include <memory>
#include <vector>

#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexEdgePlace.h"
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
        VrexEdgePlace place{m_graph.getIndex(vertex)};
        for (; VrexEdge* const edge = place.edgeIn(m_graph); ++place.next) {
            pass(vertex, place, *edge);
        }
        m_visitor.finishVertex(m_graph, vertex);
    }
    void pass(const std::shared_ptr<VrexVertex>& vertex, const VrexEdgePlace& place, VrexEdge& edge) {
        m_visitor.examineEdge(m_graph, edge);
        const VrexEdge* const left = place.edgeIn(m_graph);
        const std::shared_ptr<VrexVertex> other = left != nullptr ? left->getAnother(vertex) : nullptr;
        if (other != nullptr && !isVisitedColor(colorOf(*other)) && !m_visitor.isStopped()) {
            m_queue.push_back(other);
        }
        if (VrexEdge* const finished = place.edgeIn(m_graph)) {
            m_visitor.finishEdge(m_graph, *finished);
        }
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
