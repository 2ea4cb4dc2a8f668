#include "tolvbase/LumoJson.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "support/JsonSamples.h"

using nsJsonSamples::thrownText;
using nsJsonSamples::TYPE_ROWS;
using nsJsonSamples::TypeRow;
using nsJsonSamples::valueOf;

TEST(LumoJson, MutableMemberIsCreatedAsNull) {
    LumoJson json;
    EXPECT_TRUE(json["a"].is_null());
    json["b"] = 2;
    json[std::string_view("a")] = 1;
    EXPECT_EQ(json.dump(), R"({"a":1,"b":2})");
    EXPECT_EQ(json.size(), 2U);
}

TEST(LumoJson, KeyMayLieInTheObjectThatGrows) {
    LumoJson json;
    json["a key that is longer than fourteen bytes"] = 1;
    json["k"] = "a text that is longer than fourteen bytes";
    for (int turn = 0; turn < 100; ++turn) {
        const std::string_view key = json.begin().key();
        json[key] = turn;
        std::string_view text;
        LumoJson::getValue(json["k"], text);
        json[text] = turn;
    }
    EXPECT_EQ(json.size(), 3U);
    EXPECT_EQ(valueOf<int>(json["a text that is longer than fourteen bytes"]), 99);
}

TEST(LumoJson, MemberIsCopiedToANewOneByItsValue) {
    LumoJson json;
    json["0"] = "a text that is longer than fourteen bytes";
    for (int key = 1; key < 200; ++key) {
        json[std::to_string(key)] = LumoJson(json[std::to_string(key - 1)]);
    }
    EXPECT_EQ(valueOf<std::string>(json["199"]), "a text that is longer than fourteen bytes");
}

TEST(LumoJson, MissingMemberOfATemporaryIsOutOfRange) {
    const auto parsed = [] { return LumoJson::parse(R"({"a":[7]})"); };
    EXPECT_THROW(parsed()["missing"], std::out_of_range);
    EXPECT_THROW(parsed()[std::string_view("missing")], std::out_of_range);
    EXPECT_THROW(LumoJson()["missing"], std::out_of_range);
    EXPECT_EQ(valueOf<int>(parsed()["a"][0]), 7);
    static_assert(std::is_same_v<decltype(parsed()["a"]), const LumoJson&>);
    static_assert(std::is_same_v<decltype(parsed()[0]), const LumoJson&>);
}

TEST(LumoJson, MutableMemberOfANonObjectIsRefused) {
    for (LumoJson json : {LumoJson(1), LumoJson("x"), LumoJson(true), LumoJson::array()}) {
        const std::string before = json.dump();
        EXPECT_EQ(thrownText([&] { json["a"] = 1; }), "JSON value is no object and takes no member.");
        EXPECT_EQ(json.dump(), before);
    }
    LumoJson json;
    const char* const nothing = nullptr;
    EXPECT_THROW(json[nothing], std::out_of_range);
}

TEST(LumoJson, ConstantAccessFindsMembersAndElements) {
    const LumoJson json = LumoJson::parse(R"({"a":[10,20]})");
    const std::size_t last = 1;
    EXPECT_EQ(valueOf<int>(json["a"][0]), 10);
    EXPECT_EQ(valueOf<int>(json[std::string_view("a")][last]), 20);
    EXPECT_EQ(valueOf<int>(json["a"][1U]), 20);
}

TEST(LumoJson, ConstantAccessToWhatIsMissingIsOutOfRange) {
    const LumoJson object{{"a", 1}};
    const LumoJson list = LumoJson::array({1, 2});
    const char* const nothing = nullptr;
    EXPECT_THROW(object["b"], std::out_of_range);
    EXPECT_THROW(object[std::string_view("")], std::out_of_range);
    EXPECT_THROW(object[nothing], std::out_of_range);
    EXPECT_THROW(object[0], std::out_of_range);
    EXPECT_THROW(list[2], std::out_of_range);
    EXPECT_THROW(list[-1], std::out_of_range);
    EXPECT_THROW(list[std::numeric_limits<std::size_t>::max()], std::out_of_range);
    EXPECT_THROW(list["a"], std::out_of_range);
    for (const TypeRow& row : TYPE_ROWS) {
        EXPECT_THROW(row.value["a"], std::out_of_range);
        EXPECT_THROW(row.value[0], std::out_of_range);
    }
}

TEST(LumoJson, ElementOfAMutableArrayIsWrittenInPlace) {
    LumoJson list = LumoJson::array({1, 2});
    list[0] = "x";
    list[std::size_t{1}] = LumoJson::array();
    EXPECT_EQ(list.dump(), R"(["x",[]])");
    EXPECT_THROW(list[2] = 1, std::out_of_range);
    EXPECT_THROW(list[-1] = 1, std::out_of_range);
}

namespace {

template <class Index>
void expectIndexes() {
    LumoJson list = LumoJson::array({10, 20});
    const LumoJson& constant = list;
    EXPECT_EQ(valueOf<int>(constant[Index{1}]), 20);
    list[Index{0}] = 30;
    EXPECT_EQ(list.dump(), "[30,20]");
    EXPECT_THROW(constant[Index{2}], std::out_of_range);
    EXPECT_THROW(list[std::numeric_limits<Index>::max()], std::out_of_range);
    if constexpr (std::is_signed_v<Index>) {
        EXPECT_THROW(constant[Index{-1}], std::out_of_range);
        EXPECT_THROW(list[Index{-1}], std::out_of_range);
        EXPECT_THROW(list[std::numeric_limits<Index>::min()], std::out_of_range);
    }
}

} // namespace

TEST(LumoJson, EveryIntegerIndexes) {
    expectIndexes<short>();
    expectIndexes<unsigned short>();
    expectIndexes<int>();
    expectIndexes<unsigned int>();
    expectIndexes<long>();
    expectIndexes<unsigned long>();
    expectIndexes<long long>();
    expectIndexes<unsigned long long>();
    expectIndexes<std::ptrdiff_t>();
}

TEST(LumoJson, ContainsAndFindSeeMembersOnly) {
    const LumoJson json{{"a", LumoJson()}, {"b", 2}};
    const char* const nothing = nullptr;
    EXPECT_TRUE(json.contains("a"));
    EXPECT_TRUE(json.contains(std::string_view("b")));
    EXPECT_FALSE(json.contains("c"));
    EXPECT_FALSE(json.contains(nothing));
    EXPECT_EQ(valueOf<int>(*json.find("b")), 2);
    EXPECT_FALSE(json.find("c") != json.end());
    for (const TypeRow& row : TYPE_ROWS) {
        LumoJson mutableValue = row.value;
        EXPECT_FALSE(row.value.contains("a"));
        EXPECT_FALSE(row.value.find("a") != row.value.end());
        EXPECT_FALSE(mutableValue.find("a") != mutableValue.end());
    }
}

TEST(LumoJson, SizeCountsElementsAndMembers) {
    EXPECT_EQ((LumoJson{{"a", 1}, {"b", 2}}).size(), 2U);
    EXPECT_EQ(LumoJson::array({1, 2, 3}).size(), 3U);
    for (const TypeRow& row : TYPE_ROWS) {
        EXPECT_EQ(row.value.size(), 0U);
        EXPECT_TRUE(row.value.empty());
    }
}

TEST(LumoJson, MakeArrayChangesNullOnly) {
    LumoJson json;
    json.makeArray();
    EXPECT_EQ(json.dump(), "[]");
    json.push_back(1);
    json.makeArray();
    EXPECT_EQ(json.dump(), "[1]");
    for (const TypeRow& row : TYPE_ROWS) {
        LumoJson other = row.value;
        if (row.type == 0 || row.type == 2) {
            continue;
        }
        EXPECT_EQ(thrownText([&] { other.makeArray(); }), "JSON value is no array and cannot become one.");
        EXPECT_EQ(thrownText([&] { other.push_back(1); }), "JSON value is no array and cannot become one.");
        EXPECT_EQ(other.dump(), row.value.dump());
    }
}

TEST(LumoJson, PushBackTakesACopyOfItsOwnElements) {
    LumoJson json;
    json.push_back("a text that is longer than fourteen bytes");
    for (int turn = 0; turn < 20; ++turn) {
        json.push_back(json[0]);
    }
    json.push_back(json);
    EXPECT_EQ(json.size(), 22U);
    EXPECT_EQ(json.back().size(), 21U);
    EXPECT_EQ(json[20].dump(), json[0].dump());
}

TEST(LumoJson, BackAndFrontAreTheEdges) {
    LumoJson list = LumoJson::array({1, 2, 3});
    list.back() = 30;
    list.front() = 10;
    EXPECT_EQ(list.dump(), "[10,2,30]");
    const LumoJson object{{"a", 1}, {"b", 2}};
    EXPECT_EQ(valueOf<int>(object.front()), 1);
    EXPECT_EQ(valueOf<int>(object.back()), 2);
    for (const TypeRow& row : TYPE_ROWS) {
        EXPECT_THROW((void)row.value.back(), std::out_of_range);
        EXPECT_THROW((void)row.value.front(), std::out_of_range);
    }
}

TEST(LumoJson, ClearEmptiesAndKeepsTheTypeOfWhatCanBeEmpty) {
    const auto cleared = [](LumoJson json) {
        json.clear();
        return json.dump();
    };
    EXPECT_EQ(cleared(LumoJson::array({1, LumoJson::array({2})})), "[]");
    EXPECT_EQ(cleared(LumoJson{{"a", 1}}), "{}");
    EXPECT_EQ(cleared("a text that is longer than fourteen bytes"), R"("")");
    EXPECT_EQ(cleared("short"), R"("")");
    EXPECT_EQ(cleared(5), "null");
    EXPECT_EQ(cleared(true), "null");
    EXPECT_EQ(cleared(LumoJson()), "null");
}

TEST(LumoJson, ClearedObjectTakesMembersAgain) {
    LumoJson json;
    for (int key = 0; key < 40; ++key) {
        json[std::to_string(key)] = key;
    }
    json.clear();
    EXPECT_FALSE(json.contains("7"));
    json["7"] = 8;
    EXPECT_EQ(json.dump(), R"({"7":8})");
}

TEST(LumoJson, KeysKeepTheirOrderBeyondTheIndexThreshold) {
    LumoJson json;
    std::string expected = "{";
    for (int key = 40; key > 0; --key) {
        json[std::to_string(key)] = key;
        expected += (key == 40 ? "\"" : ",\"") + std::to_string(key) + "\":" + std::to_string(key);
    }
    EXPECT_EQ(json.dump(), expected + "}");
    LumoJson copy = json;
    copy["41"] = 41;
    for (int key = 40; key > 0; --key) {
        EXPECT_EQ(valueOf<int>(*copy.find(std::to_string(key))), key);
    }
    EXPECT_TRUE(copy.contains("41"));
    EXPECT_FALSE(json.contains("41"));
}
