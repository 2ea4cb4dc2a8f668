#include "data/geometry/VrexCorrelationCurveManager.h"

#include <cstddef>

#include "data/VrexChangeOrUndo.h"
#include "data/VrexLog.h"

bool VrexCorrelationCurveManager::addToParent(std::uint64_t child, std::uint64_t parent) {
    if (child == 0 || parent == 0 || child == parent || !m_parents.try_emplace(child, parent).second) {
        return false;
    }
    changeOrUndo([&] { m_children.add(parent, child); }, [&] { m_parents.erase(child); });
    return true;
}

std::uint64_t VrexCorrelationCurveManager::findParent(std::uint64_t id) const {
    const auto found = m_parents.find(id);
    return found != m_parents.end() ? found->second : 0;
}

std::uint64_t VrexCorrelationCurveManager::findRoot(std::uint64_t id) const {
    std::uint64_t root = 0;
    std::uint64_t parent = findParent(id);
    for (std::size_t steps = 0; parent != 0; ++steps) {
        if (steps == m_parents.size()) { // a chain without a ring has no more steps than there are children
            VREX_LOG(nsLog::REFUSAL, "Curve(%llu) derives from a ring of curves.",
                     static_cast<unsigned long long>(id));
            return 0;
        }
        root = parent;
        parent = findParent(root);
    }
    return root;
}

std::vector<std::uint64_t> VrexCorrelationCurveManager::findChildren(std::uint64_t id) const {
    return m_children.find(id);
}

void VrexCorrelationCurveManager::erase(std::uint64_t id) {
    const std::uint64_t parent = findParent(id);
    if (parent == 0) {
        return;
    }
    m_children.removeKeepingKey(parent, id);
    // A curve is known as a child no more once it is on the list, so that a ring comes to its end.
    std::vector<std::uint64_t> forgotten{id};
    while (!forgotten.empty()) {
        const std::uint64_t curve = forgotten.back();
        forgotten.pop_back();
        m_parents.erase(curve);
        const auto children = m_children.take(curve);
        forgotten.insert(forgotten.end(), children.begin(), children.end());
    }
}

void VrexCorrelationCurveManager::eraseAll() {
    m_parents.clear();
    m_children.clear();
}
