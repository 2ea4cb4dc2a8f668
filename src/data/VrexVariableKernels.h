#pragma once

#include <cstddef>
#include <cstdint>

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

/// The rest of `combine` where each store has at most 64 entries from `common` on. All of `a` is written as
/// if `b` had none of its keys, then `b` is laid over it: the loops hardly branch on what the keys are.
template <typename Rule>
[[gnu::noinline]] void combineUnlike(Store& result, const Store& a, const Store& b, std::uint64_t common,
                                     const Rule& rule) {
    const Store::Entry* const left = a.begin() + common;
    const std::uint64_t leftCount = a.size() - common;
    Store::Entry* overlay = result.begin() + common;
    VrexVariableKeyIndex index(left);
    for (std::uint64_t i = 0; i < leftCount; ++i) {
        const std::uint64_t key = left[i].key;
        index.add(key, i);
        overlay[i].key = key;
        overlay[i].value = rule(left[i].value, 0.0);
    }
    std::uint64_t count = a.size();
    std::uint64_t room = result.capacity() == 0 ? Store::INLINE_CAPACITY : result.capacity();
    for (const Store::Entry *right = b.begin() + common, *end = b.end(); right != end; ++right) {
        const std::size_t i = index.find(right->key);
        if (i != VrexVariableKeyIndex::NOWHERE) {
            overlay[i].value = rule(left[i].value, right->value);
            continue;
        }
        if (count == room) [[unlikely]] {
            result.resizeForOverwrite(count);
            result.reserve(a.size() + b.size());
            room = result.capacity();
            overlay = result.begin() + common;
        }
        Store::Entry& added = overlay[count - common];
        added.key = right->key;
        added.value = rule(0.0, right->value);
        ++count;
    }
    result.resizeForOverwrite(count);
}

/// The rest of `combine` where `b` has one key more than the common ones.
template <typename Rule>
[[gnu::noinline]] void combineUnlikeOne(Store& result, const Store& a, const Store::Entry& right,
                                        std::uint64_t common, const Rule& rule) {
    const Store::Entry* const left = a.begin() + common;
    const std::uint64_t leftCount = a.size() - common;
    Store::Entry* target = result.begin() + common;
    std::uint64_t hit = leftCount;
    for (std::uint64_t i = 0; i < leftCount; ++i) {
        const std::uint64_t key = left[i].key;
        hit = key == right.key ? i : hit;
        target[i].key = key;
        target[i].value = rule(left[i].value, 0.0);
    }
    if (hit != leftCount) {
        target[hit].value = rule(left[hit].value, right.value);
        result.resizeForOverwrite(a.size());
        return;
    }
    if (a.size() == Store::INLINE_CAPACITY) [[unlikely]] {
        result.resizeForOverwrite(a.size());
        result.reserve(a.size() + common + 1);
        target = result.begin() + common;
    }
    target[leftCount].key = right.key;
    target[leftCount].value = rule(0.0, right.value);
    result.resizeForOverwrite(a.size() + 1);
}

/// The rest of `combine` for stores of any size, whose result has its room.
template <typename Rule>
[[gnu::noinline]] void combineUnlikeMany(Store& result, const Store& a, const Store& b, std::uint64_t common,
                                         const Rule& rule) {
    const Store::Entry* left = a.begin() + common;
    const Store::Entry* right = b.begin() + common;
    const std::uint64_t leftCount = a.size() - common;
    const VrexVariableKeyMatch match(left, leftCount, right, b.size() - common);
    result.resizeForOverwrite(a.size() + match.rest().size());
    Store::Entry* target = result.begin() + common;
    for (std::uint64_t i = 0; i < leftCount; ++i) {
        const std::size_t j = match.position(i);
        *target++ = {left[i].key,
                     rule(left[i].value, j != VrexVariableKeyMatch::NOWHERE ? right[j].value : 0.0)};
    }
    for (const std::size_t j : match.rest()) {
        *target++ = {right[j].key, rule(0.0, right[j].value)};
    }
}

/// The rest of `combine` where the keys agree only up to `common`, for which the result is written.
template <typename Rule>
inline void combineRest(Store& result, const Store& a, const Store& b, std::uint64_t common,
                        const Rule& rule) {
    if (b.size() - common == 1) {
        combineUnlikeOne(result, a, b.begin()[common], common, rule);
    } else if (a.size() - common <= VrexVariableKeyIndex::MOST &&
               b.size() - common <= VrexVariableKeyIndex::MOST) {
        combineUnlike(result, a, b, common, rule);
    } else {
        combineUnlikeMany(result, a, b, common, rule);
    }
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
        combineRest(result, a, b, i, rule);
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
    const std::uint64_t room =
        store.capacity() > Store::INLINE_CAPACITY ? store.capacity() : Store::INLINE_CAPACITY;
    if (before + rightCount > room) {
        std::uint64_t rest = rightCount;
        for (std::uint64_t i = common; i < before; ++i) {
            rest -= index.find(store.begin()[i].key) != VrexVariableKeyIndex::NOWHERE ? 1 : 0;
        }
        store.reserveForAppending(rest);
    }
    Store::Entry* target = store.begin();
    for (std::uint64_t i = 0; i < common; ++i) {
        target[i].value = update(target[i].value, right[i].value);
    }
    right += common;
    std::uint64_t hits = 0;
    for (std::uint64_t i = common; i < before; ++i) {
        const std::size_t j = index.find(target[i].key);
        double db = 0.0;
        if (j != VrexVariableKeyIndex::NOWHERE) {
            hits |= std::uint64_t{1} << j;
            db = right[j].value;
        }
        target[i].value = update(target[i].value, db);
    }
    for (std::uint64_t j = 0; j < rightCount; ++j) {
        if ((hits >> j & 1) == 0) {
            store.append(right[j].key, appended(right[j].value));
        }
    }
}

} // namespace nsVariableKernels
