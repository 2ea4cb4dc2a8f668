#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexPrefetch.h"

/// The edges of a constraint graph as pairs of vertex indices, and for each vertex the edges at it, in the
/// order of their addition; a loop stands twice at its vertex.
///
/// Edges are collected, and laid out by vertex in one go when somebody first asks; those that come later are
/// kept beside until `layOut` is called again.
class VREX_DATA_EXPORT VrexEdgeIndex {
public:
    struct Ends {
        std::uint32_t first;
        std::uint32_t second;
    };
    /// No vertex.
    static constexpr std::uint32_t NONE = 0xFFFFFFFFU;
    /// An edge as one of its ends sees it.
    struct Incidence {
        std::uint32_t other; ///< The vertex at the other end.
        std::uint32_t edge;
        /// Where `other` has but one more edge, the vertex behind that, if it was found in passing, as for
        /// what a constraint of two binds; otherwise `NONE`. Who walks need not look at `other` then.
        std::uint32_t beyond;
    };
    struct Range {
        std::uint32_t next;
        std::uint32_t end;
    };

    void reserve(std::size_t edgeCount) { m_ends.reserve(edgeCount); }
    /// Throws `std::length_error` beyond 2^31 - 1 edges.
    void add(std::uint32_t first, std::uint32_t second) {
        if (m_ends.size() >= MOST_EDGES) [[unlikely]] {
            raiseTooMany();
        }
        m_ends.push_back({first, second});
        if (hasLayout()) {
            addLater(size() - 1);
        }
    }
    /// Takes back all but the first `count`; only before they are laid out.
    void truncate(std::uint32_t count) { m_ends.resize(count); }
    std::uint32_t size() const { return static_cast<std::uint32_t>(m_ends.size()); }
    const Ends& ends(std::uint32_t edge) const { return m_ends[edge]; }
    /// Brings every edge of `vertexCount` vertices into place.
    void layOut(std::uint32_t vertexCount);
    bool hasLayout() const { return !m_starts.empty(); }
    /// Whether no edge came since `layOut` was called, and no vertex.
    bool isLaidOut(std::uint32_t vertexCount) const {
        return m_starts.size() == vertexCount + 1ULL && m_later.empty();
    }
    /// The edges at a vertex that are in place.
    std::span<const Incidence> laidOut(std::uint32_t vertex) const {
        if (vertex + 1ULL >= m_starts.size()) {
            return {};
        }
        return {m_incidences.data() + m_starts[vertex], m_incidences.data() + m_starts[vertex + 1]};
    }
    /// The same as places of `incidence`.
    Range range(std::uint32_t vertex) const { return {m_starts[vertex], m_starts[vertex + 1ULL]}; }
    const Incidence& incidence(std::uint32_t place) const { return m_incidences[place]; }
    /// Fetches the range of a vertex, and then, some steps later, what stands in it.
    void prefetchRange(std::uint32_t vertex) const { nsPrefetch::line(&m_starts[vertex]); }
    void prefetchIncidences(std::uint32_t vertex) const {
        nsPrefetch::line(m_incidences.data() + m_starts[vertex]);
    }
    /// The edges at a vertex that came later.
    std::span<const Incidence> later(std::uint32_t vertex) const;
    std::size_t degree(std::uint32_t vertex) const { return laidOut(vertex).size() + later(vertex).size(); }
    /// At which place `edge` stands at its end `vertex`; the first one of a loop.
    std::size_t placeOf(std::uint32_t edge, std::uint32_t vertex) const;
    void clear() { *this = {}; }

private:
    /// Twice as many incidences still have 32-bit numbers.
    static constexpr std::size_t MOST_EDGES = 0x7FFFFFFFU;

    void addLater(std::uint32_t edge);
    /// How many edges each of `vertexCount` vertices has, summed up before it.
    std::vector<std::uint32_t> countStarts(std::uint32_t vertexCount) const;
    /// The other vertex that the second end of `edge` is joined to, if the edge before or behind is its only
    /// other one.
    std::uint32_t beyond(std::uint32_t edge) const;
    [[noreturn]] static void raiseTooMany();

    std::vector<Ends> m_ends;
    std::vector<std::uint32_t> m_starts; ///< By vertex, and one more for the end; empty before `layOut`.
    std::vector<Incidence> m_incidences;
    std::unordered_map<std::uint32_t, std::vector<Incidence>> m_later;
};
