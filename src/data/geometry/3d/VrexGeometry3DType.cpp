#include "data/geometry/3d/VrexGeometry3DType.h"

#include <cstddef>
#include <iterator>

namespace {

/// Indexed by value plus one.
constexpr const char* ENUMERATOR_TEXTS[] = {
    "UNKNOWN",      "POINT",         "LINE",
    "PLANE",        "RIGID_SET",     "NURBS_SURFACE",
    "CYLINDER",     "SPHERE",        "CIRCLE",
    "SPLINE",       "CONE",          "ELLIPSE",
    "TORUS",        "CONNECTOR",     "SPIN_SURFACE",
    "EVAL_SURFACE", "EVAL_CURVE",    "SWEEP_SURFACE",
    "PATTERN",      "ARRAY_PATTERN", "EQUAL_DIMENSION_ELEMENT",
    "TYPES_COUNT",
};

} // namespace

const char* getEnumeratorText(VrexGeometry3DType type) {
    const std::int64_t index = static_cast<std::int64_t>(type) + 1;
    if (index < 0 || index >= static_cast<std::int64_t>(std::size(ENUMERATOR_TEXTS))) {
        nsEnum::raiseNoText(VrexEnumTable<VrexGeometry3DType>::NAME, static_cast<std::int64_t>(type));
    }
    return ENUMERATOR_TEXTS[static_cast<std::size_t>(index)];
}
