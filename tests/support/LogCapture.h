#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tolvbase/TolvLog.h"

/// Takes what is written to the log as long as it lives.
class LogCapture {
public:
    struct Line {
        std::uint32_t channel;
        std::uint32_t level;
        std::string file;
        int line;
        std::string text;
    };

    explicit LogCapture(std::uint32_t highestLevel = 4) {
        Tolv::setLogLevel(1, highestLevel);
        Tolv::setLogSink([this](const Tolv::SLogParam& param, std::string_view text) {
            m_lines.push_back({param.channel, param.level,
                               std::string(param.fileName, static_cast<std::size_t>(param.fileNameLength)),
                               param.line, std::string(text)});
        });
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;
    ~LogCapture() { Tolv::setLogSink({}); }

    const std::vector<Line>& lines() const { return m_lines; }

private:
    std::vector<Line> m_lines;
};
