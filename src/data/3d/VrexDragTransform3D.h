#pragma once

#include <memory>

#include "data/VrexTransformMatrix3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// An entity that a drag moves by a matrix; by default none, and the identity.
struct VrexDragTransform3D {
    std::shared_ptr<VrexGeometry3D> geometry;
    VrexTransformMatrix3D matrix;
};
