#include "data/base/VrexIDRelation.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/MemoryChecks.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(VrexIDRelation, WhatBelongsToAKeyRises) {
    VrexIDRelation relation;
    for (const std::uint64_t id : {70000ULL, 2ULL, 18446744073709551615ULL, 2ULL, 1ULL}) {
        relation.add(5, id);
    }
    EXPECT_THAT(relation.find(5), ElementsAre(1, 2, 70000, 18446744073709551615ULL));
    EXPECT_THAT(relation.find(6), IsEmpty());
    EXPECT_FALSE(relation.contains(6));
}

TEST(VrexIDRelation, AKeyGoesWithItsLastIdentifier) {
    VrexIDRelation relation;
    relation.add(5, 1);
    relation.add(5, 2);
    relation.remove(5, 1);
    relation.remove(5, 9);
    relation.remove(6, 1);
    EXPECT_THAT(relation.find(5), ElementsAre(2));
    relation.remove(5, 2);
    EXPECT_FALSE(relation.contains(5));
}

TEST(VrexIDRelation, AKeyThatIsKeptStaysEmpty) {
    VrexIDRelation relation;
    relation.add(5, 1);
    relation.removeKeepingKey(5, 1);
    relation.removeKeepingKey(6, 1);
    EXPECT_TRUE(relation.contains(5));
    EXPECT_FALSE(relation.contains(6));
    EXPECT_THAT(relation.find(5), IsEmpty());
}

TEST(VrexIDRelation, TakingLeavesNothingOfTheKey) {
    VrexIDRelation relation;
    relation.add(5, 2);
    relation.add(5, 1);
    relation.add(6, 3);
    EXPECT_THAT(relation.take(5), UnorderedElementsAre(1, 2));
    EXPECT_THAT(relation.take(5), IsEmpty());
    EXPECT_FALSE(relation.contains(5));
    relation.erase(6);
    EXPECT_FALSE(relation.contains(6));
}

TEST(VrexIDRelation, ClearForgetsEverything) {
    VrexIDRelation relation;
    relation.add(5, 2);
    for (std::uint64_t id = 1; id <= 100; ++id) {
        relation.add(6, id);
    }
    relation.clear();
    EXPECT_FALSE(relation.contains(5));
    EXPECT_FALSE(relation.contains(6));
}

TEST(VrexIDRelation, APairForWhichThereIsNoMemoryLeavesAllAsItWas) {
    // The first of a key, the one that turns few into many, and one of many.
    for (const std::uint64_t count : {0U, 16U, 20U}) {
        VrexIDRelation relation;
        std::vector<std::uint64_t> ids;
        while (ids.size() < count) {
            ids.push_back(ids.size() + 1);
            relation.add(5, ids.back());
        }
        nsMemoryChecks::expectKeptWithoutMemory([&] { relation.add(5, 100); },
                                                [&] {
                                                    EXPECT_EQ(relation.find(5), ids);
                                                    EXPECT_EQ(relation.contains(5), count != 0);
                                                });
        ids.push_back(100);
        EXPECT_EQ(relation.find(5), ids);
    }
}

TEST(VrexIDRelation, FollowsTheNaiveModelFromFewToManyAndBack) {
    std::mt19937 engine(9);
    VrexIDRelation relation;
    std::map<std::uint64_t, std::set<std::uint64_t>> model;
    for (int step = 0; step < 30'000; ++step) {
        const std::uint64_t key = engine() % 3;
        const std::uint64_t id = engine() % 40;
        const bool grows = step / 1'000 % 2 == 0; // to some 40 a key, and down to none
        const unsigned choice = engine() % 8;
        if (grows ? choice > 1 : choice > 6) {
            relation.add(key, id);
            model[key].insert(id);
        } else if (choice == 0) {
            relation.removeKeepingKey(key, id);
            if (model.contains(key)) {
                model[key].erase(id);
            }
        } else {
            relation.remove(key, id);
            if (model.contains(key)) {
                model[key].erase(id);
                if (model[key].empty()) {
                    model.erase(key);
                }
            }
        }
        if (step % 997 == 0) {
            const auto taken = relation.take(key);
            const std::set<std::uint64_t> expected =
                model.contains(key) ? model[key] : std::set<std::uint64_t>{};
            ASSERT_EQ(std::set<std::uint64_t>(taken.begin(), taken.end()), expected);
            model.erase(key);
        }
        ASSERT_EQ(relation.contains(key), model.contains(key));
        const auto found = relation.find(key);
        const std::set<std::uint64_t> expected = model.contains(key) ? model[key] : std::set<std::uint64_t>{};
        ASSERT_TRUE(std::equal(found.begin(), found.end(), expected.begin(), expected.end()));
    }
}

} // namespace
