#pragma once

#include <cstddef>
#include <string_view>

#include "tolvbase/TolvExport.h"

/// UTF-8 as Unicode defines it: no surrogates, nothing above U+10FFFF, no longer form than needed.
namespace nsTolvUtf8 {

/// U+FEFF at the start of a text, where it says "UTF-8" and is no part of the text.
inline constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

/// The bytes of the character at the start of a text that is not empty; 0 if there is no valid one.
[[nodiscard]] TOLV_EXPORT std::size_t characterLength(std::string_view text) noexcept;

/// Where the first byte stands that starts no valid character; `npos` for a valid text.
[[nodiscard]] TOLV_EXPORT std::size_t findInvalid(std::string_view text) noexcept;

} // namespace nsTolvUtf8
