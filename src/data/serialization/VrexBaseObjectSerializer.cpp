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
#include "data/serialization/VrexJsonWriting.h"

namespace keys = nsJsonKeys;
using nsJsonWriting::putText;
using nsJsonWriting::putTextUnless;

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

template <class Indices, class Object>
std::uint64_t find(const Indices& indices, const std::shared_ptr<Object>& object, const Naming& naming,
                   const char* signature) {
    if (object == nullptr) {
        refuse(signature, std::string("Null pointer to ").append(naming.one).append("!"));
    }
    const auto found = indices.find(object);
    if (found == indices.end()) {
        refuse(signature, std::string("Objects can only reference already serialized ")
                              .append(naming.many)
                              .append(". Try reordering the system."));
    }
    return found->second;
}

template <class Indices, class Object>
void enter(Indices& indices, Object& object, const Naming& naming, const char* signature) {
    using Pointer = typename Indices::key_type;
    auto pointer = std::static_pointer_cast<typename Pointer::element_type>(object.shared_from_this());
    if (!indices.try_emplace(std::move(pointer), indices.size()).second) {
        refuse(signature, std::string("The system contains a duplicate ")
                              .append(naming.one)
                              .append(" (")
                              .append(naming.many)
                              .append(" are duplicates if they have the same address)")
                              .append(naming.end));
    }
}

void putStatus(const VrexBaseGeometry& geometry, LumoJson& json) {
    putTextUnless(VrexGeometryStatus::Unknown, json, keys::STATUS, geometry.status());
    putText(json, keys::CHANGE_STATUS, geometry.getChangeStatus());
}

LumoJson& append(LumoJson& root, nsJsonKeys::Key key, LumoJson& json) {
    LumoJson& array = root[key];
    array.push_back(std::move(json));
    return array.back();
}

} // namespace

VrexBaseObjectSerializer::VrexBaseObjectSerializer(const VrexSerializationParameters& parameters,
                                                   LumoJson& root)
    : m_parameters(parameters), m_root(&root) {}

VrexBaseObjectSerializer::~VrexBaseObjectSerializer() = default;

void VrexBaseObjectSerializer::visitBaseObject(VrexBaseObject&) {
    VREX_RAISE(std::runtime_error, "Serializer: Not implemented");
}

LumoJson& VrexBaseObjectSerializer::serializeGeometry(VrexGeometry& geometry, LumoJson& json) {
    enter(m_geometryIndices, geometry, GEOMETRY, __PRETTY_FUNCTION__);
    serializeObject(geometry, json);
    putStatus(geometry, json);
    return append(*m_root, keys::OBJECTS, json);
}

LumoJson& VrexBaseObjectSerializer::serializeVariable(VrexGeometryVariable& variable, LumoJson& json) {
    enter(m_variableIndices, variable, VARIABLE, __PRETTY_FUNCTION__);
    serializeObject(variable, json);
    putStatus(variable, json);
    return append(*m_root, keys::VARIABLES, json);
}

LumoJson& VrexBaseObjectSerializer::serializeConstraint(VrexConstraint& constraint, LumoJson& json) {
    enter(m_constraintIndices, constraint, CONSTRAINT, __PRETTY_FUNCTION__);
    serializeBaseConstraint(constraint, json);
    putTextUnless(VrexConstraintAlignment::Current, json, keys::ALIGNMENT, constraint.alignment());
    putTextUnless(VrexConstraintOrientation::Current, json, keys::ORIENTATION, constraint.orientation());
    return append(*m_root, keys::CONSTRAINTS, json);
}

LumoJson& VrexBaseObjectSerializer::serializeEquation(VrexBaseEquation& equation, LumoJson& json) {
    enter(m_equationIndices, equation, EQUATION, __PRETTY_FUNCTION__);
    serializeBaseConstraint(equation, json);
    putTextUnless(VrexEquationConditionType::equalToZero, json, keys::CONDITION_TYPE,
                  equation.conditionType());
    return append(*m_root, keys::EQUATIONS, json);
}

void VrexBaseObjectSerializer::serializeObject(const VrexBaseObject& object, LumoJson& json) const {
    if (!m_parameters.ignoreObjectIds) {
        json[keys::ID] = object.getID();
    }
    if (!object.label().empty()) {
        json[keys::LABEL] = object.label();
    }
}

void VrexBaseObjectSerializer::serializeBaseConstraint(const VrexBaseConstraint& constraint,
                                                       LumoJson& json) const {
    serializeObject(constraint, json);
    if (constraint.status() != VrexConstraintStatus::Regular || m_parameters.writeRegularStatus) {
        putTextUnless(VrexConstraintStatus::Unknown, json, keys::STATUS, constraint.status());
    }
    putTextUnless(VrexConstraintSatisfiedStatus::Unknown, json, keys::SATISFIED_STATUS,
                  constraint.satisfiedStatus());
    putText(json, keys::SOLVE_METHOD_STATUS, constraint.solveMethodStatus());
}

void VrexBaseObjectSerializer::serializeVariableDescriptor(const VrexVariableDescriptor& descriptor,
                                                           LumoJson& json) const {
    json[keys::INDEX] = descriptor.index();
    const auto& object = descriptor.object();
    switch (object != nullptr ? object->baseType() : VrexObjectType::Geometry) {
    case VrexObjectType::Variable:
        json[keys::TYPE] = nsJsonTypes::VARIABLE;
        json[keys::VARIABLE_INDEX] = variableIndex(std::dynamic_pointer_cast<VrexGeometryVariable>(object));
        break;
    case VrexObjectType::Geometry:
        json[keys::TYPE] = nsJsonTypes::GEOMETRY;
        json[keys::OBJECT] = geometryIndex(std::dynamic_pointer_cast<VrexBaseGeometry>(object));
        break;
    case VrexObjectType::Constraint:
        json[keys::TYPE] = nsJsonTypes::CONSTRAINT;
        json[keys::CONSTRAINT] = constraintIndex(std::dynamic_pointer_cast<VrexBaseConstraint>(object));
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
