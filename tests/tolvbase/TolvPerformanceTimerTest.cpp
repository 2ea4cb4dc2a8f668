#include "tolvbase/TolvPerformanceTimer.h"

#include <chrono>
#include <clocale>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

std::function<void(const char*)> into(Texts& texts) {
    return [&texts](const char* text) { texts.emplace_back(text); };
}

} // namespace

TEST(TolvPerformanceTimer, ReportsNameAndMillisecondsOnceAtTheEnd) {
    static_assert(!std::is_copy_constructible_v<Tolv::PerformanceTimer>);
    static_assert(!std::is_copy_assignable_v<Tolv::PerformanceTimer>);
    Texts texts;
    {
        const Tolv::PerformanceTimer timer("Graph::traverse", true, into(texts));
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        EXPECT_TRUE(texts.empty());
    }
    ASSERT_EQ(texts.size(), 1U);
    double elapsed = 0;
    char decimals[4] = "";
    const std::string& text = texts[0];
    ASSERT_EQ(std::sscanf(text.c_str(), "Graph::traverse: %lf ms", &elapsed), 1) << text;
    ASSERT_EQ(std::sscanf(text.c_str(), "Graph::traverse: %*d.%3[0-9] ms", decimals), 1) << text;
    EXPECT_EQ(std::string(decimals).size(), 3U) << text;
    EXPECT_EQ(text.substr(text.size() - 3), " ms");
    EXPECT_GE(elapsed, 5.0);
}

TEST(TolvPerformanceTimer, ReportsNothingUnlessAsked) {
    Texts texts;
    { const Tolv::PerformanceTimer timer("x", false, into(texts)); }
    { const Tolv::PerformanceTimer timer("x", true, {}); }
    EXPECT_TRUE(texts.empty());
}

TEST(TolvPerformanceTimer, NameIsCopiedAndNullIsEmpty) {
    Texts texts;
    std::string name = "before";
    {
        const Tolv::PerformanceTimer timer(name.c_str(), true, into(texts));
        const Tolv::PerformanceTimer unnamed(nullptr, true, into(texts));
        name.assign("after!");
    }
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].substr(0, 2), ": ");
    EXPECT_EQ(texts[1].substr(0, 8), "before: ");
}

TEST(TolvPerformanceTimer, CallbackThatThrowsIsPassedOver) {
    int calls = 0;
    {
        const Tolv::PerformanceTimer timer("x", true, [&calls](const char*) {
            ++calls;
            throw std::runtime_error("callback");
        });
    }
    EXPECT_EQ(calls, 1);
    const auto throwPast = [] {
        const Tolv::PerformanceTimer timer("x", true, [](const char*) { throw 1; });
        throw std::logic_error("first");
    };
    EXPECT_THROW(throwPast(), std::logic_error);
}

TEST(TolvPerformanceTimer, TextHasAPointInEveryLocale) {
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
        GTEST_SKIP() << "de_DE.UTF-8 is not installed";
    }
    Texts texts;
    { const Tolv::PerformanceTimer timer("x", true, into(texts)); }
    std::setlocale(LC_ALL, "C");
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_NE(texts[0].find('.'), std::string::npos);
    EXPECT_EQ(texts[0].find(','), std::string::npos);
}
