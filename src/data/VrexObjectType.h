#pragma once

#include <cstdint>

/// The base kind of an object.
enum class VrexObjectType : std::uint64_t { Constraint = 0, Equation = 1, Geometry = 2, Variable = 3 };
