#pragma once

#include <cstdint>

/// How far a walk has come with a vertex.
enum class VrexGraphVertexColor : std::uint32_t {
    White = 0,          ///< Not visited.
    Gray = 1,           ///< Visited, being expanded or queued.
    Black = 2,          ///< Finished.
    FixedUnvisited = 3, ///< A geometry of the fixed map that the walk has not met yet.
    FixedVisited = 4,   ///< A fixed geometry that was taken into a component.
    PartOfFixed = 5,    ///< A part of a fixed geometry, taken into a component without being visited.
};

/// Whether a walk does not pass through a vertex of this colour.
constexpr bool isFixedColor(VrexGraphVertexColor color) {
    return color == VrexGraphVertexColor::FixedUnvisited || color == VrexGraphVertexColor::FixedVisited;
}

/// Whether a walk need not turn to a vertex of this colour again.
constexpr bool isVisitedColor(VrexGraphVertexColor color) {
    return color == VrexGraphVertexColor::Gray || color == VrexGraphVertexColor::Black;
}
