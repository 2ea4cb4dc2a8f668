#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// What a fixation holds.
enum class VrexFixation3DType : std::int32_t {
    Unknown = -1,
    Complete3D = 0,
    Direction3D = 1,
    Location3D = 2,
    Radius3D = 3,
    MajorRadius3D = 4,
    MinorRadius3D = 5,
    Aperture3D = 6,
    EllipseDirection3D = 7,
};

template <>
struct VrexEnumTable<VrexFixation3DType> {
    static constexpr const char* NAME = "enum VrexFixation3DType";
    static constexpr VrexEnumRow<VrexFixation3DType> ROWS[] = {
        {VrexFixation3DType::Unknown, "Unknown", "?"},
        {VrexFixation3DType::Complete3D, "Complete3D", "comp"},
        {VrexFixation3DType::Direction3D, "Direction3D", "dir"},
        {VrexFixation3DType::Location3D, "Location3D", "loc"},
        {VrexFixation3DType::Radius3D, "Radius3D", "rad"},
        {VrexFixation3DType::MajorRadius3D, "MajorRadius3D", "maj"},
        {VrexFixation3DType::MinorRadius3D, "MinorRadius3D", "min"},
        {VrexFixation3DType::Aperture3D, "Aperture3D", "apert"},
        {VrexFixation3DType::EllipseDirection3D, "EllipseDirection3D", "elDir"},
    };
};
