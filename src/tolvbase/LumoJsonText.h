#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tolvbase/TolvExport.h"

/// The texts of single values as `LumoJson::dump` writes them, for those who write JSON without making values
/// first.
namespace nsLumoJsonText {

/// Throws `std::runtime_error` for a number that is not finite, and appends nothing.
TOLV_EXPORT void append(std::string& text, double value);
TOLV_EXPORT void append(std::string& text, std::uint64_t value);
TOLV_EXPORT void append(std::string& text, std::int64_t value);
/// In quotation marks. Throws `std::runtime_error` for text that is not valid UTF-8, and appends nothing.
TOLV_EXPORT void append(std::string& text, std::string_view value);

} // namespace nsLumoJsonText
