#include "data/VrexDeferredRelease.h"

#include <new>

namespace {

using Queue = std::vector<std::shared_ptr<const void>>;

/// The queue of this thread's outermost release, null when none runs. It lives on that release's stack frame.
thread_local Queue* t_queue = nullptr;

bool push(std::shared_ptr<const void>& share) noexcept {
    try {
        t_queue->push_back(std::move(share));
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

void nsRelease::dropLast(std::shared_ptr<const void> share) noexcept {
    if (t_queue != nullptr) {
        if (!push(share)) {
            share.reset();
        }
        return;
    }
    Queue queue;
    t_queue = &queue;
    share.reset();
    while (!queue.empty()) {
        share = std::move(queue.back());
        queue.pop_back();
        share.reset();
    }
    t_queue = nullptr;
}
