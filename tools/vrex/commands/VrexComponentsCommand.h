#pragma once

#include <string>

#include "tools/vrex/VrexExitCode.h"

class VrexConsole;

/// `vrex components`: the pieces of a system that can be solved by themselves.
struct VrexComponentsCommand {
    std::string input;
    bool tellsMembers = false; ///< The identifiers of what is in each.

    VrexExitCode run(const VrexConsole& console) const;
};
