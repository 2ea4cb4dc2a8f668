#include "data/VrexVariableKeyMatch.h"

#include <boost/unordered/unordered_flat_map.hpp>

VrexVariableKeyMatch::VrexVariableKeyMatch(const Entry* left, std::size_t leftCount, const Entry* right,
                                           std::size_t rightCount) {
    if (leftCount <= SHORT && rightCount <= SHORT) {
        m_positions = m_short.data();
        m_rest = m_positions + SHORT;
        matchShort(left, leftCount, right, rightCount);
    } else {
        m_long.resize(leftCount + rightCount);
        m_positions = m_long.data();
        m_rest = m_positions + leftCount;
        matchLong(left, leftCount, right, rightCount);
    }
}

void VrexVariableKeyMatch::matchShort(const Entry* left, std::size_t leftCount, const Entry* right,
                                      std::size_t rightCount) {
    std::uint64_t bits = 0;
    for (std::size_t j = 0; j < rightCount; ++j) {
        bits |= std::uint64_t{1} << (right[j].key & 63);
    }
    std::uint64_t hits = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < leftCount; ++i) {
        const std::uint64_t key = left[i].key;
        m_positions[i] = NOWHERE;
        if ((bits >> (key & 63) & 1) == 0) {
            continue;
        }
        std::size_t j = next < rightCount && right[next].key == key ? next : 0;
        while (j < rightCount && right[j].key != key) {
            ++j;
        }
        if (j < rightCount) {
            m_positions[i] = j;
            hits |= std::uint64_t{1} << j;
            next = j + 1;
        }
    }
    for (std::size_t j = 0; j < rightCount; ++j) {
        m_rest[m_restCount] = j;
        m_restCount += (hits >> j & 1) == 0 ? 1 : 0;
    }
}

void VrexVariableKeyMatch::matchLong(const Entry* left, std::size_t leftCount, const Entry* right,
                                     std::size_t rightCount) {
    boost::unordered_flat_map<std::uint64_t, std::size_t> index(rightCount);
    for (std::size_t j = 0; j < rightCount; ++j) {
        index.emplace(right[j].key, j);
    }
    std::vector<bool> hits(rightCount);
    for (std::size_t i = 0; i < leftCount; ++i) {
        const auto found = index.find(left[i].key);
        m_positions[i] = found != index.end() ? found->second : NOWHERE;
        if (found != index.end()) {
            hits[found->second] = true;
        }
    }
    for (std::size_t j = 0; j < rightCount; ++j) {
        if (!hits[j]) {
            m_rest[m_restCount++] = j;
        }
    }
}
