#include "data/serialization/VrexJsonReading.h"

#include <stdexcept>
#include <string>

#include "data/VrexLog.h"

namespace nsJsonReading {

namespace {

constexpr std::size_t DIMENSIONS = 3;

constexpr const char* TEXT = "a string";
constexpr const char* NUMBER = "a number";
constexpr const char* BOOLEAN = "a boolean";
constexpr const char* ARRAY = "an array";
constexpr const char* VECTOR = "a vector3d";
template <std::integral Integer>
constexpr const char* INTEGER = std::signed_integral<Integer> ? "an integer" : "an unsigned integer";

/// The value that has to be there.
template <class Convert>
auto require(const LumoJson& json, Key key, const char* expected, Convert convert)
    -> decltype(convert(json, key)) {
    const LumoJson* const value = find(json, key);
    if (value == nullptr) {
        raiseNo(key, expected);
    }
    return convert(*value, key);
}

template <class Element, class Convert>
std::vector<Element> toList(const LumoJson& value, Key key, Convert convert) {
    std::vector<Element> list;
    list.reserve(toArray(value, key).size());
    for (const LumoJson& element : value) {
        list.push_back(convert(element, key));
    }
    return list;
}

} // namespace

void raiseNo(Key key, const char* expected) {
    std::string text = "The value at key ";
    text += key;
    VREX_RAISE(std::runtime_error, text + " is not " + expected + ".");
}

const LumoJson* find(const LumoJson& json, Key key) {
    const auto found = json.find(key);
    return found == json.cend() ? nullptr : &*found;
}

std::string_view toText(const LumoJson& value, Key key) {
    if (!value.is_string()) {
        raiseNo(key, TEXT);
    }
    std::string_view text;
    getValue(value, text);
    return text;
}

double toNumber(const LumoJson& value, Key key) {
    if (!value.is_number()) {
        raiseNo(key, NUMBER);
    }
    double number = 0.0;
    getValue(value, number);
    return number;
}

bool toBoolean(const LumoJson& value, Key key) {
    if (!value.is_bool()) {
        raiseNo(key, BOOLEAN);
    }
    bool boolean = false;
    getValue(value, boolean);
    return boolean;
}

template <std::integral Integer>
Integer toInteger(const LumoJson& value, Key key) {
    if (!value.is_number()) {
        raiseNo(key, NUMBER);
    }
    Integer integer = 0;
    try {
        getValue(value, integer);
    } catch (const std::runtime_error&) {
        raiseNo(key, INTEGER<Integer>);
    }
    return integer;
}

const LumoJson& toArray(const LumoJson& value, Key key) {
    if (!value.is_array()) {
        raiseNo(key, ARRAY);
    }
    return value;
}

VrexVector3DT<double> toVector(const LumoJson& value, Key key) {
    if (!value.is_array() || value.size() < DIMENSIONS) {
        raiseNo(key, VECTOR);
    }
    double coordinates[DIMENSIONS] = {};
    for (std::size_t i = 0; i < DIMENSIONS; ++i) {
        if (!value[i].is_number()) {
            raiseNo(key, VECTOR);
        }
        getValue(value[i], coordinates[i]);
    }
    return {coordinates[0], coordinates[1], coordinates[2]};
}

std::vector<double> toNumbers(const LumoJson& value, Key key) { return toList<double>(value, key, toNumber); }

template <std::integral Integer>
std::vector<Integer> toIntegers(const LumoJson& value, Key key) {
    return toList<Integer>(value, key, toInteger<Integer>);
}

std::string_view readText(const LumoJson& json, Key key) { return require(json, key, TEXT, toText); }

std::string_view readType(const LumoJson& json, const char* missing) {
    const LumoJson* const type = find(json, nsJsonKeys::TYPE);
    if (type == nullptr) {
        VREX_RAISE(std::runtime_error, missing);
    }
    return toText(*type, nsJsonKeys::TYPE);
}

double readNumber(const LumoJson& json, Key key) { return require(json, key, NUMBER, toNumber); }

bool readBoolean(const LumoJson& json, Key key) { return require(json, key, BOOLEAN, toBoolean); }

template <std::integral Integer>
Integer readInteger(const LumoJson& json, Key key) {
    return require(json, key, NUMBER, toInteger<Integer>);
}

std::uint64_t readIndex(const LumoJson& json, Key key) { return readInteger<std::uint64_t>(json, key); }

const LumoJson& readArray(const LumoJson& json, Key key) { return require(json, key, ARRAY, toArray); }

VrexVector3DT<double> readVector(const LumoJson& json, Key key) {
    return require(json, key, VECTOR, toVector);
}

std::vector<double> readNumbers(const LumoJson& json, Key key) {
    return require(json, key, ARRAY, toNumbers);
}

template <std::integral Integer>
std::vector<Integer> readIntegers(const LumoJson& json, Key key) {
    return require(json, key, ARRAY, toIntegers<Integer>);
}

const LumoJson* findArray(const LumoJson& json, Key key) {
    const LumoJson* const value = find(json, key);
    return value == nullptr ? nullptr : &toArray(*value, key);
}

template std::int32_t toInteger(const LumoJson&, Key);
template std::uint64_t toInteger(const LumoJson&, Key);
template std::int32_t readInteger(const LumoJson&, Key);
template std::uint32_t readInteger(const LumoJson&, Key);
template std::vector<std::uint64_t> readIntegers(const LumoJson&, Key);
template std::vector<std::int32_t> readIntegers(const LumoJson&, Key);

} // namespace nsJsonReading
