#include "solver/VrexSolverCopy.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <unordered_set>

#include "data/3d/VrexAssigner3D.h"
#include "data/3d/VrexConstraintSystemCloner3D.h"
#include "data/3d/VrexTransform3D.h"
#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/constraint/3d/VrexPinSlotMate3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

/// The objects and what they are made of, each once, nulls left out.
template <class Object, class PartsOf>
std::vector<std::shared_ptr<Object>> withParts(const std::vector<std::shared_ptr<Object>>& objects,
                                               PartsOf partsOf) {
    std::vector<std::shared_ptr<Object>> result;
    std::unordered_set<const Object*> known;
    const auto addNew = [&](const std::vector<std::shared_ptr<Object>>& list) {
        std::copy_if(list.begin(), list.end(), std::back_inserter(result), [&](const auto& object) {
            return object != nullptr && known.insert(object.get()).second;
        });
    };
    addNew(objects);
    for (std::size_t i = 0; i < result.size(); ++i) { // grows on the way
        addNew(partsOf(*result[i]));
    }
    return result;
}

/// The assigner leaves evaluated surfaces out, and would bind a curve to the copies of what it depends on.
template <class Shape>
bool layEvaluatedBack(const VrexBaseGeometry& copy, VrexBaseGeometry& source) {
    const auto* const shape = dynamic_cast<const Shape*>(&copy);
    if (shape == nullptr) {
        return false;
    }
    auto& target = static_cast<Shape&>(source);
    target.setOrigin(shape->getOrigin());
    target.setRotation(shape->getRotation());
    target.status() = shape->status();
    return true;
}

void layEntityBack(const VrexGeometry3D& copy, VrexGeometry3D& source) {
    VrexAssigner3D()(copy, source);
    if (const auto* const element = dynamic_cast<const VrexEqualDimensionElement3D*>(&copy)) {
        static_cast<VrexEqualDimensionElement3D&>(source).setValue(element->getValue());
    }
}

void layGeometryBack(const VrexBaseGeometry& copy, VrexBaseGeometry& source) {
    if (layEvaluatedBack<VrexEvaluatedCurve3D>(copy, source) ||
        layEvaluatedBack<VrexEvaluatedSurface3D>(copy, source)) {
        return;
    }
    if (const auto* const entity = dynamic_cast<const VrexGeometry3D*>(&copy)) {
        layEntityBack(*entity, static_cast<VrexGeometry3D&>(source));
    } else if (const auto* const variable = dynamic_cast<const VrexGeometryVariable*>(&copy)) {
        VrexAssigner3D()(*variable, static_cast<VrexGeometryVariable&>(source));
    }
}

/// What the assigner leaves out: a pin in a slot, and the value that equal dimensions share.
void layDimensionsBack(VrexBaseConstraint& copy, VrexBaseConstraint& source) {
    if (const auto* const mate = dynamic_cast<const VrexPinSlotMate3D*>(&copy)) {
        auto& target = static_cast<VrexPinSlotMate3D&>(source);
        target.getDistance() = mate->getDistance();
        target.getAngle() = mate->getAngle();
    } else if (const auto* const dimension = dynamic_cast<const VrexDimension3D*>(&copy)) {
        static_cast<VrexDimension3D&>(source).setValue(dimension->value());
    }
}

void layConstraintBack(VrexBaseConstraint& copy, VrexBaseConstraint& source) {
    if (const auto* const constraint = dynamic_cast<const VrexConstraint3D*>(&copy)) {
        VrexAssigner3D()(*constraint, static_cast<VrexConstraint3D&>(source));
    }
    source.status() = copy.status();
    source.satisfiedStatus() = copy.satisfiedStatus();
    layDimensionsBack(copy, source);
}

} // namespace

VrexSolverCopy::VrexSolverCopy(const Geometries& geometries, const Constraints& constraints)
    : m_geometries(withParts(geometries, [](const VrexBaseGeometry& part) { return part.getGeometries(); })),
      m_constraints(withParts(constraints, [](VrexBaseConstraint& part) { return part.getConstraints(); })) {
    const VrexConstraintSystemCloner3D cloner(m_geometries, m_constraints);
    for (const auto& source : m_geometries) {
        m_geometryCopies.push_back(std::static_pointer_cast<VrexBaseGeometry>(cloner.findClone(source)));
    }
    for (const auto& source : m_constraints) {
        m_constraintCopies.push_back(std::static_pointer_cast<VrexBaseConstraint>(cloner.findClone(source)));
    }
    if (hasClashingIds()) {
        renumber();
    }
}

bool VrexSolverCopy::hasClashingIds() const {
    std::unordered_set<std::uint64_t> known{0};
    const auto isKnown = [&known](const auto& object) { return !known.insert(object->getID()).second; };
    return std::any_of(m_geometries.begin(), m_geometries.end(), isKnown) ||
           std::any_of(m_constraints.begin(), m_constraints.end(), isKnown);
}

void VrexSolverCopy::renumber() {
    m_sourceIds.push_back(0);
    const auto number = [this](const auto& copies) {
        for (const auto& copy : copies) {
            const std::uint64_t sourceId = copy->getID();
            copy->setID(m_sourceIds.size());
            m_sourceIds.push_back(sourceId);
        }
    };
    number(m_geometryCopies);
    number(m_constraintCopies);
}

std::shared_ptr<VrexTransform3D> VrexSolverCopy::copyOf(const VrexTransform3D& drag) const {
    VrexTransform3D::GeometryMap geometries;
    VrexTransform3D::VariableMap variables;
    for (std::size_t i = 0; i < m_geometries.size(); ++i) {
        if (const auto entity = std::dynamic_pointer_cast<VrexGeometry3D>(m_geometries[i])) {
            geometries.emplace(entity, std::static_pointer_cast<VrexGeometry3D>(m_geometryCopies[i]));
        } else if (const auto variable = std::dynamic_pointer_cast<VrexGeometryVariable>(m_geometries[i])) {
            variables.emplace(variable, std::static_pointer_cast<VrexGeometryVariable>(m_geometryCopies[i]));
        }
    }
    return drag.clone(geometries, variables);
}

void VrexSolverCopy::layBack() const {
    for (std::size_t i = 0; i < m_geometries.size(); ++i) {
        layGeometryBack(*m_geometryCopies[i], *m_geometries[i]);
    }
    for (std::size_t i = 0; i < m_constraints.size(); ++i) {
        layConstraintBack(*m_constraintCopies[i], *m_constraints[i]);
    }
}
