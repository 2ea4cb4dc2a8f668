#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// How a constraint stands in its system.
enum class VrexConstraintStatus : std::int32_t {
    Unknown = -1,
    Overdefined = 0,
    BetweenFixed = 1,
    BetweenSetMembers = 2,
    Regular = 3,
    NotSolved = 4,
};

template <>
struct VrexEnumTable<VrexConstraintStatus> {
    static constexpr const char* NAME = "enum VrexConstraintStatus";
    static constexpr VrexEnumRow<VrexConstraintStatus> ROWS[] = {
        {VrexConstraintStatus::Unknown, "Unknown"},
        {VrexConstraintStatus::Overdefined, "Overdefined"},
        {VrexConstraintStatus::BetweenFixed, "BetweenFixed"},
        {VrexConstraintStatus::BetweenSetMembers, "BetweenSetMembers"},
        {VrexConstraintStatus::Regular, "Regular"},
        {VrexConstraintStatus::NotSolved, "NotSolved"},
    };
};
