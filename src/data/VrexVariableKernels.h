#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "data/VrexExport.h"
#include "data/VrexMiniMap.h"
#include "data/VrexVariableKeyIndex.h"
#include "data/VrexVariableKeyMatch.h"

/// The loops behind the operators and functions: each takes the rule for one entry and applies it to whole
/// stores.
namespace nsVariableKernels {

using Store = VrexMiniMap<std::uint64_t, double, 10>;

/// Fills the empty `result` with rule(d) for each entry d of `a`, in its order. Allocates exactly where `a`
/// has more entries than fit inside.
template <typename Rule>
inline void transform(Store& result, const Store& a, const Rule& rule) {
    const std::uint64_t count = a.size();
    if (count > Store::INLINE_CAPACITY) [[unlikely]] {
        result.reserve(count);
    }
    result.resizeForOverwrite(count);
    const Store::Entry* source = a.begin();
    Store::Entry* target = result.begin();
    for (std::uint64_t i = 0; i < count; ++i) {
        target[i].key = source[i].key;
        target[i].value = rule(source[i].value);
    }
}

/// Makes the empty `result` a copy of `a`, with a copy's capacity, and multiplies each entry by `c`.
inline void scaledCopy(Store& result, const Store& a, double c) {
    result.resizeForOverwrite(a.size());
    const Store::Entry* source = a.begin();
    Store::Entry* target = result.begin();
    for (std::uint64_t i = 0, count = a.size(); i < count; ++i) {
        target[i].key = source[i].key;
        target[i].value = c * source[i].value;
    }
}

/// Most entries of a second store that are looked through one by one; more of them are found through an
/// index.
inline constexpr std::uint64_t FEW = 4;

/// Length of the longest common run of keys at the front of both stores.
inline std::uint64_t commonPrefix(const Store& a, const Store& b) {
    const std::uint64_t count = a.size() < b.size() ? a.size() : b.size();
    const Store::Entry* left = a.begin();
    const Store::Entry* right = b.begin();
    std::uint64_t i = 0;
    while (i < count && left[i].key == right[i].key) {
        ++i;
    }
    return i;
}

/// Finds keys in a run of a few entries by looking, first behind the last one found.
class KeySearch {
public:
    KeySearch(const Store::Entry* entries, std::uint64_t count) : m_entries(entries), m_count(count) {}
    std::size_t find(std::uint64_t key) {
        std::uint64_t i = m_next;
        if (i >= m_count || m_entries[i].key != key) {
            i = 0;
            while (i < m_count && m_entries[i].key != key) {
                ++i;
            }
            if (i == m_count) {
                return VrexVariableKeyIndex::NOWHERE;
            }
        }
        m_next = i + 1;
        return i;
    }

private:
    const Store::Entry* m_entries;
    std::uint64_t m_count;
    std::uint64_t m_next = 0;
};

/// Writes the entries of a union from `common` on, where both stores agree in all keys before; gives its end.
/// `finder` looks among b's entries from there on, which are at most 64.
template <typename Rule, typename Finder>
inline Store::Entry* writeUnion(Store::Entry* target, const Store& a, const Store& b, std::uint64_t common,
                                Finder finder, const Rule& rule) {
    const Store::Entry* const right = b.begin() + common;
    std::uint64_t hits = 0;
    for (const Store::Entry *left = a.begin() + common, *end = a.end(); left != end; ++left, ++target) {
        const std::size_t j = finder.find(left->key);
        double db = 0.0;
        if (j != VrexVariableKeyIndex::NOWHERE) {
            hits |= std::uint64_t{1} << j;
            db = right[j].value;
        }
        target->key = left->key;
        target->value = rule(left->value, db);
    }
    for (std::uint64_t j = 0, count = b.size() - common; j < count; ++j) {
        if ((hits >> j & 1) == 0) {
            target->key = right[j].key;
            target->value = rule(0.0, right[j].value);
            ++target;
        }
    }
    return target;
}

/// `writeUnion` for a second store with any number of further entries.
template <typename Rule>
[[gnu::noinline]] Store::Entry* writeLongUnion(Store::Entry* target, const Store& a, const Store& b,
                                               std::uint64_t common, const Rule& rule) {
    const Store::Entry* left = a.begin() + common;
    const Store::Entry* right = b.begin() + common;
    const std::uint64_t leftCount = a.size() - common;
    const VrexVariableKeyMatch match(left, leftCount, right, b.size() - common);
    for (std::uint64_t i = 0; i < leftCount; ++i) {
        const std::size_t j = match.position(i);
        *target++ = {left[i].key,
                     rule(left[i].value, j != VrexVariableKeyMatch::NOWHERE ? right[j].value : 0.0)};
    }
    for (const std::size_t j : match.rest()) {
        *target++ = {right[j].key, rule(0.0, right[j].value)};
    }
    return target;
}

/// Makes room in `result`, of which `common` entries are written, for the union of two stores that fit inside
/// each, but perhaps not together.
[[gnu::noinline]] VREX_DATA_EXPORT void makeRoomForUnion(Store& result, const Store& a, const Store& b,
                                                         std::uint64_t common);

/// The rest of `combine` where the keys agree only up to `common`.
template <typename Rule>
[[gnu::noinline]] void combineUnlike(Store& result, const Store& a, const Store& b, std::uint64_t common,
                                     const Rule& rule) {
    const std::uint64_t rightCount = b.size() - common;
    if (a.size() + rightCount > Store::INLINE_CAPACITY && result.capacity() == 0) [[unlikely]] {
        makeRoomForUnion(result, a, b, common);
    }
    Store::Entry* const first = result.begin();
    Store::Entry* end = nullptr;
    if (rightCount <= FEW) {
        end = writeUnion(first + common, a, b, common, KeySearch(b.begin() + common, rightCount), rule);
    } else if (rightCount <= VrexVariableKeyIndex::MOST) {
        end = writeUnion(first + common, a, b, common, VrexVariableKeyIndex(b.begin() + common, rightCount),
                         rule);
    } else {
        end = writeLongUnion(first + common, a, b, common, rule);
    }
    result.resizeForOverwrite(static_cast<std::uint64_t>(end - first));
}

/// Fills the empty `result` with rule(da, db) for each key: those of `a` in their order, then those that only
/// `b` has. The entry of a key that a store lacks is 0. Allocates a.size + b.size when the union does not fit
/// inside.
template <typename Rule>
inline void combine(Store& result, const Store& a, const Store& b, const Rule& rule) {
    const std::uint64_t leftCount = a.size();
    const std::uint64_t rightCount = b.size();
    if (leftCount > Store::INLINE_CAPACITY || rightCount > Store::INLINE_CAPACITY) [[unlikely]] {
        result.reserve(leftCount + rightCount);
    }
    const std::uint64_t count = leftCount < rightCount ? leftCount : rightCount;
    const Store::Entry* left = a.begin();
    const Store::Entry* right = b.begin();
    Store::Entry* target = result.begin();
    std::uint64_t i = 0;
    for (; i < count && left[i].key == right[i].key; ++i) {
        target[i].key = left[i].key;
        target[i].value = rule(left[i].value, right[i].value);
    }
    if (leftCount == rightCount && i == count) {
        result.resizeForOverwrite(count);
    } else {
        combineUnlike(result, a, b, i, rule);
    }
}

/// `combineInto` for a right store of many entries.
template <typename Update, typename Append>
[[gnu::noinline, gnu::cold]] void combineManyInto(Store& store, const Store& b, const Update& update,
                                                  const Append& appended) {
    const std::uint64_t common = commonPrefix(store, b);
    const std::uint64_t before = store.size();
    const Store::Entry* right = b.begin();
    const VrexVariableKeyMatch match(store.begin() + common, before - common, right + common,
                                     b.size() - common);
    store.reserveForAppending(match.rest().size());
    Store::Entry* target = store.begin();
    for (std::uint64_t i = 0; i < common; ++i) {
        target[i].value = update(target[i].value, right[i].value);
    }
    right += common;
    for (std::uint64_t i = common; i < before; ++i) {
        const std::size_t j = match.position(i - common);
        target[i].value = update(target[i].value, j != VrexVariableKeyMatch::NOWHERE ? right[j].value : 0.0);
    }
    for (const std::size_t j : match.rest()) {
        store.append(right[j].key, appended(right[j].value));
    }
}

/// In place: d = update(d, db) for each entry of `store`, db being 0 for a key that `b` lacks; then each key
/// that only `b` has is appended with appended(db). `b` may be `store`. Nothing has changed when it throws.
template <typename Update, typename Append>
inline void combineInto(Store& store, const Store& b, const Update& update, const Append& appended) {
    const std::uint64_t before = store.size();
    const std::uint64_t common = commonPrefix(store, b);
    const std::uint64_t rightCount = b.size() - common;
    if (rightCount > VrexVariableKeyIndex::MOST) [[unlikely]] {
        return combineManyInto(store, b, update, appended);
    }
    const Store::Entry* right = b.begin();
    const VrexVariableKeyIndex index(right + common, rightCount);
    std::uint64_t hits = 0;
    for (std::uint64_t i = common; i < before; ++i) {
        const std::size_t j = index.find(store.begin()[i].key);
        hits |= j != VrexVariableKeyIndex::NOWHERE ? std::uint64_t{1} << j : 0;
    }
    store.reserveForAppending(rightCount - static_cast<std::uint64_t>(std::popcount(hits)));
    Store::Entry* target = store.begin();
    for (std::uint64_t i = 0; i < common; ++i) {
        target[i].value = update(target[i].value, right[i].value);
    }
    right += common;
    for (std::uint64_t i = common; i < before; ++i) {
        const std::size_t j = hits != 0 ? index.find(target[i].key) : VrexVariableKeyIndex::NOWHERE;
        target[i].value = update(target[i].value, j != VrexVariableKeyIndex::NOWHERE ? right[j].value : 0.0);
    }
    for (std::uint64_t j = 0; j < rightCount; ++j) {
        if ((hits >> j & 1) == 0) {
            store.append(right[j].key, appended(right[j].value));
        }
    }
}

} // namespace nsVariableKernels
