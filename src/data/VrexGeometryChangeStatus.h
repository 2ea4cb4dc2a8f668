#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// What the last solve did to a geometry.
enum class VrexGeometryChangeStatus : std::int32_t {
    Unknown = -1,
    Fixed = 0,
    Changed = 1,
    NotChanged = 2,
};

template <>
struct VrexEnumTable<VrexGeometryChangeStatus> {
    static constexpr const char* NAME = "enum VrexGeometryChangeStatus";
    static constexpr VrexEnumRow<VrexGeometryChangeStatus> ROWS[] = {
        {VrexGeometryChangeStatus::Unknown, "Unknown"},
        {VrexGeometryChangeStatus::Fixed, "Fixed"},
        {VrexGeometryChangeStatus::Changed, "Changed"},
        {VrexGeometryChangeStatus::NotChanged, "NotChanged"},
    };
};
