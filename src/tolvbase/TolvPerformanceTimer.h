#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "tolvbase/TolvExport.h"

namespace Tolv {

/// Measures from its construction to the end of its scope, on the steady clock.
///
/// At the end the callback receives "<name>: <milliseconds> ms", with three decimals and a point in every
/// locale; the text lives only during the call. A callback that throws is passed over.
class TOLV_EXPORT PerformanceTimer {
public:
    /// `isReporting` false, or an empty callback, makes a timer that reports nothing. A null name is empty.
    PerformanceTimer(const char* name, bool isReporting, std::function<void(const char*)> report);
    ~PerformanceTimer();
    PerformanceTimer(const PerformanceTimer&) = delete;
    PerformanceTimer& operator=(const PerformanceTimer&) = delete;

private:
    std::string m_name;
    std::function<void(const char*)> m_report;
    std::chrono::steady_clock::time_point m_start;
};

} // namespace Tolv
