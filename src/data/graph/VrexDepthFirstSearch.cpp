#include "data/graph/VrexDepthFirstSearch.h"

#include <memory>
#include <utility>
#include <vector>

#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexEdgePlace.h"
#include "data/graph/VrexGraphVisitor.h"

namespace {

/// A vertex being expanded; systems are deeper than a call stack.
struct Frame {
    std::shared_ptr<VrexVertex> vertex;
    VrexEdgePlace place;
    bool isInside = false; ///< The search from the other end of the next edge has begun.
};

/// The steps of one search, in the order in which a recursion would make them.
class Search {
public:
    Search(VrexConstraintGraph& graph, VrexGraphVisitor& visitor, VrexGraphColorMap& colors)
        : m_graph(graph), m_visitor(visitor), m_colors(colors) {}

    void run(const std::shared_ptr<VrexVertex>& vertex) {
        enter(vertex);
        while (!m_frames.empty()) {
            step(m_frames.back());
        }
    }

private:
    VrexGraphVertexColor& colorOf(const VrexVertex& vertex) { return m_colors[vertex.getID()]; }

    void enter(std::shared_ptr<VrexVertex> vertex) {
        m_visitor.discoverVertex(m_graph, vertex);
        VrexGraphVertexColor& color = colorOf(*vertex);
        if (isFixedColor(color)) {
            return;
        }
        color = VrexGraphVertexColor::Gray;
        m_graph.getAdjacents(vertex); // throws for a vertex that the graph does not know
        const std::uint64_t index = m_graph.getIndex(vertex);
        m_frames.push_back({std::move(vertex), {index}});
    }
    void step(Frame& frame) {
        if (frame.isInside) {
            frame.isInside = false;
            finishEdge(frame);
            return;
        }
        VrexEdge* const edge = frame.place.edgeIn(m_graph);
        if (edge == nullptr) {
            leave();
        } else if (m_visitor.isStopped()) {
            m_frames.pop_back();
        } else {
            examine(frame, *edge);
        }
    }
    void examine(Frame& frame, VrexEdge& edge) {
        m_visitor.examineEdge(m_graph, edge);
        const VrexEdge* const left = frame.place.edgeIn(m_graph);
        std::shared_ptr<VrexVertex> other = left != nullptr ? left->getAnother(frame.vertex) : nullptr;
        if (other != nullptr && !isVisitedColor(colorOf(*other)) && !m_visitor.isStopped()) {
            frame.isInside = true;
            enter(std::move(other));
        } else {
            finishEdge(frame);
        }
    }
    void finishEdge(Frame& frame) {
        if (VrexEdge* const edge = frame.place.edgeIn(m_graph)) {
            m_visitor.finishEdge(m_graph, *edge);
        }
        ++frame.place.next;
    }
    void leave() {
        Frame frame = std::move(m_frames.back());
        m_frames.pop_back();
        VrexGraphVertexColor& color = colorOf(*frame.vertex);
        if (!isFixedColor(color)) {
            color = VrexGraphVertexColor::Black;
        }
        m_visitor.finishVertex(m_graph, frame.vertex);
    }

    VrexConstraintGraph& m_graph;
    VrexGraphVisitor& m_visitor;
    VrexGraphColorMap& m_colors;
    std::vector<Frame> m_frames;
};

} // namespace

void VrexDepthFirstSearch::search(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex,
                                  VrexGraphVisitor& visitor) {
    if (vertex != nullptr) {
        Search(graph, visitor, colorMap()).run(vertex);
    }
}
