#include "data/base/VrexIDRelation.h"

#include <algorithm>

namespace {

std::vector<std::uint64_t> rising(const VrexIDRelation::Ids& ids) {
    std::vector<std::uint64_t> list(ids.begin(), ids.end());
    std::sort(list.begin(), list.end());
    return list;
}

} // namespace

void VrexIDRelation::remove(std::uint64_t key, std::uint64_t id) {
    const auto found = m_map.find(key);
    if (found != m_map.end()) {
        found->second.erase(id);
        if (found->second.empty()) {
            m_map.erase(found);
        }
    }
}

void VrexIDRelation::removeKeepingKey(std::uint64_t key, std::uint64_t id) {
    const auto found = m_map.find(key);
    if (found != m_map.end()) {
        found->second.erase(id);
    }
}

std::vector<std::uint64_t> VrexIDRelation::take(std::uint64_t key) {
    const auto found = m_map.find(key);
    if (found == m_map.end()) {
        return {};
    }
    auto list = rising(found->second);
    m_map.erase(found);
    return list;
}

std::vector<std::uint64_t> VrexIDRelation::find(std::uint64_t key) const {
    const auto found = m_map.find(key);
    return found != m_map.end() ? rising(found->second) : std::vector<std::uint64_t>{};
}
