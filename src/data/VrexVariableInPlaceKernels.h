#pragma once

#include <cstddef>
#include <cstdint>

#include "data/VrexVariableKernels.h"

/// Hidden: the loops behind the compound assignments.
namespace nsVariableKernels {

/// Length of the longest common run of keys at the front of both stores.
inline std::uint64_t commonPrefix(const Store& a, const Store& b) {
    const std::uint64_t count = a.size() < b.size() ? a.size() : b.size();
    const Store::Entry* left = a.entries();
    const Store::Entry* right = b.entries();
    std::uint64_t i = 0;
    while (i < count && left[i].key == right[i].key) {
        ++i;
    }
    return i;
}

/// `combineInto` for a right store of many entries.
template <typename Update, typename Append>
[[gnu::noinline, gnu::cold]] void combineManyInto(Store& store, const Store& b, const Update& update,
                                                  const Append& appended) {
    const std::uint64_t common = commonPrefix(store, b);
    const std::uint64_t before = store.size();
    const Store::Entry* right = b.entries();
    const VrexVariableKeyMatch match(store.entries() + common, before - common, right + common,
                                     b.size() - common);
    store.reserveForAppending(match.rest().size());
    Store::Entry* target = store.entries();
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

/// d = update(d, 0) for each entry of a run.
template <typename Update>
inline void updateAlone(Store::Entry* entry, const Store::Entry* end, const Update& update) {
    for (; entry != end; ++entry) {
        entry->value = update(entry->value, 0.0);
    }
}

/// `combineInto` for stores without a common key.
template <typename Update, typename Append>
inline void appendInto(Store& store, const Store& b, const Update& update, const Append& appended) {
    const std::uint64_t before = store.size();
    store.reserveForAppending(b.size());
    store.resizeForOverwrite(before + b.size());
    Store::Entry* const entries = store.entries();
    updateAlone(entries, entries + before, update);
    write(entries + before, b.entries(), b.size(), appended);
    store.addKeyBits(b.keyBits());
}

/// Whether the word of keys tells that the stores have none in common, and `store` has the room for both.
inline bool fitsBehind(const Store& store, const Store& b) {
    return (store.keyBits() & b.keyBits()) == 0 && store.size() + b.size() <= store.room();
}

/// The sum in place of stores of which the word of keys tells that they have none in common, when `store` has
/// the room. Otherwise gives false and leaves `store` alone.
inline bool addInPlace(Store& store, const Store& b) {
    if (!fitsBehind(store, b)) {
        return false;
    }
    store.settle();
    store.appendAll(b.entries(), b.size(), b.keyBits());
    return true;
}

/// `addInPlace` of factor * b.
inline bool addScaledInPlace(Store& store, const Store& b, double factor) {
    if (!fitsBehind(store, b)) {
        return false;
    }
    store.settle();
    writeFew(store.extend(b.size(), b.keyBits()), b.entries(), b.entries() + b.size(),
             [factor](double d) { return factor * d; });
    return true;
}

/// `combineInto` for a right store of some entries, at most 64, more than the `common` ones.
template <typename Update, typename Append>
inline void combineSomeInto(Store& store, const Store& b, std::uint64_t common, const Update& update,
                            const Append& appended) {
    const std::uint64_t before = store.size();
    const std::uint64_t rightCount = b.size() - common;
    const Store::Entry* right = b.entries();
    const VrexVariableKeyIndex index(right + common, rightCount);
    const std::uint64_t room =
        store.capacity() > Store::INLINE_CAPACITY ? store.capacity() : Store::INLINE_CAPACITY;
    if (before + rightCount > room) {
        std::uint64_t rest = rightCount;
        for (std::uint64_t i = common; i < before; ++i) {
            rest -= index.find(store.entries()[i].key) != VrexVariableKeyIndex::NOWHERE ? 1 : 0;
        }
        store.reserveForAppending(rest);
    }
    Store::Entry* target = store.entries();
    for (std::uint64_t i = 0; i < common; ++i) {
        target[i].value = update(target[i].value, right[i].value);
    }
    right += common;
    std::uint64_t hits = 0;
    for (Store::Entry *entry = target + common, *end = target + before; entry != end; ++entry) {
        if (!index.mayHold(entry->key)) [[likely]] {
            entry->value = update(entry->value, 0.0);
            continue;
        }
        const std::size_t j = index.find(entry->key);
        if (j == VrexVariableKeyIndex::NOWHERE) {
            entry->value = update(entry->value, 0.0);
        } else {
            hits |= std::uint64_t{1} << j;
            entry->value = update(entry->value, right[j].value);
        }
    }
    for (std::uint64_t j = 0; j < rightCount; ++j) {
        if ((hits >> j & 1) == 0) {
            store.append(right[j].key, appended(right[j].value));
        }
    }
}

/// `combineInto` for a right store of one entry more than the `common` ones.
template <typename Update, typename Append>
inline void combineOneInto(Store& store, const Store& b, std::uint64_t common, const Update& update,
                           const Append& appended) {
    const std::uint64_t before = store.size();
    const Store::Entry* const right = b.entries();
    const Store::Entry& one = right[common];
    std::uint64_t position = common;
    while (position < before && store.entries()[position].key != one.key) {
        ++position;
    }
    if (position == before) {
        store.append(one.key, appended(one.value));
    }
    Store::Entry* const entries = store.entries();
    for (std::uint64_t i = 0; i < common; ++i) {
        entries[i].value = update(entries[i].value, right[i].value);
    }
    updateAlone(entries + common, entries + position, update);
    if (position < before) {
        entries[position].value = update(entries[position].value, one.value);
        updateAlone(entries + position + 1, entries + before, update);
    }
}

/// In place: d = update(d, db) for each entry of `store`, db being 0 for a key that `b` lacks; then each key
/// that only `b` has is appended with appended(db). `b` may be `store`. Nothing has changed when it throws.
template <typename Update, typename Append>
inline void combineInto(Store& store, const Store& b, const Update& update, const Append& appended) {
    if ((store.keyBits() & b.keyBits()) == 0) {
        return appendInto(store, b, update, appended);
    }
    const std::uint64_t common = commonPrefix(store, b);
    const std::uint64_t rightCount = b.size() - common;
    if (rightCount == 0) {
        Store::Entry* const entries = store.entries();
        const Store::Entry* const right = b.entries();
        for (std::uint64_t i = 0; i < common; ++i) {
            entries[i].value = update(entries[i].value, right[i].value);
        }
        updateAlone(entries + common, entries + store.size(), update);
    } else if (rightCount == 1) {
        combineOneInto(store, b, common, update, appended);
    } else if (rightCount <= VrexVariableKeyIndex::MOST) {
        combineSomeInto(store, b, common, update, appended);
    } else {
        combineManyInto(store, b, update, appended);
    }
}

} // namespace nsVariableKernels
