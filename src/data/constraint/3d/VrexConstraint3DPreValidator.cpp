#include "data/constraint/3d/VrexConstraint3DPreValidator.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "data/VrexLog.h"
#include "data/VrexObjectType.h"
#include "data/VrexStandardTexts.h"
#include "data/base/VrexErrorCode.h"
#include "data/base/VrexLogRecorder.h"
#include "data/base/VrexRefusal.h"
#include "data/constraint/3d/VrexConstraint3DPreValidatorTables.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

using Combination = VrexGeometryCombination3D;
using Component = VrexGeometryComponentType;
using Geometries = VrexConstraint3DPreValidator::Geometries;
using Type = VrexGeometry3DType;
using nsPreValidation::Matching;
using nsPreValidation::Rule;

constexpr std::size_t PAIR = 2;
constexpr std::size_t PLANAR_ANGLE_COUNT = 3;

constexpr bool isRadius(Component component) {
    return component == Component::MAJOR || component == Component::MINOR;
}

constexpr bool hasTwoRadii(Type type) { return type == Type::ELLIPSE || type == Type::TORUS; }

/// Empty for a value that is no kind.
const char* enumeratorOf(Type type) {
    return type >= Type::UNKNOWN && type <= Type::TYPES_COUNT ? getEnumeratorText(type) : "";
}

std::string unfitText(const Geometries& geometries) {
    constexpr std::size_t USUAL_LENGTH = 128;
    std::string text;
    text.reserve(USUAL_LENGTH);
    text += "Do not supported geometry types combination (";
    const char* separator = "";
    for (const auto& geometry : geometries) {
        if (const char* const name = enumeratorOf(geometry->type()); *name != '\0') {
            text.append(separator).append(name);
            separator = ", ";
        }
    }
    return text += ')';
}

/// The types that are matched, for at most as many geometries as a combination has places.
class MatchedTypes {
public:
    MatchedTypes(const Geometries& geometries, std::span<const Type> convertedTypes)
        : m_count(geometries.size()) {
        if (!convertedTypes.empty()) {
            std::ranges::copy(convertedTypes, m_types.begin());
            return;
        }
        std::ranges::transform(geometries, m_types.begin(),
                               [](const auto& geometry) { return geometry->type(); });
    }
    std::span<const Type> get() const { return {m_types.data(), m_count}; }

private:
    std::array<Type, Combination::MAX_SIZE> m_types{};
    std::size_t m_count;
};

bool fits(const Combination& combination, Matching matching, std::span<const Type> types) {
    return matching == Matching::ByPosition ? combination.fitsByPosition(types)
                                            : combination.fitsInAnyOrder(types);
}

/// Refuses with a text that is complete.
bool refuse(nsLog::Place place, std::uint32_t level, VrexLogRecorder& recorder, VrexErrorCode code,
            const std::string& text) {
    recorder.recordMessage(code, "%s", text.c_str());
    nsLog::write(level, place, "%s", recorder.getErrorMessage());
    return false;
}

/// Kept: the refusals of a planar angle stand in the log as failures, though nothing is thrown.
bool refuseAsFailure(nsLog::Place place, VrexLogRecorder& recorder, VrexErrorCode code,
                     const std::string& text) {
    return refuse(place, nsLog::FAILURE, recorder, code, text);
}

} // namespace

// Kept: the texts of the refusals are spelt as callers compare them, "suppoted" and "geometrys" included.

VrexConstraint3DPreValidator::VrexConstraint3DPreValidator(const VrexToleranceGetter& /*tolerances*/,
                                                           VrexLogRecorder& recorder)
    : m_recorder(recorder) {}

bool VrexConstraint3DPreValidator::preCheckConstraint3DType(const Geometries& geometries,
                                                            VrexConstraint3DType type, Component component1,
                                                            Component component2) const {
    if (type == VrexConstraint3DType::PlanarAngle3D) {
        return checkGeometriesSupportList3D(geometries, nsPreValidation::PLANAR_ANGLE, PLANAR_ANGLE_COUNT);
    }
    const Rule* const rule = nsPreValidation::findRule(type);
    if (rule == nullptr) {
        VREX_REFUSE(m_recorder, VrexErrorCode::CONSTRAINT_TYPE_ERROR, "Constraint type isn't suppoted.");
        return false;
    }
    switch (rule->matching) {
    case Matching::Components:
        // Kept: a radius is refused before the geometries are counted; equal radii count them first.
        return isRadius(component1) || isRadius(component2)
                   ? refuseComponents()
                   : checkComponents(geometries, *rule, component1, component2);
    case Matching::RadiusComponents:
        return checkRadiusComponents(geometries, *rule, component1, component2);
    default:
        return checkGeometriesTypes3D(geometries, *rule, {});
    }
}

bool VrexConstraint3DPreValidator::preCheckFixation3DType(const Geometries& geometries,
                                                          VrexFixation3DType type) const {
    if (!checkGeometries(geometries, 1, true)) {
        return false;
    }
    const nsPreValidation::FixationRule* const rule = nsPreValidation::findFixationRule(type);
    if (rule == nullptr) {
        VREX_REFUSE(m_recorder, VrexErrorCode::CONSTRAINT_TYPE_ERROR,
                    "The type of Fixation constraint is invalid.");
        return false;
    }
    if (!rule->admits(geometries.front()->type())) {
        VREX_REFUSE(m_recorder, VrexErrorCode::CONSTRAINT_TYPE_ERROR,
                    "Fixation constraint isn't supported geometry type.");
        return false;
    }
    return true;
}

bool VrexConstraint3DPreValidator::preCheckConstraintComponent3DType(Type type, Component component) const {
    const VrexGeometry3DTypeSet* const owners = nsPreValidation::findComponentOwners(component);
    if (owners == nullptr) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::MAP_KEY);
    }
    if (!owners->contains(type)) {
        VREX_REFUSE(m_recorder, VrexErrorCode::GEOMETRY_TYPE_ERROR,
                    "Unsupported constraint component type: %s", nsPreValidation::enumeratorOf(component));
        return false;
    }
    return true;
}

Type VrexConstraint3DPreValidator::convertComponentToGeomType(Type type, Component component, Type& out) {
    out = nsPreValidation::typeOfComponent(type, component);
    if (nsPreValidation::findComponentOwners(component) == nullptr) {
        VREX_LOG(nsLog::REFUSAL, "Unsupported constraint component type: %s",
                 nsPreValidation::enumeratorOf(component));
    }
    return out;
}

bool VrexConstraint3DPreValidator::checkRadiusComponents(const Geometries& geometries, const Rule& rule,
                                                         Component component1, Component component2) const {
    if (!checkSize(geometries, PAIR) || !checkPresent(geometries)) {
        return false;
    }
    const auto lacksChoice = [](const VrexGeometry3D& geometry, Component component) {
        return hasTwoRadii(geometry.type()) && !isRadius(component);
    };
    if (lacksChoice(*geometries[0], component1) || lacksChoice(*geometries[1], component2)) {
        return refuseComponents();
    }
    return checkComponents(geometries, rule, component1, component2);
}

bool VrexConstraint3DPreValidator::checkComponents(const Geometries& geometries, const Rule& rule,
                                                   Component component1, Component component2) const {
    if (!checkSize(geometries, PAIR) || !checkPresent(geometries)) {
        return false;
    }
    const Type type1 = geometries[0]->type();
    const Type type2 = geometries[1]->type();
    std::array<Type, PAIR> converted{};
    convertComponentToGeomType(type1, component1, converted[0]);
    convertComponentToGeomType(type2, component2, converted[1]);
    return preCheckConstraintComponent3DType(type1, component1) &&
           preCheckConstraintComponent3DType(type2, component2) &&
           checkGeometriesTypes3D(geometries, rule, converted);
}

bool VrexConstraint3DPreValidator::checkGeometriesTypes3D(const Geometries& geometries, const Rule& rule,
                                                          std::span<const Type> convertedTypes) const {
    if (rule.combinations.empty()) {
        return true;
    }
    const std::size_t count = rule.combinations.front().size();
    if (!checkGeometries(geometries, count, rule.matching != Matching::AnyOrderRepeatable)) {
        return false;
    }
    const MatchedTypes matched(geometries, convertedTypes);
    const auto types = matched.get();
    if (rule.pairs != nullptr) {
        return rule.pairs->contains(types[0], types[1]) || refuseCombination(geometries);
    }
    for (const Combination& combination : rule.combinations) {
        if (combination.size() != count) {
            VREX_REFUSE(m_recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR, "Constraint type size error.");
            return false;
        }
        if (fits(combination, rule.matching, types)) {
            return true;
        }
    }
    return refuseCombination(geometries);
}

bool VrexConstraint3DPreValidator::checkGeometriesSupportList3D(const Geometries& geometries,
                                                                const VrexGeometry3DTypeSet& types,
                                                                std::size_t count) const {
    if (geometries.size() != count) {
        return refuseAsFailure(VREX_HERE, m_recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                               "Geometry number is incorrect.");
    }
    if (geometries[0] == geometries[1] || geometries[0] == geometries[2] || geometries[1] == geometries[2]) {
        return refuseAsFailure(VREX_HERE, m_recorder, VrexErrorCode::CONSTRAINT_ID_ERROR,
                               "The first geometry cannot be equal to the second geometry,"
                               "and neither can be equal to the third.");
    }
    for (const auto& geometry : geometries) {
        if (geometry == nullptr) {
            return refuseAsFailure(VREX_HERE, m_recorder, VrexErrorCode::GEOMETRY_TYPE_ERROR,
                                   "Input geometry is not 3d geometry.");
        }
        if (!types.contains(geometry->type())) {
            return refuseAsFailure(VREX_HERE, m_recorder, VrexErrorCode::GEOMETRY_TYPE_ERROR,
                                   std::string("Do not supported geometry types:") +
                                       enumeratorOf(geometry->type()));
        }
    }
    return true;
}

bool VrexConstraint3DPreValidator::checkGeometries(const Geometries& geometries, std::size_t count,
                                                   bool distinct) const {
    return checkSize(geometries, count) && checkPresent(geometries) &&
           (!distinct || checkDistinct(geometries));
}

bool VrexConstraint3DPreValidator::checkSize(const Geometries& geometries, std::size_t count) const {
    if (geometries.size() != count) {
        VREX_REFUSE(m_recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR, "Geometry size error.");
        return false;
    }
    return true;
}

bool VrexConstraint3DPreValidator::checkPresent(const Geometries& geometries) const {
    for (const auto& geometry : geometries) {
        if (geometry == nullptr) {
            VREX_REFUSE(m_recorder, VrexErrorCode::CONSTRAINT_ID_ERROR, "Input geometry is invalid.");
            return false;
        }
        if (geometry->baseType() == VrexObjectType::Variable) {
            VREX_REFUSE(m_recorder, VrexErrorCode::GEOMETRY_TYPE_ERROR,
                        "Not support the variable geometry for this constraint.");
            return false;
        }
    }
    return true;
}

bool VrexConstraint3DPreValidator::checkDistinct(const Geometries& geometries) const {
    for (auto first = geometries.begin(); first != geometries.end(); ++first) {
        const auto isSame = [&](const auto& other) { return other->getID() == (*first)->getID(); };
        if (std::any_of(first + 1, geometries.end(), isSame)) {
            VREX_REFUSE(m_recorder, VrexErrorCode::CONSTRAINT_ID_ERROR, "Input geometrys ID is repeated.");
            return false;
        }
    }
    return true;
}

bool VrexConstraint3DPreValidator::refuseCombination(const Geometries& geometries) const {
    const std::string text = unfitText(geometries);
    if (m_recorder.isNoError()) {
        return refuse(VREX_HERE, nsLog::REFUSAL, m_recorder, VrexErrorCode::GEOMETRY_TYPE_ERROR, text);
    }
    // Kept: an earlier error stays the recorded one, and only the log tells of this.
    VREX_LOG(nsLog::REFUSAL, "%s", text.c_str());
    return false;
}

bool VrexConstraint3DPreValidator::refuseComponents() const {
    VREX_REFUSE(m_recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                "Failed to create constraint, constraint component type error.");
    return false;
}
