#include "data/geometry/VrexCorrelationCurveManager.h"

#include <map>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "support/MemoryChecks.h"
#include "support/SmallStack.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

TEST(VrexCorrelationCurveManager, RootOfARootIsNoneAndOfItsDescendantsTheRoot) {
    VrexCorrelationCurveManager manager;
    EXPECT_TRUE(manager.addToParent(2, 1));
    EXPECT_TRUE(manager.addToParent(3, 2));
    EXPECT_EQ(manager.findRoot(1), 0U);
    EXPECT_EQ(manager.findRoot(2), 1U);
    EXPECT_EQ(manager.findRoot(3), 1U);
    EXPECT_EQ(manager.findParent(3), 2U);
    EXPECT_EQ(manager.findParent(1), 0U);
}

TEST(VrexCorrelationCurveManager, ZeroOneselfAndASecondParentAreRefused) {
    VrexCorrelationCurveManager manager;
    EXPECT_FALSE(manager.addToParent(0, 1));
    EXPECT_FALSE(manager.addToParent(1, 0));
    EXPECT_FALSE(manager.addToParent(1, 1));
    EXPECT_FALSE(manager.isKnownParent(1));
    EXPECT_TRUE(manager.addToParent(2, 1));
    EXPECT_FALSE(manager.addToParent(2, 3));
    EXPECT_FALSE(manager.addToParent(2, 1));
    EXPECT_EQ(manager.findParent(2), 1U);
    EXPECT_FALSE(manager.isKnownParent(3));
}

TEST(VrexCorrelationCurveManager, ErasingInTheMiddleOfAChainForgetsTheRestAndKeepsTheParentKnown) {
    VrexCorrelationCurveManager manager;
    manager.addToParent(2, 1);
    manager.addToParent(3, 2);
    manager.erase(2);
    EXPECT_EQ(manager.findParent(2), 0U);
    EXPECT_EQ(manager.findParent(3), 0U);
    EXPECT_TRUE(manager.isKnownParent(1));
    EXPECT_THAT(manager.findChildren(1), IsEmpty());
    EXPECT_FALSE(manager.isKnownParent(2));
}

TEST(VrexCorrelationCurveManager, ErasingTheRootOfAChainChangesNothing) {
    VrexCorrelationCurveManager manager;
    manager.addToParent(2, 1);
    manager.addToParent(3, 2);
    manager.erase(1);
    EXPECT_EQ(manager.findRoot(3), 1U);
    EXPECT_THAT(manager.findChildren(1), ElementsAre(2));
}

TEST(VrexCorrelationCurveManager, ChildrenRise) {
    VrexCorrelationCurveManager manager;
    for (const std::uint64_t child : {9U, 4U, 70000U, 2U}) {
        manager.addToParent(child, 1);
    }
    manager.addToParent(5, 4);
    EXPECT_THAT(manager.findChildren(1), ElementsAre(2, 4, 9, 70000));
    EXPECT_THAT(manager.findChildren(5), IsEmpty());
    manager.eraseAll();
    EXPECT_THAT(manager.findChildren(1), IsEmpty());
    EXPECT_EQ(manager.findParent(5), 0U);
}

TEST(VrexCorrelationCurveManager, ARingHasNoRootAndIsErasedWhole) {
    VrexCorrelationCurveManager manager;
    manager.addToParent(2, 1);
    manager.addToParent(3, 2);
    manager.addToParent(1, 3);
    manager.addToParent(4, 2);
    const LogCapture log;
    EXPECT_EQ(manager.findRoot(4), 0U);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, "Curve(4) derives from a ring of curves.");
    manager.erase(2);
    for (const std::uint64_t id : {1U, 2U, 3U, 4U}) {
        EXPECT_EQ(manager.findParent(id), 0U);
        EXPECT_FALSE(manager.isKnownParent(id) && id != 1);
    }
    EXPECT_TRUE(manager.addToParent(1, 3));
}

TEST(VrexCorrelationCurveManager, ALongChainEndsOnASmallStack) {
    runOnSmallStack([] {
        constexpr std::uint64_t length = 50'000;
        VrexCorrelationCurveManager manager;
        for (std::uint64_t id = 2; id <= length; ++id) {
            manager.addToParent(id, id - 1);
        }
        EXPECT_EQ(manager.findRoot(length), 1U);
        manager.erase(2);
        EXPECT_EQ(manager.findParent(length), 0U);
        EXPECT_TRUE(manager.isKnownParent(1));
    });
}

TEST(VrexCorrelationCurveManager, ACurveForWhichThereIsNoMemoryLeavesAllAsItWas) {
    VrexCorrelationCurveManager manager;
    nsMemoryChecks::expectKeptWithoutMemory([&] { manager.addToParent(2, 1); },
                                            [&] {
                                                EXPECT_EQ(manager.findParent(2), 0U);
                                                EXPECT_FALSE(manager.isKnownParent(1));
                                            });
    EXPECT_EQ(manager.findParent(2), 1U);
    EXPECT_THAT(manager.findChildren(1), ElementsAre(2));
}

/// The recursion of the definition, on chains that have no ring.
struct NaiveCurves {
    std::map<std::uint64_t, std::uint64_t> parents;
    std::map<std::uint64_t, std::set<std::uint64_t>> children;

    std::uint64_t parent(std::uint64_t id) const { return parents.contains(id) ? parents.at(id) : 0; }
    std::uint64_t root(std::uint64_t id) const {
        const std::uint64_t above = parent(id);
        return above == 0 || parent(above) == 0 ? above : root(above);
    }
    bool add(std::uint64_t child, std::uint64_t above) {
        if (child == 0 || above == 0 || parents.contains(child) || child == above) {
            return false;
        }
        parents[child] = above;
        children[above].insert(child);
        return true;
    }
    void erase(std::uint64_t id) {
        const std::uint64_t above = parent(id);
        if (above == 0) {
            return;
        }
        for (const std::uint64_t child : std::set<std::uint64_t>(children[id])) {
            erase(child);
        }
        children[above].erase(id);
        children.erase(id);
        parents.erase(id);
    }
};

TEST(VrexCorrelationCurveManager, FollowsTheNaiveModelThroughRandomSequences) {
    constexpr std::uint64_t ids = 14;
    std::mt19937 engine(11);
    VrexCorrelationCurveManager manager;
    NaiveCurves model;
    for (int step = 0; step < 20'000; ++step) {
        const std::uint64_t child = engine() % ids;
        const std::uint64_t parent = engine() % ids;
        if (engine() % 3 == 0) {
            manager.erase(child);
            model.erase(child);
        } else if (parent <= child) { // from greater to smaller, so never a ring
            ASSERT_EQ(manager.addToParent(child, parent), model.add(child, parent));
        }
        for (std::uint64_t id = 0; id < ids; ++id) {
            ASSERT_EQ(manager.findParent(id), model.parent(id));
            ASSERT_EQ(manager.findRoot(id), model.root(id));
            ASSERT_EQ(manager.isKnownParent(id), model.children.contains(id));
            ASSERT_THAT(manager.findChildren(id),
                        ElementsAreArray(model.children.contains(id) ? model.children.at(id)
                                                                     : std::set<std::uint64_t>{}));
        }
    }
}

} // namespace
