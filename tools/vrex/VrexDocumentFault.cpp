#include "tools/vrex/VrexDocumentFault.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>

#include <fmt/format.h>

#include "data/VrexVisitor3D.h"
#include "data/base/VrexIDGenerator.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexObject3DDeserializer.h"
#include "data/serialization/3d/VrexSystem3DDeserializer.h"
#include "data/serialization/VrexJsonKeys.h"
#include "tolvbase/LumoJson.h"
#include "tools/vrex/VrexObjectNames.h"

namespace keys = nsJsonKeys;

namespace {

using Key = std::string_view;
using Object = std::shared_ptr<VrexBaseObject>;

/// An array of the root with objects, as far as they were created.
struct Created {
    Key key;
    Object (*at)(const VrexSystem3DDeserializer& deserializer, std::uint64_t index);
};

/// In the order in which objects are created.
constexpr Created ARRAYS[] = {
    {keys::VARIABLES, [](const auto& from, auto index) { return Object(from.variable(index)); }},
    {keys::OBJECTS, [](const auto& from, auto index) { return Object(from.geometry(index)); }},
    {keys::CONSTRAINTS, [](const auto& from, auto index) { return Object(from.constraint(index)); }},
    {keys::EQUATIONS, [](const auto& from, auto index) { return Object(from.equation(index)); }},
};

/// What is read behind the creation of the objects, in that order.
constexpr Key LATER_KEYS[] = {keys::REFERENCE_GEOMETRIES, keys::DRAG_VARIABLES,  keys::DRAG_TRANSFORMS,
                              keys::DRAG_TRANSLATIONS,    keys::DRAG_PARAMETERS, keys::MAX_ID};

std::uint64_t countCreated(const Created& array, const VrexSystem3DDeserializer& deserializer) {
    for (std::uint64_t count = 0;; ++count) {
        try {
            array.at(deserializer, count);
        } catch (const std::out_of_range&) {
            return count;
        }
    }
}

std::string textAt(const LumoJson& json, Key key) {
    const auto found = json.find(key);
    if (found == json.end()) {
        return {};
    }
    std::string text;
    if ((*found).is_string()) {
        getValue(*found, text);
        return text;
    }
    return (*found).is_number() ? (*found).dump() : text;
}

/// The key that the message names, if it is one of the value's; a type that is a text is not meant.
std::string keyIn(const LumoJson& json, std::string_view message) {
    constexpr std::string_view BEGIN = "The value at key ", END = " is not ";
    if (!message.starts_with(BEGIN)) {
        return {};
    }
    const std::string_view key = message.substr(BEGIN.size(), message.find(END) - BEGIN.size());
    const auto found = json.find(key);
    const bool isMeant = found != json.end() && !(key == keys::TYPE && (*found).is_string());
    return isMeant ? fmt::format("/{}", key) : std::string();
}

/// Texts of the library, which are exact, and what they mean to a user.
struct Meaning {
    std::string_view text, sentence;
};
constexpr Meaning MEANINGS[] = {
    {"Failed to replay: geometry was not created!",
     "What it names is missing, or of a kind that does not fit."},
    {"Failed to replay: constraint was not created!",
     "What it binds is missing, or of a kind that does not fit."},
    {"Failed to replay: geometry not implemented!", "No geometry has this type."},
    {"Failed to replay: constriant not implemented!", "No constraint has this type."},
    {"Can not replay callback equation.", "Its function is an address in the process that wrote it."},
};

std::string sentenceOf(std::string_view message) {
    constexpr std::string_view NO_SUCH_PLACE = "invalid vector subscript";
    if (message == NO_SUCH_PLACE) {
        return "It names an object that does not stand before it.";
    }
    const auto* const meaning = std::ranges::find(MEANINGS, message, &Meaning::text);
    return meaning != std::end(MEANINGS) ? fmt::format("{} {}", message, meaning->sentence)
                                         : std::string(message);
}

VrexDocumentFault atRoot(const LumoJson& json, std::string_view message) {
    const std::string pointer = keyIn(json, message);
    return {pointer, pointer.empty() ? "the root" : pointer, sentenceOf(message)};
}

VrexDocumentFault atObject(Key array, std::uint64_t index, const LumoJson& object, std::string_view message) {
    const std::string pointer = fmt::format("/{}/{}{}", array, index, keyIn(object, message));
    const bool isVariable = array == keys::VARIABLES;
    const bool hasType = object.contains(keys::TYPE) && object[keys::TYPE].is_string();
    const std::string kind = hasType      ? textAt(object, keys::TYPE)
                             : isVariable ? "Variable"
                                          : "an object without type";
    const std::string name =
        nsVrexObjectNames::nameOf(kind, textAt(object, keys::LABEL), textAt(object, keys::ID));
    return {pointer, pointer + ", " + name, sentenceOf(message)};
}

/// The first object that was not created, or the first list of objects that is none.
std::optional<VrexDocumentFault>
findNotCreated(const LumoJson& json, const VrexSystem3DDeserializer& deserializer, std::string_view message) {
    for (const Created& array : ARRAYS) {
        if (!json.contains(array.key)) {
            continue;
        }
        const LumoJson& elements = json[array.key];
        const std::uint64_t count = countCreated(array, deserializer);
        if (!elements.is_array()) {
            return atRoot(json, message);
        }
        if (count < elements.size()) {
            return atObject(array.key, count, elements[count], message);
        }
    }
    return std::nullopt;
}

/// Why the values of the next object cannot be read; nothing where they can.
std::optional<std::string> refusalOf(VrexBaseObject& object, VrexVisitor3D& reader) {
    try {
        object.accept(reader);
        return std::nullopt;
    } catch (const std::exception& error) {
        return error.what();
    }
}

/// The first object of the array that cannot be filled.
std::optional<VrexDocumentFault> findNotFilledIn(const Created& array, const LumoJson& json,
                                                 const VrexSystem3DDeserializer& deserializer,
                                                 VrexVisitor3D& reader) {
    const std::uint64_t count = countCreated(array, deserializer);
    for (std::uint64_t i = 0; i < count; ++i) {
        if (const auto refusal = refusalOf(*array.at(deserializer, i), reader)) {
            return atObject(array.key, i, json[array.key][i], *refusal);
        }
    }
    return std::nullopt;
}

std::optional<VrexDocumentFault> findNotFilled(const LumoJson& json, VrexSystem3DDeserializer& deserializer) {
    VrexIDGenerator generator;
    VrexObject3DDeserializer reader(json, deserializer, generator, {});
    for (const Created& array : ARRAYS) {
        if (auto fault = findNotFilledIn(array, json, deserializer, reader)) {
            return fault;
        }
    }
    return std::nullopt;
}

/// Why the document cannot be read; nothing where it can.
std::optional<std::string> refusalOf(const LumoJson& json) {
    try {
        VrexImmutableSystem3D system;
        deserialize(json, system, {});
        return std::nullopt;
    } catch (const std::exception& error) {
        return error.what();
    }
}

/// Of what is read behind the objects, the first that fails: all of it is emptied, and comes back one by one.
std::optional<VrexDocumentFault> findLater(const LumoJson& json) {
    LumoJson partial = json;
    for (const Key key : LATER_KEYS) {
        if (partial.contains(key)) {
            partial[key] = key == keys::MAX_ID ? LumoJson(0) : LumoJson::array();
        }
    }
    for (const Key key : LATER_KEYS) {
        if (!json.contains(key)) {
            continue;
        }
        partial[key] = json[key];
        if (auto refusal = refusalOf(partial)) {
            const std::string pointer = fmt::format("/{}", key);
            return VrexDocumentFault{pointer, pointer, sentenceOf(*refusal)};
        }
    }
    return std::nullopt;
}

bool hasTolerances(const LumoJson& json) {
    const auto isNumber = [&](Key key) { return json.contains(key) && json[key].is_number(); };
    return isNumber(keys::LINEAR_TOLERANCE) && isNumber(keys::ANGULAR_TOLERANCE);
}

} // namespace

VrexDocumentFault nsVrexDocumentFault::find(const LumoJson& json, VrexSystem3DDeserializer& deserializer,
                                            std::string_view message) {
    if (!hasTolerances(json)) {
        return atRoot(json, message);
    }
    if (auto fault = findNotCreated(json, deserializer, message)) {
        return *fault;
    }
    if (auto fault = findNotFilled(json, deserializer)) {
        return *fault;
    }
    if (auto fault = findLater(json)) {
        return *fault;
    }
    return atRoot(json, message);
}
