#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// Which parameter of an entity a drag moves.
enum class VrexDragParameter3DType : std::int32_t {
    Unknown = -1,
    Aperture3D = 0,
    Radius3D = 1,
    MajorRadius3D = 2,
    MinorRadius3D = 3,
};

template <>
struct VrexEnumTable<VrexDragParameter3DType> {
    static constexpr const char* NAME = "enum VrexDragParameter3DType";
    static constexpr VrexEnumRow<VrexDragParameter3DType> ROWS[] = {
        {VrexDragParameter3DType::Unknown, "Unknown", "?"},
        {VrexDragParameter3DType::Aperture3D, "Aperture3D"},
        {VrexDragParameter3DType::Radius3D, "Radius3D"},
        {VrexDragParameter3DType::MajorRadius3D, "MajorRadius3D"},
        {VrexDragParameter3DType::MinorRadius3D, "MinorRadius3D"},
    };
};
