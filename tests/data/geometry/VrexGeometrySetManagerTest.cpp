#include "data/geometry/VrexGeometrySetManager.h"

#include <map>
#include <random>

#include <gtest/gtest.h>

#include "support/MemoryChecks.h"

namespace {

TEST(VrexGeometrySetManager, ZeroIsRefusedOnEitherSide) {
    VrexGeometrySetManager manager;
    EXPECT_FALSE(manager.addToSet(0, 5));
    EXPECT_FALSE(manager.addToSet(5, 0));
    EXPECT_EQ(manager.findSet(0), 0U);
    EXPECT_EQ(manager.findSet(5), 0U);
}

TEST(VrexGeometrySetManager, ASecondSetTakesTheGeometryOver) {
    VrexGeometrySetManager manager;
    EXPECT_TRUE(manager.addToSet(1, 10));
    EXPECT_TRUE(manager.addToSet(1, 20));
    EXPECT_EQ(manager.findSet(1), 20U);
    manager.eraseSet(10);
    EXPECT_EQ(manager.findSet(1), 20U);
    manager.eraseSet(20);
    EXPECT_EQ(manager.findSet(1), 0U);
}

TEST(VrexGeometrySetManager, RemovingTellsWhetherItWasThere) {
    VrexGeometrySetManager manager;
    manager.addToSet(1, 10);
    EXPECT_TRUE(manager.removeGeometryFromSet(1));
    EXPECT_FALSE(manager.removeGeometryFromSet(1));
    EXPECT_EQ(manager.findSet(1), 0U);
}

TEST(VrexGeometrySetManager, ErasingASetFreesItsMembersAndItself) {
    VrexGeometrySetManager manager;
    manager.addToSet(1, 10);
    manager.addToSet(2, 10);
    manager.addToSet(3, 20);
    manager.addToSet(10, 20);
    manager.erase(10);
    EXPECT_EQ(manager.findSet(1), 0U);
    EXPECT_EQ(manager.findSet(2), 0U);
    EXPECT_EQ(manager.findSet(3), 20U);
    EXPECT_EQ(manager.findSet(10), 0U);
}

TEST(VrexGeometrySetManager, EmptyingASetLeavesItInItsOwnSet) {
    VrexGeometrySetManager manager;
    manager.addToSet(1, 10);
    manager.addToSet(10, 20);
    manager.eraseSet(10);
    EXPECT_EQ(manager.findSet(1), 0U);
    EXPECT_EQ(manager.findSet(10), 20U);
    manager.eraseAll();
    EXPECT_EQ(manager.findSet(10), 0U);
}

TEST(VrexGeometrySetManager, AnEntryForWhichThereIsNoMemoryLeavesAllAsItWas) {
    VrexGeometrySetManager manager;
    manager.addToSet(1, 10);
    const auto expectKept = [&] {
        VrexGeometrySetManager copy = manager;
        EXPECT_EQ(copy.findSet(1), 10U);
        EXPECT_EQ(copy.findSet(2), 0U);
        // What the two sets list is what belongs to them.
        copy.addToSet(2, 30);
        copy.eraseSet(20);
        EXPECT_EQ(copy.findSet(1), 10U);
        EXPECT_EQ(copy.findSet(2), 30U);
        copy.eraseSet(10);
        EXPECT_EQ(copy.findSet(1), 0U);
    };
    nsMemoryChecks::expectKeptWithoutMemory([&] { manager.addToSet(2, 20); }, expectKept);
    manager.removeGeometryFromSet(2);
    nsMemoryChecks::expectKeptWithoutMemory([&] { manager.addToSet(1, 20); }, expectKept);
    EXPECT_EQ(manager.findSet(1), 20U);
}

/// One map and walks over all of it, as the operations are defined.
struct NaiveSets {
    std::map<std::uint64_t, std::uint64_t> sets;

    bool add(std::uint64_t id, std::uint64_t set) {
        if (id != 0 && set != 0) {
            sets[id] = set;
        }
        return id != 0 && set != 0;
    }
    void eraseSet(std::uint64_t set) {
        std::erase_if(sets, [set](const auto& pair) { return pair.second == set; });
    }
    void erase(std::uint64_t id) {
        std::erase_if(sets, [id](const auto& pair) { return pair.first == id || pair.second == id; });
    }
};

TEST(VrexGeometrySetManager, FollowsTheNaiveModelThroughRandomSequences) {
    constexpr std::uint64_t ids = 12;
    std::mt19937 engine(7);
    VrexGeometrySetManager manager;
    NaiveSets model;
    for (int step = 0; step < 20'000; ++step) {
        const std::uint64_t id = engine() % ids;
        const std::uint64_t set = engine() % ids;
        switch (engine() % 8) {
        case 0:
            manager.erase(id);
            model.erase(id);
            break;
        case 1:
            manager.eraseSet(set);
            model.eraseSet(set);
            break;
        case 2:
            ASSERT_EQ(manager.removeGeometryFromSet(id), model.sets.erase(id) != 0);
            break;
        default:
            ASSERT_EQ(manager.addToSet(id, set), model.add(id, set));
        }
        for (std::uint64_t probe = 0; probe < ids; ++probe) {
            ASSERT_EQ(manager.findSet(probe), model.sets.contains(probe) ? model.sets[probe] : 0);
        }
    }
}

} // namespace
