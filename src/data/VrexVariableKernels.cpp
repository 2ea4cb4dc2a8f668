#include "data/VrexVariableKernels.h"

void nsVariableKernels::makeRoomForUnion(Store& result, const Store& a, const Store& b,
                                         std::uint64_t common) {
    const VrexVariableKeyIndex index(b.begin() + common, b.size() - common);
    std::uint64_t hits = 0;
    for (const Store::Entry *left = a.begin() + common, *end = a.end(); left != end; ++left) {
        hits += index.find(left->key) != VrexVariableKeyIndex::NOWHERE ? 1 : 0;
    }
    if (a.size() + b.size() - common - hits > Store::INLINE_CAPACITY) {
        result.resizeForOverwrite(common);
        result.reserve(a.size() + b.size());
    }
}
