#include "tolvbase/LumoJsonDouble.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "tolvbase/LumoJsonPowersOfTen.h"

namespace nsLumoJsonDouble {
namespace {

__extension__ using Wide = unsigned __int128;

using nsLumoJsonPowersOfTen::Power;

constexpr std::uint64_t HUNDRED_MILLION = 100'000'000;

using nsLumoJsonPowersOfTen::floorLog2OfPower10;

/// The whole logarithm, exact for the exponents of doubles.
constexpr int floorLog10OfPower2(int exponent) { return (exponent * 1262611) >> 22; }
/// Of three quarters of the power.
constexpr int floorLog10OfThreeQuarters(int exponent) { return (exponent * 1262611 - 524031) >> 22; }

/// The upper part of the product, its last bit set where anything is lost: enough to compare with.
std::uint64_t multiply(Power power, std::uint64_t factor) {
    const Wide low = Wide{power.low} * factor;
    const Wide high = Wide{power.high} * factor + static_cast<std::uint64_t>(low >> 64U);
    return static_cast<std::uint64_t>(high >> 64U) | (static_cast<std::uint64_t>(high) > 1 ? 1U : 0U);
}

Decimal withoutZeros(Decimal decimal) {
    if (decimal.digits % HUNDRED_MILLION == 0) {
        decimal = {decimal.digits / HUNDRED_MILLION, decimal.exponent + 8};
    }
    while (decimal.digits % 10 == 0) {
        decimal = {decimal.digits / 10, decimal.exponent + 1};
    }
    return decimal;
}

} // namespace

// R. Giulietti, "The Schubfach way to render doubles": the interval of the numbers that read back as the
// value, times four to have its ends as integers, is scaled by the power of ten for which it holds at least
// one integer and at most ten of them.
Decimal shortest(double value) noexcept {
    constexpr int FRACTION_BITS = 52;
    constexpr int BIAS = 1075;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t fraction = bits & ((std::uint64_t{1} << FRACTION_BITS) - 1);
    const int storedExponent = static_cast<int>(bits >> FRACTION_BITS);
    const bool isNormal = storedExponent != 0;
    const std::uint64_t c = fraction | (isNormal ? std::uint64_t{1} << FRACTION_BITS : 0);
    const int q = (isNormal ? storedExponent : 1) - BIAS;
    // Below a power of two doubles lie twice as close.
    const bool isCloserBelow = fraction == 0 && storedExponent > 1;
    const int k = isCloserBelow ? floorLog10OfThreeQuarters(q) : floorLog10OfPower2(q);
    const int shift = q + floorLog2OfPower10(-k) + 1;
    const Power power = nsLumoJsonPowersOfTen::ROWS[-k - nsLumoJsonPowersOfTen::LOWEST];
    const std::uint64_t isOdd = c & 1U; // The ends themselves read back where the value is even.
    const std::uint64_t lower = multiply(power, (4 * c - (isCloserBelow ? 1 : 2)) << shift) + isOdd;
    const std::uint64_t middle = multiply(power, (4 * c) << shift);
    const std::uint64_t upper = multiply(power, (4 * c + 2) << shift) - isOdd;

    const std::uint64_t s = middle / 4;
    if (s >= 10) {
        const std::uint64_t tens = s / 10;
        const bool isLowInside = lower <= 40 * tens;
        const bool isHighInside = 40 * tens + 40 <= upper;
        if (isLowInside != isHighInside) {
            return withoutZeros({tens + (isHighInside ? 1 : 0), k + 1});
        }
    }
    const bool isLowInside = lower <= 4 * s;
    const bool isHighInside = 4 * s + 4 <= upper;
    const std::uint64_t half = 4 * s + 2;
    const bool isRoundedUp =
        isLowInside != isHighInside ? isHighInside : middle > half || (middle == half && s % 2 == 1);
    return withoutZeros({s + (isRoundedUp ? 1 : 0), k});
}

namespace {

/// Room for the digits of any decimal number, which are at most 17; all copies have this size, so that they
/// need no loop.
constexpr std::size_t DIGITS = 24;

constexpr std::array<char, 200> makePairs() {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
    }
    return pairs;
}
/// What stands before the digits of a fraction: the least has two zeros behind the point.
constexpr std::array<char, 4> NOTHING = {'0', '.', '0', '0'};

/// The digits of 0 to 99.
constexpr std::array<char, 200> PAIRS = makePairs();

char* putPairBefore(char* begin, std::uint32_t pair) {
    std::memcpy(begin - 2, PAIRS.data() + 2 * static_cast<std::size_t>(pair), 2);
    return begin - 2;
}

/// Returns how many there are.
std::ptrdiff_t writeDigits(char* digits, std::uint64_t value) {
    char text[2 * DIGITS];
    char* const end = text + DIGITS;
    char* begin = end;
    if (value >= HUNDRED_MILLION) {
        auto low = static_cast<std::uint32_t>(value % HUNDRED_MILLION);
        value /= HUNDRED_MILLION;
        for (int pair = 0; pair < 4; ++pair) {
            begin = putPairBefore(begin, low % 100);
            low /= 100;
        }
    }
    auto high = static_cast<std::uint32_t>(value);
    while (high >= 100) {
        begin = putPairBefore(begin, high % 100);
        high /= 100;
    }
    begin = putPairBefore(begin, high);
    begin += high < 10 ? 1 : 0;
    std::memcpy(digits, begin, DIGITS);
    return end - begin;
}

/// What is rare, and integers: those of more digits than a double holds have all of them written.
char* writeOther(char* buffer, double value) {
    char* end = std::to_chars(buffer, buffer + BUFFER, value).ptr;
    const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
    if (text.find_first_of(".e") == std::string_view::npos) {
        *end++ = '.';
        *end++ = '0';
    }
    return end;
}

} // namespace

char* write(char* buffer, double value) noexcept {
    const double magnitude = std::fabs(value);
    // Below it a text with exponent may be shorter; above it all doubles are integers.
    constexpr double LEAST = 1e-3, MOST = 4503599627370496.0;
    if (!(magnitude >= LEAST && magnitude < MOST) ||
        magnitude == static_cast<double>(static_cast<std::int64_t>(magnitude))) {
        return writeOther(buffer, value);
    }
    *buffer = '-';
    buffer += value < 0 ? 1 : 0;
    const Decimal decimal = shortest(magnitude);
    char digits[2 * DIGITS];
    const std::ptrdiff_t count = writeDigits(digits, decimal.digits);
    const std::ptrdiff_t beforePoint = count + decimal.exponent;
    if (beforePoint > 0) {
        std::memcpy(buffer, digits, DIGITS);
        buffer[beforePoint] = '.';
        std::memcpy(buffer + beforePoint + 1, digits + beforePoint, DIGITS);
        return buffer + count + 1;
    }
    std::memcpy(buffer, NOTHING.data(), NOTHING.size());
    std::memcpy(buffer + 2 - beforePoint, digits, DIGITS);
    return buffer + 2 - beforePoint + count;
}

} // namespace nsLumoJsonDouble
