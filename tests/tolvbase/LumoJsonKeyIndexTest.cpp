#include "tolvbase/LumoJsonKeyIndex.h"

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tolvbase/LumoJson.h"
#include "tolvbase/LumoJsonKeyHash.h"

namespace {

constexpr std::size_t MEMBERS = 300; ///< Their table has 1024 slots.
constexpr std::size_t SLOT_MASK = 1023;

/// Keys and values whose keys begin at the same slot of a table that takes this hash's lowest bits.
template <class Hash>
std::vector<LumoJson> crowdedMembers(Hash hash) {
    std::vector<LumoJson> keysAndValues;
    for (int number = 0; keysAndValues.size() < 2 * MEMBERS; ++number) {
        const std::string key = std::to_string(number);
        if ((hash(key) & SLOT_MASK) == 0) {
            keysAndValues.emplace_back(key);
            keysAndValues.emplace_back(number);
        }
    }
    return keysAndValues;
}

/// Enters the members one by one, as a growing object does.
LumoJsonKeyIndex indexOf(const std::vector<LumoJson>& keysAndValues) {
    std::vector<LumoJson> entered;
    LumoJsonKeyIndex index(entered);
    for (std::size_t place = 1; place < keysAndValues.size(); place += 2) {
        std::string_view key;
        LumoJson::getValue(keysAndValues[place - 1], key);
        index.add(entered, key, place);
        entered.push_back(keysAndValues[place - 1]);
        entered.push_back(keysAndValues[place]);
    }
    return index;
}

} // namespace

TEST(LumoJsonKeyIndex, FindsWhatWasEnteredAndNothingElse) {
    const std::vector<LumoJson> members = crowdedMembers(LumoJsonKeyHash::ofProcess());
    const LumoJsonKeyIndex index = indexOf(members);
    EXPECT_EQ(index.longestProbe(), MEMBERS); // Whoever knew the secret could crowd one slot.
    for (std::size_t place = 1; place < members.size(); place += 2) {
        std::string_view key;
        LumoJson::getValue(members[place - 1], key);
        EXPECT_EQ(index.find(members, key), place);
    }
    EXPECT_EQ(index.find(members, "missing"), LumoJsonKeyIndex::NOT_FOUND);
}

TEST(LumoJsonKeyIndex, KeysChosenWithoutTheSecretDoNotCrowd) {
    const auto standardHash = [](const std::string& key) {
        const std::size_t hash = std::hash<std::string>{}(key);
        return hash ^ (hash >> 32U);
    };
    // At a third of the slots taken the longest run is about 20; crowded keys make one of all 300.
    EXPECT_LT(indexOf(crowdedMembers(standardHash)).longestProbe(), 100U);
    EXPECT_LT(indexOf(crowdedMembers(LumoJsonKeyHash({0, 0}))).longestProbe(), 100U);
}
