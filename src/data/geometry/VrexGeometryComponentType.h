#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// The part of a geometry that a constraint binds; `UNKNOWN` means the geometry itself.
enum class VrexGeometryComponentType : std::int32_t {
    UNKNOWN = 0,
    CENTER = 1,
    AXIS = 2,
    PLANE = 3,
    SPINE = 4,
    APEX = 5,
    MAJOR = 6,
    MINOR = 7,
    EXTERIOR = 8,
};

template <>
struct VrexEnumTable<VrexGeometryComponentType> {
    static constexpr const char* NAME = "enum VrexGeometryComponentType";
    static constexpr VrexEnumRow<VrexGeometryComponentType> ROWS[] = {
        {VrexGeometryComponentType::UNKNOWN, "Unknown", "u"},
        {VrexGeometryComponentType::CENTER, "Center", "cn"},
        {VrexGeometryComponentType::AXIS, "Axis", "ax"},
        {VrexGeometryComponentType::PLANE, "Plane", "pl"},
        {VrexGeometryComponentType::SPINE, "Spine", "sp"},
        {VrexGeometryComponentType::APEX, "Apex", "ap"},
        {VrexGeometryComponentType::MAJOR, "Major", "mj"},
        {VrexGeometryComponentType::MINOR, "Minor", "mn"},
        {VrexGeometryComponentType::EXTERIOR, "Exterior", "ex"},
    };
};
