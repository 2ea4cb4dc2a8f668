#pragma once

#include <cstddef>
#include <cstdint>

/// Doubles as decimal numbers.
namespace nsLumoJsonDouble {

/// `digits` times ten to `exponent`.
struct Decimal {
    std::uint64_t digits;
    int exponent;
};

/// Of the decimal numbers with the fewest digits that read back as `value`, the nearest to it. Zeros at the
/// end are left off. `value` has to be finite, above zero and no integer.
[[nodiscard]] Decimal shortest(double value) noexcept;

/// What `write` needs, more than it uses.
constexpr std::size_t BUFFER = 64;

/// Writes the text of `std::to_chars`, and ".0" behind an integer. Takes finite values, and returns the end.
[[nodiscard]] char* write(char* buffer, double value) noexcept;

} // namespace nsLumoJsonDouble
