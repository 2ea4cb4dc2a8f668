#pragma once

#include <optional>
#include <utility>

namespace nsInterval {

/// Hidden: the range of a parameter whose ends may be trimmed; an end that is not takes the natural one.
inline std::pair<std::optional<double>, std::optional<double>>
trimmedRange(const std::optional<double>& start, const std::optional<double>& end, double naturalStart,
             double naturalEnd) {
    return {start.value_or(naturalStart), end.value_or(naturalEnd)};
}

} // namespace nsInterval
