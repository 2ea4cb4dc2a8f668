#include "data/graph/VrexConnectedComponent.h"

#include <algorithm>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexLog.h"

VrexConnectedComponent::VrexConnectedComponent() = default;
VrexConnectedComponent::VrexConnectedComponent(const VrexConnectedComponent&) = default;
VrexConnectedComponent& VrexConnectedComponent::operator=(const VrexConnectedComponent&) = default;
VrexConnectedComponent::~VrexConnectedComponent() {
    m_constraints.clear();
    m_geometries.clear();
}

VrexConnectedComponent::VrexConnectedComponent(const Geometries& geometries, const Constraints& constraints) {
    for (const auto& geometry : geometries) {
        addGeometry(geometry);
    }
    for (const auto& constraint : constraints) {
        addConstraint(constraint);
    }
}

void VrexConnectedComponent::addGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    m_geometries.insert(geometry);
}

void VrexConnectedComponent::addConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    if (m_constraints.insert(constraint) && constraint->isCompleteFixed()) {
        addFixation(constraint);
    }
}

void VrexConnectedComponent::addFixation(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    const auto& arguments = constraint->getGeometries();
    if (arguments.empty() || arguments.front() == nullptr) {
        VREX_LOG(nsLog::FAILURE, "A complete fixation has no geometry, id : %lld.",
                 static_cast<long long>(constraint->getID()));
        return;
    }
    addGeometry(arguments.front());
    m_fixations[arguments.front()->getID()] = constraint;
}

bool VrexConnectedComponent::hasGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    return m_geometries.contains(geometry.get());
}

bool VrexConnectedComponent::hasConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) const {
    return m_constraints.contains(constraint.get());
}

VrexConnectedComponent::Geometries VrexConnectedComponent::getGeometries() const {
    return m_geometries.list();
}

VrexConnectedComponent::Constraints VrexConnectedComponent::getConstraints() const {
    return m_constraints.list();
}

std::shared_ptr<VrexBaseConstraint>
VrexConnectedComponent::getCompleteFixation(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    const auto found = geometry != nullptr ? m_fixations.find(geometry->getID()) : m_fixations.end();
    return found != m_fixations.end() ? found->second : nullptr;
}

void VrexConnectedComponent::removeGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    m_geometries.erase(geometry.get());
}

void VrexConnectedComponent::removeConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    if (constraint == nullptr) {
        return;
    }
    m_constraints.erase(constraint.get());
    if (constraint->isCompleteFixed()) {
        const auto found = std::find_if(m_fixations.begin(), m_fixations.end(),
                                        [&](const auto& entry) { return entry.second == constraint; });
        if (found != m_fixations.end()) {
            m_fixations.erase(found);
        }
    }
}

std::uint32_t VrexConnectedComponent::getScale() const {
    return static_cast<std::uint32_t>(m_geometries.size() + m_constraints.size());
}
