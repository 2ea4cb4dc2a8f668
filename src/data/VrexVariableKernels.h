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

/// The rest of `combine` where each store has at most 64 entries from `common` on. All of `a` is written as
/// if `b` had none of its keys, then `b` is laid over it: the loops hardly branch on what the keys are.
template <typename Rule>
inline void combineUnlike(Store& result, const Store& a, const Store& b, std::uint64_t common,
                          const Rule& rule) {
    const Store::Entry* const left = a.begin() + common;
    const std::uint64_t leftCount = a.size() - common;
    Store::Entry* overlay = result.begin() + common;
    VrexVariableKeyIndex index(left);
    for (std::uint64_t i = 0; i < leftCount; ++i) {
        index.add(left[i].key, i);
        overlay[i].key = left[i].key;
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
        overlay[count - common].key = right->key;
        overlay[count - common].value = rule(0.0, right->value);
        ++count;
    }
    result.resizeForOverwrite(count);
}

/// The rest of `combine` for stores of any size, whose result has its room.
template <typename Rule>
inline void combineUnlikeMany(Store& result, const Store& a, const Store& b, std::uint64_t common,
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

/// Fills the empty `result` with rule(da, db) for each key: those of `a` in their order, then those that only
/// `b` has. The entry of a key that a store lacks is 0. Allocates a.size + b.size when the union does not fit
/// inside.
template <typename Rule>
[[gnu::noinline]] void combine(Store& result, const Store& a, const Store& b, const Rule& rule) {
    if (a.size() > Store::INLINE_CAPACITY || b.size() > Store::INLINE_CAPACITY) {
        result.reserve(a.size() + b.size());
    }
    const std::uint64_t count = a.size() < b.size() ? a.size() : b.size();
    const Store::Entry* left = a.begin();
    const Store::Entry* right = b.begin();
    Store::Entry* target = result.begin();
    std::uint64_t common = 0;
    for (; common < count && left[common].key == right[common].key; ++common) {
        target[common].key = left[common].key;
        target[common].value = rule(left[common].value, right[common].value);
    }
    if (a.size() - common <= VrexVariableKeyIndex::MOST && b.size() - common <= VrexVariableKeyIndex::MOST) {
        combineUnlike(result, a, b, common, rule);
    } else {
        combineUnlikeMany(result, a, b, common, rule);
    }
}

/// Writes the union of a run and one more key, which one may be in the run; gives the end.
template <typename Rule>
inline Store::Entry* writeWithOneRight(Store::Entry* target, const Store::Entry* left,
                                       const Store::Entry* leftEnd, const Store::Entry& one,
                                       const Rule& rule) {
    const Store::Entry* hit = nullptr;
    Store::Entry* hitTarget = nullptr;
    for (; left != leftEnd; ++left, ++target) {
        target->key = left->key;
        target->value = rule(left->value, 0.0);
        if (left->key == one.key) {
            hit = left;
            hitTarget = target;
        }
    }
    if (hit != nullptr) {
        hitTarget->value = rule(hit->value, one.value);
        return target;
    }
    target->key = one.key;
    target->value = rule(0.0, one.value);
    return target + 1;
}

/// Writes the union of one key and a run, in which that key may be; gives the end. Uses one entry more.
template <typename Rule>
inline Store::Entry* writeWithOneLeft(Store::Entry* target, const Store::Entry& one,
                                      const Store::Entry* right, const Store::Entry* rightEnd,
                                      const Rule& rule) {
    Store::Entry& first = *target++;
    first.key = one.key;
    double other = 0.0;
    for (; right != rightEnd; ++right) {
        if (right->key == one.key) {
            other = right->value;
        } else {
            target->key = right->key;
            target->value = rule(0.0, right->value);
            ++target;
        }
    }
    first.value = rule(one.value, other);
    return target;
}

/// `combine` for stores of at most `INLINE_CAPACITY` entries each: ways without an index come first.
template <typename Rule>
inline void combineSmall(Store& result, const Store& a, const Store& b, const Rule& rule) {
    const std::uint64_t leftCount = a.size();
    const std::uint64_t rightCount = b.size();
    const Store::Entry* left = a.begin();
    const Store::Entry* right = b.begin();
    const Store::Entry* const leftEnd = left + leftCount;
    const Store::Entry* const rightEnd = right + rightCount;
    Store::Entry* const first = result.begin();
    Store::Entry* target = first;
    const std::uint64_t least = leftCount < rightCount ? leftCount : rightCount;
    for (const Store::Entry* end = left + least; left != end && left->key == right->key;
         ++left, ++right, ++target) {
        target->key = left->key;
        target->value = rule(left->value, right->value);
    }
    if (right == rightEnd || left == leftEnd) {
        for (; left != leftEnd; ++left, ++target) {
            target->key = left->key;
            target->value = rule(left->value, 0.0);
        }
        for (; right != rightEnd; ++right, ++target) {
            target->key = right->key;
            target->value = rule(0.0, right->value);
        }
    } else if (rightEnd - right == 1 && leftCount < Store::INLINE_CAPACITY) {
        target = writeWithOneRight(target, left, leftEnd, *right, rule);
    } else if (leftEnd - left == 1 && rightCount < Store::INLINE_CAPACITY) {
        target = writeWithOneLeft(target, *left, right, rightEnd, rule);
    } else {
        return combineUnlike(result, a, b, static_cast<std::uint64_t>(target - first), rule);
    }
    result.resizeForOverwrite(static_cast<std::uint64_t>(target - first));
}

/// `combine` of two stores that live inside and hold the same keys in the same order, the usual case; false,
/// with `result` still empty, for any others. Small enough to stand in the operators themselves.
template <typename Rule>
[[gnu::always_inline]] inline bool combineAligned(Store& result, const Store& a, const Store& b,
                                                  const Rule& rule) {
    const std::uint64_t count = a.size();
    if (count != b.size() || count > Store::INLINE_CAPACITY) {
        return false;
    }
    const Store::Entry* left = a.begin();
    const Store::Entry* right = b.begin();
    Store::Entry* target = result.begin();
    for (const Store::Entry* const end = left + count; left != end; ++left, ++right, ++target) {
        if (left->key != right->key) {
            return false;
        }
        target->key = left->key;
        target->value = rule(left->value, right->value);
    }
    result.resizeForOverwrite(count);
    return true;
}

/// `combine` of two stores that fit inside together: with so few keys every pair is compared.
template <typename Rule>
inline void combineTiny(Store& result, const Store& a, const Store& b, const Rule& rule) {
    const Store::Entry* const right = b.begin();
    const Store::Entry* const rightEnd = right + b.size();
    Store::Entry* target = result.begin();
    Store::Entry* const first = target;
    std::uint64_t met = 0; // A bit for each entry of b that a has too.
    for (const Store::Entry *left = a.begin(), *end = left + a.size(); left != end; ++left, ++target) {
        const Store::Entry* other = right;
        while (other != rightEnd && other->key != left->key) {
            ++other;
        }
        const bool isShared = other != rightEnd;
        met |= std::uint64_t{isShared} << (other - right);
        target->key = left->key;
        target->value = rule(left->value, isShared ? other->value : 0.0);
    }
    for (const Store::Entry* entry = right; entry != rightEnd; ++entry, met >>= 1U) {
        if ((met & 1U) == 0) {
            target->key = entry->key;
            target->value = rule(0.0, entry->value);
            ++target;
        }
    }
    result.resizeForOverwrite(static_cast<std::uint64_t>(target - first));
}

/// `combine` of stores that are not aligned.
template <typename Rule>
[[gnu::noinline]] void combineUnaligned(Store& result, const Store& a, const Store& b, Rule rule) {
    if (a.size() + b.size() <= Store::INLINE_CAPACITY) [[likely]] {
        combineTiny(result, a, b, rule);
    } else if (a.size() <= Store::INLINE_CAPACITY && b.size() <= Store::INLINE_CAPACITY) {
        combineSmall(result, a, b, rule);
    } else {
        combine(result, a, b, rule);
    }
}

} // namespace nsVariableKernels
