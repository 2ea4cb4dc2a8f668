#pragma once

#include <memory>
#include <utility>
#include <vector>

/// Hidden: how an owner gives up what it owns without recursion.
///
/// Objects own objects (a backup its older backup, a set its members), and chains of any length occur.
/// Dropped one inside the other they would need a stack frame a link; here the outermost release drains a
/// queue, and the releases inside it only push. Destructors of owning classes call this for each owning
/// member.
namespace nsRelease {

/// Gives up the last share of an object. Falls back to releasing in place when the queue cannot grow.
void dropLast(std::shared_ptr<const void> share) noexcept;

/// Gives up one share, null or not; one that is held elsewhere too goes without a queue.
inline void drop(std::shared_ptr<const void> share) noexcept {
    if (share.use_count() == 1) {
        dropLast(std::move(share));
    }
}

template <class Object>
void dropAll(std::vector<std::shared_ptr<Object>>& shares) noexcept {
    for (auto& share : shares) {
        drop(std::move(share));
    }
    shares.clear();
}

} // namespace nsRelease
