#include "data/geometry/VrexGeometrySetManager.h"

#include "data/VrexChangeOrUndo.h"

bool VrexGeometrySetManager::addToSet(std::uint64_t id, std::uint64_t setId) {
    if (id == 0 || setId == 0) {
        return false;
    }
    const auto entry = m_sets.try_emplace(id, setId);
    if (entry.second) {
        changeOrUndo([&] { m_members.add(setId, id); }, [&] { m_sets.erase(id); });
        return true;
    }
    std::uint64_t& present = entry.first->second;
    if (present != setId) {
        m_members.add(setId, id);
        m_members.remove(present, id);
        present = setId;
    }
    return true;
}

std::uint64_t VrexGeometrySetManager::findSet(std::uint64_t id) const {
    const auto found = m_sets.find(id);
    return found != m_sets.end() ? found->second : 0;
}

bool VrexGeometrySetManager::removeGeometryFromSet(std::uint64_t id) {
    const auto found = m_sets.find(id);
    if (found == m_sets.end()) {
        return false;
    }
    m_members.remove(found->second, id);
    m_sets.erase(found);
    return true;
}

void VrexGeometrySetManager::erase(std::uint64_t id) {
    removeGeometryFromSet(id);
    eraseSet(id);
}

void VrexGeometrySetManager::eraseSet(std::uint64_t setId) {
    for (const std::uint64_t id : m_members.take(setId)) {
        m_sets.erase(id);
    }
}

void VrexGeometrySetManager::eraseAll() {
    m_sets.clear();
    m_members.clear();
}
