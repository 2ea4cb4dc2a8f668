#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "data/graph/VrexEdgeIndex.h"
#include "data/graph/VrexGraphColorMap.h"
#include "data/graph/VrexGraphVertexColor.h"
#include "data/graph/VrexVertexType.h"

class VrexComponentGenerator;
class VrexConstraintGraph;

/// Hidden: the walk of the component generator on vertex indices, which makes no vertex and no edge.
///
/// The same components as by its callbacks, with the same content in the same order, and the same colours in
/// the end. What only callbacks could tell apart is left out: a depth-first walk ends with everything that is
/// neither fixed nor unmet in black, so it does not pass through gray.
class VrexIndexWalk {
public:
    /// Whether the graph is what its index says: no two objects have one identifier, and the vertices and
    /// edges that were handed out have not been written to.
    static bool isAble(VrexConstraintGraph& graph);

    VrexIndexWalk(VrexConstraintGraph& graph, VrexComponentGenerator& generator);

    /// False, and nothing done, if an object no longer has the identifier with which it came.
    bool traverse(bool isDepthFirst);
    /// The colours of all vertices in the end; those of parts that are none go into `others`.
    VrexGraphFlatColors takeColors(VrexGraphColorMap& others);

    /// For those who colour by identifier.
    VrexGraphVertexColor vertexColor(std::uint64_t id);
    void setFixGeometryColor(std::uint64_t id, VrexGraphVertexColor color);

private:
    void search(bool isDepthFirst);
    void searchFrom(VrexVertexType type, bool isDepthFirst);
    void searchDepthFirst(std::uint32_t seed);
    /// Takes the vertex at the other end with nothing but one more edge, by which the search then goes on;
    /// false, and nothing done, where it is not known to be such a one.
    bool passThrough(const VrexEdgeIndex::Incidence& next);
    void searchBroadFirst(std::uint32_t seed);
    /// Fetches what the vertices behind the one at `head` are expanded by.
    void prefetchQueued(std::size_t head) const;
    void expandBroadFirst(std::uint32_t index);
    /// Takes a vertex into the component; false where the walk does not pass through it.
    bool discover(std::uint32_t index, bool isFixed);
    void noteIdentifier(std::uint32_t index);
    /// Those that were discovered since, in order.
    void takeWaiting();
    void take(std::uint32_t index);

    VrexGraphVertexColor color(std::uint32_t index) const {
        return static_cast<VrexGraphVertexColor>(m_colors[index]);
    }
    void setColor(std::uint32_t index, VrexGraphVertexColor color) {
        m_colors[index] = static_cast<std::uint8_t>(color);
    }

    VrexConstraintGraph& m_graph;
    VrexComponentGenerator& m_generator;
    std::vector<std::uint8_t> m_colors;
    VrexGraphColorMap m_colorsOfOthers; ///< Of parts without a vertex.
    std::vector<std::uint32_t> m_waiting;
    bool m_isRenumbered = false; ///< An object was met with an identifier that the index does not know.
    bool m_isSpecial = false;    ///< The component may hold what the walk has yet to meet.
    std::vector<VrexEdgeIndex::Range> m_frames;
    std::vector<std::uint32_t> m_queue;
};
