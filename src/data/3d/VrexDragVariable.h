#pragma once

#include <memory>

#include "data/geometry/VrexGeometryVariable.h"

/// A free scalar that a drag takes to a value.
struct VrexDragVariable {
    std::shared_ptr<VrexGeometryVariable> variable;
    double value;
};
