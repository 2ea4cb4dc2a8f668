#pragma once

#include <cstdint>

/// The freedoms that a geometry of the plane has left. The solver's: nothing in space fills it.
struct VrexDegreesOfFreedom2D {
    std::int32_t translations = 0;
    std::int32_t rotations = 0;
};
