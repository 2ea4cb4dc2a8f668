#pragma once

#include <string>

#include "tools/vrex/VrexExitCode.h"

class VrexConsole;

/// `vrex check`: whether a document reads, and whether its constraints may bind what they bind.
struct VrexCheckCommand {
    std::string input;

    VrexExitCode run(const VrexConsole& console) const;
};
