#pragma once

#include <string>

#include "tools/vrex/VrexExitCode.h"

class VrexConsole;

/// `vrex diff`: what two documents do not have in common.
struct VrexDiffCommand {
    std::string first;
    std::string second;
    double tolerance = 1e-9; ///< Numbers that differ by no more are the same.

    VrexExitCode run(const VrexConsole& console) const;
};
