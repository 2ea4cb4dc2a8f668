#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexMiniMap.h"

/// Where the keys of one run of entries stand in another, so that two stores are combined without searching
/// twice.
///
/// Short runs are searched from the last hit on; long ones through an index, in linear time.
class VREX_DATA_EXPORT VrexVariableKeyMatch {
public:
    using Entry = VrexMiniMap<std::uint64_t, double, 10>::Entry;
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

    /// Keys are unique within each run.
    VrexVariableKeyMatch(const Entry* left, std::size_t leftCount, const Entry* right,
                         std::size_t rightCount);
    VrexVariableKeyMatch(const VrexVariableKeyMatch&) = delete;
    VrexVariableKeyMatch& operator=(const VrexVariableKeyMatch&) = delete;

    /// Position in the right run of the key of left entry i, or `NOWHERE`.
    [[nodiscard]] std::size_t position(std::size_t i) const { return m_positions[i]; }
    /// Count of right entries whose key the left run lacks; `rest(k)` is the position of the k-th, rising.
    [[nodiscard]] std::size_t restCount() const { return m_restCount; }
    [[nodiscard]] std::size_t rest(std::size_t k) const { return m_rest[k]; }

private:
    static constexpr std::size_t SHORT = 32;

    void matchShort(const Entry* left, std::size_t leftCount, const Entry* right, std::size_t rightCount);
    void matchLong(const Entry* left, std::size_t leftCount, const Entry* right, std::size_t rightCount);

    std::size_t* m_positions;
    std::size_t* m_rest;
    std::size_t m_restCount = 0;
    std::vector<std::size_t> m_long;
    std::array<std::size_t, 2 * SHORT> m_short;
};
