#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// Which radius a radius dimension measures.
enum class VrexRadius3DType : std::int32_t {
    Radius3D = 0,
    MajorRadius3D = 1,
    MinorRadius3D = 2,
};

template <>
struct VrexEnumTable<VrexRadius3DType> {
    static constexpr const char* NAME = "enum VrexRadius3DType";
    static constexpr VrexEnumRow<VrexRadius3DType> ROWS[] = {
        {VrexRadius3DType::Radius3D, "Radius3D", "radius"},
        {VrexRadius3DType::MajorRadius3D, "MajorRadius3D", "major"},
        {VrexRadius3DType::MinorRadius3D, "MinorRadius3D", "minor"},
    };
};
