#include "data/constraint/VrexConstraintManager.h"

#include <utility>

#include "data/VrexBaseGeometry.h"
#include "data/base/VrexRefusal.h"

VrexConstraintManager::VrexConstraintManager(VrexLogRecorder& logRecorder) : m_logRecorder(logRecorder) {}

VrexConstraintManager::~VrexConstraintManager() = default;

void VrexConstraintManager::clear() {
    VrexBaseDataManager::clear();
    m_relatedGeometryMap.clear();
    m_relatedConstraintMap.clear();
}

void VrexConstraintManager::addConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    if (!checkNotNull(constraint)) {
        return;
    }
    if (!addData(constraint)) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::ID_EXISTED,
                    "Failed to add constraint, the constraint id has existed, id : %lld.",
                    static_cast<long long>(constraint->getID()));
        return;
    }
    registerGeometries(*constraint);
    for (const auto& part : constraint->getConstraints()) {
        if (part != nullptr) {
            m_relatedConstraintMap.add(part->getID(), constraint->getID());
        }
    }
}

bool VrexConstraintManager::removeConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    if (!checkNotNull(constraint)) {
        return false;
    }
    const std::uint64_t id = constraint->getID();
    for (const auto& geometry : constraint->getGeometries()) {
        if (geometry != nullptr) {
            m_relatedGeometryMap.remove(geometry->getID(), id);
        }
    }
    for (const auto& part : constraint->getConstraints()) {
        if (part != nullptr) {
            m_relatedConstraintMap.remove(part->getID(), id);
        }
    }
    return removeData(id);
}

std::vector<std::shared_ptr<VrexBaseConstraint>>
VrexConstraintManager::findRelatedConstraints(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    return findStored(checkNotNull(geometry) ? m_relatedGeometryMap.find(geometry->getID())
                                             : std::vector<std::uint64_t>{});
}

std::vector<std::shared_ptr<VrexBaseConstraint>>
VrexConstraintManager::findRelatedConstraints(const std::shared_ptr<VrexBaseConstraint>& constraint) const {
    return findStored(checkNotNull(constraint) ? m_relatedConstraintMap.find(constraint->getID())
                                               : std::vector<std::uint64_t>{});
}

std::vector<std::shared_ptr<VrexBaseConstraint>> VrexConstraintManager::getConstraints() const {
    return findStored(getDataIdsByOrder());
}

void VrexConstraintManager::updateRelatedGeometries(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    if (checkNotNull(constraint)) {
        registerGeometries(*constraint);
    }
}

std::vector<std::vector<std::uint64_t>> VrexConstraintManager::getOverConstrainedSubsets() const {
    return m_overConstrainedSubsets;
}

void VrexConstraintManager::setOverConstrainedSubsets(std::vector<std::vector<std::uint64_t>> subsets) {
    m_overConstrainedSubsets = std::move(subsets);
}

void VrexConstraintManager::removeRelatedMap(const std::shared_ptr<VrexBaseGeometry>& geometry,
                                             const std::vector<std::uint64_t>& ids) {
    if (!checkNotNull(geometry)) {
        return;
    }
    for (const std::uint64_t id : ids) {
        m_relatedGeometryMap.remove(geometry->getID(), id);
    }
}

bool VrexConstraintManager::refuseConstraintId(std::uint64_t id) const {
    VREX_REFUSE(m_logRecorder, VrexErrorCode::CONSTRAINT_ID_INVALID,
                "Failed to find related constraint, the constraint is invalid, id : %lld.",
                static_cast<long long>(id));
    return false;
}

bool VrexConstraintManager::checkNotNull(const std::shared_ptr<VrexBaseConstraint>& constraint) const {
    return constraint != nullptr || refuseConstraintId(0);
}

bool VrexConstraintManager::checkNotNull(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    if (geometry == nullptr) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!");
        return false;
    }
    return true;
}

std::vector<std::shared_ptr<VrexBaseConstraint>>
VrexConstraintManager::findStored(const std::vector<std::uint64_t>& ids) const {
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints;
    constraints.reserve(ids.size());
    for (const std::uint64_t id : ids) {
        if (auto constraint = findData(id)) {
            constraints.push_back(std::move(constraint));
        } else {
            refuseConstraintId(id);
        }
    }
    return constraints;
}

void VrexConstraintManager::registerGeometries(const VrexBaseConstraint& constraint) {
    for (const auto& geometry : constraint.getGeometries()) {
        if (geometry != nullptr) {
            m_relatedGeometryMap.add(geometry->getID(), constraint.getID());
        }
    }
}
