#pragma once

#include <cstdint>

/// What a `LumoJson` holds. The numbers are part of the interface.
enum class LumoJsonType : std::uint8_t {
    Null = 0,
    Object = 1,
    Array = 2,
    String = 3,
    Boolean = 4,
    Number = 7
};
