#pragma once

#include <cstdint>
#include <string>

#include "data/VrexVariable.h"
#include "support/ScalarSamples.h"

/// Variables that keep a log.
namespace nsLoggingSamples {

/// A variable with one derivative and a log of its own name.
inline VrexVariable named(const char* name, double value, std::uint64_t key) {
    VrexVariable variable = nsScalarSamples::make(value, {{key, 1.0}});
    variable.enableLog(name);
    return variable;
}

struct Inputs {
    VrexVariable a = named("a", 0.5, 0);
    VrexVariable b = named("b", 2.0, 1);
    VrexVariable c = named("c", 3.0, 2);
};

/// The number of the temporary that `like` names next, which uses one up.
inline int nextTemporary(const VrexVariable& like) {
    const std::string text = VrexVariable(1.0, like).convertLogToString();
    return std::stoi(text.substr(std::string("[tmp_var_").size()));
}

} // namespace nsLoggingSamples
