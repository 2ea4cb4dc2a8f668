#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// Whether the geometries meet a constraint.
enum class VrexConstraintSatisfiedStatus : std::int32_t {
    Unknown = -1,
    Satisfied = 0,
    NotSatisfied = 1,
};

template <>
struct VrexEnumTable<VrexConstraintSatisfiedStatus> {
    static constexpr const char* NAME = "enum VrexConstraintSatisfiedStatus";
    static constexpr VrexEnumRow<VrexConstraintSatisfiedStatus> ROWS[] = {
        {VrexConstraintSatisfiedStatus::Unknown, "Unknown"},
        {VrexConstraintSatisfiedStatus::Satisfied, "Satisfied"},
        {VrexConstraintSatisfiedStatus::NotSatisfied, "NotSatisfied"},
    };
};
