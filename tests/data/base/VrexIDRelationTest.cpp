#include "data/base/VrexIDRelation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
    EXPECT_THAT(relation.take(5), ElementsAre(1, 2));
    EXPECT_THAT(relation.take(5), IsEmpty());
    EXPECT_FALSE(relation.contains(5));
    relation.erase(6);
    EXPECT_FALSE(relation.contains(6));
}

TEST(VrexIDRelation, ClearForgetsEverything) {
    VrexIDRelation relation;
    relation.add(5, 2);
    relation.clear();
    EXPECT_FALSE(relation.contains(5));
}

} // namespace
