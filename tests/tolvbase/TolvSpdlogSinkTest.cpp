#include "tolvbase/TolvSpdlogSink.h"

#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>
#include <spdlog/sinks/ostream_sink.h>

namespace {

class TolvSpdlogSink : public testing::Test {
protected:
    TolvSpdlogSink() {
        m_logger->set_pattern("%l|%v");
        m_logger->set_level(spdlog::level::debug);
        Tolv::setLogSink(Tolv::makeSpdlogSink(m_logger));
    }
    ~TolvSpdlogSink() override { Tolv::setLogSink({}); }

    std::string write(Tolv::SLogParam param, const char* text) {
        m_stream.str({});
        Tolv::Log(param, "%s", text);
        return m_stream.str();
    }

    std::ostringstream m_stream;
    std::shared_ptr<spdlog::logger> m_logger =
        std::make_shared<spdlog::logger>("test", std::make_shared<spdlog::sinks::ostream_sink_mt>(m_stream));
};

} // namespace

TEST_F(TolvSpdlogSink, LevelsBecomeErrorWarningAndDebug) {
    EXPECT_EQ(write({1, 1, "a.cpp", 5, 10}, "x {} %d"), "error|[1] a.cpp:10 x {} %d\n");
    EXPECT_EQ(write({1, 2, "b.cpp", 5, 11}, "y"), "warning|[1] b.cpp:11 y\n");
    EXPECT_EQ(write({3, 4, "c.cpp", 5, 12}, "z"), "debug|[3] c.cpp:12 z\n");
}

TEST_F(TolvSpdlogSink, FileNameIsCutAtItsLengthAndMayBeMissing) {
    EXPECT_EQ(write({1, 1, "a.cpp rest", 5, 1}, "x"), "error|[1] a.cpp:1 x\n");
    EXPECT_EQ(write({1, 1, nullptr, 5, 1}, "x"), "error|[1] :1 x\n");
    EXPECT_EQ(write({1, 1, "a.cpp", -1, 1}, "x"), "error|[1] :1 x\n");
}

TEST_F(TolvSpdlogSink, NullLoggerMakesNoSink) { EXPECT_FALSE(Tolv::makeSpdlogSink(nullptr)); }
