#pragma once

#include <memory>
#include <utility>

#include "data/3d/VrexDragParameter3DType.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// An entity of which a drag takes one parameter to a value. What the type means is the solver's: it is
/// passed on, whatever its number.
struct VrexDragParameter3D {
    /// Kept: not in the order of the fields.
    VrexDragParameter3D(std::shared_ptr<VrexGeometry3D> entity, VrexDragParameter3DType parameterType,
                        double targetValue)
        : geometry(std::move(entity)), value(targetValue), type(parameterType) {}

    std::shared_ptr<VrexGeometry3D> geometry;
    double value;
    VrexDragParameter3DType type;
};
