#pragma once

#include <string>

#include "tools/vrex/VrexExitCode.h"

class VrexConsole;

/// `vrex info`: what a system consists of.
struct VrexInfoCommand {
    std::string input;

    VrexExitCode run(const VrexConsole& console) const;
};
