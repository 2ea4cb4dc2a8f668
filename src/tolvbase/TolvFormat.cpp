#include "tolvbase/TolvFormat.h"

#include <cstdio>

namespace Tolv {

std::string formatStringV(const char* format, va_list arguments) {
    if (format == nullptr) {
        return {};
    }
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    if (length <= 0) {
        return {};
    }
    std::string text(static_cast<std::size_t>(length), '\0');
    va_list written;
    va_copy(written, arguments);
    std::vsnprintf(text.data(), text.size() + 1, format, written);
    va_end(written);
    return text;
}

std::string formatString(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::string text = formatStringV(format, arguments);
    va_end(arguments);
    return text;
}

} // namespace Tolv
