#pragma once

#include <fstream>
#include <string>

#include <malloc.h>

/// The most memory that this process used since a mark was set.
class PeakMemory {
public:
    /// Sets the mark. A peak once reached hides what is measured next, so the mark sinks to what is used now.
    PeakMemory() {
        malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << 5;
        m_before = peak();
    }
    double bytes() const { return peak() - m_before; }

private:
    static double peak() {
        std::ifstream status("/proc/self/status");
        for (std::string word; status >> word;) {
            if (word == "VmHWM:") {
                double kibibytes = 0.0;
                status >> kibibytes;
                return 1024.0 * kibibytes;
            }
        }
        return 0.0;
    }

    double m_before = 0.0;
};
