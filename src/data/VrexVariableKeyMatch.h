#pragma once

#include <cstddef>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariableKeyIndex.h"

/// Where the keys of one run of entries stand in another of any length, worked out in linear time.
class VREX_DATA_EXPORT VrexVariableKeyMatch {
public:
    using Entry = VrexVariableKeyIndex::Entry;
    static constexpr std::size_t NOWHERE = VrexVariableKeyIndex::NOWHERE;

    /// Keys are unique within each run.
    VrexVariableKeyMatch(const Entry* left, std::size_t leftCount, const Entry* right,
                         std::size_t rightCount);

    /// Position in the right run of the key of left entry i, or `NOWHERE`.
    [[nodiscard]] std::size_t position(std::size_t i) const { return m_positions[i]; }
    /// Positions, rising, of the right entries whose keys the left run lacks.
    [[nodiscard]] const std::vector<std::size_t>& rest() const { return m_rest; }

private:
    template <typename Index>
    void match(const Index& left, const Entry* right, std::size_t rightCount);

    std::vector<std::size_t> m_positions;
    std::vector<std::size_t> m_rest;
};
