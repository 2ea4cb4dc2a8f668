#include "data/graph/VrexEdgeIndex.h"

#include <algorithm>
#include <stdexcept>

#include "data/VrexLog.h"

void VrexEdgeIndex::addLater(std::uint32_t edge) {
    const Ends ends = m_ends[edge];
    m_later[ends.first].push_back({ends.second, edge, NONE});
    m_later[ends.second].push_back({ends.first, edge, NONE});
}

void VrexEdgeIndex::raiseTooMany() { VREX_RAISE(std::length_error, "Too many edges for one graph."); }

void VrexEdgeIndex::layOut(std::uint32_t vertexCount) {
    if (isLaidOut(vertexCount)) {
        return;
    }
    m_starts = countStarts(vertexCount);
    std::vector<std::uint32_t> next(m_starts.begin(), m_starts.end() - 1);
    m_incidences.resize(2 * m_ends.size());
    for (std::uint32_t edge = 0; edge < m_ends.size(); ++edge) {
        const Ends& ends = m_ends[edge];
        if (edge + nsPrefetch::STEPS < m_ends.size()) {
            const std::uint32_t ahead = next[m_ends[edge + nsPrefetch::STEPS].first];
            nsPrefetch::lineToWrite(m_incidences.data() + ahead);
        }
        m_incidences[next[ends.first]++] = {ends.second, edge, beyond(edge)};
        m_incidences[next[ends.second]++] = {ends.first, edge, NONE};
    }
    m_later.clear();
}

std::vector<std::uint32_t> VrexEdgeIndex::countStarts(std::uint32_t vertexCount) const {
    std::vector<std::uint32_t> starts(vertexCount + 1ULL);
    for (const Ends& ends : m_ends) {
        ++starts[ends.first + 1ULL];
        ++starts[ends.second + 1ULL];
    }
    for (std::size_t i = 1; i < starts.size(); ++i) {
        starts[i] += starts[i - 1];
    }
    return starts;
}

std::uint32_t VrexEdgeIndex::beyond(std::uint32_t edge) const {
    const std::uint32_t passed = m_ends[edge].second;
    if (m_starts[passed + 1ULL] - m_starts[passed] != 2) {
        return NONE;
    }
    if (edge > 0 && m_ends[edge - 1].second == passed) {
        return m_ends[edge - 1].first;
    }
    const bool isFollowed = edge + 1 < m_ends.size() && m_ends[edge + 1].second == passed;
    return isFollowed ? m_ends[edge + 1].first : NONE;
}

std::span<const VrexEdgeIndex::Incidence> VrexEdgeIndex::later(std::uint32_t vertex) const {
    if (m_later.empty()) {
        return {};
    }
    const auto found = m_later.find(vertex);
    return found != m_later.end() ? std::span<const Incidence>(found->second) : std::span<const Incidence>();
}

std::size_t VrexEdgeIndex::placeOf(std::uint32_t edge, std::uint32_t vertex) const {
    const auto before = [](const Incidence& incidence, std::uint32_t number) {
        return incidence.edge < number;
    };
    const auto inPlace = laidOut(vertex);
    if (!inPlace.empty() && inPlace.back().edge >= edge) {
        return static_cast<std::size_t>(std::lower_bound(inPlace.begin(), inPlace.end(), edge, before) -
                                        inPlace.begin());
    }
    const auto since = later(vertex);
    return inPlace.size() + static_cast<std::size_t>(
                                std::lower_bound(since.begin(), since.end(), edge, before) - since.begin());
}
