#pragma once

#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

/// Hidden: the kinds of entities whose directions constraints of directions compare. The validator of
/// constraint requests has tables of its own, which differ.
inline constexpr VrexGeometry3DTypeSet DIRECTED_KINDS = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{LINE,  PLANE,        CYLINDER,     CIRCLE,     CONE,         ELLIPSE,
                                 TORUS, SPIN_SURFACE, EVAL_SURFACE, EVAL_CURVE, SWEEP_SURFACE};
}();
