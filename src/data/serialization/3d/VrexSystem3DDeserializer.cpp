#include "data/serialization/3d/VrexSystem3DDeserializer.h"

#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexCastList.h"
#include "data/VrexLog.h"
#include "data/VrexStandardTexts.h"
#include "data/base/VrexIDGenerator.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexGeomComponentsAccess.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/serialization/3d/VrexConstraintReplay.h"
#include "data/serialization/3d/VrexGeometryReplay.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexObject3DDeserializer.h"
#include "data/serialization/VrexJsonReading.h"
#include "data/serialization/VrexJsonTolerances.h"
#include "data/serialization/VrexReplay.h"

namespace keys = nsJsonKeys;
using nsJsonReading::find;
using nsJsonReading::findArray;
using nsJsonReading::findEnum;
using nsJsonReading::Key;
using nsJsonReading::readEnum;
using nsJsonReading::readIndex;
using nsJsonReading::readNumber;
using nsJsonReading::readType;
using nsJsonReading::readVector;
using nsJsonReading::toInteger;

namespace {

template <class Object>
const std::shared_ptr<Object>& objectAt(const std::vector<std::shared_ptr<Object>>& objects,
                                        std::uint64_t index) {
    if (index >= objects.size()) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::VECTOR_SUBSCRIPT);
    }
    return objects[index];
}

/// Calls `take` with each element of an array that may be missing.
template <class Take>
void forEach(const LumoJson& json, Key key, const Take& take) {
    if (const LumoJson* const array = findArray(json, key)) {
        for (const LumoJson& element : *array) {
            take(element);
        }
    }
}

/// Calls `take` with each index in an array that may be missing.
template <class Take>
void forEachIndex(const LumoJson& json, Key key, const Take& take) {
    forEach(json, key, [&](const LumoJson& element) { take(toInteger<std::uint64_t>(element, key)); });
}

/// The keys that name parts of a geometry beside its arguments, in their order.
std::vector<Key> keysOfParts(VrexGeometry3DType type) {
    switch (type) {
    case VrexGeometry3DType::SPIN_SURFACE:
        return {keys::PROFILE_SURFACE, keys::AXIS};
    case VrexGeometry3DType::SWEEP_SURFACE:
        return {keys::PROFILE_CURVE, keys::TRAJECTORY_LINE};
    case VrexGeometry3DType::PATTERN:
        return {keys::AXIS};
    default:
        return {};
    }
}

std::pair<int, int> toPair(const LumoJson& json) {
    constexpr Key KEY = keys::HELP_PARAMETERS;
    if (!json.is_array() || json.size() < 2) {
        nsJsonReading::raiseNo(KEY, "an array of pairs");
    }
    return {toInteger<std::int32_t>(json[0], KEY), toInteger<std::int32_t>(json[1], KEY)};
}

VrexGeometryComponentType findComponent(const LumoJson& json, Key key) {
    return findEnum<VrexGeometryComponentType>(json, key).value_or(VrexGeometryComponentType::UNKNOWN);
}

[[noreturn]] void raiseNoMatrix() {
    VREX_RAISE(std::runtime_error,
               "Some of the transformation matrices are not a combination of rotations and translations.");
}

bool isRow(const LumoJson& json) {
    const auto isNumber = [&](int i) { return json[i].is_number(); };
    return json.is_array() && json.size() == 4 && isNumber(0) && isNumber(1) && isNumber(2) && isNumber(3);
}

VrexTransformMatrix3D readMatrix(const LumoJson& json) {
    const LumoJson* const rows = find(json, keys::TRANSFORM_MATRIX);
    if (rows == nullptr || !rows->is_array() || rows->size() != 4) {
        raiseNoMatrix();
    }
    VrexTransformMatrix3D matrix;
    for (std::uint64_t i = 0; i < 4; ++i) {
        const LumoJson& row = (*rows)[i];
        if (!isRow(row)) {
            raiseNoMatrix();
        }
        for (std::size_t k = 0; k < 4; ++k) {
            getValue(row[k], matrix[i][k]);
        }
    }
    if (!matrix.isTransformMatrix()) {
        raiseNoMatrix();
    }
    return matrix;
}

} // namespace

VrexSystem3DDeserializer::VrexSystem3DDeserializer(VrexIDGenerator& idGenerator,
                                                   const VrexSerializationParameters& parameters)
    : VrexSystemDeserializer(idGenerator, parameters) {}

VrexSystem3DDeserializer::~VrexSystem3DDeserializer() = default;

bool VrexSystem3DDeserializer::deserialize(const LumoJson& json, VrexImmutableSystem3D& system) {
    clear();
    VrexTransform3D transform;
    m_linearTolerance = nsJsonTolerances::linear(json);
    m_angularTolerance = nsJsonTolerances::angular(json);
    createVariables(json);
    createGeometries(json);
    createConstraints(json);
    createEquations(json);
    createReferenceGeometries(json);
    createTransform(transform, m_variables, json);
    // Copies of the lists: the values that are read next name objects by their places here.
    system = VrexImmutableSystem3D(keepOnly<VrexGeometry3D>(m_geometries), m_variables,
                                   keepOnly<VrexConstraint3D>(m_constraints), m_equations, m_linearTolerance,
                                   m_angularTolerance, std::move(transform),
                                   keepOnly<VrexGeometry3D>(m_referenceGeometries));
    VrexObject3DDeserializer reader(json, *this, idGenerator(), parameters());
    system.accept(reader);
    readMaxId(json);
    return true;
}

const std::shared_ptr<VrexBaseConstraint>& VrexSystem3DDeserializer::constraint(std::uint64_t index) const {
    return objectAt(m_constraints, index);
}

const std::shared_ptr<VrexBaseEquation>& VrexSystem3DDeserializer::equation(std::uint64_t index) const {
    return objectAt(m_equations, index);
}

const std::shared_ptr<VrexBaseGeometry>& VrexSystem3DDeserializer::geometry(std::uint64_t index) const {
    return objectAt(m_geometries, index);
}

const std::shared_ptr<VrexGeometryVariable>& VrexSystem3DDeserializer::variable(std::uint64_t index) const {
    return objectAt(m_variables, index);
}

void VrexSystem3DDeserializer::createGeometries(const LumoJson& root) {
    nsReplayArguments::Geometries arguments;
    const auto append = [&](std::uint64_t index) { arguments.push_back(geometry(index)); };
    forEach(root, keys::OBJECTS, [&](const LumoJson& json) {
        const auto type = nsEnum::fromText<VrexGeometry3DType>(
            readType(json, "The geometry type should be named \"type\"!"));
        arguments.clear();
        forEachIndex(json, find(json, keys::ARGUMENTS) != nullptr ? keys::ARGUMENTS : keys::POINTS, append);
        for (const Key key : keysOfParts(type)) {
            append(readIndex(json, key));
        }
        if (type == VrexGeometry3DType::NURBS_SURFACE) {
            forEachIndex(json, keys::CONTROL_POINTS, append);
        }
        m_geometries.push_back(
            nsReplay::created(nsGeometryReplay::create(type, arguments), nsReplay::NO_GEOMETRY));
    });
}

void VrexSystem3DDeserializer::createConstraints(const LumoJson& root) {
    nsConstraintReplay::Arguments arguments;
    forEach(root, keys::CONSTRAINTS, [&](const LumoJson& json) {
        const auto type = nsEnum::fromText<VrexConstraint3DType>(
            readType(json, "The constraint type should be named \"type\"!"));
        readArguments(json, type, arguments);
        const auto created = nsReplay::created(nsConstraintReplay::create(type, arguments),
                                               "Failed to replay: constraint was not created!");
        VrexGeomComponentsAccess::set(*created, arguments.components);
        m_constraints.push_back(created);
    });
}

void VrexSystem3DDeserializer::readArguments(const LumoJson& json, VrexConstraint3DType type,
                                             nsConstraintReplay::Arguments& out) const {
    out.clear();
    if (nsConstraintReplay::bindsVariable(type)) {
        forEachIndex(json, keys::ARGUMENTS,
                     [&](std::uint64_t index) { out.variables.push_back(variable(index)); });
    } else if (type != VrexConstraint3DType::MateRelation3D) {
        forEachIndex(json, keys::ARGUMENTS,
                     [&](std::uint64_t index) { out.geometries.push_back(geometry(index)); });
    }
    forEachIndex(json, keys::CONSTRAINTS,
                 [&](std::uint64_t index) { out.constraints.push_back(constraint(index)); });
    forEach(json, keys::HELP_PARAMETERS,
            [&](const LumoJson& pair) { out.helpParameters.push_back(toPair(pair)); });
    out.components = {findComponent(json, keys::GEOM_COMPONENT_1),
                      findComponent(json, keys::GEOM_COMPONENT_2)};
    if (type == VrexConstraint3DType::MateDimensionInterval3D) {
        out.dimensionIndex =
            nsJsonReading::findAs(json, keys::DIMENSION_INDEX, toInteger<std::uint64_t>).value_or(0);
    }
}

void VrexSystem3DDeserializer::createReferenceGeometries(const LumoJson& root) {
    forEachIndex(root, keys::REFERENCE_GEOMETRIES,
                 [&](std::uint64_t index) { m_referenceGeometries.push_back(geometry(index)); });
}

void VrexSystem3DDeserializer::createTransform(VrexTransformInterface& transform, const Variables& variables,
                                               const LumoJson& json) {
    VrexSystemDeserializer::createTransform(transform, variables, json);
    auto& transform3D = dynamic_cast<VrexTransform3D&>(transform);
    const auto dragged = [&](const LumoJson& record) {
        return std::dynamic_pointer_cast<VrexGeometry3D>(geometry(readIndex(record, keys::OBJECT_ID)));
    };
    std::vector<VrexDragTransform3D> transforms;
    forEach(json, keys::DRAG_TRANSFORMS, [&](const LumoJson& record) {
        if (find(record, keys::OBJECT_ID) != nullptr) {
            transforms.push_back({dragged(record), readMatrix(record)});
        }
    });
    if (!transform3D.setTransforms(std::move(transforms))) {
        VREX_RAISE(std::runtime_error, "Create drag transform failed!");
    }
    forEach(json, keys::DRAG_TRANSLATIONS, [&](const LumoJson& record) {
        if (find(record, keys::OBJECT_ID) != nullptr &&
            !transform3D.applyTranslation(dragged(record), readVector(record, keys::TRANSLATION))) {
            VREX_RAISE(std::runtime_error, "Create drag translations failed!");
        }
    });
    std::vector<VrexDragParameter3D> parameters;
    forEach(json, keys::DRAG_PARAMETERS, [&](const LumoJson& record) {
        const double value = readNumber(record, keys::TARGET_VALUE);
        const auto type = readEnum<VrexDragParameter3DType>(record, keys::TYPE);
        parameters.emplace_back(dragged(record), type, value);
    });
    transform3D.setDragParameters(parameters);
}

void VrexSystem3DDeserializer::readMaxId(const LumoJson& root) {
    const LumoJson* const maxId = parameters().ignoreObjectIds ? nullptr : find(root, keys::MAX_ID);
    if (maxId == nullptr) {
        return;
    }
    const auto highest = toInteger<std::uint64_t>(*maxId, keys::MAX_ID);
    if (highest == std::numeric_limits<std::uint64_t>::max()) {
        VREX_RAISE(std::out_of_range, "There is no identifier behind the value at key maxId.");
    }
    idGenerator().setNext(highest + 1);
}

void deserialize(const LumoJson& json, VrexImmutableSystem3D& system,
                 const VrexSerializationParameters& parameters) {
    VrexIDGenerator idGenerator;
    if (!VrexSystem3DDeserializer(idGenerator, parameters).deserialize(json, system)) {
        VREX_RAISE(std::runtime_error, "The deserialization of the immutable system failed.");
    }
}
