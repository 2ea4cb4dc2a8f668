#include "tolvbase/LumoJson.h"

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

namespace {

template <class T>
T valueOf(const LumoJson& json) {
    T out{};
    LumoJson::getValue(json, out);
    return out;
}

template <class Function>
std::string thrownText(Function function) {
    try {
        function();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

/// One value of every type, with the type's number.
struct TypeRow {
    LumoJson value;
    int type;
};

const TypeRow TYPE_ROWS[] = {
    {LumoJson(), 0},     {LumoJson::parse("{}"), 1}, {LumoJson::array(), 2}, {LumoJson("x"), 3},
    {LumoJson(true), 4}, {LumoJson(1), 7},           {LumoJson(1.5), 7},     {LumoJson(-1), 7},
};

} // namespace

TEST(LumoJson, TakesSixteenBytes) { EXPECT_EQ(sizeof(LumoJson), 16U); }

TEST(LumoJson, IsNullByDefault) {
    const LumoJson json;
    EXPECT_TRUE(json.is_null());
    EXPECT_EQ(json.dump(), "null");
}

TEST(LumoJson, TypeHasTheNumberOfTheKindAndOneQuestionAnswersYes) {
    for (const TypeRow& row : TYPE_ROWS) {
        const LumoJson& json = row.value;
        EXPECT_EQ(static_cast<int>(json.type()), row.type);
        EXPECT_EQ(json.is_null(), row.type == 0);
        EXPECT_EQ(json.is_object(), row.type == 1);
        EXPECT_EQ(json.is_array(), row.type == 2);
        EXPECT_EQ(json.is_string(), row.type == 3);
        EXPECT_EQ(json.is_bool(), row.type == 4);
        EXPECT_EQ(json.is_number(), row.type == 7);
    }
}

TEST(LumoJson, CopyIsAValueOfItsOwn) {
    LumoJson first{{"a", LumoJson::array({1, 2})}, {"text", "longer than the value itself"}};
    LumoJson second = first;
    second["a"].push_back(3);
    second["text"] = "changed";
    EXPECT_EQ(first.dump(), R"({"a":[1,2],"text":"longer than the value itself"})");
    EXPECT_EQ(second.dump(), R"({"a":[1,2,3],"text":"changed"})");
}

TEST(LumoJson, CopyAssignmentReplacesTheValue) {
    LumoJson json = LumoJson::array({1});
    const LumoJson other("text");
    json = other;
    EXPECT_EQ(json.dump(), R"("text")");
    EXPECT_EQ(other.dump(), R"("text")");
}

TEST(LumoJson, MovedFromValueIsNull) {
    static_assert(std::is_nothrow_move_constructible_v<LumoJson> &&
                  std::is_nothrow_move_assignable_v<LumoJson>);
    LumoJson first = LumoJson::array({1, 2});
    LumoJson second = std::move(first);
    EXPECT_TRUE(first.is_null()); // NOLINT(bugprone-use-after-move): that state is promised
    LumoJson third;
    third = std::move(second);
    EXPECT_TRUE(second.is_null()); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(third.dump(), "[1,2]");
}

TEST(LumoJson, ValueMayBeReplacedByAPartOfItself) {
    LumoJson copied = LumoJson::parse(R"({"a":{"b":[1,"a text that lies on the heap"]}})");
    LumoJson moved = copied;
    copied = copied["a"];
    EXPECT_EQ(copied.dump(), R"({"b":[1,"a text that lies on the heap"]})");
    moved = std::move(moved["a"]["b"]);
    EXPECT_EQ(moved.dump(), R"([1,"a text that lies on the heap"])");
    LumoJson& same = moved;
    moved = same;
    moved = std::move(same);
    EXPECT_EQ(moved.dump(), R"([1,"a text that lies on the heap"])");
}

TEST(LumoJson, ListOfPairsWithTextFirstMakesAnObject) {
    const LumoJson json{{"b", 1}, {"a", LumoJson{{"c", true}}}};
    EXPECT_TRUE(json.is_object());
    EXPECT_EQ(json.dump(), R"({"b":1,"a":{"c":true}})");
}

TEST(LumoJson, LastOfEqualKeysWinsInAList) {
    const LumoJson json{{"a", 1}, {"b", 2}, {"a", 3}};
    EXPECT_EQ(json.dump(), R"({"a":3,"b":2})");
}

TEST(LumoJson, EveryOtherListMakesAnArray) {
    EXPECT_EQ((LumoJson{1, "x", 2.5}).dump(), R"([1,"x",2.5])");
    EXPECT_EQ((LumoJson{{"a", 1}, {2, 3}}).dump(), R"([["a",1],[2,3]])");
    EXPECT_EQ((LumoJson{{"a", 1}, {"b", 2, 3}}).dump(), R"([["a",1],["b",2,3]])");
    EXPECT_EQ((LumoJson{{"a", 1}, "b"}).dump(), R"([["a",1],"b"])");
}

TEST(LumoJson, ListWithoutDeductionIsAnArray) {
    const std::initializer_list<LumoJson> pairs{{"a", 1}, {"b", 2}};
    EXPECT_EQ(LumoJson(pairs, false).dump(), R"([["a",1],["b",2]])");
    EXPECT_EQ(LumoJson(pairs, true).dump(), R"({"a":1,"b":2})");
}

TEST(LumoJson, EmptyListIsAnObjectUnlessNothingIsDeduced) {
    const std::initializer_list<LumoJson> nothing;
    EXPECT_EQ(LumoJson(nothing).dump(), "{}");
    EXPECT_EQ(LumoJson(nothing, false).dump(), "[]");
}

TEST(LumoJson, ArrayTakesPairsAsTheyAre) {
    EXPECT_EQ(LumoJson::array({{"a", 1}}).dump(), R"([["a",1]])");
    EXPECT_EQ(LumoJson::array({}).dump(), "[]");
}

TEST(LumoJson, EveryStoredValueReadsBack) {
    LumoJson json;
    LumoJson::toJson(json, std::string_view("view"));
    EXPECT_EQ(valueOf<std::string_view>(json), "view");
    LumoJson::toJson(json, std::string("string"));
    EXPECT_EQ(valueOf<std::string>(json), "string");
    LumoJson::toJson(json, std::numeric_limits<int>::min());
    EXPECT_EQ(valueOf<int>(json), std::numeric_limits<int>::min());
    LumoJson::toJson(json, std::numeric_limits<unsigned int>::max());
    EXPECT_EQ(valueOf<unsigned int>(json), std::numeric_limits<unsigned int>::max());
    LumoJson::toJson(json, std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(valueOf<unsigned long long>(json), std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(valueOf<unsigned long>(json), std::numeric_limits<unsigned long>::max());
    LumoJson::toJson(json, std::numeric_limits<long long>::min());
    EXPECT_EQ(valueOf<long long>(json), std::numeric_limits<long long>::min());
    EXPECT_EQ(valueOf<long>(json), std::numeric_limits<long>::min());
    LumoJson::toJson(json, 0.1);
    EXPECT_EQ(valueOf<double>(json), 0.1);
    LumoJson::toJson(json, true);
    EXPECT_TRUE(valueOf<bool>(json));
    LumoJson::toJson(json, false);
    EXPECT_FALSE(valueOf<bool>(json));
}

TEST(LumoJson, NullTextIsStoredAsNull) {
    const char* const nothing = nullptr;
    LumoJson json(1);
    LumoJson::toJson(json, nothing);
    EXPECT_TRUE(json.is_null());
}

TEST(LumoJson, TextKeepsItsLengthOnBothSidesOfTheShortForm) {
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string text(length, static_cast<char>('a' + length % 26));
        const LumoJson copy = LumoJson(LumoJson(text));
        EXPECT_EQ(valueOf<std::string>(copy), text);
    }
}

TEST(LumoJson, TextKeepsZeroBytes) {
    const std::string text("a\0b", 3);
    EXPECT_EQ(valueOf<std::string>(LumoJson(text)), text);
}

TEST(LumoJson, IdentifiersAboveTheDoublesStayExact) {
    const unsigned long long id = (1ULL << 53U) + 1;
    EXPECT_EQ(valueOf<unsigned long long>(LumoJson(id)), id);
    EXPECT_EQ(LumoJson(id).dump(), "9007199254740993");
    EXPECT_EQ(valueOf<unsigned long long>(LumoJson::parse("9007199254740993")), id);
}

TEST(LumoJson, IntegerReadsAsDouble) {
    EXPECT_EQ(valueOf<double>(LumoJson(-7)), -7.0);
    EXPECT_EQ(valueOf<double>(LumoJson::parse("42")), 42.0);
    EXPECT_EQ(valueOf<double>(LumoJson(18446744073709551615ULL)), 18446744073709551616.0);
}

TEST(LumoJson, IntegralDoubleReadsAsInteger) {
    EXPECT_EQ(valueOf<int>(LumoJson(-2147483648.0)), std::numeric_limits<int>::min());
    EXPECT_EQ(valueOf<unsigned int>(LumoJson(4294967295.0)), 4294967295U);
    EXPECT_EQ(valueOf<unsigned long long>(LumoJson(18446744073709549568.0)), 18446744073709549568ULL);
    EXPECT_EQ(valueOf<unsigned int>(LumoJson(-0.0)), 0U);
}

TEST(LumoJson, NumberThatTheIntegerCannotHoldIsRefusedAndLeavesTheTarget) {
    const auto isRefused = [](const LumoJson& json, auto target) {
        const auto before = target;
        const std::string text = thrownText([&] { LumoJson::getValue(json, target); });
        return target == before && text == "JSON number does not fit the integer.";
    };
    EXPECT_TRUE(isRefused(2147483648U, 5));
    EXPECT_TRUE(isRefused(-2147483649LL, 5));
    EXPECT_TRUE(isRefused(2147483648.0, 5));
    EXPECT_TRUE(isRefused(1.5, 5));
    EXPECT_TRUE(isRefused(std::nan(""), 5));
    EXPECT_TRUE(isRefused(std::numeric_limits<double>::infinity(), 5));
    EXPECT_TRUE(isRefused(-1, 5U));
    EXPECT_TRUE(isRefused(-1.0, 5U));
    EXPECT_TRUE(isRefused(4294967296ULL, 5U));
    EXPECT_TRUE(isRefused(4294967296.0, 5U));
    EXPECT_TRUE(isRefused(-1, 5ULL));
    EXPECT_TRUE(isRefused(0.5, 5ULL));
    EXPECT_TRUE(isRefused(18446744073709551616.0, 5ULL));
    EXPECT_TRUE(isRefused(1e300, 5ULL));
    EXPECT_TRUE(isRefused(9223372036854775808ULL, 5LL));
}

TEST(LumoJson, ValueOfAnotherTypeIsNotRead) {
    const LumoJson text("1");
    const LumoJson number(1);
    EXPECT_EQ(thrownText([&] { valueOf<int>(text); }), "JSON value is no number.");
    EXPECT_EQ(thrownText([&] { valueOf<unsigned int>(LumoJson()); }), "JSON value is no number.");
    EXPECT_EQ(thrownText([&] { valueOf<unsigned long long>(LumoJson(true)); }), "JSON value is no number.");
    EXPECT_EQ(thrownText([&] { valueOf<double>(text); }), "JSON value is no number.");
    EXPECT_EQ(thrownText([&] { valueOf<bool>(number); }), "JSON value is no boolean.");
    EXPECT_EQ(thrownText([&] { valueOf<std::string>(number); }), "JSON value is no string.");
    EXPECT_EQ(thrownText([&] { valueOf<std::string_view>(LumoJson::array()); }), "JSON value is no string.");
}

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
