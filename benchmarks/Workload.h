#pragma once

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

/// The variants of a workload compute the same, or the comparison means nothing: ends the program when
/// `value` differs from that of the first variant by more than rounding. `name` is "workload/variant".
inline void expectSameValue(const std::string& name, double value) {
    static std::map<std::string, double> values;
    const double first = values.try_emplace(name.substr(0, name.find('/')), value).first->second;
    if (!(std::fabs(value - first) <= 1e-12 * std::fabs(first))) {
        std::fprintf(stderr, "%s gives %.17g, its peer %.17g\n", name.c_str(), value, first);
        std::exit(1);
    }
}
