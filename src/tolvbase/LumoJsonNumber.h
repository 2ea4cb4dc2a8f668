#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Numbers of JSON texts, exactly and in no locale.
namespace nsLumoJsonNumber {

struct Number {
    enum class Kind { Unsigned, Negative, Double };
    Kind kind = Kind::Unsigned;
    std::uint64_t bits = 0; ///< Of the unsigned integer, the negative one in two's complement or the double.
};

enum class Result { Read, Malformed, TooLarge };

/// The bytes at the start of `text` that make a number by the grammar; 0 if there is none.
[[nodiscard]] std::size_t length(std::string_view text) noexcept;

/// Reads the number that is all of `token`: an integer if it has neither fraction nor exponent and 64 bits
/// hold it, else the nearest double. "-0" is a double, for its sign. A number too small for any double is
/// zero.
[[nodiscard]] Result read(std::string_view token, Number& out) noexcept;

} // namespace nsLumoJsonNumber
