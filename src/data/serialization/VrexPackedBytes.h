#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"

/// Values one behind the other, without padding, as the compact stream has them.
namespace nsPacked {

/// How many bytes a value has in the stream; 0 for one whose layout is not known.
template <class Value>
inline constexpr std::size_t SIZE = std::is_arithmetic_v<Value> ? sizeof(Value) : 0;
template <class Value, std::size_t COUNT>
inline constexpr std::size_t SIZE<std::array<Value, COUNT>> = COUNT* SIZE<Value>;
template <>
inline constexpr std::size_t SIZE<VrexVector2DT<double>> = 2 * sizeof(double);
template <>
inline constexpr std::size_t SIZE<VrexVector3DT<double>> = 3 * sizeof(double);

/// Numbers, vectors, and arrays of numbers, such as what was packed before.
template <class... Values>
auto pack(const Values&... values) {
    static_assert(((SIZE<Values> == sizeof(Values)) && ...), "only values of a known layout are packed");
    std::array<unsigned char, (SIZE<Values> + ...)> bytes;
    unsigned char* place = bytes.data();
    ((std::memcpy(place, static_cast<const void*>(&values), SIZE<Values>), place += SIZE<Values>), ...);
    return bytes;
}

/// How many bytes values of these types are. Enumerators are numbers; a bool, which a byte need not be, is no
/// value to be unpacked.
template <class... Values>
constexpr std::uint32_t sizeOf() {
    static_assert(((SIZE<Values> == sizeof(Values) || std::is_enum_v<Values>)&&...),
                  "values without padding");
    static_assert((!std::is_same_v<Values, bool> && ...), "not every byte is a bool");
    return static_cast<std::uint32_t>((sizeof(Values) + ...));
}

/// Fills values from the bytes at `place`, of which there have to be enough. Enumerators are not examined.
template <class... Values>
void unpack(const unsigned char* place, Values&... out) {
    ((std::memcpy(static_cast<void*>(&out), place, sizeof out), place += sizeof out), ...);
}

/// An enumerator as the stream has it.
template <class Enumeration>
std::uint32_t number(Enumeration value) {
    return static_cast<std::uint32_t>(value);
}

} // namespace nsPacked
