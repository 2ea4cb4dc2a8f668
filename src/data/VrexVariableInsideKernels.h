#pragma once

#include <cstdint>

#include "data/VrexVariableKernels.h"

/// The loops for stores that are inside, which have no heap block. They call nothing, so that they may stand
/// in the operators themselves.
namespace nsVariableKernels {

/// `transform` of a store that is inside.
template <typename Rule>
[[gnu::always_inline]] inline void transformInside(Store& result, const Store& a, const Rule& rule) {
    result.setFilled(a.size(), a.keyBits());
    writeFew(result.inside(), a.inside(), a.inside() + a.size(), rule);
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

} // namespace nsVariableKernels
