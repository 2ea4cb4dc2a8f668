#include "data/geometry/3d/VrexGradientLayout.h"

#include <algorithm>

#include <boost/unordered/unordered_flat_map.hpp>

#include "data/base/VrexIDHash.h"

bool VrexGradientLayout::isKnown(const std::vector<VrexVariable>& parameters) const {
    if (parameters.size() != m_entryEnds.size()) {
        return false;
    }
    const std::uint64_t* key = m_entryKeys.data();
    std::uint64_t differences = 0;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const Store& store = parameters[i].derivatives();
        if (store.size() != m_entryEnds[i] - firstEntry(i)) {
            return false;
        }
        for (const Store::Entry& entry : store) {
            differences |= entry.key ^ *key++;
        }
    }
    return differences == 0;
}

void VrexGradientLayout::learn(const std::vector<VrexVariable>& parameters) {
    if (!isKnown(parameters)) {
        *this = make(parameters);
    }
}

VrexGradientLayout VrexGradientLayout::make(const std::vector<VrexVariable>& parameters) {
    VrexGradientLayout layout;
    layout.m_entryEnds.reserve(parameters.size());
    boost::unordered_flat_map<std::uint64_t, std::size_t, VrexIDHash> positions;
    for (const VrexVariable& parameter : parameters) {
        for (const Store::Entry& entry : parameter.derivatives()) {
            const std::size_t next = layout.m_zeros.size();
            const std::size_t position = positions.try_emplace(entry.key, next).first->second;
            layout.m_zeros.resize(std::max(next, position + 1), {entry.key, 0.0});
            layout.m_entryKeys.push_back(entry.key);
            layout.m_entryPositions.push_back(position);
        }
        layout.m_entryEnds.push_back(layout.m_entryPositions.size());
    }
    layout.m_ranks.resize(layout.m_zeros.size() + 1, NOWHERE);
    layout.m_entries.reserve(layout.m_zeros.size() + 1);
    return layout;
}

void VrexGradientLayout::clear() {
    for (const std::size_t position : m_added) {
        m_ranks[position] = NOWHERE;
    }
    m_added.clear();
    m_entries.clear();
}

void VrexGradientLayout::add(std::size_t position, std::uint64_t key) {
    if (m_ranks[position] == NOWHERE) {
        m_ranks[position] = m_entries.size();
        m_added.push_back(position);
        m_entries.push_back({key, 0.0});
    }
}

void VrexGradientLayout::addParameter(std::size_t parameter) {
    for (std::size_t i = firstEntry(parameter); i < m_entryEnds[parameter]; ++i) {
        add(m_entryPositions[i], m_entryKeys[i]);
    }
}

void VrexGradientLayout::addKey(std::uint64_t key) {
    const auto found = std::find_if(m_zeros.begin(), m_zeros.end(),
                                    [key](const Store::Entry& entry) { return entry.key == key; });
    m_keyPosition = static_cast<std::size_t>(found - m_zeros.begin());
    add(m_keyPosition, key);
}

void VrexGradientLayout::addRest() {
    std::sort(m_added.begin(), m_added.end());
    auto next = m_zeros.cbegin();
    for (const std::size_t position : m_added) {
        if (position < m_zeros.size()) {
            const auto added = m_zeros.cbegin() + static_cast<std::ptrdiff_t>(position);
            m_entries.insert(m_entries.end(), next, added);
            next = added + 1;
        }
    }
    m_entries.insert(m_entries.end(), next, m_zeros.cend());
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
