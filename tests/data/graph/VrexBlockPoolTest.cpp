#include "data/graph/VrexBlockPool.h"

#include <cstdint>
#include <memory>
#include <set>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct Node {
    std::uint64_t number;
    std::shared_ptr<int> held;
};

std::shared_ptr<Node> make(VrexBlockPool& pool, std::uint64_t number, std::shared_ptr<int> held = nullptr) {
    return std::allocate_shared<Node>(pool.allocator<Node>(), Node{number, std::move(held)});
}

TEST(VrexBlockPool, BlocksStandApartAndOutliveIt) {
    constexpr std::uint64_t COUNT = 5000; // several chunks of each size
    std::vector<std::shared_ptr<Node>> nodes;
    {
        VrexBlockPool pool;
        for (std::uint64_t number = 0; number < COUNT; ++number) {
            nodes.push_back(make(pool, number));
        }
    }
    for (std::uint64_t number = 0; number < COUNT; ++number) {
        ASSERT_EQ(nodes[number]->number, number);
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(nodes[number].get()) % alignof(Node), 0U);
    }
}

TEST(VrexBlockPool, BlockReleasesWhatItHoldsWhileOthersLive) {
    VrexBlockPool pool;
    const auto held = std::make_shared<int>(7);
    auto first = make(pool, 1, held);
    const auto second = make(pool, 2, held);
    EXPECT_EQ(held.use_count(), 3);
    first = nullptr;
    EXPECT_EQ(held.use_count(), 2);
    EXPECT_EQ(second->held, held);
}

TEST(VrexBlockPool, ReleasedMemoryIsNotCutTwice) {
    VrexBlockPool pool;
    const auto keeper = make(pool, 0);
    std::set<const Node*> places{keeper.get()};
    for (std::uint64_t number = 1; number <= 3; ++number) {
        EXPECT_TRUE(places.insert(make(pool, number).get()).second);
    }
}

TEST(VrexBlockPool, OtherThreadsMayReleaseWhileItGoesOn) {
    VrexBlockPool pool;
    std::vector<std::shared_ptr<Node>> nodes;
    for (std::uint64_t number = 0; number < 1000; ++number) {
        nodes.push_back(make(pool, number));
    }
    std::thread releasing([&nodes] { nodes.clear(); });
    std::vector<std::shared_ptr<Node>> more;
    for (std::uint64_t number = 0; number < 1000; ++number) {
        more.push_back(make(pool, number));
    }
    releasing.join();
    EXPECT_EQ(more.back()->number, 999U);
}

TEST(VrexBlockPool, CopyCutsFromChunksOfItsOwnAndAMovedOneGoesOn) {
    VrexBlockPool pool;
    const auto first = make(pool, 1);
    VrexBlockPool copy(pool);
    const auto second = make(copy, 2);
    VrexBlockPool moved(std::move(pool));
    const auto third = make(moved, 3);
    copy = std::move(moved);
    const auto fourth = make(copy, 4);
    EXPECT_EQ(first->number + second->number + third->number + fourth->number, 10U);
}

} // namespace
