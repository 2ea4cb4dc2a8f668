#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "data/VrexVariableDescriptor.h"
#include "data/VrexVisitor3D.h"
#include "data/base/VrexIDGenerator.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DDeserializer.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "tolvbase/LumoJson.h"

/// Documents, put together from the texts of their elements, and ways to read them.
namespace nsJsonDocuments {

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

/// Takes descriptors away, which may keep what they name alive in a ring.
class RingBreaker : public VrexVisitor3D {
public:
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override { curve.setDescriptors({}); }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override { surface.setDescriptors({}); }
};

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
    RingBreaker breaker;
    system.accept(breaker);
    return text;
}

inline std::string refusal(const Elements& elements) { return jsonRefusal(documentOf(elements)); }

} // namespace nsJsonDocuments
