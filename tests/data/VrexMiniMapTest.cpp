#include "data/VrexMiniMap.h"

#include <cmath>
#include <cstdint>
#include <iterator>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

namespace {

using Map = VrexMiniMap<std::uint64_t, double, 10>;

Map filled(std::uint64_t count) {
    Map map;
    for (std::uint64_t i = 0; i < count; ++i) {
        map.append(100 - i, 0.5 * static_cast<double>(i));
    }
    return map;
}

void expectFilled(const Map& map, std::uint64_t count) {
    ASSERT_EQ(map.size(), count);
    std::uint64_t i = 0;
    for (const Map::Entry& entry : map) {
        EXPECT_EQ(entry.key, 100 - i);
        EXPECT_EQ(entry.value, 0.5 * static_cast<double>(i));
        ++i;
    }
}

bool livesInside(const Map& map) {
    const auto* object = reinterpret_cast<const char*>(&map);
    const auto* entries = reinterpret_cast<const char*>(map.begin());
    return entries >= object && entries < object + sizeof(Map);
}

} // namespace

TEST(VrexMiniMap, HoldsHeapInlineSizeAndCapacityInThisOrder) {
    static_assert(std::is_same_v<Map, VrexMiniMap<std::uint64_t, double, 10, void, void>>);
    // Behind them stand two words of the arithmetic's own.
    static_assert(sizeof(Map::Entry) == 16 && sizeof(Map) == 8 + 10 * 16 + 8 + 8 + 16);
    const Map map = filled(3);
    const auto* words = reinterpret_cast<const std::uint64_t*>(&map);
    EXPECT_EQ(words[0], 0U);
    EXPECT_EQ(reinterpret_cast<const std::uint64_t*>(map.begin()), words + 1);
    EXPECT_EQ(words[21], 3U);
    EXPECT_EQ(words[22], 0U);
}

TEST(VrexMiniMap, KeepsInsertionOrder) {
    for (const std::uint64_t count : {0U, 1U, 10U, 11U, 40U}) {
        expectFilled(filled(count), count);
    }
}

TEST(VrexMiniMap, TenthKeyStaysInside) {
    const Map map = filled(10);
    EXPECT_EQ(map.capacity(), 0U);
    EXPECT_TRUE(livesInside(map));
}

TEST(VrexMiniMap, EleventhKeyMovesTheStoreToTheHeapWithCapacity22) {
    const Map map = filled(11);
    EXPECT_EQ(map.capacity(), 22U);
    EXPECT_FALSE(livesInside(map));
    expectFilled(map, 11);
}

TEST(VrexMiniMap, TwentyThirdKeyGrowsTheBlockTo46) {
    EXPECT_EQ(filled(22).capacity(), 22U);
    EXPECT_EQ(filled(23).capacity(), 46U);
}

TEST(VrexMiniMap, CopyAllocatesTwiceTheSizeAboveTen) {
    for (const auto& [count, capacity] : {std::pair{10U, 0U}, {11U, 22U}, {30U, 60U}}) {
        const Map source = filled(count);
        const Map copy(source);
        EXPECT_EQ(copy.capacity(), capacity);
        expectFilled(copy, count);
    }
}

TEST(VrexMiniMap, MoveCopiesAndLeavesTheSource) {
    Map source = filled(12);
    Map moved(std::move(source));
    expectFilled(moved, 12);
    expectFilled(source, 12); // NOLINT(bugprone-use-after-move)
    Map assigned;
    assigned = std::move(source);
    expectFilled(assigned, 12);
    expectFilled(source, 12); // NOLINT(bugprone-use-after-move)
}

TEST(VrexMiniMap, AssignmentOfTenEntriesReturnsAHeapStoreInside) {
    Map map = filled(15);
    map = filled(10);
    EXPECT_EQ(map.capacity(), 0U);
    EXPECT_TRUE(livesInside(map));
    expectFilled(map, 10);
}

TEST(VrexMiniMap, AssignmentReusesABlockThatIsLargeEnough) {
    Map map = filled(15);
    ASSERT_EQ(map.capacity(), 22U);
    const Map::Entry* block = map.begin();
    map = filled(20);
    EXPECT_EQ(map.begin(), block);
    EXPECT_EQ(map.capacity(), 22U);
    map = filled(30);
    EXPECT_EQ(map.capacity(), 60U);
    expectFilled(map, 30);
}

TEST(VrexMiniMap, SelfAssignmentDoesNothing) {
    for (const std::uint64_t count : {4U, 14U}) {
        Map map = filled(count);
        const Map& self = map;
        const std::uint64_t capacity = map.capacity();
        map = self;
        expectFilled(map, count);
        EXPECT_EQ(map.capacity(), capacity);
    }
}

TEST(VrexMiniMap, ReserveIsExactAndOnlyAboveTen) {
    Map map = filled(4);
    map.reserve(10);
    EXPECT_EQ(map.capacity(), 0U);
    map.reserve(17);
    EXPECT_EQ(map.capacity(), 17U);
    map.reserve(12);
    EXPECT_EQ(map.capacity(), 17U);
    map.reserve(18);
    EXPECT_EQ(map.capacity(), 18U);
    expectFilled(map, 4);
}

TEST(VrexMiniMap, AReservedBlockStaysWhileTheStoreIsSmall) {
    Map map = filled(4);
    map.reserve(12);
    map.resize(2);
    EXPECT_EQ(map.capacity(), 12U);
    EXPECT_FALSE(livesInside(map));
    expectFilled(map, 2);
    map = filled(9);
    EXPECT_EQ(map.capacity(), 12U);
    expectFilled(map, 9);
    const Map copy(map);
    EXPECT_EQ(copy.capacity(), 0U);
    expectFilled(copy, 9);
}

TEST(VrexMiniMap, ResizeToElevenReservesTwiceAndToTenComesBack) {
    Map map = filled(10);
    map.resize(11);
    EXPECT_EQ(map.capacity(), 22U);
    map.resize(22);
    EXPECT_EQ(map.capacity(), 22U);
    map.resize(23);
    EXPECT_EQ(map.capacity(), 46U);
    map.resize(11);
    EXPECT_EQ(map.capacity(), 46U);
    map.resize(10);
    EXPECT_EQ(map.capacity(), 0U);
    EXPECT_TRUE(livesInside(map));
    expectFilled(map, 10);
}

TEST(VrexMiniMap, ResizeZeroesNewEntries) {
    for (const std::uint64_t count : {9U, 25U}) {
        Map map = filled(8);
        map.resize(2);
        map.resize(count);
        for (std::uint64_t i = 2; i < count; ++i) {
            EXPECT_EQ(map.begin()[i].key, 0U);
            EXPECT_EQ(map.begin()[i].value, 0.0);
        }
    }
}

TEST(VrexMiniMap, FindGivesTheEntryOrTheEnd) {
    for (const std::uint64_t count : {6U, 16U}) {
        Map map = filled(count);
        EXPECT_EQ(map.find(100 - 5), map.begin() + 5);
        EXPECT_EQ(map.find(7), map.end());
        const Map& constant = map;
        EXPECT_EQ(constant.find(100), constant.begin());
    }
}

TEST(VrexMiniMap, AnAbsentKeyReadsAsZero) {
    Map map = filled(3);
    EXPECT_EQ(map[98], 1.0);
    EXPECT_EQ(map[1], 0.0);
    EXPECT_EQ(map.size(), 3U);
}

TEST(VrexMiniMap, SettingAnAbsentKeyAppendsItAndSettingAnotherOverwrites) {
    Map map = filled(3);
    map.set(7, 2.5);
    map.set(100, -1.0);
    ASSERT_EQ(map.size(), 4U);
    EXPECT_EQ(map.begin()[3].key, 7U);
    EXPECT_EQ(map.begin()[3].value, 2.5);
    EXPECT_EQ(map.begin()[0].value, -1.0);
}

TEST(VrexMiniMap, ReservingForAppendingGivesTheCapacityThatAppendingWouldGive) {
    for (std::uint64_t before = 0; before <= 30; ++before) {
        for (std::uint64_t more = 0; more <= 60; ++more) {
            Map reserved = filled(before);
            reserved.reserveForAppending(more);
            const std::uint64_t capacity = filled(before + more).capacity();
            EXPECT_EQ(reserved.capacity(), capacity) << before << " + " << more;
            expectFilled(reserved, before);
        }
    }
}

TEST(VrexMiniMap, TheWordOfKeysHoldsTheBitOfEachKey) {
    Map map;
    EXPECT_EQ(map.keyBits(), 0U);
    map.append(3, 1.0);
    map.set(64 + 5, 1.0);
    map.set(3, 2.0);
    EXPECT_EQ(map.keyBits(), 1U << 3U | 1U << 5U);
    const Map copy(map);
    EXPECT_EQ(copy.keyBits(), map.keyBits());
    Map assigned = filled(12);
    assigned = map;
    EXPECT_EQ(assigned.keyBits(), map.keyBits());
    map.resize(3);
    EXPECT_EQ(map.keyBits(), 1U << 3U | 1U << 5U | 1U); // the new entry has key 0
}

TEST(VrexMiniMap, TheWordOfKeysStandsForAnyKeysOnceEntriesMayBeWritten) {
    const auto bitsAfter = [](auto&& use) {
        Map map = filled(2);
        use(map);
        return map.keyBits();
    };
    const std::uint64_t any = ~std::uint64_t{0};
    EXPECT_EQ(bitsAfter([](Map& map) { map.begin()->key = 7; }), any);
    EXPECT_EQ(bitsAfter([](Map& map) { std::prev(map.end())->key = 7; }), any);
    EXPECT_EQ(bitsAfter([](Map& map) { map.find(99)->key = 7; }), any);
    EXPECT_NE(bitsAfter([](const Map& map) { return map.begin()->key; }), any);
    EXPECT_NE(bitsAfter([](const Map& map) { return map.find(99)->key; }), any);
}

TEST(VrexMiniMap, SettlingClearsTheSignOfEveryZero) {
    for (const std::uint64_t count : {3U, 14U}) {
        Map map = filled(count);
        map.set(100, -0.0);
        map.append(7, -0.0);
        map.settle();
        EXPECT_FALSE(std::signbit(map[100]));
        EXPECT_FALSE(std::signbit(map[7]));
        EXPECT_EQ(map[99], 0.5);
    }
}

TEST(VrexMiniMap, ValuesWrittenAfterSettlingAreSettledAgain) {
    const auto settledAfter = [](auto&& write) {
        Map map = filled(4);
        map.settle();
        write(map);
        map.settle();
        for (const Map::Entry& entry : static_cast<const Map&>(map)) {
            EXPECT_FALSE(std::signbit(entry.value)) << entry.key;
        }
    };
    settledAfter([](Map& map) { map.begin()[1].value = -0.0; });
    settledAfter([](Map& map) { map.find(98)->value = -0.0; });
    settledAfter([](Map& map) { map.set(99, -0.0); });
    settledAfter([](Map& map) { map.append(3, -0.0); });
    settledAfter([](Map& map) { std::prev(map.end())->value = -0.0; });
    settledAfter([](Map& map) { map.entries()[2].value = -0.0; });
    settledAfter([](Map& map) {
        Map other = filled(2);
        other.set(99, -0.0);
        map = other;
    });
    settledAfter([](Map& map) {
        map.resize(2);
        map.append(3, -0.0);
    });
    settledAfter([](Map& map) {
        const Map::Entry entry{3, -0.0};
        map.appendAll(&entry, 1, Map::keyBit(3));
    });
}
