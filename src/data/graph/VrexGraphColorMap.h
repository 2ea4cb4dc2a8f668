#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "data/graph/VrexGraphVertexColor.h"

/// The colours of a walk by the identifier of the wrapped object.
using VrexGraphColorMap = std::unordered_map<std::uint64_t, VrexGraphVertexColor>;

/// Colours that a walk left in flat arrays; they enter the map when somebody asks for a colour.
struct VrexGraphFlatColors {
    std::vector<std::uint64_t> ids;
    std::vector<std::uint8_t> colors; ///< As many.

    void moveInto(VrexGraphColorMap& map) {
        if (ids.empty()) {
            return;
        }
        map.reserve(map.size() + ids.size());
        for (std::size_t i = 0; i < ids.size(); ++i) {
            map[ids[i]] = static_cast<VrexGraphVertexColor>(colors[i]);
        }
        *this = {};
    }
};
