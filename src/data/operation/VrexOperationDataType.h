#pragma once

#include <cstdint>

/// Which kind of object a change record names.
enum class VrexOperationDataType : std::int32_t {
    Geometry = 0,
    Constraint = 1,
};
