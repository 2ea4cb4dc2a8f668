#pragma once

#include <cstdarg>
#include <string>

#include "tolvbase/TolvExport.h"

namespace Tolv {

/// The text that printf would print in the "C" locale, whatever the locale of the process: numbers have a
/// point. Empty for a null format and where the C library refuses: "%lc" and "%ls" take ASCII only in that
/// locale. The result keeps embedded zero bytes that "%c" writes. Throws `std::bad_alloc` only.
[[nodiscard]] TOLV_EXPORT std::string formatString(const char* format, ...)
    __attribute__((format(printf, 1, 2)));

/// `formatString` for an argument list; leaves `arguments` as it found it.
[[nodiscard]] TOLV_EXPORT std::string formatStringV(const char* format, va_list arguments)
    __attribute__((format(printf, 1, 0)));

} // namespace Tolv
