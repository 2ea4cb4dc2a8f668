#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "data/VrexEnumTable.h"
#include "data/VrexVector3DT.h"
#include "data/serialization/VrexJsonKeys.h"
#include "tolvbase/LumoJson.h"

/// Hidden: the values of a document, with the texts of what is missing or of another type.
///
/// What starts with `read` is required, what starts with `find` may be missing; a value of another type is
/// refused either way, null too. Every refusal is a `std::runtime_error` that names the key.
namespace nsJsonReading {

using Key = nsJsonKeys::Key;

[[noreturn]] void raiseNo(Key key, const char* expected);

/// The value at the key; null where there is none.
const LumoJson* find(const LumoJson& json, Key key);

std::string_view toText(const LumoJson& value, Key key);
double toNumber(const LumoJson& value, Key key);
bool toBoolean(const LumoJson& value, Key key);
/// An integer that `Integer` holds; a fraction or one beyond is refused.
template <std::integral Integer>
Integer toInteger(const LumoJson& value, Key key);
const LumoJson& toArray(const LumoJson& value, Key key);
/// Three numbers; what follows them plays no part.
VrexVector3DT<double> toVector(const LumoJson& value, Key key);
std::vector<double> toNumbers(const LumoJson& value, Key key);
template <std::integral Integer>
std::vector<Integer> toIntegers(const LumoJson& value, Key key);
template <class E>
E toEnum(const LumoJson& value, Key key) {
    return nsEnum::fromText<E>(toText(value, key));
}

std::string_view readText(const LumoJson& json, Key key);
/// The text at the key `type`; `missing` is what a document without it is told.
std::string_view readType(const LumoJson& json, const char* missing);
double readNumber(const LumoJson& json, Key key);
bool readBoolean(const LumoJson& json, Key key);
template <std::integral Integer>
Integer readInteger(const LumoJson& json, Key key);
/// A place in one of the root's arrays.
std::uint64_t readIndex(const LumoJson& json, Key key);
const LumoJson& readArray(const LumoJson& json, Key key);
VrexVector3DT<double> readVector(const LumoJson& json, Key key);
std::vector<double> readNumbers(const LumoJson& json, Key key);
template <std::integral Integer>
std::vector<Integer> readIntegers(const LumoJson& json, Key key);
template <class E>
E readEnum(const LumoJson& json, Key key) {
    return nsEnum::fromText<E>(readText(json, key));
}

/// What `convert` makes of the value at the key; empty where there is none.
template <class Convert>
auto findAs(const LumoJson& json, Key key, Convert convert) -> std::optional<decltype(convert(json, key))> {
    const LumoJson* const value = find(json, key);
    return value == nullptr ? std::nullopt : std::optional(convert(*value, key));
}
inline std::optional<double> findNumber(const LumoJson& json, Key key) { return findAs(json, key, toNumber); }
inline std::optional<bool> findBoolean(const LumoJson& json, Key key) { return findAs(json, key, toBoolean); }
/// Null where there is none.
const LumoJson* findArray(const LumoJson& json, Key key);
template <class E>
std::optional<E> findEnum(const LumoJson& json, Key key) {
    return findAs(json, key, toEnum<E>);
}

} // namespace nsJsonReading
