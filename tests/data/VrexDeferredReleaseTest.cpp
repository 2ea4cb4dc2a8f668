#include "data/VrexDeferredRelease.h"

#include <gtest/gtest.h>

#include "support/SmallStack.h"

namespace {

/// A link of a chain, or a node of a tree, that owns what follows it.
struct Owner {
    explicit Owner(int& living) : count(living) { ++count; }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() {
        --count;
        nsRelease::drop(std::move(next));
        nsRelease::dropAll(children);
    }
    int& count;
    std::shared_ptr<Owner> next;
    std::vector<std::shared_ptr<Owner>> children;
};

TEST(VrexDeferredRelease, NullIsNothingToDrop) { EXPECT_NO_THROW(nsRelease::drop(nullptr)); }

TEST(VrexDeferredRelease, LongChainIsReleasedWithoutRecursion) {
    int living = 0;
    runOnSmallStack([&living] {
        std::shared_ptr<Owner> chain;
        for (int i = 0; i < 1'000'000; ++i) {
            auto link = std::make_shared<Owner>(living);
            link->next = std::move(chain);
            chain = std::move(link);
        }
        EXPECT_EQ(living, 1'000'000);
        chain.reset();
    });
    EXPECT_EQ(living, 0);
}

TEST(VrexDeferredRelease, ChainOfOwnersThatHoldTheNextTwiceIsReleasedWithoutRecursion) {
    int living = 0;
    runOnSmallStack([&living] {
        std::shared_ptr<Owner> chain;
        for (int i = 0; i < 100'000; ++i) {
            auto link = std::make_shared<Owner>(living);
            link->children = {chain, chain};
            chain = std::move(link);
        }
        EXPECT_EQ(living, 100'000);
        chain.reset();
    });
    EXPECT_EQ(living, 0);
}

TEST(VrexDeferredRelease, TreeIsReleasedWholeBeforeTheDropReturns) {
    int living = 0;
    auto root = std::make_shared<Owner>(living);
    for (int i = 0; i < 10; ++i) {
        root->children.push_back(std::make_shared<Owner>(living));
        root->children.back()->children.push_back(std::make_shared<Owner>(living));
    }
    EXPECT_EQ(living, 21);
    nsRelease::drop(std::move(root));
    EXPECT_EQ(living, 0);
}

TEST(VrexDeferredRelease, ShareHeldElsewhereLives) {
    int living = 0;
    const auto held = std::make_shared<Owner>(living);
    nsRelease::drop(held);
    EXPECT_EQ(living, 1);
}

} // namespace
