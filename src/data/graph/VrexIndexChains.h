#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "data/VrexPrefetch.h"

/// From a 64-bit key to the places 0, 1, 2 ... at which it was added, the latest first.
///
/// Chained buckets in flat arrays: nothing is allocated for a single key, and keys that meet in a bucket
/// lengthen one chain only. Room for 2^32 - 1 places.
template <class Hash>
class VrexIndexChains {
public:
    /// No place.
    static constexpr std::uint32_t NONE = 0xFFFFFFFFU;

    std::uint32_t size() const { return static_cast<std::uint32_t>(m_keys.size()); }
    std::uint64_t key(std::uint32_t place) const { return m_keys[place]; }
    const std::vector<std::uint64_t>& keys() const { return m_keys; }

    void reserve(std::size_t count) {
        m_keys.reserve(count);
        m_older.reserve(count);
        if (count > m_heads.size()) {
            rebuild(count);
        }
    }
    /// Adds `key` at place `size()`; the latest place that it had before.
    std::uint32_t add(std::uint64_t key) {
        if (m_keys.size() >= m_heads.size()) {
            rebuild(m_keys.size() + 1);
        }
        std::uint32_t& head = m_heads[bucketOf(key)];
        const std::uint32_t before = match(head, key);
        m_older.push_back(head);
        head = size();
        m_keys.push_back(key);
        return before;
    }
    /// Fetches the bucket of a key that is about to be looked up.
    void prefetch(std::uint64_t key) const {
        if (!m_heads.empty()) {
            nsPrefetch::line(&m_heads[bucketOf(key)]);
        }
    }
    /// The latest place of any key in the bucket of `key`: mostly its own, and never behind its own.
    std::uint32_t latestNear(std::uint64_t key) const {
        return m_heads.empty() ? NONE : m_heads[bucketOf(key)];
    }
    /// The latest place of `key`.
    std::uint32_t latest(std::uint64_t key) const {
        return m_heads.empty() ? NONE : match(m_heads[bucketOf(key)], key);
    }
    /// The place of the same key before `place`.
    std::uint32_t before(std::uint32_t place) const { return match(m_older[place], m_keys[place]); }
    void clear() { *this = {}; }

private:
    std::size_t bucketOf(std::uint64_t key) const { return Hash()(key) & (m_heads.size() - 1); }
    std::uint32_t match(std::uint32_t place, std::uint64_t key) const {
        while (place != NONE && m_keys[place] != key) {
            place = m_older[place];
        }
        return place;
    }
    void link(std::uint32_t place) {
        std::uint32_t& head = m_heads[bucketOf(m_keys[place])];
        m_older.push_back(head);
        head = place;
    }
    void rebuild(std::size_t count) {
        m_heads.assign(std::bit_ceil(count < 8 ? std::size_t(8) : count), NONE);
        m_older.clear();
        for (std::uint32_t place = 0; place < size(); ++place) {
            link(place);
        }
    }

    std::vector<std::uint64_t> m_keys;
    std::vector<std::uint32_t> m_older; ///< Next place in the chain.
    std::vector<std::uint32_t> m_heads; ///< As many as a power of two.
};
