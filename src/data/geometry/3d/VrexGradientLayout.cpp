#include "data/geometry/3d/VrexGradientLayout.h"

#include <algorithm>

#include <boost/unordered/unordered_flat_map.hpp>

#include "data/base/VrexIDHash.h"

bool VrexGradientLayout::isKnown(const std::vector<VrexVariable>& parameters) const {
    if (parameters.size() != m_entryEnds.size()) {
        return false;
    }
    std::size_t entry = 0;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const Store& store = parameters[i].derivatives();
        if (store.size() != m_entryEnds[i] - entry) {
            return false;
        }
        for (const Store::Entry& known : store) {
            if (known.key != m_keys[m_entryPositions[entry]]) {
                return false;
            }
            ++entry;
        }
    }
    return true;
}

void VrexGradientLayout::learn(const std::vector<VrexVariable>& parameters) {
    if (isKnown(parameters)) {
        return;
    }
    VrexGradientLayout learnt;
    learnt.m_entryEnds.reserve(parameters.size());
    boost::unordered_flat_map<std::uint64_t, std::size_t, VrexIDHash> positions;
    for (const VrexVariable& parameter : parameters) {
        for (const Store::Entry& entry : parameter.derivatives()) {
            const auto [place, isNew] = positions.try_emplace(entry.key, learnt.m_keys.size());
            if (isNew) {
                learnt.m_keys.push_back(entry.key);
            }
            learnt.m_entryPositions.push_back(place->second);
        }
        learnt.m_entryEnds.push_back(learnt.m_entryPositions.size());
    }
    learnt.m_ranks.resize(learnt.m_keys.size() + 1);
    learnt.m_entries.reserve(learnt.m_keys.size() + 1);
    *this = std::move(learnt);
}

void VrexGradientLayout::clear() {
    m_entries.clear();
    std::fill(m_ranks.begin(), m_ranks.end(), NOWHERE);
}

void VrexGradientLayout::add(std::size_t position, std::uint64_t key) {
    if (m_ranks[position] == NOWHERE) {
        m_ranks[position] = m_entries.size();
        m_entries.push_back({key, 0.0});
    }
}

void VrexGradientLayout::addParameter(std::size_t parameter) {
    for (std::size_t i = firstEntry(parameter); i < m_entryEnds[parameter]; ++i) {
        add(m_entryPositions[i], m_keys[m_entryPositions[i]]);
    }
}

void VrexGradientLayout::addKey(std::uint64_t key) {
    const auto found = std::find(m_keys.begin(), m_keys.end(), key);
    m_keyPosition = static_cast<std::size_t>(found - m_keys.begin());
    add(m_keyPosition, key);
}

void VrexGradientLayout::addRest() {
    for (std::size_t position = 0; position < m_keys.size(); ++position) {
        if (m_ranks[position] == NOWHERE) {
            m_entries.push_back({m_keys[position], 0.0});
        }
    }
}

void VrexGradientLayout::fill(Store& store) const {
    store.reserve(m_entries.size());
    store.resizeForOverwrite(m_entries.size());
    std::copy(m_entries.begin(), m_entries.end(), store.begin());
}

void VrexGradientLayout::accumulate(Store& store, std::size_t parameter, const Store& entries,
                                    double factor) const {
    const std::size_t* position = m_entryPositions.data() + firstEntry(parameter);
    Store::Entry* const target = store.begin();
    for (const Store::Entry& entry : entries) {
        target[m_ranks[*position]].value += factor * entry.value;
        ++position;
    }
}
