#include "tolvbase/TolvFormat.h"

#include <cstdio>

#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale and uselocale are POSIX

namespace Tolv {
namespace {

/// The calling thread formats in the "C" locale for as long as this lives.
class ClassicLocaleScope {
public:
    ClassicLocaleScope() : m_previous(uselocale(classic())) {}
    ClassicLocaleScope(const ClassicLocaleScope&) = delete;
    ClassicLocaleScope& operator=(const ClassicLocaleScope&) = delete;
    ~ClassicLocaleScope() { uselocale(m_previous); }

private:
    static locale_t classic() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t m_previous;
};

} // namespace

std::string formatStringV(const char* format, va_list arguments) {
    if (format == nullptr) {
        return {};
    }
    const ClassicLocaleScope scope;
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
