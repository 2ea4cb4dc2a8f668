#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

#include <spdlog/logger.h>

#include "tolvbase/TolvLog.h"

namespace Tolv {

/// The spdlog level of a log level: 1 is an error, 2 a warning, everything else (4) debug text.
[[nodiscard]] inline spdlog::level::level_enum toSpdlogLevel(std::uint32_t level) {
    switch (level) {
    case 1:
        return spdlog::level::err;
    case 2:
        return spdlog::level::warn;
    default:
        return spdlog::level::debug;
    }
}

/// A sink that writes each line to `logger` as "[channel] file:line text"; an empty sink for a null logger.
/// For hosts that have spdlog; `tolvbase` itself does not link it. The levels of the logger apply on top of
/// `setLogLevel`: spdlog drops debug text unless the logger's level is lowered.
[[nodiscard]] inline LogSink makeSpdlogSink(std::shared_ptr<spdlog::logger> logger) {
    if (!logger) {
        return {};
    }
    return [logger = std::move(logger)](const SLogParam& param, std::string_view text) {
        const bool isNamed = param.fileName != nullptr && param.fileNameLength > 0;
        const std::string_view file(isNamed ? param.fileName : "",
                                    isNamed ? static_cast<std::size_t>(param.fileNameLength) : 0);
        logger->log(toSpdlogLevel(param.level), "[{}] {}:{} {}", param.channel, file, param.line, text);
    };
}

} // namespace Tolv
