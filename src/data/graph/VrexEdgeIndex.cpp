#include "data/graph/VrexEdgeIndex.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "data/VrexLog.h"

void VrexEdgeIndex::addLater(std::uint32_t edge) {
    const Ends ends = m_ends[edge];
    m_later[ends.first].push_back({ends.second, edge});
    m_later[ends.second].push_back({ends.first, edge});
}

void VrexEdgeIndex::raiseTooMany() { VREX_RAISE(std::length_error, "Too many edges for one graph."); }

void VrexEdgeIndex::layOut(std::uint32_t vertexCount) {
    if (isLaidOut(vertexCount)) {
        return;
    }
    // Counted two behind, summed up, and moved on by one as they are filled, so that the starts end in place.
    std::vector<std::uint32_t> starts(vertexCount + 2ULL);
    for (const Ends& ends : m_ends) {
        ++starts[ends.first + 2ULL];
        ++starts[ends.second + 2ULL];
    }
    for (std::size_t i = 2; i < starts.size(); ++i) {
        starts[i] += starts[i - 1];
    }
    m_incidences.resize(2 * m_ends.size());
    for (std::uint32_t edge = 0; edge < m_ends.size(); ++edge) {
        const Ends& ends = m_ends[edge];
        m_incidences[starts[ends.first + 1ULL]++] = {ends.second, edge};
        m_incidences[starts[ends.second + 1ULL]++] = {ends.first, edge};
    }
    starts.pop_back();
    m_starts = std::move(starts);
    m_later.clear();
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
