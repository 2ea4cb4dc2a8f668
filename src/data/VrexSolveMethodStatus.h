#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// How the solver treated a constraint.
enum class VrexSolveMethodStatus : std::int32_t {
    Unknown = -1,
    Numerical = 0,
    Analytical = 1,
};

template <>
struct VrexEnumTable<VrexSolveMethodStatus> {
    static constexpr const char* NAME = "enum VrexSolveMethodStatus";
    static constexpr VrexEnumRow<VrexSolveMethodStatus> ROWS[] = {
        {VrexSolveMethodStatus::Unknown, "Unknown"},
        {VrexSolveMethodStatus::Numerical, "Numerical"},
        {VrexSolveMethodStatus::Analytical, "Analytical"},
    };
};
