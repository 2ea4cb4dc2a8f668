#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVector3DT.h"
#include "data/base/VrexIDGenerator.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DDeserializer.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "support/SystemUse.h"
#include "tolvbase/LumoJson.h"

/// Documents, put together from the texts of their elements, and ways to read them.
namespace nsDocumentTexts {

inline const std::string POINT = R"({"type": "Point3D", "loc": [1, 2, 3]})";
inline const std::string LINE = R"({"type": "Line3D", "loc": [1, 2, 3], "dir": [0, 0, 1]})";
inline const std::string OUT_OF_RANGE = "out_of_range: invalid vector subscript";
inline const std::string VARIABLE = R"({"val": 2.5})";

/// Elements of an array, one behind the other.
inline std::string joined(const std::vector<std::string>& elements) {
    std::string text;
    for (const std::string& element : elements) {
        text.append(text.empty() ? "" : ", ").append(element);
    }
    return text;
}

/// The elements of the root's arrays, separated by commas, and further members.
struct Elements {
    std::string objects = {};
    std::string variables = {};
    std::string constraints = {};
    std::string equations = {};
    std::string further = {};
};

inline std::string textOf(const Elements& elements) {
    std::string text = R"({"objects": [)";
    text.append(elements.objects).append(R"(], "variables": [)").append(elements.variables);
    text.append(R"(], "constraints": [)").append(elements.constraints);
    text.append(R"(], "equations": [)").append(elements.equations).append("], ");
    text.append(elements.further).append(elements.further.empty() ? "" : ", ");
    return text.append(R"("LinearTolerance": 1e-6, "AngularTolerance": 1e-8})");
}

inline LumoJson documentOf(const Elements& elements) { return LumoJson::parse(textOf(elements)); }

inline VrexImmutableSystem3D readJson(const LumoJson& document,
                                      const VrexSerializationParameters& parameters = {}) {
    VrexImmutableSystem3D system;
    deserialize(document, system, parameters);
    return system;
}

inline VrexImmutableSystem3D read(const Elements& elements) { return readJson(documentOf(elements)); }

inline LumoJson written(const VrexImmutableSystem3D& system,
                        const VrexSerializationParameters& parameters = {}) {
    LumoJson json;
    serialize(system, json, parameters);
    return json;
}

template <class Object>
const Object& geometryOf(const VrexImmutableSystem3D& system, std::size_t place) {
    return dynamic_cast<const Object&>(*system.geometries().at(place));
}

template <class Object>
const Object& constraintOf(const VrexImmutableSystem3D& system, std::size_t place) {
    return dynamic_cast<const Object&>(*system.constraints().at(place));
}

using Coordinates = std::array<double, 3>;

inline Coordinates coordinatesOf(const VrexVector3DT<double>& vector) {
    return {vector.x(), vector.y(), vector.z()};
}

/// Why `work` fails, with "out_of_range: " before the text of such an exception; "" if it does not.
template <class Work>
std::string refusalOf(const Work& work) {
    try {
        work();
    } catch (const std::out_of_range& error) {
        return std::string("out_of_range: ").append(error.what());
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

/// Why the document cannot be read.
inline std::string jsonRefusal(const LumoJson& document) {
    VrexImmutableSystem3D system;
    std::string text = refusalOf([&] { deserialize(document, system, {}); });
    nsSystemUse::breakRings(system);
    return text;
}

inline std::string refusal(const Elements& elements) { return jsonRefusal(documentOf(elements)); }

/// How documents of these elements are refused.
struct Refused {
    Elements elements;
    std::string text;
};

inline void expectRefused(const std::vector<Refused>& rows) {
    for (const auto& [elements, text] : rows) {
        SCOPED_TRACE(textOf(elements));
        EXPECT_EQ(refusal(elements), text);
    }
}

} // namespace nsDocumentTexts
