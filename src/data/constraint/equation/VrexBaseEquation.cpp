#include "data/constraint/equation/VrexBaseEquation.h"

#include <cstdint>
#include <unordered_set>
#include <utility>

#include "data/VrexBaseGeometry.h"
#include "data/VrexDeferredRelease.h"
#include "data/VrexObjectBody.h"

VREX_OBJECT_ACCEPT(VrexBaseEquation)

VrexBaseEquation::VrexBaseEquation(VrexEquationConditionType conditionType)
    : VrexBaseConstraint(VrexObjectType::Equation), m_conditionType(conditionType) {}

VrexBaseEquation::~VrexBaseEquation() { nsRelease::dropAll(m_geometries); }

const char* VrexBaseEquation::getNamePrefix() const { return "eq"; }

int VrexBaseEquation::doc() const {
    return m_conditionType == VrexEquationConditionType::equalToZero ? 1 : 0;
}

const std::vector<std::shared_ptr<VrexBaseGeometry>>& VrexBaseEquation::getGeometries() const {
    if (m_geometriesDirty || m_geometries.empty()) {
        collectGeometries();
    }
    return m_geometries;
}

void VrexBaseEquation::collectGeometries() const {
    m_geometries.clear();
    std::unordered_set<std::uint64_t> collected;
    for (const VrexVariableDescriptor& descriptor : m_descriptors) {
        auto geometry = std::dynamic_pointer_cast<VrexBaseGeometry>(descriptor.object());
        if (geometry != nullptr && collected.insert(geometry->getID()).second) {
            m_geometries.push_back(std::move(geometry));
        }
    }
    m_geometriesDirty = false;
}

VrexVariable VrexBaseEquation::evaluate(const std::vector<VrexVariable>& args) {
    return evaluateInternal(args);
}

void VrexBaseEquation::doUpdateFrom(const VrexBaseObject& other) {
    std::vector<VrexVariableDescriptor> kept = m_descriptors;
    VrexBaseConstraint::doUpdateFrom(other);
    setDescriptors(std::move(kept));
}

const std::vector<VrexVariableDescriptor>& VrexBaseEquation::descriptors() const { return m_descriptors; }

void VrexBaseEquation::setDescriptors(std::vector<VrexVariableDescriptor> descriptors) {
    m_descriptors = std::move(descriptors);
    m_geometries.clear(); // Else it would keep what no descriptor names any more.
    m_geometriesDirty = true;
}
