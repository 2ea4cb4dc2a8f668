#include "tolvbase/TolvPerformanceTimer.h"

#include <utility>

#include "tolvbase/TolvFormat.h"

namespace Tolv {

PerformanceTimer::PerformanceTimer(const char* name, bool isReporting,
                                   std::function<void(const char*)> report)
    : m_start(std::chrono::steady_clock::now()) {
    if (isReporting && report) {
        m_name = name == nullptr ? "" : name;
        m_report = std::move(report);
    }
}

PerformanceTimer::~PerformanceTimer() {
    if (!m_report) {
        return;
    }
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - m_start;
    try {
        m_report(formatString("%s: %.3f ms", m_name.c_str(), elapsed.count()).c_str());
    } catch (...) { // NOLINT(bugprone-empty-catch): a measurement must not disturb what it measures
    }
}

} // namespace Tolv
