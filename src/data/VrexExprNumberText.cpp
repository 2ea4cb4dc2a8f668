#include "data/VrexExprNumberText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

namespace {

/// Exponents beyond count as this one, which is more than any text has digits.
constexpr std::int64_t LARGEST_EXPONENT = std::int64_t{1} << 62;

/// Whether a number that no double holds is too large; otherwise it is too small.
///
/// Decides by the place of the first digit that is not 0: n places before the point for n > 0, with the
/// exponent added.
bool isTooLarge(std::string_view number) {
    const std::size_t exponentAt = std::min(number.find('e'), number.size());
    const std::string_view mantissa = number.substr(0, exponentAt);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t digit = std::min(mantissa.find_first_not_of("0."), mantissa.size());
    const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(digit);
    if (exponentAt == number.size()) {
        return place > 0;
    }
    std::string_view exponent = number.substr(exponentAt + 1);
    const bool isNegative = exponent.starts_with('-');
    exponent.remove_prefix(isNegative || exponent.starts_with('+') ? 1 : 0);
    // Stays as it is where the conversion finds more than it can hold.
    std::int64_t size = LARGEST_EXPONENT;
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), size);
    size = std::min(size, LARGEST_EXPONENT);
    return place + (isNegative ? -size : size) > 0;
}

} // namespace

double nsExprNumberText::read(std::string_view text) {
    double value = 0.0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (failure == std::errc::result_out_of_range) {
        const std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.data()));
        return isTooLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}
