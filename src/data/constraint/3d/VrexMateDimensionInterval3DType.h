#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// Which kind of mate dimension an interval bounds.
enum class VrexMateDimensionInterval3DType : std::int32_t {
    AngleDimension3D = 0,
    LinearDimension3D = 1,
};

template <>
struct VrexEnumTable<VrexMateDimensionInterval3DType> {
    static constexpr const char* NAME = "enum VrexMateDimensionInterval3DType";
    static constexpr VrexEnumRow<VrexMateDimensionInterval3DType> ROWS[] = {
        {VrexMateDimensionInterval3DType::AngleDimension3D, "AngleDimension3D", "angle"},
        {VrexMateDimensionInterval3DType::LinearDimension3D, "LinearDimension3D", "linear"},
    };
};
