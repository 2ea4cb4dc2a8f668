#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/SmallStack.h"
#include "tolvbase/LumoJson.h"

namespace {

constexpr int DEEP = 1000000;
constexpr int MANY = 1000000;

LumoJson deepArray() {
    LumoJson value(1);
    for (int level = 0; level < DEEP; ++level) {
        LumoJson outer;
        outer.push_back(std::move(value));
        value = std::move(outer);
    }
    return value;
}

LumoJson deepObject() {
    LumoJson value(1);
    for (int level = 0; level < DEEP; ++level) {
        LumoJson outer;
        outer["k"] = std::move(value);
        value = std::move(outer);
    }
    return value;
}

std::string repeated(std::string_view text, int count) {
    std::string result;
    for (int turn = 0; turn < count; ++turn) {
        result += text;
    }
    return result;
}

} // namespace

TEST(LumoJsonLimits, DeepTextIsRefusedOnASmallStack) {
    runOnSmallStack([] {
        EXPECT_THROW((void)LumoJson::parse(std::string(100000, '[')), std::runtime_error);
        EXPECT_THROW((void)LumoJson::parse(std::string(100000, '[') + std::string(100000, ']')),
                     std::runtime_error);
        EXPECT_THROW((void)LumoJson::parse(repeated("{\"a\":", 100000)), std::runtime_error);
        EXPECT_EQ(LumoJson::parse(std::string(512, '[') + std::string(512, ']')).size(), 1U);
    });
}

TEST(LumoJsonLimits, DeepArrayIsBuiltCopiedWrittenAndReleasedOnASmallStack) {
    runOnSmallStack([] {
        LumoJson value = deepArray();
        LumoJson copy = value;
        value.clear();
        const std::string text = copy.dump();
        EXPECT_EQ(text, std::string(DEEP, '[') + "1" + std::string(DEEP, ']'));
        copy = LumoJson();
    });
}

TEST(LumoJsonLimits, DeepObjectIsBuiltCopiedWrittenAndReleasedOnASmallStack) {
    runOnSmallStack([] {
        LumoJson value = deepObject();
        const LumoJson copy = value;
        value["k"] = 2; // The copy shares nothing.
        EXPECT_EQ(copy.dump(), repeated("{\"k\":", DEEP) + "1" + std::string(DEEP, '}'));
    });
}

TEST(LumoJsonLimits, AMillionKeysAreReadAndFoundInLinearTime) {
    std::string text = "{";
    for (int key = 0; key < MANY; ++key) {
        text += (key == 0 ? "\"k" : ",\"k") + std::to_string(key) + "\":" + std::to_string(key);
    }
    // Each key once more, so that every member is looked up and replaced.
    for (int key = 0; key < MANY; ++key) {
        text += ",\"k" + std::to_string(key) + "\":" + std::to_string(key + 1);
    }
    const LumoJson json = LumoJson::parse(text + "}");
    ASSERT_EQ(json.size(), static_cast<std::size_t>(MANY));
    for (int key = 0; key < MANY; ++key) {
        int value = 0;
        LumoJson::getValue(json["k" + std::to_string(key)], value);
        ASSERT_EQ(value, key + 1);
    }
    EXPECT_FALSE(json.contains("k" + std::to_string(MANY)));
}

TEST(LumoJsonLimits, ManyThreadsReadOneValue) {
    LumoJson shared;
    for (int key = 0; key < 100; ++key) {
        shared[std::to_string(key)] = LumoJson::array({key, 0.5, "a text that lies on the heap"});
    }
    const LumoJson& json = shared;
    const std::string text = json.dump();
    std::vector<int> sums(4);
    const auto read = [&](int& sum) {
        for (int turn = 0; turn < 50; ++turn) {
            for (int key = 0; key < 100; ++key) {
                int value = 0;
                LumoJson::getValue(json[std::to_string(key)][0], value);
                sum += value;
            }
            const LumoJson copy = json;
            sum += copy.dump() == text ? 1 : 0;
        }
    };
    std::vector<std::thread> threads;
    for (int& sum : sums) {
        threads.emplace_back(read, std::ref(sum));
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(sums, std::vector<int>(4, 50 * (99 * 100 / 2 + 1)));
}
