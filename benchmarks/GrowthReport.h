#pragma once

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "RatioReport.h"

/// Prints besides how the time of a whole workload grows with its size: the exponent of the power of the size
/// that fits best, by least squares on the logarithms.
///
/// Workloads are named "what_SIZE", and measured per element. 1 is linear; caches that no longer hold a large
/// workload let the exponent of any variant exceed it, so that of the peer stands beside it.
class GrowthReport : public RatioReport {
public:
    void Finalize() override {
        RatioReport::Finalize();
        std::map<std::string, Points> lines;
        for (const Workload& workload : workloads()) {
            const double size = std::strtod(workload.name.c_str() + workload.name.rfind('_') + 1, nullptr);
            for (const Variant& variant : workload.variants) {
                const double time = size * median(variant.times);
                lines[variant.name].emplace_back(std::log(size), std::log(time));
            }
        }
        for (const auto& [variant, points] : lines) {
            if (points.size() > 1) {
                std::printf("%-28s %-22s %14s %10.3f\n", "exponent of growth", variant.c_str(), "",
                            slopeOf(points));
            }
        }
    }

private:
    using Points = std::vector<std::pair<double, double>>;

    static double slopeOf(const Points& points) {
        double x = 0.0, y = 0.0, xx = 0.0, xy = 0.0;
        for (const auto& [logSize, logTime] : points) {
            x += logSize;
            y += logTime;
            xx += logSize * logSize;
            xy += logSize * logTime;
        }
        const double count = static_cast<double>(points.size());
        return (count * xy - x * y) / (count * xx - x * x);
    }
};
