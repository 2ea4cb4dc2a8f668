#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// How far the solver could determine a geometry.
enum class VrexGeometryStatus : std::int32_t {
    Unknown = -1,
    Welldefined = 0,
    Underdefined = 1,
    Overdefined = 2,
    NotSolved = 3,
};

template <>
struct VrexEnumTable<VrexGeometryStatus> {
    static constexpr const char* NAME = "enum VrexGeometryStatus";
    static constexpr VrexEnumRow<VrexGeometryStatus> ROWS[] = {
        {VrexGeometryStatus::Unknown, "Unknown"},           {VrexGeometryStatus::Welldefined, "Welldefined"},
        {VrexGeometryStatus::Underdefined, "Underdefined"}, {VrexGeometryStatus::Overdefined, "Overdefined"},
        {VrexGeometryStatus::NotSolved, "NotSolved"},
    };
};
