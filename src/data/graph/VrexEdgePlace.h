#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexEdge.h"

/// Hidden: how far a walk has come with the edges of a vertex. It is asked anew after every call of a
/// visitor, which may have changed the graph.
struct VrexEdgePlace {
    std::uint64_t index; ///< Of the vertex; one of an unknown kind has no index, and no edges.
    std::size_t next = 0;

    /// Null where there is no further edge.
    VrexEdge* edgeIn(VrexConstraintGraph& graph) const {
        if (index >= graph.numVertices()) {
            return nullptr;
        }
        std::vector<VrexEdge>& edges = graph.getAdjacents(index);
        return next < edges.size() ? &edges[next] : nullptr;
    }
};
