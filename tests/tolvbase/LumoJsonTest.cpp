#include "tolvbase/LumoJson.h"

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "support/JsonSamples.h"

using nsJsonSamples::thrownText;
using nsJsonSamples::TYPE_ROWS;
using nsJsonSamples::TypeRow;
using nsJsonSamples::valueOf;

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

#if !defined(__clang__) || __clang_major__ >= 18
TEST(LumoJson, BracesAroundOneValueMakeAnArray) {
    const LumoJson json{{"a", 1}};
    EXPECT_EQ(LumoJson{json}.dump(), R"([{"a":1}])");
    EXPECT_EQ(LumoJson{LumoJson(1)}.dump(), "[1]");
    EXPECT_EQ(LumoJson(json).dump(), R"({"a":1})");
}
#endif

TEST(LumoJson, ArrayTakesPairsAsTheyAre) {
    EXPECT_EQ(LumoJson::array({LumoJson::array({1})}).dump(), "[[1]]");
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
    EXPECT_EQ(valueOf<long long>(LumoJson(-9223372036854775808.0)), std::numeric_limits<long long>::min());
    EXPECT_EQ(valueOf<long long>(LumoJson(9223372036854774784.0)), 9223372036854774784LL);
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
    EXPECT_TRUE(isRefused(9223372036854775808.0, 5LL));
    EXPECT_TRUE(isRefused(-9223372036854777856.0, 5LL)); // The next double below the lowest integer.
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

TEST(LumoJson, RefusedReadingLeavesTheTarget) {
    double number = 5.5;
    bool flag = true;
    std::string text = "before";
    std::string_view view = "before";
    EXPECT_THROW(LumoJson::getValue(LumoJson("1"), number), std::runtime_error);
    EXPECT_THROW(LumoJson::getValue(LumoJson(0), flag), std::runtime_error);
    EXPECT_THROW(LumoJson::getValue(LumoJson(1), text), std::runtime_error);
    const LumoJson list = LumoJson::array();
    EXPECT_THROW(LumoJson::getValue(list, view), std::runtime_error);
    EXPECT_EQ(number, 5.5);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "before");
    EXPECT_EQ(view, "before");
}

namespace {

template <class Json, class Value>
concept ReadsUnqualified = requires(Json&& json, Value& out) {
    getValue(std::forward<Json>(json), out);
};

template <class Value>
concept StoredUnqualified = requires(LumoJson& json, Value value) {
    toJson(json, value);
};

} // namespace

TEST(LumoJson, ValuesAreStoredAndReadWithoutTheClassName) {
    LumoJson json;
    toJson(json, 3);
    int number = 0;
    getValue(json, number);
    EXPECT_EQ(number, 3);
    toJson(json, "text");
    std::string text;
    getValue(std::as_const(json), text);
    EXPECT_EQ(text, "text");
    const bool flag = true;
    toJson(json, flag);
    EXPECT_EQ(json.dump(), "true");
    EXPECT_THROW(getValue(json, text), std::runtime_error);
    static_assert(ReadsUnqualified<LumoJson, std::string>);
    static_assert(!ReadsUnqualified<LumoJson, std::string_view>, "a view of a value that dies");
    static_assert(!ReadsUnqualified<LumoJson&, const int> && !ReadsUnqualified<std::string&, int>);
    static_assert(StoredUnqualified<unsigned long long> && !StoredUnqualified<const void*>);
}
