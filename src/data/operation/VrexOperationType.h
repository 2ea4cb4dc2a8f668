#pragma once

#include <cstdint>

/// What a change did. Its values are those of whoever records the changes: this library stores one and hands
/// it back.
enum class VrexOperationType : std::int32_t {};
