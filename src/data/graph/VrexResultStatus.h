#pragma once

#include <cstdint>

/// What the solver made of a connected component. Its values are the solver's: this library stores one and
/// hands it back.
enum class VrexResultStatus : std::int32_t {};
