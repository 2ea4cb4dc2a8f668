#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "data/VrexEnumTable.h"
#include "data/VrexVector3DT.h"
#include "data/serialization/VrexJsonKeys.h"
#include "tolvbase/LumoJson.h"

/// Hidden: the shapes of values that writers share.
namespace nsJsonWriting {

inline LumoJson toJson(const VrexVector3DT<double>& vector) {
    return LumoJson::array({vector.x(), vector.y(), vector.z()});
}

/// An array of what `convert` makes of each element.
template <class List, class Convert>
LumoJson toArray(const List& list, const Convert& convert) {
    LumoJson array = LumoJson::array();
    for (const auto& element : list) {
        array.push_back(LumoJson(convert(element)));
    }
    return array;
}

inline LumoJson toJson(const std::vector<double>& numbers) {
    return toArray(numbers, [](double number) { return number; });
}

template <class Value>
void putIfSet(LumoJson& json, nsJsonKeys::Key key, const std::optional<Value>& value) {
    if (value.has_value()) {
        json[key] = *value;
    }
}

template <class Ends>
void putIfSet(LumoJson& json, const nsJsonKeys::RangeKeys& keys, const Ends& ends) {
    putIfSet(json, keys.lower, ends.first);
    putIfSet(json, keys.upper, ends.second);
}

inline void putIfTrue(LumoJson& json, nsJsonKeys::Key key, bool value) {
    if (value) {
        json[key] = value;
    }
}

/// A list that is empty has no key.
inline void putIfFilled(LumoJson& json, nsJsonKeys::Key key, LumoJson array) {
    if (!array.empty()) {
        json[key] = std::move(array);
    }
}

template <class Enum>
void putText(LumoJson& json, nsJsonKeys::Key key, Enum value) {
    json[key] = nsEnum::toText(value);
}

/// `omitted` is what a reader takes a missing key for.
template <class Enum>
void putTextUnless(Enum omitted, LumoJson& json, nsJsonKeys::Key key, Enum value) {
    if (value != omitted) {
        putText(json, key, value);
    }
}

} // namespace nsJsonWriting
