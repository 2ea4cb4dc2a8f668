#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// How the elements of a pattern follow each other.
enum class VrexPattern3DType : std::int32_t {
    Linear3D = 0,
    Circular3D = 1,
};

template <>
struct VrexEnumTable<VrexPattern3DType> {
    static constexpr const char* NAME = "enum VrexPattern3DType";
    static constexpr VrexEnumRow<VrexPattern3DType> ROWS[] = {
        {VrexPattern3DType::Linear3D, "Linear3D", "linear"},
        {VrexPattern3DType::Circular3D, "Circular3D", "circular"},
    };
};
