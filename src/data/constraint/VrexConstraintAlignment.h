#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// The solution branch that the caller asks for, by the sense of the directions.
enum class VrexConstraintAlignment : std::int32_t {
    Unknown = -1,
    Current = 0,
    Positive = 1,
    Negative = 2,
    Any = 3,
};

template <>
struct VrexEnumTable<VrexConstraintAlignment> {
    static constexpr const char* NAME = "enum VrexConstraintAlignment";
    static constexpr VrexEnumRow<VrexConstraintAlignment> ROWS[] = {
        {VrexConstraintAlignment::Unknown, "Unknown", "?"},
        {VrexConstraintAlignment::Current, "Current", "c"},
        {VrexConstraintAlignment::Positive, "Positive", "p"},
        {VrexConstraintAlignment::Negative, "Negative", "n"},
        {VrexConstraintAlignment::Any, "Any", "a"},
    };
};
