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

/// Gives up one share. Falls back to releasing in place when the queue cannot grow.
void drop(std::shared_ptr<const void> share) noexcept;

template <class Object>
void dropAll(std::vector<std::shared_ptr<Object>>& shares) noexcept {
    for (auto& share : shares) {
        drop(std::move(share));
    }
    shares.clear();
}

} // namespace nsRelease
