#include "data/base/VrexIDRelation.h"

#include <algorithm>
#include <utility>

namespace {

/// The order of the few has no meaning.
void eraseId(std::vector<std::uint64_t>& few, std::uint64_t id) {
    const auto found = std::find(few.begin(), few.end(), id);
    if (found != few.end()) {
        *found = few.back();
        few.pop_back();
    }
}

void eraseId(std::unordered_set<std::uint64_t, VrexIDHash>& many, std::uint64_t id) { many.erase(id); }

/// Whether the key is in the map.
template <class Map>
bool removeFrom(Map& map, std::uint64_t key, std::uint64_t id, bool keepKey) {
    const auto found = map.find(key);
    if (found == map.end()) {
        return false;
    }
    eraseId(found->second, id);
    if (!keepKey && found->second.empty()) {
        map.erase(found);
    }
    return true;
}

} // namespace

void VrexIDRelation::add(std::uint64_t key, std::uint64_t id) {
    if (!m_many.empty()) {
        if (const auto many = m_many.find(key); many != m_many.end()) {
            many->second.insert(id);
            return;
        }
    }
    // A key comes with its first identifier, or without memory not at all.
    const auto [entry, isNew] = m_few.try_emplace(key, 1, id);
    Few& few = entry->second;
    if (isNew || std::find(few.begin(), few.end(), id) != few.end()) {
        return;
    }
    if (few.size() < FEW) {
        few.push_back(id);
        return;
    }
    Many many(few.begin(), few.end());
    many.insert(id);
    m_many.emplace(key, std::move(many));
    m_few.erase(entry);
}

void VrexIDRelation::remove(std::uint64_t key, std::uint64_t id) {
    if (!removeFrom(m_few, key, id, false)) {
        removeFrom(m_many, key, id, false);
    }
}

void VrexIDRelation::removeKeepingKey(std::uint64_t key, std::uint64_t id) {
    if (!removeFrom(m_few, key, id, true)) {
        removeFrom(m_many, key, id, true);
    }
}

std::vector<std::uint64_t> VrexIDRelation::take(std::uint64_t key) {
    std::vector<std::uint64_t> ids = findUnordered(key);
    erase(key);
    return ids;
}

std::vector<std::uint64_t> VrexIDRelation::find(std::uint64_t key) const {
    std::vector<std::uint64_t> ids = findUnordered(key);
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::vector<std::uint64_t> VrexIDRelation::findUnordered(std::uint64_t key) const {
    if (const auto few = m_few.find(key); few != m_few.end()) {
        return few->second;
    }
    const auto many = m_many.find(key);
    return many != m_many.end() ? std::vector<std::uint64_t>(many->second.begin(), many->second.end())
                                : std::vector<std::uint64_t>{};
}

void VrexIDRelation::erase(std::uint64_t key) {
    if (m_few.erase(key) == 0) {
        m_many.erase(key);
    }
}

void VrexIDRelation::clear() {
    m_few.clear();
    m_many.clear();
}
