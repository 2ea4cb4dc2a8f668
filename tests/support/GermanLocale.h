#pragma once

#include <clocale>
#include <locale>
#include <string_view>

/// The process locale has a decimal comma while this lives. Throws `std::runtime_error` where the locale is
/// not installed: the test fails then.
class GermanLocale {
public:
    GermanLocale() : m_previous(std::locale::global(std::locale("de_DE.UTF-8"))) {}
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;
    ~GermanLocale() { std::locale::global(m_previous); }

    /// Whether the C library writes a decimal comma now.
    [[nodiscard]] static bool isSet() { return std::string_view(std::localeconv()->decimal_point) == ","; }

private:
    std::locale m_previous;
};
