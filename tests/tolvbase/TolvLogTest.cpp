#include "tolvbase/TolvLog.h"

#include <atomic>
#include <cstring>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t EVERY_LEVEL = 0xFFFFFFFF;

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
