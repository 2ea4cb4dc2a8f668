#pragma once

#include <string>
#include <string_view>

/// How messages write names.
namespace nsUrdfNames {

inline std::string quoted(std::string_view name) { return std::string("\"").append(name).append("\""); }

} // namespace nsUrdfNames
