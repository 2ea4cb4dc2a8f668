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

/// Writes rule(d) for each of `count` entries d, under its key.
template <typename Rule>
inline void write(Store::Entry* target, const Store::Entry* source, std::uint64_t count, const Rule& rule) {
    for (std::uint64_t i = 0; i < count; ++i) {
        target[i].key = source[i].key;
        target[i].value = rule(source[i].value);
    }
}

/// `write` for few entries; gives the end of what it wrote.
template <typename Rule>
[[gnu::always_inline]] inline Store::Entry* writeFew(Store::Entry* target, const Store::Entry* source,
                                                     const Store::Entry* end, const Rule& rule) {
    for (; source != end; ++source, ++target) {
        Store::keepSimple(source);
        target->key = source->key;
        target->value = rule(source->value);
    }
    return target;
}

/// Fills the empty `result` with rule(d) for each entry d of `a`, in its order. Allocates exactly where `a`
/// has more entries than fit inside.
template <typename Rule>
inline void transform(Store& result, const Store& a, const Rule& rule) {
    result.reserve(a.size());
    result.setFilled(a.size(), a.keyBits());
    write(result.entries(), a.entries(), a.size(), rule);
}

/// d = rule(d) for each entry d.
template <typename Rule>
inline void update(Store& store, const Rule& rule) {
    Store::Entry* const entries = store.entries();
    for (std::uint64_t i = 0, count = store.size(); i < count; ++i) {
        entries[i].value = rule(entries[i].value);
    }
}

/// The rest of `combine` where `b` has at most 64 entries from `common` on: the keys of `a` are looked up
/// there, and what none of them has met is appended.
template <typename Rule>
inline void combineUnlike(Store& result, const Store& a, const Store& b, std::uint64_t common,
                          const Rule& rule) {
    const Store::Entry* const right = b.entries() + common;
    const std::uint64_t rightCount = b.size() - common;
    const VrexVariableKeyIndex index(right, rightCount);
    Store::Entry* target = result.entries() + common;
    std::uint64_t missed = rightCount;
    std::uint64_t met = 0; // A bit for each entry of b that a has too.
    for (const Store::Entry *left = a.entries() + common, *end = a.end(); left != end; ++left, ++target) {
        const std::size_t i = index.find(left->key);
        target->key = left->key;
        if (i == VrexVariableKeyIndex::NOWHERE) {
            target->value = rule(left->value, 0.0);
        } else {
            target->value = rule(left->value, right[i].value);
            met |= std::uint64_t{1} << i;
            --missed;
        }
    }
    const std::uint64_t keyBits = a.keyBits() | b.keyBits();
    result.setFilled(a.size(), keyBits);
    if (missed == 0) {
        return;
    }
    if (a.size() + missed > Store::INLINE_CAPACITY) {
        result.reserve(a.size() + b.size());
        target = result.entries() + a.size();
    }
    for (std::uint64_t i = 0; i < rightCount; ++i) {
        if ((met >> i & 1) == 0) {
            target->key = right[i].key;
            target->value = rule(0.0, right[i].value);
            ++target;
        }
    }
    result.setFilled(a.size() + missed, keyBits);
}

/// The rest of `combine` for stores of any size, whose result has its room.
template <typename Rule>
inline void combineUnlikeMany(Store& result, const Store& a, const Store& b, std::uint64_t common,
                              const Rule& rule) {
    const Store::Entry* left = a.entries() + common;
    const Store::Entry* right = b.entries() + common;
    const std::uint64_t leftCount = a.size() - common;
    const VrexVariableKeyMatch match(left, leftCount, right, b.size() - common);
    Store::Entry* target = result.entries() + common;
    for (std::uint64_t i = 0; i < leftCount; ++i) {
        const std::size_t j = match.position(i);
        *target++ = {left[i].key,
                     rule(left[i].value, j != VrexVariableKeyMatch::NOWHERE ? right[j].value : 0.0)};
    }
    for (const std::size_t j : match.rest()) {
        *target++ = {right[j].key, rule(0.0, right[j].value)};
    }
    result.setFilled(a.size() + match.rest().size(), a.keyBits() | b.keyBits());
}

/// Fills the empty `result` with rule(da, db) for each key: those of `a` in their order, then those that only
/// `b` has. The entry of a key that a store lacks is 0. Allocates a.size + b.size when the union does not fit
/// inside.
template <typename Rule>
inline void combine(Store& result, const Store& a, const Store& b, const Rule& rule) {
    const std::uint64_t least = a.size() < b.size() ? a.size() : b.size();
    const std::uint64_t all = a.size() + b.size();
    if (all - least > Store::INLINE_CAPACITY) {
        result.reserve(all);
    }
    const Store::Entry* const left = a.entries();
    const Store::Entry* const right = b.entries();
    Store::Entry* target = result.entries();
    std::uint64_t common = 0;
    for (; common < least && left[common].key == right[common].key; ++common) {
        target[common].key = left[common].key;
        target[common].value = rule(left[common].value, right[common].value);
    }
    const std::uint64_t leftRest = a.size() - common;
    const std::uint64_t rightRest = b.size() - common;
    if (common == least || (a.keyBits() & b.keyBits()) == 0) {
        if (all - common > Store::INLINE_CAPACITY) {
            result.setFilled(common, 0);
            result.reserve(all);
            target = result.entries();
        }
        write(target + common, left + common, leftRest, [&rule](double d) { return rule(d, 0.0); });
        write(target + a.size(), right + common, rightRest, [&rule](double d) { return rule(0.0, d); });
        result.setFilled(all - common, a.keyBits() | b.keyBits());
    } else if (rightRest <= VrexVariableKeyIndex::MOST) {
        combineUnlike(result, a, b, common, rule);
    } else {
        combineUnlikeMany(result, a, b, common, rule);
    }
}

} // namespace nsVariableKernels
