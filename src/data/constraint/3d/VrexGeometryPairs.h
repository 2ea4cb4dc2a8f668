#pragma once

#include <cstddef>
#include <memory>
#include <set>
#include <utility>
#include <vector>

class VrexGeometry3D;

/// Hidden: pairs of geometries in the order of their adding, each once. Whoever walks over the list by index
/// while adding the parts of each pair reaches all parts, however deep, shared or circular.
class VrexGeometryPairs {
public:
    using Geometry = std::shared_ptr<VrexGeometry3D>;
    using Pair = std::pair<Geometry, Geometry>;

    VrexGeometryPairs(const Geometry& first, const Geometry& second) { add(first, second); }

    void add(const Geometry& first, const Geometry& second) {
        if (m_known.emplace(first.get(), second.get()).second) {
            m_pairs.emplace_back(first, second);
        }
    }
    /// The pairs of two lists by place, as far as both go.
    template <class List>
    void addAll(const List& first, const List& second) {
        for (std::size_t i = 0; i < first.size() && i < second.size(); ++i) {
            add(first[i], second[i]);
        }
    }

    std::size_t size() const { return m_pairs.size(); }
    /// A copy: adding moves the list.
    Pair operator[](std::size_t index) const { return m_pairs[index]; }

private:
    std::vector<Pair> m_pairs;
    std::set<std::pair<const VrexGeometry3D*, const VrexGeometry3D*>> m_known;
};
