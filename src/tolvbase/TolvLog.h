#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "tolvbase/TolvExport.h"

namespace Tolv {

/// Where a log line comes from. The file name is not owned; its directories are cut off.
struct SLogParam {
    std::uint32_t channel = 0;
    std::uint32_t level = 0;
    const char* fileName = nullptr;
    std::int32_t fileNameLength = 0;
    std::int32_t line = 0;
};

/// Receives one finished line, without a line end; the text lives only during the call. Takes any copyable
/// callable.
using LogSink = std::function<void(const SLogParam&, std::string_view)>;

/// True when a sink is set and `level` is within the limit of `channel`. Costs one atomic load without a
/// sink; channels from 16 on take a lock, which a thread that changes sink or limits holds for a moment.
/// False inside a sink: what a sink logs on its own thread is dropped, not fed back to it.
[[nodiscard]] TOLV_EXPORT bool IsWriteLog(std::uint32_t channel, std::uint32_t level) noexcept;

/// Hands the formatted text to the sink, if `IsWriteLog` says so for the channel and level of `param`.
/// Never throws: a sink that throws, and a text for which memory is missing, are passed over.
TOLV_EXPORT void Log(SLogParam& param, const char* format, ...) noexcept
    __attribute__((format(printf, 2, 3)));

/// Sets the one sink of the process; an empty sink ends all writing, which is also the state at the start.
/// The sink is called on the thread that logs, without a lock, so by several threads at once. This returns
/// while another thread may still be inside the old sink: let a sink own what it uses, captured by value or
/// as a `std::shared_ptr`. The old sink is destroyed by the last thread that leaves it. A sink that is never
/// replaced is called to the very end of the process and not destroyed. Throws `std::bad_alloc`, and then the
/// old sink stays.
TOLV_EXPORT void setLogSink(LogSink sink);

/// The highest level that is written on `channel`; 0 writes nothing. A channel that was never named here
/// writes every level once there is a sink: the host that asks for a log sees all of it and narrows it down.
/// Limits outlast a change of the sink. Throws `std::bad_alloc`, and then the old limit stays.
TOLV_EXPORT void setLogLevel(std::uint32_t channel, std::uint32_t level);

} // namespace Tolv
