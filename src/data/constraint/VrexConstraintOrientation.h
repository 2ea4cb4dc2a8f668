#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// The solution branch that the caller asks for, by the side.
enum class VrexConstraintOrientation : std::int32_t {
    Unknown = -1,
    Current = 0,
    Positive = 1,
    Negative = 2,
    Any = 3,
};

template <>
struct VrexEnumTable<VrexConstraintOrientation> {
    static constexpr const char* NAME = "enum VrexConstraintOrientation";
    static constexpr VrexEnumRow<VrexConstraintOrientation> ROWS[] = {
        {VrexConstraintOrientation::Unknown, "Unknown", "?"},
        {VrexConstraintOrientation::Current, "Current", "c"},
        {VrexConstraintOrientation::Positive, "Positive", "p"},
        {VrexConstraintOrientation::Negative, "Negative", "n"},
        {VrexConstraintOrientation::Any, "Any", "a"},
    };
};
