#include "tolvbase/TolvLog.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

constexpr std::uint32_t EVERY_LEVEL = 0xFFFFFFFF;

// Both sides of a library boundary fill and read it: types and order are fixed.
static_assert(std::is_same_v<decltype(Tolv::SLogParam::channel), std::uint32_t>);
static_assert(std::is_same_v<decltype(Tolv::SLogParam::level), std::uint32_t>);
static_assert(std::is_same_v<decltype(Tolv::SLogParam::fileName), const char*>);
static_assert(std::is_same_v<decltype(Tolv::SLogParam::fileNameLength), std::int32_t>);
static_assert(std::is_same_v<decltype(Tolv::SLogParam::line), std::int32_t>);
static_assert(offsetof(Tolv::SLogParam, channel) == 0);
static_assert(offsetof(Tolv::SLogParam, level) == sizeof(std::uint32_t));
static_assert(offsetof(Tolv::SLogParam, fileName) == 2 * sizeof(std::uint32_t));
static_assert(offsetof(Tolv::SLogParam, fileNameLength) == 2 * sizeof(std::uint32_t) + sizeof(char*));
static_assert(offsetof(Tolv::SLogParam, line) == 3 * sizeof(std::uint32_t) + sizeof(char*));

struct Line {
    Tolv::SLogParam param;
    std::string text;
};

/// Collects what is logged; leaves the log as it was at the start of the process.
class TolvLog : public testing::Test {
protected:
    void TearDown() override {
        Tolv::setLogSink({});
        for (const std::uint32_t channel : {1U, 2U, 5000U}) {
            Tolv::setLogLevel(channel, EVERY_LEVEL);
        }
    }

    void collect() {
        Tolv::setLogSink([this](const Tolv::SLogParam& param, std::string_view text) {
            m_lines.push_back({param, std::string(text)});
        });
    }

    static void log(std::uint32_t channel, std::uint32_t level, const char* text) {
        Tolv::SLogParam param{channel, level, "file.cpp", 8, 12};
        Tolv::Log(param, "%s", text);
    }

    std::vector<Line> m_lines;
};

/// A static object of a host that takes its sink back while the process ends. The process ends with 3 if the
/// sink had died before, with 4 if it was not called, with 5 if it outlived its end.
class LateHost {
public:
    LateHost() = default;
    LateHost(const LateHost&) = delete;
    LateHost& operator=(const LateHost&) = delete;
    ~LateHost() {
        check(!m_sink.expired(), 3);
        Tolv::SLogParam param{1, 1, "host.cpp", 8, 1};
        Tolv::Log(param, "%s", "late");
        check(m_lines == 2, 4);
        Tolv::setLogSink({});
        check(m_sink.expired(), 5);
    }

    void start() {
        auto lines = std::make_shared<int*>(&m_lines);
        m_sink = lines;
        Tolv::setLogSink([lines = std::move(lines)](const Tolv::SLogParam&, std::string_view) { ++**lines; });
        Tolv::SLogParam param{1, 1, "host.cpp", 8, 1};
        Tolv::Log(param, "%s", "early");
    }

private:
    static void check(bool isGood, int exitCode) {
        if (!isGood) {
            _exit(exitCode);
        }
    }

    int m_lines = 0;
    std::weak_ptr<int*> m_sink;
};

/// What a sink holds; logs when it dies.
struct LastWord {
    LastWord() = default;
    LastWord(const LastWord&) = delete;
    LastWord& operator=(const LastWord&) = delete;
    ~LastWord() {
        Tolv::SLogParam param{1, 1, "sink.cpp", 8, 1};
        Tolv::Log(param, "%s", "last word");
    }
};

} // namespace

TEST_F(TolvLog, NothingIsWrittenWithoutASink) {
    EXPECT_FALSE(Tolv::IsWriteLog(1, 1));
    EXPECT_FALSE(Tolv::IsWriteLog(1, 0));
    Tolv::setLogLevel(1, 4);
    EXPECT_FALSE(Tolv::IsWriteLog(1, 1));
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    log(1, 1, "lost");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(TolvLog, SinkGetsTheFormattedTextAndItsOrigin) {
    collect();
    Tolv::SLogParam param{1, 2, "VrexGraph.cpp", 13, 77};
    Tolv::Log(param, "%s(): %d%%", "Graph::walk", 50);
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_EQ(m_lines[0].text, "Graph::walk(): 50%");
    EXPECT_EQ(m_lines[0].param.channel, 1U);
    EXPECT_EQ(m_lines[0].param.level, 2U);
    EXPECT_STREQ(m_lines[0].param.fileName, "VrexGraph.cpp");
    EXPECT_EQ(m_lines[0].param.fileNameLength, 13);
    EXPECT_EQ(m_lines[0].param.line, 77);
}

TEST_F(TolvLog, UserTextWithPercentSignsIsKept) {
    collect();
    const std::string text(1U << 20U, '%');
    log(1, 1, text.c_str());
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_EQ(m_lines[0].text, text);
}

TEST_F(TolvLog, ChannelWithoutLimitWritesEveryLevel) {
    collect();
    EXPECT_TRUE(Tolv::IsWriteLog(1, 4));
    EXPECT_TRUE(Tolv::IsWriteLog(2, EVERY_LEVEL));
    EXPECT_TRUE(Tolv::IsWriteLog(6000, 4));
}

TEST_F(TolvLog, LimitIsTheHighestLevelOfItsChannelAlone) {
    collect();
    for (const std::uint32_t channel : {1U, 5000U}) {
        Tolv::setLogLevel(channel, 2);
        EXPECT_TRUE(Tolv::IsWriteLog(channel, 1));
        EXPECT_TRUE(Tolv::IsWriteLog(channel, 2));
        EXPECT_FALSE(Tolv::IsWriteLog(channel, 3));
        EXPECT_FALSE(Tolv::IsWriteLog(channel, 4));
        EXPECT_TRUE(Tolv::IsWriteLog(2, 4));
        log(channel, 4, "filtered although nobody asked first");
        log(channel, 2, "written");
        Tolv::setLogLevel(channel, 0);
        EXPECT_FALSE(Tolv::IsWriteLog(channel, 1));
        EXPECT_FALSE(Tolv::IsWriteLog(channel, 0));
    }
    ASSERT_EQ(m_lines.size(), 2U);
    EXPECT_EQ(m_lines[0].text, "written");
}

TEST_F(TolvLog, LimitOutlastsTheSink) {
    Tolv::setLogLevel(1, 1);
    collect();
    EXPECT_FALSE(Tolv::IsWriteLog(1, 2));
    Tolv::setLogSink({});
    collect();
    EXPECT_FALSE(Tolv::IsWriteLog(1, 2));
}

TEST_F(TolvLog, EmptySinkEndsTheWriting) {
    collect();
    Tolv::setLogSink(nullptr);
    EXPECT_FALSE(Tolv::IsWriteLog(1, 1));
    log(1, 1, "lost");
    EXPECT_TRUE(m_lines.empty());
}

TEST_F(TolvLog, SinkThatThrowsDoesNotDisturbTheCaller) {
    int calls = 0;
    Tolv::setLogSink([&calls](const Tolv::SLogParam&, std::string_view) {
        ++calls;
        throw std::runtime_error("sink");
    });
    EXPECT_NO_THROW(log(1, 1, "a"));
    EXPECT_NO_THROW(log(1, 1, "b"));
    EXPECT_EQ(calls, 2);
}

TEST_F(TolvLog, WhatASinkLogsItselfIsDropped) {
    int calls = 0;
    Tolv::setLogSink([&calls](const Tolv::SLogParam&, std::string_view) {
        ++calls;
        EXPECT_FALSE(Tolv::IsWriteLog(1, 1));
        log(1, 1, "again");
    });
    log(1, 1, "once");
    log(1, 1, "twice");
    EXPECT_EQ(calls, 2);
}

TEST_F(TolvLog, SinkMayReplaceItself) {
    Tolv::setLogSink([this](const Tolv::SLogParam&, std::string_view) { collect(); });
    log(1, 1, "first");
    log(1, 1, "second");
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_EQ(m_lines[0].text, "second");
}

TEST_F(TolvLog, SinkAndLimitMayChangeWhileOthersLog) {
    constexpr int LINES = 20000;
    std::atomic<int> received{0};
    std::atomic<bool> isDone{false};
    const auto count = [&received](const Tolv::SLogParam&, std::string_view text) {
        received += text == "line" ? 1 : 1000000;
    };
    const auto writeLines = [] {
        for (int line = 0; line < LINES; ++line) {
            log(1, 1, "line");
        }
    };
    const auto change = [&isDone, &count] {
        while (!isDone) {
            Tolv::setLogSink(count);
            Tolv::setLogLevel(1, 1);
            Tolv::setLogLevel(5000, 4);
        }
    };
    Tolv::setLogSink(count);
    std::thread changer(change);
    std::thread first(writeLines);
    std::thread second(writeLines);
    first.join();
    second.join();
    isDone = true;
    changer.join();
    EXPECT_EQ(received, 2 * LINES);
}

TEST_F(TolvLog, StaticObjectOfTheHostMayEndTheLogWhileTheProcessEnds) {
    // Started afresh, so that the log is made after the host, as in a program, and would go before it.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto endWithHost = [] {
        static LateHost host;
        host.start();
        std::exit(0); // NOLINT(concurrency-mt-unsafe): the end is what is tested
    };
    EXPECT_EXIT(endWithHost(), testing::ExitedWithCode(0), "");
}

TEST_F(TolvLog, SinkMayLogWhileItIsDestroyed) {
    auto lastWord = std::make_shared<LastWord>();
    Tolv::setLogSink([lastWord = std::move(lastWord)](const Tolv::SLogParam&, std::string_view) {});
    collect();
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_EQ(m_lines[0].text, "last word");
}

TEST_F(TolvLog, SinkThatReplacesItselfMayLogWhileItIsDestroyed) {
    auto lastWord = std::make_shared<LastWord>();
    Tolv::setLogSink(
        [this, lastWord = std::move(lastWord)](const Tolv::SLogParam&, std::string_view) { collect(); });
    log(1, 1, "first");
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_EQ(m_lines[0].text, "last word");
}
