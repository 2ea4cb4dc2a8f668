#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <unordered_set>
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
    /// The elements of `second` with those of `first` in their places, with null where there is none.
    template <class List>
    void addAll(const List& first, const List& second) {
        for (std::size_t i = 0; i < second.size(); ++i) {
            add(i < first.size() ? Geometry(first[i]) : nullptr, second[i]);
        }
    }

    std::size_t size() const { return m_pairs.size(); }
    /// A copy: adding moves the list.
    Pair operator[](std::size_t index) const { return m_pairs[index]; }

private:
    using Addresses = std::pair<const VrexGeometry3D*, const VrexGeometry3D*>;

    /// Tells a pair from its reverse.
    struct AddressHash {
        std::size_t operator()(const Addresses& pair) const noexcept {
            constexpr std::hash<const VrexGeometry3D*> hash;
            return 3 * hash(pair.first) + hash(pair.second);
        }
    };

    std::vector<Pair> m_pairs;
    std::unordered_set<Addresses, AddressHash> m_known;
};
