#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"

/// Values as they stand one behind the other in the compact stream, without padding.
namespace nsPackedValues {

template <class Value>
struct IsPlain
    : std::bool_constant<(std::is_arithmetic_v<Value> || std::is_enum_v<Value>) && !std::is_same_v<Value, bool>> {
};
template <class Value, std::size_t COUNT>
struct IsPlain<std::array<Value, COUNT>> : IsPlain<Value> {};
template <>
struct IsPlain<VrexVector2DT<double>> : std::bool_constant<sizeof(VrexVector2DT<double>) == 16> {};
template <>
struct IsPlain<VrexVector3DT<double>> : std::bool_constant<sizeof(VrexVector3DT<double>) == 24> {};

template <class... Values>
constexpr std::uint32_t sizeOf() {
    static_assert((IsPlain<Values>::value && ...), "of other values the layout is not known");
    return static_cast<std::uint32_t>((sizeof(Values) + ...));
}

/// Fills the values from the bytes at `place`, of which there have to be enough.
template <class... Values>
void take(const unsigned char* place, Values&... out) {
    ((std::memcpy(static_cast<void*>(&out), place, sizeof out), place += sizeof out), ...);
}

} // namespace nsPackedValues
