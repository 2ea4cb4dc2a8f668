#include "tolvbase/LumoJsonIteratorImpl.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tolvbase/LumoJson.h"

namespace {

std::string walk(const LumoJson& json) {
    std::string text;
    for (LumoJsonIteratorImpl it = json.begin(); it != json.end(); ++it) {
        text += it->dump() + ";";
    }
    return text;
}

} // namespace

TEST(LumoJsonIteratorImpl, WalksElementsInOrder) {
    EXPECT_EQ(walk(LumoJson::array({1, "x", LumoJson()})), "1;\"x\";null;");
    EXPECT_EQ(walk(LumoJson::array()), "");
}

TEST(LumoJsonIteratorImpl, WalksTheValuesOfAnObjectWithTheirKeys) {
    const LumoJson json = LumoJson::parse(R"({"b":1,"a":[2]})");
    EXPECT_EQ(walk(json), "1;[2];");
    EXPECT_EQ(json.begin().key(), "b");
    EXPECT_EQ((json.begin() + 1).key(), "a");
    EXPECT_EQ(walk(LumoJson::parse("{}")), "");
}

TEST(LumoJsonIteratorImpl, ElementHasNoKey) {
    const LumoJson list = LumoJson::array({1});
    EXPECT_THROW((void)list.begin().key(), std::runtime_error);
    EXPECT_THROW((void)LumoJsonIteratorImpl().key(), std::runtime_error);
}

TEST(LumoJsonIteratorImpl, PostfixGivesThePlaceBefore) {
    const LumoJson list = LumoJson::array({1, 2, 3});
    LumoJsonIteratorImpl it = list.cbegin();
    EXPECT_EQ((it++)->dump(), "1");
    EXPECT_EQ((*it).dump(), "2");
    EXPECT_EQ((++it)->dump(), "3");
    EXPECT_FALSE(++it != list.cend());
}

TEST(LumoJsonIteratorImpl, PlusStepsOverElementsAndMembers) {
    const LumoJson list = LumoJson::array({1, 2, 3});
    const LumoJson object{{"a", 1}, {"b", 2}};
    EXPECT_EQ((list.begin() + 2)->dump(), "3");
    EXPECT_EQ((list.begin() + 2 + -1)->dump(), "2");
    EXPECT_EQ(list.begin() + 3, list.end());
    EXPECT_EQ((object.begin() + 1)->dump(), "2");
    EXPECT_EQ(object.begin() + 2, object.end());
    EXPECT_EQ(object.find("a") + 1, object.find("b"));
}

TEST(LumoJsonIteratorImpl, DefaultStandsNowhere) {
    const LumoJsonIteratorImpl nowhere;
    EXPECT_FALSE(nowhere != LumoJsonIteratorImpl());
    EXPECT_THROW((void)*nowhere, std::out_of_range);
    EXPECT_THROW((void)nowhere->size(), std::out_of_range);
    EXPECT_THROW((void)*LumoJsonMutableIterator(), std::out_of_range);
}

TEST(LumoJsonIteratorImpl, BeginningOfANonContainerThrowsAndItsEndDoesNot) {
    for (LumoJson json : {LumoJson(), LumoJson(1), LumoJson("x"), LumoJson(false)}) {
        const LumoJson& constant = json;
        EXPECT_THROW((void)json.begin(), std::runtime_error);
        EXPECT_THROW((void)constant.begin(), std::runtime_error);
        EXPECT_THROW((void)json.cbegin(), std::runtime_error);
        EXPECT_NO_THROW((void)json.end());
        EXPECT_NO_THROW((void)constant.cend());
    }
}

TEST(LumoJsonIteratorImpl, MutableContainerIsWrittenThroughItsIterators) {
    LumoJson list = LumoJson::array({1, 2, 3});
    for (LumoJson& element : list) {
        element = LumoJson::array({element});
    }
    *(list.begin() + 1) = "x";
    auto it = list.begin();
    (it++)->push_back(5);
    (++it)->push_back(6);
    EXPECT_EQ(list.dump(), R"([[1,5],"x",[3,6]])");
    LumoJson object{{"a", 1}};
    *object.find("a") = 2;
    const LumoJsonIteratorImpl reading = object.find("a");
    EXPECT_EQ(reading->dump(), "2");
    EXPECT_FALSE(object.find("b") != object.end());
}
