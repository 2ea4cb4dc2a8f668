#pragma once

#include <cstddef>
#include <string_view>

/// What the XML reader lets through although no XML may hold it.
namespace nsXmlCharacters {

/// Where the first control character stands, or the first reference to a character that XML does not know
/// (`&#0;` would end the text that it stands in); `npos` where there is none.
std::size_t findForbidden(std::string_view text);

} // namespace nsXmlCharacters
