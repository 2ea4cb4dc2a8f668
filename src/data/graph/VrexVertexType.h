#pragma once

#include <cstdint>

/// What a vertex of a constraint graph wraps.
enum class VrexVertexType : std::uint32_t {
    Geometry = 0,
    Constraint = 1,
};
