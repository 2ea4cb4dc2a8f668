#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

/// A line of a file.
struct VrexUrdfPlace {
    std::string file; ///< As it was named; empty for a text.
    int line = 0;     ///< From 1 on.
};

namespace nsUrdfPlace {

/// The line of the byte at `offset`.
inline int lineAt(std::string_view text, std::size_t offset) {
    return 1 + static_cast<int>(std::ranges::count(text.substr(0, offset), '\n'));
}

} // namespace nsUrdfPlace
