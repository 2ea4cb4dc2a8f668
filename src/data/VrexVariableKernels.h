#pragma once

#include <cstddef>
#include <cstdint>

#include "data/VrexMiniMap.h"
#include "data/VrexVariableKeyIndex.h"
#include "data/VrexVariableKeyMatch.h"

/// The loops behind the operators and functions: each takes the rule for one entry and applies it to whole
/// stores.
///
/// What stands "inside" is for stores without a heap block, small enough for the operators themselves, and
/// calls nothing.
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

/// `transform` of a store that is inside.
template <typename Rule>
[[gnu::always_inline]] inline void transformInside(Store& result, const Store& a, const Rule& rule) {
    result.setFilled(a.size(), a.keyBits());
    writeFew(result.inside(), a.inside(), a.inside() + a.size(), rule);
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

/// `combineInside` of stores of which the word of keys tells that they have no key in common.
template <typename Rule>
[[gnu::always_inline]] inline bool joinInside(Store& result, const Store& a, const Store& b,
                                              const Rule& rule) {
    const std::uint64_t count = a.size() + b.size();
    if (count > Store::INLINE_CAPACITY) {
        return false;
    }
    Store::Entry* const target = writeFew(result.inside(), a.inside(), a.inside() + a.size(),
                                          [&rule](double d) { return rule(d, 0.0); });
    writeFew(target, b.inside(), b.inside() + b.size(), [&rule](double d) { return rule(0.0, d); });
    result.setFilled(count, a.keyBits() | b.keyBits());
    return true;
}

/// Fills the empty `result` with rule(da, db) for each key when both stores are inside and no key has to be
/// searched for: one store begins with all keys of the other, or the word of keys tells that they have none
/// in common. Otherwise gives false and leaves `result` empty.
template <typename Rule>
[[gnu::always_inline]] inline bool combineInside(Store& result, const Store& a, const Store& b,
                                                 const Rule& rule) {
    if ((a.keyBits() & b.keyBits()) == 0) {
        return joinInside(result, a, b, rule);
    }
    const Store::Entry* left = a.inside();
    const Store::Entry* right = b.inside();
    Store::Entry* target = result.inside();
    const Store::Entry* const leftEnd = left + a.size();
    const Store::Entry* const rightEnd = right + b.size();
    for (; left != leftEnd && right != rightEnd; ++left, ++right, ++target) {
        if (left->key != right->key) {
            return false;
        }
        target->key = left->key;
        target->value = rule(left->value, right->value);
    }
    target = writeFew(target, left, leftEnd, [&rule](double d) { return rule(d, 0.0); });
    target = writeFew(target, right, rightEnd, [&rule](double d) { return rule(0.0, d); });
    result.setFilled(static_cast<std::uint64_t>(target - result.inside()), a.keyBits() | b.keyBits());
    return true;
}

/// Positions of a few entries by the low six bits of their keys: the last one that has them, 0 where none
/// has.
class FewPositions {
public:
    FewPositions() = default;
    explicit FewPositions(const Store& store) {
        for (std::uint64_t i = 0, count = store.size(); i < count; ++i) {
            set(store.inside()[i].key, i);
        }
    }
    void set(std::uint64_t key, std::uint64_t position) {
        m_slots[key & 63] = static_cast<std::uint8_t>(position);
    }
    std::uint64_t operator[](std::uint64_t key) const { return m_slots[key & 63]; }

private:
    std::uint8_t m_slots[64] = {};
};

/// `combineInside` of a store with room and one entry.
template <typename Rule>
[[gnu::always_inline]] inline void combineOneRight(Store& result, const Store& a, const Store& b,
                                                   const Rule& rule) {
    const Store::Entry& one = *b.inside();
    Store::Entry* target = result.inside();
    bool isMet = false;
    for (const Store::Entry *left = a.inside(), *end = left + a.size(); left != end; ++left, ++target) {
        target->key = left->key;
        double other = 0.0;
        if (left->key == one.key) {
            isMet = true;
            other = one.value;
        }
        target->value = rule(left->value, other);
    }
    if (!isMet) {
        target->key = one.key;
        target->value = rule(0.0, one.value);
        ++target;
    }
    result.setFilled(static_cast<std::uint64_t>(target - result.inside()), a.keyBits() | b.keyBits());
}

/// `combineInside` of one entry and a store with room.
template <typename Rule>
[[gnu::always_inline]] inline void combineOneLeft(Store& result, const Store& a, const Store& b,
                                                  const Rule& rule) {
    const Store::Entry& one = *a.inside();
    Store::Entry* target = result.inside() + 1;
    double other = 0.0;
    for (const Store::Entry *right = b.inside(), *end = right + b.size(); right != end; ++right) {
        if (right->key == one.key) {
            other = right->value;
            continue;
        }
        target->key = right->key;
        target->value = rule(0.0, right->value);
        ++target;
    }
    result.inside()->key = one.key;
    result.inside()->value = rule(one.value, other);
    result.setFilled(static_cast<std::uint64_t>(target - result.inside()), a.keyBits() | b.keyBits());
}

/// `combineInside` of a store and one whose keys it holds all, in any order. Gives false and leaves `result`
/// empty for others, and where keys of `b` that share a slot are not all found.
template <typename Rule>
[[gnu::always_inline]] inline bool combineSubset(Store& result, const Store& a, const Store& b,
                                                 const Rule& rule) {
    const FewPositions positions(b);
    const Store::Entry* const right = b.inside();
    Store::Entry* target = result.inside();
    std::uint64_t missed = 0;
    for (const Store::Entry *left = a.inside(), *end = left + a.size(); left != end; ++left, ++target) {
        const Store::Entry& other = right[positions[left->key]];
        target->key = left->key;
        if (other.key == left->key) {
            target->value = rule(left->value, other.value);
        } else {
            target->value = rule(left->value, 0.0);
            ++missed;
        }
    }
    if (a.size() - missed != b.size()) {
        return false;
    }
    result.setFilled(a.size(), a.keyBits());
    return true;
}

/// `combineInside` for what that leaves to do: all of `a` is written as if `b` had none of its keys, then `b`
/// is laid over it. Gives false and leaves `result` empty when the union does not fit inside.
template <typename Rule>
[[gnu::always_inline]] inline bool overlayInside(Store& result, const Store& a, const Store& b,
                                                 const Rule& rule) {
    const Store::Entry* const left = a.inside();
    Store::Entry* const target = result.inside();
    FewPositions positions;
    std::uint64_t count = a.size();
    for (std::uint64_t i = 0; i < count; ++i) {
        positions.set(left[i].key, i);
        target[i].key = left[i].key;
        target[i].value = rule(left[i].value, 0.0);
    }
    for (const Store::Entry *right = b.inside(), *end = right + b.size(); right != end; ++right) {
        std::uint64_t i = positions[right->key];
        if (left[i].key != right->key) {
            i = (a.keyBits() & Store::keyBit(right->key)) != 0 ? a.position(right->key) : a.size();
        }
        if (i < a.size()) {
            target[i].value = rule(left[i].value, right->value);
            continue;
        }
        if (count == Store::INLINE_CAPACITY) {
            return false;
        }
        target[count].key = right->key;
        target[count].value = rule(0.0, right->value);
        ++count;
    }
    result.setFilled(count, a.keyBits() | b.keyBits());
    return true;
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
    result.setFilled(a.size(), a.keyBits() | b.keyBits());
    if (missed == 0) {
        return;
    }
    if (a.size() + missed > Store::INLINE_CAPACITY) {
        result.reserve(a.size() + b.size());
        target = result.end();
    }
    for (std::uint64_t i = 0; i < rightCount; ++i) {
        if ((met >> i & 1) == 0) {
            target->key = right[i].key;
            target->value = rule(0.0, right[i].value);
            ++target;
        }
    }
    result.setFilled(a.size() + missed, result.keyBits());
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
