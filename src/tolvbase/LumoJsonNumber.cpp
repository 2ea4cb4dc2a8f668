#include "tolvbase/LumoJsonNumber.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <system_error>

#include "tolvbase/LumoJsonPowersOfTen.h"

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

bool readInteger(std::string_view token, Number& out) {
    std::uint64_t magnitude = 0;
    std::int64_t negative = 0;
    if (token[0] != '-' && readAll(token, magnitude)) {
        out = {Number::Kind::Unsigned, magnitude};
        return true;
    }
    if (token[0] == '-' && readAll(token, negative) && negative != 0) {
        out = {Number::Kind::Negative, static_cast<std::uint64_t>(negative)};
        return true;
    }
    return false;
}

bool areDigits(std::uint64_t bytes) {
    constexpr std::uint64_t HIGH_HALVES = 0xF0F0F0F0F0F0F0F0;
    constexpr std::uint64_t ZEROS = 0x3030303030303030;
    constexpr std::uint64_t SIXES = 0x0606060606060606; // They carry what lies behind '9' into the next half.
    return (bytes & HIGH_HALVES) == ZEROS && ((bytes + SIXES) & HIGH_HALVES) == ZEROS;
}

/// Of eight digits, the first in the lowest byte: first pairs, then fours, then all are put together.
std::uint64_t valueOfDigits(std::uint64_t bytes) {
    bytes = (bytes & 0x0F0F0F0F0F0F0F0F) * (10 * 256 + 1) >> 8U;
    bytes = (bytes & 0x00FF00FF00FF00FF) * (100 * 65536 + 1) >> 16U;
    return (bytes & 0x0000FFFF0000FFFF) * (10000 * (std::uint64_t{1} << 32U) + 1) >> 32U;
}

/// Every number, in as many passes as it takes.
Result readSlowly(std::string_view token, Number& out) noexcept {
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
    out = {Number::Kind::Double, std::bit_cast<std::uint64_t>(value)};
    return Result::Read;
}

__extension__ using Wide = unsigned __int128;

/// What doubles hold without loss.
constexpr std::array<double, 23> EXACT_POWERS = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int FRACTION_BITS = 52;
constexpr unsigned int WORD_BITS = 64;

/// The bits of the double nearest to digits * 10^exponent, by the rounded-up power of ten. The upper words of
/// the product and the number that is meant differ by less than one; false where this leaves open how to
/// round, and where the double may be no normal one.
bool toDoubleByTable(std::uint64_t digits, int exponent, std::uint64_t& bits) {
    using namespace nsLumoJsonPowersOfTen;
    constexpr int BIAS = 1023;
    constexpr int HIGHEST_STORED = 2 * BIAS - 2;
    constexpr int HIGHEST = LOWEST + static_cast<int>(std::size(ROWS)) - 1;
    if (digits == 0 || exponent < LOWEST || exponent > HIGHEST) {
        return false;
    }
    const Power power = ROWS[exponent - LOWEST];
    const auto shift = static_cast<unsigned int>(std::countl_zero(digits));
    const std::uint64_t factor = digits << shift;
    const Wide product =
        Wide{power.high} * factor + static_cast<std::uint64_t>((Wide{power.low} * factor) >> WORD_BITS);
    const auto high = static_cast<std::uint64_t>(product >> WORD_BITS); // Its highest bit, or the next, is 1.
    const int lost = static_cast<int>(WORD_BITS) - std::countl_zero(high) - (FRACTION_BITS + 1);
    const int exponentBits =
        floorLog2OfPower10(exponent) - static_cast<int>(shift) + lost + BIAS + FRACTION_BITS;
    const unsigned int below = WORD_BITS + static_cast<unsigned int>(lost);
    const Wide half = Wide{1} << (below - 1);
    if ((product & (2 * half - 1)) == half || exponentBits < 0 || exponentBits > HIGHEST_STORED) {
        return false;
    }
    // The highest bit of the digits adds 1 to the exponent, and so does a carry. Half of the last digit is
    // added before the lost bits go, and the sum may take one bit more than there are.
    bits = (static_cast<std::uint64_t>(exponentBits) << FRACTION_BITS) +
           static_cast<std::uint64_t>(((product >> 1U) + half / 2) >> (below - 1));
    return true;
}

bool toDouble(std::uint64_t digits, int exponent, std::uint64_t& bits) {
    constexpr int MOST = static_cast<int>(EXACT_POWERS.size()) - 1;
    if (digits > std::uint64_t{1} << (FRACTION_BITS + 1) || exponent > MOST || exponent < -MOST) {
        return toDoubleByTable(digits, exponent, bits);
    }
    const auto exact = static_cast<double>(digits);
    const double power = EXACT_POWERS[static_cast<std::size_t>(std::abs(exponent))];
    bits = std::bit_cast<std::uint64_t>(exponent < 0 ? exact / power : exact * power);
    return true;
}

/// Reads a usual number in one pass: up to 19 digits and a short exponent.
class UsualNumber {
public:
    explicit UsualNumber(std::string_view token)
        : m_at(token.data()), m_end(m_at + token.size()), m_isNegative(token.starts_with('-')) {
        m_at += m_isNegative ? 1 : 0;
    }

    /// False for a number that is malformed or takes a slower way.
    bool read(Number& out) {
        if (!readParts()) {
            return false;
        }
        const std::uint64_t sign = m_isNegative ? std::uint64_t{1} << 63U : 0;
        if (m_isInteger && !(m_isNegative && m_digits == 0)) {
            out = {m_isNegative ? Number::Kind::Negative : Number::Kind::Unsigned,
                   m_isNegative ? 0 - m_digits : m_digits};
            return !m_isNegative || m_digits <= sign;
        }
        std::uint64_t bits = 0;
        if (!toDouble(m_digits, m_exponent, bits)) {
            return false;
        }
        out = {Number::Kind::Double, bits | sign};
        return true;
    }

private:
    bool readParts() {
        constexpr std::ptrdiff_t MOST_DIGITS = 19; // They always fit into 64 bits.
        const char* const integer = m_at;
        readDigits();
        std::ptrdiff_t count = m_at - integer;
        if (count == 0 || (count > 1 && *integer == '0')) {
            return false;
        }
        if (m_at != m_end && *m_at == '.') {
            const char* const fraction = ++m_at;
            readDigits();
            m_exponent = static_cast<int>(fraction - m_at);
            count += m_at - fraction;
            if (m_at == fraction) {
                return false;
            }
            m_isInteger = false;
        }
        return count <= MOST_DIGITS && (m_at == m_end || readExponent());
    }

    /// Appends the digits that stand here; of too many of them only the number counts.
    void readDigits() {
        constexpr bool IS_LITTLE_ENDIAN = std::endian::native == std::endian::little;
        constexpr std::ptrdiff_t STEP = 8;
        for (std::uint64_t bytes = 0; IS_LITTLE_ENDIAN && m_end - m_at >= STEP; m_at += STEP) {
            std::memcpy(&bytes, m_at, STEP);
            if (!areDigits(bytes)) {
                break;
            }
            m_digits = m_digits * 100'000'000 + valueOfDigits(bytes);
        }
        for (; m_at != m_end && isDigit(*m_at); ++m_at) {
            m_digits = m_digits * 10 + static_cast<std::uint64_t>(*m_at - '0');
        }
    }

    bool readExponent() {
        constexpr std::ptrdiff_t MOST_DIGITS = 4;
        if (*m_at != 'e' && *m_at != 'E') {
            return false;
        }
        ++m_at;
        const bool isBelow = m_at != m_end && *m_at == '-';
        m_at += m_at != m_end && (isBelow || *m_at == '+') ? 1 : 0;
        const char* const first = m_at;
        int exponent = 0;
        for (; m_at != m_end && isDigit(*m_at) && m_at - first < MOST_DIGITS; ++m_at) {
            exponent = exponent * 10 + (*m_at - '0');
        }
        m_exponent += isBelow ? -exponent : exponent;
        m_isInteger = false;
        return m_at == m_end && m_at != first;
    }

    const char* m_at;
    const char* m_end;
    bool m_isNegative;
    bool m_isInteger = true;
    std::uint64_t m_digits = 0;
    int m_exponent = 0;
};

} // namespace

std::size_t length(std::string_view text) noexcept {
    const std::size_t integer = skipInteger(text);
    return integer == 0 ? 0 : skipExponent(text, skipFraction(text, integer));
}

Result read(std::string_view token, Number& out) noexcept {
    return UsualNumber(token).read(out) ? Result::Read : readSlowly(token, out);
}

} // namespace nsLumoJsonNumber
