#pragma once

#include <cstddef>
#include <cstdint>

#include "data/VrexMiniMap.h"
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

/// `combine` for stores that do not hold the same keys in the same order.
template <typename Rule>
[[gnu::noinline]] void combineUnlike(Store& result, const Store& a, const Store& b, const Rule& rule) {
    const std::uint64_t common = commonPrefix(a, b);
    const Store::Entry* right = b.begin() + common;
    const VrexVariableKeyMatch match(a.begin() + common, a.size() - common, right, b.size() - common);
    const std::uint64_t count = a.size() + match.restCount();
    if (count > Store::INLINE_CAPACITY) {
        result.reserve(a.size() + b.size());
    }
    result.resizeForOverwrite(count);
    Store::Entry* target = result.begin();
    const Store::Entry* left = a.begin();
    for (std::uint64_t i = 0; i < common; ++i) {
        *target++ = {left[i].key, rule(left[i].value, b.begin()[i].value)};
    }
    for (std::uint64_t i = common; i < a.size(); ++i) {
        const std::size_t j = match.position(i - common);
        *target++ = {left[i].key,
                     rule(left[i].value, j != VrexVariableKeyMatch::NOWHERE ? right[j].value : 0.0)};
    }
    for (std::size_t k = 0; k < match.restCount(); ++k) {
        const Store::Entry& entry = right[match.rest(k)];
        *target++ = {entry.key, rule(0.0, entry.value)};
    }
}

/// Fills the empty `result` with rule(da, db) for each key: those of `a` in their order, then those that only
/// `b` has. The entry of a key that a store lacks is 0. Allocates a.size + b.size when the union does not fit
/// inside.
template <typename Rule>
inline void combine(Store& result, const Store& a, const Store& b, const Rule& rule) {
    const std::uint64_t count = a.size();
    if (count != b.size() || count > Store::INLINE_CAPACITY) {
        return combineUnlike(result, a, b, rule);
    }
    const Store::Entry* left = a.begin();
    const Store::Entry* right = b.begin();
    Store::Entry* target = result.begin();
    for (std::uint64_t i = 0; i < count; ++i) {
        if (left[i].key != right[i].key) {
            return combineUnlike(result, a, b, rule);
        }
        target[i].key = left[i].key;
        target[i].value = rule(left[i].value, right[i].value);
    }
    result.resizeForOverwrite(count);
}

/// In place: d = update(d, db) for each entry of `store`, db being 0 for a key that `b` lacks; then each key
/// that only `b` has is appended with appended(db). `b` may be `store`. Nothing has changed when it throws.
template <typename Update, typename Append>
inline void combineInto(Store& store, const Store& b, const Update& update, const Append& appended) {
    const std::uint64_t common = commonPrefix(store, b);
    const std::uint64_t before = store.size();
    if (common == before && common == b.size()) {
        const Store::Entry* right = b.begin();
        Store::Entry* target = store.begin();
        for (std::uint64_t i = 0; i < common; ++i) {
            target[i].value = update(target[i].value, right[i].value);
        }
        return;
    }
    const Store::Entry* right = b.begin() + common;
    const VrexVariableKeyMatch match(store.begin() + common, before - common, right, b.size() - common);
    store.reserveForAppending(match.restCount());
    Store::Entry* target = store.begin();
    for (std::uint64_t i = 0; i < common; ++i) {
        target[i].value = update(target[i].value, b.begin()[i].value);
    }
    for (std::uint64_t i = common; i < before; ++i) {
        const std::size_t j = match.position(i - common);
        target[i].value = update(target[i].value, j != VrexVariableKeyMatch::NOWHERE ? right[j].value : 0.0);
    }
    for (std::size_t k = 0; k < match.restCount(); ++k) {
        const Store::Entry& entry = right[match.rest(k)];
        store.append(entry.key, appended(entry.value));
    }
}

} // namespace nsVariableKernels
