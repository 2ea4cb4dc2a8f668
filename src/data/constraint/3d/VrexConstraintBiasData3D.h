#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "data/VrexExport.h"

/// What an outside solver remembers about a constraint: two lists of records whose meaning is the solver's.
/// They are carried, copied and assigned with the constraint, and neither read nor persisted.
struct VREX_DATA_EXPORT VrexConstraintBiasData3D {
    using Record = std::pair<std::uint64_t, double>;

    std::vector<Record> first;
    std::vector<Record> second;

    bool operator==(const VrexConstraintBiasData3D&) const = default;
};
