#include "data/VrexVariableKeyMatch.h"

#include <cstdint>

#include <boost/unordered/unordered_flat_map.hpp>

namespace {

class LongKeyIndex {
public:
    using Entry = VrexVariableKeyIndex::Entry;

    LongKeyIndex(const Entry* entries, std::size_t count) : m_positions(count) {
        for (std::size_t i = 0; i < count; ++i) {
            m_positions.emplace(entries[i].key, i);
        }
    }
    std::size_t find(std::uint64_t key) const {
        const auto found = m_positions.find(key);
        return found != m_positions.end() ? found->second : VrexVariableKeyIndex::NOWHERE;
    }

private:
    boost::unordered_flat_map<std::uint64_t, std::size_t> m_positions;
};

} // namespace

VrexVariableKeyMatch::VrexVariableKeyMatch(const Entry* left, std::size_t leftCount, const Entry* right,
                                           std::size_t rightCount)
    : m_positions(leftCount, NOWHERE) {
    m_rest.reserve(rightCount);
    if (leftCount <= VrexVariableKeyIndex::MOST) {
        match(VrexVariableKeyIndex(left, leftCount), right, rightCount);
    } else {
        match(LongKeyIndex(left, leftCount), right, rightCount);
    }
}

template <typename Index>
void VrexVariableKeyMatch::match(const Index& left, const Entry* right, std::size_t rightCount) {
    for (std::size_t j = 0; j < rightCount; ++j) {
        const std::size_t i = left.find(right[j].key);
        if (i == NOWHERE) {
            m_rest.push_back(j);
        } else {
            m_positions[i] = j;
        }
    }
}
