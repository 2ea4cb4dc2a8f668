#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// Where the lists of a table lie, by index: found without a division. The table keeps them in place.
///
/// A copy knows of none, since the lists of a copied table lie elsewhere; moving a table leaves them in
/// place.
template <class List>
class VrexListPlacesT {
public:
    VrexListPlacesT() = default;
    VrexListPlacesT(VrexListPlacesT&& other) noexcept
        : m_lists(std::move(other.m_lists)), m_known(std::exchange(other.m_known, 0)) {}
    VrexListPlacesT& operator=(VrexListPlacesT&& other) noexcept {
        m_lists = std::move(other.m_lists);
        m_known = std::exchange(other.m_known, 0);
        return *this;
    }

    /// How many are known.
    std::size_t size() const { return m_known; }
    /// Null for one that is not known.
    List* find(std::uint64_t index) const { return index < m_lists.size() ? m_lists[index] : nullptr; }
    /// Takes note of the list of one of `indexCount` indices; others are passed over.
    void note(std::uint64_t index, std::uint64_t indexCount, List& list) {
        if (index >= indexCount) {
            return;
        }
        if (index >= m_lists.size()) {
            m_lists.resize(indexCount);
        }
        m_known += m_lists[index] == nullptr ? 1 : 0;
        m_lists[index] = &list;
    }
    void forget(std::uint64_t index) {
        if (find(index) != nullptr) {
            m_lists[index] = nullptr;
            --m_known;
        }
    }
    void clear() {
        m_lists.clear();
        m_known = 0;
    }

private:
    std::vector<List*> m_lists; ///< Null where none is known.
    std::size_t m_known = 0;
};
