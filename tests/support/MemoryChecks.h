#pragma once

#include <cstddef>
#include <new>

#include <gtest/gtest.h>

#include "support/AllocationCounter.h"

/// What an operation takes of memory, and what it leaves where there is none. As `AllocationCounter`, only in
/// an executable that links AllocationCounter.cpp.
namespace nsMemoryChecks {

/// The allocations of `make`, which makes an object.
template <class Make>
std::size_t allocationsOf(const Make& make) {
    const AllocationCounter counter;
    const auto object = make();
    return object != nullptr ? counter.count() : 0;
}

/// Lets `update` run out of memory at each of its allocations in turn, at least once, and checks after each.
template <class Update, class Check>
void expectKeptWithoutMemory(const Update& update, const Check& check) {
    std::size_t failures = 0;
    for (bool done = false; !done;) {
        try {
            const AllocationLimit limit(failures);
            update();
            done = true;
        } catch (const std::bad_alloc&) {
            ++failures;
            check();
        }
    }
    EXPECT_GT(failures, 0U);
}

} // namespace nsMemoryChecks
