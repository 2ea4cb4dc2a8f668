#include "data/serialization/VrexBaseObjectDeserializer.h"

#include <stdexcept>
#include <string>

#include "data/VrexLog.h"
#include "data/VrexVariableDescriptor.h"
#include "data/base/VrexIDGenerator.h"
#include "data/constraint/VrexConstraint.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/VrexGeometry.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexJsonReading.h"
#include "data/serialization/VrexSystemDeserializer.h"

namespace keys = nsJsonKeys;
using nsJsonReading::find;
using nsJsonReading::findArray;
using nsJsonReading::findAs;
using nsJsonReading::findEnum;
using nsJsonReading::readIndex;
using nsJsonReading::readInteger;
using nsJsonReading::readText;
using nsJsonReading::readType;
using nsJsonReading::readVector;
using nsJsonReading::toInteger;
using nsJsonReading::toText;

namespace {

/// Below this length a vector has no direction: a hundred times the machine epsilon.
constexpr double SHORTEST = 2.220446049250313e-14;

bool isSatisfiedStatus(std::string_view text) {
    return text == nsEnum::toText(VrexConstraintSatisfiedStatus::Satisfied) ||
           text == nsEnum::toText(VrexConstraintSatisfiedStatus::NotSatisfied);
}

std::shared_ptr<VrexBaseObject> findObject(const VrexSystemDeserializer& system, const LumoJson& json) {
    const std::string_view type = readType(json, "Equation descriptor must contain a type!");
    if (type == nsJsonTypes::VARIABLE) {
        return system.variable(readIndex(json, keys::VARIABLE_INDEX));
    }
    if (type == nsJsonTypes::GEOMETRY) {
        return system.geometry(readIndex(json, keys::OBJECT));
    }
    if (type == nsJsonTypes::CONSTRAINT) {
        return system.constraint(readIndex(json, keys::CONSTRAINT));
    }
    VREX_RAISE(std::runtime_error, "Unknown value of the equation descriptor type.");
}

} // namespace

VrexBaseObjectDeserializer::VrexBaseObjectDeserializer(const LumoJson& root, VrexSystemDeserializer& system,
                                                       VrexIDGenerator& idGenerator,
                                                       const VrexSerializationParameters& parameters)
    : m_parameters(parameters),
      m_idGenerator(idGenerator),
      m_system(system),
      m_constraints(rangeOf(root, keys::CONSTRAINTS)),
      m_equations(rangeOf(root, keys::EQUATIONS)),
      m_geometries(rangeOf(root, keys::OBJECTS)),
      m_variables(rangeOf(root, keys::VARIABLES)) {}

VrexBaseObjectDeserializer::~VrexBaseObjectDeserializer() = default;

void VrexBaseObjectDeserializer::visitBaseObject(VrexBaseObject&) {
    VREX_RAISE(std::runtime_error, "Deserializer: Not implemented");
}

std::string_view VrexBaseObjectDeserializer::getString(const LumoJson& json, std::string_view key) {
    return readText(json, key);
}

VrexVector3DT<double> VrexBaseObjectDeserializer::getVector3D(const LumoJson& json, std::string_view key) {
    return readVector(json, key);
}

VrexVector3DT<double> VrexBaseObjectDeserializer::getNormalizedVector3D(const LumoJson& json,
                                                                        std::string_view key) {
    return getVector3D(json, key).makeNormalized(SHORTEST, VrexVector3DT<double>::ZERO());
}

void VrexBaseObjectDeserializer::deserializeBaseObject(VrexBaseObject& object, const LumoJson& json) {
    const LumoJson* const id = m_parameters.ignoreObjectIds ? nullptr : find(json, keys::ID);
    object.setID(id == nullptr ? m_idGenerator.next() : toInteger<std::uint64_t>(*id, keys::ID));
    object.label() = findAs(json, keys::LABEL, toText).value_or(std::string_view());
}

void VrexBaseObjectDeserializer::deserializeBaseGeometry(VrexBaseGeometry& geometry, const LumoJson& json) {
    deserializeBaseObject(geometry, json);
    geometry.status() =
        findEnum<VrexGeometryStatus>(json, keys::STATUS).value_or(VrexGeometryStatus::Unknown);
    geometry.setChangeStatus(findEnum<VrexGeometryChangeStatus>(json, keys::CHANGE_STATUS)
                                 .value_or(VrexGeometryChangeStatus::Unknown));
}

void VrexBaseObjectDeserializer::deserializeBaseConstraint(VrexBaseConstraint& constraint,
                                                           const LumoJson& json) {
    deserializeBaseObject(constraint, json);
    constraint.satisfiedStatus() = findEnum<VrexConstraintSatisfiedStatus>(json, keys::SATISFIED_STATUS)
                                       .value_or(VrexConstraintSatisfiedStatus::Unknown);
    constraint.status() = VrexConstraintStatus::Unknown;
    const auto status = findAs(json, keys::STATUS, toText);
    if (status.has_value() && isSatisfiedStatus(*status)) {
        // Kept: older documents tell here whether the constraint is satisfied.
        constraint.satisfiedStatus() = nsEnum::fromText<VrexConstraintSatisfiedStatus>(*status);
    } else if (status.has_value()) {
        constraint.status() = nsEnum::fromText<VrexConstraintStatus>(*status);
    }
    constraint.solveMethodStatus() = findEnum<VrexSolveMethodStatus>(json, keys::SOLVE_METHOD_STATUS)
                                         .value_or(VrexSolveMethodStatus::Unknown);
}

const LumoJson& VrexBaseObjectDeserializer::deserializeConstraint(VrexConstraint& constraint) {
    const LumoJson& json = takeNext(m_constraints, "There are no unvisited constraints left in the system.");
    deserializeBaseConstraint(constraint, json);
    constraint.alignment() =
        findEnum<VrexConstraintAlignment>(json, keys::ALIGNMENT).value_or(constraint.alignment());
    constraint.orientation() =
        findEnum<VrexConstraintOrientation>(json, keys::ORIENTATION).value_or(constraint.orientation());
    return json;
}

const LumoJson& VrexBaseObjectDeserializer::deserializeEquation(VrexBaseEquation& equation) {
    const LumoJson& json = takeNext(m_equations, "There are no unvisited equations left in the system.");
    deserializeBaseConstraint(equation, json);
    return json;
}

const LumoJson& VrexBaseObjectDeserializer::deserializeGeometry(VrexGeometry& geometry) {
    const LumoJson& json = takeNext(m_geometries, "There are no unvisited geometries left in the system.");
    deserializeBaseGeometry(geometry, json);
    return json;
}

const LumoJson& VrexBaseObjectDeserializer::deserializeVariable(VrexGeometryVariable& variable) {
    const LumoJson& json = takeNext(m_variables, "There are no unvisited variables left in the system.");
    deserializeBaseGeometry(variable, json);
    return json;
}

std::vector<VrexVariableDescriptor>
VrexBaseObjectDeserializer::createDescriptors(const LumoJson& array) const {
    std::vector<VrexVariableDescriptor> descriptors;
    descriptors.reserve(array.size());
    for (const LumoJson& json : array) {
        auto object = findObject(m_system, json);
        const std::string name(findAs(json, keys::NAME, toText).value_or(std::string_view()));
        const auto index = readInteger<std::uint32_t>(json, keys::INDEX);
        descriptors.emplace_back(std::move(object), index, name.c_str());
    }
    return descriptors;
}

VrexBaseObjectDeserializer::Range VrexBaseObjectDeserializer::rangeOf(const LumoJson& root,
                                                                      std::string_view key) {
    const LumoJson* const array = findArray(root, key);
    return array == nullptr ? Range() : Range{array->begin(), array->end()};
}

const LumoJson& VrexBaseObjectDeserializer::takeNext(Range& range, const char* exhausted) {
    if (range.current == range.end) {
        VREX_RAISE(std::runtime_error, exhausted);
    }
    const LumoJson& json = *range.current;
    ++range.current;
    return json;
}
