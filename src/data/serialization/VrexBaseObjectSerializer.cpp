#include "data/serialization/VrexBaseObjectSerializer.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "data/VrexLog.h"
#include "data/VrexVariableDescriptor.h"
#include "data/constraint/VrexConstraint.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/VrexGeometry.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexJsonObject.h"

namespace keys = nsJsonKeys;

namespace {

/// How messages call the objects of one table.
struct Naming {
    const char* one;
    const char* many;
    const char* end; ///< Kept: of the message about a duplicate, and not the same for all.
};

constexpr Naming CONSTRAINT{"constraint", "constraints", "!"};
constexpr Naming EQUATION{"equation", "equations", "."};
constexpr Naming GEOMETRY{"geometry", "geometries", "."};
constexpr Naming VARIABLE{"variable", "variables", "."};

/// `signature` is that of the operation whose name the log tells.
[[noreturn]] void refuse(const char* signature, const std::string& text) {
    nsLog::raise<std::runtime_error>(VREX_HERE, signature, text);
}

/// Of the part that all classes begin with, so that it does not matter as what an object is known.
std::uint64_t addressOf(const VrexBaseObject& object) { return reinterpret_cast<std::uintptr_t>(&object); }

template <class Indices, class Object>
std::uint64_t find(const Indices& indices, const std::shared_ptr<Object>& object, const Naming& naming,
                   const char* signature) {
    if (object == nullptr) {
        refuse(signature, std::string("Null pointer to ").append(naming.one).append("!"));
    }
    const std::uint32_t found = indices.latest(addressOf(*object));
    if (found == Indices::NONE) {
        refuse(signature, std::string("Objects can only reference already serialized ")
                              .append(naming.many)
                              .append(". Try reordering the system."));
    }
    return found;
}

template <class Indices>
void enter(Indices& indices, const VrexBaseObject& object, const Naming& naming, const char* signature) {
    const std::uint64_t address = addressOf(object);
    if (indices.latest(address) != Indices::NONE) {
        refuse(signature, std::string("The system contains a duplicate ")
                              .append(naming.one)
                              .append(" (")
                              .append(naming.many)
                              .append(" are duplicates if they have the same address)")
                              .append(naming.end));
    }
    indices.add(address);
}

void putStatus(const VrexBaseGeometry& geometry, VrexJsonObject& json) {
    json.putUnless(VrexGeometryStatus::Unknown, keys::STATUS, geometry.status());
    json.put(keys::CHANGE_STATUS, geometry.getChangeStatus());
}

} // namespace

VrexBaseObjectSerializer::VrexBaseObjectSerializer(const VrexSerializationParameters& parameters,
                                                   VrexJsonLines& lines)
    : m_parameters(parameters), m_lines(&lines) {}

VrexBaseObjectSerializer::~VrexBaseObjectSerializer() = default;

void VrexBaseObjectSerializer::reserve(std::size_t geometries, std::size_t variables, std::size_t constraints,
                                       std::size_t equations) {
    m_geometryIndices.reserve(geometries);
    m_variableIndices.reserve(variables);
    m_constraintIndices.reserve(constraints);
    m_equationIndices.reserve(equations);
}

void VrexBaseObjectSerializer::expect(const VrexBaseConstraint& constraint) const {
    m_constraintIndices.prefetch(addressOf(constraint));
}

void VrexBaseObjectSerializer::expect(const VrexBaseGeometry& geometry) const {
    m_geometryIndices.prefetch(addressOf(geometry));
}

void VrexBaseObjectSerializer::visitBaseObject(VrexBaseObject&) {
    VREX_RAISE(std::runtime_error, "Serializer: Not implemented");
}

void VrexBaseObjectSerializer::serializeGeometry(VrexGeometry& geometry, VrexJsonObject& json) {
    enter(m_geometryIndices, geometry, GEOMETRY, __PRETTY_FUNCTION__);
    serializeObject(geometry, json);
    putStatus(geometry, json);
}

void VrexBaseObjectSerializer::serializeVariable(VrexGeometryVariable& variable, VrexJsonObject& json) {
    enter(m_variableIndices, variable, VARIABLE, __PRETTY_FUNCTION__);
    serializeObject(variable, json);
    putStatus(variable, json);
}

void VrexBaseObjectSerializer::serializeConstraint(VrexConstraint& constraint, VrexJsonObject& json) {
    enter(m_constraintIndices, constraint, CONSTRAINT, __PRETTY_FUNCTION__);
    serializeBaseConstraint(constraint, json);
    json.putUnless(VrexConstraintAlignment::Current, keys::ALIGNMENT, constraint.alignment());
    json.putUnless(VrexConstraintOrientation::Current, keys::ORIENTATION, constraint.orientation());
}

void VrexBaseObjectSerializer::serializeEquation(VrexBaseEquation& equation, VrexJsonObject& json) {
    enter(m_equationIndices, equation, EQUATION, __PRETTY_FUNCTION__);
    serializeBaseConstraint(equation, json);
    json.putUnless(VrexEquationConditionType::equalToZero, keys::CONDITION_TYPE, equation.conditionType());
}

void VrexBaseObjectSerializer::serializeObject(const VrexBaseObject& object, VrexJsonObject& json) const {
    if (!m_parameters.ignoreObjectIds) {
        json.put(keys::ID, object.getID());
    }
    if (!object.label().empty()) {
        json.put(keys::LABEL, object.label());
    }
}

void VrexBaseObjectSerializer::serializeBaseConstraint(const VrexBaseConstraint& constraint,
                                                       VrexJsonObject& json) const {
    serializeObject(constraint, json);
    if (constraint.status() != VrexConstraintStatus::Regular || m_parameters.writeRegularStatus) {
        json.putUnless(VrexConstraintStatus::Unknown, keys::STATUS, constraint.status());
    }
    json.putUnless(VrexConstraintSatisfiedStatus::Unknown, keys::SATISFIED_STATUS,
                   constraint.satisfiedStatus());
    json.put(keys::SOLVE_METHOD_STATUS, constraint.solveMethodStatus());
}

void VrexBaseObjectSerializer::serializeVariableDescriptor(const VrexVariableDescriptor& descriptor,
                                                           VrexJsonObject& json) const {
    json.put(keys::INDEX, descriptor.index());
    const auto& object = descriptor.object();
    switch (object != nullptr ? object->baseType() : VrexObjectType::Geometry) {
    case VrexObjectType::Variable:
        json.put(keys::TYPE, nsJsonTypes::VARIABLE);
        json.put(keys::VARIABLE_INDEX,
                 variableIndex(std::dynamic_pointer_cast<VrexGeometryVariable>(object)));
        break;
    case VrexObjectType::Geometry:
        json.put(keys::TYPE, nsJsonTypes::GEOMETRY);
        json.put(keys::OBJECT, geometryIndex(std::dynamic_pointer_cast<VrexBaseGeometry>(object)));
        break;
    case VrexObjectType::Constraint:
        json.put(keys::TYPE, nsJsonTypes::CONSTRAINT);
        json.put(keys::CONSTRAINT, constraintIndex(std::dynamic_pointer_cast<VrexBaseConstraint>(object)));
        break;
    default:
        VREX_RAISE(std::runtime_error, "Unknown value of the VrexObjectType enumeration.");
    }
}

std::uint64_t
VrexBaseObjectSerializer::constraintIndex(const std::shared_ptr<VrexBaseConstraint>& constraint) const {
    return find(m_constraintIndices, constraint, CONSTRAINT, __PRETTY_FUNCTION__);
}

std::uint64_t
VrexBaseObjectSerializer::equationIndex(const std::shared_ptr<VrexBaseEquation>& equation) const {
    return find(m_equationIndices, equation, EQUATION, __PRETTY_FUNCTION__);
}

std::uint64_t
VrexBaseObjectSerializer::geometryIndex(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    return find(m_geometryIndices, geometry, GEOMETRY, __PRETTY_FUNCTION__);
}

std::uint64_t
VrexBaseObjectSerializer::variableIndex(const std::shared_ptr<VrexGeometryVariable>& variable) const {
    return find(m_variableIndices, variable, VARIABLE, __PRETTY_FUNCTION__);
}
