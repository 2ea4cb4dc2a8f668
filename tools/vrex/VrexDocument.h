#pragma once

#include <string>
#include <utility>
#include <vector>

#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "tolvbase/LumoJson.h"

/// A system as it was read, and what else the document told.
struct VrexDocument {
    std::string title; ///< What messages call it.
    VrexImmutableSystem3D system;
    /// Keys of the root that are not the system's, in their order; they are written as they were read.
    std::vector<std::pair<std::string, LumoJson>> furtherKeys;
};
