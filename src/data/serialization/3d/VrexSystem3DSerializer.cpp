#include "data/serialization/3d/VrexSystem3DSerializer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "data/VrexLog.h"
#include "data/VrexPrefetch.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexObject3DSerializer.h"
#include "data/serialization/VrexJsonKeys.h"
#include "data/serialization/VrexJsonLines.h"

namespace keys = nsJsonKeys;

namespace {

/// Visits in order, and fetches what comes later; a null goes to the look-up that refuses it.
template <class Object, class Index>
void visitAll(const std::vector<std::shared_ptr<Object>>& objects, VrexObject3DSerializer& visitor,
              const Index& indexOf) {
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const auto& next = objects[std::min(i + nsPrefetch::STEPS, objects.size() - 1)];
        if (next != nullptr) {
            nsPrefetch::wholeObject(next.get());
            visitor.expect(*next);
        }
        if (objects[i] != nullptr) {
            objects[i]->accept(visitor);
        } else {
            indexOf(objects[i]);
        }
    }
}

/// Whether nothing turns, exactly. What is off in the last row, within the tolerance, is lost.
bool isTranslation(VrexTransformMatrix3D matrix) {
    if (!matrix.isTransformMatrix()) {
        return false;
    }
    for (std::uint64_t row = 0; row < 3; ++row) {
        matrix[row][3] = 0.0;
    }
    matrix[3] = {0.0, 0.0, 0.0, 1.0};
    return matrix == VrexTransformMatrix3D();
}

template <class List, class Convert>
LumoJson toArray(const List& list, const Convert& convert) {
    LumoJson array = LumoJson::array();
    for (const auto& element : list) {
        array.push_back(LumoJson(convert(element)));
    }
    return array;
}

void putIfFilled(LumoJson& root, nsJsonKeys::Key key, LumoJson array) {
    if (!array.empty()) {
        root[key] = std::move(array);
    }
}

LumoJson translationOf(const VrexTransformMatrix3D& matrix) {
    return LumoJson::array({matrix[0][3], matrix[1][3], matrix[2][3]});
}

LumoJson rowsOf(const VrexTransformMatrix3D& matrix) {
    return toArray(matrix.transformation(), [](const VrexTransformMatrix3D::Row& row) {
        return LumoJson::array({row[0], row[1], row[2], row[3]});
    });
}

} // namespace

VrexSystem3DSerializer::VrexSystem3DSerializer(const VrexSerializationParameters& parameters)
    : VrexSystemSerializer(parameters) {}

VrexSystem3DSerializer::~VrexSystem3DSerializer() = default;

bool VrexSystem3DSerializer::serialize(const VrexImmutableSystem3D& system) {
    m_lines.reset();
    m_result.reset();
    m_isComplete = false;
    generateMissingObjectIDs(system);
    auto lines = std::make_unique<VrexJsonLines>(parameters().indentWidth);
    auto root = std::make_unique<LumoJson>();
    initializeRootNode(*root);
    lines->reserve(VrexJsonLines::OBJECTS, system.geometries().size() + system.constraints().size());
    lines->reserve(VrexJsonLines::CONSTRAINTS, system.constraints().size());
    VrexObject3DSerializer objects(parameters(), *lines);
    objects.reserve(system.geometries().size(), system.variables().size(), system.constraints().size(),
                    system.equations().size());
    visitAll(system.variables(), objects, [&](const auto& null) { objects.variableIndex(null); });
    visitAll(system.geometries(), objects, [&](const auto& null) { objects.geometryIndex(null); });
    visitAll(system.constraints(), objects, [&](const auto& null) { objects.constraintIndex(null); });
    visitAll(system.equations(), objects, [&](const auto& null) { objects.equationIndex(null); });
    putIfFilled(*root, keys::REFERENCE_GEOMETRIES,
                toArray(system.referenceGeometries(), objects.toGeometryIndex()));
    writeTransform(system.transform(), objects, *root);
    (*root)[keys::LINEAR_TOLERANCE] = system.linearTolerance();
    (*root)[keys::ANGULAR_TOLERANCE] = system.angularTolerance();
    lines->join(parameters().writeEmptyArrays);
    m_lines = std::move(lines);
    m_result = std::move(root);
    return true;
}

void VrexSystem3DSerializer::writeTransform(const VrexTransform3D& transform,
                                            const VrexObject3DSerializer& objects, LumoJson& root) {
    LumoJson transforms;
    LumoJson translations;
    for (const VrexDragTransform3D& drag : transform.transformations()) {
        const bool turns = !isTranslation(drag.matrix);
        LumoJson json;
        json[keys::OBJECT_ID] = objects.geometryIndex(drag.geometry);
        json[turns ? keys::TRANSFORM_MATRIX : keys::TRANSLATION] =
            turns ? rowsOf(drag.matrix) : translationOf(drag.matrix);
        (turns ? transforms : translations).push_back(std::move(json));
    }
    putIfFilled(root, keys::DRAG_TRANSFORMS, std::move(transforms));
    putIfFilled(root, keys::DRAG_TRANSLATIONS, std::move(translations));
    putIfFilled(root, keys::DRAG_PARAMETERS,
                toArray(transform.transformParameters(), [&](const VrexDragParameter3D& drag) {
                    LumoJson json;
                    json[keys::OBJECT_ID] = objects.geometryIndex(drag.geometry);
                    json[keys::TARGET_VALUE] = drag.value;
                    json[keys::TYPE] = nsEnum::toText(drag.type);
                    return json;
                }));
}

const LumoJson& VrexSystem3DSerializer::json() const {
    static const LumoJson none;
    return m_result != nullptr ? completeResult() : none;
}

LumoJson& VrexSystem3DSerializer::completeResult() const {
    for (std::size_t array = 0; !m_isComplete && array < VrexJsonLines::ARRAYS; ++array) {
        if (const std::string_view text = m_lines->array(array); !text.empty()) {
            (*m_result)[VrexJsonLines::KEYS[array]] = LumoJson::parse(text);
        }
    }
    m_isComplete = true;
    return *m_result;
}

std::string_view VrexSystem3DSerializer::jsonStream() {
    if (m_lines == nullptr) {
        return {};
    }
    if (!m_lines->hasEnd()) {
        try {
            appendEnd(m_lines->text(), *m_result);
        } catch (...) {
            m_lines->dropEnd();
            throw;
        }
    }
    return m_lines->text();
}

std::string VrexSystem3DSerializer::jsonToStream(const LumoJson& json) const {
    std::ostringstream stream;
    write(stream, json);
    return std::move(stream).str();
}

bool VrexSystem3DSerializer::addExtendedInformation(std::string_view key, const LumoJson& value) {
    const bool isOwn = hasPlace(key) && key != keys::DRAG_VARIABLES && key != keys::MOVE_AND_EVALUATE;
    if (m_result == nullptr || isOwn) {
        return false;
    }
    LumoJson copy = value; // Value and key may lie in the document, which grows.
    addExtendedInformationTag(key);
    (*m_result)[key] = std::move(copy);
    m_lines->dropEnd();
    return true;
}

void serialize(const VrexImmutableSystem3D& system, LumoJson& json,
               const VrexSerializationParameters& parameters) {
    VrexSerializationParameters withoutBlanks = parameters;
    withoutBlanks.indentWidth = 0;
    VrexSystem3DSerializer serializer(withoutBlanks);
    if (!serializer.serialize(system)) {
        VREX_RAISE(std::runtime_error, "The serialization of the immutable system failed.");
    }
    json = std::move(serializer.completeResult());
}
