#pragma once

#include "data/VrexLog.h"
#include "tolvbase/TolvPerformanceTimer.h"

/// Hidden: measures a scope, for the log where it takes diagnostics.
class VrexGraphTimer : public Tolv::PerformanceTimer {
public:
    explicit VrexGraphTimer(const char* name)
        : PerformanceTimer(name, nsLog::isWritten(nsLog::DIAGNOSTIC),
                           [](const char* text) { VREX_LOG(nsLog::DIAGNOSTIC, "%s", text); }) {}
};
