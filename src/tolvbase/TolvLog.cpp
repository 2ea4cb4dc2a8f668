#include "tolvbase/TolvLog.h"

#include <array>
#include <atomic>
#include <cstdarg>
#include <limits>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>

#include "tolvbase/TolvFormat.h"

namespace Tolv {
namespace {

constexpr std::uint32_t EVERY_LEVEL = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t FAST_CHANNELS = 16;

/// Stands outside the state: a process that never sets a sink never makes one.
constinit std::atomic<bool> s_hasSink{false};
constinit thread_local bool t_isInSink = false;

/// Made with the first sink or limit and never destroyed: what static objects of the host log or set while
/// the process ends still finds it.
class LogState {
public:
    LogState() {
        for (auto& limit : m_fastLimits) {
            limit.store(EVERY_LEVEL, std::memory_order_relaxed);
        }
    }
    LogState(const LogState&) = delete;
    LogState& operator=(const LogState&) = delete;
    ~LogState() = default;

    static LogState& instance() {
        static LogState* const state = std::make_unique<LogState>().release();
        return *state;
    }

    void setSink(LogSink sink) {
        auto next = sink ? std::make_shared<const LogSink>(std::move(sink)) : nullptr;
        // The old sink leaves in `next`, and dies after the lock: its destructor may log.
        const std::lock_guard lock(m_mutex);
        m_sink.swap(next);
        s_hasSink.store(m_sink != nullptr);
    }

    std::shared_ptr<const LogSink> sink() {
        const std::lock_guard lock(m_mutex);
        return m_sink;
    }

    void setLimit(std::uint32_t channel, std::uint32_t level) {
        if (channel < FAST_CHANNELS) {
            m_fastLimits[channel].store(level, std::memory_order_relaxed);
            return;
        }
        const std::lock_guard lock(m_mutex);
        m_limits[channel] = level;
    }

    std::uint32_t limit(std::uint32_t channel) {
        if (channel < FAST_CHANNELS) {
            return m_fastLimits[channel].load(std::memory_order_relaxed);
        }
        const std::lock_guard lock(m_mutex);
        const auto found = m_limits.find(channel);
        return found == m_limits.end() ? EVERY_LEVEL : found->second;
    }

private:
    std::mutex m_mutex;
    std::shared_ptr<const LogSink> m_sink;
    std::array<std::atomic<std::uint32_t>, FAST_CHANNELS> m_fastLimits;
    std::unordered_map<std::uint32_t, std::uint32_t> m_limits;
};

/// Marks the thread as being inside the sink, for as long as it lives.
class SinkScope {
public:
    SinkScope() { t_isInSink = true; }
    SinkScope(const SinkScope&) = delete;
    SinkScope& operator=(const SinkScope&) = delete;
    ~SinkScope() { t_isInSink = false; }
};

} // namespace

bool IsWriteLog(std::uint32_t channel, std::uint32_t level) noexcept {
    if (!s_hasSink.load(std::memory_order_relaxed) || t_isInSink) {
        return false;
    }
    const std::uint32_t limit = LogState::instance().limit(channel);
    return limit != 0 && level <= limit;
}

void Log(SLogParam& param, const char* format, ...) noexcept {
    if (!IsWriteLog(param.channel, param.level)) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    try {
        const std::shared_ptr<const LogSink> sink = LogState::instance().sink();
        const std::string text = formatStringV(format, arguments);
        const SinkScope scope;
        if (sink) {
            (*sink)(param, text);
        }
    } catch (...) { // NOLINT(bugprone-empty-catch): logging must not disturb the one who logs
    }
    va_end(arguments);
}

void setLogSink(LogSink sink) { LogState::instance().setSink(std::move(sink)); }

void setLogLevel(std::uint32_t channel, std::uint32_t level) {
    LogState::instance().setLimit(channel, level);
}

} // namespace Tolv
