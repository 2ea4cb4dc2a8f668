#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// What of a torus an incidence refers to.
enum class VrexIncidence3DType : std::int32_t {
    Default = -1,
    AroundSpine = 0,
    ToSpine = 1,
};

template <>
struct VrexEnumTable<VrexIncidence3DType> {
    static constexpr const char* NAME = "enum VrexIncidence3DType";
    static constexpr VrexEnumRow<VrexIncidence3DType> ROWS[] = {
        {VrexIncidence3DType::Default, "Default"},
        {VrexIncidence3DType::AroundSpine, "AroundSpine"},
        {VrexIncidence3DType::ToSpine, "ToSpine"},
    };
};
