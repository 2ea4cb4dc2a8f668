#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace nsUrdfChain {

inline constexpr std::size_t NONE = static_cast<std::size_t>(-1);

/// Goes from `start` to what `next` tells, over and over, up to what is known or where it tells `NONE`. The
/// places passed, the last one first; nothing where that goes round in a ring of the `count` places.
template <class Next>
std::optional<std::vector<std::size_t>> backFrom(std::size_t start, std::size_t count,
                                                 const std::vector<bool>& isKnown, Next next) {
    std::vector<std::size_t> path;
    for (std::size_t place = start; place != NONE && !isKnown[place]; place = next(place)) {
        if (path.size() == count) {
            return std::nullopt;
        }
        path.push_back(place);
    }
    return std::vector<std::size_t>(path.rbegin(), path.rend());
}

} // namespace nsUrdfChain
