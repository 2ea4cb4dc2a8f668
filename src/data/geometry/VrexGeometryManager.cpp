#include "data/geometry/VrexGeometryManager.h"

#include <unordered_set>
#include <utility>

#include "data/base/VrexRefusal.h"

VrexGeometryManager::VrexGeometryManager(VrexLogRecorder& logRecorder) : m_logRecorder(logRecorder) {}

VrexGeometryManager::~VrexGeometryManager() = default;

void VrexGeometryManager::clear() {
    VrexBaseDataManager::clear();
    clearGeometrySets();
    clearCurves();
    clearGeometryIds();
}

void VrexGeometryManager::addGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    if (checkNotNull(geometry) && !addData(geometry)) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::ID_EXISTED,
                    "Failed to add geometry, the geometry id has existed, id : %lld.",
                    static_cast<long long>(geometry->getID()));
    }
}

bool VrexGeometryManager::removeGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    if (!checkNotNull(geometry)) {
        return false;
    }
    const std::uint64_t id = geometry->getID();
    for (const auto& used : geometry->getGeometries()) {
        if (used != nullptr) {
            m_relatedMap.remove(used->getID(), id);
        }
    }
    m_geometrySetManager.erase(id);
    m_offsetCurveManager.erase(id);
    m_copyCurveManager.erase(id);
    return removeData(id);
}

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexGeometryManager::getGeometries() const {
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    geometries.reserve(getDataMap().size());
    for (const std::uint64_t id : getDataIdsByOrder()) {
        geometries.push_back(findData(id));
    }
    return geometries;
}

bool VrexGeometryManager::getGeometries(const std::vector<std::uint64_t>& ids,
                                        std::vector<std::shared_ptr<VrexBaseGeometry>>& out) const {
    for (const std::uint64_t id : ids) {
        auto geometry = findData(id);
        if (!checkNotNull(geometry)) {
            return false;
        }
        out.push_back(std::move(geometry));
    }
    return true;
}

void VrexGeometryManager::resetStatus() {
    for (const auto& [id, geometry] : getDataMap()) {
        if (geometry->getChangeStatus() == VrexGeometryChangeStatus::Changed) {
            geometry->setChangeStatus(VrexGeometryChangeStatus::NotChanged);
        }
    }
}

std::vector<std::shared_ptr<VrexBaseGeometry>>
VrexGeometryManager::findRelatedGeometries(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    std::vector<std::shared_ptr<VrexBaseGeometry>> users;
    if (!checkNotNull(geometry)) {
        return users;
    }
    for (const std::uint64_t id : m_relatedMap.find(geometry->getID())) {
        if (auto user = findData(id)) {
            users.push_back(std::move(user));
        }
    }
    return users;
}

void VrexGeometryManager::removeGeometryFromMap(std::uint64_t id) { m_relatedMap.erase(id); }

std::uint64_t VrexGeometryManager::findRelatedSet(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    return checkNotNull(geometry) ? m_geometrySetManager.findSet(geometry->getID()) : 0;
}

void VrexGeometryManager::addGeometryRelateSet(const std::shared_ptr<VrexBaseGeometry>& geometry,
                                               std::uint64_t setId) {
    if (!checkNotNull(geometry)) {
        return;
    }
    m_geometrySetManager.addToSet(geometry->getID(), setId);
    // Rings and shared parts are entered once, and depth takes no stack.
    std::unordered_set<const VrexBaseGeometry*> seen;
    std::vector<std::shared_ptr<VrexBaseGeometry>> pending = geometry->getGeometries();
    while (!pending.empty()) {
        const auto part = std::move(pending.back());
        pending.pop_back();
        if (part != nullptr && seen.insert(part.get()).second) {
            m_geometrySetManager.addToSet(part->getID(), setId);
            const auto below = part->getGeometries();
            pending.insert(pending.end(), below.begin(), below.end());
        }
    }
}

void VrexGeometryManager::updateGeometryRelateSet(const std::shared_ptr<VrexBaseGeometry>& set) {
    if (!checkNotNull(set)) {
        return;
    }
    m_geometrySetManager.eraseSet(set->getID());
    enterMembers(*set);
}

bool VrexGeometryManager::removeGeometryFromSet(std::uint64_t id) {
    return m_geometrySetManager.removeGeometryFromSet(id);
}

void VrexGeometryManager::addOffsetRelationship(std::uint64_t child, std::uint64_t parent) {
    m_offsetCurveManager.addToParent(child, parent);
}

void VrexGeometryManager::addCopyCurveRelationship(std::uint64_t child, std::uint64_t parent) {
    m_copyCurveManager.addToParent(child, parent);
}

std::uint64_t VrexGeometryManager::findOffsetRootCurve(std::uint64_t id) const {
    return m_offsetCurveManager.findRoot(id);
}

std::uint64_t VrexGeometryManager::findCopyCurveRootCurve(std::uint64_t id) const {
    return m_copyCurveManager.findRoot(id);
}

std::vector<std::uint64_t> VrexGeometryManager::findOffsetChildCurve(std::uint64_t id) const {
    return m_offsetCurveManager.findChildren(id);
}

std::vector<std::uint64_t> VrexGeometryManager::findCopyCurveChildCurve(std::uint64_t id) const {
    return m_copyCurveManager.findChildren(id);
}

void VrexGeometryManager::initGeometryRelatedMap(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    if (!checkNotNull(geometry)) {
        return;
    }
    for (const auto& used : geometry->getGeometries()) {
        if (used != nullptr) {
            m_relatedMap.add(used->getID(), geometry->getID());
        }
    }
}

void VrexGeometryManager::enterMembers(const VrexBaseGeometry& set) {
    for (const auto& member : set.getGeometries()) {
        if (member != nullptr) {
            m_geometrySetManager.addToSet(member->getID(), set.getID());
        }
    }
}

bool VrexGeometryManager::checkNotNull(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    if (geometry == nullptr) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!");
        return false;
    }
    return true;
}

void VrexGeometryManager::clearGeometrySets() { m_geometrySetManager.eraseAll(); }

void VrexGeometryManager::clearCurves() {
    m_offsetCurveManager.eraseAll();
    m_copyCurveManager.eraseAll();
}

void VrexGeometryManager::clearGeometryIds() { m_relatedMap.clear(); }
