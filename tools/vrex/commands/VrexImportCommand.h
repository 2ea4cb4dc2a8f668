#pragma once

#include <string>

#include "tools/vrex/VrexExitCode.h"

class VrexConsole;

/// `vrex import`: a robot description (URDF) becomes a document.
struct VrexImportCommand {
    std::string input;
    std::string output = "-";
    std::string loopFile; ///< Empty: the one that belongs to the input by name, if there is one.
    bool isLenient = false;

    VrexExitCode run(const VrexConsole& console) const;
};
