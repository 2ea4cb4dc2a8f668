#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <pthread.h>

#include "tolvbase/LumoJson.h"

namespace {

constexpr std::size_t SMALL_STACK = 512UL * 1024UL;
constexpr int DEEP = 1000000;
constexpr int MANY = 1000000;

/// Runs the work in a thread with a stack of 512 KiB; what recurses once per level of a deep value dies
/// there.
void runOnSmallStack(std::function<void()> work) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, SMALL_STACK), 0);
    pthread_t thread{};
    const auto run = [](void* argument) -> void* {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

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
