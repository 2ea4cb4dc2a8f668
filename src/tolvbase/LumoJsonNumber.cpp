#include "tolvbase/LumoJsonNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

namespace nsLumoJsonNumber {
namespace {

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

std::size_t skipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && isDigit(text[at])) {
        ++at;
    }
    return at;
}

bool stands(std::string_view text, std::size_t at, char first, char second) {
    return at < text.size() && (text[at] == first || text[at] == second);
}

/// Where the fraction at `at` ends; `at` itself if there is none.
std::size_t skipFraction(std::string_view text, std::size_t at) {
    const std::size_t end = stands(text, at, '.', '.') ? skipDigits(text, at + 1) : at;
    return end == at + 1 ? at : end;
}

/// Where the exponent at `at` ends; `at` itself if there is none.
std::size_t skipExponent(std::string_view text, std::size_t at) {
    if (!stands(text, at, 'e', 'E')) {
        return at;
    }
    const std::size_t digits = at + (stands(text, at + 1, '+', '-') ? 2 : 1);
    const std::size_t end = skipDigits(text, digits);
    return end == digits ? at : end;
}

/// Where the integer part of the number ends; 0 if there is none.
std::size_t skipInteger(std::string_view text) {
    const std::size_t first = stands(text, 0, '-', '-') ? 1 : 0;
    const std::size_t end = stands(text, first, '0', '0') ? first + 1 : skipDigits(text, first);
    return end == first ? 0 : end;
}

template <class Number>
bool readAll(std::string_view token, Number& out) {
    const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), out);
    return error == std::errc() && end == token.data() + token.size();
}

/// Whether a number outside the doubles' range is a tiny one: its first digit that counts stands far behind
/// the point, after the exponent is taken into account.
bool isTiny(std::string_view token) {
    const std::size_t mark = std::min(token.find_first_of("eE"), token.size());
    const std::string_view digits = token.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    const auto behindPoint = static_cast<double>(first) - static_cast<double>(point);
    std::int64_t exponent = 0;
    if (mark < token.size()) {
        const std::size_t plus = token[mark + 1] == '+' ? 2 : 1;
        if (!readAll(token.substr(mark + plus), exponent)) {
            return token[mark + 1] == '-';
        }
    }
    return static_cast<double>(exponent) < behindPoint;
}

bool readInteger(std::string_view token, LumoJson& out) {
    std::uint64_t magnitude = 0;
    std::int64_t negative = 0;
    if (token[0] != '-' && readAll(token, magnitude)) {
        LumoJson::toJson(out, static_cast<unsigned long long>(magnitude));
        return true;
    }
    if (token[0] == '-' && readAll(token, negative) && negative != 0) {
        LumoJson::toJson(out, static_cast<long long>(negative));
        return true;
    }
    return false;
}

} // namespace

std::size_t length(std::string_view text) noexcept {
    const std::size_t integer = skipInteger(text);
    return integer == 0 ? 0 : skipExponent(text, skipFraction(text, integer));
}

Result read(std::string_view token, LumoJson& out) noexcept {
    const std::size_t integer = skipInteger(token);
    if (integer == 0 || skipExponent(token, skipFraction(token, integer)) != token.size()) {
        return Result::Malformed;
    }
    if (integer == token.size() && readInteger(token, out)) {
        return Result::Read;
    }
    double value = 0;
    if (!readAll(token, value)) {
        if (!isTiny(token)) {
            return Result::TooLarge;
        }
        value = token[0] == '-' ? -0.0 : 0.0;
    }
    if (!std::isfinite(value)) {
        return Result::TooLarge;
    }
    LumoJson::toJson(out, value);
    return Result::Read;
}

} // namespace nsLumoJsonNumber
