#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class VrexBaseObject;

/// How reports call objects, and count them.
namespace nsVrexObjectNames {

/// As documents have it, "Variable" for a free scalar.
std::string_view kindOf(const VrexBaseObject& object);

/// Such as `Point3D "corner" (id 7)`.
std::string nameOf(const VrexBaseObject& object);
std::string nameOf(std::string_view kind, std::string_view label, std::string_view id);

/// Such as "1 component" and "2 components".
std::string countOf(std::size_t count, std::string_view one, std::string_view several);

} // namespace nsVrexObjectNames
