#pragma once

#include <optional>
#include <utility>

/// Lower and upper limit of a value; an end that is empty does not bound. Nothing orders the two.
using VrexDimensionLimits = std::pair<std::optional<double>, std::optional<double>>;
